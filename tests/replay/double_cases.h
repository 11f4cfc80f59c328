// Doubles at the edges, each with how the event JSON and the readable view show it: both exactly, the
// JSON as a number where JSON can hold one and as a string where it cannot.
#pragma once

#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace oet_replay {

struct DoubleCase {
  const char* name;
  double value;
  const char* json;
  const char* view;
};

inline const DoubleCase kDoubleCases[] = {
    {"Tenth", 0.1, "0.1", "0.1"},
    {"Third", 1.0 / 3, "0.3333333333333333", "0.3333333333333333"},
    {"Whole", 2.0, "2.0", "2"},
    {"Large", 1e300, "1e+300", "1e+300"},
    {"Smallest", std::numeric_limits<double>::denorm_min(), "5e-324", "5e-324"},
    {"NegativeZero", -0.0, "-0.0", "-0"},
    {"NaN", std::numeric_limits<double>::quiet_NaN(), "\"NaN\"", "NaN"},
    {"Infinity", std::numeric_limits<double>::infinity(), "\"Infinity\"", "inf"},
    {"MinusInfinity", -std::numeric_limits<double>::infinity(), "\"-Infinity\"", "-inf"},
};

inline void PrintTo(const DoubleCase& c, std::ostream* os) {
  *os << c.name;
}

inline std::string DoubleCaseName(const ::testing::TestParamInfo<DoubleCase>& info) {
  return info.param.name;
}

}  // namespace oet_replay
