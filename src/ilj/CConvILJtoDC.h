// An ILJ file into a DC file: every line that has a DC form becomes one record, in the order of the
// lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/CConvertProgress.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"

namespace zelconvert {

/// One object serves one conversion. An ILJ file holds metres and radians, and mathematical angles
/// for azimuths; a DC file the units of its header, and azimuths from north or south. The lines
/// that say which (JOBMO and PRJCG) may stand anywhere, so a first pass looks for them.
class CConvILJtoDC : public CConvFile<CTextFile, CDcFile> {
 public:
  /// Both files open. False, with a text for what went wrong, if the file isn't one of ILJ lines,
  /// has no units or has a broken record without which the rest means nothing; a line that is
  /// passed over has its text as well. Throws ConversionFailure for a date that no calendar has.
  bool Convert(CDcFile& dcFile, CTextFile& iljFile, StringList& messages, StringList& files);

 private:
  enum class Outcome { Carried, Unreadable, Refused };
  struct Handler {
    Outcome (CConvILJtoDC::*run)(std::wstring_view fields);  // null: not carried over
    bool fatal;
  };
  static const Handler kHandlers[];

  bool InitialScan();
  void ScanRecord(IljRecordType type, std::wstring_view fields);
  void WriteHead();
  std::wstring HeaderTime() const;
  bool CarryLines(CConvertProgress& progress, StringList& messages);
  bool CarryLine(std::wstring_view tag, std::wstring_view fields, StringList& messages);
  template <IljRecordType Type>
  Outcome Run(std::wstring_view fields);

  // One for each record that is carried over; false if that can't be done.
  bool Carry(CMoskoJobRecordJobMode& record);
  bool Carry(CMoskoJobRecordJobSupportFile& record);
  bool Carry(CMoskoJobRecordUserNote& record);
  bool Carry(CMoskoJobRecordSystemNote& record);
  bool Carry(CMoskoJobRecordPoint& record);
  bool Carry(CMoskoJobRecordSurveyStart& record);
  bool Carry(CMoskoJobRecordSurveyGpsQC& record);
  bool Carry(CMoskoJobRecordOffsetGroundObservation& record);
  bool Carry(CMoskoJobRecordOffsetGroundVector& record);
  bool Carry(CMoskoJobRecordOffsetOccupyPoint& record);
  bool Carry(CMoskoJobRecordOffsetHeightInstrument& record);
  bool Carry(CMoskoJobRecordOffsetLaserObservation& record);
  bool Carry(CMoskoJobRecordOffsetHeightTarget& record);
  bool Carry(CMoskoJobRecordProjectionSystemName& record);
  bool Carry(CMoskoJobRecordProjectionDatum& record);
  bool Carry(CMoskoJobRecordProjectionEllipsoid& record);
  bool Carry(CMoskoJobRecordProjectionHorizontalAdjust& record);
  bool Carry(CMoskoJobRecordProjectionVerticalAdjust& record);
  bool Carry(CMoskoJobRecordProjectionMappingPlane& record);
  bool Carry(CMoskoJobRecordProjectionLocalSite& record);
  bool Carry(CMoskoJobRecordProjectionCogoSettings& record);

  bool CarryGridPoint(CMoskoJobRecordPoint& point);
  template <class Position>
  void FillPosition(Position& position, CMoskoJobRecordPoint& point) const;
  bool CarryDatumGrid(const CMoskoJobRecordProjectionDatum& datum);
  template <class Projection>
  void FillProjection(Projection& projection,
                      const CMoskoJobRecordProjectionMappingPlane& plane) const;
  bool WriteDataFile(const std::wstring& path);

  // Units of the DC file. DC_NULL if the job's aren't known.
  double DistanceOut(double metres) const;
  double AngleOut(double radians) const;
  /// From an angle anticlockwise from grid east to a clockwise one from north or south.
  double AzimuthOut(double radians) const;
  /// From an angle above the horizon to one from the zenith.
  double ZenithOut(double radians) const;
  /// The azimuth of an observation that may have none.
  double AzimuthOut(const CMoskoJobRecordFieldAngleAzimuth& angle) const;

  CMoskoJobRecordJobMode m_jobMode;
  CMoskoJobRecordProjectionCogoSettings m_cogoSettings;
  double m_lastTargetHeight = DC_NULL;  // metres; of the last one carried over

  // Memory that is used again for every line.
  std::wstring m_strLine;
  IljRecords m_records;
  tDC_GRID_POSITIONRecord m_gridPosition;
  tDC_GPS_POSITIONRecord m_gpsPosition;
  tDC_LOCAL_POSITIONRecord m_localPosition;
  int m_nRecord = 0;  // lines of the second pass, from 0
};

}  // namespace zelconvert
