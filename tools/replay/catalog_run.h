// Running the event catalog's calls (catalog.h): calling an export through a recording host and
// noting what the call did, entity by entity and operation by operation, in a form the study of the
// export (catalog_study.h) compares from call to call.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/kst_time.h"
#include "testing/recording_host.h"
#include "tools/replay/exports.h"
#include "tools/replay/host_directives.h"

namespace oet_replay {
namespace catalog {

constexpr int64_t kStartMs = 1773014400000;         // 2026-03-09T00:00:00.000Z
constexpr int64_t kRunSpacingMs = 3600 * 1000;      // between independent calls
constexpr int64_t kLongestWindowMs = 86400 * 1000;  // rate limits are measured up to a day

// "1st", "2nd", "3rd", "4th", ...
std::string Ordinal(int n);

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

// Turns a call's result and recorded events into a Seen, and keeps, across every call, what each
// entity and operation key stands for.
class Observer {
 public:
  std::map<std::string, EntityInfo> entities;
  std::map<std::string, OpInfo> ops;  // by entity key + "|" + op key

  Seen Observe(const CallResult& result, const std::vector<oet_testing::RecordedEvent>& events);
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

  // Applies a directive line to the host (a line that does not apply is a fault of the catalog).
  void Directive(const std::string& line);

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
  Seen Call(const ExportEntry& entry, const Json& arguments, bool repeat = false);
  Observer observer;

 private:
  std::unique_ptr<SessionHost> host_;
};

}  // namespace catalog
}  // namespace oet_replay
