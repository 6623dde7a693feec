#include "ilj/CConvILJtoDC.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <tuple>

#include "convert/CConvertProgress.h"
#include "dc/CDcFile.h"
#include "dc/DcUnits.h"
#include "dc/ProjectionCodes.h"
#include "dc/WriteCoordinateSystem.h"
#include "ilj/CIljDcEnumMapper.h"
#include "ilj/CMoskoJobRecord.h"
#include "ilj/IljUnits.h"
#include "io/CTextFile.h"
#include "io/Clock.h"
#include "io/HandlerTable.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using Mapper = CIljDcEnumMapper;

// What a user is told, beside the texts of a record that can't be read or carried over.
constexpr std::wstring_view kScanFailed =
    L"Initial Scan Through Ilj file Failed. Probable formatting error.";
constexpr std::wstring_view kNoJobMode =
    L"Could not find Job Mode Record 'JOBMO' needed to make DC header record!";

constexpr std::size_t kNameLength = 16;      // of a point
constexpr std::size_t kFileNameLength = 8;   // of logged data
constexpr std::size_t kLongNameLength = 32;  // of zones, datums and grids

[[nodiscard]] bool AreLongNames(std::initializer_list<std::wstring_view> names) {
  return std::all_of(names.begin(), names.end(),
                     [](std::wstring_view name) { return name.size() <= kLongNameLength; });
}

double Degrees(double radians) {
  return FromRadians(radians, AngularUnit::DecimalDegrees);
}

// A file's name without what leads there and without its extension. Only "\" leads: these are names
// inside the data, of whatever machine wrote them.
std::wstring_view BareName(std::wstring_view path) {
  const std::wstring_view name = path.substr(path.rfind(L'\\') + 1);
  return name.substr(0, name.rfind(L'.'));
}

