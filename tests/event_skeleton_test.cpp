// The event skeleton as the two tab events run it: the full call sequence of a tab switch, every way
// it can fail, the client-context cache behind it, and a host that throws anywhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

#include "core/post_meeting.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/system_info.h"
#include "tests/test_support.h"

namespace oet_testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

OrboPTPAAP::PTTrackingInfo_s Tracking() {
  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = "session-1";
  tracking.secondary_value = "window-1";
  return tracking;
}

int SwitchTabs(int32_t first, int32_t second) {
  OrboPTPAAP::PTInteractInfo_s info;
  info.first_tab = first;
  info.second_tab = second;
  return OrboPTPAAP::TrackingPTInteractEvent(Tracking(), info);
}

int HomeTab(const OrboPTPAAP::HomeTabInteractInfo_s& info) {
  return OrboPTPAAP::TrackingHomeTabInteractEvent(Tracking(), info);
}

// The common context list as a standard host sees it.
const std::vector<std::string> kCommonContext = {
    "CreateEntity 283 -> #1",
    "#1 DeviceInfo.2 SetWebServiceValue \"ws-value\"",
    "#1 DeviceInfo.1 SetDeviceProduct \"Example Book 14\"",
    "#1 ClientEntity.15 SetDeviceManufacturer \"Example Computers\"",
    "#1 ClientEntity.4 SetClientVersion \"6.2.10.4512\"",
    "#1 ClientEntity.2 SetGpuModel \"Example Graphics 620\"",
    "#1 ClientEntity.6 SetCpuType \"x64\"",
    "#1 ClientEntity.10 SetRegion \"US\"",
    "#1 ClientEntity.12 SetLanguage \"en-US\"",
    "#1 ClientEntity.11 SetNetworkType \"wifi\"",
    "#1 DeviceInfo.4 SetOsName \"windows\"",
    "#1 DeviceInfo.3 SetOsVersion \"10.0.22631\"",
    "#1 ClientEntity.14 SetResolution \"1920*1080\"",
    "#1 ClientEntity.8 SetTotalRam 16",
    "CreateEntity 304 -> #2",
    "#2 TrackingInfoEntity.2 SetPrimaryValue \"session-1\"",
    "#2 TrackingInfoEntity.1 SetSecondaryValue \"window-1\"",
    "AttachEntityList 203 [#1, #2]",
};

std::vector<std::string> Concat(std::vector<std::string> head, const std::vector<std::string>& tail) {
  head.insert(head.end(), tail.begin(), tail.end());
  return head;
}

// A switch from the chat tab to the phone tab, call by call.
const std::vector<std::string> kChatToPhone =
    Concat(Concat({"CreateEvent -> event 1"}, kCommonContext),
           {
               "CreateEntity 282 -> #3",
               "#3 TabSwitchEntity.2 Prepare",
               "#3 TabSwitchEntity.1 SetAction \"switch_tab\"",
               "#3 TabSwitchEntity.6 SetWebServiceValue \"ws-value\"",
               "#3 TabSwitchEntity.7 SetFirstTab \"chat\"",
               "#3 TabSwitchEntity.4 SetSecondTab \"phone\"",
               "AttachEntity 201 #3",
               "SubmitEvent 3 1 params=0",
           });

using TabEventTest = HostTest;

TEST_F(TabEventTest, TabSwitchMakesTheFullCallSequence) {
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  EXPECT_THAT(Calls(), ElementsAreArray(kChatToPhone));
  EXPECT_EQ(host.Events().at(0).outcome, RecordedEvent::Outcome::kSubmitted);
}

TEST_F(TabEventTest, WordlessTabsAreSetAsEmptyWords) {
  EXPECT_EQ(SwitchTabs(13, 0), 1);
  const auto calls = Calls();
  EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end() - 2),
              ElementsAre("#3 TabSwitchEntity.7 SetFirstTab \"\"", "#3 TabSwitchEntity.4 SetSecondTab \"\""));
}

