// The DC file: a text file of fixed-column records, one a line, the hub that job, raw and interlock
// data go through. CDcFile opens it, says what a line is, and reads and writes every record; it
// keeps no record and decides nothing about the meaning of one.
//
//   std::wstring line;
//   tDC_GRID_POSITIONRecord position;
//   while (file.ReadLine(line)) {
//     if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) continue;
//     if (CDcFile::GetRecordType(line) != position.kType) continue;  // any other type
//     CDcFile::ReadGridPosition(line, position);
//   }
//
// Readers don't validate: a short line gives empty fields, text that is no number gives 0. Every
// field but those named in DcColumns.h as constants is set from the line, so a record can be reused
// line after line without allocating.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "dc/DcRecords.h"
#include "dc/RecordColumns.h"
#include "io/CFileCE.h"

namespace zelconvert {

/// Number of known subtypes, which is also the index of an unknown one.
inline constexpr int kDcSubtypeCount = 98;
/// Index of "DL": the record is deleted, whatever its type.
inline constexpr int kDcDeletedSubtype = 25;

class CDcFile : public CFileCE {
 public:
  CDcFile() : CFileCE(false) {}
  ~CDcFile() override;

  /// Creates or empties the file.
  bool OpenForWrite(const std::wstring& path);
  bool OpenForRead(const std::wstring& path);
  /// Back to the first line, behind a UTF-8 mark.
  bool Rewind();
  static std::wstring GetDefaultExtension() { return L"DC"; }

  // What a line is. ReadLine and WriteLine are those of CFileCE.

  /// The first two characters as a base-36 number in either case; 0 if they are none, such as "#x".
  static std::int32_t GetRecordType(std::wstring_view line);
  /// Index of columns 2 and 3 in the table of subtypes; 98 if unknown. Case matters.
  static int GetRecordSubtype(std::wstring_view line);
  /// `index` is below 98.
  static std::wstring_view GetSubtypeString(int index);
  /// Empty, or blanks and tabs alone: no record, passed over by every conversion.
  static bool IsBlank(std::wstring_view line);
  /// Subtype "DL": skipped by every conversion before its type is looked at.
  static bool IsDeleted(std::wstring_view line);

  // Readers. All return true but where a comment says otherwise; the subtype is always set.

  /// A header line may lack its last digit, but none before it.
  static constexpr std::size_t kShortestHeader = 45;
  /// Throws ConversionFailure when the line is shorter.
  static bool ReadHeader(std::wstring_view line, tDC_HEADERRecord& record);
  static bool ReadJob(std::wstring_view line, tDC_JOBRecord& record);
  static bool ReadNote(std::wstring_view line, tDC_NOTERecord& record);
  /// False for an empty line.
  static bool ReadPostProcess(std::wstring_view line, tDC_POST_PROCESSRecord& record);
  static bool ReadCogo(std::wstring_view line, tDC_COGORecord& record);
  static bool ReadCogoOld(std::wstring_view line, tDC_COGO_OLDRecord& record);
  /// Sets the type alone.
  static bool ReadBacksight(std::wstring_view line, tDC_BACKSIGHTRecord& record);
  static bool ReadGridPosition(std::wstring_view line, tDC_GRID_POSITIONRecord& record);
  /// False for an empty line.
  static bool ReadGpsPosition(std::wstring_view line, tDC_GPS_POSITIONRecord& record);
  /// False for an empty line.
  static bool ReadLocalPosition(std::wstring_view line, tDC_LOCAL_POSITIONRecord& record);
  static bool ReadProjection(std::wstring_view line, tDC_PROJECTIONRecord& record);
  static bool ReadProjectionExt(std::wstring_view line, tDC_PROJECTION_EXTRecord& record);
  static bool ReadEllipsoid(std::wstring_view line, tDC_ELLIPSOIDRecord& record);
  static bool ReadLocalSite(std::wstring_view line, tDC_LOCAL_SITERecord& record);
  static bool ReadDatum(std::wstring_view line, tDC_DATUMRecord& record);
  static bool ReadDatumGrid(std::wstring_view line, tDC_DATUM_GRIDRecord& record);
  static bool ReadHorizontalAdjust(std::wstring_view line, tDC_HORIZONTAL_ADJUSTRecord& record);
  static bool ReadVerticalAdjust(std::wstring_view line, tDC_VERTICAL_ADJUSTRecord& record);
  static bool ReadCoordinateSystem(std::wstring_view line, tDC_COORDINATE_SYSTEMRecord& record);
  static bool ReadZoneLabel(std::wstring_view line, tDC_ZONE_LABELRecord& record);
  static bool ReadSetup(std::wstring_view line, tDC_SETUP_Record& record);

  /// Where names that a column cuts are told of, each once; the list stays the caller's.
  void SetMessages(StringList* messages) { m_CutNames.SetMessages(messages); }

  // Writers, one line each; the result is that of WriteLine. Where the format of a record fixes the
  // subtype it is written whatever the record holds, else the record's is.

