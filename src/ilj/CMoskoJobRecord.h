// The records of an ILJ file: a line of a tag and its fields, all separated by tabs, of 27 tags. A
// record is data: its type says which fields it has, and the tables here which of them it needs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "ilj/CMoskoJobRecordField.h"
#include "ilj/IljTagMap.h"

namespace zelconvert {

class CMoskoJobRecord;

/// Fields by their tags, blanks between them; "!" after a tag marks one that is required.
class IljFieldList {
 public:
  static constexpr std::size_t kMaxSize = 20;

  template <std::size_t size>
  consteval IljFieldList(const char (&text)[size]) {  // NOLINT: a literal is meant to convert
    for (std::size_t at = 0; at + 1 < size; ++m_size) {
      const char tag[] = {text[at], text[at + 1], text[at + 2], text[at + 3], 0};
      const IljFieldType type = IljFieldTypeOf(tag);
      m_types[m_size] = type;
      at += 4;
      m_required |= (text[at] == '!' ? 1u : 0u) << m_size;
      at += text[at] == '!' ? 2 : 1;
    }
  }

  constexpr std::size_t Size() const { return m_size; }
  constexpr IljFieldType Type(std::size_t index) const { return m_types[index]; }
  /// All of them, in their order.
  constexpr std::span<const IljFieldType> Types() const { return std::span(m_types).first(m_size); }
  [[nodiscard]] constexpr bool IsRequired(std::size_t index) const {
    return (m_required >> index & 1) != 0;
  }
  /// A bit for each place that is required.
  constexpr std::uint32_t Required() const { return m_required; }

 private:
  std::array<IljFieldType, kMaxSize> m_types = {};
  std::uint32_t m_required = 0;
  std::uint8_t m_size = 0;
};

/// Fields that a record needs when its field `decider` holds one of some integers.
struct IljCondition {
  static constexpr std::size_t kMaxValues = 9;

  template <std::size_t size>
  consteval IljCondition(IljTag tag, const std::int32_t (&list)[size], IljFieldList needed)
      : decider(IljFieldTypeOf(tag)), count(size), fields(needed) {
    for (std::size_t i = 0; i < size; ++i) values[i] = list[i];
  }

  IljFieldType decider;
  std::array<std::int32_t, kMaxValues> values = {};
  std::size_t count;
  IljFieldList fields;
};

/// A record's fields in the order in which they are written, and what makes it valid.
struct IljRecordLayout {
  using Rule = bool (*)(CMoskoJobRecord&);

  consteval IljRecordLayout(IljTag t = {}, IljFieldList f = "",
                            std::span<const IljCondition> c = {}, Rule r = nullptr)
      : tag(t), fields(f), conditions(c), rule(r) {
    places.fill(-1);
    for (std::size_t i = 0; i < fields.Size(); ++i) {
      places[static_cast<std::size_t>(fields.Type(i))] = static_cast<std::int8_t>(i);
    }
  }
  /// The place of a field; -1 if it isn't one of the record's.
  constexpr int Find(IljFieldType type) const { return places[static_cast<std::size_t>(type)]; }

