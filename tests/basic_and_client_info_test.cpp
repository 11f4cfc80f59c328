// Sign-in and basic interactions (which reads the client context, a missing context list), the product
// facts with the account's domain label cut out of its web URL, and the device facts. (Their fields:
// examples/sample-session.jsonl and tests/golden/event_rules.jsonl; the service gates:
// tests/event_skeleton_test.cpp.)
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/web_domains.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/kst_convert.h"
#include "tests/param_names.h"
#include "tests/test_support.h"

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
  int32_t missing = 0;     // a context type the host does not give
  int fills = 0;           // client-context fills asked of the web service (its operation 97)
};

class BasicInteraction : public oet_test::HostTest, public ::testing::WithParamInterface<BasicCase> {};

// Only sign-in reads the client context, and only for a device entity that it has got.
TEST_P(BasicInteraction, ReadsTheClientContextOnlyForSignInsDevice) {
  const BasicCase& c = GetParam();
  host_.SetWebServicePresent(c.web_service);
  if (c.missing != 0) host_.SetCreateEntityFails(c.missing, true);
  EXPECT_EQ(c.track(), 1);
  const oet_test::EventView event = OnlyEvent();
  oet_test::Types context{170, 159, 169};
  context.erase(std::remove(context.begin(), context.end(), c.missing), context.end());
  EXPECT_EQ(event.ContextTypes(), context);
  EXPECT_EQ(event.Ops(159), c.device_ops);
  EXPECT_EQ(event.BodyType(), 157);
  EXPECT_EQ(Asked(97), c.fills);
}

constexpr char kDevice[] =
    "DeviceInfo.2=ws-value|DeviceInfo.1=Example Book 14|DeviceInfo.4=windows|DeviceInfo.3=10.0.22631";

INSTANTIATE_TEST_SUITE_P(
    Events, BasicInteraction,
    ::testing::Values(BasicCase{"SignInWithoutWebService", SignIn, false,
                                "DeviceInfo.2=|DeviceInfo.1=|DeviceInfo.4=|DeviceInfo.3="},
                      BasicCase{"SignIn", SignIn, true, kDevice, 0, 1},
                      BasicCase{"SignInWithoutDeviceEntity", SignIn, true, "", 159, 0},
                      BasicCase{"SignInWithoutFirstEntity", SignIn, true, kDevice, 170, 1},
                      BasicCase{"Basic", Basic, true, ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(BasicInteraction, WithoutContextEntitiesAttachesNoList) {
  for (const int32_t type : {170, 159, 169})
    host_.SetCreateEntityFails(type, true);
  EXPECT_EQ(Basic(), 1);
  const oet_test::EventView event = OnlyEvent();
  EXPECT_TRUE(event.submitted());
  EXPECT_TRUE(event.ContextTypes().empty());
}

// The product facts' domain: the stored label, else the label in the account's web URL: "dev" when the
// host's URL utilities call the URL development; otherwise the text between "https://" and the last
// web domain suffix, which must end the URL with something before it; otherwise "aw1". "$N" in a URL or
// label stands for the build's N-th web domain suffix.
struct DomainCase {
  const char* stored;
  const char* url;
  const char* domain;  // null: the caller's record is left as it was (no web service)
  bool development = false;
  bool url_utils_present = true;
};

std::string Expand(std::string text) {
  for (size_t at; (at = text.find('$')) != std::string::npos;)
    text.replace(at, 2, Kst::WideToUtf8(oet::kWebDomainSuffixes[text[at + 1] - '0']));
  return text;
}

class ProductInfo : public oet_test::HostTest, public ::testing::WithParamInterface<DomainCase> {
 protected:
  void TearDown() override {
    KstHost::SetDevelopmentUrlPredicate(nullptr);
    KstHost::SetUrlUtilsPresent(true);
  }
};

TEST_P(ProductInfo, TellsVersionLabelAndDomain) {
  const DomainCase& c = GetParam();
  host_.SetWebServicePresent(c.domain != nullptr);
  host_.web_service().SetAccountDomain(c.stored);
  host_.web_service().SetAccountWebUrl(Expand(c.url));
  KstHost::SetDevelopmentUrlPredicate([&c](const Kst::CStringT<wchar_t>&) { return c.development; });
  KstHost::SetUrlUtilsPresent(c.url_utils_present);
  OrboPTPAAP::PTClientProductEntityStruct info{"from caller", "", ""};
  EXPECT_EQ(OrboPTPAAP::RetrieveClientProductInfo(info), 1);
  EXPECT_EQ(info.domain, c.domain ? Expand(c.domain) : "from caller");
  EXPECT_EQ(info.client_label + " " + info.client_version, "client 6.2.10.4512");
  EXPECT_EQ(Asked(37), *c.stored || !c.domain ? 0 : 1);  // the URL only when no label is stored
}

INSTANTIATE_TEST_SUITE_P(
    Domains, ProductInfo,
    ::testing::Values(
        DomainCase{"stored", "https://team$0", nullptr}, DomainCase{"stored", "https://team$0", "stored"},
        DomainCase{"", "https://acme$0", "acme"}, DomainCase{"", "https://eu.acme$2", "eu.acme"},
        DomainCase{"", "https://agency$3", "agency"},
        DomainCase{"", "xhttps://acme$1", "acme"},              // the scheme is found anywhere
        DomainCase{"", "https://acme$1$1", "acme$1"},           // the last occurrence ends the URL
        DomainCase{"", "https://acme$1", "dev", true},          // the predicate decides first
        DomainCase{"", "ftp://x", "dev", true},                 // whatever the URL's form
        DomainCase{"", "https://acme$1", "acme", true, false},  // no URL utilities, no "dev"
        DomainCase{"", "http://acme$1", "aw1"}, DomainCase{"", "HTTPS://acme$1", "aw1"},
        DomainCase{"", "https://acme$1/", "aw1"},  // the suffix must end the URL
        DomainCase{"", "https://acme$1:443", "aw1"}, DomainCase{"", "https://$1", "aw1"},  // nothing between
        DomainCase{"", "", "aw1"}, DomainCase{"", "https://bücher$1", "bücher"},
        DomainCase{"", "https://\xF0\x9F\x98\x80$0", "\xF0\x9F\x98\x80"}),  // a surrogate pair on Windows
    [](const auto& info) {
      const DomainCase& c = info.param;
      return (c.domain ? *c.stored ? std::string("Stored") : "FromUrl_" + oet_test::NameOf(c.url)
                       : "NoWebService") +
             (c.development ? "_Development" : "") + (c.url_utils_present ? "" : "_NoUrlUtils");
    });

TEST_F(BasicInteraction, DeviceFactsWaitForTheWebService) {
  OrboPTPAAP::PTClientDeviceEntityStruct info;
  host_.SetWebServicePresent(false);
  OrboPTPAAP::RetrieveClientDeviceInfo(info);
  EXPECT_EQ(info.device_product + info.web_service_value + info.os_version + info.os_name, "");
  host_.SetWebServicePresent(true);
  EXPECT_EQ(OrboPTPAAP::RetrieveClientDeviceInfo(info), 1);
  EXPECT_EQ(info.device_product + "|" + info.web_service_value + "|" + info.os_version + "|" + info.os_name,
            "Example Book 14|ws-value|10.0.22631|windows");
}

}  // namespace
