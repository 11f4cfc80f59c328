// Team-chat interactions of the main window.
#pragma once

#include <cstdint>
#include <vector>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// The parts of a chat interaction below are optional: each becomes one context entity of the event
// when its marker says it is there (a default-constructed part is absent, except the compose part,
// whose presence the action type decides). Wide texts go out as UTF-8; a text of an optional part
// clears its field when empty (the compose source is always set); flags go out as bools (non-zero is
// true); numbers go out unchanged.

// The conversation the action happened in: entity 115 (conversation_id, conversation_type,
// member_count, is_external), sent only when ChatInteractInfo_s::has_conversation is non-zero.
struct ChatConversationInfo_s {
  Kst::CStringT<wchar_t> conversation_id;
  int32_t conversation_type = 0;  // the chat module's kind of conversation (one-to-one, group, channel)
  int32_t member_count = 0;
  int32_t is_external = 0;  // non-zero: members from outside the account's organisation take part
};

// The `sequence` of a message that is not there: every bit set.
inline constexpr uint64_t kChatNoMessage = ~uint64_t{0};

// The message acted on: entity 126 (message_id, message_type, text_length, attachment_count,
// sequence), sent unless `sequence` is kChatNoMessage (the default). A sequence of 0 is a message.
struct ChatMessageInfo_s {
  Kst::CStringT<wchar_t> message_id;
  int32_t message_type = 0;  // the chat module's kind of message (text, file, system, ...)
  int32_t text_length = 0;   // characters of the message's text
  int32_t attachment_count = 0;
  uint64_t sequence = kChatNoMessage;  // the server's sequence number of the message
};

// What a composed message holds: entity 127, sent for the action types 10, 11, 12, 19, 21, 22 and
// 28 (the actions that send or change a message) and no others. Its operation 1 carries the compose
// source (always set); operations 2 to 31 carry the thirty flags, one bool each, in declaration order
// (has_bold on 2 ... is_encrypted on 31).
struct ChatComposeInfo_s {
  Kst::CStringT<wchar_t> compose_source;  // where it was written: the chat module's name for the box
  int32_t has_bold = 0;
  int32_t has_italic = 0;
  int32_t has_underline = 0;
  int32_t has_strikethrough = 0;
  int32_t has_font_size = 0;
  int32_t has_font_color = 0;
  int32_t has_highlight = 0;
  int32_t has_bulleted_list = 0;
  int32_t has_numbered_list = 0;
  int32_t has_quote = 0;
  int32_t has_code_block = 0;
  int32_t has_inline_code = 0;
  int32_t has_link = 0;
  int32_t has_mention = 0;
  int32_t has_mention_all = 0;
  int32_t has_channel_mention = 0;
  int32_t has_emoji = 0;
  int32_t has_sticker = 0;
  int32_t has_gif = 0;
  int32_t has_image = 0;
  int32_t has_file = 0;
  int32_t has_screenshot = 0;
  int32_t has_voice_note = 0;
  int32_t has_video_message = 0;
  int32_t is_reply = 0;
  int32_t is_thread_reply = 0;
  int32_t is_forwarded = 0;
  int32_t is_edited = 0;
  int32_t is_scheduled = 0;
  int32_t is_encrypted = 0;
};

// The files of a file action: entity 129 (file_extension, file_size, file_source, file_count), sent
// for the action types 145 to 153 and no others.
struct ChatFileInfo_s {
  Kst::CStringT<wchar_t> file_extension;  // of the first file, without the dot
  int64_t file_size = 0;                  // bytes, all files together
  int32_t file_source = 0;                // the chat module's kind of source (local disk, cloud, ...)
  int32_t file_count = 0;
};

// The `entry_kind` of an action without entry information.
inline constexpr int32_t kChatNoEntry = 4;

// How the user reached the conversation: entity 112 (entry_kind, entry_detail, entry_position), sent
// unless `entry_kind` is kChatNoEntry (the default). Every other kind is sent, 0 included.
struct ChatEntryInfo_s {
  int32_t entry_kind = kChatNoEntry;  // the chat module's kind of entry (notification, search, ...)
  Kst::CStringT<wchar_t> entry_detail;
  int32_t entry_position = 0;  // position of the conversation in the list it was picked from
};

// One item the action applied to (a message of a selection, a file shared, a contact added): one
// entity 125 per item, in list order, with the five texts.
struct ChatItemInfo_s {
  Kst::CStringT<wchar_t> item_type;
  Kst::CStringT<wchar_t> item_id;
  Kst::CStringT<wchar_t> conversation_id;
  Kst::CStringT<wchar_t> format;
  Kst::CStringT<wchar_t> detail;
};

// One interaction in team chat. Body entity 118: action_type and the values a to f unchanged; text1
// and text2 cleared when empty, text3 always set; number cleared when 0.
struct ChatInteractInfo_s {
  int32_t action_type = 0;  // the chat action; decides the compose (127) and file (129) parts
  int32_t value_a = 0;
  int32_t value_b = 0;
  int32_t value_c = 0;
  int32_t value_d = 0;
  int32_t value_e = 0;
  int32_t value_f = 0;
  Kst::CStringT<wchar_t> text1;
  Kst::CStringT<wchar_t> text2;
  Kst::CStringT<wchar_t> text3;
  int64_t number = 0;
  ChatConversationInfo_s conversation;
  int32_t has_conversation = 0;  // non-zero: `conversation` is sent
  ChatMessageInfo_s message;
  ChatComposeInfo_s compose;
  ChatFileInfo_s files;
  ChatEntryInfo_s entry;
  std::vector<ChatItemInfo_s> items;
};

// A chat interaction: context entities 130 (the tracking values), 121, 128, then the optional parts in
// the order 115, 126, 127, 129, 112, 125 (one per item); body 118. The list is attached even when the
// host gives none of its entities. Needs the web service and the telemetry service.
//
// The action types 174 and 185 are sent at most once a second each: a call of one of them within 1000
// ms of its last accepted call (by the host's clock) returns 0 at once, before any service is looked
// up. An accepted call counts even when it then fails for want of a service.
OET_API int TrackingPTChatEvent(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info);

// Forwards to TrackingPTChatEvent and returns its result.
OET_API int TrackingPTChatEventV2(const PTTrackingInfo_s& tracking, const ChatInteractInfo_s& info);

}  // namespace OrboPTPAAP
