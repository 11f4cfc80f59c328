// The command without its command line: file problems and write errors exit with 4, the output goes
// out call by call while the script is read, and --check compares as it goes.
#include <filesystem>
#include <fstream>
#include <sstream>
#include <streambuf>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/replay/replay.h"

namespace oet_replay {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr char kTabSwitch[] =
    R"({"call": "OrboPTPAAP::TrackingPTInteractEvent", "info": {"first_tab": 1, "second_tab": 3}})";

// A folder of its own for each test, removed afterwards.
class ReplayTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        fs::temp_directory_path() /
        ("oet_replay_test_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "a folder");
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return (folder_ / name).string();
  }
  std::string Folder() const { return (folder_ / "a folder").string(); }

  struct Outcome {
    int status;
    std::string out;
    std::string err;
  };
  static Outcome Run(const ReplayOptions& options, std::istream& in) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = Replay(options, in, out, err);
    return {status, out.str(), err.str()};
  }
  static Outcome Run(const ReplayOptions& options) {
    std::istringstream in;
    return Run(options, in);
  }

  fs::path folder_;
};

TEST_F(ReplayTest, AFolderAsTheScriptIsAFileProblem) {
  ReplayOptions options;
  options.script = Folder();
  const Outcome outcome = Run(options);
  EXPECT_EQ(outcome.status, kFileProblem);
  EXPECT_EQ(outcome.err, "oet-replay: cannot read " + Folder() + ": it is a directory\n");
  EXPECT_EQ(outcome.out, "");
}

TEST_F(ReplayTest, AMissingScriptIsAFileProblem) {
  ReplayOptions options;
  options.script = (folder_ / "missing.jsonl").string();
  EXPECT_EQ(Run(options).status, kFileProblem);
}

TEST_F(ReplayTest, AFolderAsTheExpectedFileIsAFileProblemNotADifference) {
  ReplayOptions options;
  options.script = Write("s.jsonl", std::string(kTabSwitch) + "\n");
  options.expected = Folder();
  const Outcome outcome = Run(options);
  EXPECT_EQ(outcome.status, kFileProblem);
  EXPECT_THAT(outcome.err, HasSubstr(Folder() + ": it is a directory"));
}

TEST_F(ReplayTest, AnOutputFileThatCannotBeWrittenIsAFileProblemAddedToBadLines) {
  ReplayOptions options;
  options.script = Write("s.jsonl", std::string(kTabSwitch) + "\n{\n");
  options.output = Folder();
  const Outcome outcome = Run(options);
  EXPECT_EQ(outcome.status, kFileProblem + kBadLines);
  EXPECT_THAT(outcome.err, HasSubstr("oet-replay: cannot write " + Folder() + "\n"));
}

// Standard output that takes nothing, as /dev/full.
class FullBuffer final : public std::streambuf {
 protected:
  int_type overflow(int_type) override { return traits_type::eof(); }
  std::streamsize xsputn(const char*, std::streamsize) override { return 0; }
};

TEST_F(ReplayTest, StandardOutputThatFailsIsAFileProblem) {
  ReplayOptions options;
  options.script = Write("s.jsonl", std::string(kTabSwitch) + "\n");
  FullBuffer full;
  std::ostream out(&full);
  std::ostringstream err;
  std::istringstream in;
  EXPECT_EQ(Replay(options, in, out, err), kFileProblem);
  EXPECT_EQ(err.str(), "oet-replay: cannot write standard output\n");
}

// A script read from standard input that, before it hands out each line, notes how many lines of
// output there are already.
class WatchedScript final : public std::streambuf {
 public:
  WatchedScript(int lines, const std::ostringstream& output) : lines_(lines), output_(output) {}
  std::vector<size_t> seen;  // output lines when each script line was handed out

 protected:
  int_type underflow() override {
    if (static_cast<int>(seen.size()) == lines_) return traits_type::eof();
    const std::string text = output_.str();
    seen.push_back(static_cast<size_t>(std::count(text.begin(), text.end(), '\n')));
    line_ = std::string(kTabSwitch) + "\n";
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return traits_type::to_int_type(line_[0]);
  }

 private:
  int lines_;
  const std::ostringstream& output_;
  std::string line_;
};

TEST_F(ReplayTest, WritesEachCallBeforeReadingTheNextLine) {
  ReplayOptions options;
  options.script = "-";
  std::ostringstream out;
  std::ostringstream err;
  WatchedScript script(50, out);
  std::istream in(&script);
  ASSERT_EQ(Replay(options, in, out, err), 0) << err.str();
  ASSERT_EQ(script.seen.size(), 50u);
  for (size_t line = 0; line < script.seen.size(); ++line)
    EXPECT_EQ(script.seen[line], line) << "script line " << line + 1;
}

TEST_F(ReplayTest, ChecksAgainstTheExpectedFileAndWritesTheOutputFileBeside) {
  ReplayOptions make;
  make.script = Write("s.jsonl", std::string(kTabSwitch) + "\n" + kTabSwitch + "\n");
  make.format = OutputFormat::kView;
  make.output = (folder_ / "s.view").string();
  ASSERT_EQ(Run(make).status, 0);

  ReplayOptions check = make;
  check.output = (folder_ / "again.view").string();
  check.expected = make.output;
  const Outcome same = Run(check);
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.out, "oet-replay: output of " + make.script + " matches " + make.output + "\n");
  std::ifstream again(check.output, std::ios::binary);
  std::ifstream first(make.output, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(again), {}),
            std::string(std::istreambuf_iterator<char>(first), {}));

  check.script = Write("t.jsonl", std::string(kTabSwitch) + "\n");
  const Outcome differs = Run(check);
  EXPECT_EQ(differs.status, kDifferent);
  EXPECT_THAT(differs.out, HasSubstr("--- " + make.output + "\n+++ output of " + check.script + "\n@@ "));
  EXPECT_THAT(differs.out, HasSubstr("\n-line 2  OrboPTPAAP::TrackingPTInteractEvent -> 1\n"));
}

}  // namespace
}  // namespace oet_replay
