// Fuzz target of the join-meeting text reader. Any bytes are read as a join-meeting text; the outputs
// must be exactly what a separately written model of the format says (pieces cut at "|" and trimmed,
// at most six, only the reached outputs written, flags 1 only for "1"). The first bytes also make a
// record that must survive the writer and the reader: its two words, and its flags as 0/1.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "oEventTracker/PTJoinMeetingPAAP.h"

namespace {

constexpr char kBlanks[] = " \t\r\n\v\f";

std::string Trimmed(const std::string& piece) {
  const size_t first = piece.find_first_not_of(kBlanks);
  if (first == std::string::npos) return std::string();
  return piece.substr(first, piece.find_last_not_of(kBlanks) - first + 1);
}

void Require(bool holds) {
  if (!holds) std::abort();
}

// The model: every piece of the text (up to its first NUL), then as many as the reader reaches. A
// separator that ends the text starts no piece.
void CheckReader(const std::string& bytes) {
  const Kst::CStringT<char> text(bytes);
  Kst::CStringT<char> interaction = "untouched";
  Kst::CStringT<char> action = "untouched";
  int first_flag = 7;
  int second_flag = 7;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(interaction, action, first_flag, second_flag,
                                                             text);

  const std::string content(bytes.c_str());
  std::vector<std::string> pieces;
  std::string current;
  for (const char c : content) {
    if (c == '|') {
      pieces.push_back(current);
      current.clear();
    } else {
      current += c;
    }
  }
  if (!current.empty()) pieces.push_back(current);
  const size_t reached = pieces.size() < 6 ? pieces.size() : 6;
  const auto flag = [&](size_t i) { return Trimmed(pieces[i]) == "1" ? 1 : 0; };
  Require(interaction.str() == (reached > 0 ? Trimmed(pieces[0]) : "untouched"));
  Require(action.str() == (reached > 1 ? Trimmed(pieces[1]) : "untouched"));
  Require(first_flag == (reached > 2 ? flag(2) : 7));
  Require(second_flag == (reached > 3 ? flag(3) : 7));
}

const char* WordOf(int32_t value, int32_t a, const char* word_a, int32_t b, const char* word_b) {
  return value == a ? word_a : value == b ? word_b : "";
}

void CheckRoundTrip(const uint8_t* data, size_t size) {
  int32_t values[4] = {};
  std::memcpy(values, data, size < sizeof values ? size : sizeof values);
  // Small values reach the words as often as not.
  const PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s info{values[0] % 4, values[1] % 4, values[2],
                                                            values[3]};
  Kst::CStringT<char> interaction;
  Kst::CStringT<char> action;
  int first_flag = 7;
  int second_flag = 7;
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(
      interaction, action, first_flag, second_flag,
      PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString(info));
  Require(interaction.str() == WordOf(info.interaction_type, 1, "button_clicked", 2, "screen_displayed"));
  Require(action.str() == WordOf(info.join_screen_action, 1, "screen_displayed", 3, "cancel"));
  Require(first_flag == (info.first_flag != 0 ? 1 : 0));
  Require(second_flag == (info.second_flag != 0 ? 1 : 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  CheckReader(std::string(reinterpret_cast<const char*>(data), size));
  CheckRoundTrip(data, size);
  return 0;
}
