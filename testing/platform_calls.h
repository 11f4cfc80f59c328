// The calls a library makes into the host's platform (registry, URL utilities, system facts, clock,
// conversions, number helpers, metric words), as the recording host lists them beside its telemetry
// calls.
#pragma once

#include "oKstPlatform/host_control.h"
#include "testing/recording_host.h"

namespace oet_testing {

// A platform call as the host lists it: its name, its salient arguments and its answer. `telemetry`
// and `web_service` are the host's two services, so that a class object handed out is named.
Call HostCallOf(const KstHost::PlatformCall& platform, const void* telemetry, const void* web_service);

}  // namespace oet_testing
