// The blocks and records of a job file. Each layout is stated once, as a walk over its fields that
// the reader and the writer both run (io/BinaryFields.h); docs/formats/job.md tells the whole file.
// Lengths are metres and angles radians, whatever units the job displays. A real that holds no
// value is DC_NULL.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "io/BinaryFields.h"
#include "platform/Platform.h"

namespace zelconvert {

/// What a record holds, as its reader sees it: an old kind is reported as its new one, an unknown
/// kind as Unused.
enum class JobKind : std::uint32_t {
  Unused = 0,  ///< a deleted record: its payload stays and is skipped
  Record4 = 4,
  Record7 = 7,
  Record9 = 9,
  Record10 = 10,  ///< road
  Layer = 11,
  Record12 = 12,  ///< known, but nothing reads it
  Point = 13,
  PointEx = 14,
  Record15 = 15,  ///< line or link
  Record16 = 16,  ///< road element
  Attributes = 17,
  Record18 = 18,
};

[[nodiscard]] constexpr bool IsPoint(JobKind kind) {
  return kind == JobKind::Point || kind == JobKind::PointEx;
}

/// A job of version 3 or below writes some kinds under an old number and in a shorter form, which
/// is the front of the new one.
struct JobKindInfo {
  JobKind kind;
  std::uint32_t length;  ///< bytes of payload; 0 if it varies
  std::uint32_t oldKind = 0;
  std::uint32_t oldLength = 0;
};

inline constexpr JobKindInfo kJobKinds[] = {
    {JobKind::Point, 100, 1, 92},   {JobKind::PointEx, 132, 2, 124},
    {JobKind::Record15, 88, 3, 80}, {JobKind::Record16, 112, 8, 104},
    {JobKind::Record4, 72},         {JobKind::Record7, 110},
    {JobKind::Record9, 70},         {JobKind::Record10, 88},
    {JobKind::Layer, 42},           {JobKind::Record12, 0},
    {JobKind::Attributes, 0},       {JobKind::Record18, 542},
};

constexpr JobKindInfo InfoOf(JobKind kind) {
  for (const JobKindInfo& info : kJobKinds) {
    if (info.kind == kind) return info;
  }
  return {JobKind::Unused, 0};
}

enum class JobRecordForm { Old, New };

/// Characters of a name or description, and the UTF-16 units of its field with the terminator.
inline constexpr std::size_t kJobNameLength = 16;
inline constexpr std::size_t kJobNameUnits = kJobNameLength + 1;
inline constexpr std::size_t kJobPathUnits = 261;

/// The layer every converted point lies on.
inline constexpr std::uint32_t kDefaultLayerId = 101;
inline constexpr std::uint16_t kDefaultLayerFlag = 0x0001;

/// Texts longer than their field are cut when they are written, never inside a surrogate pair.
struct JOB_POINT {
  static constexpr JobKindInfo kInfo = InfoOf(JobKind::Point);
  static constexpr std::size_t kLayerOffset = 92;
  static constexpr std::size_t kLinkOffset = 96;

  std::wstring name;
  std::wstring description;
  double east = 0;
  double north = 0;
  double elevation = 0;             ///< DC_NULL: none
  std::uint32_t layer = 0;          ///< id of a JOB_LAYER
  std::uint32_t attributeLink = 0;  ///< offset of the attribute record in the file, 0: none

  template <class Io, class Record>
  static void Walk(Io& io, Record& point, JobRecordForm form) {
    WalkHead(io, point);
    if (form == JobRecordForm::Old) return;  // ends before the layer
    io.Field(kLayerOffset, point.layer);
    io.Field(kLinkOffset, point.attributeLink);
  }
  template <class Io, class Name>
  static void WalkName(Io& io, Name& name) {
    io.Text(0, name, kJobNameUnits);
  }
  /// What both kinds of point begin with.
  template <class Io, class Record>
  static void WalkHead(Io& io, Record& point) {
    WalkName(io, point.name);
    io.Text(34, point.description, kJobNameUnits);
    WalkNumbers(io, 68, point.east, point.north, point.elevation);
  }
};

struct JOB_POINT_EX : JOB_POINT {
  static constexpr JobKindInfo kInfo = InfoOf(JobKind::PointEx);
  static constexpr std::size_t kLinkOffset = 128;

