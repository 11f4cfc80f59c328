// The settings text (its writer and reader) and the settings event, whose body is the basic-interaction
// entity (157).
#include <climits>
#include <cstring>
#include <string>
#include <utility>

#include "core/event.h"
#include "core/host.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "platform/kst_convert.h"
#include "platform/kst_number.h"

namespace OrboSettingPAAP {
namespace {

using orbo_entity::BasicInteractionEntity;

constexpr char kSeparator = ',';
constexpr wchar_t kWideSeparator[] = L",";
constexpr int kCodes = 5;
// Pieces the reader looks at: the five codes and the text; a text may hold more, which are never read.
constexpr int kPiecesRead = kCodes + 1;
// The longest text the reader takes: its conversions count in ints, and converting a piece back to
// UTF-8 takes up to four bytes per wide unit.
constexpr size_t kMaxTextBytes = (INT_MAX - 1) / 4;

// What the reader found, written to the record only once the whole text has been read (so that a text
// which is the record's own text is read as it was passed).
struct SettingPieces {
  int reached = 0;  // how many pieces the text holds, up to kPiecesRead
  int32_t codes[kCodes] = {};
  Kst::CStringT<char> text;
};

// The code of one piece: its value as the host reads an unsigned decimal number, stored bit for bit;
// 0 when the host finds no number in it (the host then leaves the value as it was set, 0).
int32_t CodeOf(const Kst::CStringT<wchar_t>& piece) {
  uint32_t value = 0;
  Kst::StringToUInt(piece, &value, 10);
  return static_cast<int32_t>(value);
}

SettingPieces ReadPieces(const char* utf8, size_t length) {
  SettingPieces pieces;
  if (length == 0) return pieces;
  Kst::CStringT<wchar_t> wide;
  const int bytes = static_cast<int>(length);
  // A UTF-8 byte never gives more than one wide unit: length + 1 units hold the text and its terminator.
  const int units = kst_str_convert(KST_CP_UTF8, utf8, bytes, wide.GetBuffer(bytes), bytes + 1);
  wide.SetLength(units);

  int start = 0;
  for (; pieces.reached < kPiecesRead && start < wide.GetLength(); ++pieces.reached) {
    const int separator = wide.find(kWideSeparator, start);
    const int end = separator == Kst::CStringT<wchar_t>::npos ? wide.GetLength() : separator;
    Kst::CStringT<wchar_t> piece = wide.substr(start, end - start);
    piece.Trim();
    start = separator == Kst::CStringT<wchar_t>::npos ? wide.GetLength() : separator + 1;
    if (pieces.reached < kCodes) {
      pieces.codes[pieces.reached] = CodeOf(piece);
    } else {
      pieces.text = Kst::CStringT<char>(oet::ToUtf8(piece));
    }
  }
  return pieces;
}

// Reads the text into the record; throws only when memory runs out, leaving the record untouched.
void ReadInto(SettingInteractInfo_s& info, const Kst::CStringT<char>& text) {
  if (text.IsEmpty()) return;
  const char* utf8 = text.c_str();
  const size_t length = std::strlen(utf8);  // up to the first NUL, as every host string is read
  if (length > kMaxTextBytes) return;
  SettingPieces pieces = ReadPieces(utf8, length);
  int32_t* const codes[kCodes] = {&info.first_code, &info.second_code, &info.third_code, &info.fourth_code,
                                  &info.fifth_code};
  for (int i = 0; i < kCodes && i < pieces.reached; ++i)
    *codes[i] = pieces.codes[i];
  if (pieces.reached == kPiecesRead) info.text = std::move(pieces.text);
}

}  // namespace

Kst::CStringT<char> FormatSettingInteractInfoAsString(const SettingInteractInfo_s& info) {
  try {
    std::string text;
    for (const int32_t code :
         {info.first_code, info.second_code, info.third_code, info.fourth_code, info.fifth_code}) {
      text += std::to_string(code);
      text += kSeparator;
    }
    text += info.text.c_str();  // up to its first NUL
    return Kst::CStringT<char>(text);
  } catch (...) {
    return Kst::CStringT<char>();  // only when memory runs out
  }
}

void ParseSettingInterfactInfoFromString(SettingInteractInfo_s& info, const Kst::CStringT<char>& text) {
  try {
    ReadInto(info, text);
  } catch (...) {
    // Memory ran out while reading: the record is left as it was.
  }
}

int TrackingSettingInteractEvent(const Kst::CStringT<char>& text, const SettingTrackingInfo_s& tracking) {
  return oet::Guarded([&] {
    if (text.IsEmpty()) return 0;
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    SettingInteractInfo_s info;
    ReadInto(info, text);  // memory running out destroys the event instead of sending it half read
    if (info.first_code == 0 || info.second_code == 0 || info.third_code == 0 || info.fifth_code == 0) {
      return event->Destroy();  // the fourth code may be 0
    }

    oet::ContextList list(4);
    list.Add(event->Create<orbo_entity::BasicDeviceContextEntity>());  // 159, without fields
    list.Add(event->Create<orbo_entity::BasicContextEntity170>());
    if (!tracking.tracking_text.IsEmpty() && tracking.tracking_number != 0) {
      auto* identity = event->Create<orbo_entity::MeetingIdentityEntity>();
      if (identity != nullptr) {
        orbo_entity::MeetingIdentityFields& fields = *identity;
        fields.SetIdentityText(oet::TextOf(tracking.tracking_text));
        fields.SetIdentityNumber(tracking.tracking_number);
      }
      list.Add(identity);
    }
    list.Add(event->Create<orbo_entity::BasicContextEntity169>());
    event->AttachContextAlways(std::move(list));

    if (auto* body = event->Create<BasicInteractionEntity>()) {
      body->SetValueF(3);
      body->SetValueA(info.first_code);
      body->SetValueE(info.second_code);
      body->SetValueC(info.third_code);
      body->SetValueB(info.fourth_code);
      body->SetValueD(info.fifth_code);
      if (!info.text.IsEmpty()) body->SetTextA(oet::TextOf(info.text));  // an empty text leaves it alone
      event->AttachBody(body);
    }
    return event->Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboSettingPAAP
