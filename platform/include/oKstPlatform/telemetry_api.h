// The host's telemetry service, as the library sees it.
//
// The service lends the library events and entities, and takes finished events back with SubmitEvent.
// Entities are typed records requested by a numeric type id (see oKstPlatform/entities.h); every entity
// class shares the virtual base orbo_entity::EntityBase, and that base subobject is what the event is
// given when an entity is attached.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "oKstPlatform/entities.h"
#include "oKstPlatform/kst_reserved.h"

// Module name and class string under which the telemetry service is registered.
inline constexpr char kOrboTelemetryModule[] = "com.Corvane.module.OrboTelemetry";
inline constexpr char kOrboTelemetryClass[] = "orbous.class.iOrbotelemetryAPI";

// Parameters of a submission. The library always passes an empty map (8-byte elements, default
// construction) because SubmitEvent requires one.
using EventParams = std::unordered_map<int32_t, int32_t>;

class IOrboEvent {
 public:
  // 1: destroys an event that was created but will not be submitted; the argument is always 1.
  // It stands where the host's deleting destructor sits in the event's table of operations.
  virtual void DestroyEvent(int32_t flags) = 0;
  KST_RESERVED_OP(2)
  KST_RESERVED_OP(3)
  KST_RESERVED_OP(4)
  KST_RESERVED_OP(5)
  KST_RESERVED_OP(6)
  KST_RESERVED_OP(7)
  KST_RESERVED_OP(8)
  KST_RESERVED_OP(9)
  KST_RESERVED_OP(10)
  KST_RESERVED_OP(11)
  KST_RESERVED_OP(12)
  KST_RESERVED_OP(13)
  KST_RESERVED_OP(14)
  KST_RESERVED_OP(15)
  KST_RESERVED_OP(16)
  KST_RESERVED_OP(17)
  KST_RESERVED_OP(18)
  // 19: attaches a list of entities (base subobjects, in order; null entries allowed) under an id.
  // The list is passed by value: the callee gets its own copy.
  virtual void AttachEntityList(int32_t attachment_id, std::vector<orbo_entity::EntityBase*> entities) = 0;
  // 20: attaches one entity (its base subobject) under an id.
  virtual void AttachEntity(int32_t attachment_id, orbo_entity::EntityBase* entity) = 0;

 protected:
  ~IOrboEvent() = default;
};

class iOrbotelemetryAPI {
 public:
  KST_RESERVED_OP(1)
  KST_RESERVED_OP(2)
  KST_RESERVED_OP(3)
  KST_RESERVED_OP(4)
  KST_RESERVED_OP(5)
  KST_RESERVED_OP(6)
  KST_RESERVED_OP(7)
  KST_RESERVED_OP(8)
  KST_RESERVED_OP(9)
  // 10: a new, empty event, or null.
  virtual IOrboEvent* CreateEvent() = 0;
  KST_RESERVED_OP(11)
  KST_RESERVED_OP(12)
  // 13: a new entity of the type, or null. The result points at the entity's own interface, the one
  // that oKstPlatform/entities.h declares for that type id.
  virtual void* CreateEntity(int32_t entity_type) = 0;
  KST_RESERVED_OP(14)
  KST_RESERVED_OP(15)
  // 16: hands a finished event to the service with two opaque codes. The result is not examined.
  virtual int32_t SubmitEvent(IOrboEvent* event, int32_t first_code, int32_t second_code,
                              EventParams* params) = 0;

 protected:
  ~iOrbotelemetryAPI() = default;
};
