// The host's service registry: how a library finds the host's services at run time.
//
// KstMQ_GetService() gives the registry; its GetModule gives a module by name; the module's
// GetClassObject gives a service's interface by its class string. Every step may answer null.
#pragma once

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_reserved.h"

class IServiceModule {
 public:
  KST_RESERVED_OP(1)
  KST_RESERVED_OP(2)
  KST_RESERVED_OP(3)
  KST_RESERVED_OP(4)
  KST_RESERVED_OP(5)
  KST_RESERVED_OP(6)
  // 7: the service object registered under the class string, or null.
  virtual void* GetClassObject(const char* class_string) = 0;

 protected:
  ~IServiceModule() = default;
};

class IServiceRegistry {
 public:
  KST_RESERVED_OP(1)
  KST_RESERVED_OP(2)
  KST_RESERVED_OP(3)
  KST_RESERVED_OP(4)
  // 5: the module registered under the name, or null.
  virtual IServiceModule* GetModule(const char* module_name) = 0;

 protected:
  ~IServiceRegistry() = default;
};

// The process's one registry, or null while the host has made it unavailable.
KST_API IServiceRegistry* KstMQ_GetService();

// Host-program side: fill and empty the registry. Registered objects stay owned by the caller, who
// must unregister them before destroying them. Lookups take no lock and write nothing; the registry
// keeps every module and class string it was ever given (modules are never freed), so that a module
// handed out stays valid.
namespace KstHost {
// Registers the object and makes its module present.
KST_API void RegisterClassObject(const char* module_name, const char* class_string, void* object);
// The module absent (GetModule answers null) and its class objects unregistered.
KST_API void UnregisterModule(const char* module_name);
// The class object unregistered (GetClassObject answers null); the module stays present.
KST_API void UnregisterClassObject(const char* module_name, const char* class_string);
// Every module absent.
KST_API void ClearRegistry();
// While unavailable, KstMQ_GetService() answers null. Available at start.
KST_API void SetRegistryAvailable(bool available);
}  // namespace KstHost
