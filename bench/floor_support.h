// What the hand-written floors share: the host calls every event makes, written the way a careful
// engineer writes them by hand (no copies of records, lists built once with their final size, short
// texts kept in the string's own small buffer), and the floors' own process-wide copy of the
// client-context facts.
//
// A floor makes exactly the host calls its export makes, in the same order and with the same values;
// what it saves is everything the library does besides. bench/trace_check_test.cpp holds every floor
// to that.
#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/entities.h"
#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/kst_time.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/web_service.h"

namespace oet_floor {

// ---- Host services, looked up afresh through the registry (KstMQ_GetService, GetModule,
// GetClassObject); null when a step answers null.
iOrbotelemetryAPI* TelemetryService();
ICVWebServiceAPI* WebService();

// ---- Texts as entity operations take them.

// A narrow host string's text up to its first NUL: the string's own text when it has no NUL (no
// copy), else the cut text in `cut`, which lives until the end of the caller's full expression.
const std::string& TextOf(const Kst::CStringT<char>& text, std::string&& cut = std::string());

// Wide text as UTF-8 through the host's conversion (kst_str_convert); empty text needs no call. A
// text that fits the string's small buffer never touches the heap.
std::string Utf8(const wchar_t* text, int length);
inline std::string Utf8(const Kst::CStringT<wchar_t>& text) {
  return Utf8(text.c_str(), text.GetLength());
}
// The same into an existing string, whose buffer is reused.
void AssignUtf8(std::string& out, const Kst::CStringT<wchar_t>& text);

// "YYYY-MM-DDThh:mm:ss.mmmZ" (UTC) of a time that is not the zero time.
std::string UtcTimestamp(const Kst::Time& time);

// ---- The client-context facts.

// One reading of the client context: the host's wide record and, made when it was read, the UTF-8
// forms of the fields that entities and records carry.
struct Facts {
  ClientContext wide;
  std::string web_service_value;
  std::string os_name;
  std::string os_version;
  std::string system_manufacturer;
  std::string system_product_name;
  std::string region;
  std::string gpu_model;
  std::string cpu_type;
  std::string cpu_name;
  std::string resolution;
  std::string network_type;
  std::string language;
};

// Gets the floors' client context (created on first use, refreshing once), refreshes it (the
// web-service lookup, and while it is unfilled the web service's fill and every machine fact) and
// gives the facts an event reads: once filled, the process-wide facts themselves, which never change
// again; before, a copy of the latest reading in `scratch`.
const Facts& RefreshedFacts(std::optional<Facts>& scratch);
// Forgets the facts, as at process start (the trace check begins each case this way).
void ResetClientContextForTesting();

// How the client facts reach entity operations.
// Converted from the cached wide record on every call, as the host contract allows at the least.
struct ConvertEachCall {
  static std::string Text(const Kst::CStringT<wchar_t>& wide, const std::string& /*utf8*/) {
    return Utf8(wide);
  }
};
// Kept as UTF-8 once read, and set without converting again.
struct CachedUtf8 {
  static const std::string& Text(const Kst::CStringT<wchar_t>& /*wide*/, const std::string& utf8) {
    return utf8;
  }
};

// ---- One event.

class Event {
 public:
  // The common opening: the client context created first, then the web service and the telemetry
  // service, then the event. False when any of them is missing.
  bool OpenWithWebService();
  // The context-list opening: the telemetry service, then the event.
  bool OpenTelemetryOnly();

  ICVWebServiceAPI& web_service() const { return *web_service_; }

  template <class E>
  E* Create() const {
    return static_cast<E*>(telemetry_->CreateEntity(E::kTypeId));
  }
  // The context list under 203, handed over without a copy.
  void AttachContext(std::vector<orbo_entity::EntityBase*> list) const {
    event_->AttachEntityList(203, std::move(list));
  }
  // The body under 201 unless it is null.
  void AttachBody(orbo_entity::EntityBase* body) const {
    if (body != nullptr) event_->AttachEntity(201, body);
  }
  // Submits with the event's pair of codes (3 and 1 unless it says otherwise) and an empty parameter
  // map; 1, the export's result.
  int Submit(int32_t first = 3, int32_t second = 1) const;
  // Destroys the event instead (its first operation, with 1); 0, the export's result.
  int Destroy() const;

 private:
  iOrbotelemetryAPI* telemetry_ = nullptr;
  ICVWebServiceAPI* web_service_ = nullptr;
  IOrboEvent* event_ = nullptr;
};

// ---- Rate limits.

// One throttled key: the host time of its last accepted call. A call is accepted when a second or more
// of the host's clock has passed since then (a clock that moved back is not), and its time is stored
// with one compare-and-swap; of two calls racing inside the second, the one that loses the swap is
// dropped.
class OncePerSecond {
 public:
  bool Admit() {
    const int64_t now = Kst::Time::Now().ToUnixMicroseconds();
    int64_t last = last_us_.load(std::memory_order_acquire);
    if (last != kNone && now - last < 1000 * 1000) return false;
    return last_us_.compare_exchange_strong(last, now, std::memory_order_acq_rel);
  }

 private:
  static constexpr int64_t kNone = std::numeric_limits<int64_t>::min();
  std::atomic<int64_t> last_us_{kNone};
};

// The client entity (283) filled from the refreshed facts and the client version; null when the host
// gives none.
template <class Texts>
orbo_entity::ClientEntity* BuildClientEntity(const Event& event);
// The tracking-info entity (304); null when the host gives none.
orbo_entity::TrackingInfoEntity* BuildTrackingInfo(const Event& event,
                                                   const OrboPTPAAP::PTTrackingInfo_s& tracking);

}  // namespace oet_floor
