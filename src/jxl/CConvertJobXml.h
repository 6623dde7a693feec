// Raw log to JobXML: walks the log once and reduces each shot as far as a grid position.
// docs/formats/jxl.md tells what becomes of each record.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "io/Units.h"
#include "jxl/CJxlFile.h"
#include "jxl/JxlInstrument.h"
#include "raw/CRawFile.h"
#include "raw/NameSet.h"
#include "raw/RawIndex.h"

namespace zelconvert {

/// Points by name, in the order in which their names first came. A later point of a name takes the
/// place of the earlier one.
class KnownPoints {
 public:
  struct Point {
    std::string name;  // texts in UTF-8, which is the document's
    std::string description;
    JxlPosition position;
    bool isDeleted = false;
  };

  /// An empty description leaves that of an earlier point of the name.
  void Add(std::wstring_view name, std::wstring_view description, const JxlPosition& position);
  /// The live point of the name, or null.
  const Point* Find(std::wstring_view name) const;
  /// A live point of the name is there.
  bool PointExists(std::wstring_view name) const { return Find(name) != nullptr; }
  /// Marks the point of the name, if there is one.
  void Delete(std::wstring_view name);

  auto begin() const { return m_points.begin(); }
  auto end() const { return m_points.end(); }

 private:
  Point* FindEntry(std::wstring_view name);

  NameSet m_names;
  std::deque<Point> m_points;  // by the numbers of their names
};

class CConvertJobXml {
 public:
  /// bNative: the log is a ".raw" or ".rw5" file.
  explicit CConvertJobXml(bool bNative) : m_bNative(bNative) {}

  /// The file gets its document when all of the log could be converted; else a text says where the
  /// log is bad, the result is false, and the file has its first line alone.
  bool Convert(CRawFile& rawFile, CJxlFile& jxlFile, StringList& messages, StringList& files);

 private:
  struct Handler;
  static const Handler kHandlers[];

  /// A shot that waits for the record behind it, whose backsight it may turn out to be.
  struct PendingShot {
    bool isPending = false;
    std::wstring name;
    std::wstring description;
    JxlPosition position;
    JxlReadings readings;
    JxlSetup setup;
  };

  /// An occupied point that waits for a backsight, or for a traverse to go on from it.
  struct PendingOccupy {
    bool isPending = false;
    std::wstring name;
    std::wstring description;
    JxlPosition position;
  };

  std::wstring FindVersion(CRawFile& rawFile) const;
  bool BeginDocument(std::wstring_view line, std::wstring_view version);
  bool ConvertRecord(std::wstring_view line);
  bool Finish();

  // One for each kind of record that has an effect; false for a bad record.
  bool OnBacksight(std::wstring_view line);
  bool OnSecondJob(std::wstring_view line);
  bool OnHeights(std::wstring_view line);
  bool OnMode(std::wstring_view line);
  bool OnOccupy(std::wstring_view line);
  bool OnStoredPoint(std::wstring_view line);
  bool OnSideshot(std::wstring_view line);
  bool OnTraverse(std::wstring_view line);
  bool OnComment(std::wstring_view line);
  bool OnDelete(std::wstring_view line);
  bool OnScan(std::wstring_view line);
  bool OnCamera(std::wstring_view line);
  bool OnImage(std::wstring_view line);

  bool OnShot(std::wstring_view line, bool traverse);
  JxlInstrument::Heights FindHeights(std::wstring_view station);
  void FlushPendingShot();
  void JoinOccupiedPoint();

  // From the units of the log, and azimuths to those from north; null values pass.
  double ToDegrees(double angle) const;
  double ToNorthAzimuth(double angle) const;
  double ToMetres(double length) const;
  JxlPosition ToMetres(const POINT_RECORD& point) const;

  const bool m_bNative;
  CJxlFile* m_pJxlFile = nullptr;

  double m_scale = 1.0;
  JxlUnits m_sourceUnits;
  bool m_southAzimuths = false;
  bool m_firstMode = true;
  bool m_hasMore = false;  // than its first line
  std::int32_t m_line = 0;

  RawIndex m_index;
  KnownPoints m_points;
  PendingShot m_shot;
  PendingOccupy m_occupied;
  JxlInstrument m_instrument;
  std::uint32_t m_camera = 0;
  std::uint32_t m_lastPointRecord = 0;
};

}  // namespace zelconvert
