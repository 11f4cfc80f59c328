// The client's own view of the facts that events carry: product facts and device facts.
#include "core/client_context.h"
#include "core/event.h"
#include "core/host.h"
#include "core/vanity_domain.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oKstPlatform/system_info.h"

namespace OrboPTPAAP {

// Both exports answer 1 whatever happens, as documented; a failure inside the host leaves the fields
// filled so far.
int RetrieveClientProductInfo(PTClientProductEntityStruct& info) {
  return oet::Guarded(
      [&] {
        Kst::CStringT<char> version;
        Kst::GetCurrentVersion(version);
        info.client_version = oet::TextOf(version);
        info.client_label = "client";
        oet::EnsureClientContext();
        ICVWebServiceAPI* web_service = oet::GetWebServiceApi();
        if (web_service == nullptr) return 1;  // the domain stays as the caller passed it
        info.domain = oet::AccountDomainLabelUtf8(*web_service);
        return 1;
      },
      1);
}

int RetrieveClientDeviceInfo(PTClientDeviceEntityStruct& info) {
  return oet::Guarded(
      [&] {
        const oet::ClientFactsView facts = oet::RefreshedClientFacts();
        info.web_service_value = facts->web_service_value.utf8;
        info.device_product = facts->system_product_name.utf8;
        info.os_name = facts->os_name.utf8;
        info.os_version = facts->os_version.utf8;
        return 1;
      },
      1);
}

}  // namespace OrboPTPAAP
