// The settings text (its writer and reader) and the settings event, whose body is the basic-interaction
// entity (157).
#include <charconv>
#include <climits>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "core/pieces.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_number.h"

namespace OrboSettingPAAP {
namespace {

using orbo_entity::BasicInteractionEntity;

constexpr char kSeparator = ',';
constexpr wchar_t kWideSeparator = L',';
constexpr int kCodes = 5;
// Pieces the reader looks at: the five codes and the text; a text may hold more, which are never read.
constexpr int kPiecesRead = kCodes + 1;
// The longest text the reader takes: its conversions count in ints, and converting a piece back to
// UTF-8 takes up to four bytes per wide unit.
constexpr size_t kMaxTextBytes = (INT_MAX - 1) / 4;

// Texts up to this many bytes are read on the stack (one wide unit per byte at most).
constexpr int kStackUnits = 64;

// What the reader found. The record is written only once the whole text has been read (so that a text
// which is the record's own text is read as it was passed); the event takes the pieces as they are.
struct SettingPieces {
  int reached = 0;  // how many pieces the text holds, up to kPiecesRead
  int32_t codes[kCodes] = {};
  std::string text;  // the sixth piece as UTF-8, when reached
};

// The code of one piece: its value as the host reads an unsigned decimal number, stored bit for bit;
// 0 when the host finds no number in it (the host then leaves the value as it was set, 0).
int32_t CodeOf(std::wstring_view piece) {
  uint32_t value = 0;
  Kst::StringToUInt(Kst::CStringT<wchar_t>(piece.data(), static_cast<int>(piece.size())), &value, 10);
  return static_cast<int32_t>(value);
}

// Converts the text to wide text once (on the stack when it is short) and reads the pieces as views
// into it; only the text piece is converted back.
SettingPieces ReadPieces(const char* utf8, size_t length) {
  SettingPieces pieces;
  if (length == 0) return pieces;
  const int bytes = static_cast<int>(length);
  // A UTF-8 byte never gives more than one wide unit: length + 1 units hold the text and its terminator.
  wchar_t on_stack[kStackUnits + 1];
  std::wstring on_heap;
  wchar_t* buffer = on_stack;
  if (bytes > kStackUnits) {
    on_heap.resize(length);
    buffer = &on_heap[0];
  }
  const int units = kst_str_convert(KST_CP_UTF8, utf8, bytes, buffer, bytes + 1);
  const std::wstring_view wide(buffer, static_cast<size_t>(units > 0 ? units : 0));

  pieces.reached =
      oet::ForEachTrimmedPiece(wide, kWideSeparator, kPiecesRead, [&](int index, std::wstring_view piece) {
        if (index < kCodes) {
          pieces.codes[index] = CodeOf(piece);
        } else {
          pieces.text = oet::ToUtf8(piece.data(), static_cast<int>(piece.size()));
        }
      });
  return pieces;
}

// Reads the text up to its first NUL, as every host string is read; a text too long for the host's
// conversions gives no pieces. Throws only when memory runs out.
SettingPieces ReadText(const Kst::CStringT<char>& text) {
  if (text.IsEmpty()) return SettingPieces();
  const char* utf8 = text.c_str();
  const size_t length = std::strlen(utf8);
  if (length > kMaxTextBytes) return SettingPieces();
  return ReadPieces(utf8, length);
}

// Reads the text into the record; throws only when memory runs out, leaving the record untouched.
void ReadInto(SettingInteractInfo_s& info, const Kst::CStringT<char>& text) {
  const SettingPieces pieces = ReadText(text);
  const bool has_text = pieces.reached == kPiecesRead;
  Kst::CStringT<char> piece_text = has_text ? Kst::CStringT<char>(pieces.text) : Kst::CStringT<char>();
  int32_t* const codes[kCodes] = {&info.first_code, &info.second_code, &info.third_code, &info.fourth_code,
                                  &info.fifth_code};
  for (int i = 0; i < kCodes && i < pieces.reached; ++i)
    *codes[i] = pieces.codes[i];
  if (has_text) info.text = std::move(piece_text);
}

}  // namespace

Kst::CStringT<char> FormatSettingInteractInfoAsString(const SettingInteractInfo_s& info) {
  // The empty text only when memory runs out.
  return oet::Guarded(
      [&] {
        // The codes and their separators are written on the stack, then the text up to its first NUL; a
        // text that fits beside them becomes the host string at once, so that only the host string
        // allocates.
        char head[kCodes * 12 + 200];
        char* out = head;
        for (const int32_t code :
             {info.first_code, info.second_code, info.third_code, info.fourth_code, info.fifth_code}) {
          out = std::to_chars(out, out + 11, code).ptr;
          *out++ = kSeparator;
        }
        const char* tail = info.text.c_str();
        const size_t tail_length = std::strlen(tail);
        const size_t used = static_cast<size_t>(out - head);
        if (tail_length <= sizeof head - used) {
          std::memcpy(out, tail, tail_length);
          return Kst::CStringT<char>(head, static_cast<int>(used + tail_length));
        }
        std::string text(head, used);
        text += tail;
        return Kst::CStringT<char>(text);
      },
      Kst::CStringT<char>());
}

void ParseSettingInterfactInfoFromString(SettingInteractInfo_s& info, const Kst::CStringT<char>& text) {
  // Should memory run out while reading, the record is left as it was.
  oet::Guarded([&] {
    ReadInto(info, text);
    return 0;
  });
}

int TrackingSettingInteractEvent(const Kst::CStringT<char>& text, const SettingTrackingInfo_s& tracking) {
  return oet::Guarded([&] {
    if (text.IsEmpty()) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    // Read as into a record whose codes are 0 and whose text is empty; memory running out destroys the
    // event instead of sending it half read.
    const SettingPieces pieces = ReadText(text);
    const int32_t* codes = pieces.codes;  // the first to the fifth
    if (codes[0] == 0 || codes[1] == 0 || codes[2] == 0 || codes[4] == 0) {
      return event.Destroy();  // the fourth code may be 0
    }

    oet::ContextList list(4);
    list.Add(event.Create<orbo_entity::BasicDeviceContextEntity>());  // 159, without fields
    list.Add(event.Create<orbo_entity::BasicContextEntity170>());
    const auto tracking_text = oet::TextOf(tracking.tracking_text);
    if (!tracking_text.empty() && tracking.tracking_number != 0) {
      auto* identity = event.Create<orbo_entity::MeetingIdentityEntity>();
      if (identity != nullptr) {
        orbo_entity::MeetingIdentityFields& fields = *identity;
        fields.SetIdentityText(tracking_text);
        fields.SetIdentityNumber(tracking.tracking_number);
      }
      list.Add(identity);
    }
    list.Add(event.Create<orbo_entity::BasicContextEntity169>());
    event.AttachContextAlways(std::move(list));

    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetValueF(3);
      body->SetValueA(codes[0]);
      body->SetValueE(codes[1]);
      body->SetValueC(codes[2]);
      body->SetValueB(codes[3]);
      body->SetValueD(codes[4]);
      if (!pieces.text.empty()) body->SetTextA(pieces.text);  // an empty text leaves it alone
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboSettingPAAP
