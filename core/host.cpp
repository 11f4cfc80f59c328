#include "core/host.h"

#include <algorithm>
#include <climits>
#include <string>
#include <utility>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/service_registry.h"

namespace oet {
namespace {

// Written into each of the two lookups, so that a lookup is one call deep.
#if defined(__GNUC__)
__attribute__((always_inline))
#endif
inline void*
LookUpService(const char* module_name, const char* class_string) {
  IServiceRegistry* registry = KstMQ_GetService();
  if (registry == nullptr) return nullptr;
  IServiceModule* module = registry->GetModule(module_name);
  if (module == nullptr) return nullptr;
  return module->GetClassObject(class_string);
}

}  // namespace

iOrbotelemetryAPI* GetTelemetryApi() {
  return static_cast<iOrbotelemetryAPI*>(LookUpService(kOrboTelemetryModule, kOrboTelemetryClass));
}

ICVWebServiceAPI* GetWebServiceApi() {
  return static_cast<ICVWebServiceAPI*>(LookUpService(kWebServiceModule, kWebServiceClass));
}

HostText::HostText(Kst::CStringT<char>&& text) : own_(std::move(text)) {
  text_ = &own_->str();
  if (text_->find('\0') != std::string::npos) KeepCut(Kst::CStringT<char>(std::move(*own_)));
}

void HostText::KeepCut(const Kst::CStringT<char>& text) {
  own_.emplace(text.c_str());  // up to the first NUL
  text_ = &own_->str();
}

namespace {

// Texts of up to this many units are converted on the stack, longer ones straight into the MadeText.
constexpr int kStackUnits = 63;

// A short text converted on the stack (four bytes a unit at most, one more for the terminator).
struct OnStack {
  OnStack(const wchar_t* units, int length) {
    const int written = kst_str_convert(KST_CP_UTF8, units, length, bytes, static_cast<int>(sizeof bytes));
    size = static_cast<size_t>(written > 0 ? written : 0);
  }
  char bytes[kStackUnits * 4 + 1];
  size_t size;
};

void ConvertLong(MadeText& out, const wchar_t* units, int length, int capacity) {
  const size_t bytes = std::min(static_cast<size_t>(capacity) * 4 + 1, static_cast<size_t>(INT_MAX));
  std::string& utf8 = out.For(bytes);
  utf8.resize(bytes);
  const int written = kst_str_convert(KST_CP_UTF8, units, length, &utf8[0], static_cast<int>(utf8.size()));
  utf8.resize(static_cast<size_t>(written > 0 ? written : 0));
}

// The usual case returns the text made straight from the stack (by copy elision, as every MadeText).
// Flattened, so that the short string is made inline as a plain string would be.
#if defined(__GNUC__)
__attribute__((flatten))
#endif
MadeText
Convert(const wchar_t* units, int length, int capacity) {
  if (capacity <= 0) return MadeText();
  if (capacity <= kStackUnits) {
    const OnStack utf8(units, length);
    return MadeText(utf8.bytes, utf8.size);
  }
  return MadeText([&](MadeText& out) { ConvertLong(out, units, length, capacity); });
}

}  // namespace

void AssignUtf8(MadeText& out, const wchar_t* units, int length, int capacity) {
  if (capacity <= 0) {
    out.For(0).clear();
  } else if (capacity <= kStackUnits) {
    const OnStack utf8(units, length);
    out.Assign(utf8.bytes, utf8.size);
  } else {
    ConvertLong(out, units, length, capacity);
  }
}

MadeText ToUtf8(const Kst::CStringT<wchar_t>& text) {
  return Convert(text.c_str(), -1, text.GetLength());
}

MadeText ToUtf8(const wchar_t* units, int length) {
  return Convert(units, length, length);
}

}  // namespace oet
