// The fields of an ILJ record: "TAG:value" in the file, one class for each of the 80 tags.
//
// Lengths are in metres and angles in radians, whatever units the job shows. A field is unset when
// its value is not valid: a record leaves such fields out of its line. The format of the file is
// told in docs/formats/ilj.md.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "ilj/IljTagMap.h"
#include "io/Numbers.h"
#include "io/Units.h"

namespace zelconvert {

// What follows the colon.
enum class IljFieldKind : std::uint8_t {
  Text,
  PointName,
  Date,              // YYYYMMDD
  Time,              // HHMMSS
  Integer,           // read as strtol does
  TruncatedReal,     // an integer that is read as a real number, without its fraction
  Real,              // with a fixed number of decimals
  RealWithPrecision  // with as many decimals as the field's owner says
};

/// How a kind of field prints, what it holds when unset and which values count.
struct IljFieldLayout {
  IljFieldKind kind = IljFieldKind::Text;
  std::int32_t unset = 0;  // integers; valid from `low` to `high` but for `except`
  std::int32_t low = 0;
  std::int32_t high = 0;
  std::int64_t except = std::numeric_limits<std::int64_t>::min();
  int decimals = 0;  // reals
  bool (*accepts)(double) = nullptr;
};

namespace ilj {

inline constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

inline constexpr IljFieldLayout Text{IljFieldKind::Text};
inline constexpr IljFieldLayout PointName{IljFieldKind::PointName};
inline constexpr IljFieldLayout Date{IljFieldKind::Date};
inline constexpr IljFieldLayout Time{IljFieldKind::Time};

constexpr IljFieldLayout Integer(std::int32_t unset, std::int32_t low, std::int32_t high,
                                 std::int64_t except = std::numeric_limits<std::int64_t>::min()) {
  return {IljFieldKind::Integer, unset, low, high, except};
}
inline constexpr IljFieldLayout AnyInteger = Integer(0, kMin, kMax);
inline constexpr IljFieldLayout NonZero = Integer(0, kMin, kMax, 0);
inline constexpr IljFieldLayout Count = Integer(-1, 0, kMax);
constexpr IljFieldLayout TruncatedReal(std::int32_t unset, std::int32_t low, std::int32_t high) {
  return {IljFieldKind::TruncatedReal, unset, low, high};
}

constexpr bool AboveFloor(double value) {
  return value > kNullLimit;
}
constexpr bool WithinTurn(double value) {
  return value >= -2 * kPi && value <= 2 * kPi;
}
constexpr bool WithinHalfTurn(double value) {
  return value >= 0 && value <= kPi;
}
constexpr bool Positive(double value) {
  return value > 0;
}
constexpr bool Factor(double value) {
  return AboveFloor(value) && (value >= 1e-12 || value <= -1e-12);
}
constexpr IljFieldLayout Real(int decimals, bool (*accepts)(double) = AboveFloor) {
  IljFieldLayout layout{IljFieldKind::Real};
  layout.decimals = decimals;
  layout.accepts = accepts;
  return layout;
}
constexpr IljFieldLayout RealWithPrecision(int decimals) {
  IljFieldLayout layout = Real(decimals);
  layout.kind = IljFieldKind::RealWithPrecision;
  return layout;
}

}  // namespace ilj

// Number, tag, class (CMoskoJobRecordField...) and layout of every field.
// clang-format off
#define ILJ_FIELDS(FIELD)                                                                          \
  FIELD( 1, DERV, Derivation,                 Text)                /* a DC subtype */              \
  FIELD( 2, NOTE, Note,                       Text)                                                \
  FIELD( 3, DATE, Date,                       Date)                                                \
  FIELD( 4, DAST, DateStart,                  Date)                /* of a logging run */          \
  FIELD( 5, DAEN, DateEnd,                    Date)                                                \
  FIELD( 6, TIME, Time,                       Time)                                                \
  FIELD( 7, TIST, TimeStart,                  Time)                /* of a logging run */          \
  FIELD( 8, TIEN, TimeEnd,                    Time)                                                \
  FIELD( 9, GPWS, GpsWeekStart,               NonZero)             /* of an occupation */          \
  FIELD(10, GPSS, GpsSecondStart,             AnyInteger)          /* second of the week */        \
  FIELD(11, GPWE, GpsWeekEnd,                 NonZero)                                             \
  FIELD(12, GPSE, GpsSecondEnd,               AnyInteger)                                          \
  FIELD(13, UNDI, UnitsDistance,              Integer(-1, 0, 2))   /* 0 m, 1 ft, 2 US survey ft */ \
  FIELD(14, UNAN, UnitsAngle,                 Integer(-1, 0, 1))   /* 0 degrees, 1 gons */         \
  FIELD(15, FILE, File,                       Text)                                                \
  FIELD(16, FITY, FileType,                   Integer(0, 1, 7))    /* 2 data of a survey */        \
  FIELD(17, PTNM, PointName,                  PointName)                                           \
  FIELD(18, DESC, Description,                Text)                                                \
  FIELD(19, OCPT, OccupyPoint,                PointName)                                           \
  FIELD(20, NRTH, CoordNorth,                 Real(5))                                             \
  FIELD(21, EAST, CoordEast,                  Real(5))                                             \
  FIELD(22, ELEV, CoordElev,                  Real(5))                                             \
  FIELD(23, LATI, CoordLat,                   Real(12))                                            \
  FIELD(24, LONG, CoordLong,                  Real(12))                                            \
  FIELD(25, HGHT, CoordHeight,                Real(5))                                             \
  FIELD(26, CDTY, CoordType,                  Integer(-1, 0, 9))   /* 1 GPS, 4 local, 9 grid */    \
  FIELD(27, CDOR, CoordOrigin,                Integer(0, 1, 10))   /* DC method */                 \
  FIELD(28, CDCL, CoordClass,                 Integer(0, 1, 10))   /* DC class */                  \
  FIELD(29, LOIN, LogInterval,                Integer(-1, 1, 60))  /* seconds */                   \
  FIELD(30, LOEC, LogElevCutoff,              Integer(-1, 1, 90))  /* degrees */                   \
  FIELD(31, LODT, LogDatFileType,             Integer(0, 1, 3))                                    \
  FIELD(32, LOMC, LogMotionControl,           Integer(0, 1, 6))                                    \
  FIELD(33, EQTY, EquipmentType,              Text)                                                \
  FIELD(34, EQSN, EquipmentSerial,            Text)                                                \
  FIELD(35, ANTY, AntennaType,                Count)                                               \
  FIELD(36, ANSN, AntennaSerial,              Text)                                                \
  FIELD(37, ANMK, AntennaMeasureToMark,       Count)                                               \
  FIELD(38, SDST, DistanceSlope,              Real(5))                                             \
  FIELD(39, HDST, DistanceHorizontal,         Real(5))             /* also a semi-major axis */    \
  FIELD(40, VDST, DistanceVertical,           Real(5))                                             \
  FIELD(41, ANGV, AngleVertical,              Real(9, WithinTurn)) /* above the horizon */         \
  FIELD(42, ANGA, AngleAzimuth,               Real(9, WithinTurn)) /* anticlockwise from east */   \
  FIELD(43, ANGD, AngleDeclination,           Real(9, WithinHalfTurn))                             \
  FIELD(44, HTIN, HeightOfInstrument,         Real(5))                                             \
  FIELD(45, HTTG, HeightOfTarget,             Real(5))                                             \
  FIELD(46, PDOP, Pdop,                       Real(2, Positive))                                   \
  FIELD(47, HDOP, Hdop,                       Real(2, Positive))                                   \
  FIELD(48, VDOP, Vdop,                       Real(2, Positive))                                   \
  FIELD(49, EPCT, EpochCount,                 AnyInteger)                                          \
  FIELD(50, IMON, InitMonitor,                Integer(0, 1, 3))                                    \
  FIELD(51, PJZG, ProjectionZoneGroupName,    Text)                                                \
  FIELD(52, PJDN, ProjectionDatumName,        Text)                                                \
  FIELD(53, PJRE, ProjectionRecordName,       Text)                                                \
  FIELD(54, PJCO, CoordSystemOption,          Integer(0, 1, 4))                                    \
  FIELD(55, MPTY, ProjectionMappingPlaneType, Integer(2048, 2048, 2069, 2061))                     \
  FIELD(56, NUMR, NumberReal,                 RealWithPrecision(6))                                \
  FIELD(57, NUMI, NumberInteger,              TruncatedReal(kMin, kMin + 1, kMax))                 \
  FIELD(58, NUMB, Bool,                       TruncatedReal(-1, 0, 1))                             \
  FIELD(59, PJDT, ProjectionDatumType,        Integer(512, 513, 517))                              \
  FIELD(60, FIL1, File1,                      Text)                                                \
  FIELD(61, FIL2, File2,                      Text)                                                \
  FIELD(62, FIL3, File3,                      Text)                                                \
  FIELD(63, ROTX, RotationXAxis,              Real(11))                                            \
  FIELD(64, ROTY, RotationYAxis,              Real(11))                                            \
  FIELD(65, ROTZ, RotationZAxis,              Real(11))                                            \
  FIELD(66, TRAX, TranslationXAxis,           Real(5))                                             \
  FIELD(67, TRAY, TranslationYAxis,           Real(5))                                             \
  FIELD(68, TRAZ, TranslationZAxis,           Real(5))                                             \
  FIELD(69, TINO, TiltNorthAxis,              Real(9))                                             \
  FIELD(70, TIEA, TiltEastAxis,               Real(9))                                             \
  FIELD(71, SCPP, ScaleFactorPPM,             Real(11))            /* the factor, not the ppm */   \
  FIELD(72, SCAL, ScaleFactor,                Real(9, Factor))                                     \
  FIELD(73, LAT1, LatOne,                     Real(12))            /* standard parallels */        \
  FIELD(74, LAT2, LatTwo,                     Real(12))                                            \
  FIELD(75, PJCT, ProjectionOriginCenter,     Integer(-1, 0, 1))   /* of a skew projection */      \
  FIELD(76, PJAF, ProjectionAzimuthFormat,    Integer(-1, 0, 1))                                   \
  FIELD(77, PJAE, ProjectionArea,             Integer(-1, 0, 3))                                   \
  FIELD(78, PJVA, VerticalAdjust,             Integer(0, 1, 4))                                    \
  FIELD(79, PJAZ, ProjectionGridAzimuth,      Integer(0, 1, 2))    /* from 1 north, 2 south */     \
  FIELD(80, PJGO, ProjectionGridOrientation,  Integer(0, 1, 4))
// clang-format on

enum class IljFieldType : std::int32_t {
  None = 0,
#define ILJ_FIELD_NUMBER(number, tag, name, layout) tag = number,
  ILJ_FIELDS(ILJ_FIELD_NUMBER)
#undef ILJ_FIELD_NUMBER
};

/// Tags by field number.
inline constexpr std::wstring_view kIljFieldTags[] = {L"",
#define ILJ_FIELD_TAG(number, tag, name, layout) L## #tag,
                                                      ILJ_FIELDS(ILJ_FIELD_TAG)
#undef ILJ_FIELD_TAG
};
inline constexpr std::size_t kIljTagLength = 4;

namespace ilj {
inline constexpr IljFieldLayout kLayouts[] = {{},
#define ILJ_FIELD_LAYOUT(number, tag, name, layout) layout,
                                              ILJ_FIELDS(ILJ_FIELD_LAYOUT)
#undef ILJ_FIELD_LAYOUT
};
}  // namespace ilj

constexpr const IljFieldLayout& IljLayoutOf(IljFieldType type) {
  return ilj::kLayouts[static_cast<std::size_t>(type)];
}

/// From a field's tag to its number: 0 for an unknown tag.
class CMoskoJobRecordFieldMap : public IljTagMap {
 public:
  constexpr CMoskoJobRecordFieldMap() : IljTagMap(kIljFieldTags) {}
};
inline constexpr CMoskoJobRecordFieldMap kIljFieldMap;

/// One field of a record.
class CMoskoJobRecordField {
 public:
  virtual ~CMoskoJobRecordField() = default;

