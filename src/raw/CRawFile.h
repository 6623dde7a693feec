// The raw field log: reads it line by line, parses and writes every kind of record.
// docs/formats/raw.md tells the grammar; CRawFile.cpp holds the table of each record.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "io/CFileCE.h"
#include "raw/RawFields.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// What a conversion that refuses a bad record says, with the number of its line from 1.
inline constexpr std::wstring_view kBadRawRecordText =
    L"Bad raw data record found at line %ld. The conversion is aborted.";

/// What goes into one place of a record's format.
using RawArgument = std::variant<std::wstring_view, double, std::int32_t, wchar_t>;

class CRawFile : public CFileCE {
 public:
  // The writers of the grammar. The conversions use WriteRecord, WriteMO, WriteJB and WriteComment;
  // the others serve programs that write logs of their own. HasWriteFailed tells of a failed write.

  /// One line of `format` at the end of the file, cut to 511 characters. Places are %s, %lf (six
  /// decimals), %c, %d and %ld, the integers with a width such as %4d or %02d.
  virtual void WriteRecord(std::wstring_view format, std::initializer_list<RawArgument> arguments);

  virtual void WriteOC(const POINT_RECORD& point) { WritePoint(L"OC,OP", point); }
  /// `traverse`: TR, else SS. Kinds BR, DR and DL have no written form: no horizontal field then.
  virtual void WriteObservation(bool traverse, const SHOT_RECORD& shot);
  /// With `rodHeight` a comment "HR at Backsight" follows.
  virtual void WriteBK(const BK_RECORD& backsight, const double* rodHeight = nullptr);
  virtual void WriteLS(const LS_RECORD& heights) { WriteFields(L"LS", heights); }
  /// The short forms of OF: 0 vertical angle, 1 right angle, 2 horizontal distance, 3 left or
  /// right, 4 elevation. Another kind has none.
  virtual void WriteOffsetKind(int kind, double value);
  virtual void WriteOF(double angleRight, double zenith, double slopeDistance);
  virtual void WriteRD(const DIRECTION_RECORD& direction);
  virtual void WriteMD(std::int32_t set, double distance);
  virtual void WriteSP(const POINT_RECORD& point) { WritePoint(L"SP,PN", point); }
  /// `longForm`: with zenith and distance.
  virtual void WriteRS(const RESECTION_RECORD& shot, bool longForm);
  /// EO is always written as 0.0, SK not at all.
  virtual void WriteMO(const MO_RECORD& mode);
  virtual void WriteSK(const STAKE_SHOT_RECORD& shot) { WriteFields(L"SK", shot); }
  virtual void WriteCFPoint(const CF_RECORD& stake) { WriteStake(CF_RECORD::kPointFields, stake); }
  /// The offset without its sign.
  virtual void WriteCFStation(const CF_RECORD& stake);
  virtual void WriteSUGrid(double gh1, double gh2, double de1, double de2, double sm);
  /// `eg`: 0, 1 or 2; nothing is written for another.
  virtual void WriteSUPosition(double latitude, double longitude, std::int32_t eg);
  virtual void WriteSUDate(std::int32_t month, std::int32_t day, std::int32_t year);
  virtual void WriteSUTime(double time);
  virtual void WriteSUAngle(bool backsight, bool reverse, double angle);
  virtual void WriteJB(const JB_RECORD& job) { WriteFields(L"JB", job); }
  virtual void WriteRE(std::wstring_view station, double elevation, double zenith,
                       double slopeDistance);
  virtual void WriteRF(const ROUND_FORESIGHT_RECORD& shot) { WriteFields(L"RF", shot); }
  virtual void WriteRB(const ROUND_BACKSIGHT_RECORD& shot) { WriteFields(L"RB", shot); }
  virtual void WriteBP(const BP_RECORD& base) { WriteFields(L"BP", base); }
  /// A blank line follows HC and VC.
  virtual void WriteHC(const CONTROL_RECORD& control) { WriteControl(L"HC", control); }
  virtual void WriteVC(const CONTROL_RECORD& control) { WriteControl(L"VC", control); }
  virtual void WriteGS(const POINT_RECORD& point) { WritePoint(L"GS,PN", point); }
  virtual void WriteComment(std::wstring_view text) { WriteRecord(L"--%s", {text}); }
  /// "Date: ..." with the local time, which `text` gets as well, without "--".
  virtual void WriteDateComment(std::wstring& text);

