// Both directions between a CR5 file and a job.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "convert/CConvertProgress.h"
#include "convert/ConversionBase.h"
#include "io/CFileCE.h"
#include "job/CJobFile.h"
#include "job/Cr5Records.h"

namespace zelconvert {

/// One object serves one conversion. Carried over: number or name, description, and coordinates.
class CConvCR5File : public CConvFile<CFileCE, CJobFile> {
 public:
  /// Both files open. sequential: make a CR5 file with a record for every number between the first
  /// and the last; when a CR5 file is read, its header tells.
  CConvCR5File(CFileCE* cr5File, CJobFile* job, bool sequential)
      : CConvFile(cr5File, job), m_bSequential(sequential) {}

  void SetSequential(bool sequential) { m_bSequential = sequential; }
  /// Of the CR5 file's coordinates when it is read, and of the job that is made: 0 metres, 1
  /// international feet, 2 US survey feet.
  void SetUnits(int units) { m_nUnits = static_cast<std::uint16_t>(units); }

  /// CR5 to job: a point for every record that is in use, named by its number. The job is new and
  /// empty. No texts.
  bool ConvertToNative(Report& report) override;
  /// Job to CR5. False, with a text, if a point's name isn't a number of at most seven digits; the
  /// CR5 file then holds a header. Throws std::out_of_range for a sequential file of no points.
  bool ConvertFromNative(Report& report) override;

 private:
  struct Totals {
    std::size_t points = 0;
    std::size_t alphanumeric = 0;  // names that are no numbers
  };
  using Records = std::vector<Cr5RecordBlock>;
  using SortedRecords = std::vector<const Cr5RecordBlock*>;

  bool ReadCr5Header();
  bool PrepareJob();
  bool CopyRecords(CConvertProgress& progress);
  void FillPoint(JOB_POINT& point, const CoordinateRecord& record) const;

  template <class Handler>
  bool ForEachPoint(CConvertProgress& progress, int pass, Handler readPoint);
  bool CountPoints(CConvertProgress& progress, Totals& totals);
  void TakeNumber(std::int32_t number);
  bool WriteCr5Header(const Totals& totals);
  bool CollectRecords(CConvertProgress& progress, int distanceUnit, Records& records,
                      StringList& messages);
  bool WritePlain(const SortedRecords& records);
  bool WriteSequential(const SortedRecords& records);
  bool WriteCr5Record(const Cr5RecordBlock& record);

  bool m_bSequential;
  std::int32_t m_nFirstPoint = 0;     // lowest number, 0: none yet
  std::int32_t m_nLastPoint = 0;      // highest number, likewise
  std::int32_t m_nRenumberStart = 0;  // 0: not set
  std::uint16_t m_nUnits = 0;         // of a CR5 file that is read
};

}  // namespace zelconvert