  /// Back to the unset value.
  virtual void Clear() { m_type = IljFieldType::None; }
  /// Appends "TAG:value", valid or not; nothing for a date or time that is unset.
  virtual void AppendText(std::wstring& line) const = 0;
  /// Stores what stands behind the colon. Text that is no number gives 0. Throws
  /// ConversionFailure for a date or time that no calendar or clock has.
  virtual void SetText(std::wstring_view value) = 0;
  virtual bool IsValid() const = 0;

  std::wstring GetText() const;
  IljFieldType GetType() const { return m_type; }

 protected:
  explicit CMoskoJobRecordField(IljFieldType type = IljFieldType::None) : m_type(type) {}
  CMoskoJobRecordField(const CMoskoJobRecordField&) = default;
  CMoskoJobRecordField& operator=(const CMoskoJobRecordField&) = default;

  void AppendTag(std::wstring& line) const {
    line.append(kIljFieldTags[static_cast<std::size_t>(m_type)]);
    line.push_back(L':');
  }

  IljFieldType m_type;
};

namespace ilj {

/// 1 to 16 letters A to Z of either case, digits and "_"; not a run of zeros alone.
bool IsPointName(std::wstring_view name);
/// Year, month and day of "YYYYMMDD" as seconds (see CivilTime.h); 0 if one of them is 0.
std::int64_t ParseDate(std::wstring_view text);
/// The time "HHMMSS" on a day of no meaning.
std::int64_t ParseTime(std::wstring_view text);
void AppendDate(std::wstring& line, std::int64_t moment);
void AppendTime(std::wstring& line, std::int64_t moment);
/// The integer part of the number at the start of a text; the smallest integer if it is too large.
std::int32_t ParseTruncated(std::wstring_view text);

}  // namespace ilj

// One template for each kind of value. SetValue checks nothing.

template <IljFieldType Type, IljFieldKind Kind = IljLayoutOf(Type).kind>
class IljField;

template <IljFieldType Type>
class IljField<Type, IljFieldKind::Text> final : public CMoskoJobRecordField {
 public:
  explicit IljField(std::wstring_view value = {}) : CMoskoJobRecordField(Type), m_value(value) {}

