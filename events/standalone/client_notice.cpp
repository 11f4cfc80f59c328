// The client and notice interaction events: the tracked basic context (170 with the tracking values,
// 159, 169, null entries kept) plus the event's own context entities, and the basic-interaction body
// (157) with the source "client" and the action class of the action code.
#include <utility>

#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "core/short_key.h"
#include "oEventTracker/OrboPAAP/tracking.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using namespace orbo_entity;

// The action class of an action code: 93 gives 3, 94 and 95 give 1; other codes set none.
void SetActionClass(InteractionClassFields& fields, int32_t action_code) {
  if (action_code == 93) {
    fields.SetActionClass(3);
  } else if (action_code == 94 || action_code == 95) {
    fields.SetActionClass(1);
  }
}

// Opens the event, attaches 170 (with the tracking values), 159, 169 and what `add_context` appends
// (at most `extra` entries), then the body: the source "client", what `fill_values` sets, the first
// text by the clear-or-set rule and the action class. Every context entry keeps its place, null or
// not.
template <class AddContext, class FillValues>
int TrackClientInteraction(const PTTrackingInfo_s& tracking, size_t extra, AddContext add_context,
                           FillValues fill_values, const Kst::CStringT<char>& first_text,
                           int32_t action_code) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list(3 + extra);
    auto* tracked = event.Create<BasicContextEntity170>();
    if (tracked != nullptr) oet::FillTrackingValues(*tracked, tracking);
    list.AddSlot(tracked);
    list.AddSlot(event.Create<BasicDeviceContextEntity>());
    list.AddSlot(event.Create<BasicContextEntity169>());
    add_context(event, list);
    event.AttachContextAlways(std::move(list));
    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetSource("client");
      fill_values(*body);
      oet::SetOrClear(body, &BasicInteractionEntity::ClearTextA, &BasicInteractionEntity::SetTextA,
                      first_text);
      SetActionClass(*body, action_code);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace

int TrackingClientInteractEvent(const PTTrackingInfo_s& tracking, const OClientInteractInfo_s& info) {
  const auto add_product = [&](const oet::EventDraft& event, oet::ContextList& list) {
    auto* identity = event.Create<MeetingIdentityEntity>();
    if (identity != nullptr) {
      MeetingIdentityFields& fields = *identity;
      fields.SetIdentityNumber(OrboPAAP::kNoMeetingNumber);
      fields.SetIdentityText(info.product_info.domain);
    }
    list.AddSlot(identity);
    auto* product = event.Create<ProductStringEntity>();
    if (product != nullptr) {
      ProductStringFields& fields = *product;
      fields.SetProductString(oet::TextOf(oet::MapIdToShortKey(info.product_id)));
      fields.SetProductMarker(1);
    }
    list.AddSlot(product);
  };
  const auto fill_values = [&](BasicInteractionEntity& body) {
    body.SetValueA(info.third_value);
    body.SetValueE(info.action_code);
    body.SetValueB(info.fifth_value);
    body.SetValueC(info.first_value);
    body.SetValueD(info.sixth_value);
    body.SetTextB(info.detail);
  };
  return TrackClientInteraction(tracking, 2, add_product, fill_values, info.first_text, info.action_code);
}

int TrackingNoticeInteractEvent(const PTTrackingInfo_s& tracking, const ONoticeInteractInfo_s& info) {
  const auto add_notice = [&](const oet::EventDraft& event, oet::ContextList& list) {
    auto* notice = event.Create<NoticeEntity>();
    if (notice != nullptr) {
      notice->SetNoticeText1(oet::TextOf(info.notice_text1));
      notice->SetNoticeText3(oet::TextOf(info.notice_text3));
      notice->SetNoticeText2(oet::TextOf(info.notice_text2));
      notice->SetNoticeNumber(info.notice_number);
      notice->SetNoticeFlag(info.notice_flag != 0);
    }
    list.AddSlot(notice);
  };
  const auto fill_values = [&](BasicInteractionEntity& body) {
    body.SetValueA(info.first_value);
    body.SetValueG(info.second_value);
    body.SetValueE(info.action_code);
    body.SetValueB(info.fourth_value);
    body.SetValueC(info.fifth_value);
    body.SetValueD(info.sixth_value);
  };
  return TrackClientInteraction(tracking, 1, add_notice, fill_values, info.first_text, info.action_code);
}

}  // namespace OrboPTPAAP
