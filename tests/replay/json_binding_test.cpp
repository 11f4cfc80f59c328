// The record binder: range and type checks of every member type, the time forms, paths in messages,
// and exports that fill a record.
#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "oKstPlatform/kst_convert.h"
#include "testing/event_json.h"
#include "tests/replay/double_cases.h"
#include "tools/replay/exports.h"

namespace oet_replay {

struct Item {
  int32_t n = 0;
  Kst::CStringT<wchar_t> label;
};
enum class Mode : int16_t { kOff, kOn };
struct Outer {
  Mode mode = Mode::kOff;
  std::vector<Item> items;
  std::map<std::string, int64_t> counts;
  Kst::Time when;
  Item single;
};
OET_REPLAY_RECORD(Item, OET_REPLAY_FIELD(n), OET_REPLAY_FIELD(label))
OET_REPLAY_RECORD(Outer, OET_REPLAY_FIELD(mode), OET_REPLAY_FIELD(items), OET_REPLAY_FIELD(counts),
                  OET_REPLAY_FIELD(when), OET_REPLAY_FIELD(single))

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The first message of reading `json` as a T, or "" when it reads.
template <class T>
std::string ReadError(const char* json) {
  T value{};
  Issues issues;
  Codec<T>::Read(Json::parse(json), value, "f", issues);
  return issues.empty() ? "" : issues.messages().front();
}

struct ScalarCase {
  const char* type;
  const char* json;
  const char* error;  // "" when the value reads
};

void PrintTo(const ScalarCase& c, std::ostream* os) {
  *os << c.type << " " << c.json;
}

class ScalarTest : public ::testing::TestWithParam<ScalarCase> {};

TEST_P(ScalarTest, ChecksTypeAndRange) {
  const ScalarCase& c = GetParam();
  const std::string type = c.type;
  const std::string error = type == "int32"    ? ReadError<int32_t>(c.json)
                            : type == "uint32" ? ReadError<uint32_t>(c.json)
                            : type == "uint64" ? ReadError<uint64_t>(c.json)
                            : type == "int64"  ? ReadError<int64_t>(c.json)
                            : type == "uint8"  ? ReadError<uint8_t>(c.json)
                            : type == "bool"   ? ReadError<bool>(c.json)
                            : type == "double" ? ReadError<double>(c.json)
                            : type == "cstr"   ? ReadError<Kst::CStringT<char>>(c.json)
                                               : ReadError<Kst::Time>(c.json);
  if (*c.error == '\0') {
    EXPECT_EQ(error, "");
  } else {
    EXPECT_THAT(error, HasSubstr(c.error));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Members, ScalarTest,
    ::testing::Values(
        ScalarCase{"int32", "2147483647", ""}, ScalarCase{"int32", "-2147483648", ""},
        ScalarCase{"int32", "4294967296", "field \"f\": 4294967296 is out of range for a 32-bit integer"},
        ScalarCase{"int32", "2147483648", "out of range for a 32-bit integer"},
        ScalarCase{"int32", "-2147483649", "out of range for a 32-bit integer"},
        ScalarCase{"int32", "1.0", "1.0 is not an integer"},
        ScalarCase{"int32", "true", "true is not an integer"},
        ScalarCase{"int32", "\"1\"", "\"1\" is not an integer"}, ScalarCase{"uint32", "4294967295", ""},
        ScalarCase{"uint32", "-1", "out of range for an unsigned 32-bit integer"},
        ScalarCase{"int64", "9223372036854775807", ""}, ScalarCase{"int64", "-9223372036854775808", ""},
        ScalarCase{"int64", "9223372036854775808", "out of range for a 64-bit integer"},
        ScalarCase{"uint8", "256", "out of range for an unsigned 8-bit integer"},
        // Integers too long for 64 bits read as doubles; for an integer member they are out of range.
        ScalarCase{"int32", "100000000000000000000000000", "1e+26 is out of range for a 32-bit integer"},
        ScalarCase{"uint64", "18446744073709551616", "is out of range for an unsigned 64-bit integer"},
        ScalarCase{"int64", "-9223372036854775809", "is out of range for a 64-bit integer"},
        ScalarCase{"int64", "1e30", "1e+30 is out of range for a 64-bit integer"},
        ScalarCase{"int64", "1e18", "1e+18 is not an integer"},
        ScalarCase{"double", "100000000000000000000000000", ""},
        ScalarCase{"bool", "1", "1 is not true or false"}, ScalarCase{"double", "1e300", ""},
        ScalarCase{"double", "null", "null is not a number"}, ScalarCase{"double", "\"NaN\"", ""},
        ScalarCase{"double", "\"-Infinity\"", ""}, ScalarCase{"double", "\"nan\"", "\"nan\" is not a number"},
        ScalarCase{"cstr", "{\"a\": 1}", "an object is not a string"},
        ScalarCase{"time", "1772860141042", ""}, ScalarCase{"time", "-1", ""},
        ScalarCase{"time", "9223372036854776", "out of range for a time"},
        ScalarCase{"time", "2.5", "is not a time (Unix milliseconds or"},
        ScalarCase{"time", "\"2024-02-29T23:59:59.999Z\"", ""},
        ScalarCase{"time", "\"2023-02-29T00:00:00.000Z\"", "is not a time"},
        ScalarCase{"time", "\"2100-02-29T00:00:00.000Z\"", "is not a time"},
        ScalarCase{"time", "\"2026-03-07T24:00:00.000Z\"", "is not a time"},
        ScalarCase{"time", "\"2026-03-07T05:09:01.042\"", "is not a time"},
        ScalarCase{"time", "\"2026-03-07T05:09:01Z\"", "is not a time"},
        ScalarCase{"time", "\"+026-03-07T05:09:01.042Z\"", "is not a time"}));

// Doubles travel exactly: in records, in filled records and in the event JSON.
class DoubleTest : public ::testing::TestWithParam<DoubleCase> {};

TEST_P(DoubleTest, WritesAndReadsBackTheSameDouble) {
  const DoubleCase& c = GetParam();
  EXPECT_EQ(Codec<double>::Write(c.value).dump(), c.json);
  double read = 1;
  Issues issues;
  Codec<double>::Read(Json::parse(c.json), read, "f", issues);
  ASSERT_TRUE(issues.empty()) << issues.messages().front();
  EXPECT_EQ(std::isnan(read), std::isnan(c.value));
  if (!std::isnan(c.value)) {
    EXPECT_EQ(read, c.value);
    EXPECT_EQ(std::signbit(read), std::signbit(c.value));
  }
  oet_testing::Call op;
  op.fn = oet_testing::Call::Fn::kEntityOp;
  op.kind = oet_testing::OpKind::kDouble;
  op.value = c.value;
  EXPECT_EQ(oet_testing::ToJson(op)["value"].dump(), c.json);
}

INSTANTIATE_TEST_SUITE_P(Values, DoubleTest, ::testing::ValuesIn(kDoubleCases), DoubleCaseName);

struct TimeCase {
  const char* text;
  int64_t unix_ms;
};

void PrintTo(const TimeCase& c, std::ostream* os) {
  *os << c.text;
}

class IsoTimeTest : public ::testing::TestWithParam<TimeCase> {};

TEST_P(IsoTimeTest, ReadsAndWritesTheSameInstant) {
  const auto parsed = ParseIsoTime(GetParam().text);
  ASSERT_TRUE(parsed.has_value());
  EXPECT_EQ(parsed->ToUnixMicroseconds(), GetParam().unix_ms * 1000);
  EXPECT_EQ(FormatIsoTime(*parsed), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Instants, IsoTimeTest,
                         ::testing::Values(TimeCase{"2026-03-07T05:09:01.042Z", 1772860141042},
                                           TimeCase{"1970-01-01T00:00:00.001Z", 1},
                                           TimeCase{"1969-12-31T23:59:59.999Z", -1},
                                           TimeCase{"2000-02-29T12:00:00.000Z", 951825600000},
                                           TimeCase{"0001-01-01T00:00:00.000Z", -62135596800000}));

TEST(RecordBindingTest, ReportsEveryProblemWithItsPath) {
  Outer outer;
  Issues issues;
  BindingOf<Outer>().Read(
      Json::parse(
          R"({"mode": 40000, "items": [{"n": 1}, {"n": "x", "lable": ""}], "counts": {"a": 1.5}, "single": [], "extra": 0})"),
      outer, "info", issues);
  EXPECT_THAT(
      issues.messages(),
      ElementsAre(
          "field \"info.mode\": 40000 is out of range for a 16-bit integer",
          "field \"info.items[1].n\": \"x\" is not an integer",
          "field \"info.items[1].lable\": unknown field of Item (fields: n, label)",
          "field \"info.counts.a\": 1.5 is not an integer",
          "field \"info.single\": an array is not an object (Item)",
          "field \"info.extra\": unknown field of Outer (fields: mode, items, counts, when, single)"));
}

TEST(RecordBindingTest, KeepsMembersLeftOutAndWritesWideTextBackAsUtf8) {
  Outer outer;
  outer.single.n = 7;
  Issues issues;
  const std::string text = "\xC3\xBC \xE2\x9C\x93 \xF0\x9F\x98\x80";  // ü ✓ 😀 (a surrogate pair in UTF-16)
  BindingOf<Outer>().Read(
      Json{
          {"mode", 1}, {"items", Json::array({Json{{"label", text}}})}, {"when", "2026-03-07T05:09:01.042Z"}},
      outer, "", issues);
  ASSERT_TRUE(issues.empty()) << issues.messages().front();
  EXPECT_EQ(outer.items.at(0).label, Kst::Utf8ToWide(text));
  EXPECT_EQ(outer.single.n, 7);
  EXPECT_EQ(outer.mode, Mode::kOn);
  const Json written = BindingOf<Outer>().Write(outer);
  EXPECT_EQ(written["items"][0]["label"], text);
  EXPECT_EQ(written["when"], "2026-03-07T05:09:01.042Z");
  EXPECT_EQ(written["single"]["n"], 7);
  EXPECT_EQ(written["mode"], 1);
}

// Texts JSON strings cannot carry: any bytes for narrow texts, any UTF-16 units for wide texts, read
// and written back the same way; valid texts still print as strings.
TEST(TextFormTest, ReadsAndWritesAnyBytesAndAnyUtf16Units) {
  std::string narrow;
  Kst::CStringT<wchar_t> wide;
  Issues issues;
  Codec<std::string>::Read(Json::parse(R"({"bytes": "61 e2 82 00FF"})"), narrow, "n", issues);
  Codec<Kst::CStringT<wchar_t>>::Read(Json::parse(R"({"utf16": "0041 D800 d83d DE00"})"), wide, "w", issues);
  ASSERT_TRUE(issues.empty()) << issues.messages().front();
  EXPECT_EQ(narrow, std::string("a\xE2\x82\0\xFF", 5));
  EXPECT_EQ(Codec<std::string>::Write(narrow).dump(), R"({"bytes":"61 E2 82 00 FF"})");
  EXPECT_EQ(Codec<Kst::CStringT<wchar_t>>::Write(wide).dump(), R"({"utf16":"0041 D800 D83D DE00"})");
  EXPECT_EQ(Codec<std::string>::Write("\xE2\x82\xAC").dump(), "\"\xE2\x82\xAC\"");
  EXPECT_EQ(Codec<Kst::CStringT<wchar_t>>::Write(Kst::Utf8ToWide("\xF0\x9F\x98\x80")).dump(),
            "\"\xF0\x9F\x98\x80\"");
  for (const char* wrong : {R"({"bytes": "6"})", R"({"bytes": "6 1"})", R"({"bytes": "6G"})",
                            R"({"utf16": "41"})", R"({"bytes": 1})", R"({"bytes": "61", "x": 1})"}) {
    Issues wrong_issues;
    Codec<std::string>::Read(Json::parse(wrong), narrow, "n", wrong_issues);
    EXPECT_EQ(wrong_issues.messages().size(), 1u) << wrong;
  }
  EXPECT_EQ(ReadError<Kst::CStringT<wchar_t>>(R"({"bytes": "61"})"),
            R"(field "f": an object is not a string (nor {"utf16": "0061 D800"}))");
}

// Messages quote what a line holds; bytes that are not UTF-8 are escaped.
TEST(IssuesTest, EscapesBytesThatAreNotUtf8) {
  Issues issues;
  issues.AddField("f", "\"a\xFF\xE2\x82\xAC\xE2\x82\"");
  EXPECT_THAT(issues.messages(), ElementsAre("field \"f\": \"a\\xFF\xE2\x82\xAC\\xE2\\x82\""));
}

// The overloads of one name are picked by the arguments a line gives.
TEST(ExportTest, PicksTheOverloadFromTheArgumentsGiven) {
  const auto resolved = [](const char* line) {
    Issues issues;
    const ExportEntry* entry = ResolveExport("EventTrack::AddEventTrackingLog", Json::parse(line), issues);
    return entry != nullptr ? entry->name : issues.messages().front();
  };
  EXPECT_EQ(resolved(R"({"texts": {}, "note": ""})"), "EventTrack::AddEventTrackingLog(texts)");
  EXPECT_EQ(resolved(R"({})"), "EventTrack::AddEventTrackingLog(codes)");
  EXPECT_EQ(resolved(R"({"codes": {}, "tags": {}})"), "EventTrack::AddEventTrackingLog(codes, tags)");
  EXPECT_EQ(resolved(R"({"tags": {}})"),
            "field \"call\": the arguments tags fit the overloads (texts), (codes, tags) alike; give one an "
            "argument the others do not take");
  EXPECT_EQ(resolved(R"({"texts": {}, "codes": {}})"),
            "field \"call\": no overload of EventTrack::AddEventTrackingLog takes the arguments texts, codes "
            "(overloads: (texts), (codes), (codes, tags))");
}

// An export of the shape of the record-filling exports: an input record and a record it fills.
int FillItem(const Item& in, Item& out) {
  out.n = in.n * 2;
  out.label = L"filled";
  return in.n;
}

TEST(ExportTest, RunsWithRecordsFromTheLineAndPrintsTheFilledRecord) {
  const ExportEntry entry = Export("Test::FillItem", &FillItem, {"in", "out"});
  Issues issues;
  const PreparedCall call =
      entry.prepare(Json::parse(R"({"call": "Test::FillItem", "in": {"n": 21}})"), issues);
  ASSERT_TRUE(call);
  const CallResult result = call();
  EXPECT_EQ(result.result, 21);
  EXPECT_EQ(result.filled, Json::parse(R"({"out": {"n": 42, "label": "filled"}})"));
}

TEST(ExportTest, RejectsUnknownArgumentsAndRunsNothing) {
  const ExportEntry entry = Export("Test::FillItem", &FillItem, {"in", "out"});
  Issues issues;
  EXPECT_FALSE(entry.prepare(Json::parse(R"({"call": "Test::FillItem", "inn": {}, "note": "x"})"), issues));
  EXPECT_THAT(issues.messages(),
              ElementsAre("field \"inn\": unknown argument of Test::FillItem (arguments: in, out)"));
}

// The event catalog calls every export with sample records: each export's canonical record must read
// back without a problem, and every member must be listed once (a member type without a Sampler
// would give null here and fail to read).
TEST(ExportTest, EveryExportHasSampleRecordsThatReadBack) {
  for (const auto& entry : Exports()) {
    SampleBuilder samples(3);
    const Json arguments = entry.sample(samples);
    Issues issues;
    EXPECT_TRUE(entry.prepare(arguments, issues)) << entry.name << ": " << arguments.dump();
    EXPECT_THAT(issues.messages(), ::testing::IsEmpty()) << entry.name;
    std::vector<std::string> paths;
    for (const auto& leaf : samples.leaves())
      paths.push_back(leaf.path);
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(std::adjacent_find(paths.begin(), paths.end()), paths.end()) << entry.name;
  }
}

TEST(SampleTest, GivesEveryMemberADistinctCanonicalValueAndTheValuesToTry) {
  SampleBuilder samples(2);
  const Json canonical = Sampler<Outer>::Sample(samples, "o", "o");
  EXPECT_EQ(
      canonical.dump(),
      R"({"mode":1,"items":[{"n":2,"label":"o.items[0].label"},{"n":4,"label":"o.items[1].label"}],)"
      R"("counts":{"o.counts":6},"when":"2026-03-09T08:07:00.000Z","single":{"n":8,"label":"o.single.label"}})");
  std::vector<std::string> listed;
  for (const auto& leaf : samples.leaves())
    listed.push_back(leaf.path + " " + leaf.type + " " + leaf.none.dump() + " " + leaf.other.dump() + " " +
                     Json(leaf.scan).dump());
  EXPECT_THAT(listed,
              ElementsAre("o.mode int16 0 2 [-1,0,1,2,-32768,32767]",
                          "o.items list [] [{\"n\":2,\"label\":\"o.items[0].label\"}] []",
                          "o.items[].n int32 0 1 [-1,0,1,2,-2147483648,2147483647]",
                          "o.items[].label wide text \"\" \"other o.items[0].label\" []",
                          "o.counts map {} <discarded> []", "o.when time 0 \"2026-03-10T08:07:00.000Z\" []",
                          "o.single.n int32 0 1 [-1,0,1,2,-2147483648,2147483647]",
                          "o.single.label wide text \"\" \"other o.single.label\" []"));
}

TEST(ExportTest, EveryLibraryExportIsRegisteredOnce) {
  std::vector<std::string> names;
  for (const auto& entry : Exports())
    names.push_back(entry.name);
  EXPECT_THAT(names, ::testing::IsSupersetOf({"OrboPTPAAP::TrackingPTInteractEvent",
                                              "OrboPTPAAP::TrackingHomeTabInteractEvent",
                                              "OrboPTPAAP::StoreMeetingInfo4PostEvents"}));
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

}  // namespace
}  // namespace oet_replay
