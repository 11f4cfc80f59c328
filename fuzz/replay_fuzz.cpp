// Fuzz target of the replay tool's script reader: any bytes are run as a session script against the
// recording host. Whatever the input, the session must end normally: no crash, no sanitizer report,
// no leak; wrong lines only produce messages.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "tools/replay/session.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream script(std::string(reinterpret_cast<const char*>(data), size));
  std::ostringstream output;
  std::ostringstream errors;
  oet_replay::RunSession(script, "fuzz", oet_replay::SessionOptions{size % 2 == 0}, output, errors);
  return 0;
}
