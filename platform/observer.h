// The stand-in's side of the platform observer (oKstPlatform/host_control.h): each function a library
// calls reports itself here after it has answered.
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "oKstPlatform/host_control.h"

namespace kst_observer {

extern std::atomic<KstHost::PlatformObserver> g_observer;

// The observer, or null; the one relaxed load a call costs when none is set. Callers that must build
// the text they report (a conversion) do it only when this is not null.
inline KstHost::PlatformObserver Current() {
  return g_observer.load(std::memory_order_relaxed);
}

inline void Report(KstHost::PlatformFunction function, std::string_view text = {}, int64_t number = 0,
                   const void* object = nullptr) {
  if (const KstHost::PlatformObserver observer = Current()) {
    KstHost::PlatformCall call;
    call.function = function;
    call.text = text;
    call.number = number;
    call.object = object;
    observer(call);
  }
}

}  // namespace kst_observer
