// Job and DC, both ways. A job becomes a DC file with header, job line, coordinate system and one
// grid position per point; a DC file becomes a job with its settings, coordinate system, points and
// roads. Nothing is computed but units: a job holds metres and radians, a DC file display units.
#pragma once

#include <memory>
#include <utility>

#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/CFeatureCodeData.h"
#include "job/CJobFile.h"

namespace zelconvert {

class CConvDcFile : public CConvFile<CDcFile, CJobFile> {
 public:
  /// version: dialect of a DC file that is written, 0 to 3: "FX V07-50", "FX V07-70" and twice
  /// "FX V10-70". Others can't be written.
  CConvDcFile(CDcFile* dcFile, CJobFile* jobFile, int version)
      : CConvFile(dcFile, jobFile), m_nVersion(version) {}

  /// DC to job.
  [[nodiscard]] bool ConvertToNative(Report& report) override;
  /// Job to DC. Tells of names that don't fit.
  [[nodiscard]] bool ConvertFromNative(Report& report) override;

  /// Switches feature records on: they follow the position of each point that `data` can decode.
  /// No route does so.
  void SetFeatureData(std::unique_ptr<CFeatureCodeData> data) { m_pFeatureData = std::move(data); }

 private:
  int m_nVersion;
  std::unique_ptr<CFeatureCodeData> m_pFeatureData;  // null: no feature records
};

}  // namespace zelconvert
