// The chat interaction event: the chat tracking-info entity (130), the two chat markers (121, 128),
// the optional parts of the chat record as their markers and the action type decide (115, 126, 127,
// 129, 112, one 125 per item), and the chat body (118). Two action types are rate-limited.
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
  entity->SetComposeSource(oet::ToUtf8(part.compose_source));  // set even when empty
  // The thirty flags in the part's order (operations 2 to 31), as bools.
  entity->SetBold(part.has_bold != 0);
  entity->SetItalic(part.has_italic != 0);
  entity->SetUnderline(part.has_underline != 0);
  entity->SetStrikethrough(part.has_strikethrough != 0);
  entity->SetFontSize(part.has_font_size != 0);
  entity->SetFontColor(part.has_font_color != 0);
  entity->SetHighlight(part.has_highlight != 0);
  entity->SetBulletedList(part.has_bulleted_list != 0);
  entity->SetNumberedList(part.has_numbered_list != 0);
  entity->SetQuote(part.has_quote != 0);
  entity->SetCodeBlock(part.has_code_block != 0);
  entity->SetInlineCode(part.has_inline_code != 0);
  entity->SetLink(part.has_link != 0);
  entity->SetMention(part.has_mention != 0);
  entity->SetMentionAll(part.has_mention_all != 0);
  entity->SetChannelMention(part.has_channel_mention != 0);
  entity->SetEmoji(part.has_emoji != 0);
  entity->SetSticker(part.has_sticker != 0);
  entity->SetGif(part.has_gif != 0);
  entity->SetImage(part.has_image != 0);
  entity->SetFile(part.has_file != 0);
  entity->SetScreenshot(part.has_screenshot != 0);
  entity->SetVoiceNote(part.has_voice_note != 0);
  entity->SetVideoMessage(part.has_video_message != 0);
  entity->SetReply(part.is_reply != 0);
  entity->SetThreadReply(part.is_thread_reply != 0);
  entity->SetForwarded(part.is_forwarded != 0);
  entity->SetEdited(part.is_edited != 0);
  entity->SetScheduled(part.is_scheduled != 0);
  entity->SetEncrypted(part.is_encrypted != 0);
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
  oet::SetOrClearValue(&body, &ChatBodyEntity::ClearNumber, &ChatBodyEntity::SetNumber, info.number);
}

}  // namespace

int TrackingPTChatEvent(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info) {
  return oet::Guarded([&] {
    if (!g_chat_limits.Admit(info.action_type)) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    event.AttachContextAlways(ChatContext(event, tracking, info));
    if (auto* body = event.Create<ChatBodyEntity>()) {
      FillChatBody(*body, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

int TrackingPTChatEventV2(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info) {
  return TrackingPTChatEvent(tracking, info);
}

}  // namespace OrboPTPAAP