  // Records that are read are UTF-8: a line of ASCII, as nearly all are, is that as it stands in
  // the file. They are valid until the next call for one.
  /// The next line; false at the end of the file.
  [[nodiscard]] bool ReadRecord(std::string_view& record) {
    const bool found = ReadLine(record);
    if (AsciiPrefix(record) < record.size()) record = m_strRecord = ToUtf8(ToWide(record));
    return found;
  }
  /// The next line that begins with a tag; `record` is empty when there is none.
  [[nodiscard]] bool FindRecord(FieldTag tag, std::string_view& record);

  /// By the first two characters, exactly; Other if they are no tag.
  static RawRecordType GetRecordType(std::string_view record);
  /// The first field of the tag, by plain search: an earlier text that holds ",TG" hides it. False,
  /// with `value` as it was, if there is none.
  [[nodiscard]] static bool GetField(std::string_view record, FieldTag tag,
                                     std::string_view& value);
  /// An empty field is DC_NULL.
  [[nodiscard]] static bool GetDoubleField(std::string_view record, FieldTag tag, double& value);

  /// What the fields of a line say, found by the type of the record; the tag of the line isn't
  /// looked at. False when a required field is missing: what stands before that field in the
  /// record's table has then been filled, all else in the structure is as it was. Texts point into
  /// `line`.
  template <class Record>
  [[nodiscard]] static bool Parse(std::string_view line, Record& record) {
    return ReadFields<Record>(RawFields(line), Record::kFields, record);
  }
  // Records with more to them than a table of fields.
  [[nodiscard]] static bool Parse(std::string_view line, MO_RECORD& mode);
  [[nodiscard]] static bool Parse(std::string_view line, OC_RECORD& point);
  [[nodiscard]] static bool Parse(std::string_view line, AP_RECORD& point);
  [[nodiscard]] static bool Parse(std::string_view line, SHOT_RECORD& shot);
  [[nodiscard]] static bool Parse(std::string_view line, DIRECTION_RECORD& direction);
  [[nodiscard]] static bool Parse(std::string_view line, SET_DISTANCE_RECORD& distance);
  [[nodiscard]] static bool Parse(std::string_view line, CF_RECORD& stake);
  [[nodiscard]] static bool Parse(std::string_view line, GP_RECORD& point);
  [[nodiscard]] static bool Parse(std::string_view line, PE_RECORD& projection);

  // What nothing here calls: for programs that write or read logs of their own.
  /// Opens an existing file and moves to its end.
  [[nodiscard]] bool OpenForAppend(const std::wstring& path);
  std::wstring GetFileType() const { return L"RAW"; }
  /// An empty field, like any text that is no number, is 0.
  [[nodiscard]] static bool GetIntField(std::string_view record, FieldTag tag, std::int32_t& value);

 private:
  void WriteText(std::wstring_view text);
  void WritePoint(std::wstring_view start, const POINT_RECORD& point);
  void WriteControl(std::wstring_view tag, const CONTROL_RECORD& control);
  void WriteStake(std::span<const RawField<CF_RECORD>> place, const CF_RECORD& stake);
  template <class Record>
  void WriteFields(std::wstring_view tag, const Record& record) {
    std::wstring line(tag);
    AppendFields<Record>(line, Record::kFields, record);
    WriteText(line);
  }

  std::string m_strRecord;  // one that isn't ASCII
};

}  // namespace zelconvert
