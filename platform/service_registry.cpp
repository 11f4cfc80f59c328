#include "oKstPlatform/service_registry.h"

#include <atomic>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "observer.h"

namespace {

// A lookup reads the registry without a lock and writes nothing: modules and their class entries sit
// in lists that only grow (newest first), each entry published with a release store once it is whole,
// and never freed, so that a pointer a lookup handed out stays valid. Unregistering empties an entry
// (a null object, an absent module) instead of removing it. Writers take the registry's mutex among
// themselves only.

// A class object of a module; null while unregistered.
struct ClassEntry {
  explicit ClassEntry(std::string name) : class_string(std::move(name)) {}
  const std::string class_string;
  std::atomic<void*> object{nullptr};
  ClassEntry* next = nullptr;  // set before the entry is published
};

class Module final : public IServiceModule {
 public:
  explicit Module(std::string module_name) : name(std::move(module_name)) {}
  void* GetClassObject(const char* class_string) override;

  ClassEntry* Find(std::string_view class_string) const {
    for (ClassEntry* entry = classes.load(std::memory_order_acquire); entry != nullptr; entry = entry->next) {
      if (entry->class_string == class_string) return entry;
    }
    return nullptr;
  }

  // Absent, with every class object unregistered. Writers only.
  void MakeAbsent() {
    present.store(false, std::memory_order_release);
    for (ClassEntry* entry = classes.load(std::memory_order_relaxed); entry != nullptr; entry = entry->next)
      entry->object.store(nullptr, std::memory_order_release);
  }

  const std::string name;
  // Registered and not unregistered since: GetModule answers the module, even when it holds no class
  // object (a module whose class object is absent).
  std::atomic<bool> present{false};
  std::atomic<ClassEntry*> classes{nullptr};
  Module* next = nullptr;  // set before the module is published
};

class Registry final : public IServiceRegistry {
 public:
  IServiceModule* GetModule(const char* module_name) override;

  Module* Find(std::string_view module_name) const {
    for (Module* module = modules.load(std::memory_order_acquire); module != nullptr; module = module->next) {
      if (module->name == module_name) return module;
    }
    return nullptr;
  }

  // The module of that name, added when it is new. Writers only, under `mutex`.
  Module& Obtain(const char* module_name) {
    if (Module* module = Find(module_name)) return *module;
    auto* module = new Module(module_name);
    module->next = modules.load(std::memory_order_relaxed);
    modules.store(module, std::memory_order_release);
    return *module;
  }

  std::mutex mutex;  // among writers
  std::atomic<Module*> modules{nullptr};
  std::atomic<bool> available{true};
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
    if (const ClassEntry* entry = Find(class_string)) object = entry->object.load(std::memory_order_acquire);
  }
  kst_observer::Report(KstHost::PlatformFunction::kGetClassObject, class_string ? class_string : "", 0,
                       object);
  return object;
}

IServiceModule* Registry::GetModule(const char* module_name) {
  Module* module = module_name == nullptr ? nullptr : Find(module_name);
  if (module != nullptr && !module->present.load(std::memory_order_acquire)) module = nullptr;
  kst_observer::Report(KstHost::PlatformFunction::kGetModule, module_name ? module_name : "", 0, module);
  return module;
}

}  // namespace

IServiceRegistry* KstMQ_GetService() {
  Registry& registry = TheRegistry();
  IServiceRegistry* answer = registry.available.load(std::memory_order_acquire) ? &registry : nullptr;
  kst_observer::Report(KstHost::PlatformFunction::kGetService, {}, 0, answer);
  return answer;
}

namespace KstHost {

void RegisterClassObject(const char* module_name, const char* class_string, void* object) {
  if (module_name == nullptr || class_string == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  Module& module = registry.Obtain(module_name);
  ClassEntry* entry = module.Find(class_string);
  if (entry == nullptr) {
    entry = new ClassEntry(class_string);
    entry->next = module.classes.load(std::memory_order_relaxed);
    module.classes.store(entry, std::memory_order_release);
  }
  entry->object.store(object, std::memory_order_release);
  module.present.store(true, std::memory_order_release);
}

void UnregisterModule(const char* module_name) {
  if (module_name == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  if (Module* module = registry.Find(module_name)) module->MakeAbsent();
}

void UnregisterClassObject(const char* module_name, const char* class_string) {
  if (module_name == nullptr || class_string == nullptr) return;
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  if (Module* module = registry.Find(module_name)) {
    if (ClassEntry* entry = module->Find(class_string))
      entry->object.store(nullptr, std::memory_order_release);
  }
}

void ClearRegistry() {
  Registry& registry = TheRegistry();
  std::lock_guard<std::mutex> lock(registry.mutex);
  for (Module* module = registry.modules.load(std::memory_order_relaxed); module != nullptr;
       module = module->next)
    module->MakeAbsent();
}

void SetRegistryAvailable(bool available) {
  TheRegistry().available.store(available, std::memory_order_release);
}

}  // namespace KstHost