  std::array<std::byte, 32> further{};  ///< carried as it stands

  template <class Io, class Record>
  static void Walk(Io& io, Record& point, JobRecordForm form) {
    WalkHead(io, point);
    io.Field(kLayerOffset, point.layer);
    io.Bytes(96, std::span(point.further).first(form == JobRecordForm::Old ? 28 : 32));
    if (form == JobRecordForm::Old) return;
    io.Field(kLinkOffset, point.attributeLink);
  }
};

struct JOB_LAYER {
  static constexpr JobKindInfo kInfo = InfoOf(JobKind::Layer);

  std::uint32_t id = 0;
  std::wstring name;
  std::uint16_t flags = 0;
  std::uint16_t reserved = 0;

  template <class Io, class Record>
  static void Walk(Io& io, Record& layer, JobRecordForm) {
    io.Field(0, layer.id);
    io.Text(4, layer.name, kJobNameUnits);
    io.Field(38, layer.flags);
    io.Field(40, layer.reserved);
  }
};

/// The layer that a converted job begins with.
inline JOB_LAYER DefaultLayer() {
  return {kDefaultLayerId, L"POINTS", kDefaultLayerFlag, 0};
}

/// A road: its name and where it starts.
struct JOB_RECORD10 {
  static constexpr JobKindInfo kInfo = InfoOf(JobKind::Record10);
  static constexpr std::size_t kIdOffset = 18;

  std::wstring name;    ///< up to 8 characters
  std::int32_t id = 0;  ///< running number given by the writer
  double value1 = 0;    ///< station that the road starts at, metres
  std::array<std::byte, 34> reserved{};
  double value2 = 0;  ///< north of the start, metres
  double value3 = 0;  ///< east of the start, metres
  double value4 = 0;  ///< elevation of the start, metres

  template <class Io, class Record>
  static void Walk(Io& io, Record& road, JobRecordForm) {
    io.Text(0, road.name, 9);
    io.Field(kIdOffset, road.id);
    io.Field(22, road.value1);
    io.Bytes(30, road.reserved);
    WalkNumbers(io, 64, road.value2, road.value3, road.value4);
  }
};

/// An element of a road.
struct JOB_RECORD16 {
  static constexpr JobKindInfo kInfo = InfoOf(JobKind::Record16);

  std::uint32_t id = 0;  ///< of its road
  std::array<std::byte, 34> reserved{};
  double value1 = 0;  ///< as in JOB_RECORD10, like the other values: the start of the road
  std::wstring name;  ///< written empty
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  std::array<std::byte, 8> reservedTail{};

  template <class Io, class Record>
  static void Walk(Io& io, Record& element, JobRecordForm form) {
    io.Field(0, element.id);
    io.Bytes(4, element.reserved);
    io.Field(38, element.value1);
    io.Text(46, element.name, kJobNameUnits);
    WalkNumbers(io, 80, element.value2, element.value3, element.value4);
    if (form == JobRecordForm::New) io.Bytes(104, element.reservedTail);
  }
};

/// A record of which only the id in front is known; the rest is carried as it stands.
template <JobKind kKind>
struct JobIdRecord {
  static constexpr JobKindInfo kInfo = InfoOf(kKind);

  std::uint32_t id = 0;
  std::array<std::byte, kInfo.length - 4> body{};

  template <class Io, class Record>
  static void Walk(Io& io, Record& record, JobRecordForm form) {
    io.Field(0, record.id);
    const auto length = form == JobRecordForm::Old ? kInfo.oldLength : kInfo.length;
    io.Bytes(4, std::span(record.body).first(length - 4));
  }
};
using JOB_RECORD4 = JobIdRecord<JobKind::Record4>;
using JOB_RECORD9 = JobIdRecord<JobKind::Record9>;
using JOB_RECORD15 = JobIdRecord<JobKind::Record15>;

/// A record that is carried as it stands. Kind 7 begins with a text.
template <JobKind kKind>
struct JobOpaqueRecord {
  static constexpr JobKindInfo kInfo = InfoOf(kKind);