  IljTag tag;
  IljFieldList fields;
  std::array<std::int8_t, std::size(ilj::kFields)> places;  // by field
  std::span<const IljCondition> conditions;
  Rule rule;
};

namespace ilj {

// Values of fields that decide what else a record holds.

/// CDTY: which coordinates a point has.
inline constexpr std::int32_t kGpsCoordinates = 1;
inline constexpr std::int32_t kLocalCoordinates = 4;
inline constexpr std::int32_t kGridCoordinates = 9;
/// PJDT: what a datum is made of. 514 and 517 need nothing.
inline constexpr std::int32_t kDatumShifts = 513;
inline constexpr std::int32_t kDatumSevenParameters = 515;
inline constexpr std::int32_t kDatumGridFile = 516;
/// PJVA: what a vertical adjustment is made of.
inline constexpr std::int32_t kVerticalPlane = 1;
inline constexpr std::int32_t kVerticalGeoid = 2;
inline constexpr std::int32_t kVerticalPlaneAndGeoid = 3;
inline constexpr std::int32_t kVerticalNone = 4;
/// FITY: a file of data to be processed later, and one that has numbers.
inline constexpr std::int32_t kSurveyData = 2;
inline constexpr std::int32_t kFileWithNumbers = 5;
/// MPTY: a plane along a skew axis, whose azimuth stands in place of the first standard parallel.
[[nodiscard]] constexpr bool HasSkewAxis(std::int32_t plane) {
  return plane == 2056 || plane == 2067;
}

inline constexpr IljCondition kSupportFileConditions[] = {
    {"FITY", {kFileWithNumbers}, "NUMI NUMB"},
};
inline constexpr IljCondition kDatumConditions[] = {
    {"PJDT", {kDatumShifts, kDatumSevenParameters}, "HDST NUMR TRAX TRAY TRAZ"},
    {"PJDT", {kDatumSevenParameters}, "ROTX ROTY ROTZ SCPP"},
    {"PJDT", {kDatumGridFile}, "PJDN"},
};
inline constexpr IljCondition kVerticalAdjustConditions[] = {
    {"PJVA", {kVerticalPlane, kVerticalPlaneAndGeoid}, "NRTH EAST TRAZ TINO TIEA"},
    {"PJVA", {kVerticalGeoid, kVerticalPlaneAndGeoid}, "PJRE"},
};
inline constexpr IljCondition kMappingPlaneConditions[] = {
    {"MPTY", {2050, 2052, 2053, 2055, 2056, 2057, 2059, 2062, 2067}, "SCAL"},
    {"MPTY", {2049, 2051, 2056, 2067}, "LAT1"},
    {"MPTY", {2066}, "LAT1 LAT2"},
    {"MPTY", {2056, 2067}, "PJCT PJAF NUMB"},
    {"MPTY", {2064}, "PJAE"},
    {"MPTY", {2063}, "FIL1 FIL2"},
};
/// A point holds a position of a kind it names, or only attributes and then at least one.
[[nodiscard]] bool IsWholePoint(CMoskoJobRecord& record);

/// By the number of the record.
inline constexpr IljRecordLayout kRecords[] = {
    {},  // no record
    {"JOBMO", "DATE! TIME! UNDI! UNAN! DESC!"},
    {"JOBFI", "DATE! TIME! FILE! FITY! NUMI NUMB", kSupportFileConditions},
    {"UNOTE", "DATE! TIME! NOTE!"},
    {"SNOTE", "DATE! TIME! NOTE!"},
    {"POINT",
     "DATE! TIME! DERV! PTNM! DESC NRTH EAST ELEV LATI LONG HGHT CDTY CDOR CDCL",
     {},
     IsWholePoint},
    {"SUSTR", "DATE! TIME! DERV! EQTY! EQSN! LODT LOEC! LOIN! FILE! DAST TIST DAEN TIEN"},
    {"SUSEN", "DATE! TIME! DERV! EQSN! FILE! DAEN TIEN"},
    {"SUSTN", "DATE! TIME! DERV! EQSN! FILE! PTNM! DESC"},
    {"SUMCT", "DATE! TIME! DERV! EQSN! FILE! LOMC!"},
    {"SUKDI", "DATE! TIME! DERV! EQSN! FILE! FIL2 PTNM! HDST! VDST! ROTZ"},
    {"SUEND", "DATE! TIME! DERV! EQSN! FILE!"},
    {"ANTEN", "DATE! TIME! DERV! EQSN! FILE! ANTY! EQTY! ANSN ANMK! DESC! HTIN! HDST VDST!"},
    {"SUGQC",
     "DATE! TIME! DERV! EQSN! FILE! PTNM! NUMI NUMB! PDOP! HDOP! VDOP! NUMR! EPCT! HDST! VDST! "
     "GPWS! GPSS! GPWE! GPSE! IMON!"},
    {"OSTGD", "DATE! TIME! DERV! OCPT! PTNM! DESC SDST! ANGV! ANGA CDOR! CDCL!"},
    {"OSTGV", "DATE! TIME! DERV! OCPT! PTNM! DESC ANGA HDST! VDST! CDOR! CDCL!"},
    {"OSTOC", "DATE! TIME! DERV! OCPT!"},
    {"OSTHI", "DATE! TIME! DERV! HTIN!"},
    {"OSTLA", "DATE! TIME! DERV! PTNM! DESC SDST! ANGV! ANGA ANGD CDOR! CDCL!"},
    {"OSTHR", "DATE! TIME! DERV! HTTG!"},
    {"PRJCS", "DATE! TIME! PJCO! PJZG! PJRE! PJDN!"},
    {"PRJDT", "DATE! TIME! PJDT! PJDN HDST NUMR ROTX ROTY ROTZ TRAX TRAY TRAZ SCPP",
     kDatumConditions},
    {"PRJEL", "DATE! TIME! PJRE! HDST! NUMR!"},
    {"PRJHA", "DATE! TIME! NRTH EAST TRAY TRAX ROTZ SCAL"},
    {"PRJVA", "DATE! TIME! PJVA! NRTH EAST TRAZ TINO TIEA PJRE", kVerticalAdjustConditions},
    {"PRJMP",
     "DATE! TIME! MPTY! LATI! LONG! HGHT NRTH! EAST! ELEV SCAL LAT1 LAT2 PJCT PJAF NUMB PJAE FIL1 "
     "FIL2",
     kMappingPlaneConditions},
    {"PRJST", "DATE! TIME! LATI LONG HGHT SCAL! TRAY! TRAX!"},
    {"PRJCG", "DATE TIME PJAZ! PJGO!"},
};

}  // namespace ilj

/// The number of a record: its place in the table.
enum class IljRecordType : std::int32_t { None = 0 };
inline constexpr std::size_t kIljRecordTypes = std::size(ilj::kRecords);

/// From a record's tag to its number: 0 for an unknown tag.
class CMoskoJobRecordMap : public IljTagMap {
 public:
  constexpr CMoskoJobRecordMap() : IljTagMap(ilj::kRecords) {}
};
inline constexpr CMoskoJobRecordMap kIljRecordMap;

constexpr const IljRecordLayout& IljLayoutOf(IljRecordType type) {
  return ilj::kRecords[static_cast<std::size_t>(type)];
}
/// A tag that no record has doesn't compile.
constexpr IljRecordType IljRecordTypeOf(IljTag tag) {
  const std::int32_t number = kIljRecordMap.GetType(tag.View());
  if (number == 0) throw "no record has this tag";
  return static_cast<IljRecordType>(number);
}

/// One record: a type and its fields. It can be filled again and again, as another type as well:
/// its texts keep their memory.
class CMoskoJobRecord {
 public:
  explicit CMoskoJobRecord(IljRecordType type = IljRecordType::None) { Restart(type); }

