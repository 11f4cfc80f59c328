// Recording implementations of every entity interface, generated from the one entity schema.
#include "oKstPlatform/entities.h"
#include "testing/recording_host.h"

namespace oet_testing {
namespace {

using namespace orbo_entity;  // the generated code names the schema's interfaces unqualified

#define KST_PARAMS_Clear ()
#define KST_PARAMS_Call ()
#define KST_PARAMS_String (const std::string& value)
#define KST_PARAMS_Int32 (int32_t value)
#define KST_PARAMS_Int64 (int64_t value)
#define KST_PARAMS_UInt64 (uint64_t value)
#define KST_PARAMS_Bool (bool value)
#define KST_PARAMS_Double (double value)
#define KST_VALUE_Clear OpValue()
#define KST_VALUE_Call OpValue()
#define KST_VALUE_String OpValue(value)
#define KST_VALUE_Int32 OpValue(value)
#define KST_VALUE_Int64 OpValue(value)
#define KST_VALUE_UInt64 OpValue(value)
#define KST_VALUE_Bool OpValue(value)
#define KST_VALUE_Double OpValue(value)
#define KST_KIND_Clear OpKind::kClear
#define KST_KIND_Call OpKind::kCall
#define KST_KIND_String OpKind::kString
#define KST_KIND_Int32 OpKind::kInt32
#define KST_KIND_Int64 OpKind::kInt64
#define KST_KIND_UInt64 OpKind::kUInt64
#define KST_KIND_Bool OpKind::kBool
#define KST_KIND_Double OpKind::kDouble

// A field interface becomes a mixin that records its operations; an entity class becomes a final
// class that records its own operations and, where it has one, inherits its field interface's mixin.
#define KST_FIELDS(Name)                                                      \
  class Recorded##Name : public virtual Name, public virtual RecordedEntity { \
   public:
#define KST_ENTITY_COMMON(Name)                                    \
  Recorded##Name(RecordingHost* host, int event, int number)       \
      : RecordedEntity(host, event, number, Name::kTypeId) {}      \
  EntityBase* base() override {                                    \
    return static_cast<Name*>(this);                               \
  }                                                                \
  void* own_interface() override {                                 \
    return static_cast<Name*>(this);                               \
  }                                                                \
  AttributeHolder* GetAttributeHolder(int32_t selector) override { \
    return HolderFor(selector);                                    \
  }
#define KST_ENTITY(Name, TypeId)                                            \
  class Recorded##Name final : public Name, public virtual RecordedEntity { \
   public:                                                                  \
    KST_ENTITY_COMMON(Name)
#define KST_ENTITY_VIA(Name, TypeId, Fields)                          \
  class Recorded##Name final : public Name, public Recorded##Fields { \
   public:                                                            \
    KST_ENTITY_COMMON(Name)
#define KST_OP(Name, N, Kind, OpName)                             \
  void OpName KST_PARAMS_##Kind override {                        \
    HostBookkeeping bookkeeping;                                  \
    Record(#Name, N, #OpName, KST_KIND_##Kind, KST_VALUE_##Kind); \
  }
#define KST_RESERVED(Name, N)
#define KST_END(Name) \
  }                   \
  ;
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"

}  // namespace

std::unique_ptr<RecordedEntity> MakeRecordedEntity(int32_t type, RecordingHost* host, int event, int number) {
  switch (type) {
#define KST_FIELDS(Name)
#define KST_ENTITY(Name, TypeId) \
  case TypeId:                   \
    return std::make_unique<Recorded##Name>(host, event, number);
#define KST_ENTITY_VIA(Name, TypeId, Fields) KST_ENTITY(Name, TypeId)
#define KST_OP(Name, N, Kind, OpName)
#define KST_RESERVED(Name, N)
#define KST_END(Name)
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"
    default:
      return nullptr;
  }
}

}  // namespace oet_testing
