// The global search event: the search action picks one of five bodies (or none), and what the host does
// not give is left out. (Each body's fields: examples/sample-session.jsonl and
// tests/golden/event_rules.jsonl; the search-page event: tests/golden/tab_events.jsonl.)
#include <gtest/gtest.h>

#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace {

using oet_test::Types;

OrboPTPAAP::SearchInteractInfo_s Search(int32_t action) {
  OrboPTPAAP::SearchInteractInfo_s info;
  info.search_action = action;
  return info;
}

class SearchDispatch : public oet_test::HostTest,
                       public ::testing::WithParamInterface<std::pair<int32_t, int32_t>> {};

TEST_P(SearchDispatch, BuildsTheBodyOfTheAction) {
  EXPECT_EQ(OrboPTPAAP::TrackingPTSearchEvent({}, Search(GetParam().first)), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304, 424}));
  EXPECT_EQ(event.BodyType(), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Actions, SearchDispatch,
                         ::testing::Values(std::pair{1, 418}, std::pair{2, 417}, std::pair{3, 420},
                                           std::pair{4, 419}, std::pair{5, 415}, std::pair{0, 0},
                                           std::pair{6, 0}, std::pair{-1, 0}),
                         [](const auto& info) { return "Action" + oet_test::NameOf(info.param.first); });

TEST_F(SearchDispatch, LeavesOutWhatTheHostDoesNotGive) {
  host_.SetCreateEntityFails(424, true);
  host_.SetCreateEntityFails(418, true);
  EXPECT_EQ(OrboPTPAAP::TrackingPTSearchEvent({}, Search(1)), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304}));
  EXPECT_EQ(event.BodyType(), 0);
}

}  // namespace
