#include "tools/replay/replay.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <streambuf>

#include "tools/replay/catalog.h"
#include "tools/replay/text_diff.h"

namespace oet_replay {
namespace {

namespace fs = std::filesystem;

// Where the output goes as it is written: a copy to a stream (standard output or the output file) and,
// when checking, line by line into the comparison.
class OutputSink final : public std::streambuf {
 public:
  OutputSink(std::ostream* copy, StreamingDiff* diff) : copy_(copy), diff_(diff) {}

  // Hands the last line over when it has no line end.
  void Finish() {
    if (diff_ != nullptr && !partial_.empty()) diff_->Add(std::move(partial_));
    partial_.clear();
  }

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    xsputn(&ch, 1);
    return c;
  }

  std::streamsize xsputn(const char* text, std::streamsize size) override {
    if (copy_ != nullptr) copy_->write(text, size);
    if (diff_ != nullptr) {
      const char* end = text + size;
      for (const char* at = text; at < end;) {
        const char* line_end = std::find(at, end, '\n');
        partial_.append(at, line_end);
        if (line_end == end) break;
        diff_->Add(std::move(partial_));
        partial_.clear();
        at = line_end + 1;
      }
    }
    return size;
  }

  int sync() override {
    if (copy_ != nullptr) copy_->flush();
    return 0;
  }

 private:
  std::ostream* copy_;
  StreamingDiff* diff_;
  std::string partial_;
};

// Opens a file to read; a directory or a file that cannot be opened is reported.
bool OpenToRead(const std::string& path, std::ifstream& stream, std::ostream& errors) {
  std::error_code error;
  if (fs::is_directory(fs::u8path(path), error)) {
    errors << "oet-replay: cannot read " << path << ": it is a directory\n";
    return false;
  }
  stream.open(fs::u8path(path), std::ios::binary);
  if (!stream) {
    errors << "oet-replay: cannot read " << path << "\n";
    return false;
  }
  return true;
}

}  // namespace

int Replay(const ReplayOptions& options, std::istream& standard_input, std::ostream& standard_output,
           std::ostream& errors) {
  int status = 0;
  std::ifstream script_file;
  std::istream* script = &standard_input;
  std::string name = options.catalog ? "the event catalog" : "<stdin>";
  if (!options.catalog && options.script != "-") {
    if (!OpenToRead(options.script, script_file, errors)) return kFileProblem;
    script = &script_file;
    name = options.script;
  }

  const bool check = !options.expected.empty();
  std::ifstream expected;
  std::unique_ptr<StreamingDiff> diff;
  if (check) {
    if (OpenToRead(options.expected, expected, errors)) {
      diff = std::make_unique<StreamingDiff>(expected, options.expected,
                                             options.catalog ? name : "output of " + name, standard_output);
    } else {
      status |= kFileProblem;
    }
  }
  std::ofstream output_file;
  std::ostream* copy = check ? nullptr : &standard_output;
  if (!options.output.empty()) {
    output_file.open(fs::u8path(options.output), std::ios::binary);
    if (!output_file) {
      errors << "oet-replay: cannot write " << options.output << "\n";
      status |= kFileProblem;
    }
    copy = output_file ? &output_file : nullptr;
  }

  OutputSink sink(copy, diff.get());
  std::ostream output(&sink);
  if (options.catalog) {
    WriteCatalog(output);
  } else {
    SessionOptions session;
    session.format = options.format;
    session.host_calls = options.host_calls;
    const SessionSummary summary = RunSession(*script, name, session, output, errors);
    if (summary.rejected > 0) {
      errors << name << ": " << summary.rejected << (summary.rejected == 1 ? " line was" : " lines were")
             << " wrong and skipped\n";
      status |= kBadLines;
    }
    if (script_file.bad()) {
      errors << "oet-replay: cannot read " << name << "\n";
      status |= kFileProblem;
    }
  }
  output.flush();
  sink.Finish();

  if (output_file.is_open()) {
    output_file.close();
    if (output_file.fail()) {
      errors << "oet-replay: cannot write " << options.output << "\n";
      status |= kFileProblem;
    }
  }
  if (diff != nullptr) {
    if (diff->Finish()) {
      standard_output << "oet-replay: " << (options.catalog ? name : "output of " + name) << " matches "
                      << options.expected << "\n";
    } else {
      status |= kDifferent;
    }
    if (expected.bad()) {
      errors << "oet-replay: cannot read " << options.expected << "\n";
      status |= kFileProblem;
    }
  }
  standard_output.flush();
  if (!standard_output) {
    errors << "oet-replay: cannot write standard output\n";
    status |= kFileProblem;
  }
  return status;
}

}  // namespace oet_replay
