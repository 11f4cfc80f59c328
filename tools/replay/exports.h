// The exports a session script can call, each registered once with the JSON names of its arguments.
//
// A registration turns a script line into a ready call: every argument record is read from the line's
// member of the same name with the record's binding (json_binding.h); an argument left out is a
// default record. Arguments taken by const reference are inputs. Arguments taken by non-const
// reference are records the export fills: the line may give their starting values, and after the
// call they are printed back under "filled".
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "testing/host_bookkeeping.h"
#include "tools/replay/json_binding.h"
#include "tools/replay/record_samples.h"

namespace oet_replay {

// What one call gave: its return value (null for an export that returns nothing) and the records it
// filled, by argument name (an empty object when it fills none).
struct CallResult {
  Json result;
  Json filled = Json::object();
};

// A call read from a script line, ready to run.
using PreparedCall = std::function<CallResult()>;

struct ExportEntry {
  // Qualified, as "OrboPTPAAP::TrackingPTInteractEvent"; an overload adds its arguments in parentheses,
  // "EventTrack::AddEventTrackingLog(codes, tags)". The output and the catalog name the call so.
  std::string name;
  // What a script calls it by: `name` without an overload's parentheses.
  std::string script_name;
  std::vector<std::string> arguments;
  std::vector<std::string> argument_types;  // the record of each argument, as its binding names it
  std::vector<bool> fills;                  // whether the export fills the argument
  const char* result_type = "";             // "int", "bool", "void", or "" for another type
  // For the event catalog: canonical arguments (an object with one member per argument) whose members
  // are all listed in `samples`.
  std::function<Json(SampleBuilder& samples)> sample;
  // Reads the arguments from the line (an object; its "call" and "note" members are the script's own
  // and skipped). Returns an empty function and reports to `issues` when anything is wrong.
  std::function<PreparedCall(const Json& line, Issues& issues)> prepare;
};

// Every export a script can call, in registration order.
const std::vector<ExportEntry>& Exports();
// The export of that name, or null.
const ExportEntry* FindExport(const std::string& name);
// The export a script line calls: the one registered under `script_name` (its "call"), or, among
// overloads sharing that name, the one with the fewest arguments that takes every argument the line
// gives. A full name with its parentheses calls that overload. Null, with the reason in `issues`,
// when there is none or the arguments fit two overloads alike.
const ExportEntry* ResolveExport(const std::string& script_name, const Json& line, Issues& issues);

// The members of a script line that belong to the script itself rather than to an export's
// arguments or a directive's fields.
inline const std::vector<std::string>& ScriptKeys() {
  static const std::vector<std::string> keys{"call", "host", "note"};
  return keys;
}

// The entry of that name in a table of exports or directives, or null.
template <class Entry>
const Entry* FindByName(const std::vector<Entry>& entries, const std::string& name) {
  for (const auto& entry : entries) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

// True on this thread while a prepared call is inside the export itself (not reading or writing its
// records): fault-injection tests use it to fail only what the export does.
inline thread_local bool t_in_export = false;

namespace detail {

struct InExport {
  InExport() { t_in_export = true; }
  ~InExport() { t_in_export = false; }
  InExport(const InExport&) = delete;
  InExport& operator=(const InExport&) = delete;
};

// Inside an export's adapter, marks the tool's own work around the export (building and reading back
// its arguments) as outside the export.
struct OutsideExport {
  OutsideExport() : was_in_export(t_in_export) { t_in_export = false; }
  ~OutsideExport() { t_in_export = was_in_export; }
  OutsideExport(const OutsideExport&) = delete;
  OutsideExport& operator=(const OutsideExport&) = delete;
  const bool was_in_export;
};

template <class P>
using RecordOf = std::remove_cv_t<std::remove_reference_t<P>>;

template <class T>
struct IsVector : std::false_type {};
template <class T>
struct IsVector<std::vector<T>> : std::true_type {};
template <class T>
struct IsMap : std::false_type {};
template <class K, class V, class C>
struct IsMap<std::map<K, V, C>> : std::true_type {};

// How the catalog names an argument's type: a bound record by its binding's name, anything else by
// its kind.
template <class T>
std::string ArgumentTypeName() {
  if constexpr (std::is_same_v<T, bool>) {
    return "bool";
  } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
    return "integer";
  } else if constexpr (std::is_floating_point_v<T>) {
    return "number";
  } else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, Kst::CStringT<char>> ||
                       std::is_same_v<T, Kst::CStringT<wchar_t>>) {
    return "text";
  } else if constexpr (IsVector<T>::value) {
    return "array of " + ArgumentTypeName<typename T::value_type>();
  } else if constexpr (IsMap<T>::value) {
    return "object";
  } else {
    return BindingOf<T>().name;
  }
}

template <class P>
constexpr bool kFills = std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

template <class Ret, class... Params, size_t... I>
ExportEntry MakeExport(std::string name, Ret (*fn)(Params...),
                       std::array<const char*, sizeof...(Params)> names, std::index_sequence<I...>) {
  ExportEntry entry;
  entry.script_name = name.substr(0, name.find('('));
  entry.name = std::move(name);
  entry.arguments = {names[I]...};
  entry.argument_types = {ArgumentTypeName<RecordOf<Params>>()...};
  entry.fills = {kFills<Params>...};
  entry.result_type = std::is_void_v<Ret>         ? "void"
                      : std::is_same_v<Ret, bool> ? "bool"
                      : std::is_same_v<Ret, int>  ? "int"
                                                  : "";
  entry.sample = [names](SampleBuilder& samples) {
    Json arguments = Json::object();
    ((arguments[names[I]] = Sampler<RecordOf<Params>>::Sample(samples, names[I], names[I])), ...);
    return arguments;
  };
  const std::string export_name = entry.name;
  entry.prepare = [fn, names, export_name](const Json& line, Issues& issues) -> PreparedCall {
    auto records = std::make_shared<std::tuple<RecordOf<Params>...>>();
    for (auto it = line.begin(); it != line.end(); ++it) {
      const bool known =
          std::find(ScriptKeys().begin(), ScriptKeys().end(), it.key()) != ScriptKeys().end() ||
          ((it.key() == names[I]) || ...);
      if (!known) {
        std::string list;
        ((list += (I == 0 ? "" : ", ") + std::string(names[I])), ...);
        issues.AddField(it.key(), "unknown argument of " + export_name +
                                      " (arguments: " + (list.empty() ? std::string("none") : list) + ")");
      }
    }
    ((line.contains(names[I])
          ? Codec<RecordOf<Params>>::Read(line[names[I]], std::get<I>(*records), names[I], issues)
          : void()),
     ...);
    if (!issues.empty()) return nullptr;
    return [fn, names, records]() {
      CallResult out;
      if constexpr (std::is_void_v<Ret>) {
        InExport in_export;
        std::apply(fn, *records);
      } else {
        Ret result = [&] {
          InExport in_export;
          return std::apply(fn, *records);
        }();
        out.result = std::move(result);
      }
      oet_testing::HostBookkeeping printing;  // the tool's own work: no host call of the export
      ((kFills<Params> ? void(out.filled[names[I]] = Codec<RecordOf<Params>>::Write(std::get<I>(*records)))
                       : void()),
       ...);
      return out;
    };
  };
  return entry;
}

}  // namespace detail

// Registers an export under its qualified name with one JSON name per argument:
//   Export("OrboPTPAAP::TrackingPTInteractEvent", &OrboPTPAAP::TrackingPTInteractEvent, {"tracking", "info"})
template <class Ret, class... Params>
ExportEntry Export(std::string name, Ret (*fn)(Params...), std::array<const char*, sizeof...(Params)> names) {
  return detail::MakeExport(std::move(name), fn, names, std::index_sequence_for<Params...>{});
}

}  // namespace oet_replay
