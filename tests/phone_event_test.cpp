// The phone event's context list: its own four entities (the call detail only on request, a null first
// entry kept), and the other build's export that stays inert. (Every field: examples/sample-session.jsonl
// and tests/golden/event_rules.jsonl.)
#include <gtest/gtest.h>

#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace {

using oet_test::Types;

struct ListCase {
  int32_t call_detail;
  Types failing;
  Types context;  // 0: a null entry
};

class PhoneContextList : public oet_test::HostTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(PhoneContextList, HoldsTheEntitiesTheHostGave) {
  for (const int32_t type : GetParam().failing)
    host_.SetCreateEntityFails(type, true);
  OrboPTPAAP::PhoneInteractInfo_s info;
  info.call_detail = GetParam().call_detail;
  EXPECT_EQ(OrboPTPAAP::TrackingPhoneInteractEvent({"p1", "p2"}, info), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), GetParam().context);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, PhoneContextList,
    ::testing::Values(ListCase{0, {}, {354, 376, 377}}, ListCase{1, {}, {354, 376, 369, 377}},
                      ListCase{-2, {}, {354, 376, 369, 377}}, ListCase{1, {354}, {0, 376, 369, 377}},
                      ListCase{1, {369}, {354, 376, 377}}, ListCase{1, {376, 377, 370}, {354, 369}},
                      ListCase{0, {354, 376, 377}, {0}}),
    [](const testing::TestParamInfo<ListCase>& info) {
      // "Detail1_Failing376_377": the call detail asked for and the types not given.
      std::string name = "Detail" + oet_test::NameOf(info.param.call_detail);
      for (size_t i = 0; i < info.param.failing.size(); ++i)
        name += (i == 0 ? "_Failing" : "_") + std::to_string(info.param.failing[i]);
      return name;
    });

// The other build's export answers 1 without asking the host for anything, not even its registry.
TEST_F(PhoneContextList, OtherBuildExportDoesNothing) {
  host_.SetRegistryAvailable(false);
  const int requests = host_.HostCallCount("KstMQ_GetService");
  EXPECT_EQ(OrboPTPAAP::TrackingORPhoneInteractEvent({}, {}), 1);
  EXPECT_EQ(host_.HostCallCount("KstMQ_GetService"), requests);
  EXPECT_TRUE(Calls().empty());
}

}  // namespace
