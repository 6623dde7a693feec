// What each route carries over and what it drops, by kind of record.
#pragma once

#include <span>
#include <string_view>

#include "front/CFileTypeManager.h"

namespace zelconvert {

/// A kind of record of an input.
struct RecordKind {
  std::string_view key;  ///< as the format calls it, "SS" or "69"; of a job its number or a block
  std::string_view name;
  TypeSet carriedTo;  ///< outputs that look otherwise without such records
};

/// All kinds of a type's records, in the order of its documentation; none for a type of two files,
/// whose log decides, and for one that no route carries.
std::span<const RecordKind> GetRecordKinds(int inputType);

/// The type whose kinds of records tell what a route from this one carries: of two files that of
/// the log, else the type itself.
int LogOf(int inputType);

}  // namespace zelconvert
