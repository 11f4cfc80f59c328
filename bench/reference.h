// The reference rows: six exports that stand for the rest (the tab switch, the phone event with its
// call detail, the chat event with items, the in-meeting meeting event, the settings event and the Mac
// launch report), each run on fixed inputs beside its tight floor on the same inputs.
//
// A tight floor (bench/reference_floors.cpp) is the export written by hand as a careful engineer
// writes it: the same host calls in the same order with the same values, and the same code-page
// conversions, and nothing else. It uses no function and no word table of the library. The trace
// check (bench/trace_check_test.cpp) holds every floor to its export call by call; the benchmark
// program (bench/event_bench.cpp) measures one against the other.
#pragma once

#include <string>
#include <vector>

#include "bench/noop_host.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"

namespace oet_bench {

// One call on the row's fixed inputs; returns the export's result.
using Run = int (*)();

struct ReferenceRow {
  const char* name;         // short name, in benchmark names and on the command line
  const char* title;        // what the row measures, in reports
  const char* export_name;  // the export's qualified name
  Run library;              // the export
  Run floor;                // its tight floor
  WebAnswers web;           // what the web service answers about the account during the row
};

const std::vector<ReferenceRow>& ReferenceRows();

// The row of that name, or null.
const ReferenceRow* FindReferenceRow(const std::string& name);

}  // namespace oet_bench

namespace oet_floor {

// The tight floors, one per reference row.
int TabSwitch(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info);
int Phone(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::PhoneInteractInfo_s& info);
int Chat(const OrboPTPAAP::PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatInteractInfo_s& info);
int InMeeting(const OrboPAAP::MeetingTrackingInfo_s& tracking, const OrboPAAP::MeetingInteractInfo_s& info);
int Setting(const Kst::CStringT<char>& text, const OrboSettingPAAP::SettingTrackingInfo_s& tracking);
int MacLaunch(const OrboPTPAAP::OApmMacLaunchInfo_s& info);

// Forgets the floors' client-context facts, as at process start (the trace check begins each case so).
void ResetClientContextForTesting();

}  // namespace oet_floor