  void Clear() override { m_value.clear(); }
  void AppendText(std::wstring& line) const override {
    AppendTag(line);
    line.append(m_value);
  }
  void SetText(std::wstring_view value) override { m_value = value; }
  bool IsValid() const override { return !m_value.empty(); }

  void SetValue(std::wstring_view value) { m_value = value; }
  const std::wstring& GetValue() const { return m_value; }

 private:
  std::wstring m_value;
};

/// The name of a point. Blanks behind it don't belong to it.
class CMoskoJobRecordFieldPointName : public CMoskoJobRecordField {
 public:
  explicit CMoskoJobRecordFieldPointName(std::wstring_view value = {})
      : CMoskoJobRecordFieldPointName(IljFieldType::PTNM, value) {}

  void Clear() override { m_value.clear(); }
  void AppendText(std::wstring& line) const override {
    AppendTag(line);
    line.append(m_value);
  }
  void SetText(std::wstring_view value) override {
    m_value = value.substr(0, value.find_last_not_of(L' ') + 1);
  }
  bool IsValid() const override { return ilj::IsPointName(m_value); }

  void SetValue(std::wstring_view value) { m_value = value; }
  const std::wstring& GetValue() const { return m_value; }

 protected:
  CMoskoJobRecordFieldPointName(IljFieldType type, std::wstring_view value)
      : CMoskoJobRecordField(type), m_value(value) {}

