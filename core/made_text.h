// A text the library makes (a conversion from a wide host string, a timestamp) on its way to an entity
// operation, which takes it as `const std::string&` and copies it before it returns.
//
// A text that fits a string's own small buffer is made inside the object, as a plain string would be.
// A longer one is made in the calling thread's text buffer, which keeps its capacity from one event to
// the next, so that an event's long texts do not allocate once the thread has made texts that long
// (the buffer gives its memory back after a text that needed more than kKeptCapacity bytes).
//
// One object holds the buffer at a time: a second long text made while the first is alive (two in one
// call's arguments, or a host that calls back into the library from inside an entity operation) is
// made in its own object, which allocates as a string would. So does a text made on a thread whose
// buffer is already gone (a call from the thread's exit path, after its thread-local objects were
// destroyed).
//
// The object is pinned (neither copied nor moved; it is returned by copy elision). Bound to
// `const auto&` it lives as long as the reference; a `const std::string&` bound to a temporary
// MadeText dies with it.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace oet {

class MadeText {
 public:
  // Longer texts make the thread's buffer give its memory back once they are done with it.
  static constexpr std::size_t kKeptCapacity = 4096;
  // What every standard library's string keeps in its own small buffer, at the least.
  static constexpr std::size_t kSmall = 15;

  MadeText() = default;
  // The `length` bytes at `bytes`; a short text is made straight in the object's own string.
  MadeText(const char* bytes, std::size_t length) : own_(bytes, length <= kSmall ? length : 0) {
    if (length > kSmall) Assign(bytes, length);
  }
  // Made in place by `make(*this)`, so that a function can return the text it makes (by copy elision).
  template <class Make, class = decltype(std::declval<Make&>()(std::declval<MadeText&>()))>
  explicit MadeText(Make&& make) {
    make(*this);
  }
  MadeText(const MadeText&) = delete;
  MadeText& operator=(const MadeText&) = delete;
  ~MadeText() {
    if (leased_) GiveBack();
  }

  // The string to make a text of `length` bytes in (it may hold anything; the caller sets all of it):
  // the thread's buffer once this object holds it; else the object's own string for a short text; else
  // the thread's buffer when it is free, the object's own string when it is not.
  std::string& For(std::size_t length) {
    if (length > own_.capacity() && !leased_) Lease();
    return *text_;
  }
  void Assign(const char* bytes, std::size_t length) {
    if (length <= own_.capacity() && !leased_) {
      own_ = std::string(bytes, length);  // made and moved in place, cheaper than a general assign
    } else {
      For(length).assign(bytes, length);
    }
  }

  const std::string& str() const { return *text_; }
  operator const std::string&() const { return *text_; }  // NOLINT(google-explicit-constructor)
  bool empty() const { return text_->empty(); }

 private:
  void Lease();
  void GiveBack();

  std::string own_;
  std::string* text_ = &own_;
  bool leased_ = false;
};

inline bool IsEmptyValue(const MadeText& text) {
  return text.empty();
}

}  // namespace oet
