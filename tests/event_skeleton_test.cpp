// The event skeleton of the main window's events: every way the host can fail it, a host that throws
// where no other test makes it throw, the tracking values' NUL rule, and the client-context cache
// behind it. (The
// full call sequences: tests/golden/tab_events.jsonl and host_failures.jsonl; a throw at every host
// call of every export: tests/robustness.)
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/test_support.h"

namespace {

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

// What each export of the main window answers when a service, the event or the host fails: 0, no
// event submitted and, for a missing service, no call at all; except that sign-in and basic
// interactions need no web service.
struct Export {
  const char* name;
  int (*track)();
  bool needs_web_service;
};

const Export kExports[] = {{"TabSwitch", [] { return SwitchTabs(1, 3); }, true},
                           {"HomeTab", HomeTab, true},
                           {"Search", [] { return OrboPTPAAP::TrackingPTSearchEvent({}, {}); }, true},
                           {"SearchV2", [] { return OrboPTPAAP::TrackingPTSearchEventV2({}, {}); }, true},
                           {"Phone", [] { return OrboPTPAAP::TrackingPhoneInteractEvent({}, {}); }, true},
                           {"SignIn", [] { return OrboPTPAAP::TrackingSigninInteractEvent({}, {}); }, false},
                           {"Basic", [] { return OrboPTPAAP::TrackingBasicInteractEvent({}, {}); }, false}};

enum Failure { kNoRegistry, kNoWebService, kNoTelemetry, kNoEvent, kHostThrows };
const char* const kFailureNames[] = {"NoRegistry", "NoWebService", "NoTelemetry", "NoEvent", "HostThrows"};

class ServiceGates : public oet_test::HostTest,
                     public ::testing::WithParamInterface<std::tuple<Export, Failure>> {};

TEST_P(ServiceGates, ReturnZeroWithoutSubmitting) {
  const auto& [export_case, failure] = GetParam();
  if (failure == kNoRegistry) host_.SetRegistryAvailable(false);
  if (failure == kNoWebService) host_.SetWebServicePresent(false);
  if (failure == kNoTelemetry) host_.SetTelemetryPresent(false);
  if (failure == kNoEvent) host_.SetCreateEventFails(true);
  if (failure == kHostThrows) host_.ThrowAtCall(3);
  const bool goes_out = failure == kNoWebService && !export_case.needs_web_service;
  EXPECT_EQ(export_case.track(), goes_out ? 1 : 0);
  if (failure == kNoEvent) {
    EXPECT_EQ(Calls(), std::vector<std::string>{"CreateEvent -> null"});
  } else if (failure != kHostThrows && !goes_out) {
    EXPECT_THAT(Calls(), ::testing::IsEmpty());
  }
  for (const auto& event : host_.TakeEvents())
    EXPECT_EQ(oet_test::EventView(event).submitted(), goes_out);
}

INSTANTIATE_TEST_SUITE_P(Exports, ServiceGates,
                         ::testing::Combine(::testing::ValuesIn(kExports),
                                            ::testing::Values(kNoRegistry, kNoWebService, kNoTelemetry,
                                                              kNoEvent, kHostThrows)),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) + "_" +
                                  kFailureNames[std::get<1>(info.param)];
                         });

// An entity the host does not give: a null slot kept in the context list, a missing body left out;
// the event still goes out. For both tab events.
struct MissingEntity {
  const char* name;
  int32_t type;
  bool body;
  std::vector<std::string> calls;
};

const MissingEntity kMissing[] = {
    {"Client",
     283,
     true,
     {"AttachEntityList 203 [null, #1]", "AttachEntity 201 #2", "SubmitEvent 3 1 params=0"}},
    {"Tracking",
     304,
     true,
     {"AttachEntityList 203 [#1, null]", "AttachEntity 201 #2", "SubmitEvent 3 1 params=0"}},
    {"Body", 0, false, {"AttachEntityList 203 [#1, #2]", "SubmitEvent 3 1 params=0"}}};

class SkeletonMissing : public oet_test::HostTest,
                        public ::testing::WithParamInterface<std::tuple<MissingEntity, bool>> {};

TEST_P(SkeletonMissing, KeepsTheSlotOrLeavesTheBodyOut) {
  const auto& [missing, home_tab] = GetParam();
  host_.SetCreateEntityFails(missing.type != 0 ? missing.type : home_tab ? 285 : 282, true);
  EXPECT_EQ(home_tab ? HomeTab() : SwitchTabs(1, 3), 1);
  EXPECT_THAT(Calls(), IsSupersetOf(missing.calls));
  EXPECT_EQ(OnlyEvent().BodyType() != 0, missing.body);
}

INSTANTIATE_TEST_SUITE_P(BothTabEvents, SkeletonMissing,
                         ::testing::Combine(::testing::ValuesIn(kMissing), ::testing::Bool()),
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

// The client-context cache: unfilled while no web service answered, asked again while unfilled, and
// a host calling back during the fill. (Filled once and kept: tests/golden/client_context.jsonl.)
using ClientContext = oet_test::HostTest;

TEST_F(ClientContext, StaysUnfilledWithoutWebServiceAndRefreshesWhileUnfilled) {
  host_.SetWebServicePresent(false);
  const int queries = host_.HostCallCount("Kst::GetOSVersion");
  {
    const oet::ClientFactsView unfilled = oet::RefreshedClientFacts();
    EXPECT_TRUE(unfilled->os_name.empty);
    EXPECT_TRUE(unfilled->system_product_name.empty);
    EXPECT_EQ(unfilled->total_ram_gb, 0);
  }
  EXPECT_EQ(host_.HostCallCount("Kst::GetOSVersion"), queries);
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
