// The chat event's context list: which optional parts join it at the edges of every rule, and that it
// goes out even when the host gives none of its entities. (The body, compose flags and items:
// tests/golden/standalone_events.jsonl and event_rules.jsonl; the one-second limit of the action types
// 174 and 185: tests/rate_limit_test.cpp.)
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace {

using oet_test::Types;
using OrboPTPAAP::ChatInteractInfo_s;

struct ListCase {
  std::string name;
  int32_t action_type;
  int32_t has_conversation;
  uint64_t sequence;
  int32_t entry_kind;
  size_t items;
  Types added;  // after 130, 121, 128
};

class ChatList : public oet_test::HostTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(ChatList, HoldsThePartsItsMarkersAndActionTypeAskFor) {
  ChatInteractInfo_s info;
  info.action_type = GetParam().action_type;
  info.has_conversation = GetParam().has_conversation;
  info.message.sequence = GetParam().sequence;
  info.entry.entry_kind = GetParam().entry_kind;
  info.items.resize(GetParam().items);
  EXPECT_EQ(OrboPTPAAP::TrackingPTChatEvent({"p", "s"}, info), 1);
  const oet_test::EventView event = OnlyEvent();
  Types expected{130, 121, 128};
  expected.insert(expected.end(), GetParam().added.begin(), GetParam().added.end());
  EXPECT_EQ(event.ContextTypes(), expected);
  EXPECT_EQ(event.BodyType(), 118);
}

constexpr uint64_t kNo = OrboPTPAAP::kChatNoMessage;
constexpr int32_t kNoEntry = OrboPTPAAP::kChatNoEntry;

// Action types at the edges of the compose rule (127: 10, 11, 12, 19, 21, 22, 28) and the file rule
// (129: 145 to 153). 42 and -22 share the low five bits of 10: a shifted bit mask would take them for 10.
std::vector<ListCase> ListCases() {
  std::vector<ListCase> cases = {{"Defaults", 0, 0, kNo, kNoEntry, 0, {}},
                                 {"ConversationMinus1", 0, -1, kNo, kNoEntry, 0, {115}},
                                 {"MessageSequence0", 0, 0, 0, kNoEntry, 0, {126}},
                                 {"MessageSequenceAllButOne", 0, 0, kNo - 1, kNoEntry, 0, {126}},
                                 {"EntryKind0", 0, 0, kNo, 0, 0, {112}},
                                 {"EntryKind5", 0, 0, kNo, 5, 0, {112}},
                                 {"ThreeItems", 0, 0, kNo, kNoEntry, 3, {125, 125, 125}},
                                 {"EveryPartCompose", 11, 1, 7, 1, 2, {115, 126, 127, 112, 125, 125}},
                                 {"EveryPartFiles", 150, 1, 7, 1, 1, {115, 126, 129, 112, 125}}};
  const std::pair<int32_t, int32_t> types[] = {
      {10, 127},  {11, 127},  {12, 127}, {19, 127}, {21, 127},
      {22, 127},  {28, 127},  {9, 0},    {13, 0},   {20, 0},
      {29, 0},    {42, 0},    {-22, 0},  {-1, 0},   {std::numeric_limits<int32_t>::min(), 0},
      {145, 129}, {153, 129}, {144, 0},  {154, 0}};
  for (const auto& [type, part] : types)
    cases.push_back(
        {"Type" + oet_test::NameOf(type), type, 0, kNo, kNoEntry, 0, part ? Types{part} : Types{}});
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Markers, ChatList, ::testing::ValuesIn(ListCases()),
                         [](const auto& info) { return info.param.name; });

TEST_F(ChatList, IsAttachedEvenWhenTheHostGivesNoneOfItsEntities) {
  for (const int32_t type : {130, 121, 128, 115, 126, 127, 129, 112, 125, 118})
    host_.SetCreateEntityFails(type, true);
  ChatInteractInfo_s info;
  info.action_type = 150;
  info.has_conversation = 1;
  info.message.sequence = 0;
  info.entry.entry_kind = 0;
  info.items.resize(2);
  EXPECT_EQ(OrboPTPAAP::TrackingPTChatEvent({}, info), 1);
  const auto calls = Calls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "AttachEntityList 203 []"), 1);
  EXPECT_EQ(calls.back(), "SubmitEvent 3 1 params=0");
}

}  // namespace
