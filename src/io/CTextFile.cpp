#include "io/CTextFile.h"

#include <algorithm>

#include "io/Strings.h"
#include "platform/Utf8.h"

namespace zelconvert {
namespace {

constexpr std::uint32_t kTextModeBit = 0x4000;
constexpr std::size_t kPieceLength = 256;  // characters that one step of the writer takes
constexpr std::size_t kChunkBytes = 256;   // UTF-16 takes twice as many
constexpr std::size_t kLongestLine = CFileCE::kLongestLine;
constexpr std::wstring_view kLineEnd = L"\r\n";

constexpr bool IsUtf16(CTextFile::Encoding encoding) {
  return encoding == CTextFile::kUtf16LittleEndian || encoding == CTextFile::kUtf16BigEndian;
}

// By Encoding.
constexpr std::string_view kMarks[] = {{}, "\xFF\xFE", "\xEF\xBB", "\xFE\xFF"};

// In UTF-16 units whatever the platform's characters are.
void AppendCharacter(std::wstring& out, char32_t character) {
  if (character >= 0x10000) {
    out.push_back(static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10)));
    character = 0xDC00 + ((character - 0x10000) & 0x3FF);
  }
  out.push_back(static_cast<wchar_t>(character));
}

// Whether a cut at the piece's length would part the two halves of a character.
bool EndsInsidePair(std::wstring_view text) {
  const wchar_t before = text[kPieceLength - 1];
  const wchar_t after = text[kPieceLength];
  return before >= 0xD800 && before <= 0xDBFF && after >= 0xDC00 && after <= 0xDFFF;
}

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

void AppendDecodedUtf8(std::wstring& out, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t plain = AsciiPrefix(bytes);
    AppendAscii(out, bytes.substr(0, plain));
    bytes.remove_prefix(plain);
    if (bytes.empty()) return;
    const platform::Utf8Character next = platform::DecodeUtf8(bytes);
    AppendCharacter(out, next.character);
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
  ClearHeld();
  if (flags & platform::kAccessCreate) {
    const std::string_view mark = kMarks[m_Encoding];
    m_File.Write(mark.data(), mark.size());
    return true;
  }
  Detect();
  if (m_Encoding == kAnsi || m_bAllowUnicode || s_bUnicodeAllowed) return true;
  m_File.Close();
  return false;
}

bool CTextFile::Open(const std::wstring& path, std::uint32_t flags, Encoding encoding,
                     bool bAllowUnicode) {
  m_Encoding = encoding;
  m_bAllowUnicode = bAllowUnicode;
  return Open(path, flags);
}

bool CTextFile::ReadString(std::wstring& line) {
  if (HeldLength() == 0 && !ReadChunk()) return false;
  std::size_t searched = m_nStart;
  std::size_t lineFeed = m_strBuffer.find(L'\n', searched);
  while (lineFeed == std::wstring::npos) {
    if (HeldLength() > kLongestLine) m_strBuffer.resize(m_nStart + kLongestLine);
    const std::size_t held = HeldLength();
    if (!ReadChunk()) break;
    searched = m_nStart + held;
    lineFeed = m_strBuffer.find(L'\n', searched);
  }
  const std::wstring_view text = std::wstring_view(m_strBuffer).substr(m_nStart);
  const bool isLast = lineFeed == std::wstring::npos;
  const std::wstring_view found = isLast ? text : text.substr(0, lineFeed - m_nStart);
  line = found.substr(0, std::min(found.find(L'\r'), kLongestLine));
  const bool hasLine = !text.empty();
  if (isLast) {
    ClearHeld();
  } else {
    m_nStart = lineFeed + 1;
  }
  return hasLine;
}

bool CTextFile::WriteString(std::wstring_view text) {
  while (text.size() > kPieceLength) {
    const std::wstring_view piece = text.substr(0, kPieceLength - EndsInsidePair(text));
    WriteLines(piece, piece.back() != L'\n');
    text.remove_prefix(piece.size());
  }
  WriteLines(text, false);
  return !HasWriteFailed();
}

