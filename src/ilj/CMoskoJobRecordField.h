// The fields of an ILJ record: "TAG:value" in the file, of 80 tags.
//
// Lengths are in metres and angles in radians, whatever units the job shows. A field is unset when
// its value is not valid: a record leaves such fields out of its line. The format of the file is
// told in docs/formats/ilj.md.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ilj/IljTagMap.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {

/// What follows the colon.
enum class IljFieldKind : std::uint8_t {
  Text,
  PointName,      ///< a text without the blanks after it
  Date,           ///< YYYYMMDD
  Time,           ///< HHMMSS
  Integer,        ///< read as strtol does
  TruncatedReal,  ///< an integer that is read as a real number, without its fraction
  Real
};

[[nodiscard]] constexpr bool IsText(IljFieldKind kind) {
  return kind == IljFieldKind::Text || kind == IljFieldKind::PointName;
}
[[nodiscard]] constexpr bool IsMoment(IljFieldKind kind) {
  return kind == IljFieldKind::Date || kind == IljFieldKind::Time;
}

/// How a field prints, what it holds when unset and which values are valid.
struct IljFieldForm {
  IljFieldKind kind = IljFieldKind::Text;
  double unset = 0;
  std::int32_t low = 0;  ///< integers are valid from `low` to `high` but for `except`
  std::int32_t high = 0;
  std::int64_t except = std::numeric_limits<std::int64_t>::min();
  int decimals = 0;                   ///< of a real
  bool (*accepts)(double) = nullptr;  ///< whether a real is valid
};

struct IljFieldLayout {
  IljTag tag;
  IljFieldForm form;
};

