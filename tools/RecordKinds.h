// The kinds of records that a file may have: their names, what each route carries over, what it
// drops and what it changes. What is told to users (types, docs/losses.md, counts) and what a
// verification expects to arrive is taken from here.
#pragma once

#include <span>
#include <string_view>

#include "front/CFileTypeManager.h"
#include "tools/FormatLimits.h"

namespace zelconvert::tools {

struct RecordKind {
  std::string_view tag;  ///< "SS" or "69", at most seven characters; of a job its number or a block
  std::string_view name;  ///< of many
  TypeSet carriedTo;      ///< outputs that look otherwise without such records
  KindSet gives = {};     ///< of a survey, all of which arrives where all that give it are carried
};

/// What is carried, but comes out as something else.
struct RecordChange {
  std::string_view records;  ///< tags of their kinds, as in "TR, SS"
  TypeSet outputs;
  std::string_view text;  ///< what becomes of them, without a point at its end
};

/// All kinds of a type's records, in the order of its documentation; of two files those of the log.
/// None for a type that is only written.
std::span<const RecordKind> GetRecordKinds(int type);

/// What routes from a type change, in the order of its records; of two files those of the log.
std::span<const RecordChange> GetRecordChanges(int type);

/// What of a survey of the input a conversion carries over as a whole.
KindSet GetCarriedKinds(FileType input, FileType output);
/// Whether the input's type has such records, and the conversion leaves them out.
bool Drops(FileType input, FileType output, std::string_view tag);

/// The type whose records count: of two files that of the log, else the type itself.
int LogOf(int inputType);

}  // namespace zelconvert::tools