  IljRecordType GetRecordType() const { return m_recordType; }
  /// Another type or the same, and no field set.
  void Restart(IljRecordType type);
  /// Every field unset.
  void ClearFields();

  /// The field at that place of the record's order; null past the last.
  CMoskoJobRecordField* GetField(int index) {
    const auto place = static_cast<std::size_t>(index);
    return place < Layout().fields.Size() ? &m_fields[place] : nullptr;
  }
  /// True if the record may be written, or carried over.
  [[nodiscard]] bool IsValid();

  /// Stores one "TAG:value"; false, with nothing changed, if the tag is none of the record's.
  /// Throws ConversionFailure as the field's SetText does. momentsAlone: only a date or a time.
  [[nodiscard]] bool ParseField(std::string_view text, bool momentsAlone = false);
  /// Reads what follows the first tab of a line. Unknown tags are passed over, and the last of two
  /// like fields counts. The result is IsValid.
  [[nodiscard]] bool ParseText(std::string_view text);
  /// Reads only the dates and times of such a text, and clears nothing.
  void ParseMoments(std::string_view text);
  /// Appends the record's line: its tag and a tab, then the valid fields. A tab stands after each
  /// of them but the last of the order, so that a line whose last field isn't valid ends in a tab.
  void AppendText(std::string& line) const;
  /// The line as text of its own.
  std::string ToText() const;

  /// Seconds by the local calendar (see CivilTime.h); 0 unless date and time are both valid.
  void SetDateTime(std::int64_t moment);
  std::int64_t GetDateTime() const;

 private:
  template <IljTag tag>
  friend class IljRecord;

  const IljRecordLayout& Layout() const { return IljLayoutOf(m_recordType); }
  int FindPlace(std::string_view text);
  [[nodiscard]] bool Meets(const IljCondition& condition);

  std::span<CMoskoJobRecordField> Fields() {
    return std::span(m_fields).first(Layout().fields.Size());
  }
  std::span<const CMoskoJobRecordField> Fields() const {
    return std::span(m_fields).first(Layout().fields.Size());
  }
  static constexpr std::size_t kDate = 0, kTime = 1;  // every record begins with these
  static constexpr std::size_t kMoments = 2;
  [[nodiscard]] bool HoldsMoment() const;

