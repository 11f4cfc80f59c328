// The chat event: which optional parts join its context list at the edges of every rule, the body's
// order, the compose flags' operations, and the one-second limit of the action types 174 and 185
// (checked before anything else is done; two threads racing on one key: tests/rate_limit_test.cpp).
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"
#include "tests/throttle_window.h"

namespace {

using OrboPTPAAP::ChatInteractInfo_s;
using Types = std::vector<int32_t>;

class ChatEvent : public oet_test::RecordedEventTest {
 protected:
  int Chat(const ChatInteractInfo_s& info) { return OrboPTPAAP::TrackingPTChatEvent({"p", "s"}, info); }
  int Chat(int32_t action_type) {
    ChatInteractInfo_s info;
    info.action_type = action_type;
    return Chat(info);
  }
  oet_test::ThrottleWindow window_;
};

struct ListCase {
  const char* name;
  int32_t action_type;
  int32_t has_conversation;
  uint64_t sequence;
  int32_t entry_kind;
  size_t items;
  Types context;
};

void PrintTo(const ListCase& c, std::ostream* os) {
  *os << c.name;
}

class ChatList : public ChatEvent, public ::testing::WithParamInterface<ListCase> {};

TEST_P(ChatList, HoldsThePartsItsMarkersAndActionTypeAskFor) {
  ChatInteractInfo_s info;
  info.action_type = GetParam().action_type;
  info.has_conversation = GetParam().has_conversation;
  info.message.sequence = GetParam().sequence;
  info.entry.entry_kind = GetParam().entry_kind;
  info.items.resize(GetParam().items);
  EXPECT_EQ(Chat(info), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.ContextTypes(), GetParam().context);
  EXPECT_EQ(event.BodyType(), 118);
}

constexpr uint64_t kNo = OrboPTPAAP::kChatNoMessage;
constexpr int32_t kNoEntry = OrboPTPAAP::kChatNoEntry;
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
const Types kBase{130, 121, 128};

INSTANTIATE_TEST_SUITE_P(
    Markers, ChatList,
    ::testing::Values(ListCase{"Defaults", 0, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"ConversationMinus1", 0, -1, kNo, kNoEntry, 0, {130, 121, 128, 115}},
                      ListCase{"MessageSequence0", 0, 0, 0, kNoEntry, 0, {130, 121, 128, 126}},
                      ListCase{"MessageSequenceAllButOne", 0, 0, kNo - 1, kNoEntry, 0, {130, 121, 128, 126}},
                      ListCase{"EntryKind0", 0, 0, kNo, 0, 0, {130, 121, 128, 112}},
                      ListCase{"EntryKind5", 0, 0, kNo, 5, 0, {130, 121, 128, 112}},
                      ListCase{"ThreeItems", 0, 0, kNo, kNoEntry, 3, {130, 121, 128, 125, 125, 125}},
                      ListCase{
                          "EveryPartCompose", 11, 1, 7, 1, 2, {130, 121, 128, 115, 126, 127, 112, 125, 125}},
                      ListCase{"EveryPartFiles", 150, 1, 7, 1, 1, {130, 121, 128, 115, 126, 129, 112, 125}}),
    [](const auto& info) { return std::string(info.param.name); });

// Action types at the edges of the compose rule (127: 10, 11, 12, 19, 21, 22, 28) and the file rule
// (129: 145 to 153). 42 and -22 share the low five bits of 10: a shifted bit mask would take them for 10.
class ChatActionParts : public ChatEvent,
                        public ::testing::WithParamInterface<std::pair<int32_t, int32_t>> {};

TEST_P(ChatActionParts, AddTheComposeOrFilePartOnlyForTheirTypes) {
  EXPECT_EQ(Chat(GetParam().first), 1);
  Types expected = kBase;
  if (GetParam().second != 0) expected.push_back(GetParam().second);
  EXPECT_EQ(OnlyEvent().ContextTypes(), expected);
}

INSTANTIATE_TEST_SUITE_P(ActionTypes, ChatActionParts,
                         ::testing::Values(std::pair{10, 127}, std::pair{11, 127}, std::pair{12, 127},
                                           std::pair{19, 127}, std::pair{21, 127}, std::pair{22, 127},
                                           std::pair{28, 127}, std::pair{9, 0}, std::pair{13, 0},
                                           std::pair{20, 0}, std::pair{29, 0}, std::pair{42, 0},
                                           std::pair{-22, 0}, std::pair{-1, 0}, std::pair{kMin, 0},
                                           std::pair{145, 129}, std::pair{153, 129}, std::pair{144, 0},
                                           std::pair{154, 0}),
                         [](const auto& info) { return "Type" + oet_test::NameOf(info.param.first); });

TEST_F(ChatEvent, ListIsAttachedEvenWhenTheHostGivesNoneOfItsEntities) {
  for (const int32_t type : {130, 121, 128, 115, 126, 127, 129, 112, 125, 118})
    host_.SetCreateEntityFails(type, true);
  ChatInteractInfo_s info;
  info.action_type = 150;
  info.has_conversation = 1;
  info.message.sequence = 0;
  info.entry.entry_kind = 0;
  info.items.resize(2);
  EXPECT_EQ(Chat(info), 1);
  const auto calls = oet_testing::Describe(host_.Log());
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "AttachEntityList 203 []"), 1);
  EXPECT_EQ(calls.back(), "SubmitEvent 3 1 params=0");
}

