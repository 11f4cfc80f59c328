// The trace check: every floor of bench/floor_table.cpp makes exactly the host calls of its export.
//
// Each row runs twice against a fresh recording host, once as the export and once as the floor, on the
// same inputs and from the same client-context state, and the two runs must agree on everything the
// host can see: the result, the record filled, every telemetry call in order with its values, the
// registry lookups of each service, the web-service operations, the machine-fact and client-version
// queries, and the URLs asked about. The no-op host of the benchmarks is checked too.
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "bench/floor_support.h"
#include "bench/floor_table.h"
#include "bench/noop_host.h"
#include "core/client_context.h"
#include "oKstPlatform/entities.h"
#include "oKstPlatform/host_control.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/url_utils.h"
#include "testing/recording_host.h"

namespace {

using oet_bench::FloorRow;
using oet_bench::Run;

// The client-context state a call starts from.
enum class CacheState {
  kFilled,        // an earlier call of the same side filled it
  kUnfilled,      // the web service answers no value, so every event refreshes
  kNoWebService,  // the web service has never been there
};

const char* NameOf(CacheState state) {
  switch (state) {
    case CacheState::kFilled:
      return "Filled";
    case CacheState::kUnfilled:
      return "Unfilled";
    case CacheState::kNoWebService:
      return "NoWebService";
  }
  return "";
}

void PrintTo(CacheState state, std::ostream* os) {
  *os << NameOf(state);
}

using Counts = std::map<std::string, uint64_t>;

// Everything outside the telemetry service that the host saw, counted: the registry lookups of each
// service, the machine-fact and client-version queries and the web-service operations.
Counts HostCounts(const std::vector<oet_testing::Call>& calls) {
  Counts counts;
  for (const oet_testing::Call& call : calls) {
    if (call.fn != oet_testing::Call::Fn::kHostCall) continue;
    const std::string& name = call.name;
    const auto* argument = call.args.empty() ? nullptr : std::get_if<std::string>(&call.args[0]);
    if (name == "KstMQ_GetService" || name.rfind("ICV", 0) == 0) {
      ++counts[name];
    } else if (name == "IServiceRegistry::GetModule" || name == "IServiceModule::GetClassObject") {
      ++counts[name + " " + (argument == nullptr ? "" : *argument)];
    } else if (name == "Kst::GetCurrentVersion") {
      ++counts["client version"];
    } else if (name.rfind("Kst::Get", 0) == 0) {
      ++counts["machine facts"];
    }
  }
  return counts;
}

struct Observation {
  int result = -1;
  std::string filled;
  std::string calls;  // one line per telemetry call, so that a mismatch prints as a difference
  Counts counts;
  std::vector<std::string> development_url_checks;
};

// The rate limits keep their last accepted times for the whole process, while every host sets the clock
// back to the same standard time. Where the cases share one process (the Windows build runs them all in
// one), each host's clock is moved on past every time an earlier case reached, so that a case's calls
// are never dropped for an earlier case's.
void MoveClockPastEarlierCases() {
  static int64_t hosts = 0;
  KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(++hosts * 60 * 1000));
}

// One call of `run` from the given state, as the host sees it.
Observation Observe(Run run, const FloorRow& row, CacheState state) {
  std::vector<std::string> url_checks;
  oet_testing::RecordingHost host;
  KstHost::SetDevelopmentUrlPredicate([&url_checks](const Kst::CStringT<wchar_t>& url) {
    url_checks.push_back(Kst::WideToUtf8(url));
    return false;
  });
  host.web_service().SetAccountDomain(row.web.account_domain);
  host.web_service().SetAccountWebUrl(row.web.account_web_url);
  if (state == CacheState::kUnfilled) host.web_service().SetContextAnswer({"", "", "", ""});
  if (state == CacheState::kNoWebService) host.SetWebServicePresent(false);
  MoveClockPastEarlierCases();
  oet::ResetClientContextForTesting();
  oet_floor::ResetClientContextForTesting();
  // One call first, so that the cache exists (filled or not, as the state says) and the observed call
  // is a later one, as most calls in a client's life are; the clock then moves past any rate limit.
  run(nullptr);
  KstHost::AdvanceClock(Kst::TimeDelta::FromMilliseconds(2000));
  host.TakeEvents();
  url_checks.clear();

  Observation seen;
  seen.result = run(&seen.filled);
  for (const std::string& call : oet_testing::Describe(host.Log()))
    seen.calls += call + "\n";
  seen.counts = HostCounts(host.HostCalls());
  seen.development_url_checks = url_checks;
  return seen;
}

