// The event catalog's page: every export studied (catalog_study.h), its Report completed by calls with
// a filled client context, then the introduction and one section per export.
#include "tools/replay/catalog.h"

#include <ostream>

#include "tools/replay/catalog_study.h"
#include "tools/replay/catalog_values.h"

namespace oet_replay {
namespace {

using catalog::Code;
using catalog::EntitySeen;
using catalog::OpSeen;
using catalog::Report;
using catalog::Row;

// Marks the rows whose value differs once the client context is filled (their value comes from the
// host), and shows such rows with the value a filled context gives. `seen`: one call per base record.
void ApplyFilledContext(Report& report, const std::vector<catalog::Seen>& seen) {
  const auto update = [](Row& row, const std::string* value) {
    if (row.clock || value == nullptr) return;
    if (row.canonical && *row.canonical != *value) row.host = true;
    if (row.host) row.value = *value;
  };
  for (auto& section : report.entities) {
    for (auto& row : section.rows) {
      const size_t bar = row.key.find('|');
      const EntitySeen* entity = seen[static_cast<size_t>(row.base)].Entity(row.key.substr(0, bar));
      const OpSeen* op = entity == nullptr ? nullptr : entity->Op(row.key.substr(bar + 1));
      update(row, op == nullptr ? nullptr : &op->value);
    }
  }
  for (auto& row : report.filled)
    update(row, seen[static_cast<size_t>(row.base)].Filled(row.key));
}

std::string From(const Row& row) {
  if (row.clock) return "the clock";
  std::string text;
  for (const auto& source : row.from)
    text += (text.empty() ? "" : ", ") + source;
  if (row.host) text += text.empty() ? "the host" : ", the host";
  return text.empty() ? "fixed" : text;
}

std::string ValueCell(const Row& row) {
  if (row.clock) return "(the time of the call)";
  return row.value.empty() ? "" : Code(row.value);
}

std::string Signature(const ExportEntry& entry) {
  const std::string result = entry.result_type;
  const std::string text =
      result == "void" ? "returns nothing" : "returns " + (result.empty() ? "a value" : result);
  std::string arguments;
  for (size_t i = 0; i < entry.arguments.size(); ++i) {
    arguments += (i == 0 ? "" : ", ") + Code(entry.arguments[i]) + " " + entry.argument_types[i];
    if (entry.fills[i]) arguments += " (filled)";
  }
  return "Arguments: " + (arguments.empty() ? std::string("none") : arguments) + "; " + text + ".";
}

void WriteReport(const Report& report, std::ostream& out) {
  out << "## " << report.entry->name << "\n\n" << Signature(*report.entry) << "\n\n";
  out << "Canonical record: " << Code(CompactText(report.bases.front())) << "\n\n";
  for (const auto& bullet : report.bullets)
    out << "- " << bullet << "\n";
  out << "\n";
  if (!report.entities.empty()) {
    out << "| Entity | Attached | Requested | When the host gives none |\n|---|---|---|---|\n";
    for (const auto& section : report.entities) {
      out << "| " << section.title << " | " << section.attached << " | " << section.requested << " | "
          << section.none_given << " |\n";
    }
    out << "\n";
  }
  for (const auto& section : report.entities) {
    out << "**" << section.title << "**" << (section.attached.empty() ? "" : " (" + section.attached + ")")
        << "\n\n";
    if (section.rows.empty()) {
      out << "No operations.\n\n";
      continue;
    }
    out << "| Operation | Kind | From | When | Value |\n|---|---|---|---|---|\n";
    for (const auto& row : section.rows) {
      out << "| " << row.label << " | " << row.kind << " | " << From(row) << " | " << row.when << " | "
          << ValueCell(row) << " |\n";
    }
    out << "\n";
  }
  if (!report.filled.empty()) {
    out << "**Filled records**\n\n| Member | From | Value |\n|---|---|---|\n";
    for (const auto& row : report.filled)
      out << "| " << row.label << " | " << From(row) << " | " << ValueCell(row) << " |\n";
    out << "\n";
  }
}

constexpr char kIntroduction[] = R"(# Event catalog

What every export of the library sends, as the replay tool finds it by calling each export through
the recording telemetry host. This page is generated from the code (`oet-replay --catalog`; the exports
are those of `tools/replay/exports.cpp`); do not edit it by hand. After changing or adding an export,
run `scripts/update-catalog`; a ctest test (`event_catalog`) fails while this page is stale.

How it is found: each export is called with a *canonical record*, in which every member of every
argument has a value of its own (integers their position among all members, 1, 2, 3, ...; texts
their own member path, such as "info.text_d"; times minutes apart from 2026-03-09T08:00Z; bools
true; lists two entries), on the standard recording host (docs/replay.md) whose web service leaves
the client context unfilled. Then one member at a time is changed: to its default (0, empty, false,
null), to another value (integers 1, or 2 where the canonical value is 1), and integers to every
value from -1 to 255 and to their type's limits. A value that makes the export request an entity the
canonical record does not (the body of another search step, say) becomes a further record to start
from, with every other member changed once more from it. Further calls make each service absent,
make the host create no event or none of each entity type, repeat the call at once (and measure the
delay after which a repeat is accepted), run it on another host (other machine facts and web-service
answers) and, once every export has run, with a filled client context. The host clock moves on by an
hour between calls.

For every export:
- **Sends**: the events of the canonical call, their outcome and submit codes.
- **Returns**: what the canonical call returns, and each other result with the conditions that give
  it: services absent, the host failing, member values (the gates that return 0).
- **Rate limit**: whether the same call made again at once is dropped, and the delay that lets it
  through.
- The entity table: every entity type the export requests, in the order it requests them (type id
  and schema name), where it is attached (context list 203 with its entry, body 201), when it is
  requested, and what the event does when the host gives none of that type.
- Per entity, the operations in the order they are called (interface, number and schema name),
  where the value comes from, when the operation is called, and the value in the canonical call:
  *From* names the member that feeds it with its canonical value, "the host" (machine facts,
  web-service answers, the client context, what the library keeps between calls), "the clock", or
  "fixed" for a value no member and no host fact changes (literals such as "client").

Conditions name one member at a time, the others keeping their canonical values; for integers they
list values among those tried (-1, 0 to 255 and the type's limits), so "in 1..5" means: of
the values tried, these. Values are shown as the host received them: texts quoted as JSON, doubles
exactly.
)";

}  // namespace

Json CanonicalArguments(const ExportEntry& entry) {
  SampleBuilder samples(kScanTop);
  return entry.sample(samples);
}

void WriteCatalog(std::ostream& out) {
  WriteCatalog(out, Exports());
}

void WriteCatalog(std::ostream& out, const std::vector<ExportEntry>& exports) {
  catalog::Runner runner;
  std::vector<Report> reports;
  for (const auto& entry : exports)
    reports.push_back(catalog::StudyExport(entry, runner));
  runner.NewHost(false);  // the client context fills at the next call and stays filled
  for (auto& report : reports) {
    std::vector<catalog::Seen> seen;
    for (const auto& arguments : report.bases) {
      runner.NextSlot();
      seen.push_back(runner.Call(*report.entry, arguments));
    }
    ApplyFilledContext(report, seen);
  }
  out << kIntroduction << "\n## Exports\n\n";
  for (const auto& report : reports)
    out << "- " << Code(report.entry->name) << "\n";
  out << "\n";
  for (const auto& report : reports)
    WriteReport(report, out);
}

}  // namespace oet_replay
