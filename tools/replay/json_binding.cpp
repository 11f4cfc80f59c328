#include "tools/replay/json_binding.h"

#include <cstdio>

#include "oKstPlatform/kst_convert.h"
#include "testing/event_json.h"

namespace oet_replay {

void Issues::Add(const std::string& message) {
  messages_.push_back(EscapeIllFormed(message));
}

void Issues::AddField(const std::string& path, const std::string& message) {
  Add("field \"" + path + "\": " + message);
}

std::string EscapeIllFormed(const std::string& text) {
  if (oet_testing::IsUtf8(text)) return text;
  std::string out;
  for (size_t at = 0; at < text.size();) {
    const size_t length = oet_testing::Utf8SequenceAt(text, at);
    if (length > 0) {
      out.append(text, at, length);
      at += length;
    } else {
      out += "\\x" + oet_testing::HexBytes(text.substr(at, 1));
      ++at;
    }
  }
  return out;
}

std::string CompactText(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Shown(const Json& value) {
  if (value.is_object()) return "an object";
  if (value.is_array()) return "an array";
  std::string text = CompactText(value);
  if (text.size() > 60) text = text.substr(0, 57) + "...";
  return text;
}

std::string MemberPath(const std::string& path, const std::string& member) {
  return path.empty() ? member : path + "." + member;
}

void ReadInteger(const Json& in, int64_t min, uint64_t max, const IntegerWords& words,
                 const std::string& path, Issues& issues, const std::function<void(int64_t)>& signed_out,
                 const std::function<void(uint64_t)>& unsigned_out) {
  if (in.is_number_unsigned()) {
    const auto value = in.get<uint64_t>();
    if (value > max) {
      issues.AddField(path, Shown(in) + " is out of range for " + words.range);
    } else {
      unsigned_out(value);
    }
  } else if (in.is_number_integer()) {
    const auto value = in.get<int64_t>();
    if (value < min || (value > 0 && static_cast<uint64_t>(value) > max)) {
      issues.AddField(path, Shown(in) + " is out of range for " + words.range);
    } else {
      signed_out(value);
    }
  } else if (in.is_number_float() && (in.get<double>() >= 18446744073709551616.0 ||   // 2^64
                                      in.get<double>() <= -9223372036854775808.0)) {  // -2^63
    // An integer too long for 64 bits reads as a double; no integer member can hold it.
    issues.AddField(path, Shown(in) + " is out of range for " + words.range);
  } else {
    issues.AddField(path, Shown(in) + " is not " + words.kind);
  }
}

void Codec<bool>::Read(const Json& in, bool& out, const std::string& path, Issues& issues) {
  if (in.is_boolean()) {
    out = in.get<bool>();
  } else {
    issues.AddField(path, Shown(in) + " is not true or false");
  }
}

void Codec<double>::Read(const Json& in, double& out, const std::string& path, Issues& issues) {
  if (in.is_number()) {
    out = in.get<double>();
  } else if (in == "NaN") {
    out = std::numeric_limits<double>::quiet_NaN();
  } else if (in == "Infinity" || in == "-Infinity") {
    out =
        in == "Infinity" ? std::numeric_limits<double>::infinity() : -std::numeric_limits<double>::infinity();
  } else {
    issues.AddField(path, Shown(in) + " is not a number (nor \"NaN\", \"Infinity\" or \"-Infinity\")");
  }
}

Json Codec<double>::Write(const double& value) {
  return oet_testing::DoubleToJson(value);
}

namespace {

// The units written in `hex` as groups of `digits` hex digits (spaces allowed between groups); false
// when it is not that.
bool ReadHexUnits(const std::string& hex, size_t digits, std::vector<uint32_t>& units) {
  size_t in_unit = 0;
  for (const char c : hex) {
    if (c == ' ') {
      if (in_unit != 0) return false;
      continue;
    }
    const int digit = c >= '0' && c <= '9'   ? c - '0'
                      : c >= 'A' && c <= 'F' ? c - 'A' + 10
                      : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                             : -1;
    if (digit < 0) return false;
    if (in_unit == 0) units.push_back(0);
    units.back() = units.back() * 16 + static_cast<uint32_t>(digit);
    in_unit = (in_unit + 1) % digits;
  }
  return in_unit == 0;
}

// A text member: a JSON string (kString), or its form {"KEY": "HEX"} read into `units` of `digits` hex
// digits each (kUnits); anything else is reported (kWrong).
enum class TextGiven { kString, kUnits, kWrong };
TextGiven ReadText(const Json& in, const char* key, size_t digits, const std::string& path, Issues& issues,
                   std::vector<uint32_t>& units) {
  if (in.is_string()) return TextGiven::kString;
  if (!in.is_object()) {
    issues.AddField(path, Shown(in) + " is not a string");
    return TextGiven::kWrong;
  }
  const std::string form =
      std::string("{\"") + key + "\": \"" + (digits == 2 ? "61 E2 82" : "0061 D800") + "\"}";
  if (in.size() != 1 || !in.contains(key)) {
    issues.AddField(path, Shown(in) + " is not a string (nor " + form + ")");
    return TextGiven::kWrong;
  }
  const Json& hex = in[key];
  if (!hex.is_string() || !ReadHexUnits(hex.get<std::string>(), digits, units)) {
    issues.AddField(MemberPath(path, key), Shown(hex) + " is not " + std::to_string(digits) +
                                               " hex digits a unit, spaces between units allowed");
    return TextGiven::kWrong;
  }
  return TextGiven::kUnits;
}

// The UTF-16 code units of a wide text, and whether they are well-formed (no lone surrogate). Where
// wchar_t holds UTF-32, a character above U+FFFF gives a surrogate pair, and a value no UTF-16 can
// hold (above U+10FFFF, negative) gives FFFD and counts as ill-formed.
bool Utf16Units(const std::wstring& text, std::vector<uint32_t>& units) {
  bool well_formed = true;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<uint32_t>(text[i]);
    if (c >= 0xD800 && c <= 0xDBFF && sizeof(wchar_t) == 2 && i + 1 < text.size() &&
        static_cast<uint32_t>(text[i + 1]) >= 0xDC00 && static_cast<uint32_t>(text[i + 1]) <= 0xDFFF) {
      units.push_back(c);
      units.push_back(static_cast<uint32_t>(text[++i]));
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      units.push_back(c);
      well_formed = false;
    } else if (c < 0x10000) {
      units.push_back(c);
    } else if (c <= 0x10FFFF) {
      units.push_back(0xD800 + ((c - 0x10000) >> 10));
      units.push_back(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      units.push_back(0xFFFD);
      well_formed = false;
    }
  }
  return well_formed;
}

}  // namespace

bool IsTextForm(const Json& value) {
  return value.is_object() && value.size() == 1 && (value.contains("bytes") || value.contains("utf16"));
}

void Codec<std::string>::Read(const Json& in, std::string& out, const std::string& path, Issues& issues) {
  std::vector<uint32_t> bytes;
  const TextGiven given = ReadText(in, "bytes", 2, path, issues, bytes);
  if (given == TextGiven::kString) out = in.get<std::string>();
  if (given == TextGiven::kUnits) out.assign(bytes.begin(), bytes.end());
}

Json Codec<std::string>::Write(const std::string& value) {
  return oet_testing::TextToJson(value);
}

void Codec<Kst::CStringT<char>>::Read(const Json& in, Kst::CStringT<char>& out, const std::string& path,
                                      Issues& issues) {
  std::string text;
  Issues own;
  Codec<std::string>::Read(in, text, path, own);
  if (own.empty()) out = Kst::CStringT<char>(text);
  for (const auto& message : own.messages())
    issues.Add(message);
}

void Codec<Kst::CStringT<wchar_t>>::Read(const Json& in, Kst::CStringT<wchar_t>& out, const std::string& path,
                                         Issues& issues) {
  std::vector<uint32_t> units;
  const TextGiven given = ReadText(in, "utf16", 4, path, issues, units);
  if (given == TextGiven::kString) out = Kst::Utf8ToWide(in.get<std::string>());
  if (given != TextGiven::kUnits) return;
  std::wstring text;
  for (size_t i = 0; i < units.size(); ++i) {
    const uint32_t unit = units[i];
    // Where wchar_t holds UTF-32, a surrogate pair is one character; a lone surrogate stays as it is.
    if (sizeof(wchar_t) == 4 && unit >= 0xD800 && unit <= 0xDBFF && i + 1 < units.size() &&
        units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF) {
      text += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (units[++i] - 0xDC00));
    } else {
      text += static_cast<wchar_t>(unit);
    }
  }
  out = Kst::CStringT<wchar_t>(text);
}

Json Codec<Kst::CStringT<wchar_t>>::Write(const Kst::CStringT<wchar_t>& value) {
  std::vector<uint32_t> units;
  if (Utf16Units(value.str(), units)) return Kst::WideToUtf8(value);
  std::string hex;
  for (const uint32_t unit : units) {
    char digits[8];
    std::snprintf(digits, sizeof digits, "%s%04X", hex.empty() ? "" : " ", static_cast<unsigned>(unit));
    hex += digits;
  }
  Json out = Json::object();
  out["utf16"] = hex;
  return out;
}

Json Codec<Kst::CStringT<char>>::Write(const Kst::CStringT<char>& value) {
  return oet_testing::TextToJson(value.str());
}

namespace {

constexpr int64_t kMaxMilliseconds = std::numeric_limits<int64_t>::max() / 1000;

bool IsLeapYear(int64_t year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int64_t year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// Days from 1970-01-01 to the given civil date (proleptic Gregorian calendar).
int64_t DaysFromCivil(int64_t year, int64_t month, int64_t day) {
  year -= month <= 2 ? 1 : 0;
  const int64_t era = (year >= 0 ? year : year - 399) / 400;
  const int64_t year_of_era = year - era * 400;
  const int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468;
}

// The number written in text[from, from + width), all digits; -1 otherwise.
int64_t Digits(const std::string& text, size_t from, size_t width) {
  int64_t value = 0;
  for (size_t i = from; i < from + width; ++i) {
    if (text[i] < '0' || text[i] > '9') return -1;
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

}  // namespace

std::optional<Kst::Time> ParseIsoTime(const std::string& text) {
  // YYYY-MM-DDTHH:MM:SS.mmmZ
  // 0123456789012345678901234
  if (text.size() != 24) return std::nullopt;
  const std::pair<size_t, char> separators[] = {{4, '-'},  {7, '-'},  {10, 'T'}, {13, ':'},
                                                {16, ':'}, {19, '.'}, {23, 'Z'}};
  for (const auto& [at, c] : separators) {
    if (text[at] != c) return std::nullopt;
  }
  const int64_t year = Digits(text, 0, 4);
  const int64_t month = Digits(text, 5, 2);
  const int64_t day = Digits(text, 8, 2);
  const int64_t hour = Digits(text, 11, 2);
  const int64_t minute = Digits(text, 14, 2);
  const int64_t second = Digits(text, 17, 2);
  const int64_t millisecond = Digits(text, 20, 3);
  if (year < 0 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, static_cast<int>(month)) ||
      hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59 || millisecond < 0) {
    return std::nullopt;
  }
  const int64_t seconds = DaysFromCivil(year, month, day) * 86400 + hour * 3600 + minute * 60 + second;
  return Kst::Time::FromUnixMilliseconds(seconds * 1000 + millisecond);
}

std::string FormatIsoTime(Kst::Time time) {
  Kst::Time::Exploded e;
  time.UTCExplode(&e);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", e.year, e.month, e.day_of_month,
                e.hour, e.minute, e.second, e.millisecond);
  return text;
}

void Codec<Kst::Time>::Read(const Json& in, Kst::Time& out, const std::string& path, Issues& issues) {
  static const std::string kForms = " (Unix milliseconds or \"YYYY-MM-DDTHH:MM:SS.mmmZ\")";
  if (in.is_string()) {
    if (const auto time = ParseIsoTime(in.get<std::string>())) {
      out = *time;
    } else {
      issues.AddField(path, Shown(in) + " is not a time" + kForms);
    }
    return;
  }
  Issues own;
  ReadInteger(
      in, -kMaxMilliseconds, static_cast<uint64_t>(kMaxMilliseconds), {"a time", "a time"}, path, own,
      [&out](int64_t ms) { out = Kst::Time::FromUnixMilliseconds(ms); },
      [&out](uint64_t ms) { out = Kst::Time::FromUnixMilliseconds(static_cast<int64_t>(ms)); });
  for (const auto& message : own.messages())
    issues.Add(message + kForms);
}

Json Codec<Kst::Time>::Write(const Kst::Time& value) {
  if (value.is_null()) return 0;
  return FormatIsoTime(value);
}

}  // namespace oet_replay
