#include "dc/CDcFile.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "convert/ConversionBase.h"
#include "dc/DcColumns.h"

namespace zelconvert {

namespace {

// "LR" stands before "LQ": indices into the table travel with points, so the order stays.
constexpr std::wstring_view kSubtypes[] = {
    L"1X", L"2F", L"2X", L"AC", L"AJ", L"AR", L"AT", L"BA", L"BD", L"BF", L"BL", L"BS", L"CA",
    L"CB", L"CC", L"CD", L"CG", L"CL", L"CM", L"CN", L"CO", L"CP", L"CS", L"CT", L"D2", L"DL",
    L"DM", L"DO", L"DP", L"ED", L"ES", L"F1", L"F2", L"FB", L"FC", L"FD", L"FF", L"FL", L"FS",
    L"FX", L"IC", L"IN", L"IR", L"IS", L"IX", L"KD", L"KI", L"KM", L"KP", L"LB", L"LN", L"LR",
    L"LQ", L"M1", L"M2", L"MA", L"MC", L"MD", L"MP", L"MS", L"NF", L"NL", L"NM", L"NX", L"OS",
    L"PC", L"PE", L"PJ", L"PS", L"PT", L"RE", L"RO", L"RP", L"RS", L"RT", L"SA", L"SC", L"SF",
    L"SG", L"SI", L"SN", L"SO", L"SR", L"SS", L"SX", L"TA", L"TL", L"TM", L"TN", L"TO", L"TP",
    L"TR", L"TS", L"TV", L"WF", L"WS", L"WX", L"XD",
};
static_assert(std::size(kSubtypes) == kDcSubtypeCount);
static_assert(kSubtypes[kDcDeletedSubtype] == L"DL");

constexpr std::wstring_view kDefaultVersion = L"FX V07-50";

constexpr std::wstring_view SubtypeOf(std::wstring_view line) {
  return Mid(line, 2, 2);
}

template <class R, std::size_t N>
bool ReadRecord(std::wstring_view line, const Column<R> (&columns)[N], R& record) {
  record.type = R::kType;
  record.subtype.assign(SubtypeOf(line));
  ReadColumns(line, columns, record);
  return true;
}

}  // namespace

CDcFile::~CDcFile() = default;

bool CDcFile::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CDcFile::OpenForRead(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && Rewind();
}

// Editors put the mark in front of text that is 8-bit all the same.
bool CDcFile::Rewind() {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  char start[kUtf8Mark.size()];
  if (!SeekToBegin()) return false;
  return (Read(start, sizeof start) && kUtf8Mark == std::string_view(start, sizeof start)) ||
         SeekToBegin();
}

// What a line is

std::int32_t CDcFile::GetRecordType(std::wstring_view line) {
  return ToInteger(Left(line, 2), 36);
}

int CDcFile::GetRecordSubtype(std::wstring_view line) {
  const auto* found = std::find(std::begin(kSubtypes), std::end(kSubtypes), SubtypeOf(line));
  return static_cast<int>(found - std::begin(kSubtypes));
}

std::wstring_view CDcFile::GetSubtypeString(int index) {
  return kSubtypes[index];
}

bool CDcFile::IsBlank(std::wstring_view line) {
  return line.find_first_not_of(L" \t") == std::wstring_view::npos;
}

bool CDcFile::IsDeleted(std::wstring_view line) {
  // Asked of every line by every reader: two characters, without a call.
  constexpr std::wstring_view kDeleted = kSubtypes[kDcDeletedSubtype];
  return line.size() >= 4 && line[2] == kDeleted[0] && line[3] == kDeleted[1];
}

// Readers

bool CDcFile::ReadHeader(std::wstring_view line, tDC_HEADERRecord& record) {
  if (line.size() < kShortestHeader) throw ConversionFailure();
  return ReadRecord(line, kHeaderColumns, record);
}

bool CDcFile::ReadBacksight(std::wstring_view /*line*/, tDC_BACKSIGHTRecord& record) {
  record.type = record.kType;
  return true;
}

bool CDcFile::ReadPostProcess(std::wstring_view line, tDC_POST_PROCESSRecord& record) {
  return !line.empty() && ReadRecord(line, kPostProcessColumns, record);
}

bool CDcFile::ReadGpsPosition(std::wstring_view line, tDC_GPS_POSITIONRecord& record) {
  return !line.empty() && ReadRecord(line, kGpsPositionColumns, record);
}

bool CDcFile::ReadLocalPosition(std::wstring_view line, tDC_LOCAL_POSITIONRecord& record) {
  return !line.empty() && ReadRecord(line, kLocalPositionColumns, record);
}

bool CDcFile::ReadJob(std::wstring_view line, tDC_JOBRecord& record) {
  return ReadRecord(line, kJobColumns, record);
}

bool CDcFile::ReadNote(std::wstring_view line, tDC_NOTERecord& record) {
  return ReadRecord(line, kNoteColumns, record);
}

bool CDcFile::ReadCogo(std::wstring_view line, tDC_COGORecord& record) {
  return ReadRecord(line, kCogoColumns, record);
}

bool CDcFile::ReadCogoOld(std::wstring_view line, tDC_COGO_OLDRecord& record) {
  return ReadRecord(line, kCogoOldColumns, record);
}

bool CDcFile::ReadGridPosition(std::wstring_view line, tDC_GRID_POSITIONRecord& record) {
  return ReadRecord(line, kGridPositionColumns, record);
}

bool CDcFile::ReadProjection(std::wstring_view line, tDC_PROJECTIONRecord& record) {
  return ReadRecord(line, kProjectionColumns, record);
}

bool CDcFile::ReadProjectionExt(std::wstring_view line, tDC_PROJECTION_EXTRecord& record) {
  return ReadRecord(line, kProjectionExtColumns, record);
}

bool CDcFile::ReadEllipsoid(std::wstring_view line, tDC_ELLIPSOIDRecord& record) {
  return ReadRecord(line, kEllipsoidColumns, record);
}

bool CDcFile::ReadLocalSite(std::wstring_view line, tDC_LOCAL_SITERecord& record) {
  return ReadRecord(line, kLocalSiteColumns, record);
}

bool CDcFile::ReadDatum(std::wstring_view line, tDC_DATUMRecord& record) {
  return ReadRecord(line, kDatumColumns, record);
}

bool CDcFile::ReadDatumGrid(std::wstring_view line, tDC_DATUM_GRIDRecord& record) {
  return ReadRecord(line, kDatumGridColumns, record);
}

bool CDcFile::ReadHorizontalAdjust(std::wstring_view line, tDC_HORIZONTAL_ADJUSTRecord& record) {
  return ReadRecord(line, kHorizontalAdjustColumns, record);
}

bool CDcFile::ReadVerticalAdjust(std::wstring_view line, tDC_VERTICAL_ADJUSTRecord& record) {
  return ReadRecord(line, kVerticalAdjustColumns, record);
}

bool CDcFile::ReadCoordinateSystem(std::wstring_view line, tDC_COORDINATE_SYSTEMRecord& record) {
  return ReadRecord(line, kCoordinateSystemColumns, record);
}

bool CDcFile::ReadZoneLabel(std::wstring_view line, tDC_ZONE_LABELRecord& record) {
  return ReadRecord(line, kZoneLabelColumns, record);
}

bool CDcFile::ReadSetup(std::wstring_view line, tDC_SETUP_Record& record) {
  return ReadRecord(line, kSetupColumns, record);
}

// Writers

template <class R, std::size_t N>
bool CDcFile::Finish(const Column<R> (&columns)[N], const R& record) {
  WriteColumns(m_strLine, columns, record, m_CutNames);
  return WriteLine(m_strLine);
}

template <class R, std::size_t N>
bool CDcFile::WriteFixed(const Column<R> (&columns)[N], const R& record, std::wstring_view head) {
  m_strLine.assign(head);
  return Finish(columns, record);
}

template <class R, std::size_t N>
bool CDcFile::WriteWithSubtype(const Column<R> (&columns)[N], const R& record) {
  m_strLine.assign(R::kHead, 2);
  AppendRight(m_strLine, Left(record.subtype, 2), 2);
  return Finish(columns, record);
}

bool CDcFile::WriteHeader(const tDC_HEADERRecord& record) {
  if (!record.version.empty()) return WriteFixed(kHeaderColumns, record);
  tDC_HEADERRecord filled = record;
  filled.version = kDefaultVersion;
  return WriteFixed(kHeaderColumns, filled);
}

bool CDcFile::WriteJob(const tDC_JOBRecord& record) {
  return WriteFixed(kJobColumns, record);
}

bool CDcFile::WriteNote(const tDC_NOTERecord& record) {
  return WriteFixed(kNoteColumns, record);
}

bool CDcFile::WriteNoteKeyed(const tDC_NOTERecord& record) {
  return WriteFixed(kNoteColumns, record, L"13KI");
}

bool CDcFile::WriteNoteTime(const tDC_NOTERecord& record) {
  return WriteFixed(kNoteColumns, record, L"13TM");
}

bool CDcFile::WritePostProcess(const tDC_POST_PROCESSRecord& record) {
  return WriteWithSubtype(kPostProcessColumns, record);
}

bool CDcFile::WriteScale(const tDC_SCALERecord& record) {
  return WriteFixed(kScaleColumns, record);
}

bool CDcFile::WriteCogo(const tDC_COGORecord& record) {
  return WriteFixed(kCogoColumns, record);
}

bool CDcFile::WriteCogoOld(const tDC_COGO_OLDRecord& record) {
  return WriteFixed(kCogoOldColumns, record);
}

bool CDcFile::WriteStation(const tDC_STATIONRecord& record) {
  return WriteFixed(kStationColumns, record);
}

bool CDcFile::WriteStationExt(const tDC_STATION_EXTRecord& record) {
  return WriteFixed(kStationExtColumns, record);
}

bool CDcFile::WriteBacksight(const tDC_BACKSIGHTRecord& record) {
  return WriteFixed(kBacksightColumns, record);
}

bool CDcFile::WriteBacksightExt(const tDC_BACKSIGHT_EXTRecord& record) {
  return WriteFixed(kBacksightExtColumns, record);
}

bool CDcFile::WriteGridPosition(const tDC_GRID_POSITIONRecord& record) {
  return WriteWithSubtype(kGridPositionColumns, record);
}

bool CDcFile::WriteGpsPosition(const tDC_GPS_POSITIONRecord& record) {
  return WriteWithSubtype(kGpsPositionColumns, record);
}

bool CDcFile::WriteGpsPosition2(const tDC_GPS_POSITION2Record& record) {
  return WriteWithSubtype(kGpsPosition2Columns, record);
}

bool CDcFile::WriteLocalPosition(const tDC_LOCAL_POSITIONRecord& record) {
  return WriteWithSubtype(kLocalPositionColumns, record);
}

bool CDcFile::WriteDeletedPosition(const tDC_DELETED_POSITIONRecord& record) {
  return WriteWithSubtype(kDeletedPositionColumns, record);
}

bool CDcFile::WriteVector(const tDC_VECTORRecord& record) {
  return WriteFixed(kVectorColumns, record);
}

bool CDcFile::WriteObservation(const tDC_OBSERVATIONRecord& record) {
  return WriteWithSubtype(kObservationColumns, record);
}

bool CDcFile::WriteObservationSigma(const tDC_OBSERVATION_SIGMARecord& record) {
  return WriteWithSubtype(kObservationSigmaColumns, record);
}

bool CDcFile::WriteObservationText(const tDC_OBSERVATION_TEXTRecord& record) {
  return WriteFixed(kObservationTextColumns, record);
}

bool CDcFile::WriteAngleDistance(const tDC_ANGLE_DISTANCERecord& record) {
  return WriteWithSubtype(kAngleDistanceColumns, record);
}

bool CDcFile::WriteAngleDistanceKeyed(const tDC_ANGLE_DISTANCE_KEYEDRecord& record) {
  return WriteFixed(kAngleDistanceKeyedColumns, record);
}

bool CDcFile::WriteStationHeight(const tDC_STATION_HEIGHTRecord& record) {
  return WriteFixed(kStationHeightColumns, record);
}

bool CDcFile::WriteTargetHeight(const tDC_TARGET_HEIGHTRecord& record) {
  return WriteFixed(kTargetHeightColumns, record);
}

bool CDcFile::WriteName(const tDC_NAMERecord& record) {
  return WriteFixed(kNameColumns, record);
}

bool CDcFile::WriteProjection(const tDC_PROJECTIONRecord& record) {
  return WriteFixed(kProjectionColumns, record);
}

bool CDcFile::WriteProjectionExt(const tDC_PROJECTION_EXTRecord& record) {
  return WriteFixed(kProjectionExtColumns, record);
}

bool CDcFile::WriteEllipsoid(const tDC_ELLIPSOIDRecord& record) {
  return WriteFixed(kEllipsoidColumns, record);
}

bool CDcFile::WriteLocalSite(const tDC_LOCAL_SITERecord& record) {
  return WriteFixed(kLocalSiteColumns, record);
}

bool CDcFile::WriteDatum(const tDC_DATUMRecord& record) {
  return WriteFixed(kDatumColumns, record);
}

bool CDcFile::WriteDatumGrid(const tDC_DATUM_GRIDRecord& record) {
  return WriteFixed(kDatumGridColumnsWritten, record);
}

bool CDcFile::WriteHorizontalAdjust(const tDC_HORIZONTAL_ADJUSTRecord& record) {
  return WriteFixed(kHorizontalAdjustColumns, record);
}

bool CDcFile::WriteVerticalAdjust(const tDC_VERTICAL_ADJUSTRecord& record) {
  return WriteFixed(kVerticalAdjustColumns, record);
}

bool CDcFile::WriteCoordinateSystem(const tDC_COORDINATE_SYSTEMRecord& record) {
  return WriteFixed(kCoordinateSystemColumns, record);
}

bool CDcFile::WriteZoneLabel(const tDC_ZONE_LABELRecord& record) {
  return WriteFixed(kZoneLabelColumns, record);
}

bool CDcFile::WriteFeatureCode(const tDC_FEATURE_CODERecord& record) {
  return WriteFixed(kFeatureCodeColumns, record);
}

bool CDcFile::WriteFeatureNumber(const tDC_FEATURE_NUMBERRecord& record) {
  return WriteFixed(kFeatureNumberColumns, record);
}

bool CDcFile::WriteFeatureText(const tDC_FEATURE_TEXTRecord& record) {
  return WriteFixed(kFeatureTextColumns, record);
}

bool CDcFile::WriteFeatureList(const tDC_FEATURE_LISTRecord& record) {
  return WriteFixed(kFeatureListColumns, record);
}

bool CDcFile::WriteFeatureMap(const tDC_FEATURE_MAPRecord& record) {
  if (record.text.empty()) return WriteFixed(kFeatureMapColumnsEmpty, record);
  tDC_FEATURE_MAPRecord cut = record;
  cut.text = Left(Right(record.text, 60), 20);
  return WriteFixed(kFeatureMapColumns, cut);
}

bool CDcFile::WriteTargetId(const tDC_TARGET_IDRecord& record) {
  return WriteFixed(kTargetIdColumns, record);
}

bool CDcFile::WriteTargetHeights(const tDC_TARGET_HEIGHTS_Record& record) {
  return WriteFixed(kTargetHeightsColumns, record);
}

bool CDcFile::WriteTargetNumber(const tDC_TARGET_NUMBERRecord& record) {
  return WriteFixed(kTargetNumberColumns, record);
}

bool CDcFile::WriteTargetGrade(const tDC_TARGET_GRADERecord& record) {
  return WriteFixed(kTargetGradeColumns, record);
}

bool CDcFile::WriteAntennaOffset(const tDC_ANTENNA_OFFSETRecord& record) {
  return WriteFixed(kAntennaOffsetColumns, record);
}

bool CDcFile::WriteAntennaMeasurement(const tDC_ANTENNA_MEASUREMENTRecord& record) {
  return WriteFixed(kAntennaMeasurementColumns, record);
}

bool CDcFile::WriteStakedValue(const tDC_STAKED_VALUERecord& record) {
  return WriteFixed(kStakedValueColumns, record);
}

bool CDcFile::WriteDesignSlope(const tDC_DESIGN_SLOPERecord& record) {
  return WriteFixed(kDesignSlopeColumns, record);
}

bool CDcFile::WriteCatchPoint(const tDC_CATCH_POINTRecord& record) {
  tDC_CATCH_POINTRecord filled = record;
  filled.slope =
      Computed(std::sqrt(record.horizontal * record.horizontal + record.vertical * record.vertical),
               record.horizontal, record.vertical);
  return WriteFixed(kCatchPointColumns, filled);
}

bool CDcFile::WriteOffsetSetting(const tDC_OFFSET_SETTINGRecord& record) {
  return WriteFixed(kOffsetSettingColumns, record);
}

bool CDcFile::WriteAntennaHeight(const tDC_ANTENNA_HEIGHTRecord& record) {
  return WriteWithSubtype(kAntennaHeightColumns, record);
}

bool CDcFile::WriteVectorSigma(const tDC_VECTOR_SIGMARecord& record) {
  return WriteWithSubtype(kVectorSigmaColumns, record);
}

bool CDcFile::WriteReceiver(const tDC_RECEIVER_Record& record) {
  return WriteWithSubtype(kReceiverColumns, record);
}

bool CDcFile::WriteReceiverExt(const tDC_RECEIVER_EXTRecord& record) {
  return WriteWithSubtype(kReceiverExtColumns, record);
}

bool CDcFile::WriteSetup(const tDC_SETUP_Record& record) {
  return WriteWithSubtype(kSetupColumns, record);
}

bool CDcFile::WriteCb(const tDC_CB_Record& record) {
  return WriteFixed(kCbColumns, record);
}

bool CDcFile::WriteMp(const tDC_MP_Record& record) {
  return WriteFixed(kMpColumns, record);
}

bool CDcFile::WriteMa(const tDC_MA_Record& record) {
  return WriteFixed(kMaColumns, record);
}

}  // namespace zelconvert
