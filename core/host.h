// The library's side of the host contract: finding the host's services, requesting typed entities,
// and moving strings into entity fields.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/telemetry_api.h"
#include "oKstPlatform/web_service.h"

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

// Host strings are read up to their first NUL, narrow and wide alike: a string with an embedded NUL
// goes out as the text before it (and one that starts with NUL, which the host does not call empty,
// as the empty text).

// The text of a narrow host string (UTF-8), for passing on at once: the string's own text when it holds
// no NUL (nothing is copied), else the text before its first NUL, kept in `cut`. Either lives until the
// end of the caller's full expression; keep a copy to hold it longer.
const std::string& TextOf(const Kst::CStringT<char>& text, std::string&& cut = std::string());
// The text of a wide host string as UTF-8, through the host's code-page conversion.
std::string ToUtf8(const Kst::CStringT<wchar_t>& text);
// `length` wide units as UTF-8, embedded NULs included (the caller has cut the text already).
std::string ToUtf8(const wchar_t* units, int length);
inline const std::string& Utf8Of(const Kst::CStringT<char>& text, std::string&& cut = std::string()) {
  return TextOf(text, std::move(cut));
}
inline std::string Utf8Of(const Kst::CStringT<wchar_t>& text) {
  return ToUtf8(text);
}

// The rule for string fields copied from input: an empty source clears the field, anything else sets
// its UTF-8 text.
template <class E, class Source>
void SetOrClear(E* entity, void (E::*clear)(), void (E::*set)(const std::string&), const Source& source) {
  if (source.IsEmpty()) {
    (entity->*clear)();
  } else {
    (entity->*set)(Utf8Of(source));
  }
}

// The rule of the performance reports: an empty source leaves the field alone (nothing is called, no
// clear), anything else sets its UTF-8 text.
template <class E, class Source>
void SetUnlessEmpty(E* entity, void (E::*set)(const std::string&), const Source& source) {
  if (!source.IsEmpty()) (entity->*set)(Utf8Of(source));
}

}  // namespace oet
