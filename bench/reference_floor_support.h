// What the tight floors of the reference rows share (bench/reference_floors.cpp, their only includer):
// the host services looked up afresh, text conversions on the stack, the client-context facts kept as
// UTF-8 once filled, one event with its destruction on the way out, the client entity, the domain label,
// the timestamp text, the word tables and the once-per-second limits. Self-contained like the floors:
// nothing of the library. Everything is in an unnamed namespace, as it was inside the floors' own file,
// so that the compiler sees and inlines it exactly as a hand-written export would.
#pragma once

#include <array>
#include <atomic>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "bench/reference.h"
#include "oKstPlatform/entities.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_number.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/url_utils.h"
#include "oKstPlatform/web_service.h"

namespace oet_floor {
namespace {

using namespace orbo_entity;
using OrboPTPAAP::PTTrackingInfo_s;

// ---- Host services, looked up afresh on every call.

void* LookUp(const char* module_name, const char* class_string) {
  IServiceRegistry* registry = KstMQ_GetService();
  if (registry == nullptr) return nullptr;
  IServiceModule* module = registry->GetModule(module_name);
  return module == nullptr ? nullptr : module->GetClassObject(class_string);
}

iOrbotelemetryAPI* Telemetry() {
  return static_cast<iOrbotelemetryAPI*>(LookUp(kOrboTelemetryModule, kOrboTelemetryClass));
}

ICVWebServiceAPI* WebService() {
  return static_cast<ICVWebServiceAPI*>(LookUp(kWebServiceModule, kWebServiceClass));
}

template <class E>
E* Create(iOrbotelemetryAPI* telemetry) {
  return static_cast<E*>(telemetry->CreateEntity(E::kTypeId));
}

// ---- Texts.

// A narrow host string's text up to its first NUL: its own text when it holds none.
const std::string& TextOf(const Kst::CStringT<char>& text, std::string& cut) {
  const std::string& whole = text.str();
  if (std::memchr(whole.data(), 0, whole.size()) == nullptr) return whole;
  cut = text.c_str();
  return cut;
}

// `length` wide units (-1: up to the first NUL) as UTF-8 into `out`, through the host's conversion;
// `capacity` units are sized for. Short texts convert on the stack.
void AssignUtf8(std::string& out, const wchar_t* units, int length, int capacity) {
  if (capacity <= 0) {
    out.clear();
    return;
  }
  constexpr int kStackUnits = 63;
  if (capacity <= kStackUnits) {
    char buffer[kStackUnits * 4 + 1];
    const int written = kst_str_convert(KST_CP_UTF8, units, length, buffer, static_cast<int>(sizeof buffer));
    out.assign(buffer, static_cast<size_t>(written > 0 ? written : 0));
    return;
  }
  out.assign(static_cast<size_t>(capacity) * 4 + 1, '\0');
  const int written = kst_str_convert(KST_CP_UTF8, units, length, &out[0], static_cast<int>(out.size()));
  out.resize(static_cast<size_t>(written > 0 ? written : 0));
}

// `length` wide units (-1: up to the first NUL; `capacity` sized for) as a new UTF-8 string, made
// straight from the stack when short.
std::string Utf8(const wchar_t* units, int length, int capacity) {
  constexpr int kStackUnits = 63;
  if (capacity <= 0 || capacity > kStackUnits) {
    std::string out;
    AssignUtf8(out, units, length, capacity);
    return out;
  }
  char buffer[kStackUnits * 4 + 1];
  const int written = kst_str_convert(KST_CP_UTF8, units, length, buffer, static_cast<int>(sizeof buffer));
  return std::string(buffer, static_cast<size_t>(written > 0 ? written : 0));
}

std::string Utf8(const Kst::CStringT<wchar_t>& text) {
  return Utf8(text.c_str(), -1, text.GetLength());
}

// The calling thread's string for texts too long for a string's own small buffer (the call times):
// its capacity stays from one event to the next, so they allocate only on the thread's first event.
std::string& LongText() {
  static thread_local std::string text;
  return text;
}

// ---- The client-context facts: the host's wide record, and its sixteen texts as UTF-8.

struct Facts {
  ClientContext wide;
  std::array<std::string, 16> utf8;
  const std::string& web_service_value() const { return utf8[0]; }
};

// The wide texts of the record in its order, for converting them all.
std::array<const Kst::CStringT<wchar_t>*, 16> Texts(const ClientContext& c) {
  return {&c.web_service_value,
          &c.web_service_second,
          &c.web_service_third,
          &c.os_name,
          &c.os_version,
          &c.web_service_sixth,
          &c.system_manufacturer,
          &c.system_product_name,
          &c.region,
          &c.gpu_model,
          &c.cpu_type,
          &c.cpu_name,
          &c.screen_size,
          &c.resolution,
          &c.network_type,
          &c.language};
}

class ClientFacts {
 public:
  static ClientFacts& Get() {
    static ClientFacts& facts = *new ClientFacts;
    return facts;
  }

