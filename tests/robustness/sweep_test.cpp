// Every export, made to fail in every way the host can make it fail: the n-th host call throwing at
// every position, each allocation made on the library's behalf failing in turn, each service absent,
// each entity type it requests answered with null. Each time the export must give its documented
// failure result (tracking exports 0; the product and device facts 1) or, for a missing service or
// entity, a result of its own, leave no event open in the host, leak nothing (the sanitizer build's
// leak check), and work again on the next call. Every call's host calls are checked too: each service
// is looked up as registry, then module, then class object, each step only after the one before
// answered, no telemetry call or web-service operation comes before its service was found, nothing
// past the registry is asked while it is unavailable, and once the client context is filled a call
// neither fills it again nor asks a machine fact.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <set>
#include <string>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/url_utils.h"
#include "testing/host_bookkeeping.h"
#include "testing/recording_host.h"
#include "tests/robustness/export_cases.h"

// ---- Allocation failures, one at a time, on this thread and outside the test host's own work.
namespace {

thread_local long t_countdown = 0;  // > 0: the allocation that brings it to 0 fails
thread_local long t_counted = 0;    // allocations seen while counting
thread_local bool t_counting = false;

void* Allocate(size_t size) {
  if (oet_replay::t_in_export && !oet_testing::InHostBookkeeping()) {
    if (t_counting) ++t_counted;
    if (t_countdown > 0 && --t_countdown == 0) throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(size_t size) {
  return Allocate(size);
}
void* operator new[](size_t size) {
  return Allocate(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size);
  } catch (...) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, size_t) noexcept {
  std::free(memory);
}

namespace {

using oet_replay::Json;
using oet_testing::RecordedEvent;
using oet_testing::RecordingHost;

// Replacing operator new in the program reaches the library only where the program and the library
// share one C++ runtime (Linux); a Windows DLL keeps its own.
#if defined(_WIN32)
constexpr bool kAllocationsReachTheLibrary = false;
#else
constexpr bool kAllocationsReachTheLibrary = true;
#endif

bool IsMachineFact(const oet_testing::Call& call) {
  return call.fn == oet_testing::Call::Fn::kHostCall && call.name.rfind("Kst::Get", 0) == 0 &&
         call.name != "Kst::GetCurrentVersion";
}

class ExportSweep : public ::testing::TestWithParam<std::string> {
 protected:
  // One call, a little over a second after the previous one, so that no rate limit drops it.
  Json Call(const oet_replay::PreparedCall& call) {
    KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1500));
    return call().result;
  }

  // The lookups of the last call as the host contract orders them (see the top of this file).
  void ExpectLookupsInOrder(const std::string& what) {
    using Fn = oet_testing::Call::Fn;
    std::string expected;  // the host call that must come next ("" any)
    bool telemetry = false;
    bool web_service = false;
    for (const oet_testing::Call& call : host.HostCalls()) {
      const std::string name = call.fn == Fn::kHostCall ? call.name : "telemetry";
      EXPECT_TRUE(expected.empty() || name == expected) << what << ": " << name << " where " << expected;
      const auto* answer = std::get_if<std::string>(&call.answer);
      expected = "";
      if (name == "KstMQ_GetService" && answer != nullptr) expected = "IServiceRegistry::GetModule";
      if (name == "IServiceRegistry::GetModule" && answer != nullptr)
        expected = "IServiceModule::GetClassObject";
      if (name == "IServiceModule::GetClassObject" && answer != nullptr) {
        telemetry = telemetry || *answer == "telemetry";
        web_service = web_service || *answer == "web_service";
      }
      EXPECT_TRUE(name != "telemetry" || telemetry) << what << ": a telemetry call before the lookup";
      EXPECT_TRUE(name.rfind("ICVWebServiceAPI::", 0) != 0 || web_service) << what << ": " << name;
    }
  }

  // No event of the last call is left open in the host, unless the host's own destroy failed.
  void ExpectNothingAbandoned(const std::string& what) {
    ExpectLookupsInOrder(what);
    for (const RecordedEvent& event : host.TakeEvents()) {
      if (event.outcome != RecordedEvent::Outcome::kOpen) continue;
      const bool destroy_failed = !event.calls.empty() &&
                                  event.calls.back().fn == oet_testing::Call::Fn::kDestroyEvent &&
                                  event.calls.back().threw;
      EXPECT_TRUE(destroy_failed) << what << ": event " << event.number << " left open";
    }
  }

  void ExpectWorksAgain(const oet_replay::PreparedCall& call, const Json& normal, const std::string& what) {
    EXPECT_EQ(Call(call), normal) << "the call after " << what;
    host.TakeEvents();
  }

  RecordingHost host;
};

TEST_P(ExportSweep, FailsCleanlyAndRecovers) {
  const auto cases = oet_robustness::AllExportCases();
  const oet_robustness::ExportCase* found = nullptr;
  for (const auto& c : cases)
    if (c.name == GetParam()) found = &c;
  ASSERT_NE(found, nullptr);

  for (size_t input = 0; input < found->inputs.size(); ++input) {
    SCOPED_TRACE("input " + std::to_string(input));
    const oet_replay::PreparedCall& call = found->inputs[input];

    // The steady state: the client context filled, the call as it normally goes.
    Call(call);
    host.TakeEvents();
    const Json normal = Call(call);
    const std::vector<oet_testing::Call> calls = host.Log();
    for (const oet_testing::Call& c : host.HostCalls()) {
      EXPECT_FALSE(IsMachineFact(c) || c.name == "ICVWebServiceAPI::FillClientContext")
          << c.name << " once the client context is filled";
    }
    ExpectNothingAbandoned("the steady state");
    host.SetRegistryAvailable(false);
    const Json failure = Call(call);
    host.SetRegistryAvailable(true);
    for (const oet_testing::Call& c : host.HostCalls()) {
      EXPECT_TRUE(c.fn == oet_testing::Call::Fn::kHostCall && c.name.rfind("IService", 0) != 0 &&
                  c.name.rfind("ICV", 0) != 0 && !IsMachineFact(c))
          << oet_testing::Describe(c) << " without a registry";
    }
    ExpectNothingAbandoned("no registry");
    ExpectWorksAgain(call, normal, "no registry");

    for (size_t n = 1; n <= calls.size(); ++n) {
      const std::string what = "a throw at host call " + std::to_string(n);
      host.ThrowAtCall(static_cast<int>(n));
      EXPECT_EQ(Call(call), failure) << what;
      host.ThrowAtCall(0);
      ExpectNothingAbandoned(what);
      ExpectWorksAgain(call, normal, what);
    }

    if (kAllocationsReachTheLibrary) {
      KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1500));
      t_counted = 0;
      t_counting = true;
      call();
      t_counting = false;
      const long allocations = t_counted;
      host.TakeEvents();
      for (long k = 1; k <= allocations; ++k) {
        const std::string what = "allocation " + std::to_string(k) + " failing";
        KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1500));
        t_countdown = k;
        const Json result = call().result;
        const bool failed = t_countdown == 0;
        t_countdown = 0;
        if (failed) {
          EXPECT_EQ(result, failure) << what;
        }
        ExpectNothingAbandoned(what);
        ExpectWorksAgain(call, normal, what);
      }
    }

    const std::pair<const char*, std::function<void(bool)>> services[] = {
        {"telemetry", [&](bool present) { host.SetTelemetryPresent(present); }},
        {"web service", [&](bool present) { host.SetWebServicePresent(present); }},
        {"telemetry class object", [&](bool present) { host.SetTelemetryClassObjectPresent(present); }},
        {"web-service class object", [&](bool present) { host.SetWebServiceClassObjectPresent(present); }},
        {"URL utilities", [](bool present) { KstHost::SetUrlUtilsPresent(present); }},
        {"short-key lookup", [&](bool present) { host.web_service().SetLookupPresent(present); }},
    };
    for (const auto& service : services) {
      const std::string what = std::string("no ") + service.first;
      service.second(false);
      const Json result = Call(call);
      service.second(true);
      EXPECT_TRUE(result.is_null() || result == 0 || result == 1 || result.is_string()) << what;
      ExpectNothingAbandoned(what);
      ExpectWorksAgain(call, normal, what);
    }

    std::set<int32_t> types;
    for (const auto& c : calls)
      if (c.fn == oet_testing::Call::Fn::kCreateEntity) types.insert(c.type);
    for (const int32_t type : types) {
      const std::string what = "entity " + std::to_string(type) + " null";
      host.SetCreateEntityFails(type, true);
      const Json result = Call(call);
      host.SetCreateEntityFails(type, false);
      EXPECT_TRUE(result == 0 || result == 1) << what;
      ExpectNothingAbandoned(what);
      ExpectWorksAgain(call, normal, what);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Exports, ExportSweep, ::testing::ValuesIn(oet_robustness::ExportNames()),
                         [](const auto& info) {
                           std::string name;
                           for (const char c : info.param)
                             if (std::isalnum(static_cast<unsigned char>(c))) name += c;
                           return name;
                         });

}  // namespace
