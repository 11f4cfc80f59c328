#include "core/made_text.h"

namespace oet {
namespace {

// The state of the calling thread's buffer. Plain data, so that it can be read at any moment of the
// thread's life, its exit included.
enum class BufferState : unsigned char { kFree, kLeased, kGone };
thread_local BufferState t_state = BufferState::kFree;

struct ThreadBuffer {
  std::string text;
  ~ThreadBuffer() { t_state = BufferState::kGone; }
};

}  // namespace

void MadeText::Lease() {
  if (t_state != BufferState::kFree) return;  // held further up this thread's stack, or gone
  // Made on the thread's first long text, destroyed when the thread ends.
  static thread_local ThreadBuffer buffer;
  t_state = BufferState::kLeased;
  text_ = &buffer.text;
  leased_ = true;
}

void MadeText::GiveBack() {
  if (t_state != BufferState::kLeased) return;  // the thread is ending and its buffer is gone
  if (text_->capacity() > kKeptCapacity) std::string().swap(*text_);
  t_state = BufferState::kFree;
}

}  // namespace oet