 private:
  std::wstring m_value;
};

template <IljFieldType Type>
class IljField<Type, IljFieldKind::PointName> final : public CMoskoJobRecordFieldPointName {
 public:
  explicit IljField(std::wstring_view value = {}) : CMoskoJobRecordFieldPointName(Type, value) {}
};

/// Dates and times of day: seconds by the local calendar (see CivilTime.h), 0 when unset.
template <IljFieldType Type, IljFieldKind Kind>
class IljField final : public CMoskoJobRecordField {
 public:
  static_assert(Kind == IljFieldKind::Date || Kind == IljFieldKind::Time);

  explicit IljField(std::int64_t value = 0) : CMoskoJobRecordField(Type), m_value(value) {}

  void Clear() override { m_value = 0; }
  void AppendText(std::wstring& line) const override {
    if (m_value == 0) return;
    AppendTag(line);
    Kind == IljFieldKind::Date ? ilj::AppendDate(line, m_value) : ilj::AppendTime(line, m_value);
  }
  void SetText(std::wstring_view value) override {
    Clear();
    m_value = Kind == IljFieldKind::Date ? ilj::ParseDate(value) : ilj::ParseTime(value);
  }
  bool IsValid() const override { return m_value != 0; }

  void SetValue(std::int64_t value) { m_value = value; }
  std::int64_t GetValue() const { return m_value; }

