// The phone event: its own four context entities (the call detail only on request, a null first entry
// kept), the account's web domain, and the body's order; the other build's export stays inert.
#include <gtest/gtest.h>

#include <vector>

#include "core/web_domains.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/url_utils.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

using Types = std::vector<int32_t>;

OrboPTPAAP::PhoneInteractInfo_s SampleCall(int32_t call_detail) {
  OrboPTPAAP::PhoneInteractInfo_s info;
  info.value_a = 1, info.value_b = 2, info.value_c = 3, info.value_d = 4, info.value_e = 5, info.value_f = 6;
  info.body_text3 = "t3";
  info.call_detail = call_detail;
  info.call_text1 = L"Ann";
  info.call_text2 = Kst::Utf8ToWide("Ünal");
  info.direction = 3;  // no word
  info.time2 = Kst::Time::FromUnixMilliseconds(1709210096007);
  info.context_text1 = L"x1";
  info.context_text2 = L"x2";
  info.context_text3 = L"x3";
  info.context_number = -7;
  info.context_text4 = L"x4";
  return info;
}

class PhoneEvent : public oet_test::RecordedEventTest {
 protected:
  void SetUp() override {
    RecordedEventTest::SetUp();
    host_.web_service().SetAccountWebUrl("https://acme" + Kst::WideToUtf8(oet::kWebDomainSuffixes[1]));
  }
  int Track(int32_t call_detail) {
    return OrboPTPAAP::TrackingPhoneInteractEvent({"p1", "p2"}, SampleCall(call_detail));
  }
};

TEST_F(PhoneEvent, FillsEveryEntityInOrder) {
  EXPECT_EQ(Track(1), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_EQ(event.Ops(369), "10=Ünal|6=Ann|8=|3~|2=2024-02-29T12:34:56.007Z");
  EXPECT_EQ(event.Ops(376), "2=p2|1=x3|6=-7|3=x1|8=x4|5=x2|4=p1");
  EXPECT_EQ(event.Ops(377), "2=client|5=6.2.10.4512|1=acme");
  EXPECT_EQ(event.Ops(370),
            "13=1|19=1|9=3|2=1|17=4|5=5|24=6|15=t3|22=2|26=");  // empty texts 2 untouched, 1 set
  EXPECT_EQ(event.BodyType(), 370);
  EXPECT_TRUE(event.submitted());
}

struct ListCase {
  int32_t call_detail;
  Types failing;
  Types context;  // 0: a null entry
};

void PrintTo(const ListCase& c, std::ostream* os) {
  *os << "call detail " << c.call_detail << ", failing " << testing::PrintToString(c.failing);
}

// "Detail1_Failing376_377": the call detail asked for and the context types the host does not give.
std::string ListCaseName(const testing::TestParamInfo<ListCase>& info) {
  std::string name = "Detail" + oet_test::NameOf(info.param.call_detail);
  for (size_t i = 0; i < info.param.failing.size(); ++i)
    name += (i == 0 ? "_Failing" : "_") + std::to_string(info.param.failing[i]);
  return name;
}

class PhoneContextList : public PhoneEvent, public ::testing::WithParamInterface<ListCase> {};

TEST_P(PhoneContextList, HoldsTheEntitiesTheHostGave) {
  for (const int32_t type : GetParam().failing)
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(Track(GetParam().call_detail), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_EQ(event.ContextTypes(), GetParam().context);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, PhoneContextList,
    ::testing::Values(ListCase{0, {}, {354, 376, 377}}, ListCase{1, {}, {354, 376, 369, 377}},
                      ListCase{-2, {}, {354, 376, 369, 377}}, ListCase{1, {354}, {0, 376, 369, 377}},
                      ListCase{1, {369}, {354, 376, 377}}, ListCase{1, {376, 377, 370}, {354, 369}},
                      ListCase{0, {354, 376, 377}, {0}}),
    ListCaseName);

struct DomainCase {
  const char* stored;
  bool development;
  const char* product_ops;  // entity 377
  int url_asked;            // calls of the web service's operation 37
};

void PrintTo(const DomainCase& c, std::ostream* os) {
  *os << "stored " << oet_test::Quoted(c.stored) << (c.development ? ", development URL" : "");
}

class PhoneDomain : public PhoneEvent, public ::testing::WithParamInterface<DomainCase> {
 protected:
  void TearDown() override { KstHost::SetDevelopmentUrlPredicate(nullptr); }
};

TEST_P(PhoneDomain, ComesFromTheStoredLabelOrTheUrl) {
  host_.web_service().SetAccountDomain(GetParam().stored);
  const bool development = GetParam().development;
  KstHost::SetDevelopmentUrlPredicate([development](const Kst::CStringT<wchar_t>&) { return development; });
  const int url_asked = host_.web_service().CallCount(37);
  EXPECT_EQ(Track(0), 1);
  EXPECT_EQ(OnlyEvent().Ops(377), GetParam().product_ops);
  EXPECT_EQ(host_.web_service().CallCount(37) - url_asked, GetParam().url_asked);
}

INSTANTIATE_TEST_SUITE_P(Domains, PhoneDomain,
                         ::testing::Values(DomainCase{"corp", true, "2=client|5=6.2.10.4512|1=corp", 0},
                                           DomainCase{"", true, "2=client|5=6.2.10.4512|1=dev", 1}),
                         [](const auto& info) {
                           return (*info.param.stored ? "Stored_" + oet_test::NameOf(info.param.stored)
                                                      : std::string("FromUrl")) +
                                  (info.param.development ? "_Development" : "");
                         });

TEST_F(PhoneEvent, OtherBuildExportDoesNothing) {
  host_.SetRegistryAvailable(false);
  EXPECT_EQ(OrboPTPAAP::TrackingORPhoneInteractEvent({}, {}), 1);
  EXPECT_TRUE(host_.Log().empty());
}

}  // namespace
