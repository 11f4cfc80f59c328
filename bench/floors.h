// Hand-written floors: for one export each, a function that makes exactly the host calls the export
// makes (registry lookups, web-service and machine-fact calls, the client version, the conversions of
// wide texts, every entity request and operation, the attachments and the submission), in the same
// order and with the same values, and nothing else. The benchmarks measure each export against its
// floor; bench/trace_check_test.cpp proves the calls identical.
//
// The wire words come from the library's vocabulary (core/vocabulary.h), the one place they live, so
// its cost is in both. A floor keeps its own client-context facts (bench/floor_support.h).
//
// Adding a family: write its floor here (the export's steps, host call by host call, with the helpers
// of bench/floor_support.h), then add one row to bench/floor_table.cpp.
#pragma once

#include <vector>

#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"

namespace oet_floor {

// OrboPTPAAP::TrackingPTInteractEvent, converting the cached wide client facts on every call.
int TabSwitch(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info);
// The same, with the client facts kept as UTF-8 once filled.
int TabSwitchCachedUtf8(const OrboPTPAAP::PTTrackingInfo_s& tracking,
                        const OrboPTPAAP::PTInteractInfo_s& info);

// OrboPTPAAP::TrackingPTSearchEvent for a display step (search_action 2).
int SearchDisplay(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::SearchInteractInfo_s& info);

// OrboPTPAAP::TrackingPhoneInteractEvent.
int Phone(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::PhoneInteractInfo_s& info);

// OrboPTPAAP::TrackingSigninInteractEvent.
int Signin(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::OSigninInteractInfo_s& info);

// OrboPTPAAP::RetrieveClientDeviceInfo.
int DeviceInfo(OrboPTPAAP::PTClientDeviceEntityStruct& info);

// The floors of the chat, performance and meeting families read the client facts as UTF-8 kept once
// filled, as the library does; a floor that converted them on every call would sit above its export.

// OrboPTPAAP::TrackingPTChatEvent, with the limit of action types 174 and 185.
int Chat(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatInteractInfo_s& info);

// OrboPTPAAP::TrackingPerfMetricsInfo, with the limit of the five noisy event names.
int PerfMetrics(const OrboPTPAAP::PTTrackingInfo_s& tracking,
                const OrboPTPAAP::OClientPerfMetricsInfo_s& info);

// OrboPTPAAP::TrackingApmMacLaunchEvent.
int MacLaunch(const OrboPTPAAP::OApmMacLaunchInfo_s& info);

// OrboPTPAAP::TrackingApmIOSMetricKitDataEvent.
int MetricKitData(const std::vector<OrboPTPAAP::OApmIOSMetricKitDataInfo_s>& samples);

// OrboPTPAAP::TrackingPTChatDBInteractEvent, with the limit of interaction id 165.
int ChatDatabase(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatDBInteractInfo_s& info);

// OrboPAAP::TrackingMeetingInteractEvent.
int InMeeting(const OrboPAAP::MeetingTrackingInfo_s& tracking, const OrboPAAP::MeetingInteractInfo_s& info);

// OrboSettingPAAP::TrackingSettingInteractEvent, reading the settings text by hand.
int Setting(const Kst::CStringT<char>& text, const OrboSettingPAAP::SettingTrackingInfo_s& tracking);

}  // namespace oet_floor