namespace ilj {

inline constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

inline constexpr IljFieldForm Text{IljFieldKind::Text};
inline constexpr IljFieldForm PointName{IljFieldKind::PointName};
inline constexpr IljFieldForm Date{IljFieldKind::Date};
inline constexpr IljFieldForm Time{IljFieldKind::Time};

constexpr IljFieldForm Integer(std::int32_t unset, std::int32_t low, std::int32_t high,
                               std::int64_t except = IljFieldForm().except) {
  return {IljFieldKind::Integer, static_cast<double>(unset), low, high, except};
}
inline constexpr IljFieldForm AnyInteger = Integer(0, kMin, kMax);
inline constexpr IljFieldForm NonZero = Integer(0, kMin, kMax, 0);
inline constexpr IljFieldForm Count = Integer(-1, 0, kMax);
constexpr IljFieldForm TruncatedReal(std::int32_t unset, std::int32_t low, std::int32_t high) {
  return {IljFieldKind::TruncatedReal, static_cast<double>(unset), low, high};
}

[[nodiscard]] constexpr bool AboveFloor(double value) {
  return value > kNullLimit;
}
[[nodiscard]] constexpr bool WithinTurn(double value) {
  return value >= -2 * kPi && value <= 2 * kPi;
}
[[nodiscard]] constexpr bool WithinHalfTurn(double value) {
  return value >= 0 && value <= kPi;
}
[[nodiscard]] constexpr bool Positive(double value) {
  return value > 0;
}
[[nodiscard]] constexpr bool Factor(double value) {
  return AboveFloor(value) && (value >= 1e-12 || value <= -1e-12);
}
constexpr IljFieldForm Real(int decimals, bool (*accepts)(double) = AboveFloor) {
  return {.kind = IljFieldKind::Real, .unset = DC_NULL, .decimals = decimals, .accepts = accepts};
}

/// By the number of the field.
inline constexpr IljFieldLayout kFields[] = {
    {},              // no field
    {"DERV", Text},  // a DC subtype
    {"NOTE", Text},
    {"DATE", Date},
    {"DAST", Date},  // of a logging run
    {"DAEN", Date},
    {"TIME", Time},
    {"TIST", Time},  // of a logging run
    {"TIEN", Time},
    {"GPWS", NonZero},     // of an occupation
    {"GPSS", AnyInteger},  // second of the week
    {"GPWE", NonZero},
    {"GPSE", AnyInteger},
    {"UNDI", Integer(-1, 0, 2)},  // 0 m, 1 ft, 2 US survey ft
    {"UNAN", Integer(-1, 0, 1)},  // 0 degrees, 1 gons
    {"FILE", Text},
    {"FITY", Integer(0, 1, 7)},  // 2 data of a survey
    {"PTNM", PointName},
    {"DESC", Text},
    {"OCPT", PointName},
    {"NRTH", Real(5)},
    {"EAST", Real(5)},
    {"ELEV", Real(5)},
    {"LATI", Real(12)},
    {"LONG", Real(12)},
    {"HGHT", Real(5)},
    {"CDTY", Integer(-1, 0, 9)},   // 1 GPS, 4 local, 9 grid
    {"CDOR", Integer(0, 1, 10)},   // DC method
    {"CDCL", Integer(0, 1, 10)},   // DC class
    {"LOIN", Integer(-1, 1, 60)},  // seconds
    {"LOEC", Integer(-1, 1, 90)},  // degrees
    {"LODT", Integer(0, 1, 3)},
    {"LOMC", Integer(0, 1, 6)},
    {"EQTY", Text},
    {"EQSN", Text},
    {"ANTY", Count},
    {"ANSN", Text},
    {"ANMK", Count},
    {"SDST", Real(5)},
    {"HDST", Real(5)},  // also a semi-major axis
    {"VDST", Real(5)},
    {"ANGV", Real(9, WithinTurn)},  // above the horizon
    {"ANGA", Real(9, WithinTurn)},  // anticlockwise from east
    {"ANGD", Real(9, WithinHalfTurn)},
    {"HTIN", Real(5)},
    {"HTTG", Real(5)},
    {"PDOP", Real(2, Positive)},
    {"HDOP", Real(2, Positive)},
    {"VDOP", Real(2, Positive)},
    {"EPCT", AnyInteger},
    {"IMON", Integer(0, 1, 3)},
    {"PJZG", Text},
    {"PJDN", Text},
    {"PJRE", Text},
    {"PJCO", Integer(0, 1, 4)},
    {"MPTY", Integer(2048, 2048, 2069, 2061)},
    {"NUMR", Real(6)},
    {"NUMI", TruncatedReal(kMin, kMin + 1, kMax)},
    {"NUMB", TruncatedReal(-1, 0, 1)},
    {"PJDT", Integer(512, 513, 517)},
    {"FIL1", Text},
    {"FIL2", Text},
    {"FIL3", Text},
    {"ROTX", Real(11)},
    {"ROTY", Real(11)},
    {"ROTZ", Real(11)},
    {"TRAX", Real(5)},
    {"TRAY", Real(5)},
    {"TRAZ", Real(5)},
    {"TINO", Real(9)},
    {"TIEA", Real(9)},
    {"SCPP", Real(11)},  // the factor, not the ppm
    {"SCAL", Real(9, Factor)},
    {"LAT1", Real(12)},  // standard parallels
    {"LAT2", Real(12)},
    {"PJCT", Integer(-1, 0, 1)},  // of a skew projection
    {"PJAF", Integer(-1, 0, 1)},
    {"PJAE", Integer(-1, 0, 3)},
    {"PJVA", Integer(0, 1, 4)},
    {"PJAZ", Integer(0, 1, 2)},  // from 1 north, 2 south
    {"PJGO", Integer(0, 1, 4)},
};

}  // namespace ilj

/// The number of a field: its place in the table.
enum class IljFieldType : std::int32_t { None = 0 };

/// From a field's tag to its number: 0 for an unknown tag.
class CMoskoJobRecordFieldMap : public IljTagMap {
 public:
  constexpr CMoskoJobRecordFieldMap() : IljTagMap(ilj::kFields) {}
};
inline constexpr CMoskoJobRecordFieldMap kIljFieldMap;