 private:
  std::int64_t m_value;
};

/// Integers, whichever way they are read.
template <IljFieldType Type>
class IljIntegerField : public CMoskoJobRecordField {
 public:
  explicit IljIntegerField(std::int32_t value = kLayout.unset)
      : CMoskoJobRecordField(Type), m_value(value) {}

  void Clear() override { m_value = kLayout.unset; }
  void AppendText(std::wstring& line) const override {
    AppendTag(line);
    AppendInteger(line, m_value);
  }
  void SetText(std::wstring_view value) override {
    m_value = kLayout.kind == IljFieldKind::Integer ? ToInteger(value) : ilj::ParseTruncated(value);
  }
  bool IsValid() const override {
    return m_value >= kLayout.low && m_value <= kLayout.high && m_value != kLayout.except;
  }

  void SetValue(std::int32_t value) { m_value = value; }
  std::int32_t GetValue() const { return m_value; }

 private:
  static constexpr IljFieldLayout kLayout = IljLayoutOf(Type);
  std::int32_t m_value;
};

template <IljFieldType Type>
class IljField<Type, IljFieldKind::Integer> final : public IljIntegerField<Type> {
  using IljIntegerField<Type>::IljIntegerField;
};
template <IljFieldType Type>
class IljField<Type, IljFieldKind::TruncatedReal> final : public IljIntegerField<Type> {
  using IljIntegerField<Type>::IljIntegerField;
};

template <IljFieldType Type>
class IljField<Type, IljFieldKind::Real> final : public CMoskoJobRecordField {
 public:
  explicit IljField(double value = DC_NULL) : CMoskoJobRecordField(Type), m_value(value) {}

  void Clear() override { m_value = DC_NULL; }
  void AppendText(std::wstring& line) const override {
    AppendTag(line);
    AppendFixed(line, m_value, kLayout.decimals);
  }
  void SetText(std::wstring_view value) override { m_value = ToReal(value); }
  bool IsValid() const override { return kLayout.accepts(m_value); }

  void SetValue(double value) { m_value = value; }
  double GetValue() const { return m_value; }

 private:
  static constexpr IljFieldLayout kLayout = IljLayoutOf(Type);
  double m_value;
};

/// A real number whose decimals are the business of who sets it.
template <IljFieldType Type>
class IljField<Type, IljFieldKind::RealWithPrecision> final : public CMoskoJobRecordField {
 public:
  explicit IljField(int decimals = IljLayoutOf(Type).decimals, double value = DC_NULL)
      : CMoskoJobRecordField(Type), m_decimals(decimals), m_value(value) {}

  void Clear() override { m_value = DC_NULL; }
  void AppendText(std::wstring& line) const override {
    AppendTag(line);
    AppendFixed(line, m_value, m_decimals);
  }
  void SetText(std::wstring_view value) override { m_value = ToReal(value); }
  bool IsValid() const override { return IljLayoutOf(Type).accepts(m_value); }

  void SetDecimals(int decimals) { m_decimals = decimals; }
  void SetValue(double value) { m_value = value; }
  double GetValue() const { return m_value; }

 private:
  int m_decimals;
  double m_value;
};

// The classes by their names. The point name's stands above.
namespace ilj {
template <IljFieldType Type>
struct ClassOf {
  using type = IljField<Type>;
};
template <>
struct ClassOf<IljFieldType::PTNM> {
  using type = CMoskoJobRecordFieldPointName;
};
}  // namespace ilj

/// The class of a field by its tag: IljFieldOf<IljFieldType::NRTH>.
template <IljFieldType Type>
using IljFieldOf = typename ilj::ClassOf<Type>::type;

#define ILJ_FIELD_CLASS(number, tag, name, layout) \
  using CMoskoJobRecordField##name = IljFieldOf<IljFieldType::tag>;
ILJ_FIELDS(ILJ_FIELD_CLASS)
#undef ILJ_FIELD_CLASS

/// Fields of any kind; they stay their owner's.
class CMoskoJobRecordFieldList : public std::vector<const CMoskoJobRecordField*> {
 public:
  using std::vector<const CMoskoJobRecordField*>::vector;

  bool HasField(IljFieldType type) const;
};

}  // namespace zelconvert
