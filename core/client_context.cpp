#include "core/client_context.h"

#include <mutex>
#include <utility>

#include "core/host.h"
#include "platform/system_info.h"

namespace oet {
namespace {

class ClientContextCache {
 public:
  // The one cache, created (and refreshed once) on first use, destroyed at process exit.
  static ClientContextCache& Get() {
    static ClientContextCache cache;
    return cache;
  }

  void Refresh() {
    ICVWebServiceAPI* web_service = GetWebServiceApi();
    if (web_service == nullptr) return;
    ClientContext record = Copy();
    if (!record.web_service_value.IsEmpty()) return;  // a successful fill is never repeated

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

    std::lock_guard<std::mutex> lock(mutex_);
    if (record_.web_service_value.IsEmpty()) record_ = std::move(record);
  }

  ClientContext Copy() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return record_;
  }

  void Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    record_ = ClientContext();
  }

 private:
  ClientContextCache() { Refresh(); }

  mutable std::mutex mutex_;
  ClientContext record_;
};

}  // namespace

void EnsureClientContext() {
  ClientContextCache::Get();
}

ClientContext RefreshedClientContext() {
  ClientContextCache& cache = ClientContextCache::Get();
  cache.Refresh();
  return cache.Copy();
}

void ResetClientContextForTesting() {
  ClientContextCache::Get().Reset();
}

}  // namespace oet
