#include "tools/replay/catalog.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <stdexcept>
#include <utility>

#include "oKstPlatform/host_control.h"
#include "testing/event_json.h"
#include "testing/recording_host.h"
#include "tools/replay/exports.h"
#include "tools/replay/host_directives.h"
#include "tools/replay/schema_names.h"
#include "tools/replay/session.h"

namespace oet_replay {
namespace {

using oet_testing::Call;
using oet_testing::OpKind;
using oet_testing::RecordedEvent;

constexpr int64_t kStartMs = 1773014400000;         // 2026-03-09T00:00:00.000Z
constexpr int64_t kRunSpacingMs = 3600 * 1000;      // between independent calls
constexpr int64_t kLongestWindowMs = 86400 * 1000;  // rate limits are measured up to a day

std::string Ordinal(int n) {
  const int last = n % 10;
  const bool teen = n % 100 >= 11 && n % 100 <= 13;
  const char* suffix = teen ? "th" : last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
  return std::to_string(n) + suffix;
}

// ---- What one call did ----

struct OpSeen {
  std::string key;  // within its entity: "TabSwitchEntity.7#1"
  std::string value;
};

struct EntitySeen {
  std::string key;  // "1:282#1": the event within the call, the type, the occurrence of the type
  bool given = true;
  std::string placement;
  std::vector<OpSeen> ops;

  const OpSeen* Op(const std::string& op) const {
    for (const auto& seen : ops) {
      if (seen.key == op) return &seen;
    }
    return nullptr;
  }
};

struct Seen {
  std::string result;  // the return value as JSON text
  bool sent = false;   // an event was submitted
  std::string gate;    // "returns 0 and sends nothing"
  std::string events;  // "one event, submitted with the codes 3 1"
  std::vector<std::string> outcomes;
  std::vector<EntitySeen> entities;
  int null_entries = 0;  // in attached lists
  std::vector<std::pair<std::string, std::string>> filled;
  std::optional<bool> repeat_dropped;  // when the same call was made again at once

  const EntitySeen* Entity(const std::string& key) const {
    for (const auto& entity : entities) {
      if (entity.key == key) return &entity;
    }
    return nullptr;
  }
  const std::string* Filled(const std::string& path) const {
    for (const auto& [member, value] : filled) {
      if (member == path) return &value;
    }
    return nullptr;
  }
};

std::string Gate(const Seen& seen) {
  return (seen.result == "null" ? std::string("returns nothing") : "returns " + seen.result) +
         (seen.sent ? "" : " and sends nothing");
}

std::string Events(const Seen& seen) {
  if (seen.outcomes.empty()) return "no event";
  std::string text =
      seen.outcomes.size() == 1 ? "one event, " : std::to_string(seen.outcomes.size()) + " events: ";
  for (size_t i = 0; i < seen.outcomes.size(); ++i)
    text += (i == 0 ? "" : "; ") + seen.outcomes[i];
  return text;
}

// What the catalog needs to know of an entity or an operation besides its key.
struct EntityInfo {
  int32_t type = 0;
  int event = 1;
  int occurrence = 1;
};
struct OpInfo {
  std::string label;  // "`TabSwitchEntity.7 SetFirstTab`"
  std::string kind;
};

void Flatten(const Json& value, const std::string& path,
             std::vector<std::pair<std::string, std::string>>& out) {
  if (value.is_object() && (!value.empty() || path.empty())) {
    for (auto it = value.begin(); it != value.end(); ++it)
      Flatten(*it, MemberPath(path, it.key()), out);
    return;
  }
  out.emplace_back(path, CompactText(value));
}

class Observer {
 public:
  std::map<std::string, EntityInfo> entities;
  std::map<std::string, OpInfo> ops;  // by entity key + "|" + op key

