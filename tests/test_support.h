// The one fixture of the unit tests: a recording host and an unfilled client-context cache for every
// case (as in a new process), the recorded event as tests read it, and a clock of the test's own. The
// stand-in platform's test controls (clock, machine facts, URL utilities, registry counts) are
// included here and nowhere else in the unit tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "core/client_context.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/host_control.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/url_utils.h"
#include "testing/recording_host.h"

namespace oet_test {

using oet_testing::Call;
using Types = std::vector<int32_t>;

// One recorded event: the types in its context list and body, and each entity's operations as
// "N=value" (N~ for a clear) joined by "|", prefixed by the field interface where one declares the
// operation ("DeviceInfo.2=ws-value"), or by the shared base or the attribute holder
// ("EntityBase.1=-3|AttributeHolder.1=3").
class EventView {
 public:
  explicit EventView(oet_testing::RecordedEvent event) : event_(std::move(event)) {}

  bool submitted() const { return event_.outcome == oet_testing::RecordedEvent::Outcome::kSubmitted; }
  // Types of the context list's entries, 0 for a null entry; empty when no list was attached.
  Types ContextTypes() const {
    Types types;
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
      const bool prefixed = call.iface.find("Entity") == std::string::npos || call.iface == "EntityBase";
      ops += (ops.empty() ? "" : "|") + (prefixed ? call.iface + "." : "") + std::to_string(call.op) +
             (call.kind == oet_testing::OpKind::kClear ? "~" : "=");
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

// A stretch of host time of the test's own: set while the object lives, the system clock given back
// however the test leaves. The rate limits are process-wide and outlive each case, so every clock
// starts a day after the one before: no time stored by an earlier case can drop a later case's calls.
class TestClock {
 public:
  TestClock() : start_ms_(kFirstMs + kDayMs * ++Count()) { At(0); }
  ~TestClock() { KstHost::UseSystemClock(); }
  TestClock(const TestClock&) = delete;
  TestClock& operator=(const TestClock&) = delete;

  // Sets the host's clock to `ms` milliseconds after the clock's start.
  void At(int64_t ms) const { KstHost::SetClock(Kst::Time::FromUnixMilliseconds(start_ms_ + ms)); }
  // Sets the host's clock to a reading of its own (extremes included).
  void Set(Kst::Time time) const { KstHost::SetClock(time); }

 private:
  static constexpr int64_t kFirstMs = 1772860141042;  // 2026-03-07T05:09:01.042Z
  static constexpr int64_t kDayMs = 86400000;
  static int64_t& Count() {
    static int64_t count = 0;
    return count;
  }
  int64_t start_ms_;
};

// A call of the export `Track` with empty tracking values and a default record whose member `Member` is
// `value`.
template <class Info, int32_t Info::*Member, int (*Track)(const OrboPTPAAP::PTTrackingInfo_s&, const Info&)>
int CallWith(int32_t value) {
  Info info;
  info.*Member = value;
  return Track({}, info);
}

class HostTest : public ::testing::Test {
 protected:
  void SetUp() override { oet::ResetClientContextForTesting(); }

  // The calls recorded so far, in their short text form ("CreateEntity 283 -> #1").
  std::vector<std::string> Calls() const { return oet_testing::Describe(host_.Log()); }
  // The one event recorded since the last take, taken.
  EventView OnlyEvent() {
    std::vector<oet_testing::RecordedEvent> events = host_.TakeEvents();
    EXPECT_EQ(events.size(), 1u);
    return EventView(events.empty() ? oet_testing::RecordedEvent() : events.front());
  }
  // What became of the events not yet taken: "submitted 4 1" (the codes), "destroyed", "open", joined
  // by ", "; "none" when there is none.
  std::string Outcomes() const {
    std::string text;
    for (const oet_testing::RecordedEvent& event : host_.Events()) {
      using Outcome = oet_testing::RecordedEvent::Outcome;
      const Call& last = event.calls.back();
      text += text.empty() ? "" : ", ";
      text += event.outcome == Outcome::kDestroyed ? "destroyed"
              : event.outcome == Outcome::kOpen
                  ? "open"
                  : "submitted " + std::to_string(last.first_code) + " " + std::to_string(last.second_code);
    }
    return text.empty() ? "none" : text;
  }
  // Calls of the web service's operation `op` so far (97 fills the client context).
  int Asked(int op) { return host_.web_service().CallCount(op); }

  oet_testing::RecordingHost host_;
};

}  // namespace oet_test