class TraceCheck : public ::testing::TestWithParam<std::tuple<size_t, CacheState>> {
 protected:
  const FloorRow& row() const { return oet_bench::FloorRows().at(std::get<0>(GetParam())); }
  CacheState state() const { return std::get<1>(GetParam()); }
};

TEST_P(TraceCheck, FloorMakesTheHostCallsOfItsExport) {
  const Observation library = Observe(row().library, row(), state());
  const Observation floor = Observe(row().floor, row(), state());
  EXPECT_EQ(floor.result, library.result);
  EXPECT_EQ(floor.filled, library.filled);
  EXPECT_EQ(floor.calls, library.calls);
  EXPECT_EQ(floor.counts, library.counts);
  EXPECT_EQ(floor.development_url_checks, library.development_url_checks);
  if (state() == CacheState::kFilled) {
    // The rows measure a call that does its whole work.
    EXPECT_EQ(library.result, 1);
    EXPECT_FALSE(library.calls.empty() && library.filled.empty());
  }
}

std::vector<size_t> RowIndices() {
  std::vector<size_t> indices;
  for (size_t i = 0; i < oet_bench::FloorRows().size(); ++i)
    indices.push_back(i);
  return indices;
}

INSTANTIATE_TEST_SUITE_P(Floors, TraceCheck,
                         ::testing::Combine(::testing::ValuesIn(RowIndices()),
                                            ::testing::Values(CacheState::kFilled, CacheState::kUnfilled,
                                                              CacheState::kNoWebService)),
                         [](const ::testing::TestParamInfo<TraceCheck::ParamType>& info) {
                           return std::string(oet_bench::FloorRows().at(std::get<0>(info.param)).name) + "_" +
                                  NameOf(std::get<1>(info.param));
                         });

TEST(NoopHost, HandsOutAnEntityOfEverySchemaType) {
  oet_bench::NoopHost host;
#define KST_FIELDS(Name)
#define KST_ENTITY(Name, TypeId) EXPECT_NE(host.EntityOfType(TypeId), nullptr) << #Name;
#define KST_ENTITY_VIA(Name, TypeId, Fields) KST_ENTITY(Name, TypeId)
#define KST_OP(Name, N, Kind, OpName)
#define KST_RESERVED(Name, N)
#define KST_END(Name)
#include "oKstPlatform/entity_schema.def"
#include "oKstPlatform/entity_schema_undef.h"
  EXPECT_EQ(host.EntityOfType(0), nullptr);
}

class NoopHostRun : public ::testing::TestWithParam<size_t> {};

// The benchmarks measure whole calls: through the no-op host, every export and its floor submit (or
// fill) and agree on the record.
TEST_P(NoopHostRun, ExportAndFloorSucceed) {
  const FloorRow& row = oet_bench::FloorRows().at(GetParam());
  oet_bench::NoopHost host;
  host.SetWebAnswers(row.web);
  MoveClockPastEarlierCases();
  oet::ResetClientContextForTesting();
  oet_floor::ResetClientContextForTesting();
  for (int call = 0; call < 2; ++call) {  // filling the client context, then filled
    std::string library_filled;
    std::string floor_filled;
    EXPECT_EQ(oet_bench::CallRow(row, row.library, &library_filled), 1);
    EXPECT_EQ(oet_bench::CallRow(row, row.floor, &floor_filled), 1);
    EXPECT_EQ(floor_filled, library_filled);
  }
}

INSTANTIATE_TEST_SUITE_P(Floors, NoopHostRun, ::testing::ValuesIn(RowIndices()),
                         [](const ::testing::TestParamInfo<size_t>& info) {
                           return std::string(oet_bench::FloorRows().at(info.param).name);
                         });

}  // namespace
