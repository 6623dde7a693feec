// Job and DC, both ways. A job becomes a DC file with header, job line, coordinate system and one
// grid position per point; a DC file becomes a job with its settings, coordinate system, points and
// roads. Nothing is computed but units: a job holds metres and radians, a DC file display units.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "convert/CConvertProgress.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/CFeatureCodeData.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "job/CJobFile.h"

namespace zelconvert {

class CConvDcFile : public CConvFile<CDcFile, CJobFile> {
 public:
  /// version: dialect of a DC file that is written, 0 to 3: "FX V07-50", "FX V07-70" and twice
  /// "FX V10-70". Others can't be written.
  CConvDcFile(CDcFile* dcFile, CJobFile* jobFile, int version);
  ~CConvDcFile() override;

  /// DC to job.
  bool ConvertToNative(Report& report) override;
  /// Job to DC. Tells of names that don't fit.
  bool ConvertFromNative(Report& report) override;

  /// Switches feature records on: they follow the position of each point that `data` can decode.
  void SetFeatureData(std::unique_ptr<CFeatureCodeData> data);

 private:
  // Job to DC, in the order of the file.
  void WriteHeaderRecords();
  bool WriteCoordinateSystemRecords();
  void WriteCogoRecord(const CGlkProjectionRecord* system);
  bool FindOldSystem(CGlkProjectionRecord& system);
  bool WritePoints(CConvertProgress& progress);
  bool WritePoint(const JOB_POINT& point);
  bool ReadFeatureData(std::uint32_t link, FEATURE_SET& features);
  void WriteFeatureRecords(const FEATURE_SET& features);
  void WriteFeatureAttribute(const FEATURE_ATTRIBUTE& attribute);

  int m_nVersion;
  std::unique_ptr<CFeatureCodeData> m_pFeatureData;
  bool m_bFeatureData = false;

  JOB_HEADER m_JobHeader;              // the job's settings
  tDC_GRID_POSITIONRecord m_Position;  // the point being written; its memory is reused
  FEATURE_SET m_Features;
};

}  // namespace zelconvert
