// Every export called from sixteen threads at once while another thread keeps changing the host
// underneath (services going and coming back, entity types failing, the clock moving). Nothing may
// crash, hang or race (the test command runs this under ThreadSanitizer), and every event must end
// submitted or destroyed.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/url_utils.h"
#include "testing/recording_host.h"
#include "tests/robustness/export_cases.h"

namespace {

TEST(ExportStress, SixteenThreadsWithTheHostChangingUnderneath) {
  oet_testing::RecordingHost host;
  constexpr int kThreads = 16;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(4);
  std::atomic<bool> stop{false};
  std::atomic<long> calls{0};

  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&] {
      const auto cases = oet_robustness::AllExportCases();  // records of this thread's own
      while (!stop.load()) {
        for (const auto& c : cases) {
          for (const auto& call : c.inputs) {
            call();
            ++calls;
          }
        }
      }
    });
  }

  for (int round = 0; std::chrono::steady_clock::now() < deadline; ++round) {
    const bool on = round % 2 == 0;
    switch (round % 6) {
      case 0:
      case 1:
        host.SetWebServicePresent(on);
        break;
      case 2:
      case 3:
        host.SetTelemetryPresent(on);
        break;
      case 4:
        KstHost::SetUrlUtilsPresent(on);
        host.web_service().SetLookupPresent(on);
        host.SetCreateEntityFails(283, on);
        break;
      default:
        host.SetRegistryAvailable(on);
        break;
    }
    KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(700));
    host.TakeEvents();  // keeps the host small; events still in flight stay with it
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  stop = true;
  for (auto& thread : threads)
    thread.join();
  host.SetRegistryAvailable(true);
  KstHost::SetUrlUtilsPresent(true);
  EXPECT_GT(calls.load(), 0);
  EXPECT_EQ(host.OpenEventCount(), 0);
}

}  // namespace
