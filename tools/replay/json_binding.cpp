#include "tools/replay/json_binding.h"

#include <cstdio>

#include "oKstPlatform/kst_convert.h"
#include "testing/event_json.h"

namespace oet_replay {

void Issues::AddField(const std::string& path, const std::string& message) {
  messages_.push_back("field \"" + path + "\": " + message);
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

void Codec<std::string>::Read(const Json& in, std::string& out, const std::string& path, Issues& issues) {
  if (in.is_string()) {
    out = in.get<std::string>();
  } else {
    issues.AddField(path, Shown(in) + " is not a string");
  }
}

void Codec<Kst::CStringT<char>>::Read(const Json& in, Kst::CStringT<char>& out, const std::string& path,
                                      Issues& issues) {
  std::string text;
  Codec<std::string>::Read(in, text, path, issues);
  if (in.is_string()) out = Kst::CStringT<char>(text);
}

void Codec<Kst::CStringT<wchar_t>>::Read(const Json& in, Kst::CStringT<wchar_t>& out, const std::string& path,
                                         Issues& issues) {
  std::string text;
  Codec<std::string>::Read(in, text, path, issues);
  if (in.is_string()) out = Kst::Utf8ToWide(text);
}

Json Codec<Kst::CStringT<wchar_t>>::Write(const Kst::CStringT<wchar_t>& value) {
  return Kst::WideToUtf8(value);
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

namespace oet_replay {

Json SampleText(SampleBuilder& samples, const char* type, const std::string& path,
                const std::string& value_path) {
  samples.NextSeed();
  samples.Add({path, type, "", "other " + value_path, {}});
  return value_path;
}

Json Codec<bool>::Sample(SampleBuilder& samples, const std::string& path, const std::string& /*value_path*/) {
  samples.NextSeed();
  samples.Add({path, "bool", false, NoSample(), {}});
  return true;
}

Json Codec<double>::Sample(SampleBuilder& samples, const std::string& path,
                           const std::string& /*value_path*/) {
  const int seed = samples.NextSeed();
  samples.Add({path, "double", 0.0, -(seed + 0.25), {}});
  return seed + 0.5;
}

// Canonical times are minutes apart from 2026-03-09T08:00:00.000Z; the other value a day later.
Json Codec<Kst::Time>::Sample(SampleBuilder& samples, const std::string& path,
                              const std::string& /*value_path*/) {
  constexpr int64_t kBase = 1773043200000;  // 2026-03-09T08:00:00.000Z
  const int64_t at = kBase + samples.NextSeed() * int64_t{60000};
  samples.Add({path, "time", 0, FormatIsoTime(Kst::Time::FromUnixMilliseconds(at + 86400000)), {}});
  return FormatIsoTime(Kst::Time::FromUnixMilliseconds(at));
}

}  // namespace oet_replay
