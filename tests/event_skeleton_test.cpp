// The event skeleton as the two tab events run it: every way it can fail, a host that throws where no
// other test makes it throw, the tracking values' NUL rule, and the client-context cache behind it. (The
// full call sequences: tests/golden/tab_events.jsonl and host_failures.jsonl; a throw at every host
// call of every export: tests/robustness.)
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

using oet_testing::RecordingHost;
using ::testing::Contains;
using ::testing::IsSupersetOf;

int SwitchTabs(int32_t first, int32_t second) {
  OrboPTPAAP::PTInteractInfo_s info;
  info.first_tab = first;
  info.second_tab = second;
  return OrboPTPAAP::TrackingPTInteractEvent({"session-1", "window-1"}, info);
}

int HomeTab() {
  return OrboPTPAAP::TrackingHomeTabInteractEvent({"session-1", "window-1"}, {});
}

// What the export returns, whether a body goes out, and which calls the host sees (none listed: none
// at all).
struct FailureCase {
  const char* name;
  std::function<void(RecordingHost&)> arrange;
  int result;
  bool body;
  std::vector<std::string> calls;
};

void PrintTo(const FailureCase& failure, std::ostream* out) {
  *out << failure.name;
}

class SkeletonFailure : public oet_test::HostTest,
                        public ::testing::WithParamInterface<std::tuple<FailureCase, bool>> {};

TEST_P(SkeletonFailure, ReturnsItsResultAndCallsOnlyWhatItMay) {
  const auto& [failure, home_tab] = GetParam();
  failure.arrange(host_);
  EXPECT_EQ(home_tab ? HomeTab() : SwitchTabs(1, 3), failure.result);
  if (failure.calls.empty()) {
    EXPECT_THAT(Calls(), ::testing::IsEmpty());
  }
  EXPECT_THAT(Calls(), IsSupersetOf(failure.calls));
  for (const auto& event : host_.TakeEvents())
    EXPECT_EQ(oet_test::EventView(event).BodyType() != 0, failure.body);
}

const FailureCase kFailures[] = {
    {"NoRegistry", [](RecordingHost& h) { h.SetRegistryAvailable(false); }, 0, false, {}},
    {"NoWebService", [](RecordingHost& h) { h.SetWebServicePresent(false); }, 0, false, {}},
    {"NoTelemetry", [](RecordingHost& h) { h.SetTelemetryPresent(false); }, 0, false, {}},
    {"NoEvent", [](RecordingHost& h) { h.SetCreateEventFails(true); }, 0, false, {"CreateEvent -> null"}},
    {"NoClientEntity",
     [](RecordingHost& h) { h.SetCreateEntityFails(283, true); },
     1,
     true,
     {"CreateEntity 283 -> null", "AttachEntityList 203 [null, #1]", "AttachEntity 201 #2",
      "SubmitEvent 3 1 params=0"}},
    {"NoTrackingEntity",
     [](RecordingHost& h) { h.SetCreateEntityFails(304, true); },
     1,
     true,
     {"AttachEntityList 203 [#1, null]", "AttachEntity 201 #2", "SubmitEvent 3 1 params=0"}},
    {"NoBody",  // the body left out, the event still submitted
     [](RecordingHost& h) {
       h.SetCreateEntityFails(282, true);
       h.SetCreateEntityFails(285, true);
     },
     1,
     false,
     {"AttachEntityList 203 [#1, #2]", "SubmitEvent 3 1 params=0"}},
};

INSTANTIATE_TEST_SUITE_P(BothTabEvents, SkeletonFailure,
                         ::testing::Combine(::testing::ValuesIn(kFailures), ::testing::Bool()),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::get<1>(info.param) ? "_HomeTab" : "_TabSwitch");
                         });

using TabEvent = oet_test::HostTest;

// A web service that throws while it fills the client context: 0, and nothing left open.
TEST_F(TabEvent, WebServiceThatThrowsGivesZero) {
  host_.web_service().SetThrowing(true);
  EXPECT_EQ(SwitchTabs(1, 3), 0);
  EXPECT_EQ(host_.OpenEventCount(), 0);
}

// Should the destroy itself throw, the export still returns 0 and the event stays open in the host.
TEST_F(TabEvent, DestroyThatThrowsLeavesTheEventOpen) {
  host_.ThrowAtCall(3);
  host_.SetDestroyEventThrows(true);
  EXPECT_EQ(SwitchTabs(1, 3), 0);
  EXPECT_EQ(Calls().back(), "DestroyEvent 1 (threw)");
  EXPECT_EQ(Outcomes(), "open");
}

TEST_F(TabEvent, TrackingValuesAreCutAtNulAndSetEvenWhenEmpty) {
  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = Kst::CStringT<char>("a\0b", 3);
  EXPECT_EQ(OrboPTPAAP::TrackingPTInteractEvent(tracking, {}), 1);
  EXPECT_EQ(OnlyEvent().Ops(304), "2=a|1=");
}

// The client-context cache: filled once, from the web service and the machine's facts.
using ClientContext = oet_test::HostTest;

TEST_F(ClientContext, FilledOnceThenNeverAskedAgain) {
  ASSERT_EQ(SwitchTabs(1, 3), 1);
  const uint64_t queries = KstHost::SystemQueryCount();
  const int fills = Asked(97);
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  EXPECT_EQ(HomeTab(), 1);
  EXPECT_EQ(KstHost::SystemQueryCount(), queries);
  EXPECT_EQ(Asked(97), fills);
}

TEST_F(ClientContext, StaysUnfilledWithoutWebServiceAndRefreshesWhileUnfilled) {
  host_.SetWebServicePresent(false);
  const uint64_t queries = KstHost::SystemQueryCount();
  {
    const oet::ClientFactsView unfilled = oet::RefreshedClientFacts();
    EXPECT_TRUE(unfilled->os_name.empty);
    EXPECT_TRUE(unfilled->system_product_name.empty);
    EXPECT_EQ(unfilled->total_ram_gb, 0);
  }
  EXPECT_EQ(KstHost::SystemQueryCount(), queries);
  host_.SetWebServicePresent(true);
  host_.web_service().SetContextAnswer({"", "", "", ""});  // the web service leaves the value empty
  const int fills = Asked(97);
  EXPECT_EQ(oet::RefreshedClientFacts()->os_name.utf8, "windows");
  oet::RefreshedClientFacts();
  EXPECT_EQ(Asked(97), fills + 2);
}

// A web service that calls back into the library while it fills the cache: the nested calls see the
// unfilled cache (no second fill, no abort, no deadlock), and the outer call then the filled one.
TEST_F(ClientContext, HostCallingBackDuringTheFillSeesTheUnfilledCache) {
  OrboPTPAAP::PTClientDeviceEntityStruct nested;
  int nested_result = -1;
  host_.web_service().SetFillHook([&] {
    if (nested_result != -1) return;
    nested_result = SwitchTabs(2, 1);
    OrboPTPAAP::RetrieveClientDeviceInfo(nested);
  });
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  host_.web_service().SetFillHook(nullptr);
  EXPECT_EQ(nested_result, 1);
  EXPECT_EQ(nested.os_name, "");
  EXPECT_EQ(Asked(97), 1);
  const auto events = host_.TakeEvents();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_THAT(oet_testing::Describe(events[0].calls), Contains("#1 DeviceInfo.2 SetWebServiceValue \"\""));
  EXPECT_THAT(oet_testing::Describe(events[1].calls),
              Contains("#1 DeviceInfo.2 SetWebServiceValue \"ws-value\""));
}

}  // namespace
