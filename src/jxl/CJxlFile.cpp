#include "jxl/CJxlFile.h"

#include <tuple>

#include "dc/RecordColumns.h"
#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// Decimals of the numbers in the document.
constexpr int kAngleDecimals = 6;
constexpr int kHeightDecimals = 3;
constexpr int kDistanceDecimals = 5;
constexpr int kPlaneDecimals = 6;  // north and east
constexpr int kElevationDecimals = 5;
constexpr int kFieldDecimals = 6;  // of what stands in a table of fields

/// Up to and with this vertical circle an instrument is in its first face. Readings that were
/// converted from gons or from minutes and seconds come within a billionth of the limit.
constexpr double kFirstFaceLimit = 180.0 + 1e-9;

// Children that say the same in every document.
constexpr XmlFixedChild kUnitsAfterAngle[] = {{"LatitudeLongitudeUnits", "DMSDegrees"},
                                              {"CoordinateOrder", "North-East-Elevation"},
                                              {"TemperatureUnits", ""},
                                              {"PressureUnits", ""},
                                              {"GradeUnits", "Percentage"},
                                              {"AreaUnits", ""}};
constexpr XmlFixedChild kCorrections[] = {{"GridOrientation", "IncreasingNorthEast"},
                                          {"MagneticDeclination", "0"},
                                          {"Distances", "GroundDistance"}};
constexpr XmlFixedChild kNeighbourhood[] = {{"Applied", "false"}, {"WeightExponent", "0.5"}};
constexpr XmlFixedChild kNames[] = {{"SystemName", ""}, {"ZoneName", ""}, {"DatumName", ""}};
constexpr XmlFixedChild kCircleRest[] = {{"HorizontalCircleStandardError", ""},
                                         {"VerticalCircleStandardError", ""},
                                         {"EDMDistanceStandardError", ""},
                                         {"EDMMeasurementMode", ""}};  // of a reading alone
constexpr XmlFixedChild kAtmosphere[] = {{"Pressure", ""}, {"Temperature", ""}};
constexpr XmlFixedChild kStationAfterHeight[] = {{"InstrumentID", ""},
                                                 {"AtmosphereID", ""},
                                                 {"NumberOfBacksightMeasurements", ""},
                                                 {"NumberOfBacksightPoints", ""},
                                                 {"ScaleFactor", ""},
                                                 {"ScaleType", "Fixed"},
                                                 {"ScaleFactorStandardError", ""},
                                                 {"StationType", "StationSetup"}};
constexpr XmlFixedChild kPrism[] = {{"PrismType", ""}, {"PrismConstant", ""}};

constexpr XmlFixedChild kEllipsoid[] = {{"EarthRadius", ""}, {"Flattening", ""}};
constexpr XmlFixedChild kProjection[] = {
    {"Type", ""}, {"Scale", ""}, {"SouthAzimuth", ""}, {"GridOrientation", ""}};
constexpr XmlFixedChild kLocalSite[] = {{"Type", ""},
                                        {"ProjectLocationLatitude", ""},
                                        {"ProjectLocationLongitude", ""},
                                        {"ProjectLocationHeight", ""}};
constexpr XmlFixedChild kType[] = {{"Type", ""}};
constexpr XmlFixedChild kLocation[] = {{"Latitude", ""}, {"Longitude", ""}, {"Height", ""}};

// The forms of a point record.
constexpr XmlFixedChild kDirectReading[] = {
    {"Method", "DirectReading"}, {"SurveyMethod", "Fix"}, {"Classification", "Normal"}};
constexpr XmlFixedChild kCoordinates[] = {
    {"Method", "Coordinates"}, {"SurveyMethod", "KeyedIn"}, {"Classification", "Normal"}};
constexpr XmlFixedChild kAzimuthOnly[] = {
    {"Method", "AzimuthOnly"}, {"SurveyMethod", "KeyedIn"}, {"Classification", "Normal"}};
constexpr XmlFixedChild kAngleOnly[] = {
    {"Method", "AngleOnly"}, {"SurveyMethod", "Fix"}, {"Classification", "BackSight"}};

struct LengthWords {
  const char* unit;
  const char* stationing;
};
/// By LinearUnit.
constexpr LengthWords kLengthWords[] = {
    {"Metres", "1+000.0"}, {"InternationalFeet", "10+00.0"}, {"USSurveyFeet", "10+00.0"}};

