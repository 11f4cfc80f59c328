// The phone interaction event: four context entities of its own (354, 376, the call detail 369 when
// asked for, and the product 377 with the account's web domain) and the phone body (370).
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "core/timestamp.h"
#include "core/vanity_domain.h"
#include "core/vocabulary.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/system_info.h"

namespace OrboPTPAAP {
namespace {

using namespace orbo_entity;

// Entities 369, 376 and 377 are required of the host. Should it still answer null, the entity is left
// out of the list rather than used: the library runs inside the client's process and must not crash
// it. Entity 354 keeps its place in the list as a null entry instead, as the back end expects.
CallDetailEntity* BuildCallDetail(const oet::EventDraft& event, const PhoneInteractInfo_s& info) {
  auto* detail = event.Create<CallDetailEntity>();
  if (detail == nullptr) return nullptr;
  detail->SetCallText2(oet::ToUtf8(info.call_text2));
  detail->SetCallText1(oet::ToUtf8(info.call_text1));
  detail->SetDirection(oet::CallDirectionWord(info.direction));
  // A time not given (zero) clears its field. Both times are formatted one after the other into one
  // text.
  oet::MadeText time;
  oet::FormatUtcTimestamp(info.time1, time);
  oet::SetOrClearValue(detail, &CallDetailEntity::ClearTime1, &CallDetailEntity::SetTime1, time);
  oet::FormatUtcTimestamp(info.time2, time);
  oet::SetOrClearValue(detail, &CallDetailEntity::ClearTime2, &CallDetailEntity::SetTime2, time);
  return detail;
}

PhoneContextEntity* BuildPhoneContext(const oet::EventDraft& event, const PTTrackingInfo_s& tracking,
                                      const PhoneInteractInfo_s& info) {
  auto* context = event.Create<PhoneContextEntity>();
  if (context == nullptr) return nullptr;
  context->SetTrackingString2(oet::TextOf(tracking.secondary_value));
  context->SetContextText3(oet::ToUtf8(info.context_text3));
  context->SetContextNumber(info.context_number);
  context->SetContextText1(oet::ToUtf8(info.context_text1));
  context->SetContextText4(oet::ToUtf8(info.context_text4));
  context->SetContextText2(oet::ToUtf8(info.context_text2));
  context->SetTrackingString1(oet::TextOf(tracking.primary_value));
  return context;
}

ProductEntity* BuildProduct(const oet::EventDraft& event) {
  auto* product = event.Create<ProductEntity>();
  if (product == nullptr) return nullptr;
  static const std::string& kClientLabel = *new std::string("client");  // never destroyed
  product->SetClientLabel(kClientLabel);
  Kst::CStringT<char> version;
  Kst::GetCurrentVersion(version);
  product->SetClientVersion(oet::TextOf(version));
  product->SetWebDomain(oet::AccountDomainLabelUtf8(*event.web_service()));
  return product;
}

void FillPhoneBody(PhoneBodyEntity& body, const PhoneInteractInfo_s& info) {
  body.SetFirstMarker(1);
  body.SetSecondMarker(1);
  body.SetValueC(info.value_c);
  body.SetValueA(info.value_a);
  body.SetValueD(info.value_d);
  body.SetValueE(info.value_e);
  body.SetValueF(info.value_f);
  if (!info.body_text2.empty()) body.SetText2(info.body_text2);
  if (!info.body_text3.empty()) body.SetText3(info.body_text3);
  body.SetValueB(info.value_b);
  body.SetText1(info.body_text1);
}

}  // namespace

int TrackingPhoneInteractEvent(const PTTrackingInfo_s& tracking, const PhoneInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    auto* first = event.Create<PhoneContextEntity354>();
    auto* detail = BuildCallDetail(event, info);
    auto* context = BuildPhoneContext(event, tracking, info);
    auto* product = BuildProduct(event);
    oet::ContextList list(4);
    list.AddSlot(first);
    list.Add(context);
    if (info.call_detail != 0) list.Add(detail);
    list.Add(product);
    event.AttachContext(std::move(list));
    if (auto* body = event.Create<PhoneBodyEntity>()) {
      FillPhoneBody(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

int TrackingORPhoneInteractEvent(const ORPhoneTrackingInfo_s& /*tracking*/,
                                 const ORPhoneInteractInfo_s& /*info*/) {
  return 1;
}

}  // namespace OrboPTPAAP
