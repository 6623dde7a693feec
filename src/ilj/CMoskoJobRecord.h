// The records of an ILJ file: a line of a tag and its fields, all separated by tabs, one class for
// each of the 27 tags.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "ilj/CMoskoJobRecordField.h"
#include "ilj/IljTagMap.h"

namespace zelconvert {

// Number, tag, class (CMoskoJobRecord...) and fields of every record, in the order in which they
// are written; a record without one of those marked "!" isn't valid. Rules beyond that are the
// ObeysRule functions.
// clang-format off
#define ILJ_RECORDS(RECORD)                                                                        \
  RECORD( 1, JOBMO, JobMode,                    "DATE! TIME! UNDI! UNAN! DESC!")                   \
  RECORD( 2, JOBFI, JobSupportFile,             "DATE! TIME! FILE! FITY! NUMI NUMB")               \
  RECORD( 3, UNOTE, UserNote,                   "DATE! TIME! NOTE!")                               \
  RECORD( 4, SNOTE, SystemNote,                 "DATE! TIME! NOTE!")                               \
  RECORD( 5, POINT, Point,                      "DATE! TIME! DERV! PTNM! DESC NRTH EAST ELEV "     \
                                                "LATI LONG HGHT CDTY CDOR CDCL")                   \
  RECORD( 6, SUSTR, SurveyStart,                "DATE! TIME! DERV! EQTY! EQSN! LODT LOEC! "        \
                                                "LOIN! FILE! DAST TIST DAEN TIEN")                 \
  RECORD( 7, SUSEN, SurveySetTimeEnd,           "DATE! TIME! DERV! EQSN! FILE! DAEN TIEN")         \
  RECORD( 8, SUSTN, SurveyStation,              "DATE! TIME! DERV! EQSN! FILE! PTNM! DESC")        \
  RECORD( 9, SUMCT, SurveyMotionControl,        "DATE! TIME! DERV! EQSN! FILE! LOMC!")             \
  RECORD(10, SUKDI, SurveyKdi,                  "DATE! TIME! DERV! EQSN! FILE! FIL2 PTNM! "        \
                                                "HDST! VDST! ROTZ")                                \
  RECORD(11, SUEND, SurveyEnd,                  "DATE! TIME! DERV! EQSN! FILE!")                   \
  RECORD(12, ANTEN, Antenna,                    "DATE! TIME! DERV! EQSN! FILE! ANTY! EQTY! "       \
                                                "ANSN ANMK! DESC! HTIN! HDST VDST!")               \
  RECORD(13, SUGQC, SurveyGpsQC,                "DATE! TIME! DERV! EQSN! FILE! PTNM! NUMI "        \
                                                "NUMB! PDOP! HDOP! VDOP! NUMR! EPCT! HDST! "       \
                                                "VDST! GPWS! GPSS! GPWE! GPSE! IMON!")             \
  RECORD(14, OSTGD, OffsetGroundObservation,    "DATE! TIME! DERV! OCPT! PTNM! DESC SDST! "        \
                                                "ANGV! ANGA CDOR! CDCL!")                          \
  RECORD(15, OSTGV, OffsetGroundVector,         "DATE! TIME! DERV! OCPT! PTNM! DESC ANGA HDST! "   \
                                                "VDST! CDOR! CDCL!")                               \
  RECORD(16, OSTOC, OffsetOccupyPoint,          "DATE! TIME! DERV! OCPT!")                         \
  RECORD(17, OSTHI, OffsetHeightInstrument,     "DATE! TIME! DERV! HTIN!")                         \
  RECORD(18, OSTLA, OffsetLaserObservation,     "DATE! TIME! DERV! PTNM! DESC SDST! ANGV! ANGA "   \
                                                "ANGD CDOR! CDCL!")                                \
  RECORD(19, OSTHR, OffsetHeightTarget,         "DATE! TIME! DERV! HTTG!")                         \
  RECORD(20, PRJCS, ProjectionSystemName,       "DATE! TIME! PJCO! PJZG! PJRE! PJDN!")             \
  RECORD(21, PRJDT, ProjectionDatum,            "DATE! TIME! PJDT! PJDN HDST NUMR ROTX ROTY "      \
                                                "ROTZ TRAX TRAY TRAZ SCPP")                        \
  RECORD(22, PRJEL, ProjectionEllipsoid,        "DATE! TIME! PJRE! HDST! NUMR!")                   \
  RECORD(23, PRJHA, ProjectionHorizontalAdjust, "DATE! TIME! NRTH EAST TRAY TRAX ROTZ SCAL")       \
  RECORD(24, PRJVA, ProjectionVerticalAdjust,   "DATE! TIME! PJVA! NRTH EAST TRAZ TINO TIEA "      \
                                                "PJRE")                                            \
  RECORD(25, PRJMP, ProjectionMappingPlane,     "DATE! TIME! MPTY! LATI! LONG! HGHT NRTH! "        \
                                                "EAST! ELEV SCAL LAT1 LAT2 PJCT PJAF NUMB PJAE "   \
                                                "FIL1 FIL2")                                       \
  RECORD(26, PRJST, ProjectionLocalSite,        "DATE! TIME! LATI LONG HGHT SCAL! TRAY! TRAX!")    \
  RECORD(27, PRJCG, ProjectionCogoSettings,     "DATE TIME PJAZ! PJGO!")
// clang-format on

enum class IljRecordType : std::int32_t {
  None = 0,
#define ILJ_RECORD_NUMBER(number, tag, name, fields) tag = number,
  ILJ_RECORDS(ILJ_RECORD_NUMBER)
#undef ILJ_RECORD_NUMBER
};

/// Tags by record number.
inline constexpr std::wstring_view kIljRecordTags[] = {L"",
#define ILJ_RECORD_TAG(number, tag, name, fields) L## #tag,
                                                       ILJ_RECORDS(ILJ_RECORD_TAG)
#undef ILJ_RECORD_TAG
};

/// From a record's tag to its number: 0 for an unknown tag.
class CMoskoJobRecordMap : public IljTagMap {
 public:
  constexpr CMoskoJobRecordMap() : IljTagMap(kIljRecordTags) {}
};
inline constexpr CMoskoJobRecordMap kIljRecordMap;

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
/// MPTY: a plane along a skew axis, whose azimuth stands in place of the first standard parallel.
constexpr bool HasSkewAxis(std::int32_t plane) {
  return plane == 2056 || plane == 2067;
}

struct FieldUse {
  IljFieldType type = IljFieldType::None;
  bool required = false;
};

/// The fields of a record, out of their text in the table above.
struct FieldOrder {
  static constexpr std::size_t kMaxFields = 20;
  std::array<FieldUse, kMaxFields> uses = {};
  std::size_t count = 0;

