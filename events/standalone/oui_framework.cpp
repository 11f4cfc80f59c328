// The OUI-framework event of the main window: its own tracking (187), device (182) and product (186)
// entities, and the shared OUI body (183).
#include <utility>

#include "core/client_context.h"
#include "core/event.h"
#include "core/host.h"
#include "core/oui_body.h"
#include "core/vanity_domain.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/system_info.h"

namespace OrboPTPAAP {
namespace {

using namespace orbo_entity;

// The host is required to give entity 187; should it still answer null, the entity is left out rather
// than used.
OuiTrackingEntity* BuildOuiTracking(const oet::EventDraft& event, const PTTrackingInfo_s& tracking) {
  auto* entity = event.Create<OuiTrackingEntity>();
  if (entity == nullptr) return nullptr;
  OuiTrackingFields& fields = *entity;
  fields.SetPrimaryValue(oet::TextOf(tracking.primary_value));
  fields.SetSecondaryValue(oet::TextOf(tracking.secondary_value));
  return entity;
}

OuiDeviceEntity* BuildOuiDevice(const oet::EventDraft& event) {
  auto* entity = event.Create<OuiDeviceEntity>();
  if (entity == nullptr) return nullptr;
  const oet::ClientFactsView facts = oet::RefreshedClientFacts();
  OuiDeviceFields& fields = *entity;
  fields.SetDeviceProduct(facts->system_product_name.utf8);
  fields.SetOsName(facts->os_name.utf8);
  fields.SetOsVersion(facts->os_version.utf8);
  return entity;
}

// Null (and left out of the list) without the web service.
OuiProductEntity* BuildOuiProduct(const oet::EventDraft& event) {
  auto* entity = event.Create<OuiProductEntity>();
  oet::EnsureClientContext();
  ICVWebServiceAPI* web_service = oet::GetWebServiceApi();
  if (entity == nullptr || web_service == nullptr) return nullptr;
  OuiProductFields& fields = *entity;
  fields.SetProductMarker(1);
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);
  fields.SetClientVersion(oet::TextOf(version));
  fields.SetDomainLabel(oet::AccountDomainLabelUtf8(*web_service, oet::WebUrlRead::kAlways));
  return entity;
}

}  // namespace

int TrackingOUIFrameworkInteract(const PTTrackingInfo_s& tracking, const PTOUIInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kTelemetryOnly);
    if (!event) return 0;
    oet::ContextList list(3);
    list.Add(BuildOuiTracking(event, tracking));
    list.Add(BuildOuiDevice(event));
    list.Add(BuildOuiProduct(event));
    event.AttachContext(std::move(list));
    if (auto* body = event.Create<OuiBodyEntity>()) {
      oet::FillOuiBody(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
