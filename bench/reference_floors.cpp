// The tight floors of the reference rows (bench/reference.h): each export written by hand, self-contained
// (its own lookups, client-context facts, words and timestamp text; nothing of the library), making the
// export's host calls and conversions in the same order with the same values and nothing else.
//
// What a careful engineer does by hand and the floors therefore do: the services are looked up afresh
// on every call (the host contract); fixed words are kept as strings made once, so that setting one
// copies nothing; wide texts convert on the stack; the client facts are kept as UTF-8 once the web
// service has filled them; lists are built once with their final size; texts too long for a string's
// own small buffer (the call times, the meeting's start time) are written into one string per thread
// whose buffer every event reuses.
#include "bench/reference_floor_support.h"

namespace oet_floor {

using namespace orbo_entity;
using OrboPTPAAP::PTTrackingInfo_s;

void ResetClientContextForTesting() {
  ClientFacts::Get().Reset();
}

int TabSwitch(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info) {
  static const std::string kSwitchTab = "switch_tab";
  Event event;
  try {
    if (!event.Open()) return 0;
    ClientEntity* client = BuildClient(event);
    auto* tracking_info = event.Create<TrackingInfoEntity>();
    if (tracking_info != nullptr) {
      std::string cut;
      tracking_info->SetPrimaryValue(TextOf(tracking.primary_value, cut));
      tracking_info->SetSecondaryValue(TextOf(tracking.secondary_value, cut));
    }
    event.Attach({client, tracking_info});
    if (auto* body = event.Create<TabSwitchEntity>()) {
      body->Prepare();
      body->SetAction(kSwitchTab);
      std::unique_ptr<Facts> scratch;  // only for an unfilled context
      body->SetWebServiceValue(RefreshedFacts(scratch).web_service_value());
      body->SetFirstTab(WordOf(kTabWords, info.first_tab));
      body->SetSecondTab(WordOf(kTabWords, info.second_tab));
      event.AttachBody(body);
    }
    return event.Submit(3, 1);
  } catch (...) {
    return event.Fail();
  }
}

int Phone(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PhoneInteractInfo_s& info) {
  static const std::string kClient = "client";
  Event event;
  try {
    if (!event.Open()) return 0;
    std::string cut;
    auto* first = event.Create<PhoneContextEntity354>();
    auto* detail = event.Create<CallDetailEntity>();
    if (detail != nullptr) {
      detail->SetCallText2(Utf8(info.call_text2));
      detail->SetCallText1(Utf8(info.call_text1));
      detail->SetDirection(WordOf(kCallDirections, info.direction));
      std::string& time = LongText();
      info.time1.is_null() ? detail->ClearTime1() : (UtcTimestamp(info.time1, time), detail->SetTime1(time));
      info.time2.is_null() ? detail->ClearTime2() : (UtcTimestamp(info.time2, time), detail->SetTime2(time));
    }
    auto* context = event.Create<PhoneContextEntity>();
    if (context != nullptr) {
      context->SetTrackingString2(TextOf(tracking.secondary_value, cut));
      context->SetContextText3(Utf8(info.context_text3));
      context->SetContextNumber(info.context_number);
      context->SetContextText1(Utf8(info.context_text1));
      context->SetContextText4(Utf8(info.context_text4));
      context->SetContextText2(Utf8(info.context_text2));
      context->SetTrackingString1(TextOf(tracking.primary_value, cut));
    }
    auto* product = event.Create<ProductEntity>();
    if (product != nullptr) {
      product->SetClientLabel(kClient);
      Kst::CStringT<char> version;
      Kst::GetCurrentVersion(version);
      product->SetClientVersion(TextOf(version, cut));
      product->SetWebDomain(DomainLabel(*event.web_service));
    }
    // Entity 354 keeps its place even when null; the others are left out when the host gives none.
    std::vector<EntityBase*> list;
    list.reserve(4);
    list.push_back(first);
    if (context != nullptr) list.push_back(context);
    if (info.call_detail != 0 && detail != nullptr) list.push_back(detail);
    if (product != nullptr) list.push_back(product);
    event.Attach(std::move(list));
    if (auto* body = event.Create<PhoneBodyEntity>()) {
      body->SetFirstMarker(1);
      body->SetSecondMarker(1);
      body->SetValueC(info.value_c);
      body->SetValueA(info.value_a);
      body->SetValueD(info.value_d);
      body->SetValueE(info.value_e);
      body->SetValueF(info.value_f);
      if (!info.body_text2.empty()) body->SetText2(info.body_text2);
      if (!info.body_text3.empty()) body->SetText3(info.body_text3);
      body->SetValueB(info.value_b);
      body->SetText1(info.body_text1);
      event.AttachBody(body);
    }
    return event.Submit(3, 1);
  } catch (...) {
    return event.Fail();
  }
}

int Chat(const PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatInteractInfo_s& info) {
  Event event;
  try {
    if (info.action_type == 174 && !g_chat_174.Admit()) return 0;
    if (info.action_type == 185 && !g_chat_185.Admit()) return 0;
    if (!event.Open()) return 0;
    std::string cut;
    std::vector<EntityBase*> list;
    list.reserve(8 + info.items.size());
    const auto add = [&list](EntityBase* entity) {
      if (entity != nullptr) list.push_back(entity);
    };
    if (auto* e = event.Create<ChatTrackingInfoEntity>()) {
      TrackingValues& values = *e;
      values.SetPrimaryValue(TextOf(tracking.primary_value, cut));
      values.SetSecondaryValue(TextOf(tracking.secondary_value, cut));
      list.push_back(e);
    }
    add(event.Create<ChatMarkerEntity121>());
    add(event.Create<ChatMarkerEntity128>());
    if (info.has_conversation != 0) {
      if (auto* e = event.Create<ChatConversationEntity>()) {
        using E = ChatConversationEntity;
        const auto& part = info.conversation;
        SetOrClear(*e, &E::ClearConversationId, &E::SetConversationId, part.conversation_id);
        e->SetConversationType(part.conversation_type);
        e->SetMemberCount(part.member_count);
        e->SetExternal(part.is_external != 0);
        list.push_back(e);
      }
    }
    if (info.message.sequence != OrboPTPAAP::kChatNoMessage) {
      if (auto* e = event.Create<ChatMessageEntity>()) {
        const auto& part = info.message;
        SetOrClear(*e, &ChatMessageEntity::ClearMessageId, &ChatMessageEntity::SetMessageId, part.message_id);
        e->SetMessageType(part.message_type);
        e->SetTextLength(part.text_length);
        e->SetAttachmentCount(part.attachment_count);
        e->SetSequence(part.sequence);
        list.push_back(e);
      }
    }
    const int32_t action = info.action_type;
    if (action == 10 || action == 11 || action == 12 || action == 19 || action == 21 || action == 22 ||
        action == 28) {
      if (auto* e = event.Create<ChatComposeEntity>()) {
        const auto& p = info.compose;
        e->SetComposeSource(Utf8(p.compose_source));
        e->SetBold(p.has_bold != 0);
        e->SetItalic(p.has_italic != 0);
        e->SetUnderline(p.has_underline != 0);
        e->SetStrikethrough(p.has_strikethrough != 0);
        e->SetFontSize(p.has_font_size != 0);
        e->SetFontColor(p.has_font_color != 0);
        e->SetHighlight(p.has_highlight != 0);
        e->SetBulletedList(p.has_bulleted_list != 0);
        e->SetNumberedList(p.has_numbered_list != 0);
        e->SetQuote(p.has_quote != 0);
        e->SetCodeBlock(p.has_code_block != 0);
        e->SetInlineCode(p.has_inline_code != 0);
        e->SetLink(p.has_link != 0);
        e->SetMention(p.has_mention != 0);
        e->SetMentionAll(p.has_mention_all != 0);
        e->SetChannelMention(p.has_channel_mention != 0);
        e->SetEmoji(p.has_emoji != 0);
        e->SetSticker(p.has_sticker != 0);
        e->SetGif(p.has_gif != 0);
        e->SetImage(p.has_image != 0);
        e->SetFile(p.has_file != 0);
        e->SetScreenshot(p.has_screenshot != 0);
        e->SetVoiceNote(p.has_voice_note != 0);
        e->SetVideoMessage(p.has_video_message != 0);
        e->SetReply(p.is_reply != 0);
        e->SetThreadReply(p.is_thread_reply != 0);
        e->SetForwarded(p.is_forwarded != 0);
        e->SetEdited(p.is_edited != 0);
        e->SetScheduled(p.is_scheduled != 0);
        e->SetEncrypted(p.is_encrypted != 0);
        list.push_back(e);
      }
    }
    if (action >= 145 && action <= 153) {
      if (auto* e = event.Create<ChatFileEntity>()) {
        SetOrClear(*e, &ChatFileEntity::ClearFileExtension, &ChatFileEntity::SetFileExtension,
                   info.files.file_extension);
        e->SetFileSize(info.files.file_size);
        e->SetFileSource(info.files.file_source);
        e->SetFileCount(info.files.file_count);
        list.push_back(e);
      }
    }
    if (info.entry.entry_kind != OrboPTPAAP::kChatNoEntry) {
      if (auto* e = event.Create<ChatEntryEntity>()) {
        e->SetEntryKind(info.entry.entry_kind);
        SetOrClear(*e, &ChatEntryEntity::ClearEntryDetail, &ChatEntryEntity::SetEntryDetail,
                   info.entry.entry_detail);
        e->SetEntryPosition(info.entry.entry_position);
        list.push_back(e);
      }
    }
    for (const OrboPTPAAP::ChatItemInfo_s& item : info.items) {
      if (auto* e = event.Create<ChatItemEntity>()) {
        using E = ChatItemEntity;
        SetOrClear(*e, &E::ClearItemType, &E::SetItemType, item.item_type);
        SetOrClear(*e, &E::ClearItemId, &E::SetItemId, item.item_id);
        SetOrClear(*e, &E::ClearConversationId, &E::SetConversationId, item.conversation_id);
        SetOrClear(*e, &E::ClearFormat, &E::SetFormat, item.format);
        SetOrClear(*e, &E::ClearDetail, &E::SetDetail, item.detail);
        list.push_back(e);
      }
    }
    event.Attach(std::move(list));
    if (auto* body = event.Create<ChatBodyEntity>()) {
      body->SetValueE(info.value_e);
      body->SetActionType(info.action_type);
      body->SetValueA(info.value_a);
      body->SetValueD(info.value_d);
      body->SetValueB(info.value_b);
      body->SetText3(Utf8(info.text3));
      body->SetValueF(info.value_f);
      body->SetValueC(info.value_c);
      SetOrClear(*body, &ChatBodyEntity::ClearText1, &ChatBodyEntity::SetText1, info.text1);
      SetOrClear(*body, &ChatBodyEntity::ClearText2, &ChatBodyEntity::SetText2, info.text2);
      info.number == 0 ? body->ClearNumber() : body->SetNumber(info.number);
      event.AttachBody(body);
    }
    return event.Submit(3, 1);
  } catch (...) {
    return event.Fail();
  }
}

int InMeeting(const OrboPAAP::MeetingTrackingInfo_s& tracking, const OrboPAAP::MeetingInteractInfo_s& info) {
  Event event;
  try {
    if (!event.Open()) return 0;
    if (info.first_code == 0 || info.second_code == 0 || info.third_code == 0 || info.interaction_kind == 0) {
      return event.Destroy();
    }
    {
      std::unique_ptr<Facts> scratch;  // only for an unfilled context
      if (RefreshedFacts(scratch).wide.os_name.IsEmpty()) return event.Destroy();
    }
    std::string cut;
    std::vector<EntityBase*> list;
    list.reserve(14);
    const auto add = [&list](EntityBase* entity) {
      if (entity != nullptr) list.push_back(entity);
    };
    add(event.Create<TrackingInfoEntity>());
    add(BuildClient(event));
    add(event.Create<MeetingContextEntity297>());
    if (auto* e = event.Create<MeetingParticipantEntity>()) {
      tracking.conference_id.IsEmpty() ? e->ClearConferenceId()
                                       : e->SetConferenceId(TextOf(tracking.conference_id, cut));
      tracking.participant_id.IsEmpty() ? e->ClearParticipantId()
                                        : e->SetParticipantId(TextOf(tracking.participant_id, cut));
      e->SetDomainLabel(DomainLabel(*event.web_service));
      list.push_back(e);
    }
    if (auto* e = event.Create<MeetingSessionEntity>()) {
      e->SetMeetingType(tracking.meeting_type);
      tracking.client_session_id.IsEmpty() ? e->ClearClientSessionId()
                                           : e->SetClientSessionId(TextOf(tracking.client_session_id, cut));
      list.push_back(e);
    }
    if (info.reference_a != 0 && info.reference_b != 0 && info.reference_c != 0 &&
        !info.reference_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingReferenceEntity>()) {
        e->SetReferenceText(TextOf(info.reference_text, cut));
        e->SetReferenceA(info.reference_a);
        e->SetReferenceB(info.reference_b);
        e->SetReferenceC(info.reference_c);
        list.push_back(e);
      }
    }
    const bool has_meeting_text = !tracking.meeting_text.IsEmpty();
    if (has_meeting_text) {
      if (auto* e = event.Create<MeetingTextEntity>()) {
        e->SetMeetingText(TextOf(tracking.meeting_text, cut));
        e->SetInteractionKind(info.interaction_kind);
        list.push_back(e);
      }
    }
    if (tracking.share_number != 0 && !tracking.share_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingShareEntity>()) {
        e->SetShareText(TextOf(tracking.share_text, cut));
        e->SetShareNumber(tracking.share_number);
        list.push_back(e);
      }
    }
    if (info.pair_gate_a != 0 && info.pair_gate_b != 0) {
      if (auto* e = event.Create<MeetingPairEntity>()) {
        e->SetPairA(info.pair_gate_a);
        e->SetPairB(info.pair_gate_b);
        list.push_back(e);
      }
    }
    if (info.extra_gate != 0) {
      if (auto* e = event.Create<MeetingExtraEntity>()) {
        e->SetExtraValue(info.extra_gate);
        e->SetMeetingType(tracking.meeting_type);
        list.push_back(e);
      }
    }
    if (!info.item_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingItemEntity>()) {
        e->SetItemText(TextOf(info.item_text, cut));
        e->SetItemIndex(info.item_index);
        list.push_back(e);
      }
    }
    if (info.option_value != 0 && has_meeting_text) {
      if (auto* e = event.Create<MeetingOptionEntity>()) {
        e->SetOptionFlag(info.option_flag != 0);
        e->SetOptionValue(info.option_value);
        list.push_back(e);
      }
    }
    const int32_t kind = info.interaction_kind;
    MeetingKindFields* kind_fields = nullptr;
    EntityBase* kind_entity = nullptr;
    if (kind == 429 || kind == 513) {
      auto* e = event.Create<MeetingKindEntity302>();
      kind_fields = e;
      kind_entity = e;
    } else if ((kind >= 494 && kind <= 502) || kind == 505 || kind == 508 || kind == 510 || kind == 511 ||
               (kind >= 514 && kind <= 516) || (kind >= 534 && kind <= 536)) {
      auto* e = event.Create<MeetingKindEntity300>();
      kind_fields = e;
      kind_entity = e;
    } else if (kind == 507 || (kind >= 519 && kind <= 533) || kind == 661) {
      auto* e = event.Create<MeetingKindEntity301>();
      kind_fields = e;
      kind_entity = e;
    }
    if (kind_fields != nullptr) {
      info.kind_text.IsEmpty() ? kind_fields->ClearKindText()
                               : kind_fields->SetKindText(TextOf(info.kind_text, cut));
      kind_fields->SetKindValue(info.kind_value);
      list.push_back(kind_entity);
    }
    if (kind == 569 && info.kind_569_value != 0) {
      if (auto* e = event.Create<MeetingKind569Entity>()) {
        e->SetKind569Value(info.kind_569_value);
        list.push_back(e);
      }
    }
    const bool mark = info.tier == 3;
    for (EntityBase* entity : list) {
      AttributeHolder* holder = entity->GetAttributeHolder(-3);
      if (holder != nullptr && mark) holder->SetValue(3);
    }
    event.Attach(std::move(list));

    if (auto* body = event.Create<MeetingBodyEntity>()) {
      AttributeHolder* holder = body->GetAttributeHolder(-3);
      if (holder != nullptr && mark) holder->SetValue(3);
      body->SetMode(info.mode != 0 ? info.mode : tracking.meeting_role == 3 ? 2 : 1);
      body->SetMeetingValue1(info.first_code);
      body->SetMeetingValue2(info.second_code);
      body->SetMeetingValue3(info.third_code);
      body->SetMeetingValue4(info.fourth_code);
      body->SetMeetingValue5(info.interaction_kind);
      body->SetMeetingValue6(info.sixth_code);
      body->SetMeetingValue7(info.seventh_code);
      body->SetMeetingDetail(info.detail);
      if (!info.label.IsEmpty()) {
        body->SetMeetingText(Utf8(info.label));
      }
      body->SetMeetingFlag(info.body_flag != 0);
      if (tracking.body_number != 0) body->SetMeetingNumber(tracking.body_number);
      if (tracking.start_time.is_null()) {
        body->ClearStartTime();
      } else {
        std::string& time = LongText();
        UtcTimestamp(tracking.start_time, time);
        body->SetStartTime(time);
      }
      event.AttachBody(body);
    }
    return event.Submit(4, 1);
  } catch (...) {
    return event.Fail();
  }
}

