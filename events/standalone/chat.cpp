// The chat interaction event: the chat tracking-info entity (130), the two chat markers (121, 128),
// the optional parts of the chat record as their markers and the action type decide (115, 126, 127,
// 129, 112, one 125 per item), and the chat body (118). Two action types are rate-limited.
#include <utility>

#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "core/rate_limit.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using namespace orbo_entity;

// The action types sent at most once a second each.
oet::RateLimitTable<int32_t, 2> g_chat_limits(174, 185);

// The actions that send or change a message carry the compose part.
bool CarriesCompose(int32_t action_type) {
  switch (action_type) {
    case 10:
    case 11:
    case 12:
    case 19:
    case 21:
    case 22:
    case 28:
      return true;
    default:
      return false;
  }
}

// The file actions carry the file part.
bool CarriesFiles(int32_t action_type) {
  return action_type >= 145 && action_type <= 153;
}

// The builders of the optional parts: each requests its entity, fills it from its part and returns
// it, or null when the host gives none.

ChatConversationEntity* BuildConversation(const oet::EventDraft& event, const ChatConversationInfo_s& part) {
  auto* entity = event.Create<ChatConversationEntity>();
  if (entity == nullptr) return nullptr;
  oet::SetOrClear(entity, &ChatConversationEntity::ClearConversationId,
                  &ChatConversationEntity::SetConversationId, part.conversation_id);
  entity->SetConversationType(part.conversation_type);
  entity->SetMemberCount(part.member_count);
  entity->SetExternal(part.is_external != 0);
  return entity;
}

ChatMessageEntity* BuildMessage(const oet::EventDraft& event, const ChatMessageInfo_s& part) {
  auto* entity = event.Create<ChatMessageEntity>();
  if (entity == nullptr) return nullptr;
  oet::SetOrClear(entity, &ChatMessageEntity::ClearMessageId, &ChatMessageEntity::SetMessageId,
                  part.message_id);
  entity->SetMessageType(part.message_type);
  entity->SetTextLength(part.text_length);
  entity->SetAttachmentCount(part.attachment_count);
  entity->SetSequence(part.sequence);
  return entity;
}

ChatComposeEntity* BuildCompose(const oet::EventDraft& event, const ChatComposeInfo_s& part) {
  auto* entity = event.Create<ChatComposeEntity>();
  if (entity == nullptr) return nullptr;
  // Each flag's operation, in the order of the part's flags.
  static constexpr std::pair<int32_t ChatComposeInfo_s::*, void (ChatComposeEntity::*)(bool)> kFlags[] = {
      {&ChatComposeInfo_s::has_bold, &ChatComposeEntity::SetBold},
      {&ChatComposeInfo_s::has_italic, &ChatComposeEntity::SetItalic},
      {&ChatComposeInfo_s::has_underline, &ChatComposeEntity::SetUnderline},
      {&ChatComposeInfo_s::has_strikethrough, &ChatComposeEntity::SetStrikethrough},
      {&ChatComposeInfo_s::has_font_size, &ChatComposeEntity::SetFontSize},
      {&ChatComposeInfo_s::has_font_color, &ChatComposeEntity::SetFontColor},
      {&ChatComposeInfo_s::has_highlight, &ChatComposeEntity::SetHighlight},
      {&ChatComposeInfo_s::has_bulleted_list, &ChatComposeEntity::SetBulletedList},
      {&ChatComposeInfo_s::has_numbered_list, &ChatComposeEntity::SetNumberedList},
      {&ChatComposeInfo_s::has_quote, &ChatComposeEntity::SetQuote},
      {&ChatComposeInfo_s::has_code_block, &ChatComposeEntity::SetCodeBlock},
      {&ChatComposeInfo_s::has_inline_code, &ChatComposeEntity::SetInlineCode},
      {&ChatComposeInfo_s::has_link, &ChatComposeEntity::SetLink},
      {&ChatComposeInfo_s::has_mention, &ChatComposeEntity::SetMention},
      {&ChatComposeInfo_s::has_mention_all, &ChatComposeEntity::SetMentionAll},
      {&ChatComposeInfo_s::has_channel_mention, &ChatComposeEntity::SetChannelMention},
      {&ChatComposeInfo_s::has_emoji, &ChatComposeEntity::SetEmoji},
      {&ChatComposeInfo_s::has_sticker, &ChatComposeEntity::SetSticker},
      {&ChatComposeInfo_s::has_gif, &ChatComposeEntity::SetGif},
      {&ChatComposeInfo_s::has_image, &ChatComposeEntity::SetImage},
      {&ChatComposeInfo_s::has_file, &ChatComposeEntity::SetFile},
      {&ChatComposeInfo_s::has_screenshot, &ChatComposeEntity::SetScreenshot},
      {&ChatComposeInfo_s::has_voice_note, &ChatComposeEntity::SetVoiceNote},
      {&ChatComposeInfo_s::has_video_message, &ChatComposeEntity::SetVideoMessage},
      {&ChatComposeInfo_s::is_reply, &ChatComposeEntity::SetReply},
      {&ChatComposeInfo_s::is_thread_reply, &ChatComposeEntity::SetThreadReply},
      {&ChatComposeInfo_s::is_forwarded, &ChatComposeEntity::SetForwarded},
      {&ChatComposeInfo_s::is_edited, &ChatComposeEntity::SetEdited},
      {&ChatComposeInfo_s::is_scheduled, &ChatComposeEntity::SetScheduled},
      {&ChatComposeInfo_s::is_encrypted, &ChatComposeEntity::SetEncrypted},
  };
  entity->SetComposeSource(oet::ToUtf8(part.compose_source));
  for (const auto& [flag, set] : kFlags)
    (entity->*set)(part.*flag != 0);
  return entity;
}

