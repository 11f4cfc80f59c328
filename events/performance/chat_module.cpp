// The chat-module events: message handling, chat web service, chat database, file transfer and
// end-to-end decryption. Each sends the chat tracking info (130), the markers 121 and 128 and its body
// in the context list, and a small header as the body.
#include <utility>

#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "core/rate_limit.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using namespace orbo_entity;
using oet::EventDraft;
using oet::SetOrClear;
using oet::SetOrClearValue;  // numbers: 0 clears
using oet::ToUtf8;

// The interaction ids these events know by number.
constexpr int32_t kDatabaseWithTrackingInfo = 162;  // the only database id whose list carries 130
constexpr int32_t kMessageModuleLimitKey = 167;
constexpr int32_t kWebServiceInteraction = 168;
constexpr int32_t kFirstE2EDecodeInteraction = 182;
constexpr int32_t kLastE2EDecodeInteraction = 184;

// The rate limits: the message-module event under one fixed key, the database event for id 165 only,
// the end-to-end event per id.
oet::RateLimitTable<int32_t, 1> g_message_module_limit(kMessageModuleLimitKey);
oet::RateLimitTable<int32_t, 1> g_database_limit(165);
oet::RateLimitTable<int32_t, 3> g_e2e_decode_limits(182, 183, 184);

// What every chat-module event does after its gate: the client-context cache, the web service and the
// telemetry service, then the context list (the tracking info only when `tracking` is given; the body
// from `build_body`, which may give null), attached even when empty; then the header, filled by
// `fill_header`. Without a header the call gives 0 and the draft destroys the event.
template <class Header, class BuildBody, class FillHeader>
int SendChatModuleEvent(const PTTrackingInfo_s* tracking, BuildBody&& build_body, oet::SubmitCodes codes,
                        FillHeader&& fill_header) {
  auto event = EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
  if (!event) return 0;
  oet::ContextList list(4);
  if (tracking != nullptr) list.Add(oet::BuildChatTrackingInfoEntity(event.telemetry(), *tracking));
  list.Add(event.Create<ChatMarkerEntity121>());
  list.Add(event.Create<ChatMarkerEntity128>());
  list.Add(build_body(event));
  event.AttachContextAlways(std::move(list));
  auto* header = event.Create<Header>();
  if (header == nullptr) return 0;
  fill_header(*header);
  event.AttachBody(header);
  return event.Submit(codes);
}

// Every field set, empty texts and 0 values included.
ChatMessageModuleEntity* BuildMessageModuleBody(const EventDraft& event,
                                                const ChatMessageModuleInfo_s& info) {
  auto* body = event.Create<ChatMessageModuleEntity>();
  if (body == nullptr) return nullptr;
  body->SetField5(info.field5);
  body->SetField6(info.field6);
  body->SetField18(info.field18);
  body->SetField8(ToUtf8(info.field8));
  body->SetField9(ToUtf8(info.field9));
  body->SetField7(info.field7);
  body->SetField3(info.field3 != 0);
  body->SetField4(info.field4 != 0);
  body->SetField10(ToUtf8(info.field10));
  body->SetField11(ToUtf8(info.field11));
  body->SetField12(ToUtf8(info.field12));
  body->SetField13(ToUtf8(info.field13));
  body->SetField17(info.field17);
  body->SetField14(ToUtf8(info.field14));
  body->SetField15(ToUtf8(info.field15));
  body->SetField16(ToUtf8(info.field16));
  return body;
}

// Every field set, empty texts and 0 values included.
ChatWebServiceModuleEntity* BuildWebServiceBody(const EventDraft& event, const WebServiceInfo_s& info) {
  auto* body = event.Create<ChatWebServiceModuleEntity>();
  if (body == nullptr) return nullptr;
  body->SetField1(ToUtf8(info.field1));
  body->SetField2(ToUtf8(info.field2));
  body->SetField3(info.field3);
  body->SetField4(info.field4);
  body->SetField5(info.field5);
  body->SetField6(info.field6);
  body->SetField7(info.field7 != 0);
  body->SetField9(info.field9);
  body->SetField8(info.field8);
  body->SetField10(ToUtf8(info.field10));
  return body;
}