  // The first refresh, owed once after creation (and after a reset).
  void RefreshOnce() {
    if (!created_.load(std::memory_order_acquire) && !created_.exchange(true)) Refresh();
  }

  // The web-service lookup, and while unfilled the web service's fill and every machine fact.
  void Refresh() {
    ICVWebServiceAPI* web_service = WebService();
    if (web_service == nullptr || filled_.load(std::memory_order_acquire) != nullptr) return;
    Facts reading;
    {
      std::lock_guard<std::mutex> lock(mutex_);
      reading.wide = latest_.wide;
    }
    ClientContext& record = reading.wide;
    web_service->FillClientContext(record);
    int32_t build = 0;
    Kst::GetOSVersion(record.os_version, build, 1);
    record.system_product_name = Kst::GetSystemProductName();
    record.system_manufacturer = Kst::GetSystemManufacturer();
    if (record.system_product_name.IsEmpty()) record.system_product_name = L"unknown";
    if (record.system_manufacturer.IsEmpty()) record.system_manufacturer = L"unknown";
    record.region = Kst::GetRegionName();
    record.gpu_model = Kst::GetGPUModel();
    record.cpu_type = Kst::GetCPUType();
    record.total_ram_gb = Kst::GetTotalRAMGB();
    record.screen_size = Kst::GetScreenSizeIn();
    record.resolution = Kst::GetResolution();
    record.network_type = Kst::GetNetworkType();
    record.language = Kst::GetLanguageSetting();
    record.os_name = L"windows";
    record.cpu_name = Kst::GetCPUName();
    const auto texts = Texts(record);
    for (size_t i = 0; i < texts.size(); ++i)
      AssignUtf8(reading.utf8[i], texts[i]->c_str(), -1, texts[i]->GetLength());

    std::lock_guard<std::mutex> lock(mutex_);
    if (filled_.load(std::memory_order_relaxed) != nullptr) return;
    if (record.web_service_value.IsEmpty()) {
      latest_ = std::move(reading);
    } else {
      filled_.store(new Facts(std::move(reading)), std::memory_order_release);  // kept for good
    }
  }

  // The filled facts, else a copy of the latest reading in `scratch`.
  const Facts& Read(std::unique_ptr<Facts>& scratch) {
    if (const Facts* filled = filled_.load(std::memory_order_acquire)) return *filled;
    std::lock_guard<std::mutex> lock(mutex_);
    scratch = std::make_unique<Facts>(latest_);
    return *scratch;
  }

  void Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    filled_.store(nullptr);  // a filled record handed out before is left alive
    latest_ = Facts();
    created_.store(false);
  }

 private:
  ClientFacts() = default;

