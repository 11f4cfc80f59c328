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
    if (!frame.keys.insert(key).second) issues_.AddField(PathTo(key), "given twice in one object");
    frame.key = std::move(key);
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

  bool Open(Json container, bool object) {
    Json* value = Put(std::move(container));
    open_.push_back(Frame{value, object, {}, {}});
    return true;
  }

  bool Close() {
    open_.pop_back();
    return true;
  }

  // The path of member `key` of the innermost open object, as the binder writes paths
  // ("info.first_results[1].section"). Built only for messages.
  std::string PathTo(const std::string& key) const {
    std::string path;
    for (size_t i = 0; i + 1 < open_.size(); ++i) {
      const Frame& frame = open_[i];
      if (frame.object) {
        const auto& members = frame.value->get_ref<const Json::object_t&>();
        path = MemberPath(path, members.back().first);
      } else {
        path += "[" + std::to_string(frame.value->size() - 1) + "]";
      }
    }
    return MemberPath(path, key);
  }

  Json& root_;
  Issues& issues_;
  std::vector<Frame> open_;
};

}  // namespace

bool ParseLine(const std::string& text, Json& out, Issues& issues) {
  Issues own;
  LineBuilder builder(out, own);
  const bool parsed = Json::sax_parse(text, &builder, Json::input_format_t::json, true, false);
  for (const auto& message : own.messages())
    issues.Add(message);
  return parsed && own.empty();
}

}  // namespace oet_replay
