// Thread cancellation (Linux): a caller cancelled while the host blocks in a cancellation point unwinds
// through the library (the process goes on), and the event the library had created is destroyed.
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>

#include "core/client_context.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "testing/recording_host.h"

namespace {

TEST(Cancellation, ACancelledCallerUnwindsAndItsEventIsDestroyed) {
  oet_testing::RecordingHost host;
  oet::ResetClientContextForTesting();
  host.web_service().SetContextAnswer({"", "", "", ""});  // the cache stays unfilled: the event refreshes it
  std::atomic<bool> blocked{false};
  // The cache refresh inside the event (not the one before it) blocks until the thread is cancelled.
  host.web_service().SetFillHook([&] {
    if (host.OpenEventCount() == 0) return;
    blocked = true;
    for (;;)
      sleep(1);  // a cancellation point
  });
  pthread_t caller;
  const auto track = [](void*) -> void* {
    OrboPTPAAP::TrackingPTInteractEvent({}, {});
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&caller, nullptr, track, nullptr), 0);
  while (!blocked)
    usleep(1000);
  pthread_cancel(caller);
  void* result = nullptr;
  pthread_join(caller, &result);
  host.web_service().SetFillHook(nullptr);
  EXPECT_EQ(result, PTHREAD_CANCELED);
  const std::vector<oet_testing::RecordedEvent> events = host.TakeEvents();
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].outcome, oet_testing::RecordedEvent::Outcome::kDestroyed);
}

}  // namespace
