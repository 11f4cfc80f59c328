// The library's side of the host contract: finding the host's services, requesting typed entities,
// and moving strings into entity fields.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "core/made_text.h"
#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/web_service.h"

// The field helpers below take the entity's operations as member pointers; inlined where they are
// used, the pointers are constants and each operation becomes a direct call, as a hand-written
// if/else would be.
#if defined(__GNUC__)
#define OET_INLINE_FIELD_STEP __attribute__((always_inline)) inline
#else
#define OET_INLINE_FIELD_STEP inline
#endif

namespace oet {

// The telemetry service, looked up afresh through the host's registry; null when any step of the
// lookup (registry, module, class object) answers null. Nothing is cached.
iOrbotelemetryAPI* GetTelemetryApi();
// The web service, looked up the same way.
ICVWebServiceAPI* GetWebServiceApi();

// A new entity of type E (an interface of oKstPlatform/entities.h), or null.
template <class E>
E* CreateEntity(iOrbotelemetryAPI* telemetry) {
  return static_cast<E*>(telemetry->CreateEntity(E::kTypeId));
}

// How texts go out, embedded NULs included:
//  - A text the library hands to the host as the caller's own object, by reference and unchanged (a
//    record's std::string, a host string's own std::string through str(), an identifier handed to a
//    web-service lookup), is passed as it is, embedded NULs included.
//  - Every text the library converts, cuts or builds follows the first-NUL rule: host strings are read
//    up to their first NUL, narrow and wide alike, so a string with an embedded NUL goes out as the text
//    before it (and one that starts with NUL, which the host does not call empty, as the empty text).
//  - A gate on a text ("empty", "longer than 2 bytes") looks at the text as the library sends it: the
//    whole object when it is passed as it is, the text before the first NUL otherwise (so a host string
//    that starts with NUL counts as empty wherever it would go out cut).

// The text of a narrow host string (UTF-8), as TextOf gives it: the string's own text when it holds no
// NUL (nothing is copied), else the text before its first NUL, kept inside this object. A temporary
// host string is moved in and kept (moved, not copied), so the text lives as long as this object
// whatever it was made from: `const auto& t = TextOf(s);` is safe, with `s` a variable or a call's
// result. The object is pinned (neither copied nor moved; it is returned by copy elision), and only a
// `const std::string&` bound to a temporary HostText itself dies with it.
class HostText {
 public:
  // The usual case, a text without NUL, is inlined: a pointer to the string and one search.
  explicit HostText(const Kst::CStringT<char>& text) : text_(&text.str()) {
    if (std::memchr(text_->data(), 0, text_->size()) != nullptr) KeepCut(text);
  }
  explicit HostText(Kst::CStringT<char>&& text);
  HostText(const HostText&) = delete;
  HostText& operator=(const HostText&) = delete;

  const std::string& str() const { return *text_; }
  operator const std::string&() const { return *text_; }  // NOLINT(google-explicit-constructor)
  bool empty() const { return text_->empty(); }

 private:
  // Keeps the text of `text` before its first NUL in own_ and points there.
  void KeepCut(const Kst::CStringT<char>& text);

  // Points at the host string's own text when it holds no NUL and is not a temporary, else into own_.
  const std::string* text_;
  // A temporary host string moved in, or the text before the first NUL; empty in the usual case, so
  // that a HostText of a caller's string costs a pointer and a flag to make and to drop.
  std::optional<Kst::CStringT<char>> own_;
};

inline HostText TextOf(const Kst::CStringT<char>& text) {
  return HostText(text);
}
inline HostText TextOf(Kst::CStringT<char>&& text) {
  return HostText(std::move(text));
}
// Converts `units` (`length` of them, or up to the first NUL when `length` is -1) into UTF-8 in `out`,
// through the host's code-page conversion; `capacity` is the number of units to size for. A wide unit
// never takes more than four UTF-8 bytes. The host's conversion counts bytes in an int, so a text whose
// UTF-8 form would pass INT_MAX - 1 bytes is cut there, at a character boundary.
void AssignUtf8(MadeText& out, const wchar_t* units, int length, int capacity);
// The text of a wide host string as UTF-8 (up to its first NUL).
MadeText ToUtf8(const Kst::CStringT<wchar_t>& text);
// `length` wide units as UTF-8, embedded NULs included (the caller has cut the text already).
MadeText ToUtf8(const wchar_t* units, int length);
inline HostText Utf8Of(const Kst::CStringT<char>& text) {
  return TextOf(text);
}
inline HostText Utf8Of(Kst::CStringT<char>&& text) {
  return TextOf(std::move(text));
}
inline MadeText Utf8Of(const Kst::CStringT<wchar_t>& text) {
  return ToUtf8(text);
}

// Whether a value counts as not given for the set-or-clear step: an empty text, a 0 number.
inline bool IsEmptyValue(const std::string& text) {
  return text.empty();
}
inline bool IsEmptyValue(const HostText& text) {
  return text.empty();
}
template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
constexpr bool IsEmptyValue(Number value) {
  return value == 0;
}

// The set-or-clear step of a field that has a clear operation: a value that is not given (see
// IsEmptyValue) calls the clear operation, any other value the set operation with it.
template <class E, class Arg, class Value>
OET_INLINE_FIELD_STEP void SetOrClearValue(E* entity, void (E::*clear)(), void (E::*set)(Arg),
                                           const Value& value) {
  if (IsEmptyValue(value)) {
    (entity->*clear)();
  } else {
    (entity->*set)(value);
  }
}

// The rule for string fields copied from input: a source whose UTF-8 text (up to its first NUL) is
// empty clears the field, anything else sets that text.
template <class E, class Source>
OET_INLINE_FIELD_STEP void SetOrClear(E* entity, void (E::*clear)(), void (E::*set)(const std::string&),
                                      const Source& source) {
  SetOrClearValue(entity, clear, set, Utf8Of(source));
}

// The rule of the performance reports: a source whose UTF-8 text (up to its first NUL) is empty leaves
// the field alone (nothing is called, no clear), anything else sets that text.
template <class E, class Source>
OET_INLINE_FIELD_STEP void SetUnlessEmpty(E* entity, void (E::*set)(const std::string&),
                                          const Source& source) {
  const auto& text = Utf8Of(source);
  if (!IsEmptyValue(text)) (entity->*set)(text);
}

}  // namespace oet
