// A client of oEventTracker, the same program whichever way its build takes the library (the folders
// beside this file: the installed CMake package, add_subdirectory, FetchContent, pkg-config with a
// plain Makefile). Its build defines OET_PACKAGE_VERSION, the version its build system found.
//
// The library has no telemetry host: in the product, the host registers its telemetry and web
// services before the client calls the tracking functions. This program runs without one, as a
// client does before its host is up, and checks what the headers promise for that case:
//   - the version macros of the headers name the version that the client's build found;
//   - every tracking function returns 0 (no event could be built) and returns normally;
//   - the client's product facts need no host: RetrieveClientProductInfo answers 1, labels the product
//     "client" and leaves the domain as it was passed (there is no web service to ask);
//   - the platform library answers (the host's clock).
// It exits with status 0 when every check holds.
#include <cstdio>
#include <cstring>

#include "oEventTracker/OrboPTPAAP.h"

namespace {

int failures = 0;

void Expect(bool holds, const char* what) {
  std::printf("%s: %s\n", holds ? "ok" : "FAILED", what);
  if (!holds) ++failures;
}

}  // namespace

int main() {
  std::printf("oEventTracker %s (package %s)\n", OET_VERSION_STRING, OET_PACKAGE_VERSION);
  Expect(std::strcmp(OET_VERSION_STRING, OET_PACKAGE_VERSION) == 0,
         "the headers and the package have one version");

  OrboPTPAAP::PTTrackingInfo_s tracking;
  tracking.primary_value = "session-7f3a";

  OrboPTPAAP::PTInteractInfo_s tab_switch;
  tab_switch.first_tab = 1;   // chat
  tab_switch.second_tab = 3;  // phone
  Expect(OrboPTPAAP::TrackingPTInteractEvent(tracking, tab_switch) == 0,
         "a tab switch without a host returns 0");

  OrboPTPAAP::HomeTabInteractInfo_s home_tab;
  home_tab.element = 8;  // schedule_meeting
  home_tab.interaction_type = 2;
  Expect(OrboPTPAAP::TrackingHomeTabInteractEvent(tracking, home_tab) == 0,
         "a home-tab interaction without a host returns 0");

  OrboPTPAAP::OBasicInteractInfo_s basic;
  Expect(OrboPTPAAP::TrackingBasicInteractEvent(tracking, basic) == 0,
         "a basic interaction without a host returns 0");

  OrboPTPAAP::PTClientProductEntityStruct product;
  product.domain = "as-passed";
  const int answered = OrboPTPAAP::RetrieveClientProductInfo(product);
  Expect(answered == 1 && product.client_label == "client" && product.domain == "as-passed",
         "the product facts answer 1 without a host and keep the domain");
  std::printf("client version: \"%s\"\n", product.client_version.c_str());

  Expect(!Kst::Time::Now().is_null(), "the platform library's clock answers");

  std::printf("%s\n", failures == 0 ? "every check holds" : "some checks failed");
  return failures == 0 ? 0 : 1;
}
