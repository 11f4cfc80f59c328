// Sample values for the event catalog (catalog.h): what it calls an export with. For every member of
// an export's argument records, a canonical value (distinct from member to member), the value of a
// default record, another value, and for integers the values scanned; made from the same bindings
// that read records (json_binding.h), one Sampler per member type.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tools/replay/json_binding.h"

namespace oet_replay {

// One member as the catalog varies it. Besides its canonical value (which the codec returns), a member
// has the value of a default record, another value that differs from both (discarded when its type has
// no third value, as bool), and, for integers, further values tried one at a time.
struct SampleLeaf {
  std::string path;  // its place among the call's arguments; "[]" stands for every entry of a list
  std::string type;  // a short name of its type: "int32", "text", "wide text", "time", "list", ...
  Json none;
  Json other;
  std::vector<Json> scan;
};

// Makes canonical values (distinct from member to member: each takes the next seed) and lists the
// members they fill.
class SampleBuilder {
 public:
  explicit SampleBuilder(int scan_top) : scan_top_(scan_top) {}
  int NextSeed() { return ++seed_; }
  // Integers are tried from 0 to scan_top (and at -1 and their type's limits).
  int scan_top() const { return scan_top_; }
  // Lists the member, unless values are being made for a second entry of a list (whose members the
  // first entry has listed already). Returns its index, or -1.
  int Add(SampleLeaf leaf) {
    if (!listing) return -1;
    leaves_.push_back(std::move(leaf));
    return static_cast<int>(leaves_.size()) - 1;
  }
  SampleLeaf& leaf(int index) { return leaves_[static_cast<size_t>(index)]; }
  const std::vector<SampleLeaf>& leaves() const { return leaves_; }
  bool listing = true;

 private:
  int scan_top_;
  int seed_ = 0;
  std::vector<SampleLeaf> leaves_;
};

// The value that stands for "no such value" in a SampleLeaf.
inline Json NoSample() {
  return Json(Json::value_t::discarded);
}

// The samples of a member of type T: `Sample` lists the member at `path` and returns its canonical
// value; `value_path` is the same path with the entry's index in place of "[]", which canonical texts
// show. Types without a Sampler (directive fields) are not sampled.
template <class T, class = void>
struct Sampler {};

template <class T, class = void>
struct HasSample : std::false_type {};
template <class T>
struct HasSample<T, std::void_t<decltype(Sampler<T>::Sample(std::declval<SampleBuilder&>(), std::string(),
                                                            std::string()))>> : std::true_type {};

template <class T>
Json SampleMember(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
  if constexpr (HasSample<T>::value) {
    return Sampler<T>::Sample(samples, path, value_path);
  } else {
    return Json();
  }
}

// Integers: the canonical value is the seed (kept within the type), the other value 1 or 2, scanned
// from -1 to scan_top and at the type's limits.
template <class I>
struct Sampler<I, std::enable_if_t<std::is_integral_v<I> && !std::is_same_v<I, bool>>> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& /*value_path*/) {
    using Limits = std::numeric_limits<I>;
    const auto max = static_cast<uint64_t>(Limits::max());
    const auto seed = static_cast<uint64_t>(samples.NextSeed());
    const uint64_t canonical = seed <= max ? seed : seed % max + 1;  // 1 ... max
    const uint64_t other = canonical == 1 ? 2 : 1;                   // small: within any table of words
    SampleLeaf leaf{path, IntegerCodec<I>::TypeName(), Json(I{0}), Json(static_cast<I>(other)), {}};
    if constexpr (Limits::is_signed) leaf.scan.push_back(Json(static_cast<I>(-1)));
    for (uint64_t value = 0; value <= static_cast<uint64_t>(samples.scan_top()) && value <= max; ++value)
      leaf.scan.push_back(Json(static_cast<I>(value)));
    if constexpr (Limits::is_signed) leaf.scan.push_back(Json(Limits::min()));
    if (max > static_cast<uint64_t>(samples.scan_top())) leaf.scan.push_back(Json(Limits::max()));
    samples.Add(std::move(leaf));
    return Json(static_cast<I>(canonical));
  }
};

// Enumerations as their underlying integers.
template <class E>
struct Sampler<E, std::enable_if_t<std::is_enum_v<E>>> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    return Sampler<std::underlying_type_t<E>>::Sample(samples, path, value_path);
  }
};

template <>
struct Sampler<bool> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path);
};

template <>
struct Sampler<double> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path);
};

// Texts are the member's own path ("info.text_d"), so that the catalog shows where a text went.
Json SampleText(SampleBuilder& samples, const char* type, const std::string& path,
                const std::string& value_path);

template <class T>
struct Sampler<T,
               std::enable_if_t<std::is_same_v<T, std::string> || std::is_same_v<T, Kst::CStringT<char>>>> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    return SampleText(samples, "text", path, value_path);
  }
};

template <>
struct Sampler<Kst::CStringT<wchar_t>> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    return SampleText(samples, "wide text", path, value_path);
  }
};

// Canonical times are minutes apart from 2026-03-09T08:00:00.000Z; the other value a day later.
template <>
struct Sampler<Kst::Time> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path);
};

template <class T>
struct Sampler<std::vector<T>> {
  // Two entries; the other value keeps the first alone.
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    const int index = samples.Add({path, "list", Json::array(), NoSample(), {}});
    const Json first = Sampler<T>::Sample(samples, path + "[]", value_path + "[0]");
    const bool listing = samples.listing;
    samples.listing = false;
    const Json second = Sampler<T>::Sample(samples, path + "[]", value_path + "[1]");
    samples.listing = listing;
    if (index >= 0) samples.leaf(index).other = Json::array({first});
    return Json::array({first, second});
  }
};

template <class T>
struct Sampler<std::map<std::string, T>> {
  // One entry, keyed by the member's path; its members are not varied one by one.
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    samples.Add({path, "map", Json::object(), NoSample(), {}});
    const bool listing = samples.listing;
    samples.listing = false;
    Json out = Json::object();
    out[value_path] = Sampler<T>::Sample(samples, path, value_path);
    samples.listing = listing;
    return out;
  }
};

template <class T>
struct Sampler<std::optional<T>> {
  // Given in the canonical record; a default record leaves it out.
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    const size_t before = samples.leaves().size();
    Json canonical = Sampler<T>::Sample(samples, path, value_path);
    if (samples.listing && samples.leaves().size() > before)
      samples.leaf(static_cast<int>(before)).none = NoSample();
    return canonical;
  }
};

// A bound record: every member in the binding's order.
template <class R>
struct Sampler<R, std::enable_if_t<IsBound<R>::value>> {
  static Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) {
    Json out = Json::object();
    for (const auto& field : BindingOf<R>().fields)
      out[field.name()] =
          field.Sample(samples, MemberPath(path, field.name()), MemberPath(value_path, field.name()));
    return out;
  }
};

}  // namespace oet_replay
