// Client product and device facts, for the client to show or reuse.
#pragma once

#include <string>

#include "oEventTracker/api.h"

namespace OrboPTPAAP {

struct PTClientProductEntityStruct {
  // The account's domain label: the web service's stored label, or else the label found in the
  // account's web URL ("dev" for a development URL, "aw1" when no label can be found). Left as the
  // caller passed it when there is no web service.
  std::string domain;
  std::string client_label;    // always "client"
  std::string client_version;  // the client's version
};

// The four device facts of the client entity, UTF-8. Empty while the client context has not been
// filled (no web service so far).
struct PTClientDeviceEntityStruct {
  std::string device_product;     // the system product name, "unknown" when the system has none
  std::string web_service_value;  // the web service's value
  std::string os_version;
  std::string os_name;  // "windows" once filled
};

// Fills the product facts: the client version, "client", and, when the web service is present, the
// account's domain label. Returns 1, always.
OET_API int RetrieveClientProductInfo(PTClientProductEntityStruct& info);

// Fills the four device facts from the client context, refreshing it first. Returns 1, always.
OET_API int RetrieveClientDeviceInfo(PTClientDeviceEntityStruct& info);

}  // namespace OrboPTPAAP
