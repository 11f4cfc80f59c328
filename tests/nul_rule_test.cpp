// The first-NUL rule at the gates: a host string that starts with NUL goes out cut, as the empty text,
// so every gate on it ("empty": clear, leave out, replace) must treat it exactly as an empty one.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/client_context.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "testing/recording_host.h"

namespace {

using oet_testing::RecordingHost;

struct GateCase {
  const char* name;
  // Makes the call with every gated text either empty or starting with NUL.
  std::function<void(RecordingHost&, bool nul_first)> call;
};

void PrintTo(const GateCase& c, std::ostream* os) {
  *os << c.name;
}

Kst::CStringT<char> Narrow(bool nul_first) {
  return nul_first ? Kst::CStringT<char>("\0x", 2) : Kst::CStringT<char>();
}
Kst::CStringT<wchar_t> Wide(bool nul_first) {
  return nul_first ? Kst::CStringT<wchar_t>(L"\0x", 2) : Kst::CStringT<wchar_t>();
}

// The calls of the one event the call made, its creation line left out (its number differs).
std::vector<std::string> EventCalls(bool nul_first, const GateCase& c) {
  RecordingHost host;
  oet::ResetClientContextForTesting();
  c.call(host, nul_first);
  const auto events = host.TakeEvents();
  EXPECT_EQ(events.size(), 1u);
  if (events.empty()) return {};
  std::vector<std::string> calls = oet_testing::Describe(events.front().calls);
  calls.erase(calls.begin());
  return calls;
}

class NulFirstGate : public ::testing::TestWithParam<GateCase> {};

TEST_P(NulFirstGate, GoesOutAsTheEmptyText) {
  EXPECT_EQ(EventCalls(true, GetParam()), EventCalls(false, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Exports, NulFirstGate,
    ::testing::Values(
        GateCase{"InMeetingEntitiesAndLabel",
                 [](RecordingHost&, bool nul) {
                   OrboPAAP::MeetingTrackingInfo_s tracking;
                   tracking.meeting_text = Narrow(nul);
                   tracking.share_text = Narrow(nul);
                   tracking.share_number = 1;
                   OrboPAAP::MeetingInteractInfo_s info;
                   info.first_code = info.second_code = info.third_code = info.interaction_kind = 1;
                   info.reference_a = info.reference_b = info.reference_c = 1;
                   info.reference_text = Narrow(nul);
                   info.item_text = Narrow(nul);
                   info.option_value = 1;
                   info.label = Wide(nul);
                   OrboPAAP::TrackingMeetingInteractEvent(tracking, info);
                 }},
        GateCase{"SettingsIdentity",
                 [](RecordingHost&, bool nul) {
                   OrboSettingPAAP::TrackingSettingInteractEvent("1,1,1,1,1,t", {Narrow(nul), 7});
                 }},
        GateCase{"CrashFirstText",
                 [](RecordingHost&, bool nul) {
                   OrboPTPAAP::TrackingApmClientCrashEvent({1, Narrow(nul), Narrow(nul), {}, {}});
                 }},
        GateCase{"SignInTexts",
                 [](RecordingHost&, bool nul) {
                   OrboPTPAAP::OSigninInteractInfo_s info;
                   info.first_text = Narrow(nul);
                   OrboPTPAAP::TrackingSigninInteractEvent({}, info);
                 }},
        GateCase{"StoredDomainLabel",
                 [](RecordingHost& host, bool nul) {
                   host.web_service().SetAccountDomain(nul ? std::string("\0x", 2) : std::string());
                   host.web_service().SetAccountWebUrl("https://acme.orbo.example.com");
                   OrboPTPAAP::TrackingPhoneInteractEvent({}, {});
                 }}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
