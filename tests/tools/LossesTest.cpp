// The table of what routes carry against what conversions do: an input without its records of all
// kinds that are dropped is converted as well, and what comes out is the same; without those of a
// kind that is carried it is another in one input at least. The inputs are all stored ones of a
// type; those of tests/losses, which come first, hold every kind. What is carried but comes out as
// something else is shown case by case.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "FilesIn.h"
#include "ReadFile.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "front/Routes.h"
#include "io/Clock.h"
#include "io/Strings.h"
#include "tools/DiffSurveys.h"
#include "tools/RecordKinds.h"

namespace zelconvert::tools {
namespace {

namespace fs = std::filesystem;

struct TestedRoute {
  FileType from;
  FileType to;
  const char* name;
  const char* extension;
};

std::vector<std::string> ReadInputs(const std::string& extension) {
  std::vector<std::string> inputs;
  std::set<std::string> known;
  for (const char* folder : {"tests/losses", "tests/golden", "fuzz/corpus", "examples"}) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.path().extension() != extension) continue;
      std::string bytes = ReadBytes(entry.path());
      if (known.insert(bytes).second) inputs.push_back(std::move(bytes));
    }
  }
  return inputs;
}

// All files that come of an input; none if it isn't converted.
std::optional<Files> Convert(const TestedRoute& route, const std::string& bytes) {
  static const TempDir temp;                      // empty between two calls
  const std::string extension = route.extension;  // tells the brand of a job
  const std::wstring input =
      temp.Write(L"in" + std::wstring(extension.begin(), extension.end()), bytes);
  const bool isBridged = kDcTypes.Contains(route.from) && kCr5Types.Contains(route.to);
  const std::wstring made = temp.Path(L"out.job"),
                     job = isBridged ? temp.Path(L"between.job") : made;
  Report report;
  const int to = isBridged ? FT_JOB : static_cast<int>(route.to);
  bool converted = RunConversion({route.from, input, to, job}, report);
  if (isBridged) {
    converted = converted && RunConversion({FT_JOB, job, route.to, made}, report);
    fs::remove(ToPath(job));
  }
  fs::remove(ToPath(input));
  const Files files = FilesIn(temp.Folder());
  for (const auto& file : files) fs::remove(temp.Folder() / file.first);
  return converted ? std::optional(files) : std::nullopt;
}

// Of a text: the lines that don't begin with the key. Empty if there is none that does.
std::string WithoutLines(const std::string& text, std::string_view key) {
  std::string rest;
  bool isFound = false;
  for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
    end = std::min(text.find('\n', at), text.size() - 1) + 1;
    const std::string_view line = std::string_view(text).substr(at, end - at);
    if (line.starts_with(key)) {
      isFound = true;
    } else {
      rest += line;
    }
  }
  return isFound ? rest : "";
}

std::uint32_t Number(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i-- > 0;) number = number << 8 | static_cast<std::uint8_t>(bytes[at + i]);
  return number;
}

// Of a job of version 5. Its header has the scale and the unit at 62, the block of its system
// stands in front of its records.
std::string WithoutRecords(const std::string& job, std::string_view key) {
  constexpr std::size_t kScale = 62, kUnit = 70, kBlock = 600, kRecords = 4618, kHead = 8;
  if (job.size() < kRecords || job[28] != 5) return {};
  std::string rest = job;
  if (key == "header") {
    rest[kUnit] = static_cast<char>(rest[kUnit] == 0);
    return rest.replace(kScale, 8, std::string("\0\0\0\0\0\0\0\x40", 8));
  }
  if (key == "system") return rest.replace(kBlock, kRecords - kBlock, kRecords - kBlock, '\0');
  rest.resize(kRecords);
  for (std::size_t at = kRecords; at + kHead <= job.size();) {
    const std::size_t end = std::min(job.size() - at, kHead + Number(job, at + 4)) + at;
    if (std::to_string(Number(job, at)) != key) rest.append(job, at, end - at);
    at = end;
  }
  return rest.size() == job.size() ? "" : rest;
}

