// How rows of parameterised tests show up in test names: short texts built from the row's own values,
// the same for narrow and wide text and on every platform.
#pragma once

#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <type_traits>

namespace oet_test {

// The code of one text unit, never negative (char and, on Linux, wchar_t are signed).
template <class C>
uint32_t UnitCode(C unit) {
  return static_cast<uint32_t>(static_cast<std::make_unsigned_t<C>>(unit));
}

// The code of one text unit as upper-case hex: two digits for a byte, at least four for a wide unit.
template <class C>
std::string UnitHex(C unit) {
  std::ostringstream out;
  out << std::uppercase << std::hex << std::setfill('0') << std::setw(sizeof(C) == 1 ? 2 : 4)
      << UnitCode(unit);
  return out.str();
}

// A test name from text: ASCII letters and digits stay, every other unit becomes '_' and its hex code
// (so different texts never give the same name); no text gives "Empty".
template <class C>
std::string NameOf(const std::basic_string<C>& text) {
  if (text.empty()) return "Empty";
  std::string name;
  for (const C unit : text) {
    const uint32_t code = UnitCode(unit);
    const bool alnum =
        (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
    name += alnum ? std::string(1, static_cast<char>(code)) : "_" + UnitHex(unit);
  }
  return name;
}
inline std::string NameOf(const char* text) {
  return text == nullptr ? "Null" : NameOf(std::string(text));
}

// A test name from a number: "Minus" stands for the sign, which a name cannot hold.
inline std::string NameOf(int64_t number) {
  return number < 0 ? "Minus" + std::to_string(-static_cast<uint64_t>(number)) : std::to_string(number);
}

}  // namespace oet_test