  Seen Observe(const CallResult& result, const std::vector<RecordedEvent>& events) {
    Seen seen;
    seen.result = CompactText(result.result);
    Flatten(result.filled, "", seen.filled);
    for (size_t e = 0; e < events.size(); ++e) {
      const int event = static_cast<int>(e) + 1;
      std::map<int, size_t> by_number;
      std::map<int32_t, int> occurrences;
      std::map<size_t, std::map<std::string, int>> op_counts;
      std::map<size_t, std::vector<std::string>> placements;
      const size_t first = seen.entities.size();
      std::string outcome = "left open";
      for (const Call& call : events[e].calls) {
        switch (call.fn) {
          case Call::Fn::kCreateEntity: {
            EntitySeen entity;
            const int occurrence = ++occurrences[call.type];
            entity.key =
                std::to_string(event) + ":" + std::to_string(call.type) + "#" + std::to_string(occurrence);
            entity.given = call.entity > 0;
            entities.emplace(entity.key, EntityInfo{call.type, event, occurrence});
            if (entity.given) by_number[call.entity] = seen.entities.size();
            seen.entities.push_back(std::move(entity));
            break;
          }
          case Call::Fn::kEntityOp: {
            const auto it = by_number.find(call.entity);
            if (it == by_number.end()) break;
            EntitySeen& entity = seen.entities[it->second];
            const std::string op = call.iface + "." + std::to_string(call.op);
            const int count = ++op_counts[it->second][op];
            OpSeen seen_op{op + "#" + std::to_string(count), ValueText(call.value)};
            std::string key = entity.key + "|" + seen_op.key;
            if (ops.find(key) == ops.end()) {
              std::string label = "`" + op + " " + call.name + "`";
              if (count > 1) label += " (" + Ordinal(count) + " call)";
              ops.emplace(std::move(key), OpInfo{std::move(label), oet_testing::KindName(call.kind)});
            }
            entity.ops.push_back(std::move(seen_op));
            break;
          }
          case Call::Fn::kAttachEntityList:
            for (size_t i = 0; i < call.entities.size(); ++i) {
              const auto it = by_number.find(call.entities[i]);
              if (call.entities[i] == 0) ++seen.null_entries;
              if (it == by_number.end()) continue;
              placements[it->second].push_back((call.attachment_id == 203 ? "context " : "list ") +
                                               std::to_string(call.attachment_id) + ", entry " +
                                               std::to_string(i + 1));
            }
            break;
          case Call::Fn::kAttachEntity: {
            const auto it = by_number.find(call.entity);
            if (it != by_number.end()) {
              placements[it->second].push_back((call.attachment_id == 201 ? "body " : "entity ") +
                                               std::to_string(call.attachment_id));
            }
            break;
          }
          case Call::Fn::kSubmitEvent:
            if (events[e].outcome == RecordedEvent::Outcome::kSubmitted) {
              outcome = "submitted with the codes " + std::to_string(call.first_code) + " " +
                        std::to_string(call.second_code);
              if (call.params != 0) outcome += call.params < 0 ? " and no parameter map" : " and parameters";
              seen.sent = true;
            }
            break;
          case Call::Fn::kDestroyEvent:
            outcome = "destroyed (" + std::to_string(call.first_code) + ")";
            break;
          case Call::Fn::kCreateEvent:
            break;
        }
      }
      for (size_t i = first; i < seen.entities.size(); ++i) {
        std::string placement;
        for (const auto& place : placements[i])
          placement += (placement.empty() ? "" : "; ") + place;
        if (placement.empty()) placement = seen.entities[i].given ? "not attached" : "none given";
        seen.entities[i].placement = placement;
      }
      seen.outcomes.push_back(outcome);
    }
    seen.gate = Gate(seen);
    seen.events = Events(seen);
    return seen;
  }
};

// ---- Calling exports ----

class Runner {
 public:
  Runner() { NewHost(true); }

  // A fresh standard host. With `unfilled`, its web service leaves the client context unfilled, so
  // that the library asks again at every call and changes of the machine's facts show.
  void NewHost(bool unfilled) {
    host_.reset();
    host_ = std::make_unique<SessionHost>();
    if (unfilled) Directive(R"({"host": "client_context", "value": ""})");
  }

  void Directive(const std::string& line) {
    Issues issues;
    const Step step = ReadStep(line, issues);
    if (step.kind != Step::Kind::kDirective)
      throw std::logic_error("catalog directive does not read: " + line);
    const std::string problem = step.directive(*host_);
    if (!problem.empty()) throw std::logic_error(problem);
  }

  // Moves the clock on to a moment no earlier call can still be throttled against. The clock only
  // moves forward within a process, so that a second catalog does not meet the first one's times in
  // the library's rate-limit tables.
  int64_t NextSlot(int64_t spacing = kRunSpacingMs) {
    static int64_t now = kStartMs;
    now += spacing;
    At(now);
    return now;
  }
  static void At(int64_t ms) { KstHost::SetClock(Kst::Time::FromUnixMilliseconds(ms)); }

  // Calls the export with `arguments` (an object with one member per argument). With `repeat`, makes
  // the same call again at once and notes whether that one was dropped.
  Seen Call(const ExportEntry& entry, const Json& arguments, bool repeat = false) {
    Issues issues;
    const PreparedCall call = entry.prepare(arguments, issues);
    if (!call) {
      throw std::logic_error(entry.name + ": a catalog record does not read back: " +
                             (issues.empty() ? std::string() : issues.messages().front()));
    }
    const CallResult result = call();
    Seen seen = observer.Observe(result, host_->recording().TakeEvents());
    if (repeat && seen.sent) {
      call();
      bool sent = false;
      for (const auto& event : host_->recording().TakeEvents())
        sent = sent || event.outcome == RecordedEvent::Outcome::kSubmitted;
      seen.repeat_dropped = !sent;
    }
    return seen;
  }

  Observer observer;

