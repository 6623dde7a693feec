// The raw field log: reads it line by line, parses and writes every kind of record.
// docs/formats/raw.md tells the grammar; CRawFile.cpp holds the table of each record.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "io/CFileCE.h"
#include "raw/RawFields.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// What goes into one place of a record's format.
using RawArgument = std::variant<std::wstring_view, double, std::int32_t, wchar_t>;

class CRawFile : public CFileCE {
 public:
  /// One line of `format` at the end of the file, cut to 511 characters. Places are %s, %lf (six
  /// decimals), %c, %d and %ld, the integers with a width such as %4d or %02d.
  virtual bool WriteRecord(std::wstring_view format, std::span<const RawArgument> arguments);

  virtual bool WriteOC(const POINT_RECORD& point);
  /// `traverse`: TR, else SS. Kinds BR, DR and DL have no written form: no horizontal field then.
  virtual bool WriteObservation(bool traverse, const SHOT_RECORD& shot);
  /// With `rodHeight` a comment "HR at Backsight" follows.
  virtual bool WriteBK(const BK_RECORD& backsight, const double* rodHeight = nullptr);
  virtual bool WriteLS(const LS_RECORD& heights);
  /// The short forms of OF: 0 vertical angle, 1 right angle, 2 horizontal distance, 3 left or
  /// right, 4 elevation. False for another kind.
  virtual bool WriteOffsetKind(int kind, double value);
  virtual bool WriteOF(double angleRight, double zenith, double slopeDistance);
  virtual bool WriteRD(const DIRECTION_RECORD& direction);
  virtual bool WriteMD(std::int32_t set, double distance);
  virtual bool WriteSP(const POINT_RECORD& point);
  /// `longForm`: with zenith and distance.
  virtual bool WriteRS(const RESECTION_RECORD& shot, bool longForm);
  /// EO is always written as 0.0, SK not at all.
  virtual bool WriteMO(const MO_RECORD& mode);
  virtual bool WriteSK(const STAKE_SHOT_RECORD& shot);
  virtual bool WriteCFPoint(const CF_RECORD& stake);
  /// The offset without its sign.
  virtual bool WriteCFStation(const CF_RECORD& stake);
  virtual bool WriteSUGrid(double gh1, double gh2, double de1, double de2, double sm);
  /// `eg`: 0, 1 or 2.
  virtual bool WriteSUPosition(double latitude, double longitude, std::int32_t eg);
  virtual bool WriteSUDate(std::int32_t month, std::int32_t day, std::int32_t year);
  virtual bool WriteSUTime(double time);
  virtual bool WriteSUAngle(bool backsight, bool reverse, double angle);
  virtual bool WriteJB(const JB_RECORD& job);
  virtual bool WriteRE(std::wstring_view station, double elevation, double zenith,
                       double slopeDistance);
  virtual bool WriteRF(const ROUND_FORESIGHT_RECORD& shot);
  virtual bool WriteRB(const ROUND_BACKSIGHT_RECORD& shot);
  virtual bool WriteBP(const BP_RECORD& base);
  /// A blank line follows HC and VC.
  virtual bool WriteHC(const CONTROL_RECORD& control);
  virtual bool WriteVC(const CONTROL_RECORD& control);
  virtual bool WriteGS(const POINT_RECORD& point);
  virtual bool WriteComment(std::wstring_view text);
  /// "Date: ..." with the local time, which `text` gets as well, without "--".
  virtual bool WriteDateComment(std::wstring& text);

  bool OpenForWrite(const std::wstring& path);
  /// Opens an existing file and moves to its end.
  bool OpenForAppend(const std::wstring& path);
  std::wstring GetFileType() const;

  /// The next line; false at the end of the file.
  bool ReadRecord(std::wstring& text) { return ReadLine(text); }
  /// The next line that begins with a tag; `text` is empty when there is none.
  bool FindRecord(FieldTag tag, std::wstring& text);

  static RawRecordType GetRecordType(std::wstring_view record);
  /// The first field of the tag, by plain search: an earlier text that holds ",TG" hides it. False,
  /// with `value` as it was, if there is none.
  static bool GetField(std::wstring_view record, FieldTag tag, std::wstring_view& value);
  /// An empty field is DC_NULL.
  static bool GetDoubleField(std::wstring_view record, FieldTag tag, double& value);
  static bool GetIntField(std::wstring_view record, FieldTag tag, std::int32_t& value);

  /// What the fields of a line say, found by the type of the record; the tag of the line isn't
  /// looked at. False when a required field is missing: what stands in front of that field in the
  /// record's table has then been filled, all else in the structure is as it was. Texts point into
  /// `line`.
  template <class Record>
  static bool Parse(std::wstring_view line, Record& record) {
    return ReadFields<Record>(RawFields(line), Record::kFields, record);
  }
  // Records with more to them than a table of fields.
  static bool Parse(std::wstring_view line, MO_RECORD& mode);
  static bool Parse(std::wstring_view line, OC_RECORD& point);
  static bool Parse(std::wstring_view line, AP_RECORD& point);
  static bool Parse(std::wstring_view line, SHOT_RECORD& shot);
  static bool Parse(std::wstring_view line, DIRECTION_RECORD& direction);
  static bool Parse(std::wstring_view line, SET_DISTANCE_RECORD& distance);
  static bool Parse(std::wstring_view line, CF_RECORD& stake);
  static bool Parse(std::wstring_view line, GP_RECORD& point);
  static bool Parse(std::wstring_view line, PE_RECORD& projection);

 private:
  bool WriteText(std::wstring_view text);
  bool WriteFormat(std::wstring_view format, std::initializer_list<RawArgument> arguments);
  bool WritePoint(std::wstring_view tag, FieldTag nameTag, const POINT_RECORD& point);
  template <class Record>
  bool WriteFields(std::wstring_view tag, const Record& record);
};

}  // namespace zelconvert