int Setting(const Kst::CStringT<char>& text, const OrboSettingPAAP::SettingTrackingInfo_s& tracking) {
  Event event;
  try {
    if (text.IsEmpty()) return 0;
    if (!event.Open()) return 0;
    // The text as wide text (on the stack when short), cut at each "," into at most six pieces, each
    // trimmed of blanks: five codes read as the host reads unsigned decimal numbers, then the text.
    int32_t codes[5] = {};
    std::string piece_text;
    const size_t bytes = std::strlen(text.c_str());
    if (bytes > 0 && bytes <= (INT_MAX - 1) / 4) {
      constexpr int kStackUnits = 64;
      wchar_t on_stack[kStackUnits + 1];
      std::wstring on_heap;
      wchar_t* wide = on_stack;
      if (bytes > kStackUnits) {
        on_heap.resize(bytes);
        wide = &on_heap[0];
      }
      const int length = static_cast<int>(bytes);
      const int units = kst_str_convert(KST_CP_UTF8, text.c_str(), length, wide, length + 1);
      const auto blank = [](wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); };
      int start = 0;
      for (int piece = 0; piece < 6 && start < units; ++piece) {
        const wchar_t* comma = std::wmemchr(wide + start, L',', static_cast<size_t>(units - start));
        const int end = comma != nullptr ? static_cast<int>(comma - wide) : units;
        int first = start;
        int last = end;
        while (last > first && blank(wide[last - 1]))
          --last;
        while (first < last && blank(wide[first]))
          ++first;
        if (piece < 5) {
          uint32_t value = 0;
          Kst::StringToUInt(Kst::CStringT<wchar_t>(wide + first, last - first), &value, 10);
          codes[piece] = static_cast<int32_t>(value);
        } else {
          AssignUtf8(piece_text, wide + first, last - first, last - first);
        }
        start = comma != nullptr ? end + 1 : units;
      }
    }
    if (codes[0] == 0 || codes[1] == 0 || codes[2] == 0 || codes[4] == 0) return event.Destroy();

    std::vector<EntityBase*> list;
    list.reserve(4);
    if (auto* e = event.Create<BasicDeviceContextEntity>()) list.push_back(e);
    if (auto* e = event.Create<BasicContextEntity170>()) list.push_back(e);
    if (!tracking.tracking_text.IsEmpty() && tracking.tracking_number != 0) {
      if (auto* identity = event.Create<MeetingIdentityEntity>()) {
        MeetingIdentityFields& fields = *identity;
        std::string cut;
        fields.SetIdentityText(TextOf(tracking.tracking_text, cut));
        fields.SetIdentityNumber(tracking.tracking_number);
        list.push_back(identity);
      }
    }
    if (auto* e = event.Create<BasicContextEntity169>()) list.push_back(e);
    event.Attach(std::move(list));

    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetValueF(3);
      body->SetValueA(codes[0]);
      body->SetValueE(codes[1]);
      body->SetValueC(codes[2]);
      body->SetValueB(codes[3]);
      body->SetValueD(codes[4]);
      if (!piece_text.empty()) body->SetTextA(piece_text);
      event.AttachBody(body);
    }
    return event.Submit(3, 1);
  } catch (...) {
    return event.Fail();
  }
}

