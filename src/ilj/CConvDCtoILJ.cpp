#include "ilj/CConvDCtoILJ.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "convert/CConvertProgress.h"
#include "dc/CDcFile.h"
#include "dc/ProjectionCodes.h"
#include "ilj/CIljDcEnumMapper.h"
#include "ilj/CMoskoJobRecord.h"
#include "ilj/IljUnits.h"
#include "io/CTextFile.h"
#include "io/CivilTime.h"
#include "io/Clock.h"
#include "io/HandlerTable.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using Mapper = CIljDcEnumMapper;

constexpr std::wstring_view kIljVersion = L"1.0.0";
constexpr std::wstring_view kEllipsoidName = L"DcEllipsoid";
// What a user is told, beside the text of a record that can't be carried over.
constexpr std::wstring_view kBadPointName =
    L"The point record name \"%s\" is invalid for a ZEL interlock job file.";

// What programs write into notes of subtype "NM"; a note without any of these is a person's.
constexpr std::wstring_view kSystemNoteMarkers[] = {
    L"TIME DATE",
    L"KESTRUM 7700",
    L"PPM=",
    L"PRISM CONSTANT=",
    L"CURVATURE AND REFRACTION=",
    L"ITEM DELETED",
    L"RECEIVER FIRMWARE VERSION=",
    L"NEW BASE STATION DETECTED",
    L"THE AS STAKED SIDESLOPE VALUE",
    L"CONTINUOUS PARAMETERS:",
    L"FX EXCHANGE FORMAT",
    L"DISTANCE:",
    L"ANGLE:",
    L"CURVATURE:",
    L"COORDINATES:",
    L"SEA LEVEL",
    L"NORTH AZIMUTH:",
    L"RESECTION TYPE:",
    L"KESTRUM SURVEYDESK SUITE",
};

[[nodiscard]] bool IsSystemNote(const tDC_NOTERecord& note) {
  if (note.subtype == L"KI") return false;
  if (note.subtype != L"NM") return true;
  return std::any_of(
      std::begin(kSystemNoteMarkers), std::end(kSystemNoteMarkers),
      [&](std::wstring_view marker) { return note.text.find(marker) != std::wstring::npos; });
}

// Null values are scaled like others, here and below: what another unit has made of them may count.
constexpr double RadiansIn(double value, AngularUnit unit) {
  return value * (kPi / (FullCircle(unit) / 2));
}
constexpr double Radians(double degrees) {
  return RadiansIn(degrees, AngularUnit::DecimalDegrees);
}

double PpmToFactor(double ppm) {
  return 1 + ppm * 1e-6;
}

[[nodiscard]] constexpr bool IsNameBlank(wchar_t c) {
  return c == L' ' || (c >= L'\a' && c <= L'\f');  // a carriage return isn't one
}

constexpr std::wstring_view TrimName(std::wstring_view name) {
  while (!name.empty() && IsNameBlank(name.front())) name.remove_prefix(1);
  while (!name.empty() && IsNameBlank(name.back())) name.remove_suffix(1);
  return name;
}

// One run.
class DcToIlj {
 public:
  DcToIlj(CDcFile& dc, CTextFile& ilj, MessageList& messages)
      : m_dc(dc), m_ilj(ilj), m_messages(messages) {}

  [[nodiscard]] bool Run() {
    CConvertProgress progress;
    progress.Start();
    std::ignore = m_dc.Rewind();
    const std::int64_t length = m_dc.GetLength();
    while (m_dc.ReadLine(m_line)) {
      progress.SetPosition(m_dc.GetPosition(), length);
      if (CDcFile::IsBlank(m_line) || CDcFile::IsDeleted(m_line)) continue;
      const Row* row = FindRow(CDcFile::GetRecordType(m_line));
      if (row != nullptr && !CarryLine(*row)) return false;
      ++m_index;
    }
    return !m_dc.HasReadFailed();
  }

 private:
  enum Failure : bool { kGoesOn, kFatal };
  struct Row {
    std::wstring_view label;
    Failure failure;                        // whether the run ends with one that has no form
    bool (DcToIlj::*carry)(const DcLine&);  // false for such a one
  };

