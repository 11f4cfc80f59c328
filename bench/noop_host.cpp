#include "bench/noop_host.h"

#include <vector>

#include "oKstPlatform/entities.h"
#include "oKstPlatform/host_control.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/web_service.h"
#include "testing/recording_host.h"

namespace oet_bench {
namespace {

using namespace orbo_entity;  // the generated code names the schema's interfaces unqualified

#define KST_NOOP_PARAMS_Clear ()
#define KST_NOOP_PARAMS_Call ()
#define KST_NOOP_PARAMS_String (const std::string& /*value*/)
#define KST_NOOP_PARAMS_Int32 (int32_t /*value*/)
#define KST_NOOP_PARAMS_Int64 (int64_t /*value*/)
#define KST_NOOP_PARAMS_UInt64 (uint64_t /*value*/)
#define KST_NOOP_PARAMS_Bool (bool /*value*/)
#define KST_NOOP_PARAMS_Double (double /*value*/)

// A field interface becomes a mixin whose operations do nothing; an entity class becomes a final class
// whose own operations do nothing and that, where it has one, inherits its field interface's mixin.
// Every entity hands out the one holder, whose value goes nowhere.
class NoopHolder final : public orbo_entity::AttributeHolder {
 public:
  void SetValue(int32_t /*value*/) override {}
};
NoopHolder g_holder;

#define KST_FIELDS(Name)                   \
  class Noop##Name : public virtual Name { \
   public:
#define KST_NOOP_HOLDER                                                             \
  orbo_entity::AttributeHolder* GetAttributeHolder(int32_t /*selector*/) override { \
    return &g_holder;                                                               \
  }
#define KST_ENTITY(Name, TypeId)         \
  class Noop##Name final : public Name { \
   public:                               \
    KST_NOOP_HOLDER
#define KST_ENTITY_VIA(Name, TypeId, Fields)                  \
  class Noop##Name final : public Name, public Noop##Fields { \
   public:                                                    \
    KST_NOOP_HOLDER
#define KST_OP(Name, N, Kind, OpName) \
  void OpName KST_NOOP_PARAMS_##Kind override {}
#define KST_RESERVED(Name, N)
#define KST_END(Name) \
  }                   \
  ;
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"

// One entity of every type, handed out again and again.
struct Entities {
#define KST_FIELDS(Name)
#define KST_ENTITY(Name, TypeId) Noop##Name Name##_;
#define KST_ENTITY_VIA(Name, TypeId, Fields) KST_ENTITY(Name, TypeId)
#define KST_OP(Name, N, Kind, OpName)
#define KST_RESERVED(Name, N)
#define KST_END(Name)
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"

  // The entity's own interface, as CreateEntity answers it.
  void* Of(int32_t type) {
    switch (type) {
#define KST_FIELDS(Name)
#define KST_ENTITY(Name, TypeId) \
  case TypeId:                   \
    return static_cast<Name*>(&Name##_);
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
};

class NoopEvent final : public IOrboEvent {
 public:
  void DestroyEvent(int32_t /*flags*/) override {}
  void AttachEntityList(int32_t /*attachment_id*/, std::vector<EntityBase*> /*entities*/) override {}
  void AttachEntity(int32_t /*attachment_id*/, EntityBase* /*entity*/) override {}
};

class NoopTelemetry final : public iOrbotelemetryAPI {
 public:
  IOrboEvent* CreateEvent() override { return &event_; }
  void* CreateEntity(int32_t entity_type) override { return entities_.Of(entity_type); }
  int32_t SubmitEvent(IOrboEvent* /*event*/, int32_t /*first_code*/, int32_t /*second_code*/,
                      EventParams* /*params*/) override {
    return 0;
  }

  Entities& entities() { return entities_; }

 private:
  NoopEvent event_;
  Entities entities_;
};

class NoopWebService final : public ICVWebServiceAPI {
 public:
  Kst::CStringT<wchar_t> GetAccountDomain(int32_t /*which*/) override { return domain_; }
  Kst::CStringT<wchar_t> GetAccountWebUrl(int32_t /*which*/, int32_t /*variant*/) override {
    return web_url_;
  }
  // Writes the four values a web service knows; only the first is not empty.
  void FillClientContext(ClientContext& context) override {
    context.web_service_value = value_;
    context.web_service_second = Kst::CStringT<wchar_t>();
    context.web_service_third = Kst::CStringT<wchar_t>();
    context.web_service_sixth = Kst::CStringT<wchar_t>();
  }
  ICVShortKeyLookup* GetShortKeyLookup() override { return nullptr; }

  void SetAnswers(const WebAnswers& answers) {
    domain_ = Kst::Utf8ToWide(answers.account_domain);
    web_url_ = Kst::Utf8ToWide(answers.account_web_url);
  }

 private:
  const Kst::CStringT<wchar_t> value_ = Kst::Utf8ToWide(kWebServiceValue);
  Kst::CStringT<wchar_t> domain_;
  Kst::CStringT<wchar_t> web_url_;
};

}  // namespace

class NoopHost::Services {
 public:
  NoopTelemetry telemetry;
  NoopWebService web_service;
};

NoopHost::NoopHost() : services_(std::make_unique<Services>()) {
  oet_testing::InstallStandardMachine();
  KstHost::SetRegistryAvailable(true);
  KstHost::RegisterClassObject(kOrboTelemetryModule, kOrboTelemetryClass,
                               static_cast<iOrbotelemetryAPI*>(&services_->telemetry));
  KstHost::RegisterClassObject(kWebServiceModule, kWebServiceClass,
                               static_cast<ICVWebServiceAPI*>(&services_->web_service));
}

NoopHost::~NoopHost() {
  KstHost::ClearRegistry();
  KstHost::ClearSystemFactOverrides();
  KstHost::UseSystemClock();
}

void NoopHost::SetWebAnswers(const WebAnswers& answers) {
  services_->web_service.SetAnswers(answers);
}

void* NoopHost::EntityOfType(int32_t type) {
  return services_->telemetry.entities().Of(type);
}

}  // namespace oet_bench
