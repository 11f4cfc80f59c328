// The test hosts' own work, told apart from the library's.
#pragma once

namespace oet_testing {

// Marks the recording host's and the web-service fake's own work on this thread (building their
// answers, keeping their records). Tests that make allocations fail one by one on the library's behalf
// ask InHostBookkeeping() and leave the host's own allocations alone.
class HostBookkeeping {
 public:
  HostBookkeeping();
  ~HostBookkeeping();
  HostBookkeeping(const HostBookkeeping&) = delete;
  HostBookkeeping& operator=(const HostBookkeeping&) = delete;
};
bool InHostBookkeeping();

}  // namespace oet_testing
