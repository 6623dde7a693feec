// Output for programs.
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zelconvert::cli {

/// A value; texts are UTF-8, and the fields of an object keep their order.
struct Json {
  using List = std::vector<Json>;
  using Object = std::vector<std::pair<std::string, Json>>;

  template <class Value>
  Json(Value value) : m_value(std::move(value)) {}

  std::variant<std::nullptr_t, bool, int, std::string, List, Object> m_value;
};

/// On one line, ended.
std::string ToLine(const Json& json);
/// On several lines, the last one ended.
std::string ToLines(const Json& json);

}  // namespace zelconvert::cli