const char* WordFor(AngularUnit unit) {
  return unit == AngularUnit::DegreesMinutesSeconds ? "DMSDegrees"
         : unit == AngularUnit::Gon                 ? "Gons"
                                                    : "";
}

constexpr XmlField<CR_RECORD> kCamera[] = {
    {"X0", &CR_RECORD::x0},
    {"Y0", &CR_RECORD::y0},
    {"CK", &CR_RECORD::focalLength},
    {"Kappa", &CR_RECORD::kappa},
    {"Phi", &CR_RECORD::phi},
    {"Omega", &CR_RECORD::omega},
    {"S0", &CR_RECORD::s0},
    {"C0", &CR_RECORD::c0},
    {"Z0", &CR_RECORD::z0},
    {"I", &CR_RECORD::i},
    {"K1", &CR_RECORD::k1},
    {"P1", &CR_RECORD::p1},
    {"P2", &CR_RECORD::p2},
    {"PixelSizeX", &CR_RECORD::pixelSizeX},
    {"PixelSizeY", &CR_RECORD::pixelSizeY},
    {"PixelCountX", &CR_RECORD::pixelsX},
    {"PixelCountY", &CR_RECORD::pixelsY},
};
constexpr XmlField<IM_RECORD> kImage[] = {
    {"FileName", &IM_RECORD::fileName},
    {"HorizontalAngle", &IM_RECORD::horizontalAngle},
    {"VerticalAngle", &IM_RECORD::verticalAngle},
    {"Width", &IM_RECORD::width},
    {"Height", &IM_RECORD::height},
    {"SourceX", &IM_RECORD::startX},
    {"SourceY", &IM_RECORD::startY},
    {"SourceWidth", &IM_RECORD::sizeX},
    {"SourceHeight", &IM_RECORD::sizeY},
};
constexpr XmlField<SC_RECORD> kScan[] = {
    {"FileName", &SC_RECORD::fileName},
    {"NumberOfPoints", &SC_RECORD::points},
    {"HorizontalStep", &SC_RECORD::horizontalStep},
    {"VerticalStep", &SC_RECORD::verticalStep},
};

}  // namespace

