#include "core/post_meeting.h"

#include <mutex>
#include <utility>

#include "core/event.h"

namespace oet {
namespace {

struct Store {
  std::mutex mutex;
  PostMeetingStrings strings;
};

Store& TheStore() {
  static Store store;
  return store;
}

}  // namespace

PostMeetingStrings CopyPostMeetingStrings() {
  std::lock_guard<std::mutex> lock(TheStore().mutex);
  return TheStore().strings;
}

void UpdatePostMeetingStrings(const std::function<void(PostMeetingStrings&)>& update) {
  std::lock_guard<std::mutex> lock(TheStore().mutex);
  update(TheStore().strings);
}

}  // namespace oet

namespace OrboPTPAAP {

void StoreMeetingInfo4PostEvents(const PostMeetingTrackingInfo_s& info) {
  // Copies are made before the lock is taken, so that a failed allocation leaves the kept strings as
  // they were; nothing is thrown across the boundary.
  oet::Guarded([&] {
    PostMeetingTrackingInfo_s copy;
    copy.text1 = info.text1;
    copy.text2 = info.text2;
    copy.text3 = info.text3;
    copy.text4 = info.text4;
    oet::UpdatePostMeetingStrings([&](oet::PostMeetingStrings& strings) { strings = std::move(copy); });
    return 1;
  });
}

}  // namespace OrboPTPAAP
