#include "testing/platform_calls.h"

#include <cstdio>
#include <string>

#include "oKstPlatform/kst_time.h"
#include "oKstPlatform/system_info.h"

namespace oet_testing {
namespace {

using KstHost::PlatformFunction;

// A host time as text: UTC, with its microseconds ("2026-03-07T05:09:01.042000Z").
std::string TimeText(int64_t us) {
  Kst::Time::Exploded e;
  Kst::Time::FromUnixMicroseconds(us).UTCExplode(&e);
  const int64_t micro = ((us % 1000) + 1000) % 1000;
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d%03dZ", e.year, e.month, e.day_of_month,
                e.hour, e.minute, e.second, e.millisecond, static_cast<int>(micro));
  return text;
}

}  // namespace

Call HostCallOf(const KstHost::PlatformCall& platform, const void* telemetry, const void* web_service) {
  Call call;
  call.fn = Call::Fn::kHostCall;
  call.name = KstHost::PlatformFunctionName(platform.function);
  call.answered = true;
  const std::string text(platform.text);
  const auto object = [&](const char* what) {
    return platform.object == nullptr ? OpValue() : OpValue(std::string(what));
  };
  switch (platform.function) {
    case PlatformFunction::kGetService:
      call.answer = object("registry");
      break;
    case PlatformFunction::kGetModule:
      call.args = {text};
      call.answer = object("module");
      break;
    case PlatformFunction::kGetClassObject:
      call.args = {text};
      call.answer = object(platform.object == telemetry     ? "telemetry"
                           : platform.object == web_service ? "web_service"
                                                            : "object");
      break;
    case PlatformFunction::kGetOrboUrlUtils:
      call.answer = object("url_utils");
      break;
    case PlatformFunction::kIsDevelopmentUrl:
      call.args = {text};
      call.answer = static_cast<int32_t>(platform.number);
      break;
    case PlatformFunction::kGetOSVersion:
      call.args = {static_cast<int32_t>(platform.number)};
      call.answer = text;
      break;
    case PlatformFunction::kGetTotalRAMGB:
      call.answer = static_cast<int32_t>(platform.number);
      break;
    case PlatformFunction::kTimeNow:
      call.answer = TimeText(platform.number);
      break;
    case PlatformFunction::kUtcExplode:
      call.args = {TimeText(platform.number)};
      call.answered = false;
      break;
    case PlatformFunction::kConvertToUtf8:
    case PlatformFunction::kConvertToWide:
      call.args = {std::string(platform.function == PlatformFunction::kConvertToUtf8 ? "wide to UTF-8"
                                                                                     : "UTF-8 to wide"),
                   static_cast<int32_t>(platform.number)};
      call.answer = text;
      break;
    case PlatformFunction::kStringToUInt:
      call.args = {text};
      call.answer = platform.number < 0 ? OpValue() : OpValue(platform.number);
      break;
    case PlatformFunction::kInt64ToString:
      call.args = {platform.number};
      call.answer = text;
      break;
    case PlatformFunction::kMetricsFetchEventToString:
    case PlatformFunction::kMetricsFetchHandlerEventToString:
    case PlatformFunction::kMetricsFileEventToString:
    case PlatformFunction::kMetricsHeartBeatEventToString:
    case PlatformFunction::kMetricsLoginEventToString:
    case PlatformFunction::kMetricsMessageEventToString:
    case PlatformFunction::kMetricsMessageHandlerEventToString:
    case PlatformFunction::kMetricsPlatformEventToString:
    case PlatformFunction::kMetricsSpecialEventToString:
      call.args = {static_cast<int32_t>(platform.number)};
      call.answer = text;
      break;
    default:  // the other system facts: their text
      call.answer = text;
      break;
  }
  return call;
}

}  // namespace oet_testing
