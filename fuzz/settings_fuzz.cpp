// Fuzz target of the settings text reader. Any bytes are read as a settings text into a record; the
// record must come out sane (a reached text is well-formed UTF-8 without commas, NULs or blanks at
// either end; unreached fields untouched). The bytes also make a record that must survive the writer
// and the reader unchanged: non-negative codes (which the host's number reader takes back) and a text
// without commas, NULs or blanks at either end.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "oEventTracker/OrboSettingPAAP.h"
#include "oKstPlatform/kst_convert.h"

namespace {

using OrboSettingPAAP::SettingInteractInfo_s;

constexpr char kBlanks[] = " \t\r\n\v\f";

void Require(bool holds) {
  if (!holds) std::abort();
}

// The text as the reader can give it back: well-formed UTF-8 (through the host's conversion), without
// commas and NULs, trimmed.
std::string Sendable(const std::string& bytes) {
  std::string text;
  for (const char c : Kst::WideToUtf8(Kst::Utf8ToWide(bytes))) {
    if (c != ',' && c != '\0') text += c;
  }
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool Equal(const SettingInteractInfo_s& a, const SettingInteractInfo_s& b) {
  return a.first_code == b.first_code && a.second_code == b.second_code && a.third_code == b.third_code &&
         a.fourth_code == b.fourth_code && a.fifth_code == b.fifth_code && a.text == b.text;
}

void CheckReader(const std::string& bytes) {
  SettingInteractInfo_s info;
  info.text = "\x01untouched";  // no text the reader can give back
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, Kst::CStringT<char>(bytes));
  const std::string content(bytes.c_str());
  size_t commas = 0;
  for (const char c : content)
    commas += c == ',';
  // The text is reached exactly when five commas are followed by something.
  const size_t fifth = commas >= 5 ? [&] {
    size_t at = 0;
    for (int i = 0; i < 5; ++i)
      at = content.find(',', at) + 1;
    return at;
  }()
                                   : std::string::npos;
  const bool reached = fifth != std::string::npos && fifth < content.size();
  if (!reached) {
    Require(info.text == "\x01untouched");
    if (content.empty()) Require(info.first_code == 0 && info.fifth_code == 0);
    return;
  }
  const std::string& text = info.text.str();
  Require(text == Sendable(text));
  Require(text == Sendable(content.substr(fifth, content.find(',', fifth) - fifth)));
}

void CheckRoundTrip(const uint8_t* data, size_t size) {
  int32_t codes[5] = {};
  const size_t head = size < sizeof codes ? size : sizeof codes;
  std::memcpy(codes, data, head);
  SettingInteractInfo_s info;
  int32_t* fields[] = {&info.first_code, &info.second_code, &info.third_code, &info.fourth_code,
                       &info.fifth_code};
  for (int i = 0; i < 5; ++i)
    *fields[i] = codes[i] & INT32_MAX;
  info.text =
      Kst::CStringT<char>(Sendable(std::string(reinterpret_cast<const char*>(data) + head, size - head)));
  SettingInteractInfo_s back;
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(
      back, OrboSettingPAAP::FormatSettingInteractInfoAsString(info));
  Require(Equal(back, info));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CheckReader(std::string(reinterpret_cast<const char*>(data), size));
  CheckRoundTrip(data, size);
  return 0;
}
