#include "core/post_meeting.h"

#include <mutex>
#include <utility>

namespace oet {
namespace {

struct Store {
  std::mutex mutex;
  PostMeetingStrings strings;
};

Store& TheStore() {
  static Store& store = *new Store;  // never destroyed: see the header
  return store;
}

}  // namespace

PostMeetingStrings TakePostMeetingStrings() {
  Store& store = TheStore();
  PostMeetingStrings taken;
  std::lock_guard<std::mutex> lock(store.mutex);
  taken.text3 = store.strings.text3;  // the only copy: it stays (a failed copy leaves all as it was)
  taken.text1 = std::move(store.strings.text1);
  taken.text2 = std::move(store.strings.text2);
  taken.text4 = std::move(store.strings.text4);
  store.strings.text1 = Kst::CStringT<char>();
  store.strings.text2 = Kst::CStringT<char>();
  store.strings.text4 = Kst::CStringT<char>();
  return taken;
}

void StorePostMeetingStrings(PostMeetingStrings strings) {
  Store& store = TheStore();
  std::lock_guard<std::mutex> lock(store.mutex);
  store.strings = std::move(strings);
}

}  // namespace oet