 private:
  std::unique_ptr<SessionHost> host_;
};

// ---- Values at member paths ----

std::vector<std::string> Segments(const std::string& path) {
  std::vector<std::string> segments;
  size_t start = 0;
  for (;;) {
    const size_t dot = path.find('.', start);
    segments.push_back(path.substr(start, dot - start));
    if (dot == std::string::npos) return segments;
    start = dot + 1;
  }
}

bool EveryEntry(std::string& segment) {
  if (segment.size() < 2 || segment.compare(segment.size() - 2, 2, "[]") != 0) return false;
  segment.resize(segment.size() - 2);
  return true;
}

// Sets the member at `path` ("[]": in every entry) to `value`; a discarded value leaves it out.
void SetAt(Json& node, const std::vector<std::string>& segments, size_t i, const Json& value) {
  std::string key = segments[i];
  const bool every = EveryEntry(key);
  if (!node.is_object()) return;
  const bool last = i + 1 == segments.size();
  if (last && !every) {
    if (value.is_discarded()) {
      node.erase(key);
    } else {
      node[key] = value;
    }
    return;
  }
  Json& child = node[key];
  if (!every) {
    SetAt(child, segments, i + 1, value);
    return;
  }
  for (auto& entry : child) {
    if (last) {
      entry = value;
    } else {
      SetAt(entry, segments, i + 1, value);
    }
  }
}

// The member's value at `path` (the first entry for "[]").
Json GetAt(const Json& node, const std::string& path) {
  const Json* at = &node;
  for (std::string segment : Segments(path)) {
    const bool every = EveryEntry(segment);
    if (!at->is_object() || !at->contains(segment)) return NoSample();
    at = &(*at)[segment];
    if (every) {
      if (!at->is_array() || at->empty()) return NoSample();
      at = &(*at)[0];
    }
  }
  return *at;
}

// ---- Describing sets of values ----

std::string Code(const std::string& text) {
  std::string escaped;
  for (const char c : text)
    escaped += c == '|' ? std::string("\\|") : std::string(1, c);
  return "`" + escaped + "`";
}

// Integers in order: negative ones first (largest magnitude first), then the rest.
struct IntKey {
  bool negative;
  uint64_t magnitude;
  bool operator<(const IntKey& other) const {
    if (negative != other.negative) return negative;
    return negative ? magnitude > other.magnitude : magnitude < other.magnitude;
  }
  bool operator==(const IntKey& other) const {
    return negative == other.negative && magnitude == other.magnitude;
  }
  IntKey Next() const {
    if (!negative) return {false, magnitude + 1};
    return magnitude == 1 ? IntKey{false, 0} : IntKey{true, magnitude - 1};
  }
};

IntKey KeyOf(const Json& value) {
  if (value.is_number_unsigned()) return {false, value.get<uint64_t>()};
  const auto number = value.get<int64_t>();
  return number < 0 ? IntKey{true, 0 - static_cast<uint64_t>(number)}
                    : IntKey{false, static_cast<uint64_t>(number)};
}

// "1..5, 7, 9" from a set of integers.
std::string IntegerList(std::vector<Json> values) {
  std::sort(values.begin(), values.end(), [](const Json& a, const Json& b) { return KeyOf(a) < KeyOf(b); });
  std::string text;
  for (size_t i = 0; i < values.size();) {
    size_t j = i;
    while (j + 1 < values.size() && KeyOf(values[j + 1]) == KeyOf(values[j]).Next())
      ++j;
    text += text.empty() ? "" : ", ";
    if (j >= i + 2) {
      text += CompactText(values[i]) + ".." + CompactText(values[j]);
    } else {
      for (size_t k = i; k <= j; ++k)
        text += (k == i ? "" : ", ") + CompactText(values[k]);
    }
    i = j + 1;
  }
  return text;
}

std::string NoneWord(const SampleLeaf& leaf) {
  if (leaf.none.is_discarded()) return "left out";
  if (leaf.type == "bool") return "false";
  if (leaf.type == "time") return "null";
  if (leaf.none.is_number()) return "0";
  return "empty";
}

// The values of `leaf`, among those tried, for which the outcome was `want`.
using Tries = std::vector<std::pair<const Json*, const std::string*>>;

std::string ValuesWhere(const SampleLeaf& leaf, const Tries& tried, const std::string& want) {
  std::vector<Json> yes;
  std::vector<Json> no;
  for (const auto& [value, outcome] : tried) {
    auto& side = *outcome == want ? yes : no;
    if (std::find(side.begin(), side.end(), *value) == side.end()) side.push_back(*value);
  }
  const std::string name = Code(leaf.path);
  if (!leaf.scan.empty()) {
    if (yes.size() <= no.size()) return name + (yes.size() == 1 ? " is " : " in ") + IntegerList(yes);
    return name + (no.size() == 1 ? " is not " : " not in ") + IntegerList(no);
  }
  if (leaf.type == "bool" && yes.size() == 1) return name + " is " + CompactText(yes.front());
  if (no.size() == 1 && no.front() == leaf.none) return name + " is not " + NoneWord(leaf);
  if (yes.size() == 1 && yes.front() == leaf.none) return name + " is " + NoneWord(leaf);
  std::string text;
  for (const auto& value : yes)
    text += (text.empty() ? "" : " or ") + (value == leaf.none ? NoneWord(leaf) : Code(CompactText(value)));
  return name + " is " + text;
}

// ---- Studying one export ----

// One call of the export: a base record with one member changed (`leaf`, to `value`), or the base
// record itself in another situation.
struct Trial {
  int base = 0;
  int leaf = -1;
  Json value;
  std::string situation;     // empty for a base record and for changed members
  bool host_change = false;  // the situation is a host without one of its services
  Seen seen;
};

// A record the export is studied from: the canonical record, and records with one member set to a
// value that makes the export request entities the canonical record does not (the body of another
// search step, say), so that the members feeding those entities show too.
struct Base {
  Json arguments;
  std::vector<Json> values;  // the value of each member
  int leaf = -1;             // the member that differs from the canonical record
  Json value;
  Seen seen;
  Seen later;       // the same call later: values from the clock differ
  Seen other_host;  // the same call on another host: values from the host differ
  std::vector<std::vector<size_t>> runs_by_leaf;
};

constexpr size_t kMostBases = 16;

// What a call shows of one thing (an entity's presence, an operation's value, ...); null when the
// call says nothing of it. The text lives in the Seen or is one of the words below.
using Outcome = std::function<const std::string*(const Seen&)>;

const std::string kYes = "yes";
const std::string kNo = "no";
const std::string kDropped = "dropped";
const std::string kSentAgain = "sent again";

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

// "a, b or c".
std::string Alternately(const std::vector<std::string>& parts, const char* last) {
  std::string text;
  for (size_t i = 0; i < parts.size(); ++i)
    text += (i == 0                  ? ""
             : i + 1 == parts.size() ? std::string(" ") + last + " "
                                     : std::string(", ")) +
            parts[i];
  return text;
}

class Study {
 public:
  Study(const ExportEntry& entry, Runner& runner) : entry_(entry), runner_(runner), samples_(kScanTop) {
    canonical_ = entry.sample(samples_);
    leaves_ = samples_.leaves();
  }

