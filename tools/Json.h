// Output for programs.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zelconvert::tools {

/// A value; texts are UTF-8 but for bytes of names, reals finite, and the fields of an object keep
/// their order. What is made of it is UTF-8 throughout.
struct Json {
  using List = std::vector<Json>;
  using Object = std::vector<std::pair<std::string, Json>>;

  template <class Value>
  Json(Value value) : m_value(std::move(value)) {}

  std::variant<std::nullptr_t, bool, int, std::int64_t, double, std::string, List, Object> m_value;
};

/// On one line, ended.
std::string ToLine(const Json& json);
/// On several lines, the last one ended.
std::string ToLines(const Json& json);
/// A text as JSON has it, with its quotation marks.
std::string Quoted(const std::string& text);

}  // namespace zelconvert::tools
