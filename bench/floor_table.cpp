#include "bench/floor_table.h"

#include "bench/floors.h"
#include "core/web_domains.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "platform/kst_convert.h"

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
