// What a tracking call costs the caller's thread. The recording host does far more work per call
// than a real telemetry service (it keeps every call), so the event figures are an upper bound; the
// word and conversion figures are the library's own.
#include <benchmark/benchmark.h>

#include "core/host.h"
#include "core/vocabulary.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "testing/recording_host.h"

namespace {

void BM_TabSwitchEvent(benchmark::State& state) {
  oet_testing::RecordingHost host;
  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = "session-7f3a";
  tracking.secondary_value = "window-main";
  OrboPTPAAP::PTInteractInfo_s info;
  info.first_tab = 1;
  info.second_tab = 3;
  int64_t calls = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(OrboPTPAAP::TrackingPTInteractEvent(tracking, info));
    if (++calls % 256 == 0) host.TakeEvents();  // keeps the host's record small
  }
}
BENCHMARK(BM_TabSwitchEvent);

void BM_HomeTabElementWord(benchmark::State& state) {
  int32_t value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(oet::HomeTabElementToString(value));
    value = (value + 1) % 46;
  }
}
BENCHMARK(BM_HomeTabElementWord);

void BM_WideToUtf8(benchmark::State& state) {
  const Kst::CStringT<wchar_t> text(L"Example CPU 8 cores @ 2.40GHz \u00e9\u4e2d");
  for (auto _ : state)
    benchmark::DoNotOptimize(oet::ToUtf8(text));
}
BENCHMARK(BM_WideToUtf8);

}  // namespace

BENCHMARK_MAIN();
