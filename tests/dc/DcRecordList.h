// Every record of a DC file but those of roads, without its type: what the tests do with one they
// do with all.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "dc/CDcFile.h"

namespace zelconvert {

/// A field of some record.
using FieldRef = std::variant<std::wstring*, double*, std::int32_t*, wchar_t*, bool*>;

/// A column of some record. kind: the index of its member, 0 if it has none.
struct AnyColumn {
  std::size_t kind;
  int start, width;
  TextForm text;
  int decimals;
  RealForm real;
  IntegerForm integer;
  Choice choice;
  bool always;
  std::wstring_view constant;
};

struct RecordKind {
  std::wstring name;  ///< in golden-lines/
  std::string structure;
  std::wstring_view head;
  std::vector<AnyColumn> columns;

  /// Gives `fill` the subtype and the fields of a new record, and writes it. subtype: empty for the
  /// record's own.
  using Fill = std::function<void(std::wstring& subtype, const std::vector<FieldRef>& fields)>;
  void (*write)(CDcFile& file, std::wstring_view subtype, const Fill& fill);
  /// Reads a line and gives `fill` what was read.
  std::int32_t (*read)(std::wstring_view line, const Fill& fill);
};

const std::vector<RecordKind>& RecordKinds();

}  // namespace zelconvert
