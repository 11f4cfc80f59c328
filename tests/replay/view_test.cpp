// The readable view: one line per call, each event as a tree of its attachments and entities, values
// exact, and everything unusual (null entries, clears, entities never attached, entity types the host
// gave none of, calls that threw) visible.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/replay/double_cases.h"
#include "tools/replay/view.h"

namespace oet_replay {
namespace {

using oet_testing::Call;
using oet_testing::OpKind;
using oet_testing::OpValue;
using oet_testing::RecordedEvent;

// A host call of kind `fn`, filled in by `set`.
template <class Set>
Call Made(Call::Fn fn, Set set) {
  Call call;
  call.fn = fn;
  set(call);
  return call;
}

Call Entity(int32_t type, int number) {
  return Made(Call::Fn::kCreateEntity, [&](Call& c) {
    c.type = type;
    c.entity = number;
  });
}

Call Op(int number, int32_t type, const char* name, OpKind kind, OpValue value = {}) {
  return Made(Call::Fn::kEntityOp, [&](Call& c) {
    c.entity = number;
    c.type = type;
    c.iface = "I";
    c.op = 1;
    c.name = name;
    c.kind = kind;
    c.value = std::move(value);
  });
}

Call List(int32_t id, std::vector<int> entities) {
  return Made(Call::Fn::kAttachEntityList, [&](Call& c) {
    c.attachment_id = id;
    c.entities = std::move(entities);
  });
}

Call Single(int32_t id, int entity) {
  return Made(Call::Fn::kAttachEntity, [&](Call& c) {
    c.attachment_id = id;
    c.entity = entity;
  });
}

Call Submit(int32_t first, int32_t second) {
  return Made(Call::Fn::kSubmitEvent, [&](Call& c) {
    c.first_code = first;
    c.second_code = second;
    c.params = 0;
  });
}

RecordedEvent Event(int number, RecordedEvent::Outcome outcome, std::vector<Call> calls) {
  RecordedEvent event;
  event.number = number;
  event.outcome = outcome;
  event.calls.push_back(Made(Call::Fn::kCreateEvent, [&](Call& c) { c.event = number; }));
  event.calls.insert(event.calls.end(), calls.begin(), calls.end());
  return event;
}

TEST(ViewTest, ShowsAnEventAsATreeOfItsAttachments) {
  CallResult result;
  result.result = 1;
  const RecordedEvent event = Event(
      7, RecordedEvent::Outcome::kSubmitted,
      {Entity(283, 1), Op(1, 283, "SetWebServiceValue", OpKind::kString, std::string("ws \"q\"")),
       Op(1, 283, "ClearGpuModel", OpKind::kClear), Entity(304, 2),
       Op(2, 304, "SetTotalRam", OpKind::kInt64, int64_t{16}), List(203, {1, 0, 2}), Entity(282, 3),
       Op(3, 282, "Prepare", OpKind::kCall), Op(3, 282, "SetFlag", OpKind::kBool, true), Single(201, 3),
       Entity(285, 0), Entity(370, 4), Op(4, 370, "SetValueA", OpKind::kInt32, int32_t{-3}), Submit(3, 1)});
  EXPECT_EQ(ViewOfCall(13, "Ns::Export", Json("a note"), result, {event}),
            "line 13  Ns::Export -> 1  # a note\n"
            "  event 7  submitted  codes 3 1\n"
            "    context 203\n"
            "      #1 283 ClientEntity\n"
            "        WebServiceValue = \"ws \\\"q\\\"\"\n"
            "        GpuModel cleared\n"
            "      null\n"
            "      #2 304 TrackingInfoEntity\n"
            "        TotalRam = 16\n"
            "    body 201\n"
            "      #3 282 TabSwitchEntity\n"
            "        Prepare()\n"
            "        Flag = true\n"
            "    not attached\n"
            "      #4 370 PhoneBodyEntity\n"
            "        ValueA = -3\n"
            "    no entity given for 285 HomeTabEntity\n"
            "\n");
}

TEST(ViewTest, ShowsDestroyedAndOpenEventsAndTheCallThatThrew) {
  CallResult result;
  result.result = 0;
  Call threw = Entity(283, 1);
  threw.threw = true;
  const RecordedEvent destroyed = Event(1, RecordedEvent::Outcome::kDestroyed,
                                        {Made(Call::Fn::kDestroyEvent, [](Call& c) { c.first_code = 1; })});
  const RecordedEvent open = Event(2, RecordedEvent::Outcome::kOpen, {threw});
  EXPECT_EQ(ViewOfCall(4, "Ns::Export", Json(), result, {destroyed, open}),
            "line 4  Ns::Export -> 0\n"
            "  event 1  destroyed (1)\n"
            "  event 2  open\n"
            "    not attached\n"
            "      #1 283 ClientEntity\n"
            "    threw at CreateEntity 283 -> #1\n"
            "\n");
}

class ViewDoubleTest : public ::testing::TestWithParam<DoubleCase> {};

TEST_P(ViewDoubleTest, ShowsTheExactDouble) {
  CallResult result;
  result.result = 1;
  const RecordedEvent event =
      Event(1, RecordedEvent::Outcome::kSubmitted,
            {Entity(283, 1), Op(1, 283, "SetShare", OpKind::kDouble, GetParam().value), Single(201, 1),
             Submit(3, 1)});
  EXPECT_THAT(ViewOfCall(1, "E", Json(), result, {event}),
              ::testing::HasSubstr(std::string("        Share = ") + GetParam().view + "\n"));
}

INSTANTIATE_TEST_SUITE_P(Values, ViewDoubleTest, ::testing::ValuesIn(kDoubleCases), DoubleCaseName);

TEST(ViewTest, ShowsFilledRecordsAndDirectivesOneMemberAfterTheOther) {
  CallResult result;
  result.filled = Json::parse(R"({"info": {"domain": "acme", "nested": {"n": 2}, "list": [1, 2]}})");
  EXPECT_EQ(ViewOfCall(2, "Ns::Fill", Json(), result, {}),
            "line 2  Ns::Fill\n"
            "  filled info\n"
            "    domain = \"acme\"\n"
            "    nested.n = 2\n"
            "    list = [1,2]\n"
            "\n");
  EXPECT_EQ(ViewOfDirective(3, "clock", Json("later"),
                            Json::parse(R"({"set": "2026-03-09T08:00:00.000Z", "advance_ms": 5})")),
            "line 3  host clock  set = \"2026-03-09T08:00:00.000Z\", advance_ms = 5  # later\n");
}

}  // namespace
}  // namespace oet_replay
