#include "tools/replay/catalog_study.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "tools/replay/catalog.h"
#include "tools/replay/catalog_values.h"
#include "tools/replay/schema_names.h"

namespace oet_replay {
namespace catalog {
namespace {

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

}  // namespace

Report StudyExport(const ExportEntry& entry, Runner& runner) {
  return Study(entry, runner).Perform();
}

}  // namespace catalog
}  // namespace oet_replay