ChatDBInteractEntity* BuildDatabaseBody(const EventDraft& event, const ChatDBInteractInfo_s& info) {
  using E = ChatDBInteractEntity;
  auto* body = event.Create<E>();
  if (body == nullptr) return nullptr;
  SetOrClear(body, &E::ClearField1, &E::SetField1, info.field1);
  static const std::string& kUnknown = *new std::string("unknown");  // never destroyed
  const auto& field2 = ToUtf8(info.field2);
  body->SetField2(field2.empty() ? kUnknown : field2.str());
  SetOrClear(body, &E::ClearField3, &E::SetField3, info.field3);
  body->SetField4(info.field4 == 0 ? 6 : info.field4);
  SetOrClearValue(body, &E::ClearField14, &E::SetField14, info.field14);
  SetOrClearValue(body, &E::ClearField15, &E::SetField15, info.field15);
  SetOrClearValue(body, &E::ClearField16, &E::SetField16, info.field16);
  SetOrClearValue(body, &E::ClearField17, &E::SetField17, info.field17);
  SetOrClearValue(body, &E::ClearField5, &E::SetField5, info.field5);
  SetOrClearValue(body, &E::ClearField6, &E::SetField6, info.field6);
  SetOrClearValue(body, &E::ClearField7, &E::SetField7, info.field7);
  SetOrClearValue(body, &E::ClearField8, &E::SetField8, info.field8);
  SetOrClearValue(body, &E::ClearField9, &E::SetField9, info.field9);
  SetOrClearValue(body, &E::ClearField10, &E::SetField10, info.field10);
  SetOrClearValue(body, &E::ClearField11, &E::SetField11, info.field11);
  SetOrClearValue(body, &E::ClearField12, &E::SetField12, info.field12);
  SetOrClearValue(body, &E::ClearField13, &E::SetField13, info.field13);
  return body;
}

ChatFileTransferInteractEntity* BuildFileTransferBody(const EventDraft& event,
                                                      const ChatFileTransferInteractInfo_s& info) {
  using E = ChatFileTransferInteractEntity;
  auto* body = event.Create<E>();
  if (body == nullptr) return nullptr;
  body->SetField1(info.field1);
  if (info.field2 != 0) body->SetField2(true);
  if (info.field3 != 0) body->SetField3(true);
  SetOrClear(body, &E::ClearField4, &E::SetField4, info.field4);
  oet::SetUnlessEmpty(body, &E::SetField5, info.field5);
  body->SetField6(info.field6 != 0);
  SetOrClearValue(body, &E::ClearField7, &E::SetField7, info.field7);
  body->SetField8(info.field8);
  SetOrClear(body, &E::ClearField9, &E::SetField9, info.field9);
  body->SetField10(info.field10 != 0);
  SetOrClear(body, &E::ClearField11, &E::SetField11, info.field11);
  SetOrClear(body, &E::ClearField12, &E::SetField12, info.field12);
  SetOrClear(body, &E::ClearField13, &E::SetField13, info.field13);
  body->SetField14(info.field14 != 0);
  body->SetField15(info.field15);
  body->SetField16(info.field16 != 0);
  body->SetField17(info.field17 != 0);
  body->SetField18(info.field18 != 0);
  body->SetField19(info.field19 != 0);
  body->SetField20(info.field20 != 0);
  body->SetField21(info.field21 != 0);
  SetOrClear(body, &E::ClearField22, &E::SetField22, info.field22);
  body->SetField23(info.field23);
  SetOrClear(body, &E::ClearField24, &E::SetField24, info.field24);
  SetOrClear(body, &E::ClearField25, &E::SetField25, info.field25);
  body->SetField26(info.field26);
  SetOrClearValue(body, &E::ClearField27, &E::SetField27, info.field27);
  body->SetField28(info.field28 != 0);
  body->SetField29(info.field29 != 0);
  SetOrClear(body, &E::ClearField30, &E::SetField30, info.field30);
  SetOrClear(body, &E::ClearField31, &E::SetField31, info.field31);
  body->SetField32(info.field32);
  body->SetField33(info.field33 != 0);
  SetOrClear(body, &E::ClearField34, &E::SetField34, info.field34);
  SetOrClearValue(body, &E::ClearField35, &E::SetField35, info.field35);
  SetOrClearValue(body, &E::ClearField36, &E::SetField36, info.field36);
  body->SetField37(info.field37);
  SetOrClear(body, &E::ClearField38, &E::SetField38, info.field38);  // cleared by operation 19
  body->SetField39(info.field39);
  body->SetField40(info.field40);
  body->SetField41(info.field41);
  return body;
}

