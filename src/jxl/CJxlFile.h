// The JobXML file, written only: a tree of elements that grows with each call and reaches the disk
// as a whole. docs/formats/jxl.md lists the elements.
//
// Lengths are metres. Angles are decimal degrees. DC_NULL in any number gives an empty element.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "io/CFileCE.h"
#include "io/Units.h"
#include "jxl/CXmlElement.h"
#include "platform/Platform.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// Units as the document names them: what has no name, no unit of length and decimal degrees, gives
/// empty texts.
struct JxlUnits {
  std::optional<LinearUnit> length = LinearUnit::Metre;
  AngularUnit angle = AngularUnit::DegreesMinutesSeconds;
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

  bool AreUsable() const { return !IsNull(horizontal) && !IsNull(vertical) && !IsNull(distance); }
};

/// Ids of the records that a shot was made with; 0 for none.
struct JxlSetup {
  std::uint32_t station = 0;
  std::uint32_t backBearing = 0;
  std::uint32_t target = 0;
};

/// A member of a raw record and the element that has its value; reals with six decimals.
template <class Record>
struct XmlField {
  const char* name;
  std::variant<std::wstring_view Record::*, double Record::*, std::int32_t Record::*> member;
};

class CJxlFile : public CFileCE {
 public:
  /// bNative: the source is a ".raw" or ".rw5" file, which decides the product's name.
  explicit CJxlFile(bool bNative) : CFileCE(false), m_bNative(bNative) {}

  /// Creates the file and writes its first line; false if it can't be created.
  [[nodiscard]] bool Create(const std::wstring& path);
  /// Starts a document; an earlier one is dropped. Until then every Add gives 0.
  void BeginDocument(std::wstring_view jobName, std::wstring_view productVersion,
                     const platform::LocalTime& time);
  /// Writes the document, if one was begun.
  void WriteDocument();
  /// The product's name, as the document has it.
  const char* Product() const { return m_bNative ? "Gridlark" : "Plumbwick"; }

  // Each adds one element with the next id, which is returned. Records go into the field book in
  // the order of the calls.
  std::uint32_t AddUnitsRecord(const JxlUnits& units);
  std::uint32_t AddCorrectionsRecord(bool southAzimuths);
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
  /// The target of the setup isn't written. Angles are decimal degrees here, too.
  std::uint32_t AddImageRecord(const JxlSetup& setup, std::uint32_t camera,
                               std::uint32_t pointRecord, const IM_RECORD& image);
  std::uint32_t AddCameraRecord(const CR_RECORD& camera);
  std::uint32_t AddNoteRecord(const XmlText& notes);
  /// The target of the setup isn't written.
  std::uint32_t AddScanningRecord(const JxlSetup& setup, const SC_RECORD& scan);
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

  template <class Fill>
  std::uint32_t AddRecord(const char* name, Fill fill);
  template <class Fill>
  std::uint32_t AddPointRecord(const XmlText& name, const XmlText& code, const PointForm& form,
                               Fill fill);
  template <class Record, std::size_t count>
  void AddFields(CXmlElement parent, const XmlField<Record> (&table)[count], const Record& record);
  void AddCircle(CXmlElement record, const JxlReadings& readings, const char* face,
                 std::span<const XmlFixedChild> rest);
  void AddSetup(CXmlElement record, const JxlSetup& setup);
  void AddGrid(CXmlElement parent, const char* name, const JxlPosition& grid);
  void AddId(CXmlElement parent, const char* name, std::uint32_t id);
  void AddNumber(CXmlElement parent, const char* name, double value, int decimals);
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

  // For deletions: the point records of each name, which lives in the tree, but for those that have
  // come since the last one, by their elements "Name" and "Deleted". Most logs have none.
  std::unordered_map<std::string_view, NamedRecords> m_records;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> m_newPointRecords;
  std::wstring m_number;  // reused
};

}  // namespace zelconvert
