// Performance reports of the desktop and mobile clients: launch, runtime, freeze, page, MetricKit and
// crash reports.
//
// Every report is one event of the same shape:
//   context (203): the device entity (643), the report marker (652), then the report's body entity
//                  (or, for the MetricKit data report, one sample entity 646 per sample);
//   body (201):    the report header (642) with the report's category and code.
// The device entity carries the client-context facts (see below); the crash report carries no device
// entity and never touches the client context.
//
// The reports need only the telemetry service (no web service). Each text of a record goes to its body
// operation only when it is not empty (an empty text leaves its field unset; nothing is cleared); a
// text is sent up to its first NUL, and the test looks at the text as sent, so one that starts with
// NUL counts as empty. The texts mean what the reporting client says they mean: the library
// passes them through unchanged and gives them positional names (text1 is the first member).
//
// | Report                           | Body           | Category | Code                    |
// |----------------------------------|----------------|----------|-------------------------|
// | TrackingApmIOSLaunchEvent        | 644            | 1        | 1                       |
// | TrackingApmIOSMetricKitEvent     | 645            | 5        | 2                       |
// | TrackingApmMacLaunchEvent        | 649            | 1        | 3                       |
// | TrackingApmMacRuntimeEvent       | 650            | 2        | 4                       |
// | TrackingApmMacFreezeEvent        | 648            | 3        | 5                       |
// | TrackingApmAndroidLaunchEvent    | 639            | 1        | 6                       |
// | TrackingApmAndroidPageEvent      | 640            | 7        | 7                       |
// | TrackingApmClientCrashEvent      | 641            | 8        | the record's crash_code |
// | TrackingApmIOSMetricKitDataEvent | 646 per sample | 5        | 10                      |
//
// The device entity (643): the device product, the web-service value, the os name and the os version
// of the client-context cache are always set, empty or not (the os name is "windows" once the cache
// has been filled through the web service, and empty before); the cpu name, gpu model, resolution and
// manufacturer only when the cache holds them; the total RAM only when it is above 0 GB. Reading the
// cache creates it on first use and refreshes it while it is unfilled, as every event does.
//
// Failures: no telemetry service or no event gives 0. When the host gives no device entity, marker,
// body or header, the report destroys its event and returns 0 (for the header, after the context list
// was attached to that event). A missing sample entity of the MetricKit data report is left out and
// the report goes on.
#pragma once

#include <cstdint>
#include <vector>

#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// The iOS launch report. The body's operations receive text1 to text8 in the order text1, text2,
// text3, text5, text6, text7, text4, text8.
struct OApmIOSLaunchInfo_s {
  Kst::CStringT<char> text1;  // UTF-8, like every text below
  Kst::CStringT<char> text2;
  Kst::CStringT<char> text3;
  Kst::CStringT<char> text4;
  Kst::CStringT<char> text5;
  Kst::CStringT<char> text6;
  Kst::CStringT<char> text7;
  Kst::CStringT<char> text8;
};

// The Mac launch report.
struct OApmMacLaunchInfo_s {
  Kst::CStringT<char> text1;
};

// The Mac runtime report.
struct OApmMacRuntimeInfo_s {
  Kst::CStringT<char> text1;
  Kst::CStringT<char> text2;
};

// The Mac freeze report.
struct OApmMacFreezeInfo_s {
  Kst::CStringT<char> text1;
};

// The Android launch report.
struct OApmAndroidLaunchInfo_s {
  Kst::CStringT<char> text1;
  Kst::CStringT<char> text2;
  Kst::CStringT<char> text3;
  Kst::CStringT<char> text4;
  Kst::CStringT<char> text5;
  Kst::CStringT<char> text6;
};

// The Android page report.
struct OApmAndroidPageInfo_s {
  Kst::CStringT<char> text1;
  Kst::CStringT<char> text2;
  Kst::CStringT<char> text3;
  Kst::CStringT<char> text4;
  Kst::CStringT<char> text5;
  Kst::CStringT<char> text6;
  Kst::CStringT<char> text7;
  Kst::CStringT<char> text8;
  Kst::CStringT<char> text9;
  Kst::CStringT<char> text10;
  Kst::CStringT<char> text11;
  Kst::CStringT<char> text12;
  Kst::CStringT<char> text13;
  Kst::CStringT<char> text14;
  Kst::CStringT<char> text15;
  Kst::CStringT<char> text16;
  Kst::CStringT<char> text17;
  Kst::CStringT<char> text18;
  Kst::CStringT<char> text19;
};

// The iOS MetricKit report.
struct OApmIOSMetricKitInfo_s {
  Kst::CStringT<char> text1;
  Kst::CStringT<char> text2;
  Kst::CStringT<char> text3;
  Kst::CStringT<char> text4;
  Kst::CStringT<char> text5;
  Kst::CStringT<char> text6;
  Kst::CStringT<char> text7;
  Kst::CStringT<char> text8;
  Kst::CStringT<char> text9;
};

// One metric sample of the MetricKit data report: its sample entity (646) gets the number, then the
// value, then the text (only when not empty). The value goes out exactly as given: NaN, the
// infinities, -0.0 and negative values included.
struct OApmIOSMetricKitDataInfo_s {
  int32_t number = 0;
  Kst::CStringT<char> text;
  double value = 0.0;
};

// The client crash report. An empty text1 goes out as "0"; texts 2 to 4 only when not empty. The
// crash code becomes the header's report code as it is (0 and negative codes included).
struct OApmClientCrashInfo_s {
  int32_t crash_code = 0;
  Kst::CStringT<char> text1;
  Kst::CStringT<char> text2;
  Kst::CStringT<char> text3;
  Kst::CStringT<char> text4;
};

OET_API int TrackingApmIOSLaunchEvent(const OApmIOSLaunchInfo_s& info);
OET_API int TrackingApmMacLaunchEvent(const OApmMacLaunchInfo_s& info);
OET_API int TrackingApmMacRuntimeEvent(const OApmMacRuntimeInfo_s& info);
OET_API int TrackingApmMacFreezeEvent(const OApmMacFreezeInfo_s& info);
OET_API int TrackingApmAndroidLaunchEvent(const OApmAndroidLaunchInfo_s& info);
OET_API int TrackingApmAndroidPageEvent(const OApmAndroidPageInfo_s& info);
OET_API int TrackingApmIOSMetricKitEvent(const OApmIOSMetricKitInfo_s& info);
// All samples travel in one event, one sample entity each, in list order; an empty list still sends
// the report (device and marker only).
OET_API int TrackingApmIOSMetricKitDataEvent(const std::vector<OApmIOSMetricKitDataInfo_s>& samples);
// No device entity: its context list is the marker and the body.
OET_API int TrackingApmClientCrashEvent(const OApmClientCrashInfo_s& info);

}  // namespace OrboPTPAAP
