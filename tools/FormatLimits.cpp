#include "tools/FormatLimits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>

#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert::tools {
namespace {

constexpr std::size_t kAnyLength = std::numeric_limits<std::size_t>::max();

constexpr Digits kWhole = {};
constexpr KindSet kKindsOfSdr = {Kind::Points, Kind::Setups, Kind::Shots, Kind::Notes};
// Of a road the place where it starts.
constexpr KindSet kKindsOfJob = {Kind::Points, Kind::Roads, Kind::System};
constexpr KindSet kKindsOfIlj = {Kind::Points, Kind::Geodetic, Kind::Deletions,
                                 Kind::Shots,  Kind::System,   Kind::Notes};

// kinds, names, characters of a name and of a code, 8 bits, length, height, angle, scale
constexpr FormatLimits kDcFile = {kAllKinds, NameForm::Text, 16,      16,     true,
                                  {5, 16},   {5, 16},        {9, 16}, {9, 16}};
constexpr FormatLimits kJobFile = {kKindsOfJob, NameForm::Word, 16,     16,    false,
                                   kWhole,      kWhole,         kWhole, kWhole};
constexpr FormatLimits kListFile = {{Kind::Points}, NameForm::Number, 7,      16,    true,
                                    kWhole,         kWhole,           kWhole, kWhole};
constexpr FormatLimits kLogFile = {kAllKinds.Without({Kind::Roads}),
                                   NameForm::Text,
                                   kAnyLength,
                                   kAnyLength,
                                   true,
                                   kWhole,
                                   kWhole,
                                   kWhole,
                                   kWhole};
constexpr FormatLimits kSdr33File = {kKindsOfSdr, NameForm::Text, 14,      16,     true,
                                     {5, 16},     {3, 16},        {5, 16}, {3, 16}};
constexpr FormatLimits kSdr2File = {kKindsOfSdr, NameForm::Number, 4,       16,     true,
                                    {3, 10},     {3, 10},          {5, 10}, {3, 10}};
constexpr FormatLimits kIljFile = {kKindsOfIlj, NameForm::Word, 16,      kAnyLength, false,
                                   {5, 16},     {5, 16},        {7, 16}, {9, 16}};
constexpr FormatLimits kDocument = {kKindsOfSdr, NameForm::Text, 16,      kAnyLength, false,
                                    {5, 16},     {3, 16},        {6, 16}, {9, 16}};

constexpr bool IsWordCharacter(wchar_t c) {
  return IsAsciiAlnum(c) || c == L'_';
}

std::wstring_view Cut(std::wstring_view text, std::size_t length, Kept kept) {
  return kept == Kept::Front ? Left(text, length) : Right(text, length);
}

bool AreSame(std::wstring_view whole, std::wstring_view eightBit) {
  constexpr wchar_t kFirstBeyondAscii = 0x80;
  return std::equal(
      whole.begin(), whole.end(), eightBit.begin(), eightBit.end(),
      [](wchar_t a, wchar_t b) { return a == b || (b == L'?' && a >= kFirstBeyondAscii); });
}

// `rest`: what a format of these limits may have left of `whole`.
bool IsLeftOf(std::wstring_view whole, std::wstring_view rest, const FormatLimits& limits) {
  const auto same = [&limits](std::wstring_view a, std::wstring_view b) {
    return a == b || (limits.isEightBit && AreSame(a, b));
  };
  return same(whole, rest) ||
         (whole.size() > limits.codeLength && (same(Trim(Left(whole, limits.codeLength)), rest) ||
                                               same(Trim(Right(whole, limits.codeLength)), rest)));
}

}  // namespace

std::wstring_view NameOf(Kind kind) {
  static constexpr auto kNames = std::to_array<std::wstring_view>(
      {L"points", L"geodetic positions", L"deleted points", L"setups", L"shots", L"vectors",
       L"roads", L"coordinate system", L"notes"});
  static_assert(std::size(kNames) == static_cast<std::size_t>(Kind::Count));
  return kNames[static_cast<std::size_t>(kind)];
}

double Digits::Step(double value) const {
  if (width == 0) return 0;
  const double size = std::abs(value);
  int left = decimals;
  // A column that the whole digits, the sign and the point leave too little of.
  int whole = value < 0 ? 2 : 1;
  for (double limit = 10; limit <= size && whole < width; limit *= 10) ++whole;
  left = std::clamp(width - whole - 1, 0, left);
  return std::pow(10.0, -left);
}

const FormatLimits& LimitsOf(FileType type) {
  switch (type) {
    case FT_JOB:
    case FT_OLD_JOB:
    case FT_PW_JOB:
      return kJobFile;
    case FT_CR5:
    case FT_SEQ_CR5:
      return kListFile;
    case FT_RAW:
    case FT_RW5:
    case FT_PW_RAW:
    case FT_JOB_RAW:
    case FT_PW_JOB_RAW:
    case FT_CR5_RW5:
      return kLogFile;
    case FT_SDR33:
      return kSdr33File;
    case FT_SDR2:
      return kSdr2File;
    case FT_ILJ:
      return kIljFile;
    case FT_JXL:
      return kDocument;
    default:
      return kDcFile;
  }
}

NameKey::NameKey(const FormatLimits& first, const FormatLimits& second, Kept kept)
    : m_form(std::max(first.nameForm, second.nameForm)),
      m_length(std::min(first.nameLength, second.nameLength)),
      m_kept(kept) {}

std::wstring_view NameKey::Of(std::wstring_view name, std::wstring& storage) const {
  name = Trim(name);
  if (m_form == NameForm::Number) {
    while (name.size() > 1 && name.front() == L'0') name.remove_prefix(1);
    if (name.empty()) return L"0";
  }
  name = Trim(Cut(name, m_length, m_kept));
  if (m_form != NameForm::Word || std::all_of(name.begin(), name.end(), IsWordCharacter))
    return name;
  storage = name;
  std::replace_if(
      storage.begin(), storage.end(), [](wchar_t c) { return !IsWordCharacter(c); }, L'_');
  return storage;
}

bool AreSameText(std::wstring_view first, const FormatLimits& firstLimits, std::wstring_view second,
                 const FormatLimits& secondLimits) {
  first = Trim(first);
  second = Trim(second);
  return IsLeftOf(first, second, secondLimits) || IsLeftOf(second, first, firstLimits);
}

}  // namespace zelconvert::tools