  constexpr explicit FieldOrder(std::string_view text) {
    while (!text.empty()) {
      wchar_t tag[kIljTagLength] = {};
      for (std::size_t i = 0; i < kIljTagLength; ++i) tag[i] = static_cast<wchar_t>(text[i]);
      text.remove_prefix(kIljTagLength);
      FieldUse& use = uses[count++];
      use.type = static_cast<IljFieldType>(kIljFieldMap.GetType({tag, kIljTagLength}));
      use.required = !text.empty() && text.front() == '!';
      if (use.required) text.remove_prefix(1);
      if (!text.empty()) text.remove_prefix(1);
    }
  }
};

inline constexpr FieldOrder kFieldOrders[] = {FieldOrder(""),
#define ILJ_RECORD_FIELDS(number, tag, name, fields) FieldOrder(fields),
                                              ILJ_RECORDS(ILJ_RECORD_FIELDS)
#undef ILJ_RECORD_FIELDS
};

constexpr const FieldOrder& OrderOf(IljRecordType type) {
  return kFieldOrders[static_cast<std::size_t>(type)];
}

// A misspelled tag in the table has no number.
static_assert([] {
  for (const FieldOrder& order : kFieldOrders) {
    for (std::size_t i = 0; i < order.count; ++i) {
      if (order.uses[i].type == IljFieldType::None) return false;
    }
  }
  return true;
}());

/// By field number: where the field stands in the record, or -1.
using FieldIndices = std::array<std::int8_t, std::size(kIljFieldTags)>;
constexpr FieldIndices IndicesOf(const FieldOrder& order) {
  FieldIndices indices = {};
  for (std::int8_t& index : indices) index = -1;
  for (std::size_t i = 0; i < order.count; ++i) {
    indices[static_cast<std::size_t>(order.uses[i].type)] = static_cast<std::int8_t>(i);
  }
  return indices;
}

}  // namespace ilj

