// The OUI-framework event inside a meeting: the main window's event with its three context entities
// left empty and the same body (183).
#include <utility>

#include "core/event.h"
#include "core/oui_body.h"
#include "oEventTracker/OrboPAAP.h"

namespace OrboPAAP {

int TrackingOUIFrameworkInteract(const MeetingTrackingInfo_s& /*tracking*/, const MTOUIInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list(3);
    list.Add(event.Create<orbo_entity::OuiTrackingEntity>());
    list.Add(event.Create<orbo_entity::OuiDeviceEntity>());
    list.Add(event.Create<orbo_entity::OuiProductEntity>());
    event.AttachContext(std::move(list));
    if (auto* body = event.Create<orbo_entity::OuiBodyEntity>()) {
      oet::FillOuiBody(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kInMeetingCodes);
  });
}

}  // namespace OrboPAAP
