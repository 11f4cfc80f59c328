// The no-op host: a telemetry service and web service whose every operation does as little as a host
// can, the fixed-cost sink that the benchmarks measure the library against.
//
// Constructing a NoopHost installs both services into the process's service registry under their
// module names and class strings and gives the machine the standard facts and clock of the recording
// host (testing/recording_host.h), so that the client entity carries the same texts in benchmarks
// and in the trace check; destroying it empties the registry and restores the machine's own facts.
// One host at a time per process.
//
// What it does per call:
//  - CreateEvent hands out one preallocated event; DestroyEvent, AttachEntityList, AttachEntity and
//    SubmitEvent do nothing (the list the library passes by value is the caller's to build).
//  - CreateEntity hands out one preallocated entity of the requested type (generated from
//    oKstPlatform/entity_schema.def, like the recording entities), null for a type the schema lacks; no
//    allocation per call. Every entity operation does nothing.
//  - The web service fills the client-context record the way a real one would (its four values, once
//    the library asks) and answers the account's stored domain label and web URL from what
//    SetWebAnswers gave it; the short-key lookup is absent.
// Nothing is recorded, so the host is safe to call from any number of threads at once.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace oet_bench {

// What the web service answers about the account. An empty domain label makes the library cut the
// label out of the web URL.
struct WebAnswers {
  std::string account_domain;
  std::string account_web_url;
};

// The value the web service writes into the client-context record's first field; the same as the
// recording host's web-service fake answers by default.
inline constexpr char kWebServiceValue[] = "ws-value";

class NoopHost {
 public:
  NoopHost();
  ~NoopHost();
  NoopHost(const NoopHost&) = delete;
  NoopHost& operator=(const NoopHost&) = delete;

  // Sets the account answers; not while calls run.
  void SetWebAnswers(const WebAnswers& answers);

  // The entity the host hands out for a type id, or null (for checks of the generated table).
  void* EntityOfType(int32_t type);

 private:
  class Services;
  std::unique_ptr<Services> services_;
};

}  // namespace oet_bench