/// One record. Its fields are its own and live as long as it does.
class CMoskoJobRecord {
 public:
  virtual ~CMoskoJobRecord() = default;

  /// Stores one "TAG:value"; false, with nothing changed, if the tag is none of the record's.
  /// Throws ConversionFailure as the field's SetText does.
  bool ParseField(std::wstring_view text);
  /// True if the record may be written, or carried over.
  virtual bool IsValid() const = 0;
  /// The field at that place of the record's order; null past the last.
  virtual CMoskoJobRecordField* GetField(int index) = 0;
  const CMoskoJobRecordField* GetField(int index) const {
    return const_cast<CMoskoJobRecord*>(this)->GetField(index);
  }

  virtual void ClearFields() = 0;
  /// Appends the record's line: its tag and a tab, then the valid fields. A tab stands behind each
  /// of them but the last of the order, so that a line whose last field isn't valid ends in a tab.
  virtual void AppendText(std::wstring& line) const = 0;
  std::wstring ToText() const;
  /// Reads what follows the first tab of a line. Unknown tags are passed over, and the last of two
  /// like fields counts. The result is IsValid.
  bool ParseText(std::wstring_view text);
  /// Reads only the dates and times of such a text.
  void ParseMoments(std::wstring_view text);

  IljRecordType GetRecordType() const { return m_recordType; }
  /// Seconds by the local calendar (see CivilTime.h); 0 unless date and time are both valid.
  void SetDateTime(std::int64_t moment);
  std::int64_t GetDateTime() const;

 protected:
  CMoskoJobRecord(IljRecordType type, const ilj::FieldIndices& indices)
      : m_recordType(type), m_pIndices(&indices) {}
  CMoskoJobRecord(const CMoskoJobRecord&) = default;
  CMoskoJobRecord& operator=(const CMoskoJobRecord&) = default;

  CMoskoJobRecordFieldDate m_date;
  CMoskoJobRecordFieldTime m_time;

 private:
  IljRecordType m_recordType;
  const ilj::FieldIndices* m_pIndices;
};

/// The record of one tag, with the fields that ILJ_RECORDS gives it.
template <IljRecordType Type>
class IljRecord final : public CMoskoJobRecord {
 public:
  IljRecord() : CMoskoJobRecord(Type, kIndices) {}

  bool IsValid() const override { return HasRequired(kAllFields) && ObeysRule(); }
  using CMoskoJobRecord::GetField;
  CMoskoJobRecordField* GetField(int index) override {
    return index >= 0 && static_cast<std::size_t>(index) < kOrder.count
               ? kAccess[static_cast<std::size_t>(index)](*this)
               : nullptr;
  }

  void ClearFields() override { Clear(kAllFields); }
  void AppendText(std::wstring& line) const override {
    line.append(kIljRecordTags[static_cast<std::size_t>(Type)]);
    line.push_back(L'\t');
    AppendFields(line, kAllFields);
  }

  /// A field by its tag, with its own class.
  template <IljFieldType Field>
  IljFieldOf<Field>& Get() {
    if constexpr (Field == IljFieldType::DATE) {
      return m_date;
    } else if constexpr (Field == IljFieldType::TIME) {
      return m_time;
    } else {
      return std::get<kIndices[static_cast<std::size_t>(Field)] - kOwnFields>(m_fields);
    }
  }
  template <IljFieldType Field>
  const IljFieldOf<Field>& Get() const {
    return const_cast<IljRecord*>(this)->template Get<Field>();
  }
  template <IljFieldType Field>
  decltype(auto) Value() const {
    return Get<Field>().GetValue();
  }
  template <IljFieldType Field, class Value>
  void Set(const Value& value) {
    Get<Field>().SetValue(value);
  }
  template <IljFieldType... Fields>
  bool HasValid() const {
    return (Get<Fields>().IsValid() && ...);
  }
  template <IljFieldType... Fields>
  bool HasAnyValid() const {
    return (Get<Fields>().IsValid() || ...);
  }

