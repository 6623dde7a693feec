#include "io/CTextFile.h"

#include <algorithm>
#include <tuple>

#include "io/Strings.h"
#include "platform/Utf8.h"

namespace zelconvert {
namespace {

constexpr std::uint32_t kTextModeBit = 0x4000;
constexpr std::size_t kPieceUnits = 256;                      // see WriteString
constexpr std::size_t kChunkBytes = 256;                      // UTF-16 takes twice as many
constexpr std::size_t kMostHeld = 3 * CFileCE::kLongestLine;  // bytes: no unit takes more than 3

[[nodiscard]] constexpr bool IsUtf16(CTextFile::Encoding encoding) {
  return encoding == CTextFile::kUtf16LittleEndian || encoding == CTextFile::kUtf16BigEndian;
}

// By Encoding.
constexpr std::string_view kMarks[] = {{}, "\xFF\xFE", "\xEF\xBB", "\xFE\xFF"};

// Each broken part of a sequence becomes U+FFFD.
void AppendMended(std::string& out, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t plain = AsciiPrefix(bytes);
    out.append(bytes.substr(0, plain));
    bytes.remove_prefix(plain);
    if (bytes.empty()) return;
    const platform::Utf8Character next = platform::DecodeUtf8(bytes);
    platform::AppendUtf8(out, next.character);
    bytes.remove_prefix(next.length);
  }
}

}  // namespace

std::atomic<bool> CTextFile::s_bUnicodeAllowed = false;

CTextFile::CTextFile(bool bUnicode, bool bStripNulls)
    : m_Encoding(bUnicode ? kUtf16LittleEndian : kAnsi), m_bStripNulls(bStripNulls) {}

CTextFile::CTextFile(Encoding encoding) : m_Encoding(encoding) {}

bool CTextFile::SetEncoding(Encoding encoding) {
  if (!IsOpen()) return false;
  m_Encoding = encoding;
  return true;
}

bool CTextFile::Open(const std::wstring& path, std::uint32_t flags) {
  if (!m_File.Open(path, flags & ~kTextModeBit)) return false;
  m_nStart = m_strBuffer.size();
  if (flags & platform::kAccessCreate) {
    const std::string_view mark = kMarks[m_Encoding];
    std::ignore = m_File.Write(mark.data(), mark.size());
    return true;
  }
  Detect();
  if (m_Encoding == kAnsi || m_bAllowUnicode || s_bUnicodeAllowed) return true;
  std::ignore = m_File.Close();
  return false;
}

bool CTextFile::Open(const std::wstring& path, std::uint32_t flags, Encoding encoding,
                     bool bAllowUnicode) {
  m_Encoding = encoding;
  m_bAllowUnicode = bAllowUnicode;
  return Open(path, flags);
}

bool CTextFile::ReadString(std::string_view& line) {
  if (Held().empty() && !ReadChunk()) return false;
  std::size_t searched = 0;
  std::size_t lineFeed = Held().find('\n');
  while (lineFeed == std::string_view::npos) {
    if (Held().size() > kMostHeld) m_strBuffer.resize(m_nStart + kMostHeld);
    searched = Held().size();
    if (!ReadChunk()) break;
    lineFeed = Held().find('\n', searched);
  }
  const std::string_view text = Held();
  line = text.substr(0, lineFeed);
  m_nStart += std::min(line.size() + 1, text.size());
  line = FirstUnits(line.substr(0, line.find('\r')), CFileCE::kLongestLine);
  return !text.empty();
}

void CTextFile::WriteString(std::string_view text) {
  m_strWrite.clear();
  for (std::size_t units = 0; !text.empty(); ++units) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const bool isLast = line.size() == text.size();
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    WriteEncoded(line);
    if (m_Encoding == kAnsi && !isLast) {
      units += CountUnits(line);
      if (line.empty() || units % kPieceUnits == 0) continue;
    }
    WriteEncoded("\r\n");
  }
  std::ignore = m_File.Write(m_strWrite.data(), m_strWrite.size());
}

std::int64_t CTextFile::GetPosition() {
  const std::size_t bytesPerCharacter = IsUtf16(m_Encoding) ? 2 : 1;
  const auto held = static_cast<std::int64_t>(CountUnits(Held()) * bytesPerCharacter);
  return std::max<std::int64_t>(m_File.GetPosition() - held, 0);
}

bool CTextFile::SeekTo(std::int64_t position) {
  m_nStart = m_strBuffer.size();
  return m_File.SeekTo(position);
}

void CTextFile::Rewind() {
  Detect();
  std::ignore = SeekTo(m_nBomSize);
}

void CTextFile::Detect() {
  DetectEncoding();
  const std::size_t characterSize = IsUtf16(m_Encoding) ? 2 : 1;
  m_nEndMark = m_File.FindEndMark(characterSize, m_Encoding == kUtf16BigEndian);
}