  std::mutex mutex_;
  Facts latest_;
  std::atomic<const Facts*> filled_{nullptr};
  std::atomic<bool> created_{false};
};

const Facts& RefreshedFacts(std::unique_ptr<Facts>& scratch) {
  ClientFacts& facts = ClientFacts::Get();
  facts.RefreshOnce();
  facts.Refresh();
  return facts.Read(scratch);
}

// ---- One event: the services, the event, and its destruction when anything throws before submission.

struct Event {
  iOrbotelemetryAPI* telemetry = nullptr;
  ICVWebServiceAPI* web_service = nullptr;
  IOrboEvent* event = nullptr;

  // The common opening: the client context first, then the web service, the telemetry service, the event.
  bool Open() {
    ClientFacts::Get().RefreshOnce();
    web_service = WebService();
    return web_service != nullptr && OpenTelemetry();
  }
  bool OpenTelemetry() {
    telemetry = Telemetry();
    if (telemetry == nullptr) return false;
    event = telemetry->CreateEvent();
    return event != nullptr;
  }
  template <class E>
  E* Create() const {
    return oet_floor::Create<E>(telemetry);
  }
  void Attach(std::vector<EntityBase*> list) const { event->AttachEntityList(203, std::move(list)); }
  void AttachBody(EntityBase* body) const {
    if (body != nullptr) event->AttachEntity(201, body);
  }
  int Submit(int32_t first, int32_t second) {
    EventParams params;
    telemetry->SubmitEvent(event, first, second, &params);
    event = nullptr;
    return 1;
  }
  int Destroy() {
    IOrboEvent* open = event;
    event = nullptr;
    open->DestroyEvent(1);
    return 0;
  }
  // For the catch of a floor: an event still open is destroyed, and the floor gives 0.
  int Fail() noexcept {
    try {
      if (event != nullptr) Destroy();
    } catch (...) {
    }
    return 0;
  }
};

// The client entity (283) from the refreshed facts and the client version; null when the host gives none.
ClientEntity* BuildClient(const Event& event) {
  auto* entity = event.Create<ClientEntity>();
  if (entity == nullptr) return nullptr;
  std::unique_ptr<Facts> scratch;  // only for an unfilled context
  const Facts& facts = RefreshedFacts(scratch);
  const ClientContext& wide = facts.wide;
  const auto& t = facts.utf8;
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);
  DeviceInfo& device = *entity;
  device.SetWebServiceValue(t[0]);
  device.SetDeviceProduct(t[7]);
  entity->SetDeviceManufacturer(t[6]);
  std::string cut;
  entity->SetClientVersion(TextOf(version, cut));
  wide.gpu_model.IsEmpty() ? entity->ClearGpuModel() : entity->SetGpuModel(t[9]);
  wide.cpu_type.IsEmpty() ? entity->ClearCpuType() : entity->SetCpuType(t[10]);
  wide.region.IsEmpty() ? entity->ClearRegion() : entity->SetRegion(t[8]);
  entity->SetLanguage(t[15]);
  entity->SetNetworkType(t[14]);
  device.SetOsName(t[3]);
  device.SetOsVersion(t[4]);
  wide.resolution.IsEmpty() ? entity->ClearResolution() : entity->SetResolution(t[13]);
  wide.total_ram_gb == 0 ? entity->ClearTotalRam() : entity->SetTotalRam(wide.total_ram_gb);
  return entity;
}

