// Studying one export for the event catalog (catalog.h): which calls to make, and what rules their
// differences reveal (the gates, the rate limits, where each value comes from, when each entity and
// operation is requested). The result is a Report, which the page (catalog.cpp) writes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/replay/catalog_run.h"

namespace oet_replay {
namespace catalog {

// One operation of an entity, or one member of a filled record, as the page shows it.
struct Row {
  std::string key;  // entity key + "|" + op key, or the filled member's path
  std::string label;
  std::string kind;
  std::vector<std::string> from;
  bool clock = false;
  bool host = false;
  std::string when;
  std::string value;
  int base = 0;                          // the base record whose call gave `value`
  std::optional<std::string> canonical;  // as that call gave it, for the final comparison
};

struct EntitySection {
  std::string title;
  std::string attached;
  std::string requested;
  std::string none_given;
  std::vector<Row> rows;
};

struct Report {
  const ExportEntry* entry = nullptr;
  std::vector<Json> bases;
  std::vector<std::string> bullets;
  std::vector<EntitySection> entities;
  std::vector<Row> filled;
};

// Calls the export in every way catalog.h lists and finds what it does.
Report StudyExport(const ExportEntry& entry, Runner& runner);

}  // namespace catalog
}  // namespace oet_replay