  static const Row* FindRow(std::int32_t type) {
    using Self = DcToIlj;
    static constexpr auto kRows = MakeHandlerTable<kDcTypeCount, std::int32_t, Row>({
        {DcType("00"), {L"Header(type 00)", kFatal, &Self::Carry<tDC_HEADERRecord>}},
        {DcType("13"), {L"Note(type 13)", kGoesOn, &Self::Carry<&Self::m_note>}},
        {DcType("66"), {L"GPS Position(type 66)", kFatal, &Self::Carry<&Self::m_gpsPosition>}},
        {DcType("68"), {L"Local Position(type 68)", kFatal, &Self::Carry<&Self::m_localPosition>}},
        {DcType("69"), {L"Grid Position(type 69)", kFatal, &Self::Carry<&Self::m_gridPosition>}},
        {DcType("72"), {L"Post Process(type 72)", kGoesOn, &Self::Carry<tDC_POST_PROCESSRecord>}},
        {DcType("49"), {L"Datum(type 49)", kFatal, &Self::Carry<tDC_DATUMRecord>}},
        {DcType("74"), {L"Datum Grid File(type 74)", kFatal, &Self::Carry<tDC_DATUM_GRIDRecord>}},
        {DcType("65"), {L"Local Ellipsoid(type 65)", kFatal, &Self::Carry<tDC_ELLIPSOIDRecord>}},
        {DcType("50"),
         {L"Horizontal Adjust(type 50)", kFatal, &Self::Carry<tDC_HORIZONTAL_ADJUSTRecord>}},
        {DcType("D5"), {L"Local Site(type D5)", kFatal, &Self::Carry<tDC_LOCAL_SITERecord>}},
        {DcType("D0"),
         {L"Extended Projection(type D0)", kFatal, &Self::Carry<tDC_PROJECTION_EXTRecord>}},
        {DcType("64"), {L"Projection(type 64)", kFatal, &Self::Carry<tDC_PROJECTIONRecord>}},
        {DcType("C8"),
         {L"Coordinate System(type C8)", kFatal, &Self::Carry<tDC_COORDINATE_SYSTEMRecord>}},
        {DcType("81"),
         {L"Vertical Adjust(type 81)", kFatal, &Self::Carry<tDC_VERTICAL_ADJUSTRecord>}},
        {DcType("78"), {L"COGO Settings(type 78)", kFatal, &Self::Carry<tDC_COGORecord>}},
    });
    return kRows.Find(type);
  }

  [[nodiscard]] bool CarryLine(const Row& row) {
    if ((this->*row.carry)(m_line)) return true;
    std::wstring text = FormatRecordParseError(m_index, row.label);
    if (row.failure == kGoesOn) {
      m_messages.Warn(std::move(text));
    } else {
      m_messages.push_back(std::move(text));
    }
    return row.failure == kGoesOn;
  }

  /// Reads a record from its line and carries it over. Records of which a file has many are kept
  /// for their memory.
  template <class Record>
  [[nodiscard]] bool Carry(const DcLine& line) {
    Record record;
    CDcFile::Read(line, record);
    return CarryRecord(record);
  }
  template <auto kept>
  [[nodiscard]] bool Carry(const DcLine& line) {
    CDcFile::Read(line, this->*kept);
    return CarryRecord(this->*kept);
  }

  // A later header writes its own units too, but lengths and angles stay those of the first.
  [[nodiscard]] bool CarryRecord(const tDC_HEADERRecord& header) {
    if (!m_header) m_header = header;
    const auto mode = Start<CMoskoJobRecordJobMode>();
    if (header.angleUnit != 1 && header.angleUnit != 2) return false;
    mode.Set<"UNAN">(header.angleUnit - 1);
    mode.Set<"UNDI">(header.distanceUnit - 1);
    mode.Set<"DESC">(kIljVersion);
    return Write();
  }

  // The text keeps the blanks that fill its column.
  [[nodiscard]] bool CarryRecord(const tDC_NOTERecord& note) {
    if (IsSystemNote(note)) {
      Start<CMoskoJobRecordSystemNote>().Set<"NOTE">(note.text);
    } else {
      Start<CMoskoJobRecordUserNote>().Set<"NOTE">(note.text);
    }
    return Write();
  }

