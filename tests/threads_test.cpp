// Exports and process-wide state under several threads at once (ctest label "threads": the
// ThreadSanitizer leg runs these): exports racing to fill the client-context cache and after it is
// filled, a fill that waits for another thread's export, two threads racing on one rate-limit key, and
// post-meeting stores racing reports.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "core/post_meeting.h"
#include "core/rate_limit.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "tests/test_support.h"

namespace {

using namespace OrboPTPAAP;

int SwitchTabs(int32_t first, int32_t second) {
  PTInteractInfo_s info;
  info.first_tab = first;
  info.second_tab = second;
  return TrackingPTInteractEvent({"p", "s"}, info);
}

// From an unfilled cache (the threads race to fill it) and from a filled one (no thread may ask again):
// every event is built whole and the process-wide state stays consistent.
class ConcurrentExports : public oet_test::HostTest, public ::testing::WithParamInterface<bool> {};

TEST_P(ConcurrentExports, EveryEventWholeAndStateConsistent) {
  const bool filled_first = GetParam();
  if (filled_first) {
    ASSERT_EQ(SwitchTabs(1, 2), 1);
  }
  const int fills = Asked(97);
  constexpr int kThreads = 4;
  constexpr int kCalls = 25;
  std::vector<std::thread> threads;
  std::atomic<int> submitted{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&submitted, t] {
      for (int i = 0; i < kCalls; ++i) {
        submitted += SwitchTabs(1 + i % 19, 2);
        PostMeetingTrackingInfo_s info;
        info.text1 = std::to_string(t).c_str();
        info.text3 = L"meeting";
        StoreMeetingInfo4PostEvents(info);
      }
    });
  }
  for (auto& thread : threads)
    thread.join();
  EXPECT_EQ(submitted.load(), kThreads * kCalls);
  const auto events = host_.Events();
  EXPECT_EQ(events.size(), static_cast<size_t>(kThreads * kCalls + (filled_first ? 1 : 0)));
  EXPECT_TRUE(filled_first ? Asked(97) == fills : Asked(97) > fills);
  for (const auto& event : events)
    EXPECT_EQ(oet_testing::Describe(event.calls).back(), "SubmitEvent 3 1 params=0");
  EXPECT_EQ(oet::TakePostMeetingStrings().text3, L"meeting");
}

INSTANTIATE_TEST_SUITE_P(Cache, ConcurrentExports, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Filled" : "Unfilled"; });

// A web service that, while it fills, waits for another thread's export call: that thread must not wait
// for this fill in turn (it refreshes on its own), or both would hang.
using ClientContextFill = oet_test::HostTest;

TEST_F(ClientContextFill, WaitingForAnotherThreadDoesNotDeadlock) {
  std::atomic<bool> waited{false};
  std::atomic<int> other_result{-1};
  host_.web_service().SetFillHook([&] {
    if (waited.exchange(true)) return;
    std::thread other([&] { other_result = SwitchTabs(2, 1); });
    other.join();
  });
  EXPECT_EQ(SwitchTabs(1, 3), 1);
  host_.web_service().SetFillHook(nullptr);
  EXPECT_EQ(other_result.load(), 1);
}

// Of several threads racing on one key inside one window, exactly one is accepted, however they
// interleave.
TEST(RateLimitTable, RacingThreadsAcceptExactlyOne) {
  const oet_test::TestClock clock;
  for (int round = 0; round < 200; ++round) {
    oet::RateLimitTable<int32_t, 1> table(165);
    std::atomic<int> admitted{0};
    std::atomic<bool> go{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
      threads.emplace_back([&] {
        while (!go.load()) {
        }
        admitted += table.Admit(165) ? 1 : 0;
      });
    }
    go = true;
    for (auto& thread : threads)
      thread.join();
    ASSERT_EQ(admitted.load(), 1) << "round " << round;
  }
}

// Stores racing reports: every report carries one meeting's strings or none, and a meeting whose
// strings were cleared was reported.
using PostMeeting = oet_test::HostTest;

TEST_F(PostMeeting, StoresRacingReports) {
  oet::StorePostMeetingStrings({});
  const auto store = [](const std::string& n) {
    const std::string a = "a" + n, b = "b" + n;
    StoreMeetingInfo4PostEvents({a.c_str(), b.c_str(), Kst::Utf8ToWide("t" + n), ""});
  };
  constexpr int kStores = 100;
  std::atomic<bool> storing{true};
  std::atomic<int> reporting{0};
  std::thread storer([&] {
    while (reporting.load() < 2) {
    }
    for (int n = 1; n <= kStores; ++n) {
      store(std::to_string(n));
      std::this_thread::yield();
    }
    storing = false;
  });
  std::vector<std::thread> reports;
  for (int t = 0; t < 2; ++t) {
    reports.emplace_back([&] {
      ++reporting;
      while (storing.load())
        TrackingPostMeetingEvent({2, 1});
    });
  }
  storer.join();
  for (auto& thread : reports)
    thread.join();
  std::set<std::string> reported;
  for (const auto& recorded : host_.TakeEvents()) {
    const oet_test::EventView event(recorded);
    if (!event.submitted()) continue;  // before the first store
    const std::string ops = event.Ops(288);
    const std::string text1 = ops.substr(2, ops.find('|') - 2);
    const size_t b = ops.find("|5=") + 3;
    const std::string text2 = ops.substr(b, ops.find('|', b) - b);
    ASSERT_EQ(text1.empty() ? "" : text1.substr(1), text2.empty() ? "" : text2.substr(1)) << ops;
    reported.insert(text1);
  }
  const auto kept = oet::TakePostMeetingStrings();
  const std::string last = std::to_string(kStores);
  EXPECT_TRUE(kept.text1.str() == "a" + last || (kept.text1.IsEmpty() && reported.count("a" + last) == 1))
      << kept.text1.str();
  EXPECT_EQ(kept.text2.str(), kept.text1.IsEmpty() ? "" : "b" + last);
  EXPECT_EQ(Kst::WideToUtf8(kept.text3), "t" + last);
}

}  // namespace