 private:
  static constexpr ilj::FieldOrder kOrder = ilj::OrderOf(Type);
  static constexpr ilj::FieldIndices kIndices = ilj::IndicesOf(kOrder);
  static constexpr auto kAllFields = std::make_index_sequence<kOrder.count>();
  // Every record starts with date and time, which the base holds.
  static constexpr std::size_t kOwnFields = 2;
  static_assert(kOrder.uses[0].type == IljFieldType::DATE &&
                kOrder.uses[1].type == IljFieldType::TIME);

  template <std::size_t... Index>
  static auto MakeFields(std::index_sequence<Index...>)
      -> std::tuple<IljFieldOf<kOrder.uses[Index + kOwnFields].type>...>;
  using Fields = decltype(MakeFields(std::make_index_sequence<kOrder.count - kOwnFields>()));

  using Accessor = CMoskoJobRecordField* (*)(IljRecord&);
  template <std::size_t... Index>
  static constexpr std::array<Accessor, kOrder.count> MakeAccess(std::index_sequence<Index...>) {
    return {[](IljRecord& record) -> CMoskoJobRecordField* {
      return &record.template Get<kOrder.uses[Index].type>();
    }...};
  }
  static const std::array<Accessor, kOrder.count> kAccess;

  template <std::size_t... Index>
  bool HasRequired(std::index_sequence<Index...>) const {
    return ((!kOrder.uses[Index].required || Get<kOrder.uses[Index].type>().IsValid()) && ...);
  }
  template <std::size_t... Index>
  void Clear(std::index_sequence<Index...>) {
    (Get<kOrder.uses[Index].type>().Clear(), ...);
  }
  template <std::size_t... Index>
  void AppendFields(std::wstring& line, std::index_sequence<Index...>) const {
    (AppendField<kOrder.uses[Index].type, Index + 1 == kOrder.count>(line), ...);
  }
  template <IljFieldType Field, bool IsLast>
  void AppendField(std::wstring& line) const {
    if (!Get<Field>().IsValid()) return;
    Get<Field>().AppendText(line);
    if (!IsLast) line.push_back(L'\t');
  }
  /// What a valid record must keep beyond its required fields.
  bool ObeysRule() const { return true; }

  Fields m_fields;
};

template <IljRecordType Type>
const std::array<typename IljRecord<Type>::Accessor, IljRecord<Type>::kOrder.count>
    IljRecord<Type>::kAccess = IljRecord<Type>::MakeAccess(IljRecord<Type>::kAllFields);

template <>
bool IljRecord<IljRecordType::JOBFI>::ObeysRule() const;
template <>
bool IljRecord<IljRecordType::POINT>::ObeysRule() const;
template <>
bool IljRecord<IljRecordType::PRJDT>::ObeysRule() const;
template <>
bool IljRecord<IljRecordType::PRJVA>::ObeysRule() const;
template <>
bool IljRecord<IljRecordType::PRJMP>::ObeysRule() const;

#define ILJ_RECORD_CLASS(number, tag, name, fields) \
  using CMoskoJobRecord##name = IljRecord<IljRecordType::tag>;
ILJ_RECORDS(ILJ_RECORD_CLASS)
#undef ILJ_RECORD_CLASS

/// One record of every type, to be filled again and again: their texts keep their memory.
class IljRecords {
 public:
  template <IljRecordType Type>
  IljRecord<Type>& Get() {
    return std::get<IljRecord<Type>>(m_records);
  }
  /// `type` is not None.
  CMoskoJobRecord& Find(IljRecordType type) {
    CMoskoJobRecord* found = nullptr;
    std::apply(
        [&](auto&... records) {
          ((records.GetRecordType() == type ? void(found = &records) : void()), ...);
        },
        m_records);
    return *found;
  }

 private:
  static constexpr std::size_t kCount = std::size(kIljRecordTags) - 1;
  template <std::size_t... Index>
  static auto MakeRecords(std::index_sequence<Index...>)
      -> std::tuple<IljRecord<static_cast<IljRecordType>(Index + 1)>...>;

  decltype(MakeRecords(std::make_index_sequence<kCount>())) m_records;
};

}  // namespace zelconvert