TEST_F(ChatEvent, FillsTheBodyComposeFlagsAndItemsInOrder) {
  ChatInteractInfo_s info;
  info.action_type = 11;
  info.value_a = 1, info.value_b = 2, info.value_c = 3, info.value_d = 4, info.value_e = 5, info.value_f = 6;
  info.text1 = Kst::CStringT<wchar_t>(L"a\0b", 3);  // cut at the NUL
  info.text2 = L"\u00fc";
  info.number = -9;
  info.compose.compose_source = L"box";
  info.compose.has_bold = 1, info.compose.has_link = -1, info.compose.is_encrypted = 7;
  info.items = {{L"t1", L"i1", L"", L"f", L"d"}, {L"t2", L"i2", L"c", L"", L""}};
  EXPECT_EQ(Chat(info), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.Ops(118), "17=5|22=11|2=1|15=4|7=2|24=|20=6|5=3|9=a|13=\u00fc|11=-9");
  EXPECT_EQ(event.Ops(125), "2=t1|4=i1|5~|8=f|10=d|2=t2|4=i2|6=c|7~|9~");
  std::string compose = "1=box";
  for (int op = 2; op <= 31; ++op)
    compose += "|" + std::to_string(op) + (op == 2 || op == 14 || op == 31 ? "=true" : "=false");
  EXPECT_EQ(event.Ops(127), compose);  // has_bold on 2, has_link on 14, is_encrypted on 31
}

using ChatBurst = oet_test::Burst<int32_t>;

class ChatLimit : public ChatEvent, public ::testing::WithParamInterface<ChatBurst> {};

TEST_P(ChatLimit, DropsRepeatsWithinOneSecondBeforeAnythingElse) {
  oet_test::RunBurst(host_, window_, GetParam(), [this](int32_t action_type) { return Chat(action_type); });
}

INSTANTIATE_TEST_SUITE_P(
    Bursts, ChatLimit,
    ::testing::Values(
        ChatBurst{"At999DroppedAt1000Sent", {{174, 0, 1}, {174, 999, 0}, {174, 1000, 1}}},
        ChatBurst{"DropDoesNotMoveTheWindow", {{185, 0, 1}, {185, 900, 0}, {185, 1000, 1}, {185, 1999, 0}}},
        ChatBurst{"ClockMovedBackDropped", {{174, 5000, 1}, {174, 4000, 0}, {174, 6000, 1}}},
        ChatBurst{"TypesIndependent", {{174, 0, 1}, {185, 0, 1}, {174, 1, 0}, {185, 1, 0}}},
        ChatBurst{"OtherTypesNeverDropped", {{173, 0, 1}, {173, 0, 1}, {186, 0, 1}, {-174, 0, 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ChatEvent, AcceptedCallThatFailsForWantOfAServiceStillCounts) {
  host_.SetWebServicePresent(false);
  EXPECT_EQ(Chat(174), 0);
  host_.SetWebServicePresent(true);
  window_.At(999);
  EXPECT_EQ(Chat(174), 0);
  EXPECT_TRUE(host_.Log().empty());
  window_.At(1000);
  EXPECT_EQ(Chat(174), 1);
}

}  // namespace
