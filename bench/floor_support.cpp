#include "bench/floor_support.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"

namespace oet_floor {
namespace {

void* LookUp(const char* module_name, const char* class_string) {
  IServiceRegistry* registry = KstMQ_GetService();
  if (registry == nullptr) return nullptr;
  IServiceModule* module = registry->GetModule(module_name);
  return module == nullptr ? nullptr : module->GetClassObject(class_string);
}

// Wide texts up to this length convert on the stack; a wide unit takes at most four UTF-8 bytes.
constexpr int kStackUnits = 64;

// Two digits (or `width` digits) of a non-negative number, most significant first.
char* Digits(char* out, int value, int width) {
  for (int i = width - 1; i >= 0; --i) {
    out[i] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  return out + width;
}

// The floors' client context: the latest reading, and once a reading has a web-service value, that
// reading published for good.
class ClientFacts {
 public:
  static ClientFacts& Get() {
    static ClientFacts facts;
    return facts;
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
    MakeUtf8(reading);

    std::lock_guard<std::mutex> lock(mutex_);
    if (filled_.load(std::memory_order_relaxed) != nullptr) return;  // another thread's reading won
    latest_ = std::move(reading);
    if (!latest_.wide.web_service_value.IsEmpty()) filled_.store(&latest_, std::memory_order_release);
  }

  const Facts& Read(std::optional<Facts>& scratch) {
    if (const Facts* filled = filled_.load(std::memory_order_acquire)) return *filled;
    std::lock_guard<std::mutex> lock(mutex_);
    scratch.emplace(latest_);
    return *scratch;
  }

  void Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    filled_.store(nullptr);
    latest_ = Facts();
  }

 private:
  ClientFacts() { Refresh(); }

  static void MakeUtf8(Facts& facts) {
    const ClientContext& wide = facts.wide;
    AssignUtf8(facts.web_service_value, wide.web_service_value);
    AssignUtf8(facts.os_name, wide.os_name);
    AssignUtf8(facts.os_version, wide.os_version);
    AssignUtf8(facts.system_manufacturer, wide.system_manufacturer);
    AssignUtf8(facts.system_product_name, wide.system_product_name);
    AssignUtf8(facts.region, wide.region);
    AssignUtf8(facts.gpu_model, wide.gpu_model);
    AssignUtf8(facts.cpu_type, wide.cpu_type);
    AssignUtf8(facts.cpu_name, wide.cpu_name);
    AssignUtf8(facts.resolution, wide.resolution);
    AssignUtf8(facts.network_type, wide.network_type);
    AssignUtf8(facts.language, wide.language);
  }

  std::mutex mutex_;
  Facts latest_;                               // written under the lock until filled, then never again
  std::atomic<const Facts*> filled_{nullptr};  // &latest_ once filled
};

}  // namespace

iOrbotelemetryAPI* TelemetryService() {
  return static_cast<iOrbotelemetryAPI*>(LookUp(kOrboTelemetryModule, kOrboTelemetryClass));
}

ICVWebServiceAPI* WebService() {
  return static_cast<ICVWebServiceAPI*>(LookUp(kWebServiceModule, kWebServiceClass));
}

const std::string& TextOf(const Kst::CStringT<char>& text, std::string&& cut) {
  const std::string& whole = text.str();
  if (whole.find('\0') == std::string::npos) return whole;
  cut = text.c_str();
  return cut;
}

std::string Utf8(const wchar_t* text, int length) {
  if (length <= 0) return std::string();
  if (length <= kStackUnits) {
    char buffer[4 * kStackUnits + 1];
    const int written = kst_str_convert(KST_CP_UTF8, text, length, buffer, static_cast<int>(sizeof buffer));
    return std::string(buffer, static_cast<size_t>(written > 0 ? written : 0));
  }
  std::string utf8(static_cast<size_t>(length) * 4, '\0');
  const int written = kst_str_convert(KST_CP_UTF8, text, length, &utf8[0], static_cast<int>(utf8.size()) + 1);
  utf8.resize(static_cast<size_t>(written > 0 ? written : 0));
  return utf8;
}

void AssignUtf8(std::string& out, const Kst::CStringT<wchar_t>& text) {
  const int length = text.GetLength();
  if (length <= kStackUnits) {
    char buffer[4 * kStackUnits + 1];
    const int written = length == 0 ? 0
                                    : kst_str_convert(KST_CP_UTF8, text.c_str(), length, buffer,
                                                      static_cast<int>(sizeof buffer));
    out.assign(buffer, static_cast<size_t>(written > 0 ? written : 0));
  } else {
    out = Utf8(text.c_str(), length);
  }
}

std::string UtcTimestamp(const Kst::Time& time) {
  Kst::Time::Exploded t;
  time.UTCExplode(&t);
  char text[64];
  if (t.year >= 0 && t.year <= 9999) {
    char* out = Digits(text, t.year, 4);
    *out++ = '-';
    out = Digits(out, t.month, 2);
    *out++ = '-';
    out = Digits(out, t.day_of_month, 2);
    *out++ = 'T';
    out = Digits(out, t.hour, 2);
    *out++ = ':';
    out = Digits(out, t.minute, 2);
    *out++ = ':';
    out = Digits(out, t.second, 2);
    *out++ = '.';
    out = Digits(out, t.millisecond, 3);
    *out++ = 'Z';
    return std::string(text, static_cast<size_t>(out - text));
  }
  // Years of five digits or before year 0: rare enough for the general formatter.
  const int length = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", t.year, t.month,
                                   t.day_of_month, t.hour, t.minute, t.second, t.millisecond);
  return std::string(text, static_cast<size_t>(length > 0 ? length : 0));
}

