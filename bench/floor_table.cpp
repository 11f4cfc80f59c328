#include "bench/floor_table.h"

#include "bench/floors.h"
#include "core/web_domains.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
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

// The results page of a search: two sections shown first, one further, none suggested.
const SearchInteractInfo_s& SearchResultsShown() {
  static const SearchInteractInfo_s info = [] {
    SearchInteractInfo_s i;
    i.search_action = 2;
    i.entry = 1;
    i.category = 1;
    i.context_text1 = "q-81c2";
    i.context_text2 = "budget review";
    i.chat_scope = 1;
    i.count_a = 14;
    i.count_b = 3;
    i.first_results = {{1, 2}, {3, 12}};
    i.second_results = {{4, 3}};
    i.text_d = "recent";
    i.selected_tab = 1;
    i.source = 2;
    i.sort_order = 2;
    i.file_type = 1;
    i.text_a = "budget review";
    i.text_b = "q-81c2";
    return i;
  }();
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

const OSigninInteractInfo_s& SingleSignOn() {
  static const OSigninInteractInfo_s info{3, 1, 0, 1, 2, "sso", ""};
  return info;
}

// ---- The chat, performance and meeting families, as in the sample session's working day.

// The chat tab's tracking values.
const PTTrackingInfo_s& ChatTracking() {
  static const PTTrackingInfo_s tracking{"sess-5c1e", "chat"};
  return tracking;
}

// A reply sent in the team channel (action 11): the conversation, the message and what was composed
// (bold text and a mention).
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
    return i;
  }();
  return info;
}

// Loading a channel's history took 420 ms for 50 messages ("fetch_history").
const OClientPerfMetricsInfo_s& HistoryFetch() {
  static const OClientPerfMetricsInfo_s info = [] {
    OClientPerfMetricsInfo_s i;
    i.fetch_event = MetricsFetchEvent::kHistory;
    i.text_m2 = "ch-team-budget";
    i.count_m3 = 50;
    i.value_m5 = 420;
    i.value_m8 = 1;
    i.flag_m9 = 1;
    i.body_value_b1 = 200;
    i.body_text_b2 = "ok";
    i.body_value_b3 = 420;
    return i;
  }();
  return info;
}

const OApmMacLaunchInfo_s& ColdLaunch() {
  static const OApmMacLaunchInfo_s info{"cold:1840"};
  return info;
}

// The MetricKit samples of the day before, the last without a text.
const std::vector<OApmIOSMetricKitDataInfo_s>& MetricKitSamples() {
  static const std::vector<OApmIOSMetricKitDataInfo_s> samples = {
      {1, "cpu_time_s", 412.5}, {2, "hang_time_ms", 1250}, {3, "", 0.25}};
  return samples;
}

