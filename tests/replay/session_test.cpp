// Sessions: bad lines in the middle of a script, lines that write nothing, and what each host
// directive changes in the host the library sees.
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_time.h"
#include "oKstPlatform/service_registry.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/url_utils.h"
#include "tools/replay/session.h"

namespace oet_replay {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

constexpr char kTabSwitch[] =
    R"({"call": "OrboPTPAAP::TrackingPTInteractEvent", "info": {"first_tab": 1, "second_tab": 3}})";

TEST(SessionTest, ReportsABadLineByNumberAndRunsTheLinesAfterIt) {
  std::istringstream script("\xEF\xBB\xBF" + std::string(kTabSwitch) + "\n\n# a comment\n{\"call\": \n" +
                            kTabSwitch + "\r\n");
  std::ostringstream output;
  std::ostringstream errors;
  const SessionSummary summary = RunSession(script, "s.jsonl", SessionOptions{}, output, errors);
  EXPECT_EQ(summary.calls, 2);
  EXPECT_EQ(summary.rejected, 1);
  const auto lines = LinesOf(output.str());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_THAT(
      lines[0],
      HasSubstr(
          R"({"line":1,"call":"OrboPTPAAP::TrackingPTInteractEvent","result":1,"events":[{"event":1,)"));
  EXPECT_THAT(
      lines[1],
      HasSubstr(
          R"({"line":5,"call":"OrboPTPAAP::TrackingPTInteractEvent","result":1,"events":[{"event":2,)"));
  EXPECT_THAT(LinesOf(errors.str()), ElementsAre(HasSubstr("s.jsonl:4: malformed JSON: ")));
}

TEST(SessionTest, ClockThatWouldOverflowIsRefusedAndLeftAsItWas) {
  std::istringstream script(
      "{\"host\": \"clock\", \"set\": 9223372036854775, \"advance_ms\": 1}\n"
      "{\"host\": \"clock\", \"advance_ms\": -9223372036854775807}\n");
  std::ostringstream output;
  std::ostringstream errors;
  EXPECT_EQ(RunSession(script, "s", SessionOptions{}, output, errors).rejected, 2);
  EXPECT_THAT(errors.str(), HasSubstr("s:1: field \"advance_ms\": 1 would move the clock out of range"));
  EXPECT_THAT(errors.str(),
              HasSubstr("s:2: field \"advance_ms\": -9223372036854775807 would move the clock"));
}

// Each case applies one directive line to a fresh host and reads back what the library would see.
struct DirectiveCase {
  const char* line;
  std::function<std::string(SessionHost&)> observe;
  const char* expected;
};

void PrintTo(const DirectiveCase& c, std::ostream* os) {
  *os << c.line;
}

class DirectiveTest : public ::testing::TestWithParam<DirectiveCase> {};

TEST_P(DirectiveTest, ChangesWhatTheLibrarySees) {
  SessionHost host;
  Issues issues;
  const Step step = ReadStep(GetParam().line, issues);
  ASSERT_TRUE(issues.empty()) << issues.messages().front();
  ASSERT_EQ(step.kind, Step::Kind::kDirective);
  EXPECT_EQ(step.directive(host), "");
  EXPECT_EQ(GetParam().observe(host), GetParam().expected);
}

std::string IsDevelopment(const wchar_t* url) {
  IOrboUrlUtils* utils = GetOrboUrlUtils();
  return utils == nullptr ? "absent" : utils->IsDevelopmentUrl(url) != 0 ? "dev" : "not dev";
}

std::string ShortKey(SessionHost& host, const char* id) {
  ICVShortKeyLookup* lookup = host.web_service().GetShortKeyLookup();
  if (lookup == nullptr) return "absent";
  Kst::CStringT<char> key;
  Kst::CStringT<char> short_key;
  if (lookup->FindKey(id, key) != 0) lookup->ResolveShortKey(key, short_key);
  return short_key.c_str();
}

INSTANTIATE_TEST_SUITE_P(
    Directives, DirectiveTest,
    ::testing::Values(
        DirectiveCase{
            R"({"host": "development_urls", "urls": ["https://a.example"], "containing": ["staging"]})",
            [](SessionHost&) {
              return IsDevelopment(L"https://a.example") + "," + IsDevelopment(L"https://x.staging.io") +
                     "," + IsDevelopment(L"https://a.example/");
            },
            "dev,dev,not dev"},
        DirectiveCase{R"({"host": "absent", "service": "url_utils"})",
                      [](SessionHost&) { return IsDevelopment(L"https://a.example"); }, "absent"},
        DirectiveCase{R"({"host": "short_keys", "table": {"id-1": "k1"}})",
                      [](SessionHost& host) { return ShortKey(host, "id-1") + "," + ShortKey(host, "id-2"); },
                      "k1,"},
        DirectiveCase{R"({"host": "absent", "service": "short_key_lookup"})",
                      [](SessionHost& host) { return ShortKey(host, "id-1"); }, "absent"},
        DirectiveCase{
            R"({"host": "absent", "service": "registry"})",
            [](SessionHost&) { return std::string(KstMQ_GetService() == nullptr ? "null" : "registry"); },
            "null"},
        DirectiveCase{R"({"host": "account", "domain": "acme", "web_url": "https://acme.example"})",
                      [](SessionHost& host) {
                        return Kst::WideToUtf8(host.web_service().GetAccountDomain(0)) + " " +
                               Kst::WideToUtf8(host.web_service().GetAccountWebUrl(0, 0));
                      },
                      "acme https://acme.example"},
        DirectiveCase{R"({"host": "system", "region_name": "JP", "total_ram_gb": 64})",
                      [](SessionHost&) {
                        return Kst::WideToUtf8(Kst::GetRegionName()) + " " +
                               std::to_string(Kst::GetTotalRAMGB());
                      },
                      "JP 64"},
        DirectiveCase{R"({"host": "system", "current_version": "7.0.0.1"})",
                      [](SessionHost&) {
                        Kst::CStringT<char> version;
                        Kst::GetCurrentVersion(version);
                        return std::string(version.c_str());
                      },
                      "7.0.0.1"},
        DirectiveCase{R"({"host": "client_context", "third": "t"})",
                      [](SessionHost& host) {
                        ClientContext context;
                        host.web_service().FillClientContext(context);
                        return Kst::WideToUtf8(context.web_service_value) + "," +
                               Kst::WideToUtf8(context.web_service_third);
                      },
                      "ws-value,t"},
        DirectiveCase{R"({"host": "clock", "set": "2026-03-09T08:00:00.000Z", "advance_ms": 1500})",
                      [](SessionHost&) { return FormatIsoTime(Kst::Time::Now()); },
                      "2026-03-09T08:00:01.500Z"}));

}  // namespace
}  // namespace oet_replay