  IljRecordType m_recordType = IljRecordType::None;
  std::size_t m_nextPlace = 0;  // where the next field to be read is expected
  // What SetDateTime was given last and what it prints as: the records of a run have one of them.
  std::int64_t m_moment = 0;
  std::string m_momentText;
  std::array<CMoskoJobRecordField, IljFieldList::kMaxSize> m_fields;  // as many as the type has
};

/// A record of a known tag: what it doesn't have can't be asked for. It looks at a CMoskoJobRecord
/// of that type.
template <IljTag tag>
class IljRecord {
 public:
  static constexpr IljRecordType kType = IljRecordTypeOf(tag);

  explicit IljRecord(CMoskoJobRecord& record) : m_record(record) {}

  /// The field, which stays the record's.
  template <IljTag field>
  IljField<field> Get() const {
    constexpr int kIndex = IljLayoutOf(kType).Find(IljFieldTypeOf(field));
    static_assert(kIndex >= 0);
    return IljField<field>(m_record.m_fields[kIndex]);
  }
  /// Its value, valid or not.
  template <IljTag field>
  auto Value() const {
    return Get<field>().GetValue();
  }
  /// Checks nothing.
  template <IljTag field>
  void Set(typename IljField<field>::Value value) const {
    Get<field>().SetValue(value);
  }
  /// True if all of these are valid.
  template <IljTag... fields>
  [[nodiscard]] bool HasAll() const {
    return (Get<fields>().IsValid() && ...);
  }
  /// True if one of them is.
  template <IljTag... fields>
  [[nodiscard]] bool HasAny() const {
    return (Get<fields>().IsValid() || ...);
  }

 private:
  CMoskoJobRecord& m_record;
};

// The records by their names.
using CMoskoJobRecordJobMode = IljRecord<"JOBMO">;
using CMoskoJobRecordJobSupportFile = IljRecord<"JOBFI">;
using CMoskoJobRecordUserNote = IljRecord<"UNOTE">;
using CMoskoJobRecordSystemNote = IljRecord<"SNOTE">;
using CMoskoJobRecordPoint = IljRecord<"POINT">;
using CMoskoJobRecordSurveyStart = IljRecord<"SUSTR">;
using CMoskoJobRecordSurveySetTimeEnd = IljRecord<"SUSEN">;
using CMoskoJobRecordSurveyStation = IljRecord<"SUSTN">;
using CMoskoJobRecordSurveyMotionControl = IljRecord<"SUMCT">;
using CMoskoJobRecordSurveyKdi = IljRecord<"SUKDI">;
using CMoskoJobRecordSurveyEnd = IljRecord<"SUEND">;
using CMoskoJobRecordAntenna = IljRecord<"ANTEN">;
using CMoskoJobRecordSurveyGpsQC = IljRecord<"SUGQC">;
using CMoskoJobRecordOffsetGroundObservation = IljRecord<"OSTGD">;
using CMoskoJobRecordOffsetGroundVector = IljRecord<"OSTGV">;
using CMoskoJobRecordOffsetOccupyPoint = IljRecord<"OSTOC">;
using CMoskoJobRecordOffsetHeightInstrument = IljRecord<"OSTHI">;
using CMoskoJobRecordOffsetLaserObservation = IljRecord<"OSTLA">;
using CMoskoJobRecordOffsetHeightTarget = IljRecord<"OSTHR">;
using CMoskoJobRecordProjectionSystemName = IljRecord<"PRJCS">;
using CMoskoJobRecordProjectionDatum = IljRecord<"PRJDT">;
using CMoskoJobRecordProjectionEllipsoid = IljRecord<"PRJEL">;
using CMoskoJobRecordProjectionHorizontalAdjust = IljRecord<"PRJHA">;
using CMoskoJobRecordProjectionVerticalAdjust = IljRecord<"PRJVA">;
using CMoskoJobRecordProjectionMappingPlane = IljRecord<"PRJMP">;
using CMoskoJobRecordProjectionLocalSite = IljRecord<"PRJST">;
using CMoskoJobRecordProjectionCogoSettings = IljRecord<"PRJCG">;

}  // namespace zelconvert
