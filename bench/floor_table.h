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
};

const std::vector<FloorRow>& FloorRows();

// The row of that name, or null.
const FloorRow* FindFloorRow(const std::string& name);

}  // namespace oet_bench
