#include "core/post_meeting.h"

#include <mutex>
#include <utility>

namespace oet {
namespace {

struct Store {
  std::mutex mutex;
  PostMeetingStrings strings;
  uint64_t generation = 0;
};

Store& TheStore() {
  static Store& store = *new Store;  // never destroyed: see the header
  return store;
}

}  // namespace

PostMeetingSnapshot SnapshotPostMeetingStrings() {
  Store& store = TheStore();
  std::lock_guard<std::mutex> lock(store.mutex);
  return PostMeetingSnapshot{store.strings, store.generation};
}

void StorePostMeetingStrings(PostMeetingStrings strings) {
  Store& store = TheStore();
  std::lock_guard<std::mutex> lock(store.mutex);
  store.strings = std::move(strings);
  ++store.generation;
}

void ClearReportedPostMeetingStrings(uint64_t generation) {
  Store& store = TheStore();
  std::lock_guard<std::mutex> lock(store.mutex);
  if (store.generation != generation) return;  // a newer meeting's strings: keep them
  store.strings.text1 = Kst::CStringT<char>();
  store.strings.text2 = Kst::CStringT<char>();
  store.strings.text4 = Kst::CStringT<char>();
}

}  // namespace oet
