// Reading input records from JSON and writing them back, one declarative table per record.
//
// A record is bound once, by listing its members:
//
//   OET_REPLAY_RECORD(PTInteractInfo_s, OET_REPLAY_FIELD(first_tab), OET_REPLAY_FIELD(second_tab))
//
// The JSON name of a member is its C++ name. Reading is strict, so that a typing mistake in a script
// is reported instead of silently sending a default value:
//  - a record is a JSON object; an unknown member name is an error, a member left out keeps the
//    record's default value (0 or empty);
//  - integer members take JSON integers within the member's range (an int32_t member rejects
//    4294967296; an integer too long for 64 bits, which the parser reads as a double, is out of
//    range too); no other floats, booleans or strings;
//  - bool members take true or false; double members take any JSON number, or "NaN", "Infinity" and
//    "-Infinity";
//  - Kst::CStringT<char> and std::string members take JSON strings (UTF-8, kept byte for byte) or
//    any bytes as {"bytes": "61 E2 82"}; Kst::CStringT<wchar_t> members take JSON strings converted
//    with Kst::Utf8ToWide or any UTF-16 code units as {"utf16": "0041 D800"};
//  - Kst::Time members take an integer (Unix milliseconds; 0 is the null time) or the text
//    "YYYY-MM-DDTHH:MM:SS.mmmZ" (UTC, exactly that form);
//  - std::vector members take arrays, std::map<std::string, T> members take objects, std::optional
//    members are empty unless given;
//  - enumerations take the integers of their underlying type;
//  - nested records take objects and are read with their own binding.
// Every problem is reported with the dotted path of the member ("info.first_tab", "list[2].name"),
// and reading goes on, so that one line reports all its mistakes at once.
//
// The event catalog's sample values come from the same bindings (record_samples.h).
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/kst_time.h"

namespace oet_replay {

using Json = nlohmann::ordered_json;

// The problems found in one script line.
class Issues {
 public:
  // A problem with one member: `field "info.first_tab": <message>`.
  void AddField(const std::string& path, const std::string& message);
  // A problem with the line as a whole. Bytes of the message that are not UTF-8 (read from a line
  // that holds them) are escaped as \xHH, so that the error stream stays UTF-8.
  void Add(const std::string& message);
  bool empty() const { return messages_.empty(); }
  const std::vector<std::string>& messages() const { return messages_; }