TEST_F(TabEventTest, HomeTabSetsWordsThenFlagsInItsOrder) {
  OrboPTPAAP::HomeTabInteractInfo_s info;
  info.feature = 0;  // the one table whose 0 has a word
  info.first_flag = 2;
  info.third_flag = -1;
  EXPECT_EQ(HomeTab(info), 1);
  const auto calls = Calls();
  EXPECT_THAT(
      std::vector<std::string>(calls.begin() + 19, calls.end()),
      ElementsAre("CreateEntity 285 -> #3", "#3 HomeTabEntity.8 SetElement \"\"",
                  "#3 HomeTabEntity.5 SetInteractionType \"\"", "#3 HomeTabEntity.15 SetFeature \"Unknown\"",
                  "#3 HomeTabEntity.4 SetFifthFlag false", "#3 HomeTabEntity.2 SetThirdFlag true",
                  "#3 HomeTabEntity.10 SetFirstFlag true", "#3 HomeTabEntity.12 SetFourthFlag false",
                  "#3 HomeTabEntity.14 SetSecondFlag false", "AttachEntity 201 #3",
                  "SubmitEvent 3 1 params=0"));
}

// Every way the skeleton can fail, for both tab events: what the export returns and which calls the
// host sees.
struct FailureCase {
  const char* name;
  std::function<void(RecordingHost&)> arrange;
  int result;
  std::vector<std::string> calls;  // empty: none at all; otherwise the calls that must appear
};

void PrintTo(const FailureCase& failure, std::ostream* out) {
  *out << failure.name;
}

class SkeletonFailureTest : public HostTest,
                            public ::testing::WithParamInterface<std::tuple<FailureCase, bool>> {};

TEST_P(SkeletonFailureTest, ReturnsItsResultAndCallsOnlyWhatItMay) {
  const auto& [failure, home_tab] = GetParam();
  failure.arrange(host);
  EXPECT_EQ(home_tab ? HomeTab({}) : SwitchTabs(1, 3), failure.result);
  const auto calls = Calls();
  if (failure.calls.empty()) {
    EXPECT_THAT(calls, ElementsAre());
  }
  for (const auto& call : failure.calls)
    EXPECT_THAT(calls, ::testing::Contains(call)) << failure.name;
}

const FailureCase kFailures[] = {
    {"NoRegistry", [](RecordingHost& h) { h.SetRegistryAvailable(false); }, 0, {}},
    {"NoWebService", [](RecordingHost& h) { h.SetWebServicePresent(false); }, 0, {}},
    {"NoTelemetry", [](RecordingHost& h) { h.SetTelemetryPresent(false); }, 0, {}},
    {"NoEvent", [](RecordingHost& h) { h.SetCreateEventFails(true); }, 0, {"CreateEvent -> null"}},
    {"NoClientEntity",
     [](RecordingHost& h) { h.SetCreateEntityFails(283, true); },
     1,
     {"CreateEntity 283 -> null", "AttachEntityList 203 [null, #1]", "SubmitEvent 3 1 params=0"}},
    {"NoTrackingEntity",
     [](RecordingHost& h) { h.SetCreateEntityFails(304, true); },
     1,
     {"AttachEntityList 203 [#1, null]", "SubmitEvent 3 1 params=0"}},
    {"NoBody",
     [](RecordingHost& h) {
       h.SetCreateEntityFails(282, true);
       h.SetCreateEntityFails(285, true);
     },
     1,
     {"AttachEntityList 203 [#1, #2]", "SubmitEvent 3 1 params=0"}},
};

INSTANTIATE_TEST_SUITE_P(BothTabEvents, SkeletonFailureTest,
                         ::testing::Combine(::testing::ValuesIn(kFailures), ::testing::Bool()),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::get<1>(info.param) ? "_HomeTab" : "_TabSwitch");
                         });

TEST_F(TabEventTest, BodyLeftOutWhenTheHostGivesNone) {
  host.SetCreateEntityFails(282, true);
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  for (const auto& call : Calls())
    EXPECT_EQ(call.find("AttachEntity 201"), std::string::npos);
}

