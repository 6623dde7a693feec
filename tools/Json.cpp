#include "tools/Json.h"

#include <nlohmann/json.hpp>

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

}  // namespace

std::string ToLine(const Json& json) {
  return Convert(json).dump() + "\n";
}

std::string Quoted(const std::string& text) {
  return ordered_json(text).dump();
}

std::string ToLines(const Json& json) {
  constexpr int kIndent = 2;
  return Convert(json).dump(kIndent) + "\n";
}

}  // namespace zelconvert::tools
