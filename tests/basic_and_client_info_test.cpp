// Sign-in and basic interactions (body 157 with the basic context), the product and device facts,
// and the service gates of every export of this family.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "core/web_domains.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "tests/param_names.h"
#include "tests/recorded_event_view.h"

namespace {

int SignIn() {
  return OrboPTPAAP::TrackingSigninInteractEvent({}, {1, 2, 3, 4, 5, "first", ""});
}
int Basic() {
  return OrboPTPAAP::TrackingBasicInteractEvent({}, {1, 2, 3, 4, 5, 6, "", "second"});
}

struct BasicCase {
  const char* name;
  int (*track)();
  bool web_service;
  const char* device_ops;  // entity 159
  const char* body_ops;    // entity 157
  int32_t missing = 0;     // a context type the host does not give
  int fills = 0;           // client-context fills asked of the web service (its operation 97)
};

void PrintTo(const BasicCase& c, std::ostream* os) {
  *os << c.name;
}

class BasicInteraction : public oet_test::RecordedEventTest,
                         public ::testing::WithParamInterface<BasicCase> {};

// Only sign-in reads the client context, and only for a device entity that it has got.
TEST_P(BasicInteraction, FillsTheBasicBody) {
  const BasicCase& c = GetParam();
  host_.SetWebServicePresent(c.web_service);
  if (c.missing != 0) host_.SetCreateEntityFails(c.missing, true);
  const int fills = host_.web_service().CallCount(97);
  EXPECT_EQ(c.track(), 1);
  const oet_test::EventView event = OnlyEvent();
  std::vector<int32_t> context{170, 159, 169};
  context.erase(std::remove(context.begin(), context.end(), c.missing), context.end());
  EXPECT_EQ(event.ContextTypes(), context);
  EXPECT_EQ(event.Ops(159), c.device_ops);
  EXPECT_EQ(event.BodyType(), 157);
  EXPECT_EQ(event.Ops(157), c.body_ops);
  EXPECT_EQ(host_.web_service().CallCount(97) - fills, c.fills);
}

constexpr char kSignInBody[] = "12=client|7=1|2=5|5=2|15=3|17=4|9=first|10~";

INSTANTIATE_TEST_SUITE_P(
    Events, BasicInteraction,
    ::testing::Values(BasicCase{"SignInWithoutWebService", SignIn, false,
                                "DeviceInfo.2=|DeviceInfo.1=|DeviceInfo.4=|DeviceInfo.3=", kSignInBody},
                      BasicCase{"SignIn", SignIn, true,
                                "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows"
                                "|DeviceInfo.3=10.0.22631",
                                kSignInBody, 0, 1},
                      BasicCase{"SignInWithoutDeviceEntity", SignIn, true, "", kSignInBody, 159, 0},
                      BasicCase{"SignInWithoutFirstEntity", SignIn, true,
                                "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows"
                                "|DeviceInfo.3=10.0.22631",
                                kSignInBody, 170, 1},
                      BasicCase{"Basic", Basic, true, "", "13=1|7=2|2=6|5=3|15=4|17=5|8~|11=second"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(BasicInteraction, WithoutContextEntitiesAttachesNoList) {
  for (const int32_t type : {170, 159, 169})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(Basic(), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_TRUE(event.ContextTypes().empty());
}

struct ProductCase {
  bool web_service;
  const char* stored_domain;
  std::string web_url;
  const char* expected_domain;
  int url_asked;  // calls of the web service's operation 37: only when no label is stored
};

void PrintTo(const ProductCase& c, std::ostream* os) {
  *os << (c.web_service ? "" : "no web service, ") << "stored " << oet_test::Quoted(c.stored_domain)
      << ", url " << oet_test::Quoted(c.web_url);
}

class ProductInfo : public oet_test::RecordedEventTest, public ::testing::WithParamInterface<ProductCase> {};

TEST_P(ProductInfo, TellsVersionLabelAndDomain) {
  host_.SetWebServicePresent(GetParam().web_service);
  host_.web_service().SetAccountDomain(GetParam().stored_domain);
  host_.web_service().SetAccountWebUrl(GetParam().web_url);
  const int url_asked = host_.web_service().CallCount(37);
  OrboPTPAAP::PTClientProductEntityStruct info{"from caller", "", ""};
  EXPECT_EQ(OrboPTPAAP::RetrieveClientProductInfo(info), 1);
  EXPECT_EQ(info.domain + " " + info.client_label + " " + info.client_version,
            std::string(GetParam().expected_domain) + " client 6.2.10.4512");
  EXPECT_EQ(host_.web_service().CallCount(37) - url_asked, GetParam().url_asked);
}

const std::string kTeamUrl = "https://team" + Kst::WideToUtf8(oet::kWebDomainSuffixes[0]);

INSTANTIATE_TEST_SUITE_P(Domains, ProductInfo,
                         ::testing::Values(ProductCase{false, "stored", kTeamUrl, "from caller", 0},
                                           ProductCase{true, "stored", kTeamUrl, "stored", 0},
                                           ProductCase{true, "", kTeamUrl, "team", 1},
                                           ProductCase{true, "", "http://team", "aw1", 1}),
                         [](const auto& info) {
                           const ProductCase& c = info.param;
                           if (!c.web_service) return std::string("NoWebService");
                           return *c.stored_domain ? "StoredLabel"
                                                   : "FromUrl_" + oet_test::NameOf(c.expected_domain);
                         });

TEST_F(ProductInfo, DeviceFactsWaitForTheWebService) {
  OrboPTPAAP::PTClientDeviceEntityStruct info;
  host_.SetWebServicePresent(false);
  OrboPTPAAP::RetrieveClientDeviceInfo(info);
  EXPECT_EQ(info.device_product + info.web_service_value + info.os_version + info.os_name, "");
  host_.SetWebServicePresent(true);
  EXPECT_EQ(OrboPTPAAP::RetrieveClientDeviceInfo(info), 1);
  EXPECT_EQ(info.device_product + "|" + info.web_service_value + "|" + info.os_version + "|" + info.os_name,
            "Example Book 14|ws-value|10.0.22631|windows");
}

// What each export answers when a service, the event or the host fails: 0 with nothing submitted,
// except that sign-in and basic interactions need no web service.
enum Failure { kNoRegistry, kNoWebService, kNoTelemetry, kNoEvent, kHostThrows };
const char* const kFailureNames[] = {"NoRegistry", "NoWebService", "NoTelemetry", "NoEvent", "HostThrows"};

struct GateCase {
  const char* name;
  int (*track)();
  bool needs_web_service;
};

void PrintTo(const GateCase& c, std::ostream* os) {
  *os << c.name;
}

class ServiceGates : public oet_test::RecordedEventTest,
                     public ::testing::WithParamInterface<std::tuple<GateCase, Failure>> {};

TEST_P(ServiceGates, ReturnZeroWithoutSubmitting) {
  const auto& [export_case, failure] = GetParam();
  if (failure == kNoRegistry) host_.SetRegistryAvailable(false);
  if (failure == kNoWebService) host_.SetWebServicePresent(false);
  if (failure == kNoTelemetry) host_.SetTelemetryPresent(false);
  if (failure == kNoEvent) host_.SetCreateEventFails(true);
  if (failure == kHostThrows) host_.ThrowAtCall(3);
  const bool goes_out = failure == kNoWebService && !export_case.needs_web_service;
  EXPECT_EQ(export_case.track(), goes_out ? 1 : 0);
  for (const auto& event : host_.TakeEvents())
    EXPECT_EQ(oet_test::EventView(event).submitted(), goes_out);
}

INSTANTIATE_TEST_SUITE_P(
    Exports, ServiceGates,
    ::testing::Combine(
        ::testing::Values(
            GateCase{"Search", [] { return OrboPTPAAP::TrackingPTSearchEvent({}, {}); }, true},
            GateCase{"SearchV2", [] { return OrboPTPAAP::TrackingPTSearchEventV2({}, {}); }, true},
            GateCase{"Phone", [] { return OrboPTPAAP::TrackingPhoneInteractEvent({}, {}); }, true},
            GateCase{"SignIn", SignIn, false}, GateCase{"Basic", Basic, false}),
        ::testing::Values(kNoRegistry, kNoWebService, kNoTelemetry, kNoEvent, kHostThrows)),
    [](const auto& info) {
      return std::string(std::get<0>(info.param).name) + "_" + kFailureNames[std::get<1>(info.param)];
    });

}  // namespace