ChatFileEntity* BuildFiles(const oet::EventDraft& event, const ChatFileInfo_s& part) {
  auto* entity = event.Create<ChatFileEntity>();
  if (entity == nullptr) return nullptr;
  oet::SetOrClear(entity, &ChatFileEntity::ClearFileExtension, &ChatFileEntity::SetFileExtension,
                  part.file_extension);
  entity->SetFileSize(part.file_size);
  entity->SetFileSource(part.file_source);
  entity->SetFileCount(part.file_count);
  return entity;
}

ChatEntryEntity* BuildEntry(const oet::EventDraft& event, const ChatEntryInfo_s& part) {
  auto* entity = event.Create<ChatEntryEntity>();
  if (entity == nullptr) return nullptr;
  entity->SetEntryKind(part.entry_kind);
  oet::SetOrClear(entity, &ChatEntryEntity::ClearEntryDetail, &ChatEntryEntity::SetEntryDetail,
                  part.entry_detail);
  entity->SetEntryPosition(part.entry_position);
  return entity;
}

ChatItemEntity* BuildItem(const oet::EventDraft& event, const ChatItemInfo_s& item) {
  auto* entity = event.Create<ChatItemEntity>();
  if (entity == nullptr) return nullptr;
  oet::SetOrClear(entity, &ChatItemEntity::ClearItemType, &ChatItemEntity::SetItemType, item.item_type);
  oet::SetOrClear(entity, &ChatItemEntity::ClearItemId, &ChatItemEntity::SetItemId, item.item_id);
  oet::SetOrClear(entity, &ChatItemEntity::ClearConversationId, &ChatItemEntity::SetConversationId,
                  item.conversation_id);
  oet::SetOrClear(entity, &ChatItemEntity::ClearFormat, &ChatItemEntity::SetFormat, item.format);
  oet::SetOrClear(entity, &ChatItemEntity::ClearDetail, &ChatItemEntity::SetDetail, item.detail);
  return entity;
}

oet::ContextList ChatContext(const oet::EventDraft& event, const PTTrackingInfo_s& tracking,
                             const ChatInteractInfo_s& info) {
  oet::ContextList list(8 + info.items.size());
  list.Add(oet::BuildChatTrackingInfoEntity(event.telemetry(), tracking));
  list.Add(event.Create<ChatMarkerEntity121>());
  list.Add(event.Create<ChatMarkerEntity128>());
  if (info.has_conversation != 0) list.Add(BuildConversation(event, info.conversation));
  if (info.message.sequence != kChatNoMessage) list.Add(BuildMessage(event, info.message));
  if (CarriesCompose(info.action_type)) list.Add(BuildCompose(event, info.compose));
  if (CarriesFiles(info.action_type)) list.Add(BuildFiles(event, info.files));
  if (info.entry.entry_kind != kChatNoEntry) list.Add(BuildEntry(event, info.entry));
  for (const ChatItemInfo_s& item : info.items)
    list.Add(BuildItem(event, item));
  return list;
}

void FillChatBody(ChatBodyEntity& body, const ChatInteractInfo_s& info) {
  body.SetValueE(info.value_e);
  body.SetActionType(info.action_type);
  body.SetValueA(info.value_a);
  body.SetValueD(info.value_d);
  body.SetValueB(info.value_b);
  body.SetText3(oet::ToUtf8(info.text3));
  body.SetValueF(info.value_f);
  body.SetValueC(info.value_c);
  oet::SetOrClear(&body, &ChatBodyEntity::ClearText1, &ChatBodyEntity::SetText1, info.text1);
  oet::SetOrClear(&body, &ChatBodyEntity::ClearText2, &ChatBodyEntity::SetText2, info.text2);
  if (info.number == 0) {
    body.ClearNumber();
  } else {
    body.SetNumber(info.number);
  }
}

}  // namespace

int TrackingPTChatEvent(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info) {
  return oet::Guarded([&] {
    if (!g_chat_limits.Admit(info.action_type)) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    event->AttachContextAlways(ChatContext(*event, tracking, info));
    if (auto* body = event->Create<ChatBodyEntity>()) {
      FillChatBody(*body, info);
      event->AttachBody(body);
    }
    return event->Submit(oet::kStandaloneCodes);
  });
}

int TrackingPTChatEventV2(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info) {
  return TrackingPTChatEvent(tracking, info);
}

}  // namespace OrboPTPAAP