 private:
  std::vector<std::string> messages_;
};

// A short text of a JSON value for a message: scalars as written, objects and arrays by kind only.
std::string Shown(const Json& value);
// The value as one line of JSON; bytes that are not UTF-8 are replaced rather than refused.
std::string CompactText(const Json& value);
// `text` with every byte that is not part of well-formed UTF-8 written as \xHH.
std::string EscapeIllFormed(const std::string& text);
// Whether a JSON value is a text given or printed in its byte form: {"bytes": "..."} (narrow text) or
// {"utf16": "..."} (wide text), which a record member never is.
bool IsTextForm(const Json& value);
// The path of a member inside a record ("info" + "first_tab" -> "info.first_tab").
std::string MemberPath(const std::string& path, const std::string& member);

// The binding of record R: its name and one entry per bound member. Defined once per record by an
// explicit specialisation (see the top of this file).
template <class R>
struct RecordBinding;
template <class R>
const RecordBinding<R>& BindingOf();

// How one C++ type is read from and written to JSON. The primary template handles bound records;
// the specialisations below handle the member types that records use.
template <class T, class = void>
struct Codec {
  static void Read(const Json& in, T& out, const std::string& path, Issues& issues);
  static Json Write(const T& value);
};

// The event catalog's sample values of a member of type T (record_samples.h, which a file that binds
// records includes, through exports.h): each bound member keeps a pointer to it, so that a record
// bound once is also sampled. Null for a type the catalog does not sample (directive fields).
class SampleBuilder;
template <class T>
Json SampleMember(SampleBuilder& samples, const std::string& path, const std::string& value_path);

// Whether T has a binding (OET_REPLAY_BIND and its kin specialise this).
template <class T>
struct IsBound : std::false_type {};

// Integers of any width, range-checked. `kind` completes "... is not ", `range` completes "... is out of
// range for ".
struct IntegerWords {
  const char* kind;
  const char* range;
};
void ReadInteger(const Json& in, int64_t min, uint64_t max, const IntegerWords& words,
                 const std::string& path, Issues& issues, const std::function<void(int64_t)>& signed_out,
                 const std::function<void(uint64_t)>& unsigned_out);

template <class I>
struct IntegerCodec {
  static void Read(const Json& in, I& out, const std::string& path, Issues& issues) {
    ReadInteger(
        in, static_cast<int64_t>(std::numeric_limits<I>::min()),
        static_cast<uint64_t>(std::numeric_limits<I>::max()), {"an integer", Width()}, path, issues,
        [&out](int64_t v) { out = static_cast<I>(v); }, [&out](uint64_t v) { out = static_cast<I>(v); });
  }
  static Json Write(const I& value) { return value; }
  static const char* TypeName() { return Names().first; }
  static const char* Width() { return Names().second; }
  // The type's short name ("int32") and how messages name it ("a 32-bit integer").
  static std::pair<const char*, const char*> Names() {
    static constexpr std::pair<const char*, const char*> kNames[4][2] = {
        {{"uint8", "an unsigned 8-bit integer"}, {"int8", "an 8-bit integer"}},
        {{"uint16", "an unsigned 16-bit integer"}, {"int16", "a 16-bit integer"}},
        {{"uint32", "an unsigned 32-bit integer"}, {"int32", "a 32-bit integer"}},
        {{"uint64", "an unsigned 64-bit integer"}, {"int64", "a 64-bit integer"}},
    };
    constexpr size_t kSize = sizeof(I) == 1 ? 0 : sizeof(I) == 2 ? 1 : sizeof(I) == 4 ? 2 : 3;
    return kNames[kSize][std::numeric_limits<I>::is_signed ? 1 : 0];
  }
};
template <class I>
struct Codec<I, std::enable_if_t<std::is_integral_v<I> && !std::is_same_v<I, bool>>> : IntegerCodec<I> {};
// Enumerations take the integers of their underlying type, range-checked the same way.
template <class E>
struct Codec<E, std::enable_if_t<std::is_enum_v<E>>> {
  using Underlying = std::underlying_type_t<E>;
  static void Read(const Json& in, E& out, const std::string& path, Issues& issues) {
    Underlying value{};
    Issues own;
    Codec<Underlying>::Read(in, value, path, own);
    if (own.empty()) out = static_cast<E>(value);
    for (const auto& message : own.messages())
      issues.Add(message);
  }
  static Json Write(const E& value) { return static_cast<Underlying>(value); }
};

template <>
struct Codec<bool> {
  static void Read(const Json& in, bool& out, const std::string& path, Issues& issues);
  static Json Write(const bool& value) { return value; }
};

// Numbers, and the strings "NaN", "Infinity" and "-Infinity" (docs/event-format.md); written back the same
// way.
template <>
struct Codec<double> {
  static void Read(const Json& in, double& out, const std::string& path, Issues& issues);
  static Json Write(const double& value);
};

// Narrow texts: a JSON string (UTF-8, byte for byte), or any bytes as {"bytes": "61 E2 82"} (two hex
// digits a byte, spaces between bytes allowed). Written back the same way: a string when the text is
// valid UTF-8, the byte form otherwise.
template <>
struct Codec<std::string> {
  static void Read(const Json& in, std::string& out, const std::string& path, Issues& issues);
  static Json Write(const std::string& value);
};

template <>
struct Codec<Kst::CStringT<char>> {
  static void Read(const Json& in, Kst::CStringT<char>& out, const std::string& path, Issues& issues);
  static Json Write(const Kst::CStringT<char>& value);
};

// Wide texts: a JSON string (converted with Kst::Utf8ToWide), or any UTF-16 code units, lone
// surrogates included, as {"utf16": "0061 D800"} (four hex digits a unit, spaces between units
// allowed; where wchar_t holds UTF-32 a surrogate pair becomes one character). Written back as UTF-8
// when the text is well-formed, in the unit form otherwise.
template <>
struct Codec<Kst::CStringT<wchar_t>> {
  static void Read(const Json& in, Kst::CStringT<wchar_t>& out, const std::string& path, Issues& issues);
  static Json Write(const Kst::CStringT<wchar_t>& value);
};

// Written back as the ISO text, or 0 for the null time.
template <>
struct Codec<Kst::Time> {
  static void Read(const Json& in, Kst::Time& out, const std::string& path, Issues& issues);
  static Json Write(const Kst::Time& value);
};

// "YYYY-MM-DDTHH:MM:SS.mmmZ" -> time; nullopt when the text is not exactly that form or not a real date.
std::optional<Kst::Time> ParseIsoTime(const std::string& text);
std::string FormatIsoTime(Kst::Time time);

template <class T>
struct Codec<std::vector<T>> {
  static void Read(const Json& in, std::vector<T>& out, const std::string& path, Issues& issues) {
    if (!in.is_array()) {
      issues.AddField(path, Shown(in) + " is not an array");
      return;
    }
    out.assign(in.size(), T{});
    for (size_t i = 0; i < in.size(); ++i)
      Codec<T>::Read(in[i], out[i], path + "[" + std::to_string(i) + "]", issues);
  }
  static Json Write(const std::vector<T>& values) {
    Json out = Json::array();
    for (const auto& value : values)
      out.push_back(Codec<T>::Write(value));
    return out;
  }
};

template <class T>
struct Codec<std::map<std::string, T>> {
  static void Read(const Json& in, std::map<std::string, T>& out, const std::string& path, Issues& issues) {
    if (!in.is_object()) {
      issues.AddField(path, Shown(in) + " is not an object");
      return;
    }
    out.clear();
    for (auto it = in.begin(); it != in.end(); ++it)
      Codec<T>::Read(*it, out[it.key()], MemberPath(path, it.key()), issues);
  }
  static Json Write(const std::map<std::string, T>& values) {
    Json out = Json::object();
    for (const auto& [key, value] : values)
      out[key] = Codec<T>::Write(value);
    return out;
  }
};

template <class T>
struct Codec<std::optional<T>> {
  static void Read(const Json& in, std::optional<T>& out, const std::string& path, Issues& issues) {
    Codec<T>::Read(in, out.emplace(), path, issues);
  }
  static Json Write(const std::optional<T>& value) { return value ? Codec<T>::Write(*value) : Json(nullptr); }
};

// One bound member of record R.
template <class R>
class Field {
 public:
  template <class T>
  Field(const char* name, T R::*member)
      : name_(name),
        read_([member](const Json& in, R& record, const std::string& path, Issues& issues) {
          Codec<T>::Read(in, record.*member, path, issues);
        }),
        write_([member](const R& record) { return Codec<T>::Write(record.*member); }),
        sample_(&SampleMember<T>) {}