  bool WriteHeader(const tDC_HEADERRecord& record);
  bool WriteJob(const tDC_JOBRecord& record);
  bool WriteNote(const tDC_NOTERecord& record);       ///< "13NM"
  bool WriteNoteKeyed(const tDC_NOTERecord& record);  ///< "13KI"
  bool WriteNoteTime(const tDC_NOTERecord& record);   ///< "13TM"
  bool WritePostProcess(const tDC_POST_PROCESSRecord& record);
  bool WriteScale(const tDC_SCALERecord& record);
  bool WriteCogo(const tDC_COGORecord& record);
  bool WriteCogoOld(const tDC_COGO_OLDRecord& record);

  bool WriteStation(const tDC_STATIONRecord& record);
  bool WriteStationExt(const tDC_STATION_EXTRecord& record);
  bool WriteBacksight(const tDC_BACKSIGHTRecord& record);
  bool WriteBacksightExt(const tDC_BACKSIGHT_EXTRecord& record);
  bool WriteGridPosition(const tDC_GRID_POSITIONRecord& record);
  bool WriteGpsPosition(const tDC_GPS_POSITIONRecord& record);
  bool WriteGpsPosition2(const tDC_GPS_POSITION2Record& record);
  bool WriteLocalPosition(const tDC_LOCAL_POSITIONRecord& record);
  bool WriteDeletedPosition(const tDC_DELETED_POSITIONRecord& record);

  bool WriteVector(const tDC_VECTORRecord& record);
  bool WriteObservation(const tDC_OBSERVATIONRecord& record);
  bool WriteObservationSigma(const tDC_OBSERVATION_SIGMARecord& record);
  bool WriteObservationText(const tDC_OBSERVATION_TEXTRecord& record);  ///< always "D9F1"
  bool WriteAngleDistance(const tDC_ANGLE_DISTANCERecord& record);
  bool WriteAngleDistanceKeyed(const tDC_ANGLE_DISTANCE_KEYEDRecord& record);
  bool WriteStationHeight(const tDC_STATION_HEIGHTRecord& record);
  bool WriteTargetHeight(const tDC_TARGET_HEIGHTRecord& record);
  bool WriteName(const tDC_NAMERecord& record);

  bool WriteProjection(const tDC_PROJECTIONRecord& record);
  bool WriteProjectionExt(const tDC_PROJECTION_EXTRecord& record);
  bool WriteEllipsoid(const tDC_ELLIPSOIDRecord& record);
  bool WriteLocalSite(const tDC_LOCAL_SITERecord& record);
  bool WriteDatum(const tDC_DATUMRecord& record);
  bool WriteDatumGrid(const tDC_DATUM_GRIDRecord& record);
  bool WriteHorizontalAdjust(const tDC_HORIZONTAL_ADJUSTRecord& record);
  bool WriteVerticalAdjust(const tDC_VERTICAL_ADJUSTRecord& record);
  bool WriteCoordinateSystem(const tDC_COORDINATE_SYSTEMRecord& record);
  bool WriteZoneLabel(const tDC_ZONE_LABELRecord& record);

  bool WriteFeatureCode(const tDC_FEATURE_CODERecord& record);
  bool WriteFeatureNumber(const tDC_FEATURE_NUMBERRecord& record);
  bool WriteFeatureText(const tDC_FEATURE_TEXTRecord& record);
  bool WriteFeatureList(const tDC_FEATURE_LISTRecord& record);
  bool WriteFeatureMap(const tDC_FEATURE_MAPRecord& record);

  bool WriteTargetId(const tDC_TARGET_IDRecord& record);
  bool WriteTargetHeights(const tDC_TARGET_HEIGHTS_Record& record);
  bool WriteTargetNumber(const tDC_TARGET_NUMBERRecord& record);
  bool WriteTargetGrade(const tDC_TARGET_GRADERecord& record);
  bool WriteAntennaOffset(const tDC_ANTENNA_OFFSETRecord& record);
  bool WriteAntennaMeasurement(const tDC_ANTENNA_MEASUREMENTRecord& record);
  bool WriteStakedValue(const tDC_STAKED_VALUERecord& record);
  bool WriteDesignSlope(const tDC_DESIGN_SLOPERecord& record);
  bool WriteCatchPoint(const tDC_CATCH_POINTRecord& record);
  bool WriteOffsetSetting(const tDC_OFFSET_SETTINGRecord& record);

  bool WriteAntennaHeight(const tDC_ANTENNA_HEIGHTRecord& record);
  bool WriteVectorSigma(const tDC_VECTOR_SIGMARecord& record);
  bool WriteReceiver(const tDC_RECEIVER_Record& record);
  bool WriteReceiverExt(const tDC_RECEIVER_EXTRecord& record);
  bool WriteSetup(const tDC_SETUP_Record& record);
  bool WriteCb(const tDC_CB_Record& record);
  bool WriteMp(const tDC_MP_Record& record);
  bool WriteMa(const tDC_MA_Record& record);

 private:
  // The head of the line: fixed, or with the record's subtype in its two columns.
  template <class R, std::size_t N>
  bool WriteFixed(const Column<R> (&columns)[N], const R& record,
                  std::wstring_view head = R::kHead);
  template <class R, std::size_t N>
  bool WriteWithSubtype(const Column<R> (&columns)[N], const R& record);
  template <class R, std::size_t N>
  bool Finish(const Column<R> (&columns)[N], const R& record);

  std::wstring m_strLine;  // the line being written; its memory is reused
  CutNames m_CutNames;
};

}  // namespace zelconvert