// "13-Mar-26 14:15", unlike the time that job files get.
std::wstring HeaderTime() {
  constexpr std::wstring_view kMonths[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                           L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
  const platform::LocalTime now = CurrentLocalTime();
  return FormatTime(L"d-", now).append(kMonths[(now.month + 11) % 12]) + FormatTime(L"-y H:M", now);
}

// What all points and observations have.
template <class Dc, class Record>
void FillDescription(Dc& dc, Record record) {
  dc.code = record.template Value<"DESC">();
  Mapper::MapOrigin(dc.method, record.template Get<"CDOR">(), Mapper::kToDc);
  Mapper::MapClass(dc.classification, record.template Get<"CDCL">(), Mapper::kToDc);
}

// One run.
class IljToDc {
 public:
  IljToDc(CDcFile& dc, CTextFile& ilj, Report& report) : m_dc(dc), m_ilj(ilj), m_report(report) {}

  [[nodiscard]] bool Run() {
    CConvertProgress progress;
    progress.Start();
    if (!InitialScan()) return m_report.Refuse(kScanFailed);
    if (CMoskoJobRecordJobMode(m_jobMode).Value<"UNDI">() == -1) {
      return m_report.Refuse(kNoJobMode);
    }
    TakeUnits();
    WriteHead();
    return CarryLines(progress) && !m_ilj.HasReadFailed();
  }

 private:
  enum Scan : bool { kUnscanned, kScanned };
  enum Failure : bool { kGoesOn, kFatal };
  struct Row {
    Scan scan;        // whether the first pass reads its dates
    Failure failure;  // whether the run ends with a line that isn't valid or can't be carried over
    bool (IljToDc::*carry)();  // false if it can't be carried over; null: has no DC form
  };

  static const Row& RowOf(IljRecordType type) {
    using Self = IljToDc;
    static constexpr auto kRows = MakeHandlerTable<kIljRecordTypes, IljRecordType, Row>({
        {IljRecordType::None, {kUnscanned, kFatal, &Self::CarryJobMode}},
        {IljRecordTypeOf("JOBMO"), {kUnscanned, kFatal, &Self::CarryJobMode}},
        {IljRecordTypeOf("JOBFI"), {kScanned, kGoesOn, &Self::CarrySupportFile}},
        {IljRecordTypeOf("UNOTE"), {kUnscanned, kGoesOn, &Self::CarryUserNote}},
        {IljRecordTypeOf("SNOTE"), {kUnscanned, kGoesOn, &Self::CarrySystemNote}},
        {IljRecordTypeOf("POINT"), {kScanned, kGoesOn, &Self::CarryPoint}},
        {IljRecordTypeOf("SUSTR"), {kScanned, kGoesOn, &Self::CarrySurveyStart}},
        {IljRecordTypeOf("SUSEN"), {kScanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("SUSTN"), {kScanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("SUMCT"), {kScanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("SUKDI"), {kUnscanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("SUEND"), {kScanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("ANTEN"), {kScanned, kGoesOn, nullptr}},
        {IljRecordTypeOf("SUGQC"), {kUnscanned, kGoesOn, &Self::CarryGpsQuality}},
        {IljRecordTypeOf("OSTGD"), {kUnscanned, kGoesOn, &Self::CarryGroundObservation}},
        {IljRecordTypeOf("OSTGV"), {kUnscanned, kGoesOn, &Self::CarryGroundVector}},
        {IljRecordTypeOf("OSTOC"), {kUnscanned, kGoesOn, &Self::CarryOccupiedPoint}},
        {IljRecordTypeOf("OSTHI"), {kUnscanned, kGoesOn, &Self::CarryInstrumentHeight}},
        {IljRecordTypeOf("OSTLA"), {kUnscanned, kGoesOn, &Self::CarryLaserObservation}},
        {IljRecordTypeOf("OSTHR"), {kUnscanned, kGoesOn, &Self::CarryTargetHeight}},
        {IljRecordTypeOf("PRJCS"), {kUnscanned, kFatal, &Self::CarrySystemName}},
        {IljRecordTypeOf("PRJDT"), {kUnscanned, kFatal, &Self::CarryDatum}},
        {IljRecordTypeOf("PRJEL"), {kUnscanned, kFatal, &Self::CarryEllipsoid}},
        {IljRecordTypeOf("PRJHA"), {kUnscanned, kFatal, &Self::CarryHorizontalAdjust}},
        {IljRecordTypeOf("PRJVA"), {kUnscanned, kFatal, &Self::CarryVerticalAdjust}},
        {IljRecordTypeOf("PRJMP"), {kUnscanned, kFatal, &Self::CarryMappingPlane}},
        {IljRecordTypeOf("PRJST"), {kUnscanned, kFatal, &Self::CarryLocalSite}},
        {IljRecordTypeOf("PRJCG"), {kUnscanned, kFatal, &Self::CarryCogoSettings}},
    });
    static_assert(kRows.IsComplete());
    return *kRows.Find(type);
  }

  // False at a line that is no record: one without a tab.
  [[nodiscard]] bool InitialScan() {
    m_ilj.Rewind();
    for (std::string_view line; m_ilj.ReadString(line);) {
      const std::size_t tab = line.find('\t');
      if (tab == std::string_view::npos) return false;
      ScanRecord(static_cast<IljRecordType>(kIljRecordMap.GetType(line.substr(0, tab))),
                 line.substr(tab + 1));
    }
    return true;
  }

  // The last JOBMO counts, valid or not; a PRJCG that isn't valid takes back the one before it.
  // Other kinds are read for their dates alone: one that no calendar has ends the conversion before
  // anything is written.
  void ScanRecord(IljRecordType type, std::string_view fields) {
    if (type == m_jobMode.GetRecordType()) {
      std::ignore = m_jobMode.ParseText(fields);
    } else if (type == m_cogoSettings.GetRecordType()) {
      if (!m_cogoSettings.ParseText(fields)) m_cogoSettings.ClearFields();
    } else if (RowOf(type).scan == kScanned) {
      SetRecordType(type);
      m_record.ParseMoments(fields);
    }
  }

  void TakeUnits() {
    const CMoskoJobRecordJobMode jobMode(m_jobMode);
    m_lengths = LinearUnitOfIlj(jobMode.Value<"UNDI">());
    m_angles = AngularUnitOfIlj(jobMode.Value<"UNAN">());
    const std::int32_t origin =
        CMoskoJobRecordProjectionCogoSettings(m_cogoSettings).Value<"PJAZ">();
    if (origin == 1) m_fromEast = kPi / 2;
    if (origin == 2) m_fromEast = 3 * kPi / 2;
  }

  // Header, receiver and antenna height, which every DC file of this route begins with.
  void WriteHead() {
    tDC_HEADERRecord header;
    header.version = L"FX V10";
    header.dateTime = HeaderTime();
    header.angleUnit = DcDigit(m_angles.value_or(AngularUnit::DecimalDegrees));
    header.distanceUnit = header.thirdUnit = DcDigit(m_lengths.value_or(LinearUnit::Metre));
    header.fourthUnit = m_lengths == LinearUnit::UsSurveyFoot ? 2 : 1;
    header.sixthUnit = 2;
    m_dc.Write(header);

    tDC_RECEIVER_Record receiver;
    receiver.text1 = L"Fake";
    receiver.text2 = L"Fake";
    m_dc.Write(receiver);

    tDC_ANTENNA_HEIGHTRecord antenna;
    antenna.flag = 1;
    m_dc.Write(antenna);
  }

  [[nodiscard]] bool CarryLines(CConvertProgress& progress) {
    m_ilj.Rewind();
    std::string_view line;
    for (m_index = 0; m_ilj.ReadString(line); ++m_index) {
      const std::size_t tab = line.find('\t');
      if (tab == std::string_view::npos) return true;  // the file has changed since the first pass
      progress.SetPosition(m_ilj.GetPosition(), m_ilj.GetLength());
      const std::int32_t number = kIljRecordMap.GetType(line.substr(0, tab));
      if (!CarryLine(static_cast<IljRecordType>(number), line.substr(tab + 1))) return false;
    }
    return true;
  }

  // A line of an unknown tag is read as one with the units.
  [[nodiscard]] bool CarryLine(IljRecordType type, std::string_view fields) {
    const Row& row = RowOf(type);
    if (row.carry == nullptr) return true;
    if (type == IljRecordType::None) type = CMoskoJobRecordJobMode::kType;
    SetRecordType(type);
    const bool isValid = m_record.ParseText(fields);
    if (isValid && (this->*row.carry)()) return true;
    const std::wstring label = ToWide(IljLayoutOf(type).tag.View());
    std::wstring text =
        isValid ? FormatRecordParseError(m_index, label) : FormatRecordReadError(m_index, label);
    if (row.failure == kFatal) return m_report.Refuse(text);
    m_report.messages.Warn(std::move(text));
    return true;
  }

  /// What the record held before is cleared when it is parsed.
  void SetRecordType(IljRecordType type) {
    if (m_record.GetRecordType() != type) m_record.Restart(type);
  }

  // One for each record that is carried over: m_record, which is valid.
  [[nodiscard]] bool CarryJobMode() { return true; }  // its units are the header's

  [[nodiscard]] bool CarrySupportFile() {
    const CMoskoJobRecordJobSupportFile record(m_record);
    return record.Value<"FITY">() == ilj::kSurveyData && WriteDataFile(record.Value<"FILE">());
  }

  [[nodiscard]] bool CarryUserNote() { return WriteNote(CMoskoJobRecordUserNote(m_record), L"KI"); }
  [[nodiscard]] bool CarrySystemNote() {
    return WriteNote(CMoskoJobRecordSystemNote(m_record), L"TM");
  }

  [[nodiscard]] bool CarryPoint() {
    const CMoskoJobRecordPoint point(m_record);
    const std::int32_t kind = point.Value<"CDTY">();
    if (kind == ilj::kGpsCoordinates) return WriteGeodetic(m_gpsPosition, point);
    if (kind == ilj::kLocalCoordinates) return WriteGeodetic(m_localPosition, point);
    return kind == ilj::kGridCoordinates && WriteGrid(point);  // others have no DC form
  }

  // Tells where the data of a survey lies. A file of the first kind is left out when the start of
  // its logging is known.
  [[nodiscard]] bool CarrySurveyStart() {
    constexpr std::int32_t kFirstKind = 1;
    constexpr std::int32_t kThirdKind = 3;
    const CMoskoJobRecordSurveyStart record(m_record);
    const std::int32_t kind = record.Value<"LODT">();
    const bool named =
        kind == kThirdKind || (kind == kFirstKind && !record.HasAll<"DAST", "TIST">());
    return !named || WriteDataFile(record.Value<"FILE">());
  }

  // Start week and end second, end week and start second: the pairs are crossed in this route. The
  // precisions stay in metres.
  [[nodiscard]] bool CarryGpsQuality() {
    const CMoskoJobRecordSurveyGpsQC record(m_record);
    tDC_SETUP_Record quality;
    quality.flag = record.HasAll<"NUMI">() ? record.Value<"NUMI">() : 0;
    quality.relative = record.Value<"NUMB">() == 1;
    quality.value1 = record.Value<"PDOP">();
    quality.value2 = record.Value<"HDOP">();
    quality.value3 = record.Value<"VDOP">();
    quality.value4 = record.Value<"NUMR">();
    quality.number1 = record.Value<"EPCT">();
    quality.value5 = record.Value<"HDST">();
    quality.value6 = record.Value<"VDST">();
    quality.number2 = record.Value<"GPWS">();
    quality.value7 = record.Value<"GPSE">();
    quality.number3 = record.Value<"GPWE">();
    quality.value8 = record.Value<"GPSS">();
    Mapper::MapInitMonitor(quality.digit, record.Get<"IMON">(), Mapper::kToDc);
    return Write(quality);
  }

  [[nodiscard]] bool CarryGroundObservation() {
    const CMoskoJobRecordOffsetGroundObservation record(m_record);
    tDC_ANGLE_DISTANCERecord observation;
    observation.subtype = record.Value<"DERV">();
    observation.from = record.Value<"OCPT">();
    observation.to = record.Value<"PTNM">();
    observation.distance = DistanceOut(record.Value<"SDST">());
    observation.angle1 = AzimuthOut(record.Get<"ANGA">());
    observation.angle2 = ZenithOut(record.Value<"ANGV">());
    FillDescription(observation, record);
    return Write(observation);
  }

  [[nodiscard]] bool CarryGroundVector() {
    const CMoskoJobRecordOffsetGroundVector record(m_record);
    tDC_VECTORRecord vector;
    vector.from = record.Value<"OCPT">();
    vector.to = record.Value<"PTNM">();
    vector.azimuth = AzimuthOut(record.Get<"ANGA">());
    vector.horizontalDistance = DistanceOut(record.Value<"HDST">());
    vector.verticalDistance = DistanceOut(record.Value<"VDST">());
    FillDescription(vector, record);
    return Write(vector);
  }

  [[nodiscard]] bool CarryOccupiedPoint() {
    tDC_NAMERecord occupied;
    occupied.name = CMoskoJobRecordOffsetOccupyPoint(m_record).Value<"OCPT">();
    return Write(occupied);
  }

  [[nodiscard]] bool CarryInstrumentHeight() {
    tDC_STATION_HEIGHTRecord height;
    height.height = DistanceOut(CMoskoJobRecordOffsetHeightInstrument(m_record).Value<"HTIN">());
    return Write(height);
  }

  // Whether there is a declination goes by the azimuth, not by the declination's own field: without
  // an azimuth it is lost, and one that is missing goes through the formula all the same.
  [[nodiscard]] bool CarryLaserObservation() {
    const CMoskoJobRecordOffsetLaserObservation record(m_record);
    tDC_ANGLE_DISTANCE_KEYEDRecord observation;
    observation.name = record.Value<"PTNM">();
    observation.angle1 = AzimuthOut(record.Get<"ANGA">());
    observation.angle2 = ZenithOut(record.Value<"ANGV">());
    observation.distance = DistanceOut(record.Value<"SDST">());
    observation.height = record.HasAll<"ANGA">() ? AzimuthOut(record.Value<"ANGD">()) : DC_NULL;
    FillDescription(observation, record);
    return Write(observation);
  }

  // Unlike the instrument's, a target height is written only when it changes.
  [[nodiscard]] bool CarryTargetHeight() {
    constexpr double kSame = 1e-12;
    const double metres = CMoskoJobRecordOffsetHeightTarget(m_record).Value<"HTTG">();
    if (std::fabs(metres - m_lastTargetHeight) < kSame) return true;
    m_lastTargetHeight = metres;
    tDC_TARGET_HEIGHTRecord height;
    height.height = DistanceOut(metres);
    return Write(height);
  }

  [[nodiscard]] bool CarrySystemName() {
    const CMoskoJobRecordProjectionSystemName record(m_record);
    tDC_COORDINATE_SYSTEMRecord system;
    Mapper::MapSystemKind(system.systemKind, record.Get<"PJCO">(), Mapper::kToDc);
    system.zoneGroupName = BareName(record.Value<"PJZG">());
    system.zoneName = BareName(record.Value<"PJRE">());
    system.datumName = BareName(record.Value<"PJDN">());
    if (!AreLongNames({system.zoneGroupName, system.zoneName, system.datumName})) return false;
    return Write(system);
  }

  [[nodiscard]] bool CarryDatum() {
    const CMoskoJobRecordProjectionDatum record(m_record);
    if (record.Value<"PJDT">() == ilj::kDatumGridFile) return WriteDatumGrid(record);
    tDC_DATUMRecord datum;
    Mapper::MapDatumCode(datum.datumCode, record.Get<"PJDT">(), Mapper::kToDc);
    datum.semiMajorAxis = DistanceOut(record.Value<"HDST">());
    datum.inverseFlattening = record.Value<"NUMR">();
    const bool turned = datum.datumCode == L'2';
    // Code '3' stands for no transformation and carries the shifts all the same.
    const bool shifted = turned || datum.datumCode == L'3';
    datum.shiftX = DistanceOut(shifted ? record.Value<"TRAX">() : 0);
    datum.shiftY = DistanceOut(shifted ? record.Value<"TRAY">() : 0);
    datum.shiftZ = DistanceOut(shifted ? record.Value<"TRAZ">() : 0);
    datum.rotationX = AngleOut(turned ? record.Value<"ROTX">() : 0);
    datum.rotationY = AngleOut(turned ? record.Value<"ROTY">() : 0);
    datum.rotationZ = AngleOut(turned ? record.Value<"ROTZ">() : 0);
    datum.scale = ScaleToPpm(turned ? record.Value<"SCPP">() : 0);
    return Write(datum);
  }

  [[nodiscard]] bool CarryEllipsoid() {
    const CMoskoJobRecordProjectionEllipsoid record(m_record);
    tDC_ELLIPSOIDRecord ellipsoid;
    ellipsoid.semiMajorAxis = DistanceOut(record.Value<"HDST">());
    ellipsoid.inverseFlattening = record.Value<"NUMR">();
    return Write(ellipsoid);
  }

  [[nodiscard]] bool CarryHorizontalAdjust() {
    const CMoskoJobRecordProjectionHorizontalAdjust record(m_record);
    tDC_HORIZONTAL_ADJUSTRecord adjust;
    adjust.originNorth = DistanceOut(record.Value<"NRTH">());
    adjust.originEast = DistanceOut(record.Value<"EAST">());
    adjust.translateNorth = DistanceOut(record.Value<"TRAY">());
    adjust.translateEast = DistanceOut(record.Value<"TRAX">());
    adjust.rotation = AngleOut(record.Value<"ROTZ">());
    adjust.scale = record.Value<"SCAL">();
    return Write(adjust);
  }

  [[nodiscard]] bool CarryVerticalAdjust() {
    const CMoskoJobRecordProjectionVerticalAdjust record(m_record);
    const std::int32_t kind = record.Value<"PJVA">();
    tDC_VERTICAL_ADJUSTRecord adjust;
    Mapper::MapVerticalAdjust(adjust.method, record.Get<"PJVA">(), Mapper::kToDc);
    adjust.originNorth = DistanceOut(record.Value<"NRTH">());
    adjust.originEast = DistanceOut(record.Value<"EAST">());
    adjust.constantShift = DistanceOut(record.Value<"TRAZ">());
    adjust.slopeNorth = record.Value<"TINO">();
    adjust.slopeEast = record.Value<"TIEA">();
    adjust.geoidFileName = BareName(record.Value<"PJRE">());
    if (kind == ilj::kVerticalGeoid || kind == ilj::kVerticalNone) {
      const double none = kind == ilj::kVerticalNone ? DC_NULL : 0;
      adjust.originNorth = adjust.originEast = adjust.constantShift = DistanceOut(none);
      adjust.slopeNorth = adjust.slopeEast = none;
    }
    if (kind == ilj::kVerticalNone) adjust.geoidFileName.clear();
    if (!AreLongNames({adjust.geoidFileName})) return false;
    return Write(adjust);
  }

  [[nodiscard]] bool CarryMappingPlane() {
    const CMoskoJobRecordProjectionMappingPlane record(m_record);
    if (!record.HasAny<"FIL2", "FIL1", "NUMB", "PJCT", "PJAF", "PJAE">()) {
      tDC_PROJECTIONRecord projection;
      FillProjection(projection, record);
      return Write(projection);
    }
    tDC_PROJECTION_EXTRecord projection;
    FillProjection(projection, record);
    Mapper::MapProjectionOriginCenter(projection.flagA, record.Get<"PJCT">(), Mapper::kToDc);
    Mapper::MapProjectionAzimuthFormat(projection.flagB, record.Get<"PJAF">(), Mapper::kToDc);
    Mapper::MapProjectionFlag(projection.flagC, record.Get<"NUMB">(), Mapper::kToDc);
    Mapper::MapProjectionArea(projection.flagD, record.Get<"PJAE">(), Mapper::kToDc);
    projection.gridFileName = BareName(record.Value<"FIL1">());
    projection.shiftFileName = BareName(record.Value<"FIL2">());
    if (!AreLongNames({projection.gridFileName, projection.shiftFileName})) return false;
    return Write(projection);
  }

  [[nodiscard]] bool CarryLocalSite() {
    const CMoskoJobRecordProjectionLocalSite record(m_record);
    tDC_LOCAL_SITERecord site;
    site.latitude = Degrees(record.Value<"LATI">());
    site.longitude = Degrees(record.Value<"LONG">());
    site.height = DistanceOut(record.Value<"HGHT">());
    site.scale = record.Value<"SCAL">();
    site.north = DistanceOut(record.Value<"TRAY">());
    site.east = DistanceOut(record.Value<"TRAX">());
    return Write(site);
  }

  [[nodiscard]] bool CarryCogoSettings() {
    const CMoskoJobRecordProjectionCogoSettings record(m_record);
    tDC_COGORecord settings;
    Mapper::MapAzimuthOrigin(settings.azimuthOrigin, record.Get<"PJAZ">(), Mapper::kToDc);
    Mapper::MapGridOrientation(settings.gridOrientation, record.Get<"PJGO">(), Mapper::kToDc);
    return Write(settings);
  }

  /// True: a record that can't be written shows at the end of the run.
  template <class Record, class... Subtype>
  [[nodiscard]] bool Write(const Record& record, Subtype... subtype) {
    m_dc.Write(record, subtype...);
    return true;
  }

  // The writer keeps the first 60 characters.
  template <class Note>
  [[nodiscard]] bool WriteNote(Note record, std::wstring_view subtype) {
    tDC_NOTERecord note;
    note.text = record.template Value<"NOTE">();
    return Write(note, subtype);
  }

  [[nodiscard]] bool WriteDataFile(std::wstring_view path) {
    const std::wstring_view name = BareName(path);
    if (name.size() > kFileNameLength) return false;
    tDC_POST_PROCESSRecord file;
    file.text = name;
    return Write(file);
  }

  template <class Position>
  [[nodiscard]] bool WriteGeodetic(Position& position, CMoskoJobRecordPoint point) {
    position.subtype = point.Value<"DERV">();
    position.name = point.Value<"PTNM">();
    position.coord1 = Degrees(point.Value<"LATI">());
    position.coord2 = Degrees(point.Value<"LONG">());
    position.coord3 = DistanceOut(point.Value<"HGHT">());
    FillDescription(position, point);
    return Write(position);
  }

  // Here the description must fit its column; that of the other positions is cut.
  [[nodiscard]] bool WriteGrid(CMoskoJobRecordPoint point) {
    if (point.Value<"DESC">().size() > kNameLength) return false;
    tDC_GRID_POSITIONRecord& position = m_gridPosition;
    position.subtype = point.Value<"DERV">();
    position.name = point.Value<"PTNM">();
    position.north = DistanceOut(point.Value<"NRTH">());
    position.east = DistanceOut(point.Value<"EAST">());
    position.elevation = DistanceOut(point.Value<"ELEV">());
    FillDescription(position, point);
    return Write(position);
  }

  [[nodiscard]] bool WriteDatumGrid(CMoskoJobRecordProjectionDatum datum) {
    tDC_DATUM_GRIDRecord grid;
    grid.fileName = datum.Value<"PJDN">();
    if (!AreLongNames({grid.fileName})) return false;
    return Write(grid);
  }

  template <class Projection>
  void FillProjection(Projection& projection, CMoskoJobRecordProjectionMappingPlane plane) const {
    const std::int32_t kind = plane.Value<"MPTY">();
    const bool skew = ilj::HasSkewAxis(kind);
    projection.projectionCode = ProjectionCodeFromId(static_cast<std::uint16_t>(kind));
    projection.originLatitude = Degrees(plane.Value<"LATI">());
    projection.originLongitude = Degrees(plane.Value<"LONG">());
    projection.originNorthing = DistanceOut(plane.Value<"HGHT">());
    projection.falseNorthing = DistanceOut(plane.Value<"NRTH">());
    projection.falseEasting = DistanceOut(plane.Value<"EAST">());
    projection.originEasting = DistanceOut(plane.Value<"ELEV">());
    projection.scale = plane.Value<"SCAL">();
    projection.parallel1 = skew ? AngleOut(plane.Value<"LAT1">()) : Degrees(plane.Value<"LAT1">());
    projection.parallel2 = skew ? 0 : Degrees(plane.Value<"LAT2">());
  }

  // Units of the DC file. Null if the job's aren't known.
  double DistanceOut(double metres) const {
    return m_lengths ? FromMetres(metres, *m_lengths) : DC_NULL;
  }

  double AngleOut(double radians) const {
    return m_angles ? FromRadians(radians, *m_angles) : DC_NULL;
  }

  /// From an angle anticlockwise from grid east to a clockwise one from north or south; null if it
  /// isn't known from which.
  double AzimuthOut(double radians) const {
    if (!m_fromEast) return DC_NULL;
    double azimuth = std::fmod(*m_fromEast - radians, 2 * kPi);
    if (azimuth < 0) azimuth += 2 * kPi;
    return AngleOut(azimuth);
  }

  /// The azimuth of an observation that may have none.
  double AzimuthOut(CMoskoJobRecordFieldAngleAzimuth angle) const {
    return angle.IsValid() ? AzimuthOut(angle.GetValue()) : DC_NULL;
  }
  /// From an angle above the horizon to one from the zenith.
  double ZenithOut(double radians) const { return AngleOut(kPi / 2 - radians); }

  CDcFile& m_dc;
  CTextFile& m_ilj;
  Report& m_report;

  // What the first pass finds.
  CMoskoJobRecord m_jobMode{CMoskoJobRecordJobMode::kType};
  CMoskoJobRecord m_cogoSettings{CMoskoJobRecordProjectionCogoSettings::kType};
  std::optional<LinearUnit> m_lengths;
  std::optional<AngularUnit> m_angles;
  std::optional<double> m_fromEast;  // radians: where azimuths count from

  double m_lastTargetHeight = DC_NULL;  // metres; of the last one carried over

  // Memory that is used again for every line.
  CMoskoJobRecord m_record;
  tDC_GRID_POSITIONRecord m_gridPosition;
  tDC_GPS_POSITIONRecord m_gpsPosition;
  tDC_LOCAL_POSITIONRecord m_localPosition;
  std::int64_t m_index = 0;  // of the line in the second pass, from 0
};

}  // namespace

bool CConvILJtoDC::Convert(CDcFile& dcFile, CTextFile& iljFile, Report& report) {
  return IljToDc(dcFile, iljFile, report).Run();
}

}  // namespace zelconvert
