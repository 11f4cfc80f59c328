// The chat event: which optional parts join its context list at the edges of every rule, the body's
// order and clear rules, the compose flags' operations, and the one-second limit of the action types
// 174 and 185 (checked before anything else is done).
#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <string>
#include <thread>
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
    Parts, ChatList,
    ::testing::Values(ListCase{"Defaults", 0, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Compose10", 10, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose11", 11, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose12", 12, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose19", 19, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose21", 21, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose22", 22, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Compose28", 28, 0, kNo, kNoEntry, 0, {130, 121, 128, 127}},
                      ListCase{"Action9", 9, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Action13", 13, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Action20", 20, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Action29", 29, 0, kNo, kNoEntry, 0, kBase},
                      // 42 and -22 have the low five bits of 10: a shifted mask would take them for 10.
                      ListCase{"Action42", 42, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"ActionMinus22", -22, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Files145", 145, 0, kNo, kNoEntry, 0, {130, 121, 128, 129}},
                      ListCase{"Files153", 153, 0, kNo, kNoEntry, 0, {130, 121, 128, 129}},
                      ListCase{"Action144", 144, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"Action154", 154, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"ActionMinus1", -1, 0, kNo, kNoEntry, 0, kBase},
                      ListCase{"ActionMin", kMin, 0, kNo, kNoEntry, 0, kBase},
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

TEST_F(ChatEvent, FillsEveryPartAndTheBodyInOrder) {
  ChatInteractInfo_s info;
  info.action_type = 11;
  info.value_a = 1, info.value_b = 2, info.value_c = 3, info.value_d = 4, info.value_e = 5, info.value_f = 6;
  info.text1 = Kst::CStringT<wchar_t>(L"a\0b", 3);  // cut at the NUL
  info.text2 = L"\u00fc";
  info.number = -9;
  info.has_conversation = 1;
  info.conversation = {L"c-1", 2, 5, 9};
  info.message = {L"", 3, 12, 1, 77};
  info.compose.compose_source = L"box";
  info.compose.has_bold = 1, info.compose.has_link = -1, info.compose.is_encrypted = 7;
  info.entry = {0, L"", 3};
  info.items = {{L"t1", L"i1", L"", L"f", L"d"}, {L"t2", L"i2", L"c", L"", L""}};
  EXPECT_EQ(Chat(info), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.Ops(118), "17=5|22=11|2=1|15=4|7=2|24=|20=6|5=3|9=a|13=\u00fc|11=-9");
  EXPECT_EQ(event.Ops(115), "2=c-1|3=2|4=5|5=true");
  EXPECT_EQ(event.Ops(126), "1~|3=3|4=12|5=1|6=77");
  EXPECT_EQ(event.Ops(112), "1=0|2~|4=3");
  EXPECT_EQ(event.Ops(125), "2=t1|4=i1|5~|8=f|10=d|2=t2|4=i2|6=c|7~|9~");
  std::string compose = "1=box";
  for (int op = 2; op <= 31; ++op)
    compose += "|" + std::to_string(op) + (op == 2 || op == 14 || op == 31 ? "=true" : "=false");
  EXPECT_EQ(event.Ops(127), compose);  // has_bold on 2, has_link on 14, is_encrypted on 31
}

TEST_F(ChatEvent, EmptyTextsAndZeroNumberClearWhileText3IsSet) {
  ChatInteractInfo_s info;
  info.action_type = 185;
  info.files.file_size = 1;
  EXPECT_EQ(Chat(info), 1);
  EXPECT_EQ(OnlyEvent().Ops(118), "17=0|22=185|2=0|15=0|7=0|24=|20=0|5=0|8~|12~|10~");
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

TEST_F(ChatEvent, V2SendsTheSameEvent) {
  ChatInteractInfo_s info;
  info.action_type = 145;
  EXPECT_EQ(OrboPTPAAP::TrackingPTChatEventV2({"p", "s"}, info), 1);
  EXPECT_EQ(OnlyEvent().ContextTypes(), (Types{130, 121, 128, 129}));
}

// Threads racing on one limited type at one instant: exactly one call goes out (run under
// ThreadSanitizer by the tsan leg).
TEST_F(ChatEvent, ThreadsRacingOnOneLimitedTypeSendOne) {
  std::atomic<bool> go{false};
  std::atomic<int> sent{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      while (!go.load()) {
      }
      sent += Chat(185);
    });
  }
  go = true;
  for (auto& thread : threads)
    thread.join();
  EXPECT_EQ(sent.load(), 1);
  EXPECT_EQ(host_.TakeEvents().size(), 1u);
}

}  // namespace
