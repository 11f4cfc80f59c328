#include "tools/replay/json_reader.h"

#include <unordered_set>
#include <utility>
#include <vector>

namespace oet_replay {
namespace {

// Builds the value event by event. Objects are filled by appending to their key-value vector (the
// ordered object's own lookup scans every key, which would make a line of n keys cost n * n).
class LineBuilder final : public nlohmann::json_sax<Json> {
 public:
  LineBuilder(Json& root, Issues& issues) : root_(root), issues_(issues) {}

  bool null() override { return Put(Json(nullptr)) != nullptr; }
  bool boolean(bool value) override { return Put(Json(value)) != nullptr; }
  bool number_integer(number_integer_t value) override { return Put(Json(value)) != nullptr; }
  bool number_unsigned(number_unsigned_t value) override { return Put(Json(value)) != nullptr; }
  bool number_float(number_float_t value, const string_t& /*text*/) override {
    return Put(Json(value)) != nullptr;
  }
  bool string(string_t& value) override { return Put(Json(std::move(value))) != nullptr; }
  bool binary(binary_t& value) override { return Put(Json::binary(std::move(value))) != nullptr; }

  bool start_object(std::size_t /*size*/) override { return Open(Json::object(), true); }
  bool start_array(std::size_t /*size*/) override { return Open(Json::array(), false); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& key) override {
    Frame& frame = open_.back();
    frame.key = std::move(key);
    if (!frame.keys.insert(frame.key).second) issues_.AddField(PathHere(), "given twice in one object");
    return true;
  }

  bool parse_error(std::size_t position, const std::string& last_token,
                   const nlohmann::detail::exception& error) override {
    if (dynamic_cast<const Json::out_of_range*>(&error) != nullptr) {
      // The only range error of the parser: a number beyond the range of a double.
      issues_.Add("malformed JSON: number out of range at line 1, column " + std::to_string(position) + ": " +
                  last_token);
    } else {
      std::string text = error.what();
      const size_t bracket = text.find("] ");
      if (!text.empty() && text[0] == '[' && bracket != std::string::npos) text.erase(0, bracket + 2);
      issues_.Add("malformed JSON: " + text);
    }
    return false;
  }

 private:
  struct Frame {
    Json* value;
    bool object;
    std::string key;                       // object: the key of the member being read
    std::unordered_set<std::string> keys;  // object: the keys read so far
  };

  // Places a finished value (or a container about to be filled) where the parser is, and returns it.
  Json* Put(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
      return &root_;
    }
    Frame& frame = open_.back();
    if (frame.object) {
      auto& members = frame.value->get_ref<Json::object_t&>();
      members.Container::emplace_back(std::move(frame.key), std::move(value));
      return &members.back().second;
    }
    auto& elements = frame.value->get_ref<Json::array_t&>();
    elements.push_back(std::move(value));
    return &elements.back();
  }

  // Refuses a container past the deepest nesting allowed, which stops the reading: every level costs
  // a frame and a value, so that depth is what bounds the memory a line of brackets can take.
  bool Open(Json container, bool object) {
    if (open_.size() >= static_cast<size_t>(kMaxNesting)) {
      issues_.AddField(PathHere(), "nested deeper than " + std::to_string(kMaxNesting) + " levels");
      return false;
    }
    Json* value = Put(std::move(container));
    open_.push_back(Frame{value, object, {}, {}});
    return true;
  }

  bool Close() {
    open_.pop_back();
    return true;
  }

  // The path of the value the parser is at (the member whose key was read last, or the next entry of
  // an array), as the binder writes paths ("info.first_results[1].section"). Built only for messages.
  std::string PathHere() const {
    std::string path;
    for (size_t i = 0; i < open_.size(); ++i) {
      const Frame& frame = open_[i];
      const bool innermost = i + 1 == open_.size();
      if (frame.object) {
        path = MemberPath(path,
                          innermost ? frame.key : frame.value->get_ref<const Json::object_t&>().back().first);
      } else {
        path += "[" + std::to_string(frame.value->size() - (innermost ? 0 : 1)) + "]";
      }
    }
    return path;
  }

  Json& root_;
  Issues& issues_;
  std::vector<Frame> open_;
};

}  // namespace

bool ParseLine(const std::string& text, Json& out, Issues& issues) {
  // The parser takes a NUL byte for the end of its input and would ignore the rest of the line; no
  // JSON text holds one (inside a string it must be written \u0000).
  const size_t nul = text.find('\0');
  if (nul != std::string::npos) {
    issues.Add("malformed JSON: a NUL byte at line 1, column " + std::to_string(nul + 1));
    return false;
  }
  Issues own;
  LineBuilder builder(out, own);
  const bool parsed = Json::sax_parse(text, &builder, Json::input_format_t::json, true, false);
  for (const auto& message : own.messages())
    issues.Add(message);
  return parsed && own.empty();
}

}  // namespace oet_replay
