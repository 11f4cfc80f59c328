#include "tools/replay/record_samples.h"

namespace oet_replay {

Json SampleText(SampleBuilder& samples, const char* type, const std::string& path,
                const std::string& value_path) {
  samples.NextSeed();
  samples.Add({path, type, "", "other " + value_path, {}});
  return value_path;
}

Json Sampler<bool>::Sample(SampleBuilder& samples, const std::string& path,
                           const std::string& /*value_path*/) {
  samples.NextSeed();
  samples.Add({path, "bool", false, NoSample(), {}});
  return true;
}

Json Sampler<double>::Sample(SampleBuilder& samples, const std::string& path,
                             const std::string& /*value_path*/) {
  const int seed = samples.NextSeed();
  samples.Add({path, "double", 0.0, -(seed + 0.25), {}});
  return seed + 0.5;
}

Json Sampler<Kst::Time>::Sample(SampleBuilder& samples, const std::string& path,
                                const std::string& /*value_path*/) {
  constexpr int64_t kBase = 1773043200000;  // 2026-03-09T08:00:00.000Z
  const int64_t at = kBase + samples.NextSeed() * int64_t{60000};
  samples.Add({path, "time", 0, FormatIsoTime(Kst::Time::FromUnixMilliseconds(at + 86400000)), {}});
  return FormatIsoTime(Kst::Time::FromUnixMilliseconds(at));
}

}  // namespace oet_replay