// The account's domain label: the stored label, else the part of the web URL between "https://" and
// the web domain suffix that ends it ("dev" for a development URL, "aw1" when there is none).
std::string DomainLabel(ICVWebServiceAPI& web_service) {
  const Kst::CStringT<wchar_t> label = web_service.GetAccountDomain(0);
  if (!label.IsEmpty()) return Utf8(label);
  const Kst::CStringT<wchar_t> url = web_service.GetAccountWebUrl(0, 0);
  IOrboUrlUtils* url_utils = GetOrboUrlUtils();
  const wchar_t* found = L"aw1";
  int length = 3;
  if (url_utils != nullptr && url_utils->IsDevelopmentUrl(url) != 0) {
    found = L"dev";
  } else if (const int scheme = url.find(L"https://"); scheme != Kst::CStringT<wchar_t>::npos) {
    const int start = scheme + 8;
    const int size = url.GetLength();
    static const wchar_t* const kSuffixes[] = {OET_FLOOR_WEB_DOMAIN_SUFFIXES};  // the build setting's
    for (const wchar_t* suffix : kSuffixes) {
      const int suffix_length = static_cast<int>(std::wcslen(suffix));
      const int end = size - suffix_length;
      if (end < 0 || std::wmemcmp(url.c_str() + end, suffix, static_cast<size_t>(suffix_length)) != 0)
        continue;
      if (start < end) {
        found = url.c_str() + start;
        const wchar_t* nul = std::wmemchr(found, L'\0', static_cast<size_t>(end - start));
        length = nul != nullptr ? static_cast<int>(nul - found) : end - start;
      }
      break;
    }
  }
  return Utf8(found, length, length);
}

// "YYYY-MM-DDThh:mm:ss.mmmZ" of a time that is not the zero time, into `out`.
void UtcTimestamp(const Kst::Time& time, std::string& out) {
  Kst::Time::Exploded t;
  time.UTCExplode(&t);
  char text[96];
  const auto put = [](char* at, int value, int width) {
    if (value < 0 || value >= (width == 4 ? 10000 : width == 3 ? 1000 : 100)) {
      return at + std::snprintf(at, 16, "%0*d", width, value);  // out of the usual range: rare
    }
    for (int i = width - 1; i >= 0; --i, value /= 10)
      at[i] = static_cast<char>('0' + value % 10);
    return at + width;
  };
  char* at = put(text, t.year, 4);
  *at++ = '-';
  at = put(at, t.month, 2);
  *at++ = '-';
  at = put(at, t.day_of_month, 2);
  *at++ = 'T';
  at = put(at, t.hour, 2);
  *at++ = ':';
  at = put(at, t.minute, 2);
  *at++ = ':';
  at = put(at, t.second, 2);
  *at++ = '.';
  at = put(at, t.millisecond, 3);
  *at++ = 'Z';
  out.assign(text, static_cast<size_t>(at - text));
}

// Inlined, so that the operations are direct calls, as written out by hand.
template <class E>
__attribute__((always_inline)) inline void SetOrClear(E& entity, void (E::*clear)(),
                                                      void (E::*set)(const std::string&),
                                                      const Kst::CStringT<wchar_t>& text) {
  if (text.IsEmpty()) {
    (entity.*clear)();
  } else {
    (entity.*set)(Utf8(text));
  }
}

// A word of a fixed table, made once; the empty word for a value the table lacks.
template <size_t N>
const std::string& WordOf(const std::string (&words)[N], int32_t value) {
  static const std::string kNone;
  return value >= 0 && static_cast<size_t>(value) < N ? words[value] : kNone;
}

const std::string kTabWords[] = {"",     "chat",      "home",     "phone",     "meetings",
                                 "apps", "meet_chat", "contacts", "settings",  "whiteboards",
                                 "mail", "cci",       "calendar", "",          "",
                                 "",     "",          "hub",      "workflows", "workspaces"};
const std::string kCallDirections[] = {"", "inbound", "outbound"};

// Once a second per key, by the host's clock, with one compare-and-swap.
class OncePerSecond {
 public:
  bool Admit() {
    const int64_t now = Kst::Time::Now().ToUnixMicroseconds();
    int64_t last = last_us_.load(std::memory_order_acquire);
    if (last != kNone && now - last < 1000 * 1000) return false;
    return last_us_.compare_exchange_strong(last, now, std::memory_order_acq_rel);
  }

 private:
  static constexpr int64_t kNone = INT64_MIN;
  std::atomic<int64_t> last_us_{kNone};
};

OncePerSecond g_chat_174;
OncePerSecond g_chat_185;

}  // namespace

}  // namespace oet_floor
