// The JobXML file, written only: each call builds an element, which is written at once.
// docs/formats/jxl.md lists the elements.
//
// A deletion marks a record before it. So a log with deletions is gone through twice, with the same
// calls: first in a rehearsal, which writes nothing and finds the records that will be deleted.
//
// Lengths are metres. Angles are decimal degrees. DC_NULL in any number gives an empty element.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "convert/ConversionBase.h"
#include "io/CFileCE.h"
#include "io/NameSet.h"
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

  [[nodiscard]] bool IsWhole() const {
    return !IsNull(north) && !IsNull(east) && !IsNull(elevation);
  }
};

/// Readings of the circles and the slope distance.
struct JxlReadings {
  double horizontal = DC_NULL;
  double vertical = DC_NULL;
  double distance = DC_NULL;

  [[nodiscard]] bool AreUsable() const {
    return !IsNull(horizontal) && !IsNull(vertical) && !IsNull(distance);
  }
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
  std::variant<std::string_view Record::*, double Record::*, std::int32_t Record::*> member;
};

class CJxlFile : public CFileCE {
 public:
  /// bNative: the source is a ".raw" or ".rw5" file, which decides the product's name.
  explicit CJxlFile(bool bNative) : CFileCE(false), m_bNative(bNative) {}

  /// Creates the file and writes its first line; false if it can't be created.
  [[nodiscard]] bool Create(const std::wstring& path);
  /// Makes the next document a rehearsal. names: all those that DeletePoint will be given; have to
  /// outlive the document after it.
  void Rehearse(const NameSet& names);
  /// Starts a document, one a file and rehearsal. Until then every Add gives 0.
  void BeginDocument(std::wstring_view jobName, std::wstring_view productVersion,
                     const platform::LocalTime& time);
  /// Writes what is left of the document and ends it, if one was begun.
  void WriteDocument();
  /// The product's name, as the document has it.
  const char* Product() const { return m_bNative ? "Gridlark" : "Plumbwick"; }

  // Each adds one element with the next id, which is returned. Records go into the field book in
  // the order of the calls; points come after all of them.
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

  /// Marks the first point record of this name that isn't deleted yet: in the document after a
  /// rehearsal.
  void DeletePoint(std::wstring_view name);

  /// The next id of the one sequence that all kinds share; the first is 1. Throws ConversionFailure
  /// when its eight digits are used up.
  std::uint32_t NextId() {
    if (m_nextId == std::numeric_limits<std::uint32_t>::max()) throw ConversionFailure();
    return ++m_nextId;
  }
  /// Eight lower-case hexadecimal digits.
  static std::string FormatId(std::uint32_t id);

 private:
  using PointForm = XmlFixedChild[3];

  enum Container : int { kNoContainer = -1, kFieldBook, kReductions, kEnvironment };
  CXmlElement& ElementOf(Container container);
  [[nodiscard]] bool Enter(Container container);
  void Leave();
  [[nodiscard]] bool IsDeleted(const XmlText& name);
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

  /// The point records of a name: how many there are, and how many of the first are deleted.
  struct NamedRecords {
    std::uint32_t count = 0;
    std::uint32_t deletedCount = 0;
  };

  // The document but for what goes into the field book and the reductions.
  CXmlTree m_document;
  CXmlElement m_root;
  CXmlElement m_fieldBook;
  CXmlElement m_reductions;
  CXmlElement m_environment;
  CXmlTree m_element;                    // the record or point at hand
  Container m_container = kNoContainer;  // the last one of which something is written
  bool m_isOpen = false;                 // its first line is written, its last one isn't
  std::uint32_t m_nextId = 0;
  bool m_bNative;

  bool m_isRehearsing = false;
  const NameSet* m_deletedNames = nullptr;
  std::deque<NamedRecords> m_records;  // by the numbers of these names
  std::string m_utf8;                  // reused, as is the number
  std::string m_number;
};

}  // namespace zelconvert
