// The DC file: a text file of fixed-column records, one a line, the hub that job, raw and interlock
// data go through. CDcFile opens it, says what a line is, and reads and writes every record; it
// keeps no record and decides nothing about the meaning of one.
//
//   DcLine line;
//   tDC_GRID_POSITIONRecord position;
//   while (file.ReadLine(line)) {
//     if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) continue;
//     if (CDcFile::GetRecordType(line) != position.kType) continue;  // any other type
//     CDcFile::Read(line, position);
//   }
//
// Reading doesn't validate: a short line gives empty fields, text that is no number gives 0. A
// record can be reused line after line without allocating.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "dc/CutNames.h"
#include "dc/DcLine.h"
#include "dc/DcRecords.h"
#include "dc/RecordColumns.h"
#include "io/CFileCE.h"

namespace zelconvert {

/// Number of known subtypes, which is also the index of an unknown one.
inline constexpr int kDcSubtypeCount = 98;
/// Index of "DL": the record is deleted, whatever its type.
inline constexpr int kDcDeletedSubtype = 25;

/// A record with a table of its columns.
template <class R>
concept DcRecordType = std::derived_from<R, tDC_RECORD> && requires {
  R::kColumns;
};

class CDcFile : public CFileCE {
 public:
  /// An existing file, at its first line.
  [[nodiscard]] bool OpenForRead(const std::wstring& path) {
    return CFileCE::OpenForRead(path) && Rewind();
  }
  /// Back to the first line, after a UTF-8 mark.
  [[nodiscard]] bool Rewind();
  /// Without a dot.
  static std::wstring GetDefaultExtension() { return L"DC"; }

  using CFileCE::Read;
  using CFileCE::Write;

  using CFileCE::ReadLine;
  /// The next line (see CFileCE), good until the next call.
  [[nodiscard]] bool ReadLine(DcLine& line) {
    std::string_view bytes;
    const bool found = CFileCE::ReadLine(bytes);
    line.Set(bytes);
    return found;
  }

  // What a line is.

  /// The first two characters as a base-36 number in either case; 0 if they are none, such as "#x".
  static std::int32_t GetRecordType(const DcLine& line) { return GetRecordType(line.Columns()); }
  /// The same of a line as it stands in the file: what isn't ASCII ends a number in either form.
  static std::int32_t GetRecordType(std::string_view bytes);
  /// Index of columns 2 and 3 in the table of subtypes; 98 if unknown. Case matters.
  static int GetRecordSubtype(const DcLine& line);
  /// `index` is below 98.
  static std::wstring_view GetSubtypeString(int index);
  /// Empty, or blanks and tabs alone: no record, passed over by every conversion.
  [[nodiscard]] static bool IsBlank(const DcLine& line);
  /// Subtype "DL": skipped by every conversion before its type is looked at.
  [[nodiscard]] static bool IsDeleted(const DcLine& line);

  // Records. Their structures tell the columns; dc/records/Record.h what they have in common.

  /// Every field but those that a table names as constants is set. Throws ConversionFailure for a
  /// line that is shorter than the record's kShortestLine.
  template <DcRecordType R>
  static void Read(const DcLine& line, R& record);

  // Not used by any route: empty lines are passed over before, and no backsight is read.

  /// Of 66, 68 and 72: false for an empty line.
  template <DcRecordType R>
  [[nodiscard]] static bool ReadUnlessEmpty(const DcLine& line, R& record) {
    if (line.Size() > 0) Read(line, record);
    return line.Size() > 0;
  }
  /// Sets the type alone.
  static void Read(const DcLine& /*line*/, tDC_BACKSIGHTRecord& record) {
    record.type = record.kType;
  }

  /// Writes one line; HasWriteFailed tells whether all of them could be written.
  template <DcRecordType R>
  void Write(const R& record) {
    Write(record, R::kHasOwnSubtype ? Left(record.subtype, 2) : std::wstring_view(R::kHead + 2));
  }
  /// subtype: two characters, whatever the record holds.
  template <DcRecordType R>
  void Write(const R& record, std::wstring_view subtype);

  /// Where names that a column cuts are told of, each once; the list stays the caller's.
  void SetMessages(MessageList* messages) { m_cutNames.SetMessages(messages); }

 private:
  template <DcRecordType R>
  void AppendFields(const R& record);

  std::string m_strLine;  // the line being written, as it goes to the file; its memory is reused
  CutNames m_cutNames;
};

template <DcRecordType R>
void CDcFile::Read(const DcLine& line, R& record) {
  static_assert(Abut(kColumns<R>));
  if constexpr (requires { R::kShortestLine; }) {
    if (line.Size() < R::kShortestLine) throw ConversionFailure();
  }
  record.type = R::kType;
  line.GetText(line.Columns(2, 2), record.subtype);
  ReadColumns(line, kColumns<R>, record);
}

template <DcRecordType R>
void CDcFile::Write(const R& record, std::wstring_view subtype) {
  m_strLine = {static_cast<char>(R::kHead[0]), static_cast<char>(R::kHead[1])};
  AppendRight(m_strLine, subtype, 2);
  if constexpr (requires { record.AsWritten(); }) {
    AppendFields(record.AsWritten());
  } else {
    AppendFields(record);
  }
  WriteLine(std::string_view(m_strLine));
}

template <DcRecordType R>
void CDcFile::AppendFields(const R& record) {
  static_assert(Abut(kColumns<R>));
  if constexpr (requires { record.IsWrittenBlank(); }) {
    if (record.IsWrittenBlank()) {
      return AppendBlanks(m_strLine, End(kColumns<R>) - m_strLine.size());
    }
  }
  WriteColumns(m_strLine, kWrittenColumns<R>, record, m_cutNames);
}

}  // namespace zelconvert
