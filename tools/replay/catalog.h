// The event catalog (docs/events.md, written by `oet-replay --catalog`): for every export in the tool's
// table of exports (exports.cpp), what it sends, learnt by calling it through the recording host
// rather than written by hand, so that a new export is in the catalog the day it is registered.
//
// Each export is called with:
//  - a canonical record: every member of every argument given a value of its own (integers the
//    numbers 1, 2, 3, ... in member order; texts their own member path, "info.text_d"; times minutes
//    apart; bools true; lists two entries) — the tables show what this call sends;
//  - a default record (every member 0 or empty);
//  - one member changed at a time, to its default value, to another value, and for integers to every
//    value from 0 to kScanTop, -1 and its type's limits — which operations a member feeds, and which
//    values decide whether an entity or an operation is requested, whether the call returns 0, or
//    whether a repeat is dropped;
//  - each service absent (registry, telemetry, web service, URL utilities, short-key lookup), the host
//    creating no event, and the host giving none of each entity type — the gates;
//  - the same call again at once, and a binary search of the delay after which a repeat is accepted —
//    the rate limits;
//  - another host (other machine facts and web-service answers) and, once every export has been
//    studied, a filled client context — which values come from the host;
//  - the same call later — which values come from the clock.
// Between independent calls the host clock moves on by an hour, so that rate limits do not carry over.
// Conditions are found by changing one member at a time from the canonical record; what depends on
// two members together shows only as far as each alone reveals it.
//
// The text is deterministic: the same code gives the same catalog, byte for byte, on every platform.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/replay/exports.h"

namespace oet_replay {

// Integers are tried from 0 to this value (besides -1, their type's limits and two more values).
constexpr int kScanTop = 255;

// The canonical arguments of an export (an object with one member per argument, every member of
// every record a value of its own), with which the catalog's tables are made; benchmarks call the
// exports with them too.
Json CanonicalArguments(const ExportEntry& entry);

// The catalog of every export of the table (Exports()).
void WriteCatalog(std::ostream& out);
// The catalog of the given exports.
void WriteCatalog(std::ostream& out, const std::vector<ExportEntry>& exports);

}  // namespace oet_replay
