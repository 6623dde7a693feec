#include "jxl/CJxlFile.h"

#include <cstddef>

#include "dc/RecordColumns.h"
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
constexpr int kCameraDecimals = 6;

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

struct DistanceWords {
  const char* unit;
  const char* stationing;
};
constexpr DistanceWords kDistanceWords[] = {
    {"InternationalFeet", "10+00.0"}, {"Metres", "1+000.0"}, {"USSurveyFeet", "10+00.0"}};
constexpr const char* kAngleWords[] = {"DMSDegrees", "Gons"};

template <class Word, std::size_t N>
Word WordFor(const Word (&words)[N], std::int32_t code, Word otherwise) {
  return code >= 0 && static_cast<std::size_t>(code) < N ? words[code] : otherwise;
}

void AppendTwoDigits(std::wstring& text, wchar_t before, int value) {
  text += before;
  text += static_cast<wchar_t>(L'0' + value / 10 % 10);
  text += static_cast<wchar_t>(L'0' + value % 10);
}

// "%Y-%m-%dT%H:%M:%S"
std::wstring FormatTimeStamp(const platform::LocalTime& time) {
  std::wstring text;
  std::wstring year = FormatInteger(time.year);
  text.append(year.size() < 4 ? 4 - year.size() : 0, L'0').append(year);
  AppendTwoDigits(text, L'-', time.month);
  AppendTwoDigits(text, L'-', time.day);
  AppendTwoDigits(text, L'T', time.hour);
  AppendTwoDigits(text, L':', time.minute);
  AppendTwoDigits(text, L':', time.second);
  return text;
}

}  // namespace

bool JxlReadings::AreUsable() const {
  return !IsNull(horizontal) && !IsNull(vertical) && !IsNull(distance);
}

CJxlFile::CJxlFile(bool bNative) : CFileCE(false), m_bNative(bNative) {}

CJxlFile::~CJxlFile() = default;

