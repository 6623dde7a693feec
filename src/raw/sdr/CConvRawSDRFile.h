// Raw log to SDR, and the settings and notes of an SDR file to a raw log.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "io/CFileCE.h"
#include "raw/CRawFile.h"
#include "raw/CZelPoint.h"
#include "raw/sdr/SdrLines.h"

namespace zelconvert {

enum class SdrVersion : std::int32_t { Sdr2 = 0, Sdr33 = 1 };

class CConvRawSDRFile : public CConvRawFile {
 public:
  /// Both files are open and stay the caller's.
  CConvRawSDRFile(CRawFile* rawFile, CFileCE* sdrFile) : m_pRawFile(rawFile), m_pSdrFile(sdrFile) {}

  void SetSdrVersion(SdrVersion version) { m_SdrVersion = version; }

  /// SDR to raw: settings, atmosphere, prism and notes; observations and points are not carried
  /// over. False, with a text, for a file of the other version or without a header.
  [[nodiscard]] bool ConvertToRaw(Report& report) override;
  /// Raw to SDR: the observations, and the coordinates of each foresight. False, with a text, for a
  /// point name that SDR2 can't hold.
  [[nodiscard]] bool ConvertFromRaw(Report& report) override;

  /// The shot that would have given `point` from `station`, as one line of a raw log. No conversion
  /// makes one.
  /// kind: the record's tag. mode: 1 reckons azimuths from north, any other from east.
  /// reference, circle: decimal degrees, the azimuth at which the circle reads `circle`.
  /// unit: that of the circle reading in the line; the zenith is always decimal degrees.
  static std::wstring MakeSideshotLine(std::wstring_view kind, int mode, AngularUnit unit,
                                       const CZelPoint& station, double instrumentHeight,
                                       double rodHeight, double reference, double circle,
                                       const CZelPoint& point);

 private:
  const SdrLayout& Layout() const { return m_SdrVersion == SdrVersion::Sdr2 ? kSdr2 : kSdr33; }

  CRawFile* m_pRawFile;
  CFileCE* m_pSdrFile;
  SdrVersion m_SdrVersion = SdrVersion::Sdr33;
};

}  // namespace zelconvert
