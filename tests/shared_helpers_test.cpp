// The helpers that several events share: the UTC time text and the short key cut to 16 bytes. (The
// account's domain label: the product facts in tests/basic_and_client_info_test.cpp.)
#include <gtest/gtest.h>

#include <string>

#include "core/short_key.h"
#include "core/timestamp.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

namespace {

struct TimeCase {
  int64_t unix_us;
  const char* text;
};

class UtcTimestamp : public ::testing::TestWithParam<TimeCase> {};

TEST_P(UtcTimestamp, WritesIsoUtcWithMilliseconds) {
  EXPECT_EQ(oet::FormatUtcTimestamp(Kst::Time::FromUnixMicroseconds(GetParam().unix_us)).str(),
            GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Times, UtcTimestamp,
    ::testing::Values(TimeCase{0, ""},
                      TimeCase{999999, "1970-01-01T00:00:00.999Z"},  // truncated, not rounded
                      TimeCase{-1000, "1969-12-31T23:59:59.999Z"},
                      TimeCase{1709210096007000, "2024-02-29T12:34:56.007Z"},  // leap day
                      TimeCase{1704067199999000, "2023-12-31T23:59:59.999Z"},
                      TimeCase{1704067200000000, "2024-01-01T00:00:00.000Z"},
                      TimeCase{4107542400000000, "2100-03-01T00:00:00.000Z"}),  // 2100 has no leap day
    [](const auto& info) { return "Us" + oet_test::NameOf(info.param.unix_us); });

struct ShortKeyCase {
  const char* identifier;
  const char* stored;  // the host's short key for "id"; nullptr: unknown to the lookup
  bool lookup_present;
  bool web_service_present;
  const char* expected;
  const char* asked;  // calls of the web service's operation 100 and the lookup's 22 and 25
};

class ShortKey : public oet_test::HostTest, public ::testing::WithParamInterface<ShortKeyCase> {};

TEST_P(ShortKey, CutsAtSixteenBytes) {
  const ShortKeyCase& c = GetParam();
  oet_testing::WebServiceFake& web_service = host_.web_service();
  if (c.stored != nullptr) web_service.SetShortKey("id", c.stored);
  web_service.SetLookupPresent(c.lookup_present);
  host_.SetWebServicePresent(c.web_service_present);
  const int before[] = {web_service.CallCount(100), web_service.CallCount(22), web_service.CallCount(25)};
  EXPECT_STREQ(oet::MapIdToShortKey(c.identifier).c_str(), c.expected);
  EXPECT_EQ(std::to_string(web_service.CallCount(100) - before[0]) + "/" +
                std::to_string(web_service.CallCount(22) - before[1]) + "/" +
                std::to_string(web_service.CallCount(25) - before[2]),
            c.asked);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ShortKey,
    ::testing::Values(ShortKeyCase{"id", "0123456789abcdefghij", true, true, "0123456789abcdef", "1/1/1"},
                      ShortKeyCase{"id", "0123456789abcdef", true, true, "0123456789abcdef", "1/1/1"},
                      ShortKeyCase{"id", "0123456789abcde\xE2\x82\xAC", true, true, "0123456789abcde\xE2",
                                   "1/1/1"},                                   // bytes
                      ShortKeyCase{"other", "0123", true, true, "", "1/1/0"},  // unknown: never resolved
                      ShortKeyCase{"", "0123", true, true, "", "0/0/0"},       // nothing asked
                      ShortKeyCase{"id", "0123", false, true, "", "1/0/0"},
                      ShortKeyCase{"id", "0123", true, false, "", "0/0/0"}),
    [](const auto& info) {
      const ShortKeyCase& c = info.param;
      return oet_test::NameOf(c.identifier) + "_" + oet_test::NameOf(c.stored) +
             (c.lookup_present ? "" : "_NoLookup") + (c.web_service_present ? "" : "_NoWebService");
    });

}  // namespace
