// The entity interfaces of the telemetry schema (oKstPlatform/entity_schema.def), as the library calls them.
//
// Every entity class derives virtually from orbo_entity::EntityBase; entities listed with a field
// interface derive virtually from it too, as their second virtual base, and are filled through it.
// Each entity interface carries its type id (kTypeId) and name (kName). Operations are declared in
// the order of the entity's table of operations, placeholders included.
#pragma once

#include <cstdint>
#include <string>

#include "oKstPlatform/kst_reserved.h"

namespace orbo_entity {

// An entity's attribute holder: a value the telemetry service keeps beside an entity's fields for
// one selector (the in-meeting meeting event marks its entities through the holder of selector -3).
// What the value means is the telemetry service's.
class AttributeHolder {
 public:
  // 1: sets the holder's value.
  virtual void SetValue(int32_t value) = 0;

 protected:
  ~AttributeHolder() = default;
};

// The base shared by every entity class; what an event is given when an entity is attached.
class EntityBase {
 public:
  // 1: the entity's attribute holder for `selector`, or null when the entity has none. The holder
  // belongs to the entity and lives as long as it does. This is the first operation of the base's
  // table, the only one the library calls.
  virtual AttributeHolder* GetAttributeHolder(int32_t selector) = 0;

 protected:
  ~EntityBase() = default;
};

// Signatures of the operation kinds.
#define KST_SIGNATURE_Clear ()
#define KST_SIGNATURE_Call ()
#define KST_SIGNATURE_String (const std::string& value)
#define KST_SIGNATURE_Int32 (int32_t value)
#define KST_SIGNATURE_Int64 (int64_t value)
#define KST_SIGNATURE_UInt64 (uint64_t value)
#define KST_SIGNATURE_Bool (bool value)
#define KST_SIGNATURE_Double (double value)

namespace schema_check {
// True when the numbers run 1, 2, 3, ... after the leading 0.
template <int N>
constexpr bool Consecutive(const int (&numbers)[N]) {
  for (int i = 0; i < N; ++i) {
    if (numbers[i] != i) return false;
  }
  return true;
}
}  // namespace schema_check

#define KST_FIELDS(Name) \
  class Name {           \
   public:               \
    static constexpr char kName[] = #Name;
#define KST_ENTITY(Name, TypeId)               \
  class Name : public virtual EntityBase {     \
   public:                                     \
    static constexpr int32_t kTypeId = TypeId; \
    static constexpr char kName[] = #Name;
#define KST_ENTITY_VIA(Name, TypeId, Fields)                      \
  class Name : public virtual EntityBase, public virtual Fields { \
   public:                                                        \
    static constexpr int32_t kTypeId = TypeId;                    \
    static constexpr char kName[] = #Name;
#define KST_OP(Name, N, Kind, OpName) virtual void OpName KST_SIGNATURE_##Kind = 0;
#define KST_RESERVED(Name, N) KST_RESERVED_OP(N)
#define KST_END(Name) \
 protected:           \
  ~Name() = default;  \
  }                   \
  ;
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"

// Compile-time check that every block numbers its operations without gaps, so that each declared
// operation sits at the position its number says.
#define KST_FIELDS(Name) inline constexpr int Name##_numbers[] = {0
#define KST_ENTITY(Name, TypeId) KST_FIELDS(Name)
#define KST_ENTITY_VIA(Name, TypeId, Fields) KST_FIELDS(Name)
#define KST_OP(Name, N, Kind, OpName) , N
#define KST_RESERVED(Name, N) , N
#define KST_END(Name)                                            \
  }                                                              \
  ;                                                              \
  static_assert(schema_check::Consecutive(Name##_numbers), #Name \
                ": operation numbers must run 1, 2, 3, "         \
                "...");
namespace schema_check {
#include "oKstPlatform/entity_schema.def"
}  // namespace schema_check
#include "oKstPlatform/entity_schema_undef.h"

}  // namespace orbo_entity