bool CJxlFile::Create(const std::wstring& path) {
  return Open(path, platform::kCreateOutput) &&
         WriteLine(L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

void CJxlFile::BeginDocument(std::wstring_view jobName, std::wstring_view productVersion,
                             const platform::LocalTime& time) {
  m_records.clear();
  m_lastIndexed = {};
  m_tree = std::make_unique<CXmlTree>("JOBFile");
  m_root = m_tree->Root();
  m_root.AddAttribute("jobName", jobName);
  m_root.AddAttribute("version", "4.0");
  m_root.AddAttribute("product", XmlText::Literal(m_bNative ? "Gridlark" : "Plumbwick"));
  m_root.AddAttribute("productVersion", productVersion);
  m_root.AddAttribute("productDBVersion", productVersion);
  m_root.AddAttribute("TimeStamp", FormatTimeStamp(time));
  m_fieldBook = m_root.AddSpacedChild("FieldBook");
  m_reductions = m_root.AddSpacedChild("Reductions");
  m_environment = m_root.AddSpacedChild("Environment");
}

bool CJxlFile::WriteDocument() {
  return m_root && m_root.Write(*this, 0);
}

std::wstring CJxlFile::FormatId(std::uint32_t id) {
  std::wstring text(8, L'0');
  for (std::size_t i = text.size(); i-- > 0; id >>= 4) text[i] = L"0123456789abcdef"[id & 0xF];
  return text;
}

CXmlElement CJxlFile::AddRecord(const char* name, std::uint32_t& id) {
  CXmlElement record = m_fieldBook.AddSpacedChild(name);
  id = NextId();
  record.AddAttribute("ID", FormatId(id));
  record.AddAttribute("TimeStamp", "");
  return record;
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

void CJxlFile::AddInteger(CXmlElement parent, const char* name, std::int32_t value) {
  parent.AddChild(name, FormatInteger(value));
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

void CJxlFile::AddUnits(CXmlElement parent, const JxlUnits& units, bool withAzimuthFormat) {
  const DistanceWords words = WordFor(kDistanceWords, units.distance, DistanceWords{"", ""});
  parent.AddChild("DistanceUnits", XmlText::Literal(words.unit));
  parent.AddChild("HeightUnits", XmlText::Literal(words.unit));
  parent.AddChild("AngleUnits", XmlText::Literal(WordFor(kAngleWords, units.angle, "")));
  if (withAzimuthFormat) parent.AddChild("AzimuthFormat", "Azimuth");
  parent.AddFixedChildren(kUnitsAfterAngle);
  parent.AddChild("StationingFormat", XmlText::Literal(words.stationing));
}

std::uint32_t CJxlFile::AddUnitsRecord(const JxlUnits& units) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  AddUnits(AddRecord("UnitsRecord", id), units, false);
  return id;
}

std::uint32_t CJxlFile::AddDisplaySettings(const JxlUnits& units) {
  if (!m_environment) return 0;
  AddUnits(m_environment.AddChild("DisplaySettings"), units, true);
  return NextId();
}

std::uint32_t CJxlFile::AddCorrectionsRecord(bool southAzimuths) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("CorrectionsRecord", id);
  record.AddChild("SouthAzimuth", XmlText::Literal(southAzimuths ? "true" : "false"));
  record.AddFixedChildren(kCorrections);
  record.AddChild("NeighbourhoodAdjustment").AddFixedChildren(kNeighbourhood);
  return id;
}

std::uint32_t CJxlFile::AddCoordinateSystemRecord() {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  AddRecord("CoordinateSystemRecord", id).AddFixedChildren(kNames);
  return id;
}

CXmlElement CJxlFile::AddPointRecord(const XmlText& name, const XmlText& code,
                                     const PointForm& form, std::uint32_t& id) {
  CXmlElement record = AddRecord("PointRecord", id);
  record.AddChild("Name", name);
  record.AddChild("Code", code);
  record.AddFixedChildren(form);
  record.AddChild("Deleted", "false");
  return record;
}

/// Adds what has come since the last call.
void CJxlFile::IndexPointRecords() {
  CXmlElement record = m_lastIndexed ? m_lastIndexed.NextSibling() : m_fieldBook.FirstChild();
  for (; record; record = record.NextSibling()) {
    m_lastIndexed = record;
    if (record.Name() != "PointRecord") continue;
    const CXmlElement name = record.FirstChild();
    CXmlElement deleted = name;
    while (deleted.Name() != "Deleted") deleted = deleted.NextSibling();
    m_records[name.Text()].deletedElements.push_back(deleted.Index());
  }
}

void CJxlFile::DeletePoint(std::wstring_view name) {
  if (!m_fieldBook) return;
  IndexPointRecords();
  std::string utf8;
  AppendXmlCharacters(utf8, name);
  const auto entry = m_records.find(utf8);
  if (entry == m_records.end()) return;
  NamedRecords& records = entry->second;
  if (records.deletedCount == records.deletedElements.size()) return;
  m_tree->Element(records.deletedElements[records.deletedCount++]).SetText("true");
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
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddPointRecord(name, code, kDirectReading, id);
  const bool usable = readings.AreUsable();
  const char* face = !usable ? "" : readings.vertical <= kFirstFaceLimit ? "Face1" : "Face2";
  AddCircle(record, usable ? readings : JxlReadings{}, face, kCircleRest);
  AddSetup(record, setup);
  AddGrid(record, "ComputedGrid", grid);
  return id;
}

std::uint32_t CJxlFile::AddCoordinates(const XmlText& name, const XmlText& code,
                                       const JxlPosition& grid) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  AddGrid(AddPointRecord(name, code, kCoordinates, id), "Grid", grid);
  return id;
}

std::uint32_t CJxlFile::AddAzimuthOnly(const XmlText& name, const XmlText& sourcePoint,
                                       double azimuth) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddPointRecord(name, {}, kAzimuthOnly, id);
  record.AddChild("SourcePoint", sourcePoint);
  AddNumber(record, "Azimuth", azimuth, kAngleDecimals);
  record.AddChild("AzimuthType", "Grid");
  return id;
}

std::uint32_t CJxlFile::AddAngleOnly(const XmlText& name, double horizontalCircle,
                                     const JxlSetup& setup, const JxlPosition& grid) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddPointRecord(name, {}, kAngleOnly, id);
  // The form has a level line of sight in face one, whatever the shot was.
  AddCircle(record, {horizontalCircle, 90.0, DC_NULL}, "Face1", std::span(kCircleRest).first(3));
  AddSetup(record, setup);
  if (grid.IsWhole()) AddGrid(record, "ComputedGrid", grid);
  return id;
}

std::uint32_t CJxlFile::AddStationRecord(const XmlText& name, double instrumentHeight) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("StationRecord", id);
  record.AddChild("StationName", name);
  AddHeight(record, "TheodoliteHeight", "RawTheodoliteHeight", instrumentHeight);
  record.AddFixedChildren(kStationAfterHeight);
  return id;
}

