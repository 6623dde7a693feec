#include "io/CFileCE.h"

#include <algorithm>
#include <tuple>

#include "io/Strings.h"

namespace zelconvert {
namespace {

constexpr std::uint32_t kTextModeBits = 0xC000;
constexpr std::uint32_t kAnyWriteBit =
    platform::kAccessWrite | platform::kAccessReadWrite | platform::kAccessCreate;
constexpr std::uint32_t kReadWriteKilobytes = 16;
constexpr std::uint32_t kReadOnlyKilobytes = 128;
constexpr std::size_t kHeldBackLimit = 64 * 1024;
constexpr char16_t kEndMark = 0x1A;

char16_t CharacterAt(const char* bytes, std::size_t size, bool bBigEndian) {
  return size == 1 ? static_cast<unsigned char>(*bytes) : Utf16UnitAt(bytes, bBigEndian);
}

}  // namespace

bool CFileCE::Open(const std::wstring& path, std::uint32_t flags) {
  if (IsOpen()) return false;
  SetBufferSize((flags & kAnyWriteBit) ? kReadWriteKilobytes : kReadOnlyKilobytes);
  std::wstring opened = path;  // no exception leaves a file that was made and that nobody knows of
  if (!m_File.Open(path, flags & ~kTextModeBits)) return false;
  m_strPath.swap(opened);
  m_bMade = (flags & platform::kAccessCreate) != 0;
  m_nCachedLength = kUnknown;
  m_nEndMark = kUnknown;
  m_bWriteFailed = false;
  m_bReadFailed = false;
  return true;
}

bool CFileCE::Close() {
  if (!IsOpen()) return true;
  const bool flushed = Flush();
  ClearReadState();
  m_nCachedPos = kUnknown;
  const bool closed = m_File.Close();
  m_bWriteFailed = m_bWriteFailed || !closed;
  return flushed && closed;
}

void CFileCE::SetBufferSize(std::uint32_t kilobytes) {
  DiscardReadBuffer();
  m_nBufferSize = std::size_t{kilobytes} * 1024;
  m_pBuffer.reset(m_nBufferSize ? new char[m_nBufferSize] : nullptr);
  m_nCachedPos = kUnknown;
}

bool CFileCE::ReadPastBuffer(void* buffer, std::size_t count, std::size_t* pRead) {
  if (pRead) *pRead = 0;
  if (!IsOpen() || !Flush()) return false;
  std::size_t done = 0;
  if (!m_pBuffer) {
    const auto got = ReadPlatform(buffer, count);
    if (!got) return false;
    done = *got;
  }
  while (m_pBuffer && done < count) {
    if (m_nBufferLeft == 0 && !FillBuffer()) return false;
    if (m_nBufferLeft == 0) break;
    const std::size_t part = std::min(count - done, m_nBufferLeft);
    std::copy_n(m_pBuffer.get() + m_nBufferPos, part, static_cast<char*>(buffer) + done);
    m_nBufferPos += part;
    m_nBufferLeft -= part;
    done += part;
  }
  if (!pRead) return done == count;
  *pRead = done;
  return true;
}

bool CFileCE::Write(const void* buffer, std::size_t count) {
  if (!PrepareWrite()) return false;
  if (m_strHeldBack.size() + count > kHeldBackLimit && !Flush()) return false;
  if (count > kHeldBackLimit) return WritePlatform(buffer, count);
  m_strHeldBack.append(static_cast<const char*>(buffer), count);
  return true;
}

bool CFileCE::ReadLine(std::wstring& text) {
  std::string_view bytes;
  const bool found = ReadLine(bytes);
  Widen(text, bytes);
  return found;
}

bool CFileCE::ReadLine(std::string_view& bytes) {
  m_strLine.clear();
  for (std::string_view text = TextAhead(); !text.empty(); text = TextAhead()) {
    const std::size_t lineFeed = FindLineFeed(text);
    const bool isWhole = lineFeed != std::string_view::npos;
    const std::size_t taken = isWhole ? lineFeed + CharacterSize() : text.size();
    m_nBufferPos += taken;
    m_nBufferLeft -= taken;
    m_nLinePos += taken >> m_bUnicode;
    bytes = text.substr(0, std::min(lineFeed, kLongestLine << m_bUnicode));
    if (!isWhole || !m_strLine.empty()) bytes = AppendToLine(bytes);
    if (!isWhole) continue;
    StripCarriageReturn(bytes);
    return true;
  }
  bytes = m_strLine;
  return !m_strLine.empty();
}

template <class View>
void CFileCE::WriteLines(View text) {
  constexpr std::string_view kLineEnd("\r\0\n\0", 4);
  if (!PrepareWrite()) return;
  do {
    const std::size_t lineFeed = std::min(text.find('\n'), text.size());
    AppendForFile(text.substr(0, lineFeed));
    m_bUnicode ? m_strHeldBack.append(kLineEnd) : m_strHeldBack.append("\r\n");
    text.remove_prefix(std::min(lineFeed + 1, text.size()));
  } while (!text.empty());
  if (m_strHeldBack.size() > kHeldBackLimit) std::ignore = Flush();
}

template void CFileCE::WriteLines(std::wstring_view);
template void CFileCE::WriteLines(std::string_view);

bool CFileCE::Flush() {
  if (m_strHeldBack.empty()) return true;
  const bool written = WritePlatform(m_strHeldBack.data(), m_strHeldBack.size());
  m_strHeldBack.clear();
  return written;
}

std::int64_t CFileCE::GetPosition() {
  return ReaderPosition() + static_cast<std::int64_t>(m_bUnicode ? LineLeft() : 0);
}

bool CFileCE::Seek(std::int64_t offset, platform::SeekFrom from) {
  if (!IsOpen() || !Flush()) return false;
  const std::int64_t base = from == platform::SeekFrom::Begin     ? 0
                            : from == platform::SeekFrom::Current ? GetPosition()
                                                                  : GetLength();
  if (offset < -base || offset > std::numeric_limits<std::int64_t>::max() - base) return false;
  const std::int64_t target = base + offset;
  const std::int64_t bufferEnd = PlatformPosition();
  const auto held = static_cast<std::int64_t>(m_nBufferPos + m_nBufferLeft);
  if (target <= bufferEnd && target >= bufferEnd - held) {
    m_nBufferLeft = static_cast<std::size_t>(bufferEnd - target);
    m_nBufferPos = static_cast<std::size_t>(held) - m_nBufferLeft;
    m_nLinePos = 0;
    return true;
  }
  ClearReadState();
  const auto position = m_File.Seek(target, platform::SeekFrom::Begin);
  m_nCachedPos = position.value_or(kUnknown);
  if (!position) NoteRefusal();
  return position.has_value();
}

std::int64_t CFileCE::GetLength() {
  if (!IsOpen()) return 0;
  if (m_nCachedLength == kUnknown) {
    const auto length = m_File.Length();
    if (!length) NoteRefusal();
    m_nCachedLength = length.value_or(0);
  }
  if (m_strHeldBack.empty()) return m_nCachedLength;
  return std::max(m_nCachedLength, GetPosition());
}

std::optional<std::size_t> CFileCE::ReadPlatform(void* buffer, std::size_t count) {
  const auto got = m_File.Read(buffer, count);
  m_bReadFailed = m_bReadFailed || !got;
  if (!got) {
    m_nCachedPos = kUnknown;
  } else if (m_nCachedPos != kUnknown) {
    m_nCachedPos += static_cast<std::int64_t>(*got);
  }
  return got;
}

// False if the system failed; at the end of the file nothing is left in the buffer. One that the
// file didn't fill ends with it, and stays for a reader that goes back.
bool CFileCE::FillBuffer() {
  if (m_nBufferPos > 0 && m_nBufferPos < m_nBufferSize) return true;
  const auto got = ReadPlatform(m_pBuffer.get(), m_nBufferSize);
  m_nBufferPos = 0;
  m_nBufferLeft = got.value_or(0);
  return got.has_value();
}

// Transfer programs close a text with a byte 1A or several, and some with a line end after them. A
// 1A with text after it is a character like others.
std::int64_t CFileCE::FindEndMark(std::size_t characterSize, bool bBigEndian) {
  constexpr std::int64_t kBlock = 256;
  char block[kBlock];
  const std::int64_t position = GetPosition();
  const auto size = static_cast<std::int64_t>(characterSize);
  std::int64_t mark = kNoEndMark;
  // What fits the buffer is read once.
  const bool isSmall = GetLength() <= static_cast<std::int64_t>(m_nBufferSize);
  if (isSmall && IsOpen() && m_strHeldBack.empty() && m_nBufferLeft == 0) {
    std::ignore = FillBuffer();
  }
  bool isText = false;
  for (std::int64_t end = GetLength() / size * size, start = 0; end > 0 && !isText; end = start) {
    start = std::max<std::int64_t>(end - kBlock, 0);
    if (!SeekTo(start) || !Read(block, static_cast<std::size_t>(end - start))) break;
    for (std::int64_t at = end - size; at >= start && !isText; at -= size) {
      const char16_t c = CharacterAt(block + (at - start), characterSize, bBigEndian);
      if (c == kEndMark) mark = at;
      isText = c != kEndMark && c != u'\r' && c != u'\n';
    }
  }
  std::ignore = SeekTo(position);
  return mark;
}

std::size_t CFileCE::BytesBefore(std::int64_t end, std::size_t count) {
  if (end == kNoEndMark) return count;
  const auto left = static_cast<std::uint64_t>(std::max<std::int64_t>(end - ReaderPosition(), 0));
  return static_cast<std::size_t>(std::min<std::uint64_t>(count, left));
}

// What stands in the read-ahead buffer in front of the end mark, filled if it is empty; nothing at
// the end, or if the system failed.
std::string_view CFileCE::TextAhead() {
  if (!m_pBuffer) SetBufferSize(kReadWriteKilobytes);
  if (m_nEndMark == kUnknown) m_nEndMark = FindEndMark(CharacterSize(), false);
  if (m_nBufferLeft == 0 && (!IsOpen() || !Flush() || !FillBuffer())) return {};
  const std::size_t count = BytesBefore(m_nEndMark, m_nBufferLeft);
  return {m_pBuffer.get() + m_nBufferPos, count - count % CharacterSize()};
}

// Characters between the line reader and the end of its chunk, or of the text.
std::size_t CFileCE::LineLeft() {
  if (m_nLinePos % kChunkCharacters == 0) return 0;
  const std::size_t left = kChunkCharacters - m_nLinePos % kChunkCharacters;
  const std::int64_t end = std::min(m_nEndMark, GetLength());
  return BytesBefore(end, left * CharacterSize()) / CharacterSize();
}

// The byte offset of the next line feed, or npos.
std::size_t CFileCE::FindLineFeed(std::string_view text) const {
  if (!m_bUnicode) return text.find('\n');
  for (std::size_t i = 0; i < text.size(); i += 2) {
    if (text[i] == '\n' && text[i + 1] == '\0') return i;
  }
  return std::string_view::npos;
}

std::string_view CFileCE::AppendToLine(std::string_view part) {
  return m_strLine.append(part.substr(0, kLongestLine * CharacterSize() - m_strLine.size()));
}

void CFileCE::StripCarriageReturn(std::string_view& line) const {
  const std::size_t size = CharacterSize();
  if (line.size() < size) return;
  const char* last = line.data() + line.size() - size;
  if (CharacterAt(last, size, false) == u'\r') line.remove_suffix(size);
}

void CFileCE::Widen(std::wstring& text, std::string_view bytes) const {
  text.clear();
  if (!m_bUnicode) return platform::AppendWide(text, bytes);
  std::u16string units(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < units.size(); ++i) {
    units[i] = Utf16UnitAt(bytes.data() + 2 * i, false);
  }
  AssignUtf16(text, units);
}

bool CFileCE::PrepareWrite() {
  if (!IsOpen() || LineLeft() > 0) {
    m_bWriteFailed = true;
    return false;
  }
  DiscardReadBuffer();
  return true;
}

void CFileCE::AppendForFile(std::wstring_view text) {
  if (!m_bUnicode) return platform::AppendNarrow(m_strHeldBack, text);
  AppendUtf16(m_strHeldBack, text, false);
}

bool CFileCE::WritePlatform(const void* buffer, std::size_t count) {
  const bool written = m_File.Write(buffer, count);
  m_nCachedLength = kUnknown;
  if (!written) {
    m_bWriteFailed = true;
    m_nCachedPos = kUnknown;
  } else if (m_nCachedPos != kUnknown) {
    m_nCachedPos += static_cast<std::int64_t>(count);
  }
  return written;
}

std::int64_t CFileCE::PlatformPosition() {
  if (m_nCachedPos == kUnknown && IsOpen()) {
    m_nCachedPos = m_File.Seek(0, platform::SeekFrom::Current).value_or(kUnknown);
    if (m_nCachedPos == kUnknown) NoteRefusal();
  }
  return std::max<std::int64_t>(m_nCachedPos, 0);
}

void CFileCE::ClearReadState() {
  m_nBufferPos = m_nBufferLeft = m_nLinePos = 0;
}

std::int64_t CFileCE::ReaderPosition() {
  return PlatformPosition() + static_cast<std::int64_t>(m_strHeldBack.size()) -
         static_cast<std::int64_t>(m_nBufferLeft);
}

// Puts the system's position back to where the reader is.
void CFileCE::DiscardReadBuffer() {
  if (m_nBufferLeft > 0 && IsOpen()) {
    const auto position = m_File.Seek(GetPosition(), platform::SeekFrom::Begin);
    if (position) m_nCachedPos = *position;
    if (!position) NoteRefusal();
  }
  ClearReadState();
}

}  // namespace zelconvert