// Leaves the position after the mark; of an unmarked UTF-16 file after its first character. If the
// file is too short to tell, all stays as it is.
void CTextFile::DetectEncoding() {
  std::uint8_t first[2];
  if (m_File.GetLength() == 0 || !m_File.SeekTo(0)) return;
  if (!m_File.Read(first, sizeof(first))) return;
  m_nBomSize = sizeof(first);
  DetectByMark(first[0], first[1]);
}

void CTextFile::DetectByMark(std::uint8_t low, std::uint8_t high) {
  const auto holdsText = [&](Encoding encoding) {
    m_Encoding = encoding;
    m_nBomSize = 0;
  };
  if (low == 0xEF && high == 0xBB) {
    m_Encoding = kUtf8;
    std::uint8_t third = 0;
    if (!m_File.Read(&third, 1)) return;
    if (third == 0xBF) {
      m_nBomSize = 3;
    } else {
      std::ignore = m_File.Seek(-1, platform::SeekFrom::Current);
    }
  } else if (low == 0xFF && high == 0xFE) {
    m_Encoding = kUtf16LittleEndian;
  } else if (low == 0xFE && high == 0xFF) {
    m_Encoding = kUtf16BigEndian;
  } else if (low != 0 && high != 0) {
    holdsText(kAnsi);
    m_File.SeekToBegin();
  } else if (low != 0) {
    holdsText(kUtf16LittleEndian);
  } else if (high != 0) {
    holdsText(kUtf16BigEndian);
  }
}

// Adds the next block to what is held. False at the end of the file, and for a block that holds
// nothing but the inside of one endless sequence.
bool CTextFile::ReadChunk() {
  char bytes[2 * kChunkBytes];
  std::size_t count = 0;
  const std::size_t wanted = IsUtf16(m_Encoding) ? 2 * kChunkBytes : kChunkBytes;
  std::ignore = m_File.Read(bytes, m_File.BytesBefore(m_nEndMark, wanted), &count);
  if (count == 0) return false;
  m_strBuffer.erase(0, m_nStart);
  m_nStart = 0;
  std::string_view chunk(bytes, count);
  if (m_Encoding != kAnsi) {
    const std::size_t whole = WholeSequences(chunk);
    if (whole == 0) return false;
    const auto givenBack = static_cast<std::int64_t>(count - whole);
    if (givenBack > 0) std::ignore = m_File.Seek(-givenBack, platform::SeekFrom::Current);
    chunk = chunk.substr(0, whole);
  }
  AppendChunk(chunk);
  return true;
}

void CTextFile::AppendChunk(std::string_view chunk) {
  if (m_Encoding == kUtf8) return AppendMended(m_strBuffer, chunk);
  if (m_Encoding == kAnsi) return AppendAnsi(chunk);
  std::wstring units;
  for (; chunk.size() >= 2; chunk.remove_prefix(2)) units.push_back(FirstUnit(chunk));
  AppendUtf8(m_strBuffer, units);
}

void CTextFile::AppendAnsi(std::string_view chunk) {
  std::string text(m_bStripNulls ? chunk : chunk.substr(0, chunk.find('\0')));
  std::erase(text, '\0');
  const std::size_t plain = AsciiPrefix(text);
  m_strBuffer.append(text, 0, plain);
  AppendUtf8(m_strBuffer, ToWide(std::string_view(text).substr(plain)));
}

// How much of a block ends with a whole sequence. A full block that ends inside of one, or with a
// sequence at all, gives back what stands after its last ASCII byte or from its last lead byte on.
std::size_t CTextFile::WholeSequences(std::string_view chunk) const {
  if (IsUtf16(m_Encoding)) {
    const bool isCut = chunk.size() == 2 * kChunkBytes &&
                       (FirstUnit(chunk.substr(chunk.size() - 2)) & 0xFC00) == 0xD800;
    return chunk.size() - (isCut ? 2 : 0);
  }
  if (chunk.size() < kChunkBytes || AsciiPrefix(chunk.substr(chunk.size() - 1)) == 1) {
    return chunk.size();
  }
  for (std::size_t i = chunk.size() - 1; i > 0; --i) {
    const auto byte = static_cast<unsigned char>(chunk[i]);
    if (byte >= 0xC0 && byte <= 0xFD) return i;
    if (byte < 0x80) return i + 1;
  }
  return 0;
}

void CTextFile::WriteEncoded(std::string_view text) {
  if (m_Encoding == kUtf8) return static_cast<void>(m_strWrite.append(text));
  std::wstring wide;
  AppendUnits(wide, text);
  if (m_Encoding == kAnsi) return platform::AppendNarrow(m_strWrite, wide);
  AppendUtf16(m_strWrite, wide, m_Encoding == kUtf16BigEndian);
}

}  // namespace zelconvert
