// The JobXML file, written only: a tree of elements that grows with each call and reaches the disk
// as a whole. docs/formats/jxl.md lists the elements.
//
// Lengths are metres. Angles are decimal degrees. DC_NULL in any number gives an empty element.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "io/CFileCE.h"
#include "io/Units.h"
#include "jxl/CXmlElement.h"
#include "platform/Platform.h"

namespace zelconvert {

/// Units as the document names them, by the codes of raw logs. Others give empty texts.
struct JxlUnits {
  std::int32_t distance = 1;  ///< 0 international feet, 1 metres, 2 US survey feet
  std::int32_t angle = 0;     ///< 0 degrees, 1 gons
};

struct JxlPosition {
  double north = DC_NULL;
  double east = DC_NULL;
  double elevation = DC_NULL;

  bool IsWhole() const { return !IsNull(north) && !IsNull(east) && !IsNull(elevation); }
};

/// Readings of the circles and the slope distance.
struct JxlReadings {
  double horizontal = DC_NULL;
  double vertical = DC_NULL;
  double distance = DC_NULL;

  bool AreUsable() const;
};

/// Ids of the records that a shot was made with; 0 for none.
struct JxlSetup {
  std::uint32_t station = 0;
  std::uint32_t backBearing = 0;
  std::uint32_t target = 0;
};

struct JxlCamera {
  double x0, y0, ck, kappa, phi, omega, s0, c0, z0, i;
  std::int32_t k1, p1, p2;
  double pixelSizeX, pixelSizeY;
  std::int32_t pixelCountX, pixelCountY;
};

struct JxlImage {
  JxlSetup setup;  ///< the target isn't written
  std::uint32_t camera = 0;
  std::uint32_t pointRecord = 0;
  std::wstring_view fileName;
  double horizontalAngle = DC_NULL;
  double verticalAngle = DC_NULL;
  std::int32_t width = 0, height = 0;
  std::int32_t sourceX = 0, sourceY = 0, sourceWidth = 0, sourceHeight = 0;
};

struct JxlScan {
  JxlSetup setup;  ///< the target isn't written
  std::wstring_view fileName;
  std::int32_t points = 0;
  double horizontalStep = DC_NULL;
  double verticalStep = DC_NULL;
};

class CJxlFile : public CFileCE {
 public:
  /// bNative: the source is a ".raw" or ".rw5" file, which decides the product's name.
  explicit CJxlFile(bool bNative);
  ~CJxlFile() override;

  /// Creates the file and writes its first line; false if it can't be created.
  bool Create(const std::wstring& path);
  /// Starts a document; an earlier one is dropped. Until then every Add gives 0.
  void BeginDocument(std::wstring_view jobName, std::wstring_view productVersion,
                     const platform::LocalTime& time);
  /// Writes the document. False if none was begun or a write failed.
  bool WriteDocument();

  // Each adds one element with the next id, which is returned. Records go into the field book in
  // the order of the calls.
  std::uint32_t AddUnitsRecord(const JxlUnits& units);
  std::uint32_t AddCorrectionsRecord(bool southAzimuths);
  std::uint32_t AddCoordinateSystemRecord();
  std::uint32_t AddDirectReading(const XmlText& name, const XmlText& code,
                                 const JxlReadings& readings, const JxlSetup& setup,
                                 const JxlPosition& grid);
  std::uint32_t AddCoordinates(const XmlText& name, const XmlText& code, const JxlPosition& grid);
  std::uint32_t AddAzimuthOnly(const XmlText& name, const XmlText& sourcePoint, double azimuth);
  std::uint32_t AddAngleOnly(const XmlText& name, double horizontalCircle, const JxlSetup& setup,
                             const JxlPosition& grid);
  std::uint32_t AddStationRecord(const XmlText& name, double instrumentHeight);
  std::uint32_t AddBackBearingRecord(std::uint32_t stationRecord, const XmlText& station,
                                     const XmlText& backsight, double circle,
                                     double orientationCorrection);
  std::uint32_t AddTargetRecord(double targetHeight);
  std::uint32_t AddImageRecord(const JxlImage& image);
  std::uint32_t AddCameraRecord(const JxlCamera& camera);
  std::uint32_t AddNoteRecord(const XmlText& notes);
  std::uint32_t AddScanningRecord(const JxlScan& scan);
  std::uint32_t AddPoint(const XmlText& name, const XmlText& code, const JxlPosition& grid);
  std::uint32_t AddDisplaySettings(const JxlUnits& units);
  std::uint32_t AddCoordinateSystem();

  /// Marks the first point record of this name that isn't deleted yet.
  void DeletePoint(std::wstring_view name);

  /// The next id of the one sequence that all kinds share; the first is 1.
  std::uint32_t NextId() { return ++m_nextId; }
  /// Eight lower-case hexadecimal digits.
  static std::wstring FormatId(std::uint32_t id);

 private:
  using PointForm = XmlFixedChild[3];

  CXmlElement AddRecord(const char* name, std::uint32_t& id);
  CXmlElement AddPointRecord(const XmlText& name, const XmlText& code, const PointForm& form,
                             std::uint32_t& id);
  void AddCircle(CXmlElement record, const JxlReadings& readings, const char* face,
                 std::span<const XmlFixedChild> rest);
  void IndexPointRecords();
  void AddSetup(CXmlElement record, const JxlSetup& setup);
  void AddGrid(CXmlElement parent, const char* name, const JxlPosition& grid);
  void AddId(CXmlElement parent, const char* name, std::uint32_t id);
  void AddNumber(CXmlElement parent, const char* name, double value, int decimals);
  void AddInteger(CXmlElement parent, const char* name, std::int32_t value);
  void AddHeight(CXmlElement record, const char* name, const char* rawName, double height);
  void AddUnits(CXmlElement parent, const JxlUnits& units, bool withAzimuthFormat);

  /// The elements "Deleted" of the point records of a name, and how many say "true".
  struct NamedRecords {
    std::vector<std::uint32_t> deletedElements;
    std::size_t deletedCount = 0;
  };

  std::unique_ptr<CXmlTree> m_tree;
  CXmlElement m_root;
  CXmlElement m_fieldBook;
  CXmlElement m_reductions;
  CXmlElement m_environment;
  std::uint32_t m_nextId = 0;
  bool m_bNative;

  // For deletions: the point records of each name, which lives in the tree, up to m_lastIndexed.
  // Most logs never need it.
  std::unordered_map<std::string_view, NamedRecords> m_records;
  CXmlElement m_lastIndexed;
  std::wstring m_number;  // reused
};

}  // namespace zelconvert
