#include "core/client_context.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

#include "core/host.h"
#include "oKstPlatform/system_info.h"

namespace oet {
namespace {

CachedText Cached(const Kst::CStringT<wchar_t>& text) {
  return CachedText{ToUtf8(text), text.IsEmpty()};
}

ClientFacts FactsOf(const ClientContext& record) {
  ClientFacts facts;
  facts.web_service_value = Cached(record.web_service_value);
  facts.web_service_second = Cached(record.web_service_second);
  facts.web_service_third = Cached(record.web_service_third);
  facts.os_name = Cached(record.os_name);
  facts.os_version = Cached(record.os_version);
  facts.web_service_sixth = Cached(record.web_service_sixth);
  facts.system_manufacturer = Cached(record.system_manufacturer);
  facts.system_product_name = Cached(record.system_product_name);
  facts.region = Cached(record.region);
  facts.gpu_model = Cached(record.gpu_model);
  facts.cpu_type = Cached(record.cpu_type);
  facts.cpu_name = Cached(record.cpu_name);
  facts.screen_size = Cached(record.screen_size);
  facts.resolution = Cached(record.resolution);
  facts.network_type = Cached(record.network_type);
  facts.language = Cached(record.language);
  facts.total_ram_gb = record.total_ram_gb;
  return facts;
}

// Asks the web service to fill the record in place, then re-reads every machine fact, in the order the
// host expects them to be asked.
void FillRecord(ICVWebServiceAPI& web_service, ClientContext& record) {
  web_service.FillClientContext(record);
  int32_t build = 0;
  Kst::GetOSVersion(record.os_version, build, 1);
  record.system_product_name = Kst::GetSystemProductName();
  record.system_manufacturer = Kst::GetSystemManufacturer();
  // Empty as the facts go out (up to the first NUL): "unknown".
  if (record.system_product_name.c_str()[0] == L'\0') record.system_product_name = L"unknown";
  if (record.system_manufacturer.c_str()[0] == L'\0') record.system_manufacturer = L"unknown";
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
}

// True on a thread while it fills the record: a host that calls back into the library from inside the
// fill must not start another one.
thread_local bool t_filling = false;

class FillingOnThisThread {
 public:
  FillingOnThisThread() { t_filling = true; }
  ~FillingOnThisThread() { t_filling = false; }
  FillingOnThisThread(const FillingOnThisThread&) = delete;
  FillingOnThisThread& operator=(const FillingOnThisThread&) = delete;
};

class ClientContextCache {
 public:
  // The one cache. Constructing it calls nothing of the host; it is never destroyed (see the header).
  static ClientContextCache& Get() {
    static ClientContextCache& cache = *new ClientContextCache;
    return cache;
  }

  // The refresh that creation owes: run once, by the first caller past the one-time guard.
  void RefreshOnce() {
    if (!created_refresh_done_.load(std::memory_order_acquire) && !created_refresh_done_.exchange(true)) {
      Refresh();
    }
  }

  // The web service is looked up on every refresh; a filled cache stops there (the usual case, kept
  // inline), an unfilled one asks the web service to fill it.
  void Refresh() {
    ICVWebServiceAPI* web_service = GetWebServiceApi();
    if (web_service == nullptr) return;
    if (filled_.load(std::memory_order_acquire) != nullptr) return;  // a successful fill is never repeated
    Fill(*web_service);
  }

  void Fill(ICVWebServiceAPI& web_service) {
    if (t_filling) return;

    ClientContext record = CopyRecord();
    {
      FillingOnThisThread filling;
      FillRecord(web_service, record);
    }
    ClientFacts facts = FactsOf(record);

    std::lock_guard<std::mutex> lock(mutex_);
    if (filled_.load(std::memory_order_relaxed) != nullptr) return;  // another thread finished first
    record_ = std::move(record);
    if (facts.filled()) {
      filled_.store(new ClientFacts(std::move(facts)), std::memory_order_release);  // fixed from now on
    } else {
      unfilled_ = std::move(facts);
    }
  }

  ClientFactsView Facts() const {
    if (const ClientFacts* fixed = filled_.load(std::memory_order_acquire)) return ClientFactsView(fixed);
    std::lock_guard<std::mutex> lock(mutex_);
    if (const ClientFacts* fixed = filled_.load(std::memory_order_relaxed)) return ClientFactsView(fixed);
    return ClientFactsView(unfilled_);
  }

  void Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    // A filled record handed out before stays valid: it is kept, never freed.
    if (const ClientFacts* fixed = filled_.exchange(nullptr)) retired_.push_back(fixed);
    record_ = ClientContext();
    unfilled_ = ClientFacts();
    created_refresh_done_.store(false);
  }

 private:
  ClientContextCache() = default;

  ClientContext CopyRecord() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return record_;
  }

  mutable std::mutex mutex_;
  ClientContext record_;                      // the record as last refreshed, for the next fill
  ClientFacts unfilled_;                      // its facts while it is unfilled
  std::atomic<const ClientFacts*> filled_{};  // the fixed facts once filled
  std::vector<const ClientFacts*> retired_;   // filled records forgotten by Reset
  std::atomic<bool> created_refresh_done_{false};
};

}  // namespace

void EnsureClientContext() {
  ClientContextCache::Get().RefreshOnce();
}

ClientFactsView RefreshedClientFacts() {
  ClientContextCache& cache = ClientContextCache::Get();
  cache.RefreshOnce();
  cache.Refresh();
  return cache.Facts();
}

void ResetClientContextForTesting() {
  ClientContextCache::Get().Reset();
}

}  // namespace oet