  [[nodiscard]] bool CarryRecord(tDC_GPS_POSITIONRecord& position) {
    return CarryGeodetic(position, ilj::kGpsCoordinates);
  }

  [[nodiscard]] bool CarryRecord(tDC_LOCAL_POSITIONRecord& position) {
    return CarryGeodetic(position, ilj::kLocalCoordinates);
  }

  [[nodiscard]] bool CarryRecord(tDC_GRID_POSITIONRecord& position) {
    constexpr std::int32_t kEastFirst = 2;
    const bool eastFirst = m_header && m_header->coordinateOrder == kEastFirst;
    const CMoskoJobRecordPoint point = StartPoint(position, ilj::kGridCoordinates);
    point.Set<"NRTH">(DistanceIn(eastFirst ? position.east : position.north));
    point.Set<"EAST">(DistanceIn(eastFirst ? position.north : position.east));
    point.Set<"ELEV">(DistanceIn(position.elevation));
    return WritePoint(point);
  }

  [[nodiscard]] bool CarryRecord(const tDC_POST_PROCESSRecord& file) {
    const auto support = Start<CMoskoJobRecordJobSupportFile>();
    support.Set<"FILE">(file.text);
    support.Set<"FITY">(ilj::kSurveyData);
    return Write();
  }

  [[nodiscard]] bool CarryRecord(tDC_DATUMRecord& datum) {
    constexpr int kFlatteningDecimals = 11;
    const auto record = Start<CMoskoJobRecordProjectionDatum>();
    const wchar_t code = datum.datumCode;
    record.Set<"HDST">(DistanceIn(datum.semiMajorAxis));
    record.Get<"NUMR">().SetDecimals(kFlatteningDecimals);
    record.Set<"NUMR">(datum.inverseFlattening);
    Mapper::MapDatumCode(datum.datumCode, record.Get<"PJDT">(), Mapper::kFromDc);
    if (code == L'3' || code == L'2') {
      record.Set<"TRAX">(DistanceIn(datum.shiftX));
      record.Set<"TRAY">(DistanceIn(datum.shiftY));
      record.Set<"TRAZ">(DistanceIn(datum.shiftZ));
    }
    if (code == L'2') {
      record.Set<"ROTX">(AngleIn(datum.rotationX));
      record.Set<"ROTY">(AngleIn(datum.rotationY));
      record.Set<"ROTZ">(AngleIn(datum.rotationZ));
      record.Set<"SCPP">(PpmToFactor(datum.scale));
    }
    return Write();
  }

  [[nodiscard]] bool CarryRecord(const tDC_DATUM_GRIDRecord& grid) {
    const auto datum = Start<CMoskoJobRecordProjectionDatum>();
    datum.Set<"PJDT">(ilj::kDatumGridFile);
    datum.Set<"PJDN">(grid.fileName);
    return Write();
  }

  [[nodiscard]] bool CarryRecord(const tDC_ELLIPSOIDRecord& ellipsoid) {
    const auto record = Start<CMoskoJobRecordProjectionEllipsoid>();
    record.Set<"PJRE">(kEllipsoidName);
    record.Set<"HDST">(DistanceIn(ellipsoid.semiMajorAxis));
    record.Set<"NUMR">(ellipsoid.inverseFlattening);
    return Write();
  }

  [[nodiscard]] bool CarryRecord(const tDC_HORIZONTAL_ADJUSTRecord& adjust) {
    const auto record = Start<CMoskoJobRecordProjectionHorizontalAdjust>();
    record.Set<"NRTH">(DistanceIn(adjust.originNorth));
    record.Set<"EAST">(DistanceIn(adjust.originEast));
    record.Set<"TRAY">(DistanceIn(adjust.translateNorth));
    record.Set<"TRAX">(DistanceIn(adjust.translateEast));
    record.Set<"ROTZ">(AngleIn(adjust.rotation));
    record.Set<"SCAL">(adjust.scale);
    return Write();
  }

  [[nodiscard]] bool CarryRecord(const tDC_LOCAL_SITERecord& site) {
    const auto record = Start<CMoskoJobRecordProjectionLocalSite>();
    record.Set<"LATI">(Radians(site.latitude));
    record.Set<"LONG">(Radians(site.longitude));
    record.Set<"HGHT">(DistanceIn(site.height));
    record.Set<"SCAL">(NullToOne(site.scale));
    record.Set<"TRAX">(DistanceIn(NullToZero(site.east)));
    record.Set<"TRAY">(DistanceIn(NullToZero(site.north)));
    return Write();
  }