const Facts& RefreshedFacts(std::optional<Facts>& scratch) {
  ClientFacts& facts = ClientFacts::Get();
  facts.Refresh();
  return facts.Read(scratch);
}

void ResetClientContextForTesting() {
  ClientFacts::Get().Reset();
}

bool Event::OpenWithWebService() {
  ClientFacts::Get();
  web_service_ = WebService();
  if (web_service_ == nullptr) return false;
  return OpenTelemetryOnly();
}

bool Event::OpenTelemetryOnly() {
  telemetry_ = TelemetryService();
  if (telemetry_ == nullptr) return false;
  event_ = telemetry_->CreateEvent();
  return event_ != nullptr;
}

int Event::Submit(int32_t first, int32_t second) const {
  EventParams params;
  telemetry_->SubmitEvent(event_, first, second, &params);
  return 1;
}

int Event::Destroy() const {
  event_->DestroyEvent(1);
  return 0;
}

template <class Texts>
orbo_entity::ClientEntity* BuildClientEntity(const Event& event) {
  using orbo_entity::ClientEntity;
  auto* entity = event.Create<ClientEntity>();
  if (entity == nullptr) return nullptr;
  std::optional<Facts> scratch;
  const Facts& facts = RefreshedFacts(scratch);
  const ClientContext& wide = facts.wide;
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);
#define OET_FLOOR_FACT(field) Texts::Text(wide.field, facts.field)
  orbo_entity::DeviceInfo& device = *entity;
  device.SetWebServiceValue(OET_FLOOR_FACT(web_service_value));
  device.SetDeviceProduct(OET_FLOOR_FACT(system_product_name));
  entity->SetDeviceManufacturer(OET_FLOOR_FACT(system_manufacturer));
  entity->SetClientVersion(TextOf(version));
  if (wide.gpu_model.IsEmpty()) {
    entity->ClearGpuModel();
  } else {
    entity->SetGpuModel(OET_FLOOR_FACT(gpu_model));
  }
  if (wide.cpu_type.IsEmpty()) {
    entity->ClearCpuType();
  } else {
    entity->SetCpuType(OET_FLOOR_FACT(cpu_type));
  }
  if (wide.region.IsEmpty()) {
    entity->ClearRegion();
  } else {
    entity->SetRegion(OET_FLOOR_FACT(region));
  }
  entity->SetLanguage(OET_FLOOR_FACT(language));
  entity->SetNetworkType(OET_FLOOR_FACT(network_type));
  device.SetOsName(OET_FLOOR_FACT(os_name));
  device.SetOsVersion(OET_FLOOR_FACT(os_version));
  if (wide.resolution.IsEmpty()) {
    entity->ClearResolution();
  } else {
    entity->SetResolution(OET_FLOOR_FACT(resolution));
  }
#undef OET_FLOOR_FACT
  if (wide.total_ram_gb == 0) {
    entity->ClearTotalRam();
  } else {
    entity->SetTotalRam(wide.total_ram_gb);
  }
  return entity;
}

template orbo_entity::ClientEntity* BuildClientEntity<ConvertEachCall>(const Event& event);
template orbo_entity::ClientEntity* BuildClientEntity<CachedUtf8>(const Event& event);

orbo_entity::TrackingInfoEntity* BuildTrackingInfo(const Event& event,
                                                   const OrboPTPAAP::PTTrackingInfo_s& tracking) {
  auto* entity = event.Create<orbo_entity::TrackingInfoEntity>();
  if (entity == nullptr) return nullptr;
  entity->SetPrimaryValue(TextOf(tracking.primary_value));
  entity->SetSecondaryValue(TextOf(tracking.secondary_value));
  return entity;
}

}  // namespace oet_floor