// A look-up in the chat database under interaction id 165, the one the library limits to one a second.
const ChatDBInteractInfo_s& DatabaseSelect() {
  static const ChatDBInteractInfo_s info = [] {
    ChatDBInteractInfo_s i;
    i.field1 = L"messages";
    i.field2 = L"select";
    i.field3 = L"idx_ts";
    i.field4 = 2;
    i.field5 = 5;
    i.field14 = 14;
    i.field17 = 17;
    i.interaction_id = 165;
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

int DeviceInfoWith(int (*retrieve)(PTClientDeviceEntityStruct&), std::string* filled) {
  PTClientDeviceEntityStruct info;
  const int result = retrieve(info);
  if (filled != nullptr) {
    *filled = "web_service_value=" + info.web_service_value + " device_product=" + info.device_product +
              " os_name=" + info.os_name + " os_version=" + info.os_version;
  }
  return result;
}

// The account's web URL, on the main web domain of this build.
std::string AcmeWebUrl() {
  return "https://acme" + Kst::WideToUtf8(oet::kWebDomainSuffixes[1]);
}

}  // namespace

const std::vector<FloorRow>& FloorRows() {
  // The account has a stored domain label unless the row says otherwise.
  static const WebAnswers stored_label{"acme", AcmeWebUrl()};
  static const WebAnswers label_from_url{"", AcmeWebUrl()};
  static const std::vector<FloorRow> rows = {
      {"tab_switch", "tab switch (chat to home)", "OrboPTPAAP::TrackingPTInteractEvent",
       [](std::string*) { return TrackingPTInteractEvent(Tracking(), ChatToHome()); },
       [](std::string*) { return oet_floor::TabSwitch(Tracking(), ChatToHome()); }, stored_label},
      {"tab_switch_utf8", "tab switch, floor keeping the client facts as UTF-8",
       "OrboPTPAAP::TrackingPTInteractEvent",
       [](std::string*) { return TrackingPTInteractEvent(Tracking(), ChatToHome()); },
       [](std::string*) { return oet_floor::TabSwitchCachedUtf8(Tracking(), ChatToHome()); }, stored_label},
      {"search_display", "search (results shown)", "OrboPTPAAP::TrackingPTSearchEvent",
       [](std::string*) { return TrackingPTSearchEvent(Tracking(), SearchResultsShown()); },
       [](std::string*) { return oet_floor::SearchDisplay(Tracking(), SearchResultsShown()); }, stored_label},
      {"phone", "phone call with call detail", "OrboPTPAAP::TrackingPhoneInteractEvent",
       [](std::string*) { return TrackingPhoneInteractEvent(Tracking(), OutboundCall()); },
       [](std::string*) { return oet_floor::Phone(Tracking(), OutboundCall()); }, stored_label},
      {"phone_url_label", "phone call, domain label from the URL", "OrboPTPAAP::TrackingPhoneInteractEvent",
       [](std::string*) { return TrackingPhoneInteractEvent(Tracking(), OutboundCall()); },
       [](std::string*) { return oet_floor::Phone(Tracking(), OutboundCall()); }, label_from_url},
      {"signin", "sign-in", "OrboPTPAAP::TrackingSigninInteractEvent",
       [](std::string*) { return TrackingSigninInteractEvent(Tracking(), SingleSignOn()); },
       [](std::string*) { return oet_floor::Signin(Tracking(), SingleSignOn()); }, stored_label},
      {"device_info", "client device info", "OrboPTPAAP::RetrieveClientDeviceInfo",
       [](std::string* filled) { return DeviceInfoWith(RetrieveClientDeviceInfo, filled); },
       [](std::string* filled) { return DeviceInfoWith(oet_floor::DeviceInfo, filled); }, stored_label},
      {"chat", "chat reply in a channel", "OrboPTPAAP::TrackingPTChatEvent",
       [](std::string*) { return TrackingPTChatEvent(ChatTracking(), ChannelReply()); },
       [](std::string*) { return oet_floor::Chat(ChatTracking(), ChannelReply()); }, stored_label},
      {"perf_metrics", "chat history fetch measured", "OrboPTPAAP::TrackingPerfMetricsInfo",
       [](std::string*) { return TrackingPerfMetricsInfo(ChatTracking(), HistoryFetch()); },
       [](std::string*) { return oet_floor::PerfMetrics(ChatTracking(), HistoryFetch()); }, stored_label},
      {"mac_launch", "Mac launch report", "OrboPTPAAP::TrackingApmMacLaunchEvent",
       [](std::string*) { return TrackingApmMacLaunchEvent(ColdLaunch()); },
       [](std::string*) { return oet_floor::MacLaunch(ColdLaunch()); }, stored_label},
      {"chat_database", "chat database look-up (limited id 165)", "OrboPTPAAP::TrackingPTChatDBInteractEvent",
       [](std::string*) { return TrackingPTChatDBInteractEvent(ChatTracking(), DatabaseSelect()); },
       [](std::string*) { return oet_floor::ChatDatabase(ChatTracking(), DatabaseSelect()); }, stored_label,
       true},
      {"metrickit_data", "MetricKit report of three samples", "OrboPTPAAP::TrackingApmIOSMetricKitDataEvent",
       [](std::string*) { return TrackingApmIOSMetricKitDataEvent(MetricKitSamples()); },
       [](std::string*) { return oet_floor::MetricKitData(MetricKitSamples()); }, stored_label},
      {"in_meeting", "in-meeting action (live captions, tier 3)", "OrboPAAP::TrackingMeetingInteractEvent",
       [](std::string*) {
         return OrboPAAP::TrackingMeetingInteractEvent(AfternoonReview(), LiveCaptionsOn());
       },
       [](std::string*) { return oet_floor::InMeeting(AfternoonReview(), LiveCaptionsOn()); }, stored_label},
      {"setting", "settings text reported", "OrboSettingPAAP::TrackingSettingInteractEvent",
       [](std::string*) { return OrboSettingPAAP::TrackingSettingInteractEvent(NightModeText(), StandUp()); },
       [](std::string*) { return oet_floor::Setting(NightModeText(), StandUp()); }, stored_label},
  };
  return rows;
}

const FloorRow* FindFloorRow(const std::string& name) {
  for (const FloorRow& row : FloorRows()) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

}  // namespace oet_bench
