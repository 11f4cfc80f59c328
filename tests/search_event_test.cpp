// The global search event: the search action picks one of five bodies (or none), each filled in its
// own order; the search-page event's context and body.
#include <gtest/gtest.h>

#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

using Types = std::vector<int32_t>;

// Every member differs, so that a value landing in the wrong operation shows.
OrboPTPAAP::SearchInteractInfo_s SampleSearch(int32_t action) {
  OrboPTPAAP::SearchInteractInfo_s info;
  info.search_action = action, info.result_action = 3, info.context_text1 = "c1", info.context_text2 = "c2";
  info.count_a = -5, info.count_b = 7, info.count_c = 9, info.count_d = 11;           // count a sign-extended
  info.chat_scope = 1, info.entry = 2, info.category = 6, info.second_category = 99;  // 99: no word
  info.first_results = {{6, 2}, {1, 0}}, info.third_results = {{99, 1}};
  info.text_b = "b", info.text_c = "c", info.text_e = "e", info.selected_tab = 3;
  info.source = 4, info.sort_order = 3, info.file_type = 1;  // sort order 3: no word
  return info;
}

struct DispatchCase {
  int32_t action;
  int32_t body_type;  // 0: no body
  const char* body_ops;
};

void PrintTo(const DispatchCase& c, std::ostream* os) {
  *os << "action " << c.action << " -> body " << c.body_type;
}

class SearchDispatch : public oet_test::RecordedEventTest,
                       public ::testing::WithParamInterface<DispatchCase> {};

TEST_P(SearchDispatch, BuildsTheBodyOfTheAction) {
  EXPECT_EQ(OrboPTPAAP::TrackingPTSearchEvent({}, SampleSearch(GetParam().action)), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304, 424}));
  EXPECT_EQ(event.Ops(424), "2=c1|1=c2|3=|4=orbo_chat");
  EXPECT_EQ(event.BodyType(), GetParam().body_type);
  EXPECT_EQ(event.Ops(GetParam().body_type), GetParam().body_ops);
}

INSTANTIATE_TEST_SUITE_P(
    Actions, SearchDispatch,
    ::testing::Values(
        DispatchCase{1, 418, "5=global_search_app|2=initiate|1=11|3=-5|4=7"},
        DispatchCase{2, 417,
                     "1=unjoined_public_channels|3=|5=|7=b|8=-5|9=7"
                     "|11=unjonied_public_channels:2,contacts:0|12~|15=:1|16~|19=e|20=3|21=sms"
                     "|24=display|26=all files"},
        DispatchCase{3, 420,
                     "3=perform|1=meet_with_Video|2=unjoined_public_channels|6=|8=7|7=-5|9=sms|10=c|4=9"},
        DispatchCase{4, 419, "1=launch|3=global_search_app|2=-5"}, DispatchCase{5, 415, "1=close|2=-5|3=7"},
        DispatchCase{0, 0, ""}, DispatchCase{6, 0, ""}, DispatchCase{-1, 0, ""}),
    [](const auto& info) {
      return "Action" + oet_test::NameOf(info.param.action) +
             (info.param.body_type ? "_Body" + std::to_string(info.param.body_type) : "_NoBody");
    });

TEST_F(SearchDispatch, LeavesOutWhatTheHostDoesNotGive) {
  host_.SetCreateEntityFails(424, true);
  host_.SetCreateEntityFails(418, true);
  EXPECT_EQ(OrboPTPAAP::TrackingPTSearchEvent({}, SampleSearch(1)), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), (Types{283, 304}));
  EXPECT_EQ(event.BodyType(), 0);
}

using SearchPage = oet_test::RecordedEventTest;

TEST_F(SearchPage, CarriesItsOwnContextAndBody) {
  OrboPTPAAP::SearchInteractInfoV2_s info{3, 1, 2, 6, 29, 3, 2, 4, "s-1", "", "r-9", -1, 0, 2, -2, 4, 250};
  EXPECT_EQ(OrboPTPAAP::TrackingPTSearchEventV2({"p", ""}, info), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), (Types{425, 416, 421, 422}));
  EXPECT_EQ(event.Ops(425), "TrackingValues.2=p|TrackingValues.1=|2=s-1|3~");
  EXPECT_EQ(event.Ops(416), "1=top_result|2=chat|3=documents|4=most_relevant");
  EXPECT_EQ(event.Ops(421), "1=unjonied_public_channels|2=down_load_file|4=r-9");
  EXPECT_EQ(event.Ops(422), "1=true|2=false|3=true|4=-2|5=4|6=250");
  EXPECT_EQ(event.BodyType(), 423);
  EXPECT_EQ(event.Ops(423), "1=perform|2=global_search_bar");
}

}  // namespace