  std::array<std::byte, kInfo.length> body{};

  template <class Io, class Record>
  static void Walk(Io& io, Record& record, JobRecordForm) {
    io.Bytes(0, record.body);
  }
};
using JOB_RECORD7 = JobOpaqueRecord<JobKind::Record7>;
using JOB_RECORD18 = JobOpaqueRecord<JobKind::Record18>;

/// A record of any length, such as the attribute block of a point.
struct JOB_GENERIC_RECORD {
  std::uint32_t kind = 0;    ///< as it stands in the file
  std::uint32_t length = 0;  ///< of the payload, also where it could not be read
  std::vector<std::byte> data;
};

/// Date and time as eight words, in the order of a job header.
template <class Io, class Time>
void WalkTime(Io& io, std::size_t offset, Time& time) {
  WalkNumbers(io, offset, time.year, time.month, time.dayOfWeek, time.day, time.hour, time.minute,
              time.second, time.millisecond);
}

/// Bits of JOB_SETTINGS::flags.
inline constexpr std::uint32_t kJobFlagScaleOnly = 0x01;
inline constexpr std::uint32_t kJobFlagSouthAzimuth = 0x02;  ///< azimuths count from south
inline constexpr std::uint32_t kJobFlagCurvature = 0x04;     ///< and refraction are corrected
inline constexpr std::uint32_t kJobGridMask = 0x38;          ///< of these, one of the next or 0
inline constexpr std::uint32_t kJobGridScaleOnly = 0x08;
inline constexpr std::uint32_t kJobGridPlain = 0x10;
inline constexpr std::uint32_t kJobGridProjected = 0x18;

/// What the headers of all versions hold.
struct JOB_SETTINGS {
  platform::LocalTime creationTime;
  std::uint32_t flags = 0;         ///< see kJobFlagScaleOnly and the next ones
  double scale = 1.0;              ///< a factor
  std::uint16_t distanceUnit = 0;  ///< 0 metres, 1 international feet, 2 US survey feet
  std::uint16_t angleUnit = 0;     ///< 0 degrees, 1 gons
};

/// Settings of the job.
struct JOB_HEADER : JOB_SETTINGS {
  static constexpr std::size_t kLength = 558;

  std::wstring featureFile;       ///< path of the feature code file, up to 260 characters
  std::uint32_t headerExtra = 0;  ///< carried as it stands

  template <class Io, class Header>
  static void Walk(Io& io, Header& header) {
    WalkTime(io, 0, header.creationTime);
    io.Field(16, header.flags);
    io.Field(20, header.scale);
    WalkNumbers(io, 28, header.distanceUnit, header.angleUnit);
    io.Text(32, header.featureFile, kJobPathUnits);
    io.Field(554, header.headerExtra);
  }
};

/// What a version 3 or 4 job has in place of the header and the coordinate system block. The fields
/// that stand here are read and written; all other bytes of the block stay as they were found.
struct JOB_OLD_HEADER : JOB_SETTINGS {
  static constexpr std::size_t kLength = 2124;
  static constexpr std::uint16_t kNoZone = 9999;

  std::uint16_t method = 0;  ///< indices of the coordinate system: see CGeodeticDllIndices
  std::uint16_t coordSystem = 1;
  std::uint16_t datum = 0;
  std::uint16_t zoneId = kNoZone;
  std::uint16_t hemisphere = 1;
  double secondFactor = 1.0;  ///< always written as 1

  template <class Io, class Header>
  static void Walk(Io& io, Header& header) {
    WalkTime(io, 4, header.creationTime);
    WalkNumbers(io, 24, header.method, header.coordSystem, header.datum, header.zoneId,
                header.hemisphere);
    io.Field(1078, header.flags);
    WalkNumbers(io, 1082, header.scale, header.secondFactor);
    io.Field(1098, header.distanceUnit);
    io.Field(1102, header.angleUnit);
  }
  /// Read into the job header when the file is opened, never written back.
  template <class Io>
  static void WalkCarried(Io& io, JOB_HEADER& header) {
    io.Text(1108, header.featureFile, kJobPathUnits);
    io.Field(1630, header.headerExtra);
  }
};

}  // namespace zelconvert
