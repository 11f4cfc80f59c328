// The meeting interaction event of the main window: two gates that destroy the event, the client,
// tracking-info and meeting context entities (283, 304, 297) only all together, and the meeting body
// (289).
#include <utility>

#include "core/client_context.h"
#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using orbo_entity::MeetingBodyEntity;

bool HasKeyValues(const MeetingInteractInfo_s& info) {
  return info.meeting_value1 != 0 && info.meeting_value2 != 0 && info.meeting_value3 != 0 &&
         info.meeting_value5 != 0;
}

void FillMeetingBody(MeetingBodyEntity& body, const MeetingInteractInfo_s& info) {
  body.SetFeatureName("meeting");
  body.SetMeetingValue1(info.meeting_value1);
  body.SetMeetingValue2(info.meeting_value2);
  body.SetMeetingValue3(info.meeting_value3);
  body.SetMeetingValue4(info.meeting_value4);
  body.SetMeetingValue5(info.meeting_value5);
  body.SetMeetingDetail(info.meeting_detail);
  oet::SetOrClear(&body, &MeetingBodyEntity::ClearMeetingText, &MeetingBodyEntity::SetMeetingText,
                  info.meeting_text);
}

}  // namespace

int TrackingMeetingInteractEvent(const PTTrackingInfo_s& tracking, const MeetingInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    if (!HasKeyValues(info)) return event.Destroy();
    // The os name is set by every refresh that reaches the web service: empty, the cache has never
    // been filled.
    if (oet::RefreshedClientFacts()->os_name.empty) return event.Destroy();
    auto* client = oet::BuildClientEntity(event.telemetry(), event.web_service());
    auto* tracking_info = oet::BuildTrackingInfoEntity(event.telemetry(), tracking);
    auto* meeting = event.Create<orbo_entity::MeetingContextEntity297>();
    if (client != nullptr && tracking_info != nullptr && meeting != nullptr) {
      oet::ContextList list(3);
      list.Add(client);
      list.Add(tracking_info);
      list.Add(meeting);
      event.AttachContext(std::move(list));
    }
    if (auto* body = event.Create<MeetingBodyEntity>()) {
      FillMeetingBody(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
