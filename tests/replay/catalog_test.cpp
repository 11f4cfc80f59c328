// The event catalog finds what an export does by calling it: a test export with a gate, a rate limit
// on one value, an entity requested for some values, an operation for a flag, and values from the
// record, the host, the clock and a literal shows each in its catalog entry.
#include <map>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_time.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/telemetry_api.h"
#include "tools/replay/catalog.h"

namespace oet_replay {

struct Probe {
  int32_t kind = 0;
  int32_t id = 0;
  Kst::CStringT<char> text;
  bool flag = false;
  int32_t unused = 0;
};
OET_REPLAY_RECORD(Probe, OET_REPLAY_FIELD(kind), OET_REPLAY_FIELD(id), OET_REPLAY_FIELD(text),
                  OET_REPLAY_FIELD(flag), OET_REPLAY_FIELD(unused))

namespace {

using ::testing::HasSubstr;

iOrbotelemetryAPI* Telemetry() {
  IServiceRegistry* registry = KstMQ_GetService();
  IServiceModule* module = registry == nullptr ? nullptr : registry->GetModule(kOrboTelemetryModule);
  return module == nullptr ? nullptr
                           : static_cast<iOrbotelemetryAPI*>(module->GetClassObject(kOrboTelemetryClass));
}

// Kind 7 is dropped when it repeats within 500 ms; id 0 sends nothing; kinds 10 to 12 add a context
// list; the flag adds an operation.
int ProbeEvent(const Probe& probe) {
  static std::map<int32_t, int64_t> last_accepted;
  const int64_t now = Kst::Time::Now().ToUnixMicroseconds() / 1000;
  if (probe.kind == 7) {
    const auto last = last_accepted.find(7);
    if (last != last_accepted.end() && now - last->second < 500) return 0;
    last_accepted[7] = now;
  }
  if (probe.id == 0) return 0;
  iOrbotelemetryAPI* telemetry = Telemetry();
  IOrboEvent* event = telemetry == nullptr ? nullptr : telemetry->CreateEvent();
  if (event == nullptr) return 0;
  if (auto* body = static_cast<orbo_entity::TabSwitchEntity*>(telemetry->CreateEntity(282))) {
    body->SetAction("probe");
    body->SetFirstTab(probe.text.c_str());
    body->SetSecondTab(std::to_string(now));
    if (probe.flag) body->Prepare();
    event->AttachEntity(201, body);
  }
  if (probe.kind >= 10 && probe.kind <= 12) {
    auto* extra = static_cast<orbo_entity::HomeTabEntity*>(telemetry->CreateEntity(285));
    if (extra != nullptr) extra->SetElement(Kst::WideToUtf8(Kst::GetRegionName()));
    event->AttachEntityList(203, {extra});
  }
  EventParams params;
  telemetry->SubmitEvent(event, 4, 2, &params);
  return 1;
}

std::string Catalog() {
  static const std::string text = [] {
    std::ostringstream out;
    WriteCatalog(out, {Export("Test::ProbeEvent", &ProbeEvent, {"p"})});
    return out.str();
  }();
  return text;
}

struct CatalogCase {
  const char* name;
  const char* line;
};

void PrintTo(const CatalogCase& c, std::ostream* os) {
  *os << c.name;
}

class CatalogTest : public ::testing::TestWithParam<CatalogCase> {};

TEST_P(CatalogTest, ShowsWhatTheExportDoes) {
  EXPECT_THAT(Catalog(), HasSubstr(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, CatalogTest,
    ::testing::Values(
        CatalogCase{"Sends", "- **Sends** one event, submitted with the codes 4 2.\n"},
        CatalogCase{"Gates",
                    "- **Returns 1**. Returns 0 and sends nothing when `p.id` is 0, every member is 0 or "
                    "empty, the registry is absent, the "
                    "telemetry service is absent or the host creates no event.\n"},
        CatalogCase{
            "RateLimitOnOneValue",
            "- **Rate limit**: when `p.kind` is 7, the same call made again less than 500 ms after the "
            "last accepted one is dropped (returns 0 and sends nothing).\n"},
        CatalogCase{"DefaultRecord",
                    "- **Default record** (every member 0 or empty): returns 0 and sends nothing.\n"},
        CatalogCase{"UnusedMember", "- **Members that change nothing this call shows**: `p.unused`.\n"},
        CatalogCase{"BodyEntity",
                    "| 282 TabSwitchEntity | body 201 | `p.id` is not 0 | left out, still sent |\n"},
        CatalogCase{
            "EntityForSomeValues",
            "| 285 HomeTabEntity | context 203, entry 1 | `p.kind` in 10..12 | null entry, still sent |\n"},
        CatalogCase{"FixedValue", "| `TabSwitchEntity.1 SetAction` | string | fixed |  | `\"probe\"` |\n"},
        CatalogCase{
            "FromTheRecord",
            "| `TabSwitchEntity.7 SetFirstTab` | string | `p.text` (`\"p.text\"`) |  | `\"p.text\"` |\n"},
        CatalogCase{
            "FromTheClock",
            "| `TabSwitchEntity.4 SetSecondTab` | string | the clock |  | (the time of the call) |\n"},
        CatalogCase{"WhenAFlagIsSet",
                    "| `TabSwitchEntity.2 Prepare` | call | fixed | `p.flag` is true |  |\n"},
        CatalogCase{"FromTheHost", "| `HomeTabEntity.8 SetElement` | string | the host |  | `\"US\"` |\n"}),
    [](const ::testing::TestParamInfo<CatalogCase>& info) { return std::string(info.param.name); });

TEST(CatalogTest, IsTheSameTextEveryTime) {
  std::ostringstream again;
  WriteCatalog(again, {Export("Test::ProbeEvent", &ProbeEvent, {"p"})});
  EXPECT_EQ(again.str(), Catalog());
}

}  // namespace
}  // namespace oet_replay
