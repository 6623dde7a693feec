// Values by name, for as many names as a survey has.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "io/NameSet.h"

namespace zelconvert::tools {

/// No name and no value has memory of its own, as each has in the maps of the standard library.
template <class Value>
class NameMap {
 public:
  /// Null if the name isn't there. It stays where it is until a name is added.
  const Value* Find(std::wstring_view name) const {
    const std::optional<std::size_t> number = m_names.Find(name);
    return number ? &m_values[*number] : nullptr;
  }
  Value* Find(std::wstring_view name) {
    return const_cast<Value*>(std::as_const(*this).Find(name));
  }

  /// The value of the name, likewise, and whether the name is new: then it is `value`.
  std::pair<Value&, bool> Insert(std::wstring_view name, Value value) {
    if (!m_names.Insert(name)) return {*Find(name), false};
    m_values.push_back(std::move(value));
    return {m_values.back(), true};
  }
  Value& operator[](std::wstring_view name) { return Insert(name, {}).first; }

 private:
  NameSet m_names;
  std::vector<Value> m_values;  // by the numbers of their names
};

}  // namespace zelconvert::tools