  [[nodiscard]] bool CarryRecord(tDC_PROJECTION_EXTRecord& projection) {
    const auto plane = StartPlane(projection);
    if (!plane) return false;
    Mapper::MapProjectionOriginCenter(projection.flagA, plane->Get<"PJCT">(), Mapper::kFromDc);
    Mapper::MapProjectionAzimuthFormat(projection.flagB, plane->Get<"PJAF">(), Mapper::kFromDc);
    Mapper::MapProjectionFlag(projection.flagC, plane->Get<"NUMB">(), Mapper::kFromDc);
    Mapper::MapProjectionArea(projection.flagD, plane->Get<"PJAE">(), Mapper::kFromDc);
    plane->Set<"FIL1">(projection.gridFileName);
    plane->Set<"FIL2">(projection.shiftFileName);
    return Write();
  }

  [[nodiscard]] bool CarryRecord(const tDC_PROJECTIONRecord& projection) {
    return StartPlane(projection) && Write();
  }

  [[nodiscard]] bool CarryRecord(tDC_COORDINATE_SYSTEMRecord& system) {
    const auto names = Start<CMoskoJobRecordProjectionSystemName>();
    Mapper::MapSystemKind(system.systemKind, names.Get<"PJCO">(), Mapper::kFromDc);
    names.Set<"PJZG">(system.zoneGroupName);
    names.Set<"PJRE">(system.zoneName);
    names.Set<"PJDN">(system.datumName);
    return Write();
  }

  // An adjustment of nothing is left out. The number 2 as method, not the character, takes the
  // numbers away; in a text file that is a control character.
  [[nodiscard]] bool CarryRecord(tDC_VERTICAL_ADJUSTRecord& adjust) {
    const auto record = Start<CMoskoJobRecordProjectionVerticalAdjust>();
    record.Set<"PJRE">(adjust.geoidFileName);
    Mapper::MapVerticalAdjust(adjust.method, record.Get<"PJVA">(), Mapper::kFromDc);
    constexpr wchar_t kNoNumbers = 2;
    if (adjust.method != kNoNumbers) {
      record.Set<"TRAZ">(DistanceIn(adjust.constantShift));
      record.Set<"NRTH">(DistanceIn(adjust.originNorth));
      record.Set<"EAST">(DistanceIn(adjust.originEast));
      record.Set<"TINO">(adjust.slopeNorth);
      record.Set<"TIEA">(adjust.slopeEast);
    }
    const auto numbers = {record.Value<"TRAZ">(), record.Value<"NRTH">(), record.Value<"EAST">(),
                          record.Value<"TINO">(), record.Value<"TIEA">()};
    const bool hasNumber = std::any_of(numbers.begin(), numbers.end(),
                                       [](double value) { return !(value < kNullLimit); });
    return (!hasNumber && !record.HasAll<"PJRE">()) || Write();
  }

  [[nodiscard]] bool CarryRecord(tDC_COGORecord& settings) {
    const auto record = Start<CMoskoJobRecordProjectionCogoSettings>();
    Mapper::MapAzimuthOrigin(settings.azimuthOrigin, record.Get<"PJAZ">(), Mapper::kFromDc);
    Mapper::MapGridOrientation(settings.gridOrientation, record.Get<"PJGO">(), Mapper::kFromDc);
    return Write();
  }

  // What all positions have in common.
  template <class Position>
  CMoskoJobRecordPoint StartPoint(Position& position, std::int32_t coordinates) {
    const auto point = Start<CMoskoJobRecordPoint>();
    point.Set<"DERV">(position.subtype);
    point.Set<"PTNM">(TrimName(position.name));
    point.Set<"DESC">(position.code);
    point.Set<"CDTY">(coordinates);
    Mapper::MapOrigin(position.method, point.Get<"CDOR">(), Mapper::kFromDc);
    Mapper::MapClass(position.classification, point.Get<"CDCL">(), Mapper::kFromDc);
    return point;
  }

