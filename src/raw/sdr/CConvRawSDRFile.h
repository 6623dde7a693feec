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

/// A mark in a comment of a log that starts, ends or joins a line or a curve.
enum class NoteMark : std::int32_t {
  None = 0,
  BEG = 1,
  BC = 2,
  END = 3,
  EC = 4,
  C2 = 5,
  C3 = 6,
  CP1 = 7,
  CP2 = 8,
  CP3 = 9,
  JFS = 10,
  JN = 11,
  JNS = 12,
  JP = 13,
  JT = 14,
  R3 = 15,
  SS = 16,
};

/// The mark at the start of a comment's text. `value` is what stands behind a mark of two letters,
/// and empty for a text of less than four characters.
///   "BEG" BEG   "C25" C2   "C2 5" C2 " 5"   "JP 17" JP " 17"   "JNX" JN   "CP12" None
NoteMark ParseNoteMark(std::wstring_view text, std::wstring_view& value);

/// The record code of a line of an SDR file, 0 to 13; -1 if it is none.
int GetSdrRecordCode(std::wstring_view line);
/// The index of a line's derivation ("F1" 0 ... "TA" 28); -1 if it is none.
int GetSdrDerivation(std::wstring_view line);

class CConvRawSDRFile : public CConvRawFile {
 public:
  /// Both files are open and stay the caller's.
  CConvRawSDRFile(CRawFile* rawFile, CFileCE* sdrFile) : m_pRawFile(rawFile), m_pSdrFile(sdrFile) {}

  void SetSdrVersion(SdrVersion version) { m_SdrVersion = version; }

  /// SDR to raw: settings, atmosphere, prism and notes; observations and points are not carried
  /// over. False, with a text, for a file of the other version or without a header.
  bool ConvertToRaw(Report& report) override;
  /// Raw to SDR: the observations, and the coordinates of each foresight. False, with a text, for a
  /// point name that SDR2 can't hold.
  bool ConvertFromRaw(Report& report) override;

  /// The shot that would have given `point` from `station`, as one line of a raw log.
  /// kind: the record's tag. mode: 1 reckons azimuths from north, any other from east.
  /// reference, circle: decimal degrees, the azimuth at which the circle reads `circle`.
  /// unit: that of the circle reading in the line; the zenith is always decimal degrees.
  static std::wstring MakeSideshotLine(std::wstring_view kind, int mode, std::int32_t unit,
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