std::int64_t CTextFile::GetPosition() {
  const std::size_t bytesPerCharacter = IsUtf16(m_Encoding) ? 2 : 1;
  const auto held = static_cast<std::int64_t>(HeldLength() * bytesPerCharacter);
  return std::max<std::int64_t>(m_File.GetPosition() - held, 0);
}

bool CTextFile::SeekTo(std::int64_t position) {
  ClearHeld();
  return m_File.SeekTo(position);
}

bool CTextFile::Rewind() {
  Detect();
  return SeekTo(m_nBomSize);
}

void CTextFile::ClearHeld() {
  m_strBuffer.clear();
  m_nStart = 0;
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
  if (m_File.GetLength() == 0 || !m_File.SeekToBegin()) return;
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
      m_File.Seek(-1, platform::SeekFrom::Current);
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
  m_File.Read(bytes, m_File.BytesBefore(m_nEndMark, wanted), &count);
  if (count == 0) return false;
  m_strBuffer.erase(0, m_nStart);
  m_nStart = 0;
  std::string_view chunk(bytes, count);
  if (m_Encoding == kUtf8) {
    const std::size_t whole = WholeSequences(chunk);
    if (whole == 0) return false;
    const auto givenBack = static_cast<std::int64_t>(count - whole);
    if (givenBack > 0) m_File.Seek(-givenBack, platform::SeekFrom::Current);
    chunk = chunk.substr(0, whole);
  }
  AppendChunk(chunk);
  return true;
}

void CTextFile::AppendChunk(std::string_view chunk) {
  if (m_Encoding == kUtf8) return AppendDecodedUtf8(m_strBuffer, chunk);
  IsUtf16(m_Encoding) ? AppendUnits(chunk) : AppendAnsi(chunk);
}

void CTextFile::AppendAnsi(std::string_view chunk) {
  if (!m_bStripNulls) {
    return platform::AppendWide(m_strBuffer, chunk.substr(0, chunk.find('\0')));
  }
  std::string text(chunk);
  std::erase(text, '\0');
  platform::AppendWide(m_strBuffer, text);
}

// An odd byte at the end of the file is dropped.
void CTextFile::AppendUnits(std::string_view chunk) {
  for (std::size_t i = 0; i + 1 < chunk.size(); i += 2) {
    m_strBuffer.push_back(Utf16UnitAt(chunk.data() + i, m_Encoding == kUtf16BigEndian));
  }
}

// How much of a block ends with a whole sequence. A full block that ends inside of one, or with a
// sequence at all, gives back what stands after its last ASCII byte or from its last lead byte on.
std::size_t CTextFile::WholeSequences(std::string_view chunk) const {
  if (chunk.size() < kChunkBytes || IsAscii(chunk.back())) return chunk.size();
  for (std::size_t i = chunk.size() - 1; i > 0; --i) {
    const auto byte = static_cast<unsigned char>(chunk[i]);
    if (byte >= 0xC0 && byte <= 0xFD) return i;
    if (byte < 0x80) return i + 1;
  }
  return 0;
}

// bSplit: the text goes on after this piece, so its last line has no end yet.
void CTextFile::WriteLines(std::wstring_view piece, bool bSplit) {
  m_strWrite.clear();
  while (!piece.empty()) {
    const std::size_t lineFeed = std::min(piece.find(L'\n'), piece.size());
    const std::wstring_view line = piece.substr(0, lineFeed);
    piece.remove_prefix(std::min(lineFeed + 1, piece.size()));
    if (m_Encoding == kAnsi && line.empty()) continue;
    WriteEncoded(line);
    if (!piece.empty() || !bSplit) WriteEncoded(kLineEnd);
  }
  m_File.Write(m_strWrite.data(), m_strWrite.size());
}

void CTextFile::WriteEncoded(std::wstring_view text) {
  if (m_Encoding == kUtf8) return AppendUtf8(m_strWrite, text);
  if (m_Encoding == kAnsi) return platform::AppendNarrow(m_strWrite, text);
  AppendUtf16(m_strWrite, text, m_Encoding == kUtf16BigEndian);
}

}  // namespace zelconvert
