// A text file in one of four encodings, found by its byte order mark or its first two bytes. Serves
// the file type detection and the interlock job files.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "io/CFileCE.h"

namespace zelconvert {

class CTextFile {
 public:
  /// 8-bit text is that of the platform (see platform::AppendWide).
  enum Encoding : std::int32_t {
    kAnsi = 0,
    kUtf16LittleEndian = 1,
    kUtf8 = 2,
    kUtf16BigEndian = 3
  };

  /// bStripNulls: zero bytes of 8-bit text are dropped. Without it each block of 256 bytes, counted
  /// from where reading began, ends at its first zero byte.
  CTextFile(bool bUnicode, bool bStripNulls);
  /// The encoding of a file that is made, and of one that doesn't say; zero bytes end a block.
  explicit CTextFile(Encoding encoding);

  /// False, with no change, unless the file is open.
  bool SetEncoding(Encoding encoding);
  /// The same with little-endian UTF-16, or else 8-bit text.
  bool SetUnicode(bool bUnicode) { return SetEncoding(bUnicode ? kUtf16LittleEndian : kAnsi); }
  /// Lets this object open a file that turns out to be no 8-bit text.
  void SetAllowUnicode(bool bAllowUnicode) { m_bAllowUnicode = bAllowUnicode; }
  /// The same for every object of the process that opens a file from then on, for good.
  static std::atomic<bool> s_bUnicodeAllowed;

  /// flags: an access word of Platform.h. Without the create bit the encoding is found in the file;
  /// with it the mark of the encoding is written: FF FE, EF BB or FE FF. (Two bytes for UTF-8 as
  /// well; the reader takes both the two and the usual three.) False if the system refuses, or if
  /// the file isn't 8-bit text and that isn't allowed.
  bool Open(const std::wstring& path, std::uint32_t flags);
  /// The same after the encoding and SetAllowUnicode have been set.
  bool Open(const std::wstring& path, std::uint32_t flags, Encoding encoding, bool bAllowUnicode);
  /// As CFileCE has them: false if a write that was held back failed; the path last opened.
  bool Close() { return m_File.Close(); }
  bool IsOpen() const { return m_File.IsOpen(); }
  const std::wstring& GetPath() const { return m_File.GetPath(); }
  /// Of the file that is open, found in it or set.
  Encoding GetEncoding() const { return m_Encoding; }
  /// Bytes at the start of the file that are not text.
  std::int32_t GetBomSize() const { return m_nBomSize; }

  /// The next line, without its LF and cut at its first CR, in `line`, whose memory is reused.
  /// False at the end mark (see CFileCE) or the end of the file; a last line without LF is a line.
  /// UTF-16 comes as it is in the file, one character per unit. A code point of UTF-8 above U+FFFF
  /// comes as two characters, so that text has the same length on every platform; each broken part
  /// of a sequence comes as U+FFFD.
  bool ReadString(std::wstring& line);
  /// Writes `text` and CR LF; text with line feeds in it becomes several lines. An empty text
  /// writes nothing, an empty line none in 8-bit encoding. False if a write failed, now or earlier.
  bool WriteString(std::wstring_view text);
  /// True once a write, or a read, has failed since Open.
  bool HasWriteFailed() const { return m_File.HasWriteFailed(); }
  bool HasReadFailed() const { return m_File.HasReadFailed(); }

  /// Bytes read, less one (two in UTF-16) for each character that ReadString still holds.
  std::int64_t GetPosition();
  /// Bytes; 0 if not open.
  std::int64_t GetLength() { return m_File.GetLength(); }
  /// A position of GetPosition. What ReadString held is dropped.
  bool SeekTo(std::int64_t position);
  /// Back to the first character, the encoding found anew.
  bool Rewind();

 private:
  std::size_t HeldLength() const { return m_strBuffer.size() - m_nStart; }
  void ClearHeld();
  void Detect();
  void DetectEncoding();
  void DetectByMark(std::uint8_t low, std::uint8_t high);
  bool ReadChunk();
  void AppendChunk(std::string_view chunk);
  void AppendAnsi(std::string_view chunk);
  void AppendUnits(std::string_view chunk);
  std::size_t WholeSequences(std::string_view chunk) const;
  void WriteLines(std::wstring_view piece, bool bSplit);
  void WriteEncoded(std::wstring_view text);

  CFileCE m_File;
  std::wstring m_strBuffer;  // read from the file, but not yet returned, from m_nStart on
  std::size_t m_nStart = 0;
  std::string m_strWrite;  // the bytes of the line being written
  Encoding m_Encoding;
  bool m_bStripNulls = false;
  bool m_bAllowUnicode = false;
  std::int32_t m_nBomSize = 0;
  std::int64_t m_nEndMark = CFileCE::kNoEndMark;
};

}  // namespace zelconvert
