// The host's string class: Kst::CStringT<char> holds UTF-8 text, Kst::CStringT<wchar_t> holds the
// platform's wide text (UTF-16 where wchar_t is 16 bits, UTF-32 where it is 32 bits).
//
// A thin wrapper over std::basic_string<T> with the host's int-based interface: lengths and
// positions are ints, and "not found" is npos (-1). No member throws on a bad position or a null
// pointer; such arguments give an empty result or npos instead.
#pragma once

#include <climits>
#include <cstddef>
#include <string>

namespace Kst {

template <class T>
class CStringT {
 public:
  // The position returned by the searches when nothing is found.
  static constexpr int npos = -1;

  // An empty string.
  CStringT() = default;
  // A copy of the NUL-terminated text `s`; a null pointer gives an empty string.
  CStringT(const T* s) { assign(s); }  // NOLINT(google-explicit-constructor)
  // A copy of the first `length` units of `s`, embedded NULs included. A negative length copies up to
  // the first NUL; a null pointer gives an empty string.
  CStringT(const T* s, int length) {
    if (s == nullptr) return;
    if (length < 0) {
      assign(s);
    } else {
      s_.assign(s, static_cast<size_t>(length));
    }
  }
  // A copy of `s`.
  explicit CStringT(const std::basic_string<T>& s) : s_(s) {}
  CStringT(const CStringT&) = default;
  CStringT(CStringT&&) noexcept = default;
  CStringT& operator=(const CStringT&) = default;
  CStringT& operator=(CStringT&&) noexcept = default;
  // Replaces the contents with the NUL-terminated text `s`; a null pointer empties the string.
  CStringT& operator=(const T* s) {
    assign(s);
    return *this;
  }

  // True when the string has no units.
  bool IsEmpty() const { return s_.empty(); }
  // The contents, always NUL-terminated and never null (an empty string gives "").
  const T* c_str() const { return s_.c_str(); }
  // The number of units, not counting the terminator.
  int GetLength() const { return ToInt(s_.size()); }
  // The underlying standard string.
  const std::basic_string<T>& str() const { return s_; }

  // The position of the first occurrence of `s` at or after `start` (a negative start counts as 0),
  // or npos. A null `s` gives npos; an empty `s` is found at `start` while start <= GetLength().
  int find(const T* s, int start = 0) const {
    if (s == nullptr) return npos;
    return FromPos(s_.find(s, start < 0 ? 0 : static_cast<size_t>(start)));
  }
  int find(const CStringT& s, int start = 0) const {
    return FromPos(s_.find(s.s_, start < 0 ? 0 : static_cast<size_t>(start)));
  }
  // The position of the last occurrence of `s`, or npos. A null `s` gives npos; an empty `s` is found
  // at GetLength().
  int rfind(const T* s) const { return s == nullptr ? npos : FromPos(s_.rfind(s)); }
  int rfind(const CStringT& s) const { return FromPos(s_.rfind(s.s_)); }

  // Up to `count` units starting at `pos`. A negative pos counts as 0, a pos at or past the end gives
  // an empty string, and a negative count (npos) or one running past the end takes the rest.
  CStringT substr(int pos, int count = npos) const {
    const size_t from = pos < 0 ? 0 : static_cast<size_t>(pos);
    if (from >= s_.size()) return CStringT();
    const size_t n = count < 0 ? std::basic_string<T>::npos : static_cast<size_t>(count);
    return CStringT(s_.substr(from, n));
  }

  // Removes leading and trailing white space (' ', '\t', '\r', '\n', '\v', '\f'); returns *this.
  CStringT& Trim() {
    size_t end = s_.size();
    while (end > 0 && IsSpace(s_[end - 1]))
      --end;
    size_t begin = 0;
    while (begin < end && IsSpace(s_[begin]))
      ++begin;
    s_.erase(end);
    s_.erase(0, begin);
    return *this;
  }

  // A writable buffer of at least minLength + 1 units holding the current contents; the string's
  // length grows to minLength if it was shorter (a negative minLength counts as 0). Write up to
  // minLength units, then call SetLength with the number written. The pointer is valid until the
  // string is next changed.
  T* GetBuffer(int minLength) {
    if (minLength > 0 && static_cast<size_t>(minLength) > s_.size())
      s_.resize(static_cast<size_t>(minLength));
    return &s_[0];
  }
  // Fixes the length after writing through GetBuffer, clamped to 0..the buffer's length; the string
  // stays NUL-terminated. Units written past the new length are dropped.
  void SetLength(int length) {
    if (length < 0) length = 0;
    if (static_cast<size_t>(length) < s_.size()) s_.resize(static_cast<size_t>(length));
  }

  friend bool operator==(const CStringT& a, const CStringT& b) { return a.s_ == b.s_; }
  friend bool operator!=(const CStringT& a, const CStringT& b) { return !(a == b); }
  // A null pointer compares equal to an empty string.
  friend bool operator==(const CStringT& a, const T* b) { return b == nullptr ? a.s_.empty() : a.s_ == b; }
  friend bool operator!=(const CStringT& a, const T* b) { return !(a == b); }
  friend bool operator==(const T* a, const CStringT& b) { return b == a; }
  friend bool operator!=(const T* a, const CStringT& b) { return !(b == a); }

 private:
  void assign(const T* s) {
    if (s == nullptr) {
      s_.clear();
    } else {
      s_.assign(s);
    }
  }
  static bool IsSpace(T c) {
    return c == T(' ') || c == T('\t') || c == T('\r') || c == T('\n') || c == T('\v') || c == T('\f');
  }
  static int ToInt(size_t n) { return n > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(n); }
  static int FromPos(size_t pos) { return pos == std::basic_string<T>::npos ? npos : ToInt(pos); }

  std::basic_string<T> s_;
};

}  // namespace Kst