int MacLaunch(const OrboPTPAAP::OApmMacLaunchInfo_s& info) {
  Event event;
  try {
    if (!event.OpenTelemetry()) return 0;
    auto* device = event.Create<ApmDeviceEntity>();
    if (device == nullptr) return event.Destroy();
    {
      std::unique_ptr<Facts> scratch;  // only for an unfilled context
      const Facts& facts = RefreshedFacts(scratch);
      const ClientContext& wide = facts.wide;
      const auto& t = facts.utf8;
      DeviceInfo& fields = *device;
      fields.SetWebServiceValue(t[0]);
      fields.SetDeviceProduct(t[7]);
      fields.SetOsName(t[3]);
      fields.SetOsVersion(t[4]);
      if (!wide.cpu_name.IsEmpty()) device->SetCpuName(t[11]);
      if (!wide.gpu_model.IsEmpty()) device->SetGpuModel(t[9]);
      if (!wide.resolution.IsEmpty()) device->SetResolution(t[13]);
      if (!wide.system_manufacturer.IsEmpty()) device->SetManufacturer(t[6]);
      if (wide.total_ram_gb > 0) device->SetMemorySizeGb(wide.total_ram_gb);
    }
    auto* marker = event.Create<ApmReportMarkerEntity>();
    if (marker == nullptr) return event.Destroy();
    auto* body = event.Create<ApmMacLaunchEntity>();
    if (body == nullptr) return event.Destroy();
    std::string cut;
    if (!info.text1.IsEmpty()) body->SetText1(TextOf(info.text1, cut));
    event.Attach({device, marker, body});
    auto* header = event.Create<ApmReportHeaderEntity>();
    if (header == nullptr) return event.Destroy();
    header->SetReportCategory(1);
    header->SetReportCode(3);
    event.AttachBody(header);
    return event.Submit(3, 1);
  } catch (...) {
    return event.Fail();
  }
}

}  // namespace oet_floor
