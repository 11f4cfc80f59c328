// Fuzz target of the replay tool's script reader: any bytes are run as a session script against the
// recording host, in each output format in turn (the JSON lines, the indented JSON and the readable
// view), with and without the host-call listing. Whatever the input, the session must end normally: no crash,
// no sanitizer report, no leak; wrong lines only produce messages.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "tools/replay/session.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::istringstream script(std::string(reinterpret_cast<const char*>(data), size));
  std::ostringstream output;
  std::ostringstream errors;
  oet_replay::SessionOptions options;
  options.format = static_cast<oet_replay::OutputFormat>(size % 3);
  options.host_calls = size % 2 == 1;  // every format with and without the host-call listing
  oet_replay::RunSession(script, "fuzz", options, output, errors);
  return 0;
}
