#include <string>

#include "bench/reference.h"
#include "core/web_domains.h"
#include "oKstPlatform/kst_convert.h"

namespace oet_bench {
namespace {

using namespace OrboPTPAAP;

// ---- Inputs, as the client sends them in a working day (see examples/sample-session.jsonl).

const PTTrackingInfo_s& Tracking() {
  static const PTTrackingInfo_s tracking{"sess-5c1e", "main-window"};
  return tracking;
}

const PTInteractInfo_s& ChatToHome() {
  static const PTInteractInfo_s info{1, 2};
  return info;
}

// A returned missed call: outbound, three minutes, with its call detail.
const PhoneInteractInfo_s& OutboundCall() {
  static const PhoneInteractInfo_s info = [] {
    PhoneInteractInfo_s i;
    i.value_a = 2;
    i.value_b = 1;
    i.value_d = 185;
    i.value_e = 1;
    i.body_text1 = "call_end";
    i.body_text2 = "dialpad";
    i.call_detail = 1;
    i.call_text1 = L"c-5521";
    i.call_text2 = L"+1 555 0100";
    i.direction = 2;
    i.time1 = Kst::Time::FromUnixMilliseconds(1773044200042);  // 2026-03-09T08:16:40.042Z
    i.time2 = Kst::Time::FromUnixMilliseconds(1773044385310);  // 2026-03-09T08:19:45.310Z
    i.context_text1 = L"phone_tab";
    i.context_text2 = L"history";
    i.context_number = 1;
    i.context_text4 = L"pbx-eu";
    return i;
  }();
  return info;
}

const PTTrackingInfo_s& ChatTracking() {
  static const PTTrackingInfo_s tracking{"sess-5c1e", "chat"};
  return tracking;
}

// A reply sent in the team channel (action 11): the conversation, the message, what was composed (bold
// text and a mention) and the two items it shares (a file and a link).
const ChatInteractInfo_s& ChannelReply() {
  static const ChatInteractInfo_s info = [] {
    ChatInteractInfo_s i;
    i.action_type = 11;
    i.value_a = 1;
    i.text1 = L"channel";
    i.number = 1;
    i.has_conversation = 1;
    i.conversation.conversation_id = L"ch-team-budget";
    i.conversation.conversation_type = 3;
    i.conversation.member_count = 14;
    i.message.message_id = L"m-77c1";
    i.message.message_type = 1;
    i.message.text_length = 64;
    i.message.sequence = 90211;
    i.compose.compose_source = L"channel_box";
    i.compose.has_bold = 1;
    i.compose.has_mention = 1;
    i.items = {{L"file", L"f-1029", L"ch-team-budget", L"xlsx", L"budget.xlsx"},
               {L"link", L"l-3", L"ch-team-budget", L"url", L""}};
    return i;
  }();
  return info;
}

// Live captions turned on in the afternoon review: a tier-3 action of kind 513 with its option.
const OrboPAAP::MeetingTrackingInfo_s& AfternoonReview() {
  static const OrboPAAP::MeetingTrackingInfo_s tracking = [] {
    OrboPAAP::MeetingTrackingInfo_s t;
    t.meeting_id = "mtg-90551201";
    t.meeting_number = 90551201;
    t.conference_id = "conf-2b91e4";
    t.participant_id = "part-7";
    t.meeting_type = 2;
    t.client_session_id = "cs-5c1e";
    t.meeting_role = 1;
    t.meeting_text = "Afternoon review";
    t.body_number = 6;
    t.start_time = Kst::Time::FromUnixMilliseconds(1772877600000);  // 2026-03-07T10:00:00.000Z
    return t;
  }();
  return tracking;
}

const OrboPAAP::MeetingInteractInfo_s& LiveCaptionsOn() {
  static const OrboPAAP::MeetingInteractInfo_s info = [] {
    OrboPAAP::MeetingInteractInfo_s i;
    i.first_code = 4;
    i.second_code = 1;
    i.third_code = 2;
    i.interaction_kind = 513;
    i.label = L"Live captions";
    i.detail = "more-menu";
    i.option_flag = 1;
    i.option_value = 1;
    i.tier = 3;
    i.kind_text = "captions";
    i.kind_value = 1;
    return i;
  }();
  return info;
}

// The settings page's kept text for a setting changed during the stand-up.
const Kst::CStringT<char>& NightModeText() {
  static const Kst::CStringT<char> text("3,12,1,0,7,night");
  return text;
}

const OrboSettingPAAP::SettingTrackingInfo_s& StandUp() {
  static const OrboSettingPAAP::SettingTrackingInfo_s tracking{"mtg-84213377", 84213377};
  return tracking;
}

const OApmMacLaunchInfo_s& ColdLaunch() {
  static const OApmMacLaunchInfo_s info{"cold:1840"};
  return info;
}

}  // namespace

const std::vector<ReferenceRow>& ReferenceRows() {
  // The account has a stored domain label.
  static const WebAnswers stored_label{"acme", "https://acme" + Kst::WideToUtf8(oet::kWebDomainSuffixes[1])};
  static const std::vector<ReferenceRow> rows = {
      {"tab_switch", "tab switch (chat to home)", "OrboPTPAAP::TrackingPTInteractEvent",
       [] { return TrackingPTInteractEvent(Tracking(), ChatToHome()); },
       [] { return oet_floor::TabSwitch(Tracking(), ChatToHome()); }, stored_label},
      {"phone", "phone call with call detail", "OrboPTPAAP::TrackingPhoneInteractEvent",
       [] { return TrackingPhoneInteractEvent(Tracking(), OutboundCall()); },
       [] { return oet_floor::Phone(Tracking(), OutboundCall()); }, stored_label},
      {"chat", "chat reply in a channel, two items", "OrboPTPAAP::TrackingPTChatEvent",
       [] { return TrackingPTChatEvent(ChatTracking(), ChannelReply()); },
       [] { return oet_floor::Chat(ChatTracking(), ChannelReply()); }, stored_label},
      {"in_meeting", "in-meeting action (live captions, tier 3)", "OrboPAAP::TrackingMeetingInteractEvent",
       [] { return OrboPAAP::TrackingMeetingInteractEvent(AfternoonReview(), LiveCaptionsOn()); },
       [] { return oet_floor::InMeeting(AfternoonReview(), LiveCaptionsOn()); }, stored_label},
      {"setting", "settings text reported", "OrboSettingPAAP::TrackingSettingInteractEvent",
       [] { return OrboSettingPAAP::TrackingSettingInteractEvent(NightModeText(), StandUp()); },
       [] { return oet_floor::Setting(NightModeText(), StandUp()); }, stored_label},
      {"mac_launch", "Mac launch report", "OrboPTPAAP::TrackingApmMacLaunchEvent",
       [] { return TrackingApmMacLaunchEvent(ColdLaunch()); },
       [] { return oet_floor::MacLaunch(ColdLaunch()); }, stored_label},
  };
  return rows;
}

const ReferenceRow* FindReferenceRow(const std::string& name) {
  for (const ReferenceRow& row : ReferenceRows()) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

}  // namespace oet_bench