  const char* name() const { return name_; }
  void Read(const Json& in, R& record, const std::string& path, Issues& issues) const {
    read_(in, record, path, issues);
  }
  Json Write(const R& record) const { return write_(record); }
  Json Sample(SampleBuilder& samples, const std::string& path, const std::string& value_path) const {
    return sample_(samples, path, value_path);
  }

 private:
  const char* name_;
  std::function<void(const Json&, R&, const std::string&, Issues&)> read_;
  std::function<Json(const R&)> write_;
  Json (*sample_)(SampleBuilder&, const std::string&, const std::string&);
};

// A bound member, named after itself; used inside a BindingOf specialisation where R is the record.
#define OET_REPLAY_FIELD(member) ::oet_replay::Field<R>(#member, &R::member)

// The binding of record Type, shown in messages as `name`, with its fields (OET_REPLAY_FIELD entries).
// Write it at namespace oet_replay scope.
#define OET_REPLAY_BIND(Type, name, ...)                                      \
  template <>                                                                 \
  struct IsBound<Type> : std::true_type {};                                   \
  template <>                                                                 \
  const ::oet_replay::RecordBinding<Type>& BindingOf<Type>() {                \
    using R = Type;                                                           \
    static const ::oet_replay::RecordBinding<R> binding{name, {__VA_ARGS__}}; \
    return binding;                                                           \
  }
// The same for an input record of the library, shown under its own type name.
#define OET_REPLAY_RECORD(Type, ...) OET_REPLAY_BIND(Type, #Type, __VA_ARGS__)
// A record without members (a script may still give it as an empty object).
#define OET_REPLAY_EMPTY_RECORD(Type)                                  \
  template <>                                                          \
  struct IsBound<Type> : std::true_type {};                            \
  template <>                                                          \
  const ::oet_replay::RecordBinding<Type>& BindingOf<Type>() {         \
    static const ::oet_replay::RecordBinding<Type> binding{#Type, {}}; \
    return binding;                                                    \
  }

template <class R>
struct RecordBinding {
  const char* name;
  std::vector<Field<R>> fields;

  // Reads every member present in `in` (an object) into `record`; members not present keep their
  // value. `skip` names members of `in` that belong to the caller (a script line's own keys).
  void Read(const Json& in, R& record, const std::string& path, Issues& issues,
            const std::vector<std::string>& skip = {}) const {
    if (!in.is_object()) {
      issues.AddField(path, Shown(in) + " is not an object (" + name + ")");
      return;
    }
    for (auto it = in.begin(); it != in.end(); ++it) {
      if (std::find(skip.begin(), skip.end(), it.key()) != skip.end()) continue;
      const Field<R>* field = Find(it.key());
      if (field == nullptr) {
        issues.AddField(MemberPath(path, it.key()),
                        std::string("unknown field of ") + name + " (fields: " + Names() + ")");
      } else {
        field->Read(*it, record, MemberPath(path, it.key()), issues);
      }
    }
  }

  Json Write(const R& record) const {
    Json out = Json::object();
    for (const auto& field : fields)
      out[field.name()] = field.Write(record);
    return out;
  }

  const Field<R>* Find(const std::string& member) const {
    for (const auto& field : fields) {
      if (member == field.name()) return &field;
    }
    return nullptr;
  }

  std::string Names() const {
    std::string names;
    for (const auto& field : fields)
      names += (names.empty() ? "" : ", ") + std::string(field.name());
    return names.empty() ? "none" : names;
  }
};

template <class T, class Enable>
void Codec<T, Enable>::Read(const Json& in, T& out, const std::string& path, Issues& issues) {
  BindingOf<T>().Read(in, out, path, issues);
}

template <class T, class Enable>
Json Codec<T, Enable>::Write(const T& value) {
  return BindingOf<T>().Write(value);
}

}  // namespace oet_replay
