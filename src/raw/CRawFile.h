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
  virtual bool WriteRF(const ROUND_SHOT_RECORD& shot);
  virtual bool WriteRB(const ROUND_SHOT_RECORD& shot);
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

  // A parser is false when a required field is missing. It has then filled what stands in front of
  // that field in the record's table; all else in the structure is as it was. The kind of the
  // record isn't looked at. Texts point into `record`.
  static bool ParseJB(std::wstring_view record, JB_RECORD& job);
  static bool ParseMO(std::wstring_view record, MO_RECORD& mode);
  static bool ParseOC(std::wstring_view record, POINT_RECORD& point);
  static bool ParseBK(std::wstring_view record, BK_RECORD& backsight);
  static bool ParseLS(std::wstring_view record, LS_RECORD& heights);
  static bool ParseTR(std::wstring_view record, SHOT_RECORD& shot);
  static bool ParseSS(std::wstring_view record, SHOT_RECORD& shot);
  static bool ParseSK(std::wstring_view record, STAKE_SHOT_RECORD& shot);
  static bool ParseRB(std::wstring_view record, ROUND_SHOT_RECORD& shot);
  static bool ParseRF(std::wstring_view record, ROUND_SHOT_RECORD& shot);
  static bool ParseRD(std::wstring_view record, DIRECTION_RECORD& direction);
  static bool ParseMD(std::wstring_view record, SET_DISTANCE_RECORD& distance);
  static bool ParseSP(std::wstring_view record, POINT_RECORD& point);
  static bool ParseGS(std::wstring_view record, POINT_RECORD& point);
  static bool ParseRP(std::wstring_view record, POINT_RECORD& point);
  static bool ParseAP(std::wstring_view record, POINT_RECORD& point);
  static bool ParseDP(std::wstring_view record, NAME_RECORD& name);
  static bool ParseDE(std::wstring_view record, NAME_RECORD& name);
  static bool ParseGK(std::wstring_view record, NAME_RECORD& name);
  static bool ParseCF(std::wstring_view record, CF_RECORD& stake);
  static bool ParseSL(std::wstring_view record, SLOPE_RECORD& slope);
  static bool ParseSR(std::wstring_view record, SLOPE_RECORD& slope);
  static bool ParseSD(std::wstring_view record, STAKED_DELTA_RECORD& delta);
  static bool ParseOE(std::wstring_view record, STATION_ERROR_RECORD& error);
  static bool ParseRX(std::wstring_view record, RX_RECORD& receiver);
  static bool ParseEQ(std::wstring_view record, EQ_RECORD& equipment);
  static bool ParseAH(std::wstring_view record, AH_RECORD& antenna);
  static bool ParseBP(std::wstring_view record, BP_RECORD& base);
  static bool ParseEP(std::wstring_view record, EP_RECORD& position);
  static bool ParseBL(std::wstring_view record, BL_RECORD& vector);
  static bool ParseCV(std::wstring_view record, CV_RECORD& covariance);
  static bool ParseGQ(std::wstring_view record, GQ_RECORD& quality);
  static bool ParseGP(std::wstring_view record, GP_RECORD& point);
  static bool ParseGO(std::wstring_view record, GO_RECORD& offset);
  static bool ParseES(std::wstring_view record, ES_RECORD& ellipsoid);
  static bool ParseST(std::wstring_view record, ST_RECORD& site);
  static bool ParsePJ(std::wstring_view record, PJ_RECORD& projection);
  static bool ParsePE(std::wstring_view record, PE_RECORD& projection);
  static bool ParseDT(std::wstring_view record, DT_RECORD& datum);
  static bool ParseDG(std::wstring_view record, FILE_RECORD& file);
  static bool ParseHA(std::wstring_view record, HA_RECORD& adjustment);
  static bool ParseVA(std::wstring_view record, VA_RECORD& adjustment);
  static bool ParseCT(std::wstring_view record, CT_RECORD& control);
  static bool ParseCS(std::wstring_view record, CS_RECORD& system);
  static bool ParseCG(std::wstring_view record, CG_RECORD& flags);
  static bool ParseLM(std::wstring_view record, LM_RECORD& mode);
  static bool ParseSG(std::wstring_view record, FILE_RECORD& file);
  static bool ParseSC(std::wstring_view record, SC_RECORD& scan);
  static bool ParseCR(std::wstring_view record, CR_RECORD& camera);
  static bool ParseIM(std::wstring_view record, IM_RECORD& image);

 private:
  bool WriteText(std::wstring_view text);
  bool WriteFormat(std::wstring_view format, std::initializer_list<RawArgument> arguments);
  bool WritePoint(std::wstring_view tag, bool occupied, const POINT_RECORD& point);
  template <class Record, std::size_t N>
  bool WriteFields(std::wstring_view tag, const RawField<Record> (&table)[N], const Record& record);
};

}  // namespace zelconvert
