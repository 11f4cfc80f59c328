// The table of floors: every benchmarked export, run on fixed inputs, beside its hand-written floor
// (bench/floors.h) on the same inputs. The benchmark program measures each row; the trace check
// (bench/trace_check_test.cpp) proves that each row's floor makes the export's host calls.
//
// Adding a family's floor: write the floor function, then add one row to FloorRows() in
// bench/floor_table.cpp with the export's call and the floor's call on the same input record.
#pragma once

#include <string>
#include <vector>

#include "bench/noop_host.h"
#include "oKstPlatform/host_control.h"

namespace oet_bench {

// One call on the row's fixed inputs; returns the export's result. Exports that fill a record the
// caller passes describe it in `filled` when it is not null; events leave it alone.
using Run = int (*)(std::string* filled);

struct FloorRow {
  const char* name;         // short name, in benchmark names and on the command line
  const char* title;        // what the row measures, in reports
  const char* export_name;  // the export's qualified name
  Run library;              // the export
  Run floor;                // its floor
  WebAnswers web;           // what the web service answers about the account during the row
  // The export drops a call that comes within a second of its last accepted one (by the host's clock),
  // and so does its floor.
  bool rate_limited = false;
};

const std::vector<FloorRow>& FloorRows();

// One call of a row's side as the benchmarks make it: for a rate-limited row the host's clock first
// moves a second on, so that every call is accepted and does its whole work. Both sides pay the same
// for the move.
inline int CallRow(const FloorRow& row, Run run, std::string* filled) {
  if (row.rate_limited) KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(1000));
  return run(filled);
}

// The row of that name, or null.
const FloorRow* FindFloorRow(const std::string& name);

}  // namespace oet_bench
