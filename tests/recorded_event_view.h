// One recorded event as tests read it: the types in its context list and body, and each entity's
// operations as "N=value" (N~ for a clear), joined by "|", prefixed by the field interface where one
// declares the operation ("DeviceInfo.2=ws-value"), or by the shared base or the attribute holder
// ("EntityBase.1=-3|AttributeHolder.1=3").
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/client_context.h"
#include "testing/recording_host.h"

namespace oet_test {

using oet_testing::Call;

class EventView {
 public:
  explicit EventView(oet_testing::RecordedEvent event) : event_(std::move(event)) {}

  bool submitted() const { return event_.outcome == oet_testing::RecordedEvent::Outcome::kSubmitted; }
  // Types of the context list's entries, 0 for a null entry; empty when no list was attached.
  std::vector<int32_t> ContextTypes() const {
    std::vector<int32_t> types;
    for (const Call& call : Calls(Call::Fn::kAttachEntityList)) {
      for (const int entity : call.entities)
        types.push_back(TypeOf(entity));
    }
    return types;
  }
  int32_t BodyType() const {
    const auto attached = Calls(Call::Fn::kAttachEntity);
    return attached.empty() ? 0 : TypeOf(attached.front().entity);
  }
  std::string Ops(int32_t type) const {
    std::string ops;
    for (const Call& call : Calls(Call::Fn::kEntityOp)) {
      if (call.type != type) continue;
      const std::string text = oet_testing::Describe(call);  // "#n Iface.N Name [value]"
      const size_t name_end = text.find(' ', text.find(' ', text.find(' ') + 1) + 1);
      ops += (ops.empty() ? "" : "|") +
             (call.iface.find("Entity") == std::string::npos || call.iface == "EntityBase" ? call.iface + "."
                                                                                           : "") +
             std::to_string(call.op) + (call.kind == oet_testing::OpKind::kClear ? "~" : "=");
      if (const auto* s = std::get_if<std::string>(&call.value)) {
        ops += *s;
      } else if (name_end != std::string::npos) {
        ops += text.substr(name_end + 1);
      }
    }
    return ops;
  }

 private:
  std::vector<Call> Calls(Call::Fn fn) const {
    std::vector<Call> calls;
    for (const Call& call : event_.calls) {
      if (call.fn == fn) calls.push_back(call);
    }
    return calls;
  }
  int32_t TypeOf(int entity) const {
    for (const Call& call : Calls(Call::Fn::kCreateEntity)) {
      if (call.entity == entity && entity > 0) return call.type;
    }
    return 0;
  }
  oet_testing::RecordedEvent event_;
};

// A recording host and an unfilled client-context cache for every case.
class RecordedEventTest : public ::testing::Test {
 protected:
  void SetUp() override { oet::ResetClientContextForTesting(); }
  EventView OnlyEvent() {
    std::vector<oet_testing::RecordedEvent> events = host_.TakeEvents();
    EXPECT_EQ(events.size(), 1u);
    return EventView(events.empty() ? oet_testing::RecordedEvent() : events.front());
  }
  oet_testing::RecordingHost host_;
};

}  // namespace oet_test
