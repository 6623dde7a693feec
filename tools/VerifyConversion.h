// Whether what a conversion should have carried over has arrived.
#pragma once

#include <string>
#include <vector>

#include "convert/ConversionBase.h"
#include "tools/DiffSurveys.h"
#include "tools/ReadSurvey.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

struct ConvertedFiles {
  std::wstring input;  ///< of a pair of files the coordinates' one
  FileType inputType;
  std::wstring output;
  FileType outputType;
  std::wstring job = {};  ///< whose points a log was given; may be empty
};

struct Verification {
  bool isInputRead = false;
  bool isRead = false;   ///< both files could be read; nothing else counts without
  StringList messages;   ///< why not, as the library words it
  SurveyDiff missing;    ///< A is the input, B the output
  DiffOptions compared;  ///< with what tolerances
};

/// Whether outputs of this type can be read back.
bool CanVerify(FileType outputType);

/// Reads both and compares them in what the route carries, to the last digit that the output holds.
/// What only the output has isn't told. The input's points and shots are also read record by
/// record, without the conversion that is to be checked.
/// makeFolder: as of ReadOptions, once for either file.
Verification VerifyConversion(const ConvertedFiles& files, const FolderMaker& makeFolder);

}  // namespace zelconvert::tools
