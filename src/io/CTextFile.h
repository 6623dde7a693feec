// A text file in one of four encodings, found by its byte order mark or its first two bytes. Serves
// the file type detection and the interlock job files.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "io/CFileCE.h"
#include "io/Strings.h"

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
  [[nodiscard]] bool SetEncoding(Encoding encoding);
  /// The same with little-endian UTF-16, or else 8-bit text.
  [[nodiscard]] bool SetUnicode(bool bUnicode) {
    return SetEncoding(bUnicode ? kUtf16LittleEndian : kAnsi);
  }
  /// Lets this object open a file that turns out to be no 8-bit text.
  void SetAllowUnicode(bool bAllowUnicode) { m_bAllowUnicode = bAllowUnicode; }
  /// The same for every object of the process that opens a file from then on, for good.
  static std::atomic<bool> s_bUnicodeAllowed;

  /// flags: an access word of Platform.h. Without the create bit the encoding is found in the file;
  /// with it the mark of the encoding is written: FF FE, EF BB or FE FF. (Two bytes for UTF-8 as
  /// well; the reader takes both the two and the usual three.) False if the system refuses, or if
  /// the file isn't 8-bit text and that isn't allowed.
  [[nodiscard]] bool Open(const std::wstring& path, std::uint32_t flags);
  /// The same after the encoding and SetAllowUnicode have been set.
  [[nodiscard]] bool Open(const std::wstring& path, std::uint32_t flags, Encoding encoding,
                          bool bAllowUnicode);
  /// As CFileCE has it: false if a write that was held back failed.
  [[nodiscard]] bool Close() { return m_File.Close(); }
  [[nodiscard]] bool IsOpen() const { return m_File.IsOpen(); }
  /// Of the file that is open, found in it or set.
  Encoding GetEncoding() const { return m_Encoding; }
  /// Bytes at the start of the file that are not text.
  std::int32_t GetBomSize() const { return m_nBomSize; }

  // Lines are UTF-8 here, whatever the file's encoding is.

  /// The next line, without its LF and cut at its first CR, valid until the next call. False at the
  /// end mark (see CFileCE) or the end of the file; a last line without LF is a line. Half a pair
  /// that stands alone in UTF-16, and each broken part of a sequence of UTF-8, comes as U+FFFD; an
  /// odd byte at the end of a file of UTF-16 doesn't come.
  [[nodiscard]] bool ReadString(std::string_view& line);
  /// Writes `text` and CR LF; text with line feeds in it becomes several lines. An empty text
  /// writes nothing. In 8-bit encoding an empty line writes none, and one that ends where a piece
  /// of 256 UTF-16 units of the text does has no line end. HasWriteFailed tells whether it was.
  void WriteString(std::string_view text);
  /// True once a write, or a read, has failed since Open.
  [[nodiscard]] bool HasWriteFailed() const { return m_File.HasWriteFailed(); }
  [[nodiscard]] bool HasReadFailed() const { return m_File.HasReadFailed(); }

  /// Bytes read, less one (two in UTF-16) for each UTF-16 unit that ReadString still holds.
  std::int64_t GetPosition();
  /// Bytes; 0 if not open.
  std::int64_t GetLength() { return m_File.GetLength(); }
  /// A position of GetPosition. What ReadString held is dropped.
  [[nodiscard]] bool SeekTo(std::int64_t position);
  /// Back to the first character, the encoding found anew. HasReadFailed remembers a refusal.
  void Rewind();

 private:
  std::string_view Held() const { return std::string_view(m_strBuffer).substr(m_nStart); }
  void Detect();
  void DetectEncoding();
  void DetectByMark(std::uint8_t low, std::uint8_t high);
  [[nodiscard]] bool ReadChunk();
  void AppendChunk(std::string_view chunk);
  void AppendAnsi(std::string_view chunk);
  std::size_t WholeSequences(std::string_view chunk) const;
  char16_t FirstUnit(std::string_view chunk) const {
    return Utf16UnitAt(chunk.data(), m_Encoding == kUtf16BigEndian);
  }
  void WriteEncoded(std::string_view text);

  CFileCE m_File;
  std::string m_strBuffer;  // read from the file, but not yet returned, from m_nStart on
  std::size_t m_nStart = 0;
  std::string m_strWrite;  // the bytes of what is being written
  Encoding m_Encoding;
  bool m_bStripNulls = false;
  bool m_bAllowUnicode = false;
  std::int32_t m_nBomSize = 0;
  std::int64_t m_nEndMark = CFileCE::kNoEndMark;
};

}  // namespace zelconvert