std::string Without(FileType type, const std::string& input, std::string_view tag) {
  return kJobTypes.Contains(type) ? WithoutRecords(input, tag) : WithoutLines(input, tag);
}

bool Differ(FileType type, const char* extension, const std::string& bytes, std::string_view tag,
            KindSet kinds) {
  const std::string rest = Without(type, bytes, tag);
  if (rest.empty()) return false;
  const TempDir folder;
  StringList messages;
  const std::wstring name = L"in" + ToWide(extension);
  const auto whole = ReadFile(folder.Write(name, bytes), type, messages);
  if (!whole) return false;
  const auto less = ReadFile(folder.Write(name, rest), type, messages);
  return less && !DiffSurveys(*whole, *less, {.kinds = kinds}).IsEqual();
}

// Of a job. No record, but what the next one is found by: in a damaged job that is another without.
constexpr std::string_view kUnusedSlot = "0";

class LossesTest : public testing::TestWithParam<TestedRoute> {};

TEST_P(LossesTest, TableIsTrue) {
  const TestedRoute& route = GetParam();
  const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 123456);
  std::set<std::string_view> seen, carried;
  for (const std::string& input : ReadInputs(route.extension)) {
    std::set<std::string_view> dropped, open;
    std::string rest = input;
    for (const RecordKind& kind : GetRecordKinds(route.from)) {
      if (carried.contains(kind.tag) || kind.tag == kUnusedSlot) continue;
      if (Without(route.from, input, kind.tag).empty()) continue;
      const bool isCarried = kind.carriedTo.Contains(route.to);
      (isCarried ? open : dropped).insert(kind.tag);
      const std::string shorter = isCarried ? "" : Without(route.from, rest, kind.tag);
      if (!shorter.empty()) rest = shorter;
    }
    if (dropped.empty() && open.empty()) continue;
    const auto whole = Convert(route, input);
    if (!whole) continue;
    seen.insert(dropped.begin(), dropped.end());
    if (Convert(route, rest) != whole) open.insert(dropped.begin(), dropped.end());
    for (const std::string_view tag : open) {
      if (Convert(route, Without(route.from, input, tag)) != whole) carried.insert(tag);
    }
  }
  for (const RecordKind& kind : GetRecordKinds(route.from)) {
    if (kind.tag == kUnusedSlot) continue;
    const bool isCarried = kind.carriedTo.Contains(route.to);
    EXPECT_TRUE(isCarried || seen.contains(kind.tag)) << kind.tag << " stands in no input";
    EXPECT_EQ(isCarried, carried.contains(kind.tag)) << kind.tag;
  }
}

// What a verification takes to arrive because these records do: without them a survey lacks it.
TEST(RecordKinds, GiveWhatTheySay) {
  for (const auto& formOfInput :
       {std::pair{FT_RAW, ".raw"}, {FT_DC, ".dc"}, {FT_ILJ, ".ilj"}, {FT_JOB, ".job"}}) {
    const FileType type = formOfInput.first;
    const char* const extension = formOfInput.second;
    const std::vector<std::string> inputs = ReadInputs(extension);
    KindSet given;
    for (const RecordKind& kind : GetRecordKinds(type)) {
      given |= kind.gives;
      for (int i = 0; i < static_cast<int>(Kind::Count); ++i) {
        const Kind each = static_cast<Kind>(i);
        const bool isOfPoints = each == Kind::Geodetic || each == Kind::Deletions;
        const KindSet kinds = {each, isOfPoints ? Kind::Points : each};
        EXPECT_TRUE(!kind.gives.Has(each) ||
                    std::ranges::any_of(inputs,
                                        [&](const auto& input) {
                                          return Differ(type, extension, input, kind.tag, kinds);
                                        }))
            << extension << " " << kind.tag << " " << i;
      }
    }
    EXPECT_EQ(given, LimitsOf(type).kinds) << extension;
  }
}

