// The in-meeting notice and client events: the basic context entities, the hidden meeting identity
// (161), a notice (165) or product (171) entity, and the basic-interaction body (157).
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "core/short_key.h"
#include "events/meeting/meeting_identity.h"
#include "oEventTracker/OrboPAAP.h"

namespace OrboPAAP {
namespace {

using orbo_entity::BasicInteractionEntity;

orbo_entity::MeetingIdentityEntity* HiddenIdentity(const oet::EventDraft& event,
                                                   const MeetingTrackingInfo_s& tracking) {
  auto* identity = event.Create<orbo_entity::MeetingIdentityEntity>();
  oet::FillMeetingIdentity(identity, tracking);
  return identity;
}

}  // namespace

int TrackingNoticeInteractEvent(const MeetingTrackingInfo_s& tracking, const ONoticeInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list = event.BasicContext(false, 2);  // 170, 159, 169 without fields
    auto* notice = event.Create<orbo_entity::NoticeEntity>();
    if (notice != nullptr) {
      notice->SetNoticeText1(oet::TextOf(info.notice_text2));  // operation 8
      notice->SetNoticeText3(oet::TextOf(info.notice_text4));  // operation 4
      notice->SetNoticeText2(oet::TextOf(info.notice_text3));  // operation 2
      notice->SetNoticeNumber(info.notice_number);             // operation 10
    }
    list.Add(notice);
    list.Add(HiddenIdentity(event, tracking));
    event.AttachContextAlways(std::move(list));
    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetValueF(info.notice_value6);
      body->SetValueA(info.notice_value1);
      body->SetValueE(info.notice_value5);
      body->SetValueB(info.notice_value2);
      body->SetValueC(info.notice_value3);
      body->SetValueD(info.notice_value4);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextA, &BasicInteractionEntity::SetTextA,
                      info.notice_text);
      event.AttachBody(body);
    }
    return event.Submit(oet::kInMeetingCodes);
  });
}

int TrackingClientInteractEvent(const MeetingTrackingInfo_s& tracking, const OClientInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list = event.BasicContext(false, 2);  // 170, 159, 169 without fields
    list.Add(HiddenIdentity(event, tracking));
    auto* product = event.Create<orbo_entity::ProductStringEntity>();
    if (product != nullptr) {
      orbo_entity::ProductStringFields& fields = *product;
      fields.SetProductString(oet::TextOf(oet::MapIdToShortKey(info.product_identifier)));
      fields.SetProductMarker(1);
    }
    list.Add(product);
    event.AttachContextAlways(std::move(list));
    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetValueF(info.client_value2);
      body->SetValueA(info.client_value3);
      body->SetValueE(info.client_value4);
      body->SetValueB(info.client_value5);
      body->SetValueC(info.client_value1);
      body->SetValueD(info.client_value6);
      body->SetTextB(info.client_detail);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextA, &BasicInteractionEntity::SetTextA,
                      info.client_text);
      event.AttachBody(body);
    }
    return event.Submit(oet::kInMeetingCodes);
  });
}

}  // namespace OrboPAAP