  Report Perform() {
    AddBase(canonical_, -1, Json());
    const Json defaults = Json::object();  // every argument left out: its default value
    Call({0, -1, Json(), "every member is 0 or empty", false, {}}, defaults, false);
    for (size_t i = 0; i < leaves_.size(); ++i)
      CallWithEachValue(static_cast<int>(i));
    MoreBases();
    CallInSituations();
    return Describe();
  }

 private:
  const Seen& canonical() const { return bases_.front().seen; }

  Seen Once(const Json& arguments) {
    runner_.NextSlot();
    return runner_.Call(entry_, arguments);
  }

  void AddBase(const Json& arguments, int leaf, const Json& value) {
    Base base;
    base.arguments = arguments;
    for (const auto& sample : leaves_)
      base.values.push_back(GetAt(arguments, sample.path));
    base.leaf = leaf;
    base.value = value;
    runner_.NextSlot();
    base.seen = runner_.Call(entry_, arguments, true);
    base.later = Once(arguments);
    runner_.NewHost(true);
    const std::pair<const char*, const char*> other_host[] = {
        {"system",
         R"("os_version": "11.0.99999", "system_product_name": "Other Book", "system_manufacturer": "Other Make", "region_name": "JP", "gpu_model": "Other Graphics", "cpu_type": "arm64", "cpu_name": "Other CPU", "total_ram_gb": 64, "screen_size_in": "27", "resolution": "3840*2160", "network_type": "ethernet", "language_setting": "ja-JP", "current_version": "9.8.7.6543")"},
        {"client_context", R"("second": "other second", "third": "other third", "sixth": "other sixth")"},
        {"account", R"("domain": "other-domain", "web_url": "https://other.example")"},
        {"development_urls", R"("containing": ["https://"])"},
    };
    for (const auto& [name, fields] : other_host)
      runner_.Directive(std::string("{\"host\": \"") + name + "\", " + fields + "}");
    base.other_host = Once(arguments);
    runner_.NewHost(true);
    base.runs_by_leaf.resize(leaves_.size());
    bases_.push_back(std::move(base));
  }

  // A call at a fresh moment; with `repeat`, made again at once to see whether a repeat is dropped.
  void Call(Trial trial, const Json& arguments, bool repeat) {
    runner_.NextSlot();
    trial.seen = runner_.Call(entry_, arguments, repeat);
    if (trial.leaf >= 0) {
      bases_[static_cast<size_t>(trial.base)].runs_by_leaf[static_cast<size_t>(trial.leaf)].push_back(
          runs_.size());
    }
    runs_.push_back(std::move(trial));
  }

  // The canonical record with `leaf` set to its default, its other value and every value it is
  // scanned with.
  void CallWithEachValue(int leaf) {
    const SampleLeaf& sample = leaves_[static_cast<size_t>(leaf)];
    std::vector<Json> values{GetAt(canonical_, sample.path), sample.none};
    if (!sample.other.is_discarded()) values.push_back(sample.other);
    values.insert(values.end(), sample.scan.begin(), sample.scan.end());
    const std::vector<std::string> segments = Segments(sample.path);
    for (size_t i = 1; i < values.size(); ++i) {
      const auto tried_before = values.begin() + static_cast<std::ptrdiff_t>(i);
      if (std::find(values.begin(), tried_before, values[i]) != tried_before) continue;
      Json arguments = canonical_;
      SetAt(arguments, segments, 0, values[i]);
      Call({0, leaf, values[i], "", false, {}}, arguments, true);
    }
  }

  // Every member value that made the export request an entity no base requests becomes a base, and
  // every other member is changed once more from it, to its default and its other value.
  void MoreBases() {
    std::set<std::string> known;
    for (const auto& entity : canonical().entities)
      known.insert(entity.key);
    const size_t scanned = runs_.size();
    for (size_t index = 0; index < scanned && bases_.size() < kMostBases; ++index) {
      const Trial trial = runs_[index];
      bool news = false;
      for (const auto& entity : trial.seen.entities)
        news = known.insert(entity.key).second || news;
      if (!news || trial.leaf < 0) continue;
      Json arguments = canonical_;
      SetAt(arguments, Segments(leaves_[static_cast<size_t>(trial.leaf)].path), 0, trial.value);
      AddBase(arguments, trial.leaf, trial.value);
      const int base = static_cast<int>(bases_.size()) - 1;
      for (size_t leaf = 0; leaf < leaves_.size(); ++leaf) {
        if (static_cast<int>(leaf) == trial.leaf) continue;
        const SampleLeaf& sample = leaves_[leaf];
        for (const Json& value : {sample.none, sample.other}) {
          if (value.is_discarded() && &value == &sample.other) continue;
          Json changed = arguments;
          SetAt(changed, Segments(sample.path), 0, value);
          Call({base, static_cast<int>(leaf), value, "", false, {}}, changed, false);
        }
      }
    }
  }

  void CallInSituations() {
    const std::pair<const char*, const char*> services[] = {
        {"registry", "the registry is absent"},
        {"telemetry", "the telemetry service is absent"},
        {"web_service", "the web service is absent"},
        {"url_utils", "the URL utilities are absent"},
        {"short_key_lookup", "the short-key lookup is absent"},
    };
    for (const auto& [service, words] : services) {
      runner_.Directive(std::string(R"({"host": "absent", "service": ")") + service + "\"}");
      Call({0, -1, Json(), words, true, {}}, canonical_, false);
      runner_.Directive(std::string(R"({"host": "present", "service": ")") + service + "\"}");
    }
    runner_.Directive(R"({"host": "create_event", "fails": true})");
    Call({0, -1, Json(), "the host creates no event", false, {}}, canonical_, false);
    runner_.Directive(R"({"host": "create_event", "fails": false})");
    // Each entity type on the first base record that requests it.
    std::map<int32_t, size_t> types;
    for (size_t b = 0; b < bases_.size(); ++b) {
      for (const auto& entity : bases_[b].seen.entities)
        types.emplace(runner_.observer.entities.at(entity.key).type, b);
    }
    for (const auto& [type, b] : types) {
      const std::string number = std::to_string(type);
      runner_.Directive(R"({"host": "create_entity", "type": )" + number + R"(, "fails": true})");
      none_given_runs_[type] = runs_.size();
      Call({static_cast<int>(b), -1, Json(), "the host gives no " + EntityTitle(type), false, {}},
           bases_[b].arguments, false);
      runner_.Directive(R"({"host": "create_entity", "type": )" + number + R"(, "fails": false})");
    }
  }

  // ---- Analysis ----

  // The outcomes of `f` over the runs of member `leaf` from base `b`, with the member's value in each,
  // the base's own first.
  Tries Tried(size_t b, size_t leaf, const Outcome& f) const {
    const Base& base = bases_[b];
    Tries tried;
    if (const std::string* outcome = f(base.seen)) tried.emplace_back(&base.values[leaf], outcome);
    for (const size_t index : base.runs_by_leaf[leaf]) {
      if (const std::string* outcome = f(runs_[index].seen)) tried.emplace_back(&runs_[index].value, outcome);
    }
    return tried;
  }

  // The first base whose call `f` says anything of.
  size_t Reference(const Outcome& f) const {
    for (size_t b = 0; b < bases_.size(); ++b) {
      if (f(bases_[b].seen)) return b;
    }
    return 0;
  }

  // Whether a condition names situations (a service absent, the host failing, a default record)
  // besides member values: always, only when no member value gives the outcome, or never.
  enum class Situations { kAlways, kFallback, kNever };

  // When `f` gives `want`, from the first base it applies to: for the outcome of that base's call,
  // the member values that keep it (joined by "and"); otherwise the member values and situations that
  // give it (joined by "or").
  std::string Condition(const Outcome& f, const std::string& want, Situations situations) const {
    const size_t b = Reference(f);
    const std::string* usual_outcome = f(bases_[b].seen);
    const bool usual = usual_outcome != nullptr && *usual_outcome == want;
    std::vector<std::string> parts;
    for (size_t leaf = 0; leaf < leaves_.size(); ++leaf) {
      const Tries tried = Tried(b, leaf, f);
      const auto gives = [&want](const auto& t) { return *t.second == want; };
      if (std::any_of(tried.begin(), tried.end(), gives) && !std::all_of(tried.begin(), tried.end(), gives))
        parts.push_back(ValuesWhere(leaves_[leaf], tried, want));
    }
    const bool named =
        situations == Situations::kAlways || (situations == Situations::kFallback && parts.empty());
    if (!usual && named && b == 0) {
      for (const auto& run : runs_) {
        const std::string* outcome = run.situation.empty() || run.base != 0 ? nullptr : f(run.seen);
        if (outcome != nullptr && *outcome == want) parts.push_back(run.situation);
      }
    }
    return usual ? Alternately(parts, "and") : Alternately(parts, "or");
  }

  // Every outcome of `f` other than the canonical call's, with when it comes.
  std::vector<std::pair<std::string, std::string>> Alternatives(const Outcome& f,
                                                                Situations situations) const {
    const std::string* canonical_outcome = f(canonical());
    std::vector<std::string> outcomes;
    for (const auto& run : runs_) {
      if (run.base != 0 || (situations == Situations::kNever && !run.situation.empty())) continue;
      const std::string* outcome = f(run.seen);
      if (outcome != nullptr && (canonical_outcome == nullptr || *outcome != *canonical_outcome) &&
          std::find(outcomes.begin(), outcomes.end(), *outcome) == outcomes.end()) {
        outcomes.push_back(*outcome);
      }
    }
    std::vector<std::pair<std::string, std::string>> alternatives;
    for (const auto& outcome : outcomes)
      alternatives.emplace_back(outcome, Condition(f, outcome, situations));
    return alternatives;
  }

  // Where the value `f` gives comes from: the members whose change changes it, the host, the clock.
  void Sources(const Outcome& f, Row& row) const {
    row.base = static_cast<int>(Reference(f));
    const Base& reference = bases_[static_cast<size_t>(row.base)];
    const auto differs = [&f](const Seen& usual, const Seen& seen) {
      const std::string* a = f(usual);
      const std::string* b = f(seen);
      return a != nullptr && b != nullptr && *a != *b;
    };
    if (const std::string* value = f(reference.seen)) row.canonical = *value;
    row.clock = differs(reference.seen, reference.later);
    if (row.clock) return;
    for (size_t leaf = 0; leaf < leaves_.size(); ++leaf) {
      for (size_t b = 0; b < bases_.size(); ++b) {
        const Tries tried = Tried(b, leaf, f);
        const auto other = [&tried](const auto& t) { return *t.second != *tried.front().second; };
        if (tried.empty() || std::none_of(tried.begin(), tried.end(), other)) continue;
        row.from.push_back(Code(leaves_[leaf].path) + " (" + Code(CompactText(bases_.front().values[leaf])) +
                           ")");
        break;
      }
    }
    for (const auto& base : bases_)
      row.host = row.host || differs(base.seen, base.other_host);
    for (const auto& run : runs_) {
      if (run.host_change) row.host = row.host || differs(canonical(), run.seen);
    }
    if (row.from.empty() && !row.host) {
      for (const auto& run : runs_) {
        if (run.situation == "every member is 0 or empty" && differs(canonical(), run.seen))
          row.from.push_back("the record as a whole");
      }
    }
  }

  std::vector<std::string> Bullets() {
    std::vector<std::string> bullets;
    const Outcome events = [](const Seen& seen) { return &seen.events; };
    std::string sends = "**Sends** " + canonical().events + ".";
    for (const auto& [outcome, when] : Alternatives(events, Situations::kAlways)) {
      if (outcome != "no event" && !when.empty()) sends += " Sends " + outcome + " when " + when + ".";
    }
    bullets.push_back(sends);

    const Outcome gate = [](const Seen& seen) { return &seen.gate; };
    std::string returns = "**" + canonical().gate + "**.";
    returns[2] = 'R';
    for (const auto& [outcome, when] : Alternatives(gate, Situations::kAlways)) {
      std::string text = outcome;
      text[0] = 'R';
      returns +=
          " " + text + " when " + (when.empty() ? "the record or the host differ otherwise" : when) + ".";
    }
    bullets.push_back(returns);
    bullets.push_back(RateLimit());

    const Seen& defaults = DefaultRun();
    std::string requested;
    for (const auto& entity : defaults.entities)
      requested +=
          (requested.empty() ? "" : ", ") + EntityTitle(runner_.observer.entities.at(entity.key).type);
    bullets.push_back("**Default record** (every member 0 or empty): " + defaults.gate +
                      (requested.empty() ? "" : "; requests " + requested) + ".");

    std::string unused;
    for (size_t leaf = 0; leaf < leaves_.size(); ++leaf) {
      if (!ChangesAnything(leaf)) unused += (unused.empty() ? "" : ", ") + Code(leaves_[leaf].path);
    }
    if (!unused.empty())
      bullets.push_back("**Members that change nothing this call shows**: " + unused + ".");
    return bullets;
  }

  const Seen& DefaultRun() const {
    for (const auto& run : runs_) {
      if (run.situation == "every member is 0 or empty") return run.seen;
    }
    return canonical();
  }

  // Whether two calls showed the same, values from the clock aside; the repeat only when `repeat`.
  bool SameShown(const Seen& a, const Seen& b, bool repeat) const {
    if (a.result != b.result || a.sent != b.sent || a.null_entries != b.null_entries ||
        a.outcomes != b.outcomes || (repeat && a.repeat_dropped != b.repeat_dropped) ||
        a.entities.size() != b.entities.size() || a.filled.size() != b.filled.size()) {
      return false;
    }
    for (size_t i = 0; i < a.entities.size(); ++i) {
      const EntitySeen& x = a.entities[i];
      const EntitySeen& y = b.entities[i];
      if (x.key != y.key || x.placement != y.placement || x.ops.size() != y.ops.size()) return false;
      for (size_t k = 0; k < x.ops.size(); ++k) {
        if (x.ops[k].key != y.ops[k].key) return false;
        if (x.ops[k].value != y.ops[k].value && clock_rows_.count(x.key + "|" + x.ops[k].key) == 0)
          return false;
      }
    }
    for (size_t i = 0; i < a.filled.size(); ++i) {
      if (a.filled[i].first != b.filled[i].first) return false;
      if (a.filled[i].second != b.filled[i].second && clock_rows_.count(a.filled[i].first) == 0) return false;
    }
    return true;
  }

  bool ChangesAnything(size_t leaf) const {
    for (const auto& base : bases_) {
      for (const size_t index : base.runs_by_leaf[leaf]) {
        const Seen& seen = runs_[index].seen;
        const bool repeat = base.seen.repeat_dropped.has_value() && seen.repeat_dropped.has_value();
        if (!SameShown(seen, base.seen, repeat)) return true;
      }
    }
    return false;
  }

  std::string RateLimit() {
    const Outcome repeat = [](const Seen& seen) -> const std::string* {
      if (!seen.repeat_dropped) return nullptr;
      return *seen.repeat_dropped ? &kDropped : &kSentAgain;
    };
    Json arguments;
    if (canonical().repeat_dropped.value_or(false)) {
      arguments = canonical_;
    } else {
      for (const auto& run : runs_) {
        if (run.base == 0 && run.leaf >= 0 && run.seen.repeat_dropped.value_or(false)) {
          arguments = canonical_;
          SetAt(arguments, Segments(leaves_[static_cast<size_t>(run.leaf)].path), 0, run.value);
          break;
        }
      }
    }
    if (arguments.is_null()) return "**Rate limit**: none; the same call made again at once is sent again.";
    std::string text = "**Rate limit**: ";
    const bool usual = canonical().repeat_dropped.value_or(false);
    if (!usual) text += "when " + Condition(repeat, kDropped, Situations::kNever) + ", ";
    text += "the same call made again " + Window(arguments);
    if (usual) {
      const std::string keys = RateLimitKeys();
      if (!keys.empty()) text += "; calls that differ in " + keys + " are counted apart";
      const std::string exceptions = Condition(repeat, kSentAgain, Situations::kNever);
      if (!exceptions.empty()) text += "; a repeat is sent again when " + exceptions;
    }
    return text + ".";
  }

  // "less than 1000 ms after the last accepted one is dropped (returns 0 and sends nothing)".
  std::string Window(const Json& arguments) {
    const auto dropped_after = [&](int64_t delay) {
      const int64_t at = runner_.NextSlot(2 * kLongestWindowMs);
      runner_.Call(entry_, arguments);
      Runner::At(at + delay);
      const Seen again = runner_.Call(entry_, arguments);
      return std::make_pair(!again.sent, again.gate);
    };
    const auto [dropped, gate] = dropped_after(0);
    if (dropped_after(kLongestWindowMs).first) return "at any time within a day is dropped (" + gate + ")";
    int64_t low = 0;                  // dropped
    int64_t high = kLongestWindowMs;  // accepted
    while (high - low > 1) {
      const int64_t middle = low + (high - low) / 2;
      (dropped_after(middle).first ? low : high) = middle;
    }
    (void)dropped;
    return "less than " + std::to_string(high) + " ms after the last accepted one is dropped (" + gate + ")";
  }

  // The members whose change lets an immediate repeat through.
  std::string RateLimitKeys() {
    std::vector<std::string> keys;
    for (size_t leaf = 0; leaf < leaves_.size(); ++leaf) {
      for (const size_t index : bases_.front().runs_by_leaf[leaf]) {
        const Trial& run = runs_[index];
        if (!run.seen.sent) continue;
        Json changed = canonical_;
        SetAt(changed, Segments(leaves_[leaf].path), 0, run.value);
        runner_.NextSlot();
        runner_.Call(entry_, canonical_);
        if (runner_.Call(entry_, changed).sent) keys.push_back(Code(leaves_[leaf].path));
        break;
      }
    }
    return Alternately(keys, "or");
  }

  Report Describe() {
    Report report;
    report.entry = &entry_;
    for (const auto& base : bases_)
      report.bases.push_back(base.arguments);
    // Entities and their operations in the order the calls requested and called them.
    std::vector<std::string> entity_order;
    std::map<std::string, std::vector<std::string>> op_order;
    std::vector<std::string> filled_order;
    const auto merge_all = [&](const Seen& seen) {
      std::vector<std::string> entities;
      for (const auto& entity : seen.entities) {
        entities.push_back(entity.key);
        std::vector<std::string> ops;
        for (const auto& op : entity.ops)
          ops.push_back(op.key);
        Merge(op_order[entity.key], ops);
      }
      Merge(entity_order, entities);
      std::vector<std::string> filled;
      for (const auto& member : seen.filled)
        filled.push_back(member.first);
      Merge(filled_order, filled);
    };
    for (const auto& base : bases_)
      merge_all(base.seen);
    for (const auto& run : runs_)
      merge_all(run.seen);

    // Rows first (they find the values that come from the clock), then the bullets.
    for (const auto& key : entity_order)
      report.entities.push_back(Entity(key, op_order[key]));
    for (const auto& path : filled_order) {
      Row row;
      row.key = path;
      row.label = Code(path);
      const Outcome value = [path](const Seen& seen) { return seen.Filled(path); };
      Sources(value, row);
      row.value = row.canonical.value_or("");
      if (row.clock) clock_rows_.insert(path);
      report.filled.push_back(std::move(row));
    }
    report.bullets = Bullets();
    return report;
  }

  // Appends the items of `sequence` that `order` lacks, each before the next item of the sequence
  // that `order` has (or at the end).
  static void Merge(std::vector<std::string>& order, const std::vector<std::string>& sequence) {
    for (size_t i = 0; i < sequence.size(); ++i) {
      if (std::find(order.begin(), order.end(), sequence[i]) != order.end()) continue;
      auto at = order.end();
      for (size_t j = i + 1; j < sequence.size() && at == order.end(); ++j)
        at = std::find(order.begin(), order.end(), sequence[j]);
      order.insert(at, sequence[i]);
    }
  }

  EntitySection Entity(const std::string& key, const std::vector<std::string>& ops) {
    const EntityInfo& info = runner_.observer.entities.at(key);
    EntitySection section;
    section.title = EntityTitle(info.type);
    if (info.occurrence > 1) section.title += " (" + Ordinal(info.occurrence) + ")";
    if (info.event > 1) section.title = "event " + std::to_string(info.event) + ": " + section.title;
    const Outcome present = [key](const Seen& seen) { return seen.Entity(key) != nullptr ? &kYes : &kNo; };
    const Outcome placement = [key](const Seen& seen) -> const std::string* {
      const EntitySeen* entity = seen.Entity(key);
      return entity == nullptr || !entity->given ? nullptr : &entity->placement;
    };
    const EntitySeen* usual = canonical().Entity(key);
    section.requested = Condition(present, kYes, Situations::kFallback);
    if (section.requested.empty()) section.requested = usual != nullptr ? "always" : "in other situations";
    const size_t reference = Reference(placement);
    const std::string* attached = placement(bases_[reference].seen);
    section.attached = attached == nullptr ? "" : *attached;
    for (const auto& [where, when] : Alternatives(placement, Situations::kNever)) {
      if (!when.empty() && where != section.attached) section.attached += "; " + where + " when " + when;
    }
    section.none_given = NoneGiven(info.type);
    for (const auto& op : ops) {
      const std::string row_key = key + "|" + op;
      const OpInfo& op_info = runner_.observer.ops.at(row_key);
      Row row;
      row.key = row_key;
      row.label = op_info.label;
      row.kind = op_info.kind;
      const Outcome value = [key, op](const Seen& seen) -> const std::string* {
        const EntitySeen* entity = seen.Entity(key);
        const OpSeen* found = entity == nullptr ? nullptr : entity->Op(op);
        return found == nullptr ? nullptr : &found->value;
      };
      const Outcome op_present = [key, op](const Seen& seen) -> const std::string* {
        const EntitySeen* entity = seen.Entity(key);
        if (entity == nullptr) return nullptr;
        return entity->Op(op) != nullptr ? &kYes : &kNo;
      };
      row.when = Condition(op_present, kYes, Situations::kFallback);
      Sources(value, row);
      if (!row.canonical) {
        // Called in none of the base calls: show a value from any call that made it.
        for (const auto& run : runs_) {
          if (const auto seen = value(run.seen)) {
            row.value = *seen;
            break;
          }
        }
      } else {
        row.value = *row.canonical;
      }
      if (row.clock) clock_rows_.insert(row_key);
      section.rows.push_back(std::move(row));
    }
    return section;
  }

  std::string NoneGiven(int32_t type) const {
    const auto it = none_given_runs_.find(type);
    if (it == none_given_runs_.end()) return "";
    const Trial& trial = runs_[it->second];
    const Seen& usual = bases_[static_cast<size_t>(trial.base)].seen;
    if (trial.seen.gate != usual.gate) return trial.seen.gate;
    std::string text = trial.seen.null_entries > usual.null_entries ? "null entry" : "left out";
    return text + (trial.seen.sent ? ", still sent" : "");
  }

  const ExportEntry& entry_;
  Runner& runner_;
  SampleBuilder samples_;
  Json canonical_;
  std::vector<SampleLeaf> leaves_;
  std::vector<Base> bases_;
  std::vector<Trial> runs_;
  std::map<int32_t, size_t> none_given_runs_;
  std::set<std::string> clock_rows_;
};

// ---- The page ----

// Marks the rows whose value differs once the client context is filled (their value comes from the
// host), and shows such rows with the value a filled context gives. `seen`: one call per base record.
void ApplyFilledContext(Report& report, const std::vector<Seen>& seen) {
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

void WriteCatalog(std::ostream& out) {
  WriteCatalog(out, Exports());
}

void WriteCatalog(std::ostream& out, const std::vector<ExportEntry>& exports) {
  Runner runner;
  std::vector<Report> reports;
  for (const auto& entry : exports)
    reports.push_back(Study(entry, runner).Perform());
  runner.NewHost(false);  // the client context fills at the next call and stays filled
  for (auto& report : reports) {
    std::vector<Seen> seen;
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
