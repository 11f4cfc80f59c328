#include "tools/replay/host_directives.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>

#include "oKstPlatform/host_control.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/url_utils.h"
#include "tools/replay/exports.h"

namespace oet_replay {

// ---- The fields of each directive ----

namespace {

enum class Service {
  kRegistry,
  kTelemetry,
  kWebService,
  kTelemetryClassObject,
  kWebServiceClassObject,
  kUrlUtils,
  kShortKeyLookup,
  kAttributeHolders
};

const std::pair<Service, const char*> kServiceNames[] = {
    {Service::kRegistry, "registry"},
    {Service::kTelemetry, "telemetry"},
    {Service::kWebService, "web_service"},
    // The service's class object alone: its module stays present and answers null for the class.
    {Service::kTelemetryClassObject, "telemetry_class_object"},
    {Service::kWebServiceClassObject, "web_service_class_object"},
    {Service::kUrlUtils, "url_utils"},
    {Service::kShortKeyLookup, "short_key_lookup"},
    // The entities' attribute holders: absent, every entity answers a holder request with null.
    {Service::kAttributeHolders, "attribute_holders"},
};

}  // namespace

template <>
struct Codec<Service> {
  static void Read(const Json& in, Service& out, const std::string& path, Issues& issues) {
    std::string names;
    for (const auto& [service, name] : kServiceNames) {
      if (in.is_string() && in.get<std::string>() == name) {
        out = service;
        return;
      }
      names += (names.empty() ? "" : ", ") + std::string(name);
    }
    issues.AddField(path, Shown(in) + " is not a service (" + names + ")");
  }
  static Json Write(const Service& service) {
    for (const auto& [known, name] : kServiceNames) {
      if (known == service) return name;
    }
    return nullptr;
  }
};

namespace {

// A position among the host-visible calls to come: 1 is the next call, 0 none.
struct CallPosition {
  int32_t value = 0;
};

}  // namespace

template <>
struct Codec<CallPosition> {
  static void Read(const Json& in, CallPosition& out, const std::string& path, Issues& issues) {
    Issues own;
    Codec<int32_t>::Read(in, out.value, path, own);
    if (own.empty() && out.value < 0)
      own.AddField(path, Shown(in) + " is not a call position (1 is the next call, 0 disarms)");
    for (const auto& message : own.messages())
      issues.Add(message);
  }
  static Json Write(const CallPosition& position) { return position.value; }
};

namespace {

// The words of one chat performance-metric word function, by enumeration value: a JSON object whose
// keys are the values in decimal ({"5": "signoff"}).
struct WordsByValue {
  std::map<int32_t, std::string> words;
};

}  // namespace

template <>
struct Codec<WordsByValue> {
  static void Read(const Json& in, WordsByValue& out, const std::string& path, Issues& issues) {
    std::map<std::string, std::string> texts;
    Codec<std::map<std::string, std::string>>::Read(in, texts, path, issues);
    for (const auto& [key, word] : texts) {
      int32_t value = 0;
      Issues own;
      const Json number = Json::parse(key, nullptr, false);
      if (number.is_discarded() || !number.is_number_integer() || number.dump() != key) {
        issues.AddField(MemberPath(path, key),
                        Shown(Json(key)) + " is not an enumeration value (a decimal integer)");
        continue;
      }
      Codec<int32_t>::Read(number, value, MemberPath(path, key), own);
      for (const auto& message : own.messages())
        issues.Add(message);
      if (own.empty()) out.words[value] = word;
    }
  }
  static Json Write(const WordsByValue& table) {
    Json out = Json::object();
    for (const auto& [value, word] : table.words)
      out[std::to_string(value)] = word;
    return out;
  }
};

namespace {

// What the web service writes into the client-context record.
struct ClientContextAnswer {
  std::optional<std::string> value;
  std::optional<std::string> second;
  std::optional<std::string> third;
  std::optional<std::string> sixth;
};

// The machine's facts, as the system-information functions answer them.
struct SystemFacts {
  std::optional<std::string> os_version;
  std::optional<std::string> system_product_name;
  std::optional<std::string> system_manufacturer;
  std::optional<std::string> region_name;
  std::optional<std::string> gpu_model;
  std::optional<std::string> cpu_type;
  std::optional<std::string> cpu_name;
  std::optional<int32_t> total_ram_gb;
  std::optional<std::string> screen_size_in;
  std::optional<std::string> resolution;
  std::optional<std::string> network_type;
  std::optional<std::string> language_setting;
  std::optional<std::string> current_version;  // the client version
};

// The account's domain label and web URL, as the web service answers them.
struct Account {
  std::optional<std::string> domain;
  std::optional<std::string> web_url;
};

// Which URLs the URL utilities call development: those equal to one of `urls` or containing one of
// `containing`. Replaces the previous rule; with both lists empty, no URL is development.
struct DevelopmentUrls {
  std::vector<std::string> urls;
  std::vector<std::string> containing;
};

// The short-key lookup's table, identifier -> short key; replaces the previous table.
struct ShortKeys {
  std::map<std::string, std::string> table;
};

struct ServiceSwitch {
  Service service = Service::kTelemetry;
};

struct CreateEventFailure {
  bool fails = true;
};

// Every CreateEntity of the type fails while `fails`; with `nth`, only the nth from now on (1 is the
// next one), once (0 disarms).
struct CreateEntityFailure {
  int32_t type = 0;
  bool fails = true;
  std::optional<int32_t> nth;
};

// The answers of the chat performance-metric word functions, one table per function, named as the
// performance-metrics record names its members; replaces the previous words, and values not given
// answer the host's own words.
struct MetricWords {
  WordsByValue fetch_event;
  WordsByValue fetch_handler_event;
  WordsByValue file_event;
  WordsByValue heartbeat_event;
  WordsByValue login_event;
  WordsByValue message_event;
  WordsByValue message_handler_event;
  WordsByValue platform_event;
  WordsByValue special_event;
};

// The n-th host-visible call from now on throws (1 is the next call); 0 disarms.
struct ThrowAtCall {
  CallPosition at;
};

// The clock: first set (when given, `set` as a time or `set_us` in Unix microseconds), then advanced
// (by `advance_ms` milliseconds and `advance_us` microseconds, when given).
struct Clock {
  std::optional<Kst::Time> set;
  std::optional<int64_t> set_us;
  std::optional<int64_t> advance_ms;
  std::optional<int64_t> advance_us;
};

}  // namespace

OET_REPLAY_BIND(ClientContextAnswer, "the client_context directive", OET_REPLAY_FIELD(value),
                OET_REPLAY_FIELD(second), OET_REPLAY_FIELD(third), OET_REPLAY_FIELD(sixth))

OET_REPLAY_BIND(SystemFacts, "the system directive", OET_REPLAY_FIELD(os_version),
                OET_REPLAY_FIELD(system_product_name), OET_REPLAY_FIELD(system_manufacturer),
                OET_REPLAY_FIELD(region_name), OET_REPLAY_FIELD(gpu_model), OET_REPLAY_FIELD(cpu_type),
                OET_REPLAY_FIELD(cpu_name), OET_REPLAY_FIELD(total_ram_gb), OET_REPLAY_FIELD(screen_size_in),
                OET_REPLAY_FIELD(resolution), OET_REPLAY_FIELD(network_type),
                OET_REPLAY_FIELD(language_setting), OET_REPLAY_FIELD(current_version))

OET_REPLAY_BIND(Account, "the account directive", OET_REPLAY_FIELD(domain), OET_REPLAY_FIELD(web_url))

OET_REPLAY_BIND(DevelopmentUrls, "the development_urls directive", OET_REPLAY_FIELD(urls),
                OET_REPLAY_FIELD(containing))

OET_REPLAY_BIND(ShortKeys, "the short_keys directive", OET_REPLAY_FIELD(table))

OET_REPLAY_BIND(ServiceSwitch, "the absent and present directives", OET_REPLAY_FIELD(service))

OET_REPLAY_BIND(CreateEventFailure, "the create_event directive", OET_REPLAY_FIELD(fails))

OET_REPLAY_BIND(CreateEntityFailure, "the create_entity directive", OET_REPLAY_FIELD(type),
                OET_REPLAY_FIELD(fails), OET_REPLAY_FIELD(nth))

OET_REPLAY_BIND(MetricWords, "the metric_words directive", OET_REPLAY_FIELD(fetch_event),
                OET_REPLAY_FIELD(fetch_handler_event), OET_REPLAY_FIELD(file_event),
                OET_REPLAY_FIELD(heartbeat_event), OET_REPLAY_FIELD(login_event),
                OET_REPLAY_FIELD(message_event), OET_REPLAY_FIELD(message_handler_event),
                OET_REPLAY_FIELD(platform_event), OET_REPLAY_FIELD(special_event))

OET_REPLAY_BIND(ThrowAtCall, "the throw_at_call directive", OET_REPLAY_FIELD(at))

OET_REPLAY_BIND(Clock, "the clock directive", OET_REPLAY_FIELD(set), OET_REPLAY_FIELD(set_us),
                OET_REPLAY_FIELD(advance_ms), OET_REPLAY_FIELD(advance_us))

// ---- What each directive does ----

namespace {

void Assign(std::string& target, const std::optional<std::string>& given) {
  if (given) target = *given;
}

void ApplyClientContext(const ClientContextAnswer& d, SessionHost& host) {
  auto& answer = host.context_answer();
  Assign(answer.value, d.value);
  Assign(answer.second, d.second);
  Assign(answer.third, d.third);
  Assign(answer.sixth, d.sixth);
  host.web_service().SetContextAnswer(answer);
}

void ApplySystem(const SystemFacts& d, SessionHost& /*host*/) {
  using KstHost::SystemFact;
  const std::pair<SystemFact, const std::optional<std::string>*> texts[] = {
      {SystemFact::kOSVersion, &d.os_version},
      {SystemFact::kSystemProductName, &d.system_product_name},
      {SystemFact::kSystemManufacturer, &d.system_manufacturer},
      {SystemFact::kRegionName, &d.region_name},
      {SystemFact::kGPUModel, &d.gpu_model},
      {SystemFact::kCPUType, &d.cpu_type},
      {SystemFact::kCPUName, &d.cpu_name},
      {SystemFact::kScreenSizeIn, &d.screen_size_in},
      {SystemFact::kResolution, &d.resolution},
      {SystemFact::kNetworkType, &d.network_type},
      {SystemFact::kLanguageSetting, &d.language_setting},
      {SystemFact::kCurrentVersion, &d.current_version},
  };
  for (const auto& [fact, value] : texts) {
    if (*value) KstHost::OverrideSystemFact(fact, **value);
  }
  if (d.total_ram_gb) KstHost::OverrideSystemFact(SystemFact::kTotalRAMGB, std::to_string(*d.total_ram_gb));
}

void ApplyAccount(const Account& d, SessionHost& host) {
  if (d.domain) host.web_service().SetAccountDomain(*d.domain);
  if (d.web_url) host.web_service().SetAccountWebUrl(*d.web_url);
}

void ApplyDevelopmentUrls(const DevelopmentUrls& d, SessionHost& /*host*/) {
  if (d.urls.empty() && d.containing.empty()) {
    KstHost::SetDevelopmentUrlPredicate(nullptr);
    return;
  }
  KstHost::SetDevelopmentUrlPredicate([d](const Kst::CStringT<wchar_t>& wide_url) {
    const std::string url = Kst::WideToUtf8(wide_url);
    for (const auto& candidate : d.urls) {
      if (url == candidate) return true;
    }
    for (const auto& part : d.containing) {
      if (url.find(part) != std::string::npos) return true;
    }
    return false;
  });
}

void ApplyShortKeys(const ShortKeys& d, SessionHost& host) {
  host.web_service().ClearShortKeys();
  for (const auto& [identifier, key] : d.table)
    host.web_service().SetShortKey(identifier, key);
}

void SetPresent(Service service, bool present, SessionHost& host) {
  switch (service) {
    case Service::kRegistry:
      host.recording().SetRegistryAvailable(present);
      break;
    case Service::kTelemetry:
      host.recording().SetTelemetryPresent(present);
      break;
    case Service::kWebService:
      host.recording().SetWebServicePresent(present);
      break;
    case Service::kTelemetryClassObject:
      host.recording().SetTelemetryClassObjectPresent(present);
      break;
    case Service::kWebServiceClassObject:
      host.recording().SetWebServiceClassObjectPresent(present);
      break;
    case Service::kUrlUtils:
      KstHost::SetUrlUtilsPresent(present);
      break;
    case Service::kShortKeyLookup:
      host.web_service().SetLookupPresent(present);
      break;
    case Service::kAttributeHolders:
      host.recording().SetAttributeHoldersPresent(present);
      break;
  }
}

void ApplyAbsent(const ServiceSwitch& d, SessionHost& host) {
  SetPresent(d.service, false, host);
}
void ApplyPresent(const ServiceSwitch& d, SessionHost& host) {
  SetPresent(d.service, true, host);
}

void ApplyCreateEvent(const CreateEventFailure& d, SessionHost& host) {
  host.recording().SetCreateEventFails(d.fails);
}

std::string ApplyCreateEntity(const CreateEntityFailure& d, SessionHost& host) {
  if (d.nth) {
    if (*d.nth < 0)
      return "field \"nth\": " + std::to_string(*d.nth) + " is not a position (1 is the next one, 0 disarms)";
    host.recording().SetCreateEntityFailsAt(d.type, *d.nth);
    return "";
  }
  host.recording().SetCreateEntityFails(d.type, d.fails);
  return "";
}

void ApplyMetricWords(const MetricWords& d, SessionHost& /*host*/) {
  using KstHost::PlatformFunction;
  const std::pair<PlatformFunction, const WordsByValue*> tables[] = {
      {PlatformFunction::kMetricsFetchEventToString, &d.fetch_event},
      {PlatformFunction::kMetricsFetchHandlerEventToString, &d.fetch_handler_event},
      {PlatformFunction::kMetricsFileEventToString, &d.file_event},
      {PlatformFunction::kMetricsHeartBeatEventToString, &d.heartbeat_event},
      {PlatformFunction::kMetricsLoginEventToString, &d.login_event},
      {PlatformFunction::kMetricsMessageEventToString, &d.message_event},
      {PlatformFunction::kMetricsMessageHandlerEventToString, &d.message_handler_event},
      {PlatformFunction::kMetricsPlatformEventToString, &d.platform_event},
      {PlatformFunction::kMetricsSpecialEventToString, &d.special_event},
  };
  KstHost::ClearMetricWords();
  for (const auto& [function, table] : tables) {
    for (const auto& [value, word] : table->words)
      KstHost::SetMetricWord(function, value, word);
  }
}

void ApplyThrowAtCall(const ThrowAtCall& d, SessionHost& host) {
  host.recording().ThrowAtCall(d.at.value);
}

// The clock stays within the times a script can write (about 292,000 years either side of 1970), so
// that moving it never overflows.
constexpr int64_t kClockLimitUs = std::numeric_limits<int64_t>::max() / 1000 * 1000;

// Moves `us` by `by` units of `unit` microseconds; false (and `us` unchanged) when that would leave
// the clock's range. |us| <= kClockLimitUs holds on entry; |by| is checked first so that by * unit
// cannot overflow.
bool MoveWithin(int64_t& us, int64_t by, int64_t unit) {
  if (by > kClockLimitUs / unit || by < -kClockLimitUs / unit) return false;
  const int64_t delta = by * unit;
  if ((delta > 0 && us > kClockLimitUs - delta) || (delta < 0 && us < -kClockLimitUs - delta)) return false;
  us += delta;
  return true;
}

std::string ApplyClock(const Clock& d, SessionHost& /*host*/) {
  if (d.set && d.set_us) return "fields \"set\" and \"set_us\": give one of them; the clock is unchanged";
  if (d.set_us && (*d.set_us > kClockLimitUs || *d.set_us < -kClockLimitUs))
    return "field \"set_us\": " + std::to_string(*d.set_us) +
           " is out of the clock's range; the clock is unchanged";
  int64_t us = d.set      ? d.set->ToUnixMicroseconds()
               : d.set_us ? *d.set_us
                          : Kst::Time::Now().ToUnixMicroseconds();
  if (!MoveWithin(us, d.advance_ms.value_or(0), 1000))
    return "field \"advance_ms\": " + std::to_string(*d.advance_ms) +
           " would move the clock out of range; the clock is unchanged";
  if (!MoveWithin(us, d.advance_us.value_or(0), 1))
    return "field \"advance_us\": " + std::to_string(*d.advance_us) +
           " would move the clock out of range; the clock is unchanged";
  KstHost::SetClock(Kst::Time::FromUnixMicroseconds(us));
  return "";
}

// A directive whose fields are record D; `required` names the fields a line must give.
template <class D, class Ret>
DirectiveEntry Directive(std::string name, Ret (*apply)(const D&, SessionHost&),
                         std::vector<std::string> required = {}) {
  DirectiveEntry entry;
  entry.name = name;
  entry.prepare = [name, apply, required](const Json& line, Issues& issues) -> PreparedDirective {
    D fields;
    BindingOf<D>().Read(line, fields, "", issues, ScriptKeys());
    for (const auto& field : required) {
      if (!line.contains(field)) issues.AddField(field, "missing; the " + name + " directive needs it");
    }
    if (!issues.empty()) return nullptr;
    return [apply, fields](SessionHost& host) -> std::string {
      if constexpr (std::is_void_v<Ret>) {
        apply(fields, host);
        return "";
      } else {
        return apply(fields, host);
      }
    };
  };
  return entry;
}

}  // namespace

const std::vector<DirectiveEntry>& Directives() {
  static const std::vector<DirectiveEntry> directives{
      Directive("client_context", &ApplyClientContext),
      Directive("system", &ApplySystem),
      Directive("account", &ApplyAccount),
      Directive("development_urls", &ApplyDevelopmentUrls),
      Directive("short_keys", &ApplyShortKeys, {"table"}),
      Directive("absent", &ApplyAbsent, {"service"}),
      Directive("present", &ApplyPresent, {"service"}),
      Directive("create_event", &ApplyCreateEvent),
      Directive("create_entity", &ApplyCreateEntity, {"type"}),
      Directive("metric_words", &ApplyMetricWords),
      Directive("throw_at_call", &ApplyThrowAtCall, {"at"}),
      Directive("clock", &ApplyClock),
  };
  return directives;
}

const DirectiveEntry* FindDirective(const std::string& name) {
  return FindByName(Directives(), name);
}

}  // namespace oet_replay