constexpr const IljFieldLayout& IljLayoutOf(IljFieldType type) {
  return ilj::kFields[static_cast<std::size_t>(type)];
}
/// A tag that no field has doesn't compile.
constexpr IljFieldType IljFieldTypeOf(IljTag tag) {
  const std::int32_t number = kIljFieldMap.GetType(tag.View());
  if (number == 0) throw "no field has this tag";
  return static_cast<IljFieldType>(number);
}

/// One field of a record: its type and its value, a text or a number. A date or time of day counts
/// seconds by the local calendar (see CivilTime.h).
class CMoskoJobRecordField {
 public:
  explicit CMoskoJobRecordField(IljFieldType type = IljFieldType::None) { Restart(type); }

  IljFieldType GetType() const { return m_type; }
  /// Another type, and unset.
  void Restart(IljFieldType type) {
    m_type = type;
    m_decimals = Form().decimals;
    m_hasMoment = false;
    Clear();
  }
  /// Back to the unset value.
  void Clear() {
    SetNumber(Form().unset);
    m_string.clear();
  }
  /// By the rule of the field's row in ilj::kFields.
  [[nodiscard]] bool IsValid() const {
    if (!m_isValid) m_isValid = AcceptsValue();
    return *m_isValid;
  }

  // Text of a line is UTF-8, as CTextFile has it.

  /// Appends a tab and "TAG:value", valid or not; nothing for a date or time that is unset.
  void AppendText(std::string& line) const;
  /// The same without the tab.
  std::string GetText() const;
  /// Stores what stands after the colon. Text that is no number gives 0. Throws
  /// ConversionFailure for a date or time that no calendar or clock has.
  void SetText(std::string_view value);

  // The value as it is, unchecked: IljField knows which of the two a field has.
  std::wstring_view GetString() const {
    m_wide.clear();
    AppendUnits(m_wide, m_string);
    return m_wide;
  }
  double GetNumber() const { return m_number; }
  void SetString(std::wstring_view value) {
    m_string.clear();
    AppendUtf8(m_string, value);
    m_isValid.reset();
  }
  void SetNumber(double value) {
    m_number = value;
    m_isValid.reset();
  }
  /// Of a real, in place of the table's, until the next Restart.
  void SetDecimals(int decimals) { m_decimals = decimals; }

 private:
  const IljFieldForm& Form() const { return IljLayoutOf(m_type).form; }
  [[nodiscard]] bool AcceptsValue() const;
  void SetMoment(std::string_view value);
  void SetUtf8(std::string_view value) {
    m_string = value;
    m_isValid.reset();
  }

  IljFieldType m_type = IljFieldType::None;
  int m_decimals = 0;
  double m_number = 0;
  // The last text of a date or time and its value: most lines have those of the line before.
  std::string m_momentText;
  double m_moment = 0;
  bool m_hasMoment = false;
  std::string m_string;         // UTF-8
  mutable std::wstring m_wide;  // the same, when it was asked for
  // Of the value at hand, once it was asked for: the rules of a record ask, and its line does.
  mutable std::optional<bool> m_isValid;
};

/// A field of a known tag, with its value's own type. It looks at a field of a record.
template <IljTag tag>
class IljField {
 public:
  static constexpr IljFieldType kType = IljFieldTypeOf(tag);
  static constexpr IljFieldKind kKind = IljLayoutOf(kType).form.kind;
  using Number =
      std::conditional_t<kKind == IljFieldKind::Real, double,
                         std::conditional_t<IsMoment(kKind), std::int64_t, std::int32_t>>;
  using Value = std::conditional_t<IsText(kKind), std::wstring_view, Number>;

  explicit IljField(CMoskoJobRecordField& field) : m_field(field) {}