// A host operation that throws, at every position of a tab switch: the export returns 0, the call
// sequence stops there, and the event, once created, is destroyed rather than left open in the host.
// Leaks would show under the sanitizer build.
TEST_F(TabEventTest, HostThatThrowsAtAnyCallGivesZeroAndDestroysTheEvent) {
  for (size_t position = 1; position <= kChatToPhone.size(); ++position) {
    oet::ResetClientContextForTesting();
    host.TakeEvents();
    host.ThrowAtCall(static_cast<int>(position));
    EXPECT_EQ(SwitchTabs(1, 3), 0) << "throwing at call " << position;
    auto calls = Calls();
    const bool event_created = position > 1;
    ASSERT_EQ(calls.size(), position + (event_created ? 1 : 0));
    if (event_created) {
      EXPECT_EQ(calls.back(), "DestroyEvent 1");
      calls.pop_back();
      ASSERT_EQ(host.Events().size(), 1u);
      EXPECT_EQ(host.Events()[0].outcome, RecordedEvent::Outcome::kDestroyed);
    }
    // A CreateEvent that throws gives the library no event.
    EXPECT_EQ(calls.back(),
              position == 1 ? "CreateEvent -> null (threw)" : kChatToPhone[position - 1] + " (threw)");
  }
  host.web_service().SetThrowing(true);
  oet::ResetClientContextForTesting();
  EXPECT_EQ(SwitchTabs(1, 3), 0);
}

// Should the destroy itself throw, the export still returns 0 and the event stays open in the host.
TEST_F(TabEventTest, DestroyThatThrowsLeavesTheEventOpen) {
  host.ThrowAtCall(3);
  host.SetDestroyEventThrows(true);
  EXPECT_EQ(SwitchTabs(1, 3), 0);
  EXPECT_EQ(Calls().back(), "DestroyEvent 1 (threw)");
  ASSERT_EQ(host.Events().size(), 1u);
  EXPECT_EQ(host.Events()[0].outcome, RecordedEvent::Outcome::kOpen);
}

TEST_F(TabEventTest, TrackingValuesAreCutAtNulAndSetEvenWhenEmpty) {
  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = Kst::CStringT<char>("a\0b", 3);
  OrboPTPAAP::PTInteractInfo_s info;
  EXPECT_EQ(OrboPTPAAP::TrackingPTInteractEvent(tracking, info), 1);
  EXPECT_THAT(Calls(), ::testing::IsSupersetOf({"#2 TrackingInfoEntity.2 SetPrimaryValue \"a\"",
                                                "#2 TrackingInfoEntity.1 SetSecondaryValue \"\""}));
}

// The client-context cache: filled once, from the web service and the machine's facts.
using ClientContextTest = HostTest;

TEST_F(ClientContextTest, FilledOnceThenNeverAskedAgain) {
  ASSERT_EQ(SwitchTabs(1, 3), 1);
  const uint64_t queries = KstHost::SystemQueryCount();
  const int fills = host.web_service().CallCount(97);
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  EXPECT_EQ(HomeTab({}), 1);
  EXPECT_EQ(KstHost::SystemQueryCount(), queries);
  EXPECT_EQ(host.web_service().CallCount(97), fills);
}

TEST_F(ClientContextTest, StaysUnfilledWithoutWebServiceAndRefreshesWhileUnfilled) {
  host.SetWebServicePresent(false);
  const uint64_t queries = KstHost::SystemQueryCount();
  {
    const oet::ClientFactsView unfilled = oet::RefreshedClientFacts();
    EXPECT_TRUE(unfilled->os_name.empty);
    EXPECT_TRUE(unfilled->system_product_name.empty);
    EXPECT_EQ(unfilled->total_ram_gb, 0);
  }
  EXPECT_EQ(KstHost::SystemQueryCount(), queries);

  host.SetWebServicePresent(true);
  host.web_service().SetContextAnswer({"", "", "", ""});  // the web service leaves the value empty
  const int fills = host.web_service().CallCount(97);
  EXPECT_EQ(oet::RefreshedClientFacts()->os_name.utf8, "windows");
  oet::RefreshedClientFacts();
  EXPECT_EQ(host.web_service().CallCount(97), fills + 2);
}

TEST_F(ClientContextTest, MissingFactsAreUnknownClearedOrEmptyByField) {
  for (const auto fact : {KstHost::SystemFact::kSystemProductName, KstHost::SystemFact::kSystemManufacturer,
                          KstHost::SystemFact::kRegionName, KstHost::SystemFact::kLanguageSetting,
                          KstHost::SystemFact::kTotalRAMGB}) {
    KstHost::OverrideSystemFact(fact, "");
  }
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  EXPECT_THAT(Calls(), ::testing::IsSupersetOf({
                           "#1 DeviceInfo.1 SetDeviceProduct \"unknown\"",
                           "#1 ClientEntity.15 SetDeviceManufacturer \"unknown\"",
                           "#1 ClientEntity.9 ClearRegion",
                           "#1 ClientEntity.12 SetLanguage \"\"",
                           "#1 ClientEntity.7 ClearTotalRam",
                       }));
}

