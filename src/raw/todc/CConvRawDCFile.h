// A raw field log as a DC file: one pass over the records with a memory across them. A setup, a
// backsight or the advance of a traverse each become several DC records in a fixed order; shots are
// reduced to slope distance, zenith angle and circle reading.
//
// CConvRawDCFile.cpp holds the pass and the table that says which subject answers which record. The
// subjects stand in files of their own: Job, Setup, Shots, Rounds, StakeOut, Gps, CoordinateSystem.
// RawPass.h has what they share.
#pragma once

#include <string>

#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "raw/CRawFile.h"

namespace zelconvert {

class CConvRawDCFile : public CConvRawFile {
 public:
  /// The files are open and stay the caller's. `version`: the dialect, 0 to 3; another one fails at
  /// the first MO. `jobPath`: a job whose points the log refers to; a path that is none of a job's
  /// counts for nothing, and a job that can't be read is a warning. `writeUnusedPoints`: those of
  /// its points that the log didn't write end the file.
  CConvRawDCFile(CRawFile* raw, CDcFile* dc, bool writeUnusedPoints, int version,
                 std::wstring jobPath);

  /// There is no way from DC to raw: true, and nothing done.
  [[nodiscard]] bool ConvertToRaw(Report& /*report*/) override { return true; }
  /// Runs once. Appends warnings and errors; on false the output is what was written so far.
  [[nodiscard]] bool ConvertFromRaw(Report& report) override;

 private:
  CRawFile* m_pRaw;
  CDcFile* m_pDc;
  bool m_bWriteUnusedPoints;
  int m_nVersion;
  std::wstring m_strJobPath;
};

}  // namespace zelconvert
