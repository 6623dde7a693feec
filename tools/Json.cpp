#include "tools/Json.h"

#include <nlohmann/json.hpp>

#include "tools/Printable.h"

namespace zelconvert::tools {
namespace {

using nlohmann::ordered_json;

ordered_json Convert(const Json& json);

template <class Value>
ordered_json ConvertValue(const Value& value) {
  return value;
}
ordered_json ConvertValue(const Json::List& list) {
  auto array = ordered_json::array();
  for (const Json& each : list) array.push_back(Convert(each));
  return array;
}
ordered_json ConvertValue(const Json::Object& fields) {
  auto object = ordered_json::object();
  for (const auto& [name, value] : fields) object[name] = Convert(value);
  return object;
}

ordered_json Convert(const Json& json) {
  return std::visit([](const auto& value) { return ConvertValue(value); }, json.m_value);
}

// Bytes of names that are no UTF-8 become U+FFFD.
std::string Write(const ordered_json& json, int indent = -1) {
  return PrintableLines(json.dump(indent, ' ', false, ordered_json::error_handler_t::replace));
}

}  // namespace

std::string ToLine(const Json& json) {
  return Write(Convert(json)) + "\n";
}

std::string Quoted(const std::string& text) {
  return Write(text);
}

std::string ToLines(const Json& json) {
  constexpr int kIndent = 2;
  return Write(Convert(json), kIndent) + "\n";
}

}  // namespace zelconvert::tools
