// The process-wide client-context cache: facts about the client and the machine, gathered once and
// repeated in every client entity.
//
// The cache starts unfilled (its web-service value empty). Each refresh while it is unfilled and the
// web service exists asks the web service to fill the record and re-reads every machine fact; once the
// web-service value is non-empty the record is fixed until the process ends. Events read the facts as
// UTF-8 (ClientFacts): a filled record is converted once and then handed out without copying or
// converting again; an unfilled one is copied for each event.
//
// Lifetime: the cache is created empty on first use (only that runs under the compiler's one-time
// initialisation guard; the first refresh runs after it) and is deliberately never destroyed, so that
// a call from a client's exit path (an atexit handler, a static destructor) still finds it intact.
//
// Threads and re-entry: the record is read and replaced under a lock that is never held while the host
// is called. Two threads that refresh an unfilled cache at once may both ask the host; the first
// complete answer is kept. A host that calls back into the library while it fills the record (on the
// same thread) sees the unfilled cache: the nested call does not refresh again.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/web_service.h"

namespace oet {

// One cached text: the UTF-8 of the host's wide string (up to its first NUL), and whether the host's
// string was empty by its own emptiness test (which decides whether the web service has filled the
// cache). A field's clear or set, like every gate on a text, looks at the UTF-8 text.
struct CachedText {
  std::string utf8;
  bool empty = true;

  bool IsEmpty() const { return empty; }
};
// Its text, for the string-field rules of core/host.h (SetOrClear).
inline const std::string& Utf8Of(const CachedText& text) {
  return text.utf8;
}
// Not for a temporary: its text would die with it.
const std::string& Utf8Of(const CachedText&& text) = delete;

// The cache's record as events read it: the sixteen wide strings of ClientContext as UTF-8, in the
// same order, and the total RAM.
struct ClientFacts {
  CachedText web_service_value;
  CachedText web_service_second;
  CachedText web_service_third;
  CachedText os_name;
  CachedText os_version;
  CachedText web_service_sixth;
  CachedText system_manufacturer;
  CachedText system_product_name;
  CachedText region;
  CachedText gpu_model;
  CachedText cpu_type;
  CachedText cpu_name;
  CachedText screen_size;
  CachedText resolution;
  CachedText network_type;
  CachedText language;
  int32_t total_ram_gb = 0;

  bool filled() const { return !web_service_value.empty; }
};

// The facts one event reads: the fixed record once the cache is filled, else a copy of the unfilled
// record taken at the refresh. Valid for the rest of the event.
// The copy is held through a pointer rather than in place: the view of a filled cache (every event's
// steady state) is then a pointer and an empty one, with nothing of the large record to set up or
// tear down.
class ClientFactsView {
 public:
  explicit ClientFactsView(const ClientFacts* fixed) : facts_(fixed) {}
  explicit ClientFactsView(const ClientFacts& copy)
      : copy_(std::make_unique<ClientFacts>(copy)), facts_(copy_.get()) {}
  ClientFactsView(const ClientFactsView&) = delete;
  ClientFactsView& operator=(const ClientFactsView&) = delete;

  const ClientFacts& operator*() const { return *facts_; }
  const ClientFacts* operator->() const { return facts_; }

 private:
  std::unique_ptr<const ClientFacts> copy_;
  const ClientFacts* facts_;
};

// Creates the cache on first use and gives it its first refresh; later calls only check that it
// exists. Every export that reads the cache, or must create it before it looks services up, starts
// here.
void EnsureClientContext();

// Get, refresh and read: the facts as one event reads them.
ClientFactsView RefreshedClientFacts();

// Forgets everything the cache holds, as at process start (the next EnsureClientContext refreshes as
// at creation). Test programs use it to begin each case from an unfilled cache; the library itself
// never calls it. Not safe while another thread uses the cache.
void ResetClientContextForTesting();

}  // namespace oet
