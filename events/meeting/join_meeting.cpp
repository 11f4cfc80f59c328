// The join-meeting text (its writer and reader) and the join-meeting event, whose body is the home-tab
// entity (285).
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "core/pieces.h"
#include "core/vocabulary.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"

namespace PTJoinMeetingPAAP {
namespace {

using orbo_entity::HomeTabEntity;

constexpr char kSeparator = '|';
// Pieces the reader looks at; a text may hold more, which are never read.
constexpr int kPiecesRead = 6;

// What the reader found, written to the caller's outputs only once the whole text has been read (so
// that a text which is also one of the outputs is read as it was passed).
struct JoinMeetingPieces {
  int reached = 0;  // how many pieces the text holds, up to kPiecesRead
  Kst::CStringT<char> interaction_word;
  Kst::CStringT<char> action_word;
  int first_flag = 0;
  int second_flag = 0;
};

JoinMeetingPieces ReadPieces(const Kst::CStringT<char>& text) {
  JoinMeetingPieces pieces;
  const std::string_view bytes(text.c_str());  // up to the first NUL, as every host string is read
  pieces.reached =
      oet::ForEachTrimmedPiece(bytes, kSeparator, kPiecesRead, [&](int index, std::string_view piece) {
        switch (index) {
          case 0:
            pieces.interaction_word = Kst::CStringT<char>(std::string(piece));  // any length
            break;
          case 1:
            pieces.action_word = Kst::CStringT<char>(std::string(piece));
            break;
          case 2:
            pieces.first_flag = piece == "1" ? 1 : 0;
            break;
          case 3:
            pieces.second_flag = piece == "1" ? 1 : 0;
            break;
          default:
            break;  // pieces 5 and 6 carry nothing the reader keeps
        }
      });
  return pieces;
}

// Reads the text into the outputs; throws only when memory runs out, leaving the outputs untouched.
void ReadInto(Kst::CStringT<char>& interaction_word, Kst::CStringT<char>& action_word, int& first_flag,
              int& second_flag, const Kst::CStringT<char>& text) {
  if (text.IsEmpty()) return;
  JoinMeetingPieces pieces = ReadPieces(text);
  if (pieces.reached > 0) interaction_word = std::move(pieces.interaction_word);
  if (pieces.reached > 1) action_word = std::move(pieces.action_word);
  if (pieces.reached > 2) first_flag = pieces.first_flag;
  if (pieces.reached > 3) second_flag = pieces.second_flag;
}

}  // namespace

Kst::CStringT<char> FormatJoinMeetingInteractInfoAsString(const PTJoinMeetingInteractInfo_s& info) {
  // The empty text only when memory runs out.
  return oet::Guarded(
      [&] {
        // Written on the stack and made into the host string at once, so that only the host string
        // allocates (the words are a table's, a few dozen characters at most).
        const std::string& interaction = oet::JoinMeetingInteractionWord(info.interaction_type);
        const std::string& action = oet::JoinScreenActionWord(info.join_screen_action);
        char text[256];
        const size_t length = interaction.size() + action.size() + 5;
        const char first = info.first_flag != 0 ? '1' : '0';
        const char second = info.second_flag != 0 ? '1' : '0';
        if (length > sizeof text) {
          return Kst::CStringT<char>(interaction + kSeparator + action + kSeparator + first + kSeparator +
                                     second);
        }
        char* out = std::copy(interaction.begin(), interaction.end(), text);
        *out++ = kSeparator;
        out = std::copy(action.begin(), action.end(), out);
        *out++ = kSeparator;
        *out++ = first;
        *out++ = kSeparator;
        *out++ = second;
        return Kst::CStringT<char>(text, static_cast<int>(out - text));
      },
      Kst::CStringT<char>());
}

void ParseJoinMeetingInterfactInfoFromString(Kst::CStringT<char>& interaction_word,
                                             Kst::CStringT<char>& action_word, int& first_flag,
                                             int& second_flag, const Kst::CStringT<char>& text) {
  // Should memory run out while reading, the outputs are left as the caller had them.
  oet::Guarded([&] {
    ReadInto(interaction_word, action_word, first_flag, second_flag, text);
    return 0;
  });
}

int TrackingPTJoinMeetingInteractEvent(const Kst::CStringT<char>& text,
                                       const PTJoinMeetingTrackingInfo_s& /*tracking*/) {
  return oet::Guarded([&] {
    if (text.IsEmpty()) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList list(2);
    list.Add(oet::BuildClientEntity(event.telemetry(), event.web_service()));
    list.Add(event.Create<orbo_entity::TrackingInfoEntity>());  // goes out without fields
    event.AttachContextAlways(std::move(list));

    Kst::CStringT<char> interaction_word;
    Kst::CStringT<char> action_word;
    int first_flag = 0;
    int second_flag = 0;
    // Read with the throwing reader: an event whose words were lost to a failed allocation is
    // destroyed rather than sent with empty words.
    ReadInto(interaction_word, action_word, first_flag, second_flag, text);
    if (auto* body = event.Create<HomeTabEntity>()) {
      body->SetThirdFlag(first_flag != 0);
      body->SetFeature("join_meeting");
      oet::SetOrClear(body, &HomeTabEntity::ClearElement, &HomeTabEntity::SetElement, action_word);
      body->SetInteractionType(oet::TextOf(interaction_word));  // set also when empty
      body->SetFirstFlag(false);
      body->SetFourthFlag(second_flag != 0);
      body->SetSecondFlag(false);
      body->SetFifthFlag(false);
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace PTJoinMeetingPAAP