ChatE2EDecodeInteractEntity* BuildE2EDecodeBody(const EventDraft& event, const ChatE2EDecodeInfo_s& info) {
  using E = ChatE2EDecodeInteractEntity;
  auto* body = event.Create<E>();
  if (body == nullptr) return nullptr;
  body->SetField1(info.field1);
  SetOrClear(body, &E::ClearField2, &E::SetField2, info.field2);
  SetOrClear(body, &E::ClearField3, &E::SetField3, info.field3);
  SetOrClear(body, &E::ClearField4, &E::SetField4, info.field4);
  body->SetField5(info.field5);
  SetOrClear(body, &E::ClearField6, &E::SetField6, info.field6);
  SetOrClear(body, &E::ClearField7, &E::SetField7, info.field7);
  SetOrClear(body, &E::ClearField8, &E::SetField8, info.field8);
  body->SetField9(info.field9 != 0);
  body->SetField10(info.field10 != 0);
  return body;
}

// Sets the header's interaction id unless it is 0.
template <class Header>
auto InteractionIdUnlessZero(int32_t id) {
  return [id](Header& header) {
    if (id != 0) header.SetInteractionId(id);
  };
}

}  // namespace

int TrackingPTChatMessageModuleEvent(const PTTrackingInfo_s& tracking, const ChatMessageModuleInfo_s& info) {
  return oet::Guarded([&] {
    if (!g_message_module_limit.Admit(kMessageModuleLimitKey)) return 0;
    return SendChatModuleEvent<ChatModuleHeaderEntity>(
        &tracking,
        [&](const EventDraft& event) {
          return info.with_body != 0 ? BuildMessageModuleBody(event, info) : nullptr;
        },
        oet::kStandaloneCodes,
        [&](ChatModuleHeaderEntity& header) {
          header.SetInteractionId(info.field1);
          header.SetModuleValue(info.field2);
        });
  });
}

int TrackingPTChatWebServiceModuleEvent(const PTTrackingInfo_s& tracking, const WebServiceInfo_s& info) {
  return oet::Guarded([&] {
    return SendChatModuleEvent<ChatWebServiceHeaderEntity>(
        &tracking,
        [&](const EventDraft& event) {
          return info.with_body != 0 ? BuildWebServiceBody(event, info) : nullptr;
        },
        oet::kStandaloneCodes,
        [](ChatWebServiceHeaderEntity& header) { header.SetInteractionId(kWebServiceInteraction); });
  });
}

int TrackingPTChatDBInteractEvent(const PTTrackingInfo_s& tracking, const ChatDBInteractInfo_s& info) {
  return oet::Guarded([&] {
    if (!g_database_limit.Admit(info.interaction_id)) return 0;
    return SendChatModuleEvent<ChatDBHeaderEntity>(
        info.interaction_id == kDatabaseWithTrackingInfo ? &tracking : nullptr,
        [&](const EventDraft& event) { return BuildDatabaseBody(event, info); }, oet::kChatStorageCodes,
        InteractionIdUnlessZero<ChatDBHeaderEntity>(info.interaction_id));
  });
}

int TrackingPTChatFileTransferInteractEvent(const PTTrackingInfo_s& tracking,
                                            const ChatFileTransferInteractInfo_s& info) {
  return oet::Guarded([&] {
    return SendChatModuleEvent<ChatFileTransferHeaderEntity>(
        &tracking, [&](const EventDraft& event) { return BuildFileTransferBody(event, info); },
        oet::kChatStorageCodes, InteractionIdUnlessZero<ChatFileTransferHeaderEntity>(info.interaction_id));
  });
}

int TrackingPTChatE2EDecodeInteractEvent(const PTTrackingInfo_s& tracking, const ChatE2EDecodeInfo_s& info) {
  return oet::Guarded([&] {
    const int32_t id = info.interaction_id;
    if (id < kFirstE2EDecodeInteraction || id > kLastE2EDecodeInteraction) return 0;
    if (!g_e2e_decode_limits.Admit(id)) return 0;
    return SendChatModuleEvent<ChatModuleHeaderEntity>(
        &tracking, [&](const EventDraft& event) { return BuildE2EDecodeBody(event, info); },
        oet::kChatStorageCodes, [id](ChatModuleHeaderEntity& header) { header.SetInteractionId(id); });
  });
}

}  // namespace OrboPTPAAP
