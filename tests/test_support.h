// Shared fixture of the event tests: a recording host installed for each test and a client-context
// cache that starts unfilled, as in a new process.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/client_context.h"
#include "testing/recording_host.h"

namespace oet_testing {

class HostTest : public ::testing::Test {
 protected:
  void SetUp() override { oet::ResetClientContextForTesting(); }

  // The calls recorded so far, in their short text form.
  std::vector<std::string> Calls() const { return Describe(host.Log()); }

  RecordingHost host;
};

}  // namespace oet_testing