bool CJxlFile::Create(const std::wstring& path) {
  if (!Open(path, platform::kCreateOutput)) return false;
  WriteLine(L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
  return true;
}

void CJxlFile::Rehearse(const NameSet& names) {
  m_isRehearsing = true;
  m_deletedNames = &names;
  m_records.assign(names.Size(), {});
}

void CJxlFile::BeginDocument(std::wstring_view jobName, std::wstring_view productVersion,
                             const platform::LocalTime& time) {
  m_nextId = 0;
  m_root = m_document.Restart("JOBFile", false);
  m_root.AddAttribute("jobName", jobName);
  m_root.AddAttribute("version", "4.0");
  m_root.AddAttribute("product", XmlText::Literal(Product()));
  m_root.AddAttribute("productVersion", productVersion);
  m_root.AddAttribute("productDBVersion", productVersion);
  m_root.AddAttribute("TimeStamp", FormatTime(L"Cy-m-dTH:M:S", time));
  m_fieldBook = m_root.AddSpacedChild("FieldBook");
  m_reductions = m_root.AddSpacedChild("Reductions");
  m_environment = m_root.AddSpacedChild("Environment");
}

void CJxlFile::WriteDocument() {
  if (m_root && !m_isRehearsing) {
    std::ignore = Enter(kEnvironment);
    m_root.WriteEnd(*this, 0);
  }
  m_root = m_fieldBook = m_reductions = m_environment = {};
  m_isRehearsing = false;
}

CXmlElement& CJxlFile::ElementOf(Container container) {
  return container == kFieldBook    ? m_fieldBook
         : container == kReductions ? m_reductions
                                    : m_environment;
}

/// Writes the document up to where a child of the container stands; the environment, which has all
/// of its children, whole. False if no document was begun, in a rehearsal, and after the container.
bool CJxlFile::Enter(Container container) {
  if (!m_root || m_isRehearsing || container < m_container) return false;
  if (m_container == kNoContainer) {
    m_root.WriteStart(*this, 0);
    m_container = kFieldBook;
  }
  while (m_container < container) Leave();
  if (container == kEnvironment) {
    m_environment.Write(*this, 1);
  } else if (!m_isOpen) {
    ElementOf(container).WriteStart(*this, 1);
    m_isOpen = true;
  }
  return true;
}

/// Ends the container at hand, which is written whole if it has no child.
void CJxlFile::Leave() {
  if (m_isOpen) {
    ElementOf(m_container).WriteEnd(*this, 1);
  } else {
    ElementOf(m_container).Write(*this, 1);
  }
  m_isOpen = false;
  m_container = static_cast<Container>(m_container + 1);
}

std::string CJxlFile::FormatId(std::uint32_t id) {
  std::string text(8, '0');
  for (std::size_t i = text.size(); i-- > 0; id >>= 4) text[i] = "0123456789abcdef"[id & 0xF];
  return text;
}

/// Adds a record and lets `fill` add its children.
template <class Fill>
std::uint32_t CJxlFile::AddRecord(const char* name, Fill fill) {
  if (!m_fieldBook) return 0;
  const std::uint32_t id = NextId();
  if (!Enter(kFieldBook)) return id;
  CXmlElement record = m_element.Restart(name, true);
  record.AddAttribute("ID", FormatId(id));
  record.AddAttribute("TimeStamp", "");
  fill(record);
  record.Write(*this, 2);
  return id;
}

void CJxlFile::AddId(CXmlElement parent, const char* name, std::uint32_t id) {
  if (id == 0) {
    parent.AddChild(name, "");
  } else {
    parent.AddChild(name, FormatId(id));
  }
}

void CJxlFile::AddNumber(CXmlElement parent, const char* name, double value, int decimals) {
  m_number.clear();
  AppendDcNumber(m_number, value, decimals);
  parent.AddChild(name, Trim(m_number));
}

void CJxlFile::AddGrid(CXmlElement parent, const char* name, const JxlPosition& grid) {
  CXmlElement element = parent.AddChild(name);
  AddNumber(element, "North", grid.north, kPlaneDecimals);
  AddNumber(element, "East", grid.east, kPlaneDecimals);
  AddNumber(element, "Elevation", grid.elevation, kElevationDecimals);
}

void CJxlFile::AddHeight(CXmlElement record, const char* name, const char* rawName, double height) {
  AddNumber(record, name, height, kHeightDecimals);
  CXmlElement raw = record.AddChild(rawName);
  raw.AddChild("MeasurementMethod", "TrueHeight");
  AddNumber(raw, "MeasuredHeight", height, kHeightDecimals);
  raw.AddChild("HorizontalOffset", "");
  raw.AddChild("VerticalOffset", "");
}

template <class Record, std::size_t count>
void CJxlFile::AddFields(CXmlElement parent, const XmlField<Record> (&table)[count],
                         const Record& record) {
  for (const XmlField<Record>& field : table) {
    if (const auto* text = std::get_if<0>(&field.member)) {
      parent.AddChild(field.name, record.**text);
    } else if (const auto* real = std::get_if<1>(&field.member)) {
      AddNumber(parent, field.name, record.**real, kFieldDecimals);
    } else {
      parent.AddChild(field.name, FormatInteger(record.**std::get_if<2>(&field.member)));
    }
  }
}

void CJxlFile::AddUnits(CXmlElement parent, const JxlUnits& units, bool withAzimuthFormat) {
  const LengthWords words =
      units.length ? kLengthWords[static_cast<int>(*units.length)] : LengthWords{"", ""};
  parent.AddChild("DistanceUnits", XmlText::Literal(words.unit));
  parent.AddChild("HeightUnits", XmlText::Literal(words.unit));
  parent.AddChild("AngleUnits", XmlText::Literal(WordFor(units.angle)));
  if (withAzimuthFormat) parent.AddChild("AzimuthFormat", "Azimuth");
  parent.AddFixedChildren(kUnitsAfterAngle);
  parent.AddChild("StationingFormat", XmlText::Literal(words.stationing));
}

std::uint32_t CJxlFile::AddUnitsRecord(const JxlUnits& units) {
  return AddRecord("UnitsRecord", [&](CXmlElement record) { AddUnits(record, units, false); });
}

std::uint32_t CJxlFile::AddDisplaySettings(const JxlUnits& units) {
  if (!m_environment) return 0;
  AddUnits(m_environment.AddChild("DisplaySettings"), units, true);
  return NextId();
}

std::uint32_t CJxlFile::AddCorrectionsRecord(bool southAzimuths) {
  return AddRecord("CorrectionsRecord", [&](CXmlElement record) {
    record.AddChild("SouthAzimuth", XmlText::Literal(southAzimuths ? "true" : "false"));
    record.AddFixedChildren(kCorrections);
    record.AddChild("NeighbourhoodAdjustment").AddFixedChildren(kNeighbourhood);
  });
}

template <class Fill>
std::uint32_t CJxlFile::AddPointRecord(const XmlText& name, const XmlText& code,
                                       const PointForm& form, Fill fill) {
  const bool isDeleted = IsDeleted(name);
  return AddRecord("PointRecord", [&](CXmlElement record) {
    record.AddChild("Name", name);
    record.AddChild("Code", code);
    record.AddFixedChildren(form);
    record.AddChild("Deleted", XmlText::Literal(isDeleted ? "true" : "false"));
    fill(record);
  });
}

/// Of a point record that is being added. In a rehearsal it is counted.
bool CJxlFile::IsDeleted(const XmlText& name) {
  const auto number = m_deletedNames ? m_deletedNames->Find(name.Utf8(m_utf8)) : std::nullopt;
  if (!number) return false;
  NamedRecords& records = m_records[*number];
  if (m_isRehearsing) ++records.count;
  if (m_isRehearsing || records.deletedCount == 0) return false;
  --records.deletedCount;
  return true;
}

void CJxlFile::DeletePoint(std::wstring_view name) {
  if (!m_isRehearsing) return;
  NamedRecords& records = m_records[*m_deletedNames->Find(name)];
  if (records.deletedCount < records.count) ++records.deletedCount;
}

void CJxlFile::AddCircle(CXmlElement record, const JxlReadings& readings, const char* face,
                         std::span<const XmlFixedChild> rest) {
  CXmlElement circle = record.AddChild("Circle");
  AddNumber(circle, "HorizontalCircle", readings.horizontal, kAngleDecimals);
  AddNumber(circle, "VerticalCircle", readings.vertical, kAngleDecimals);
  AddNumber(circle, "EDMDistance", readings.distance, kDistanceDecimals);
  circle.AddChild("Face", XmlText::Literal(face));
  circle.AddFixedChildren(rest);
}

void CJxlFile::AddSetup(CXmlElement record, const JxlSetup& setup) {
  AddId(record, "StationID", setup.station);
  AddId(record, "BackBearingID", setup.backBearing);
  AddId(record, "TargetID", setup.target);
  record.AddFixedChildren(kAtmosphere);
}

std::uint32_t CJxlFile::AddDirectReading(const XmlText& name, const XmlText& code,
                                         const JxlReadings& readings, const JxlSetup& setup,
                                         const JxlPosition& grid) {
  return AddPointRecord(name, code, kDirectReading, [&](CXmlElement record) {
    const bool usable = readings.AreUsable();
    const char* face = !usable ? "" : readings.vertical <= kFirstFaceLimit ? "Face1" : "Face2";
    AddCircle(record, usable ? readings : JxlReadings{}, face, kCircleRest);
    AddSetup(record, setup);
    AddGrid(record, "ComputedGrid", grid);
  });
}

std::uint32_t CJxlFile::AddCoordinates(const XmlText& name, const XmlText& code,
                                       const JxlPosition& grid) {
  return AddPointRecord(name, code, kCoordinates,
                        [&](CXmlElement record) { AddGrid(record, "Grid", grid); });
}

std::uint32_t CJxlFile::AddAzimuthOnly(const XmlText& name, const XmlText& sourcePoint,
                                       double azimuth) {
  return AddPointRecord(name, {}, kAzimuthOnly, [&](CXmlElement record) {
    record.AddChild("SourcePoint", sourcePoint);
    AddNumber(record, "Azimuth", azimuth, kAngleDecimals);
    record.AddChild("AzimuthType", "Grid");
  });
}

std::uint32_t CJxlFile::AddAngleOnly(const XmlText& name, double horizontalCircle,
                                     const JxlSetup& setup, const JxlPosition& grid) {
  return AddPointRecord(name, {}, kAngleOnly, [&](CXmlElement record) {
    // The form has a level line of sight in face one, whatever the shot was.
    AddCircle(record, {horizontalCircle, 90.0, DC_NULL}, "Face1", std::span(kCircleRest).first(3));
    AddSetup(record, setup);
    if (grid.IsWhole()) AddGrid(record, "ComputedGrid", grid);
  });
}

std::uint32_t CJxlFile::AddStationRecord(const XmlText& name, double instrumentHeight) {
  return AddRecord("StationRecord", [&](CXmlElement record) {
    record.AddChild("StationName", name);
    AddHeight(record, "TheodoliteHeight", "RawTheodoliteHeight", instrumentHeight);
    record.AddFixedChildren(kStationAfterHeight);
  });
}

std::uint32_t CJxlFile::AddBackBearingRecord(std::uint32_t stationRecord, const XmlText& station,
                                             const XmlText& backsight, double circle,
                                             double orientationCorrection) {
  return AddRecord("BackBearingRecord", [&](CXmlElement record) {
    AddId(record, "StationRecordID", stationRecord);
    record.AddChild("Station", station);
    record.AddChild("BackSight", backsight);
    AddNumber(record, "Face1HorizontalCircle", circle, kAngleDecimals);
    record.AddChild("Face2HorizontalCircle", "");
    AddNumber(record, "OrientationCorrection", orientationCorrection, kAngleDecimals);
    record.AddChild("OrientationCorrectionStandardError", "");
  });
}

std::uint32_t CJxlFile::AddTargetRecord(double targetHeight) {
  return AddRecord("TargetRecord", [&](CXmlElement record) {
    record.AddFixedChildren(kPrism);
    AddHeight(record, "TargetHeight", "RawTargetHeight", targetHeight);
  });
}

std::uint32_t CJxlFile::AddImageRecord(const JxlSetup& setup, std::uint32_t camera,
                                       std::uint32_t pointRecord, const IM_RECORD& image) {
  return AddRecord("ImageRecord", [&](CXmlElement record) {
    AddId(record, "StationID", setup.station);
    AddId(record, "BackBearingID", setup.backBearing);
    AddId(record, "CameraID", camera);
    AddId(record, "PointRecordID", pointRecord);
    AddFields(record, kImage, image);
  });
}

std::uint32_t CJxlFile::AddCameraRecord(const CR_RECORD& camera) {
  return AddRecord("CameraRecord", [&](CXmlElement record) { AddFields(record, kCamera, camera); });
}

std::uint32_t CJxlFile::AddNoteRecord(const XmlText& notes) {
  return AddRecord("NoteRecord", [&](CXmlElement record) { record.AddChild("Notes", notes); });
}

std::uint32_t CJxlFile::AddScanningRecord(const JxlSetup& setup, const SC_RECORD& scan) {
  return AddRecord("ScanningRecord", [&](CXmlElement record) {
    AddId(record, "StationID", setup.station);
    AddId(record, "BackBearingID", setup.backBearing);
    record.AddChild("Type", "ScanRectangle");
    AddFields(record, kScan, scan);
  });
}

std::uint32_t CJxlFile::AddPoint(const XmlText& name, const XmlText& code,
                                 const JxlPosition& grid) {
  if (!m_reductions) return 0;
  const std::uint32_t id = NextId();
  if (!Enter(kReductions)) return id;
  CXmlElement point = m_element.Restart("Point", false);
  point.AddAttribute("ID", FormatId(id));
  AddId(point, "ID", id);
  point.AddChild("Name", name);
  point.AddChild("Code", code);
  AddGrid(point, "Grid", grid);
  point.Write(*this, 2);
  return id;
}

std::uint32_t CJxlFile::AddCoordinateSystem() {
  if (!m_environment) return 0;
  CXmlElement system = m_environment.AddChild("CoordinateSystem");
  system.AddFixedChildren(kNames);
  system.AddChild("Ellipsoid").AddFixedChildren(kEllipsoid);
  system.AddChild("Projection").AddFixedChildren(kProjection);
  system.AddChild("LocalSite").AddFixedChildren(kLocalSite);
  for (const char* name : {"Datum", "HorizontalAdjustment", "VerticalAdjustment"}) {
    system.AddChild(name).AddFixedChildren(kType);
  }
  CXmlElement factor = system.AddChild("CombinedScaleFactor");
  factor.AddChild("Location").AddFixedChildren(kLocation);
  factor.AddChild("Scale", "1.000000000");
  return NextId();
}

}  // namespace zelconvert
