// The binary file under every format: boolean results instead of exceptions, read-ahead and
// write buffers, a line reader and a line writer.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/Platform.h"

namespace zelconvert {

class CFileCE {
 public:
  /// bUnicode: lines are UTF-16LE in the file, else 8-bit text of the platform.
  explicit CFileCE(bool bUnicode = false) : m_bUnicode(bUnicode) {}
  /// Closes; a failure is lost.
  virtual ~CFileCE() { std::ignore = Close(); }
  CFileCE(const CFileCE&) = delete;
  CFileCE& operator=(const CFileCE&) = delete;

  /// flags: an access word of Platform.h. False if already open or refused.
  [[nodiscard]] bool Open(const std::wstring& path, std::uint32_t flags);
  /// Made anew, or emptied; nobody else writes it while it is open.
  [[nodiscard]] bool OpenForWrite(const std::wstring& path) {
    return Open(path, platform::kCreateOutput);
  }
  /// An existing file, at its first byte.
  [[nodiscard]] bool OpenForRead(const std::wstring& path) {
    return Open(path, platform::kOpenReadWrite);
  }
  /// True if not open. False if the close, or a write that was still held back, failed.
  [[nodiscard]] bool Close();
  /// Between a successful Open and Close.
  [[nodiscard]] bool IsOpen() const { return m_File.IsOpen(); }
  /// The path of the last successful Open.
  const std::wstring& GetPath() const { return m_strPath; }
  /// Replaces the read-ahead buffer; 0 reads without one, until a line is read.
  void SetBufferSize(std::uint32_t kilobytes);

  /// Reads up to `count` bytes. With `pRead` the number read is stored and a short read is a
  /// success; without it a short read is false (what was there has been copied).
  [[nodiscard]] bool Read(void* buffer, std::size_t count, std::size_t* pRead = nullptr) {
    if (count == 0 || count > m_nBufferLeft) return ReadPastBuffer(buffer, count, pRead);
    std::copy_n(m_pBuffer.get() + m_nBufferPos, count, static_cast<char*>(buffer));
    m_nBufferPos += count;
    m_nBufferLeft -= count;
    if (pRead) *pRead = count;
    return true;
  }
  /// False at once if the line reader holds unread characters. The bytes reach the platform in
  /// blocks: a full disk may show at a later call, at Close, and in HasWriteFailed.
  [[nodiscard]] bool Write(const void* buffer, std::size_t count);
  /// True once any write, flush or close has failed since Open; in a file that was made, or
  /// emptied, a seek that the system refused, too.
  [[nodiscard]] bool HasWriteFailed() const { return m_bWriteFailed; }
  /// True once the system has failed a read, or a seek in a file that was there, since Open; the
  /// reader above saw the end of the file.
  [[nodiscard]] bool HasReadFailed() const { return m_bReadFailed; }

  /// Of a line so many characters count, here and in CTextFile; the rest is passed over. No record
  /// is nearly as long, and a file without line ends must not fill the memory.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 18;
  /// The next line without its line end (LF or CR LF), in `text`, whose memory is reused. False at
  /// the end mark or the end of the file; a last line without line end is a line, and keeps a CR at
  /// its end.
  [[nodiscard]] bool ReadLine(std::wstring& text);
  /// The same as its bytes stand in the file, valid until the next call; for a look at lines of
  /// which few are wanted. Widen makes the text of one.
  [[nodiscard]] bool ReadLine(std::string_view& bytes);
  void Widen(std::wstring& text, std::string_view bytes) const;
  /// Writes `text` and CR LF; a text with line feeds in it becomes several lines, without an empty
  /// one after a line feed at its end. HasWriteFailed tells whether it was.
  void WriteLine(std::wstring_view text) { WriteLines(text); }
  /// The same of text that is 8-bit already, as the file is.
  void WriteLine(std::string_view text) { WriteLines(text); }
  /// Hands to the system what was held back.
  [[nodiscard]] bool Flush();

  /// Of the next byte to be read or written; 0 if not open. In UTF-16 each character that is left
  /// of the line reader's chunk counts as a byte that has been read.
  std::int64_t GetPosition();
  /// False, with the position as it was, for a target below 0. Past the end is no error.
  [[nodiscard]] bool Seek(std::int64_t offset, platform::SeekFrom from);
  /// Shorter words for Seek.
  [[nodiscard]] bool SeekToEnd() { return Seek(0, platform::SeekFrom::End); }
  [[nodiscard]] bool SeekTo(std::int64_t position) {
    return Seek(position, platform::SeekFrom::Begin);
  }
  /// A refusal is remembered: HasReadFailed, HasWriteFailed.
  void SeekToBegin() { std::ignore = SeekTo(0); }
  /// Bytes, with those held back; 0 if not open.
  std::int64_t GetLength();

  /// No file is as long.
  static constexpr std::int64_t kNoEndMark = std::numeric_limits<std::int64_t>::max();
  /// Where the text of the file ends: at the first of the characters 1A after which only more of
  /// them and line ends stand. kNoEndMark if there is none. characterSize: 1, or 2 for UTF-16.
  std::int64_t FindEndMark(std::size_t characterSize, bool bBigEndian);
  /// How many of the next `count` bytes stand in front of `end`.
  std::size_t BytesBefore(std::int64_t end, std::size_t count);

 private:
  static constexpr std::size_t kChunkCharacters = 255;
  static constexpr std::int64_t kUnknown = -1;

  [[nodiscard]] bool ReadPastBuffer(void* buffer, std::size_t count, std::size_t* pRead);
  std::size_t CharacterSize() const { return m_bUnicode ? 2 : 1; }
  std::optional<std::size_t> ReadPlatform(void* buffer, std::size_t count);
  [[nodiscard]] bool FillBuffer();
  std::string_view TextAhead();
  std::size_t FindLineFeed(std::string_view text) const;
  std::string_view AppendToLine(std::string_view part);
  std::size_t LineLeft();
  std::int64_t ReaderPosition();
  void StripCarriageReturn(std::string_view& line) const;
  [[nodiscard]] bool PrepareWrite();
  template <class View>
  void WriteLines(View text);
  void AppendForFile(std::wstring_view text);
  void AppendForFile(std::string_view text) { m_strHeldBack.append(text); }
  [[nodiscard]] bool WritePlatform(const void* buffer, std::size_t count);
  std::int64_t PlatformPosition();
  void ClearReadState();
  void DiscardReadBuffer();
  void NoteRefusal() { (m_bMade ? m_bWriteFailed : m_bReadFailed) = true; }

  platform::File m_File;
  std::wstring m_strPath;

  std::unique_ptr<char[]> m_pBuffer;  // read-ahead; none when unbuffered
  std::size_t m_nBufferSize = 0;
  std::size_t m_nBufferPos = 0;  // next unread byte
  std::size_t m_nBufferLeft = 0;

  // The line reader counts characters from where it began, in chunks of 255: Write and GetPosition
  // see what is left of one.
  std::size_t m_nLinePos = 0;
  std::string m_strLine;  // the bytes of a line that reaches beyond the read-ahead buffer

  std::string m_strHeldBack;             // written, but not yet with the system
  std::int64_t m_nCachedPos = kUnknown;  // the system's position
  std::int64_t m_nCachedLength = kUnknown;
  std::int64_t m_nEndMark = kUnknown;  // where the line reader stops
  bool m_bUnicode;
  bool m_bMade = false;  // or emptied, when it was opened
  bool m_bWriteFailed = false;
  bool m_bReadFailed = false;
};

}  // namespace zelconvert
