#include "oKstPlatform/service_registry.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "observer.h"

namespace {

class Module final : public IServiceModule {
 public:
  void* GetClassObject(const char* class_string) override;
  std::map<std::string, void*, std::less<>> objects;
  // Lookups so far, counted under the registry's lock.
  uint64_t module_queries = 0;
  uint64_t class_object_queries = 0;
};

class Registry final : public IServiceRegistry {
 public:
  IServiceModule* GetModule(const char* module_name) override;
  std::mutex mutex;
  // Modules are never erased, only emptied, so that a pointer handed out stays valid.
  std::map<std::string, Module, std::less<>> modules;
  std::atomic<bool> available{true};
  std::atomic<uint64_t> queries{0};
};

// The registry lives until the process is gone (never destroyed), so that a library called from a
// client's exit path still finds it.
Registry& TheRegistry() {
  static Registry& registry = *new Registry;
  return registry;
}

void* Module::GetClassObject(const char* class_string) {
  void* object = nullptr;
  if (class_string != nullptr) {
    std::lock_guard<std::mutex> lock(TheRegistry().mutex);
    ++class_object_queries;
    const auto it = objects.find(std::string_view(class_string));
    if (it != objects.end()) object = it->second;
  }
  kst_observer::Report(KstHost::PlatformFunction::kGetClassObject, class_string ? class_string : "", 0,
                       object);
  return object;
}

IServiceModule* Registry::GetModule(const char* module_name) {
  IServiceModule* module = nullptr;
  if (module_name != nullptr) {
    std::lock_guard<std::mutex> lock(mutex);
    const auto it = modules.find(std::string_view(module_name));
    if (it != modules.end()) {
      ++it->second.module_queries;
      if (!it->second.objects.empty()) module = &it->second;
    }
  }
  kst_observer::Report(KstHost::PlatformFunction::kGetModule, module_name ? module_name : "", 0, module);
  return module;
}

}  // namespace

IServiceRegistry* KstMQ_GetService() {
  Registry& registry = TheRegistry();
  registry.queries.fetch_add(1, std::memory_order_relaxed);
  IServiceRegistry* answer = registry.available.load() ? &registry : nullptr;
  kst_observer::Report(KstHost::PlatformFunction::kGetService, {}, 0, answer);
  return answer;
}

namespace KstHost {

void RegisterClassObject(const char* module_name, const char* class_string, void* object) {
  if (module_name == nullptr || class_string == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  registry.modules[module_name].objects[class_string] = object;
}

void UnregisterModule(const char* module_name) {
  if (module_name == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  const auto it = registry.modules.find(module_name);
  if (it != registry.modules.end()) it->second.objects.clear();
}

void UnregisterClassObject(const char* module_name, const char* class_string) {
  if (module_name == nullptr || class_string == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  const auto it = registry.modules.find(module_name);
  if (it != registry.modules.end()) it->second.objects.erase(class_string);
}

void ClearRegistry() {
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  for (auto& module : registry.modules)
    module.second.objects.clear();
}

void SetRegistryAvailable(bool available) {
  TheRegistry().available.store(available);
}

RegistryQueryCounts RegistryQueries(const char* module_name) {
  Registry& registry = TheRegistry();
  RegistryQueryCounts counts;
  counts.registry = registry.queries.load();
  if (module_name == nullptr) return counts;
  std::lock_guard<std::mutex> lock(registry.mutex);
  const auto it = registry.modules.find(module_name);
  if (it != registry.modules.end()) {
    counts.module = it->second.module_queries;
    counts.class_object = it->second.class_object_queries;
  }
  return counts;
}

}  // namespace KstHost
