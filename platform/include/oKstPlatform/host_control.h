// The host program's controls of the platform stand-in: what tests, tools and benchmarks use to watch
// and steer the stand-in. A library never includes this header, and no public header of the product
// reaches it, so it is not part of the installed package.
//
// The observer. Every call a library makes into the stand-in (the service registry, the URL
// utilities, the system facts, the clock, the code-page conversion, the number helpers, the chat
// performance-metric words) is handed, after it has answered, to the observer a host program set,
// on the calling thread and with no lock of the stand-in held. With no observer set a call costs one
// relaxed atomic load more. The stand-in's own work (the conveniences Kst::WideToUtf8 and
// Kst::Utf8ToWide, the answers it builds) is not reported.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_time.h"

namespace KstHost {

// The clock that Kst::Time::Now() reads: fixed at `now`, moved by `delta` (from the system clock's
// reading when it was not fixed), or back to the system clock.
KST_API void SetClock(Kst::Time now);
KST_API void AdvanceClock(Kst::TimeDelta delta);
KST_API void UseSystemClock();

// Every function of the stand-in that the observer sees.
enum class PlatformFunction : int32_t {
  kGetService,        // KstMQ_GetService; object: the registry or null
  kGetModule,         // IServiceRegistry::GetModule; text: the module name; object: the module or null
  kGetClassObject,    // IServiceModule::GetClassObject; text: the class string; object: the answer
  kGetOrboUrlUtils,   // GetOrboUrlUtils; object: the URL utilities or null
  kIsDevelopmentUrl,  // IOrboUrlUtils::IsDevelopmentUrl; text: the URL (UTF-8); number: the answer
  // The system facts: text is the answer (UTF-8); Kst::GetOSVersion also gives the flags as number,
  // Kst::GetTotalRAMGB its answer as number (text empty).
  kGetOSVersion,
  kGetSystemProductName,
  kGetSystemManufacturer,
  kGetRegionName,
  kGetGPUModel,
  kGetCPUType,
  kGetCPUName,
  kGetTotalRAMGB,
  kGetScreenSizeIn,
  kGetResolution,
  kGetNetworkType,
  kGetLanguageSetting,
  kGetCurrentVersion,
  kTimeNow,        // Kst::Time::Now; number: the answer in Unix microseconds
  kUtcExplode,     // Kst::Time::UTCExplode; number: the time exploded, in Unix microseconds
  kConvertToUtf8,  // kst_str_convert, wide -> UTF-8; text: the UTF-8 written; number: src_len
  kConvertToWide,  // kst_str_convert, UTF-8 -> wide; text: the source as converted; number: src_len
  kStringToUInt,   // Kst::StringToUInt; text: the source (UTF-8); number: the value, or -1 for none
  kInt64ToString,  // Kst::Int64ToString; number: the value; text: the answer
  // The chat performance-metric word functions; number: the enumeration value; text: the word.
  kMetricsFetchEventToString,
  kMetricsFetchHandlerEventToString,
  kMetricsFileEventToString,
  kMetricsHeartBeatEventToString,
  kMetricsLoginEventToString,
  kMetricsMessageEventToString,
  kMetricsMessageHandlerEventToString,
  kMetricsPlatformEventToString,
  kMetricsSpecialEventToString,
};

// One call as the observer sees it. `text` is valid only during the observer's call.
struct PlatformCall {
  PlatformFunction function = PlatformFunction::kGetService;
  std::string_view text;
  int64_t number = 0;
  const void* object = nullptr;
};

// The function's qualified name, as a host program prints it ("KstMQ_GetService",
// "IServiceRegistry::GetModule", "Kst::GetRegionName", "kst_str_convert", ...).
KST_API const char* PlatformFunctionName(PlatformFunction function);

// The chat performance-metric word functions' answers: `function` names the word function (one of the
// kMetrics...ToString values), and the function answers `word` for `value` until the words are
// cleared; values without a word of the host program's keep the stand-in's own words. The word
// functions read the table without a lock.
KST_API void SetMetricWord(PlatformFunction function, int32_t value, const std::string& word);
KST_API void ClearMetricWords();

// Called for every platform call; it must not throw. A host program that keeps state for it keeps it
// where the function finds it (the stand-in hands over nothing but the call).
using PlatformObserver = void (*)(const PlatformCall& call);
// Sets the observer (null: none). Set it while no other thread is calling into the stand-in.
KST_API void SetPlatformObserver(PlatformObserver observer);

}  // namespace KstHost