  // A name that ILJ files don't allow has a text of its own: the conversion ends with it.
  [[nodiscard]] bool WritePoint(CMoskoJobRecordPoint point) {
    if (Write()) return true;
    if (!point.HasAll<"PTNM">()) {
      m_messages.push_back(FormatText(kBadPointName, point.Value<"PTNM">()));
    }
    return false;
  }

  template <class Position>
  [[nodiscard]] bool CarryGeodetic(Position& position, std::int32_t coordinates) {
    const CMoskoJobRecordPoint point = StartPoint(position, coordinates);
    point.Set<"LATI">(Radians(position.coord1));
    point.Set<"LONG">(Radians(position.coord2));
    point.Set<"HGHT">(DistanceIn(position.coord3));
    return WritePoint(point);
  }

  /// Nothing for a projection that the file says is missing.
  template <class Projection>
  std::optional<CMoskoJobRecordProjectionMappingPlane> StartPlane(const Projection& projection) {
    if (projection.projectionCode == L'1' || projection.projectionCode == L'>') return {};
    const std::int32_t kind = ProjectionIdFromCode(projection.projectionCode);
    const auto plane = Start<CMoskoJobRecordProjectionMappingPlane>();
    plane.Set<"MPTY">(kind);
    plane.Set<"LATI">(Radians(projection.originLatitude));
    plane.Set<"LONG">(Radians(projection.originLongitude));
    plane.Set<"HGHT">(DistanceIn(projection.originNorthing));
    plane.Set<"NRTH">(DistanceIn(projection.falseNorthing));
    plane.Set<"EAST">(DistanceIn(projection.falseEasting));
    plane.Set<"ELEV">(DistanceIn(projection.originEasting));
    plane.Set<"SCAL">(projection.scale);
    if (ilj::HasSkewAxis(kind)) {
      plane.Set<"LAT1">(AngleIn(projection.parallel1));
    } else {
      plane.Set<"LAT1">(Radians(projection.parallel1));
      plane.Set<"LAT2">(Radians(projection.parallel2));
    }
    return plane;
  }

  /// m_record as one of that tag, empty but for date and time.
  template <class Record>
  Record Start() {
    m_record.Restart(Record::kType);
    m_record.SetDateTime(m_now);
    return Record(m_record);
  }

  /// Writes the line of m_record; false, with nothing written, if it isn't valid.
  [[nodiscard]] bool Write() {
    if (!m_record.IsValid()) return false;
    m_text.clear();
    m_record.AppendText(m_text);
    m_ilj.WriteString(m_text);
    return true;
  }

  // Metres and radians.
  // The header's digits count from 1, ILJ's numbers of the same units from 0.
  double DistanceIn(double value) const {
    const auto unit = LinearUnitOfIlj(m_header ? m_header->distanceUnit - 1 : -1);
    return unit ? value * ToMetres(1, *unit) : DC_NULL;
  }

  // Without a known unit degrees, but null stays as it is.
  double AngleIn(double value) const {
    const auto unit = AngularUnitOfIlj(m_header ? m_header->angleUnit - 1 : -1);
    if (!unit && IsNull(value)) return value;
    return RadiansIn(value, unit.value_or(AngularUnit::DecimalDegrees));
  }

  CDcFile& m_dc;
  CTextFile& m_ilj;
  MessageList& m_messages;
  const std::int64_t m_now = CivilSeconds(CurrentLocalTime());  // which DC records don't know
  std::optional<tDC_HEADERRecord> m_header;

  // Memory that is used again for every line.
  DcLine m_line;
  std::string m_text;
  tDC_NOTERecord m_note;
  tDC_GPS_POSITIONRecord m_gpsPosition;
  tDC_LOCAL_POSITIONRecord m_localPosition;
  tDC_GRID_POSITIONRecord m_gridPosition;
  CMoskoJobRecord m_record;
  std::int64_t m_index = 0;  // of the record, from 0; blank lines and deleted records don't count
};

}  // namespace

bool CConvDCtoILJ::Convert(CDcFile& dcFile, CTextFile& iljFile, Report& report) {
  return DcToIlj(dcFile, iljFile, report.messages).Run();
}

}  // namespace zelconvert