std::uint32_t CJxlFile::AddBackBearingRecord(std::uint32_t stationRecord, const XmlText& station,
                                             const XmlText& backsight, double circle,
                                             double orientationCorrection) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("BackBearingRecord", id);
  AddId(record, "StationRecordID", stationRecord);
  record.AddChild("Station", station);
  record.AddChild("BackSight", backsight);
  AddNumber(record, "Face1HorizontalCircle", circle, kAngleDecimals);
  record.AddChild("Face2HorizontalCircle", "");
  AddNumber(record, "OrientationCorrection", orientationCorrection, kAngleDecimals);
  record.AddChild("OrientationCorrectionStandardError", "");
  return id;
}

std::uint32_t CJxlFile::AddTargetRecord(double targetHeight) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("TargetRecord", id);
  record.AddFixedChildren(kPrism);
  AddHeight(record, "TargetHeight", "RawTargetHeight", targetHeight);
  return id;
}

std::uint32_t CJxlFile::AddImageRecord(const JxlImage& image) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("ImageRecord", id);
  AddId(record, "StationID", image.setup.station);
  AddId(record, "BackBearingID", image.setup.backBearing);
  AddId(record, "CameraID", image.camera);
  AddId(record, "PointRecordID", image.pointRecord);
  record.AddChild("FileName", image.fileName);
  AddNumber(record, "HorizontalAngle", image.horizontalAngle, kAngleDecimals);
  AddNumber(record, "VerticalAngle", image.verticalAngle, kAngleDecimals);
  AddInteger(record, "Width", image.width);
  AddInteger(record, "Height", image.height);
  AddInteger(record, "SourceX", image.sourceX);
  AddInteger(record, "SourceY", image.sourceY);
  AddInteger(record, "SourceWidth", image.sourceWidth);
  AddInteger(record, "SourceHeight", image.sourceHeight);
  return id;
}

std::uint32_t CJxlFile::AddCameraRecord(const JxlCamera& camera) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("CameraRecord", id);
  const auto real = [&](const char* name, double value) {
    AddNumber(record, name, value, kCameraDecimals);
  };
  const auto integer = [&](const char* name, std::int32_t value) {
    AddInteger(record, name, value);
  };
  real("X0", camera.x0);
  real("Y0", camera.y0);
  real("CK", camera.ck);
  real("Kappa", camera.kappa);
  real("Phi", camera.phi);
  real("Omega", camera.omega);
  real("S0", camera.s0);
  real("C0", camera.c0);
  real("Z0", camera.z0);
  real("I", camera.i);
  integer("K1", camera.k1);
  integer("P1", camera.p1);
  integer("P2", camera.p2);
  real("PixelSizeX", camera.pixelSizeX);
  real("PixelSizeY", camera.pixelSizeY);
  integer("PixelCountX", camera.pixelCountX);
  integer("PixelCountY", camera.pixelCountY);
  return id;
}

std::uint32_t CJxlFile::AddNoteRecord(const XmlText& notes) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  AddRecord("NoteRecord", id).AddChild("Notes", notes);
  return id;
}

std::uint32_t CJxlFile::AddScanningRecord(const JxlScan& scan) {
  if (!m_fieldBook) return 0;
  std::uint32_t id = 0;
  CXmlElement record = AddRecord("ScanningRecord", id);
  AddId(record, "StationID", scan.setup.station);
  AddId(record, "BackBearingID", scan.setup.backBearing);
  record.AddChild("Type", "ScanRectangle");
  record.AddChild("FileName", scan.fileName);
  AddInteger(record, "NumberOfPoints", scan.points);
  AddNumber(record, "HorizontalStep", scan.horizontalStep, kAngleDecimals);
  AddNumber(record, "VerticalStep", scan.verticalStep, kAngleDecimals);
  return id;
}

std::uint32_t CJxlFile::AddPoint(const XmlText& name, const XmlText& code,
                                 const JxlPosition& grid) {
  if (!m_reductions) return 0;
  const std::uint32_t id = NextId();
  CXmlElement point = m_reductions.AddChild("Point");
  point.AddAttribute("ID", FormatId(id));
  AddId(point, "ID", id);
  point.AddChild("Name", name);
  point.AddChild("Code", code);
  AddGrid(point, "Grid", grid);
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