// A web service that calls back into the library while it fills the cache: the nested calls see the
// unfilled cache (no second fill, no abort, no deadlock), and the outer call then the filled one.
TEST_F(ClientContextTest, HostCallingBackDuringTheFillSeesTheUnfilledCache) {
  OrboPTPAAP::PTClientDeviceEntityStruct nested;
  int nested_result = -1;
  host.web_service().SetFillHook([&] {
    if (nested_result != -1) return;
    nested_result = SwitchTabs(2, 1);
    OrboPTPAAP::RetrieveClientDeviceInfo(nested);
  });
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  host.web_service().SetFillHook(nullptr);
  EXPECT_EQ(nested_result, 1);
  EXPECT_EQ(nested.os_name, "");
  EXPECT_EQ(host.web_service().CallCount(97), 1);
  const auto events = host.Events();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_THAT(Describe(events[0].calls), ::testing::Contains("#1 DeviceInfo.2 SetWebServiceValue \"\""));
  EXPECT_THAT(Describe(events[1].calls),
              ::testing::Contains("#1 DeviceInfo.2 SetWebServiceValue \"ws-value\""));
}

// A web service that, while it fills, waits for another thread's export call: that thread must not wait
// for this fill in turn (it refreshes on its own), or both would hang.
TEST_F(ClientContextTest, HostWaitingForAnotherThreadDuringTheFillDoesNotDeadlock) {
  std::atomic<bool> waited{false};
  std::atomic<int> other_result{-1};
  host.web_service().SetFillHook([&] {
    if (waited.exchange(true)) return;
    std::thread other([&] { other_result = SwitchTabs(2, 1); });
    other.join();
  });
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  host.web_service().SetFillHook(nullptr);
  EXPECT_EQ(other_result.load(), 1);
}

// Exports called from several threads at once, from an unfilled cache (the threads race to fill it)
// and from a filled one (no thread may ask again): every event is built whole and the process-wide
// state stays consistent. The ThreadSanitizer leg of scripts/test-all runs these.
class ConcurrentExportsTest : public HostTest, public ::testing::WithParamInterface<bool> {};

TEST_P(ConcurrentExportsTest, EveryEventWholeAndStateConsistent) {
  const bool filled_first = GetParam();
  if (filled_first) {
    ASSERT_EQ(SwitchTabs(1, 2), 1);
  }
  const int fills = host.web_service().CallCount(97);
  constexpr int kThreads = 4;
  constexpr int kCalls = 25;
  std::vector<std::thread> threads;
  std::atomic<int> submitted{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&submitted, t] {
      for (int i = 0; i < kCalls; ++i) {
        submitted += SwitchTabs(1 + i % 19, 2);
        OrboPTPAAP::PostMeetingTrackingInfo_s info;
        info.text1 = std::to_string(t).c_str();
        info.text3 = L"meeting";
        OrboPTPAAP::StoreMeetingInfo4PostEvents(info);
      }
    });
  }
  for (auto& thread : threads)
    thread.join();
  EXPECT_EQ(submitted.load(), kThreads * kCalls);
  const auto events = host.Events();
  EXPECT_EQ(events.size(), static_cast<size_t>(kThreads * kCalls + (filled_first ? 1 : 0)));
  if (filled_first) {
    EXPECT_EQ(host.web_service().CallCount(97), fills);
  } else {
    EXPECT_GE(host.web_service().CallCount(97), fills + 1);
  }
  for (const auto& event : events)
    EXPECT_EQ(Describe(event.calls).back(), "SubmitEvent 3 1 params=0");
  EXPECT_EQ(oet::TakePostMeetingStrings().text3, L"meeting");
}

INSTANTIATE_TEST_SUITE_P(Threads, ConcurrentExportsTest, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "FilledCache" : "UnfilledCache"; });

}  // namespace
}  // namespace oet_testing
