// A DC file into an ILJ file: header, notes, positions, names of data files and the coordinate
// system, line for line. Observations have no ILJ form in this direction.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "convert/CConvertProgress.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"

namespace zelconvert {

/// One object serves one conversion. The units of the first header hold for the whole file; what
/// stands in front of it has no lengths.
class CConvDCtoILJ : public CConvFile<CDcFile, CTextFile> {
 public:
  /// Both files open. False, with a text, at the first record that has no ILJ form and without
  /// which the rest means nothing; other such records are passed over, with a text as well. Throws
  /// ConversionFailure for a header line that is too short.
  bool Convert(CDcFile& dcFile, CTextFile& iljFile, StringList& messages, StringList& files);

 private:
  enum class Outcome { Carried, Unreadable, Refused };
  struct Handler {
    std::int32_t type;  // of the DC record
    std::wstring_view label;
    bool fatal;
    Outcome (CConvDCtoILJ::*run)(std::wstring_view line);
  };
  static const Handler kHandlers[];
  static const Handler* FindHandler(std::int32_t type);

  bool CarryLine(const Handler& handler);
  template <class Record>
  Outcome Run(std::wstring_view line);

  // One for each record that is carried over; false if that can't be done.
  bool Carry(const tDC_HEADERRecord& header);
  bool Carry(const tDC_NOTERecord& note);
  bool Carry(tDC_GPS_POSITIONRecord& position);
  bool Carry(tDC_LOCAL_POSITIONRecord& position);
  bool Carry(tDC_GRID_POSITIONRecord& position);
  bool Carry(const tDC_POST_PROCESSRecord& file);
  bool Carry(tDC_DATUMRecord& datum);
  bool Carry(const tDC_DATUM_GRIDRecord& grid);
  bool Carry(const tDC_ELLIPSOIDRecord& ellipsoid);
  bool Carry(const tDC_HORIZONTAL_ADJUSTRecord& adjust);
  bool Carry(const tDC_LOCAL_SITERecord& site);
  bool Carry(tDC_PROJECTION_EXTRecord& projection);
  bool Carry(const tDC_PROJECTIONRecord& projection);
  bool Carry(tDC_COORDINATE_SYSTEMRecord& system);
  bool Carry(tDC_VERTICAL_ADJUSTRecord& adjust);
  bool Carry(tDC_COGORecord& settings);

  template <class Position>
  CMoskoJobRecordPoint& StartPoint(Position& position, std::int32_t coordinates);
  template <class Position>
  bool CarryGeodetic(Position& position, std::int32_t coordinates);
  /// Null for a projection that the file says is missing.
  template <class Projection>
  CMoskoJobRecordProjectionMappingPlane* StartPlane(const Projection& projection);

  /// The record of that type, empty but for date and time.
  template <IljRecordType Type>
  IljRecord<Type>& Start();
  /// Writes the record's line; false, with nothing written, if it isn't valid.
  bool Write(const CMoskoJobRecord& record);

  // Metres and radians. Null values are scaled like others: they stay null by far.
  double DistanceIn(double value) const;
  double AngleIn(double value) const;

  StringList* m_pMessages = nullptr;
  std::int64_t m_nNow = 0;  // the moment of the conversion, which DC records don't know
  std::optional<tDC_HEADERRecord> m_header;

  // Memory that is used again for every line.
  std::wstring m_strLine;
  std::wstring m_strIlj;
  std::tuple<tDC_HEADERRecord, tDC_NOTERecord, tDC_GPS_POSITIONRecord, tDC_LOCAL_POSITIONRecord,
             tDC_GRID_POSITIONRecord, tDC_POST_PROCESSRecord, tDC_DATUMRecord, tDC_DATUM_GRIDRecord,
             tDC_ELLIPSOIDRecord, tDC_HORIZONTAL_ADJUSTRecord, tDC_LOCAL_SITERecord,
             tDC_PROJECTION_EXTRecord, tDC_PROJECTIONRecord, tDC_COORDINATE_SYSTEMRecord,
             tDC_VERTICAL_ADJUSTRecord, tDC_COGORecord>
      m_dcRecords;
  IljRecords m_records;
  int m_nRecord = 0;  // lines carried over or passed over, from 0; deleted ones don't count
};

}  // namespace zelconvert