constexpr TestedRoute kRoutes[] = {
    {FT_RAW, FT_DC, "RawToDc", ".raw"},       {FT_RAW, FT_DC1070, "RawToDc1070", ".raw"},
    {FT_RAW, FT_SDR33, "RawToSdr33", ".raw"}, {FT_RAW, FT_SDR2, "RawToSdr2", ".raw"},
    {FT_RAW, FT_JXL, "RawToJxl", ".raw"},     {FT_DC, FT_JOB, "DcToJob", ".dc"},
    {FT_DC, FT_OLD_JOB, "DcToOldJob", ".dc"}, {FT_DC, FT_CR5, "DcToCr5", ".dc"},
    {FT_DC, FT_ILJ, "DcToIlj", ".dc"},        {FT_JOB, FT_DC, "JobToDc", ".job"},
    {FT_JOB, FT_CR5, "JobToCr5", ".job"},     {FT_ILJ, FT_DC1070, "IljToDc1070", ".ilj"},
};
INSTANTIATE_TEST_SUITE_P(Routes, LossesTest, testing::ValuesIn(kRoutes),
                         [](const auto& each) { return std::string(each.param.name); });

/// A case of tests/losses/changes.txt.
struct ShownChange {
  std::vector<cli::TypeInfo> steps;
  std::string text;
  std::string input;
  std::vector<std::string> present, absent;  // parts of the last output
};

std::vector<ShownChange> ReadChanges() {
  std::vector<ShownChange> changes;
  std::istringstream file(ReadBytes("tests/losses/changes.txt"));
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("= ")) {
      const std::size_t colon = line.find(": ");
      ShownChange& change = changes.emplace_back();
      change.text = line.substr(colon + 2);
      std::istringstream names(line.substr(2, colon - 2));
      for (std::string name; names >> name;) {
        const auto* type = cli::FindType(name);
        if (type == nullptr) throw std::invalid_argument(name);
        change.steps.push_back(*type);
      }
    } else if (line.starts_with("> ")) {
      changes.back().present.push_back(line.substr(2));
    } else if (line.starts_with("! ")) {
      changes.back().absent.push_back(line.substr(2));
    } else if (!line.empty() && line[0] != '#') {
      changes.back().input += line + "\r\n";
    }
  }
  return changes;
}

// The last output.
std::string ConvertShown(const ShownChange& change) {
  const TempDir temp;
  std::wstring input = temp.Write(L"in", change.input), output;
  for (std::size_t i = 1; i < change.steps.size(); ++i) {
    output = temp.Path(std::to_wstring(i) + L".job");  // tells the brand, where that counts
    Report report;
    EXPECT_TRUE(
        RunConversion({change.steps[i - 1].type, input, change.steps[i].type, output}, report));
    input = output;
  }
  return ReadBytes(ToPath(output));
}

TEST(RouteChangesTest, AreShown) {
  std::set<std::string_view> unshown;
  for (const cli::TypeInfo& from : cli::kTypes) {
    for (const RecordChange& change : GetRecordChanges(from.type)) unshown.insert(change.text);
  }
  for (const ShownChange& shown : ReadChanges()) {
    SCOPED_TRACE(shown.text);
    bool isTold = false;
    for (std::size_t i = 1; i < shown.steps.size(); ++i) {
      for (const RecordChange& change : GetRecordChanges(shown.steps[i - 1].type)) {
        isTold |= change.text == shown.text && change.outputs.Contains(shown.steps[i].type);
      }
    }
    EXPECT_TRUE(isTold);
    unshown.erase(shown.text);
    const std::string output = ConvertShown(shown);
    for (const std::string& part : shown.present) {
      EXPECT_TRUE(output.find(part) != output.npos) << part << "\nin\n" << output;
    }
    for (const std::string& part : shown.absent) {
      EXPECT_TRUE(output.find(part) == output.npos) << part << "\nin\n" << output;
    }
  }
  for (const std::string_view text : unshown) ADD_FAILURE() << text << " has no case";
}

}  // namespace
}  // namespace zelconvert::tools
