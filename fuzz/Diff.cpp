// Two files of any types in one input, and what they don't have in common: a file has all in common
// with itself, and the report has a row for each difference and nothing that would break one.
//
// The first two bytes give the types (an index of kTypes, as a digit), a byte 1E stands between the
// two files. Without it both are the same bytes.
#include <algorithm>
#include <array>

#include "FuzzFile.h"
#include "tools/DiffReport.h"
#include "tools/DiffSurveys.h"
#include "tools/NaturalOrder.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::tools {
namespace {

struct Type {
  FileType type;
  std::wstring_view extension;
};
constexpr auto kTypes = std::to_array<Type>({
    {FT_DC, L".dc"},
    {FT_RAW, L".raw"},
    {FT_JOB, L".job"},
    {FT_OLD_JOB, L".job"},
    {FT_CR5, L".cr5"},
    {FT_SDR33, L".sdr"},
    {FT_SDR2, L".sdr"},
    {FT_ILJ, L".ilj"},
});

std::optional<Survey> Read(std::wstring_view name, char which, std::string_view bytes) {
  const Type& type = kTypes[static_cast<unsigned char>(which) % kTypes.size()];
  StringList messages;
  const std::wstring file = std::wstring(name).append(type.extension);
  return ReadSurvey(MemoryFiles::Write(file, bytes), type.type, messages,
                    {.makeFolder = [] { return MemoryFiles::Path({}); }});
}

bool IsInOrder(const SurveyDifference& a, const SurveyDifference& b) {
  return a.subject < b.subject ||
         (a.subject == b.subject && std::is_lteq(CompareNaturally(a.name, b.name)));
}

void CheckReport(const SurveyDiff& diff, const DiffOptions& options) {
  const auto& all = diff.differences;
  for (std::size_t i = 1; i < all.size(); ++i) Require(IsInOrder(all[i - 1], all[i]));
  std::size_t total = 0;
  for (const SubjectCounts& counts : diff.counts) {
    for (const std::size_t count : counts.changes) total += count;
    Require(counts.changes[static_cast<std::size_t>(Change::OnlyFirst)] <= counts.first);
    Require(counts.changes[static_cast<std::size_t>(Change::OnlySecond)] <= counts.second);
  }
  Require(total == all.size());
  const std::wstring text = FormatDiff(diff, options);
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), L'\n'));
  Require(lines == (all.empty() ? 0 : all.size() + 1));  // the last one is the summary
  Require(std::none_of(text.begin(), text.end(), [](wchar_t c) { return c < L' ' && c != L'\n'; }));
}

SurveyDiff Diff(const Survey& a, const Survey& b, const DiffOptions& options) {
  SurveyDiff diff = DiffSurveys(a, b, options);
  CheckReport(diff, options);
  return diff;
}

void Compare(const Survey& a, const Survey& b) {
  for (const double tolerance : {0.001, 0.0}) {
    const DiffOptions options = {.planTolerance = tolerance, .heightTolerance = tolerance};
    Require(Diff(a, a, options).IsEqual() && Diff(b, b, options).IsEqual());
    Require(Diff(a, b, options).IsEqual() == Diff(b, a, options).IsEqual());
  }
  // As a conversion is verified.
  Diff(a, b,
       {.angleTolerance = 1e-6,
        .kinds = kAllKinds,
        .compareReduced = false,
        .isFirstPartial = true,
        .mayCodesGrow = true});
}

}  // namespace
}  // namespace zelconvert::tools

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert::tools;
  if (size < 2) return 0;
  const std::string_view types = zelconvert::ToBytes(data, 2);
  const std::string_view bytes(types.data() + 2, size - 2);
  const std::size_t end = bytes.find('\x1E');
  const auto a = Read(L"a", types[0], bytes.substr(0, end));
  const auto b = Read(L"b", types[1], end == bytes.npos ? bytes : bytes.substr(end + 1));
  if (a && b) Compare(*a, *b);
  return 0;
}
