// Calls every export at the edges of a client process's life, each scenario in a process of its own
// (the test command runs them natively, under the sanitizers and under wine):
//   no-host         no host has registered anything
//   host-gone       after the host unregistered its services
//   atexit-first    from an atexit handler registered before the first tracking call (the host stays)
//   atexit-nohost   the same, after the host is gone
//   atexit-later    from an atexit handler registered after the first tracking call
//   static-dtor     from the destructor of a static built before the first tracking call
//   thread-exit     from the destructor of a thread's own object, after the thread's other
//                   thread-local objects (the library's among them) are gone
//   reentrant       a web service that calls exports while it fills the client context, first use
//   reentrant-wait  a web service that, while it fills, waits for another thread's export call
// Each prints "ok <scenario> <calls>" when its last call returned; a crash, a sanitizer report or a
// hang fails it.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "oEventTracker/OrboPTPAAP.h"
#include "testing/recording_host.h"
#include "tests/robustness/export_cases.h"

namespace {

std::vector<oet_robustness::ExportCase>* g_cases = nullptr;
oet_testing::RecordingHost* g_host = nullptr;  // reachable until exit: never destroyed
const char* g_scenario = "";

// A phone event whose texts the library makes are longer than a string's small buffer (the call times,
// converted texts), so that they go through the thread's text buffer.
int CallWithLongTexts() {
  OrboPTPAAP::PhoneInteractInfo_s info;
  info.call_detail = 1;
  info.call_text1 = L"a call text longer than any small buffer";
  info.context_text1 = L"a context text longer than any small buffer";
  info.time1 = Kst::Time::FromUnixMicroseconds(1709210096007000);
  info.time2 = Kst::Time::FromUnixMicroseconds(1709210156007000);
  OrboPTPAAP::TrackingPhoneInteractEvent({"primary", "secondary"}, info);
  return 1;
}

int CallEverything() {
  int calls = 0;
  for (const auto& c : *g_cases) {
    for (const auto& call : c.inputs) {
      call();
      ++calls;
    }
  }
  return calls + CallWithLongTexts();
}

void CallEverythingAndReport() {
  const int calls = CallEverything();
  if (g_host != nullptr) g_host->TakeEvents();
  std::printf("ok %s %d\n", g_scenario, calls);
  std::fflush(stdout);
}

// A client's static whose destructor tracks. Built before the first tracking call (and after the
// probe's own tables, which must outlive it), so that it is destroyed after whatever the library's
// first calls build.
struct CallsWhenDestroyed {
  ~CallsWhenDestroyed() { CallEverythingAndReport(); }
};

// A thread's object whose destructor tracks. Built before the thread's first tracking call, so that
// it is destroyed after whatever that call builds for the thread.
struct ThreadCallsWhenDestroyed {
  ~ThreadCallsWhenDestroyed() { CallEverythingAndReport(); }
};

int Run(const std::string& scenario) {
  if (scenario == "no-host") {
    CallEverythingAndReport();
  } else if (scenario == "host-gone") {
    {
      oet_testing::RecordingHost host;
      CallEverything();
    }
    CallEverythingAndReport();
  } else if (scenario == "atexit-first" || scenario == "atexit-nohost") {
    std::atexit(CallEverythingAndReport);
    if (scenario == "atexit-first") {
      g_host = new oet_testing::RecordingHost;
      CallEverything();
    } else {
      oet_testing::RecordingHost host;
      CallEverything();
    }
  } else if (scenario == "atexit-later") {
    g_host = new oet_testing::RecordingHost;
    CallEverything();
    std::atexit(CallEverythingAndReport);
  } else if (scenario == "static-dtor") {
    static CallsWhenDestroyed caller;
    g_host = new oet_testing::RecordingHost;
    CallEverything();
  } else if (scenario == "thread-exit") {
    g_host = new oet_testing::RecordingHost;
    std::thread([] {
      thread_local ThreadCallsWhenDestroyed caller;
      CallEverything();
    }).join();
  } else if (scenario == "reentrant") {
    g_host = new oet_testing::RecordingHost;
    g_host->web_service().SetFillHook([] {
      static bool once = false;
      if (once) return;
      once = true;
      OrboPTPAAP::PTClientProductEntityStruct product;
      OrboPTPAAP::RetrieveClientProductInfo(product);
      CallEverything();
    });
    CallEverythingAndReport();
  } else if (scenario == "reentrant-wait") {
    g_host = new oet_testing::RecordingHost;
    g_host->web_service().SetFillHook([] {
      static bool once = false;
      if (once) return;
      once = true;
      std::thread other([] { CallEverything(); });
      other.join();
    });
    CallEverythingAndReport();
  } else {
    std::fprintf(stderr, "unknown scenario %s\n", scenario.c_str());
    return 2;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: oet_lifetime_probe SCENARIO\n");
    return 2;
  }
  g_scenario = argv[1];
  // The test's own tables first, so that they outlive every exit-time call.
  oet_replay::Exports();
  g_cases = new std::vector<oet_robustness::ExportCase>(oet_robustness::AllExportCases(1));
  return Run(argv[1]);
}
