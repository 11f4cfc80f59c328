// Every export of the replay tool's export table, ready to call: with its default records, and with the
// records of the first calls of it in the golden sessions and the sample session. The robustness tests
// (fault sweep, stress, lifetime) run these, so that an export is covered the day it is registered.
#pragma once

#include <string>
#include <vector>

#include "tools/replay/exports.h"

namespace oet_robustness {

struct ExportCase {
  std::string name;                              // the export, as "OrboPTPAAP::TrackingPTInteractEvent"
  std::vector<oet_replay::PreparedCall> inputs;  // the default records first
};

// Each call is prepared afresh (records of their own), so that threads can use their own cases.
std::vector<ExportCase> AllExportCases(size_t max_inputs_per_export = 3);

// The names of every export in the table, in table order.
std::vector<std::string> ExportNames();

}  // namespace oet_robustness
