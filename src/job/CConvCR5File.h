// Both directions between a CR5 file and a job.
#pragma once

#include <cstdint>

#include "convert/ConversionBase.h"
#include "io/CFileCE.h"
#include "job/CJobFile.h"

namespace zelconvert {

/// Carried over: number or name, description, and coordinates.
class CConvCR5File : public CConvFile<CFileCE, CJobFile> {
 public:
  /// Both files open. sequential: make a CR5 file with a record for every number between the first
  /// and the last; when a CR5 file is read it makes no difference.
  CConvCR5File(CFileCE* cr5File, CJobFile* job, bool sequential)
      : CConvFile(cr5File, job), m_bSequential(sequential) {}

  /// Of the CR5 file's coordinates when it is read, and of the job that is made: 0 metres, 1
  /// international feet, 2 US survey feet.
  void SetUnits(int units) { m_nUnits = static_cast<std::uint16_t>(units); }

  /// CR5 to job: a point for every record that is in use, named by its number. The job is new and
  /// empty. No texts.
  [[nodiscard]] bool ConvertToNative(Report& report) override;
  /// Job to CR5. False, with a text, if a point's name isn't a number of at most seven digits; the
  /// CR5 file then holds a header. Throws std::out_of_range for a sequential file of no points.
  [[nodiscard]] bool ConvertFromNative(Report& report) override;

 private:
  bool m_bSequential;
  std::uint16_t m_nUnits = 0;
};

}  // namespace zelconvert