  [[nodiscard]] bool IsValid() const { return m_field.IsValid(); }
  void Clear() const { m_field.Clear(); }
  /// A text is the record's: it is gone with the next value.
  Value GetValue() const {
    if constexpr (IsText(kKind)) {
      return m_field.GetString();
    } else {
      return static_cast<Value>(m_field.GetNumber());
    }
  }
  /// Checks nothing.
  void SetValue(Value value) const {
    if constexpr (IsText(kKind)) {
      m_field.SetString(value);
    } else {
      m_field.SetNumber(static_cast<double>(value));
    }
  }
  void SetDecimals(int decimals) const {
    static_assert(kKind == IljFieldKind::Real);
    m_field.SetDecimals(decimals);
  }

 private:
  CMoskoJobRecordField& m_field;
};

// The fields by their names.
using CMoskoJobRecordFieldDerivation = IljField<"DERV">;
using CMoskoJobRecordFieldNote = IljField<"NOTE">;
using CMoskoJobRecordFieldDate = IljField<"DATE">;
using CMoskoJobRecordFieldDateStart = IljField<"DAST">;
using CMoskoJobRecordFieldDateEnd = IljField<"DAEN">;
using CMoskoJobRecordFieldTime = IljField<"TIME">;
using CMoskoJobRecordFieldTimeStart = IljField<"TIST">;
using CMoskoJobRecordFieldTimeEnd = IljField<"TIEN">;
using CMoskoJobRecordFieldGpsWeekStart = IljField<"GPWS">;
using CMoskoJobRecordFieldGpsSecondStart = IljField<"GPSS">;
using CMoskoJobRecordFieldGpsWeekEnd = IljField<"GPWE">;
using CMoskoJobRecordFieldGpsSecondEnd = IljField<"GPSE">;
using CMoskoJobRecordFieldUnitsDistance = IljField<"UNDI">;
using CMoskoJobRecordFieldUnitsAngle = IljField<"UNAN">;
using CMoskoJobRecordFieldFile = IljField<"FILE">;
using CMoskoJobRecordFieldFileType = IljField<"FITY">;
using CMoskoJobRecordFieldPointName = IljField<"PTNM">;
using CMoskoJobRecordFieldDescription = IljField<"DESC">;
using CMoskoJobRecordFieldOccupyPoint = IljField<"OCPT">;
using CMoskoJobRecordFieldCoordNorth = IljField<"NRTH">;
using CMoskoJobRecordFieldCoordEast = IljField<"EAST">;
using CMoskoJobRecordFieldCoordElev = IljField<"ELEV">;
using CMoskoJobRecordFieldCoordLat = IljField<"LATI">;
using CMoskoJobRecordFieldCoordLong = IljField<"LONG">;
using CMoskoJobRecordFieldCoordHeight = IljField<"HGHT">;
using CMoskoJobRecordFieldCoordType = IljField<"CDTY">;
using CMoskoJobRecordFieldCoordOrigin = IljField<"CDOR">;
using CMoskoJobRecordFieldCoordClass = IljField<"CDCL">;
using CMoskoJobRecordFieldLogInterval = IljField<"LOIN">;
using CMoskoJobRecordFieldLogElevCutoff = IljField<"LOEC">;
using CMoskoJobRecordFieldLogDatFileType = IljField<"LODT">;
using CMoskoJobRecordFieldLogMotionControl = IljField<"LOMC">;
using CMoskoJobRecordFieldEquipmentType = IljField<"EQTY">;
using CMoskoJobRecordFieldEquipmentSerial = IljField<"EQSN">;
using CMoskoJobRecordFieldAntennaType = IljField<"ANTY">;
using CMoskoJobRecordFieldAntennaSerial = IljField<"ANSN">;
using CMoskoJobRecordFieldAntennaMeasureToMark = IljField<"ANMK">;
using CMoskoJobRecordFieldDistanceSlope = IljField<"SDST">;
using CMoskoJobRecordFieldDistanceHorizontal = IljField<"HDST">;
using CMoskoJobRecordFieldDistanceVertical = IljField<"VDST">;
using CMoskoJobRecordFieldAngleVertical = IljField<"ANGV">;
using CMoskoJobRecordFieldAngleAzimuth = IljField<"ANGA">;
using CMoskoJobRecordFieldAngleDeclination = IljField<"ANGD">;
using CMoskoJobRecordFieldHeightOfInstrument = IljField<"HTIN">;
using CMoskoJobRecordFieldHeightOfTarget = IljField<"HTTG">;
using CMoskoJobRecordFieldPdop = IljField<"PDOP">;
using CMoskoJobRecordFieldHdop = IljField<"HDOP">;
using CMoskoJobRecordFieldVdop = IljField<"VDOP">;
using CMoskoJobRecordFieldEpochCount = IljField<"EPCT">;
using CMoskoJobRecordFieldInitMonitor = IljField<"IMON">;
using CMoskoJobRecordFieldProjectionZoneGroupName = IljField<"PJZG">;
using CMoskoJobRecordFieldProjectionDatumName = IljField<"PJDN">;
using CMoskoJobRecordFieldProjectionRecordName = IljField<"PJRE">;
using CMoskoJobRecordFieldCoordSystemOption = IljField<"PJCO">;
using CMoskoJobRecordFieldProjectionMappingPlaneType = IljField<"MPTY">;
using CMoskoJobRecordFieldNumberReal = IljField<"NUMR">;
using CMoskoJobRecordFieldNumberInteger = IljField<"NUMI">;
using CMoskoJobRecordFieldBool = IljField<"NUMB">;
using CMoskoJobRecordFieldProjectionDatumType = IljField<"PJDT">;
using CMoskoJobRecordFieldFile1 = IljField<"FIL1">;
using CMoskoJobRecordFieldFile2 = IljField<"FIL2">;
using CMoskoJobRecordFieldFile3 = IljField<"FIL3">;
using CMoskoJobRecordFieldRotationXAxis = IljField<"ROTX">;
using CMoskoJobRecordFieldRotationYAxis = IljField<"ROTY">;
using CMoskoJobRecordFieldRotationZAxis = IljField<"ROTZ">;
using CMoskoJobRecordFieldTranslationXAxis = IljField<"TRAX">;
using CMoskoJobRecordFieldTranslationYAxis = IljField<"TRAY">;
using CMoskoJobRecordFieldTranslationZAxis = IljField<"TRAZ">;
using CMoskoJobRecordFieldTiltNorthAxis = IljField<"TINO">;
using CMoskoJobRecordFieldTiltEastAxis = IljField<"TIEA">;
using CMoskoJobRecordFieldScaleFactorPPM = IljField<"SCPP">;
using CMoskoJobRecordFieldScaleFactor = IljField<"SCAL">;
using CMoskoJobRecordFieldLatOne = IljField<"LAT1">;
using CMoskoJobRecordFieldLatTwo = IljField<"LAT2">;
using CMoskoJobRecordFieldProjectionOriginCenter = IljField<"PJCT">;
using CMoskoJobRecordFieldProjectionAzimuthFormat = IljField<"PJAF">;
using CMoskoJobRecordFieldProjectionArea = IljField<"PJAE">;
using CMoskoJobRecordFieldVerticalAdjust = IljField<"PJVA">;
using CMoskoJobRecordFieldProjectionGridAzimuth = IljField<"PJAZ">;
using CMoskoJobRecordFieldProjectionGridOrientation = IljField<"PJGO">;

/// Fields of any kind; they stay their owner's.
class CMoskoJobRecordFieldList : public std::vector<const CMoskoJobRecordField*> {
 public:
  using std::vector<const CMoskoJobRecordField*>::vector;

  /// True if one of them is of that type.
  [[nodiscard]] bool HasField(IljFieldType type) const;
};

}  // namespace zelconvert
