// Walks tests/golden/<from>-to-<to>/<case>/ and runs each case through cZelFileConvert, at a fixed
// time. In the folder of a case:
//
//   in.*          copied into a folder of its own; "in" with the extension of <from> is the input,
//                 others with that stem (the raw log beside a job) just stand there
//   out.*         the expected output, byte for byte; none: the conversion refuses
//   messages.txt  the expected texts, one a line, paths without their folder; absent: none
//   args.txt      "units 1", "gps-security 0": arguments other than 0 and 1; "job NAME": the last
//                 argument, a path in the folder
//   notes.txt     where the expectation comes from
//
// Every other file is a further output of that name. What isn't expected must not be made, and the
// inputs must stay as they were.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "FilesIn.h"
#include "HostLists.h"
#include "TempDir.h"
#include "cli/FileTypes.h"
#include "io/Clock.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

const fs::path kGolden = "tests/golden";
constexpr platform::LocalTime kTime{2026, 3, 5, 13, 14, 15, 16, 789};  // a Friday
constexpr std::uint32_t kTicks = 123456;

struct Case {
  fs::path folder;
  FileType from, to;
};

// Names in the output of the tests, and of the cases.
void PrintTo(const Case& each, std::ostream* out) {
  *out << each.folder.generic_string();
}

std::vector<fs::path> FoldersIn(const fs::path& folder) {
  std::vector<fs::path> folders;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.is_directory()) folders.push_back(entry.path());
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

std::vector<Case> FindCases() {
  std::vector<Case> cases;
  for (const fs::path& pair : FoldersIn(kGolden)) {
    const std::string name = pair.filename().string();
    const std::size_t middle = name.find("-to-");
    const auto* from = cli::FindType(name.substr(0, middle));
    const auto* to = middle == name.npos ? nullptr : cli::FindType(name.substr(middle + 4));
    if (from == nullptr || to == nullptr) {
      ADD_FAILURE() << name << " names no pair of types";
      continue;
    }
    for (const fs::path& folder : FoldersIn(pair)) cases.push_back({folder, from->type, to->type});
  }
  return cases;
}

std::string CaseName(const testing::TestParamInfo<Case>& info) {
  std::string name = info.param.folder.parent_path().filename().string() + "_" +
                     info.param.folder.filename().string();
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
  return name;
}

bool IsInput(const std::string& name) {
  return name.starts_with("in.");
}
bool IsOutput(const std::string& name) {
  return name.starts_with("out.");
}
bool IsRemark(const std::string& name) {
  return name == "messages.txt" || name == "args.txt" || name == "notes.txt";
}

std::string Extension(FileType type) {
  wchar_t wide[8] = {};
  EXPECT_TRUE(cZelGetExtension(type, wide));
  const std::wstring text = wide;
  return std::string(text.begin(), text.end());
}

bool EqualButForCase(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return std::tolower(x) == std::tolower(y); });
}

// The file of the case with this stem and extension in whatever case, or the name it would have.
std::string FindName(const Files& files, const std::string& stem, FileType type) {
  const std::string name = stem + Extension(type);
  for (const auto& [each, contents] : files) {
    if (EqualButForCase(each, name)) return each;
  }
  return name;
}

struct Arguments {
  int units = 0;
  unsigned gpsSecurity = 2;  // on, as anything but 0 is
  std::string job;
};

Arguments ParseArguments(const std::string& text) {
  Arguments arguments;
  std::istringstream stream(text);
  std::string key;
  while (stream >> key) {
    if (key == "units") {
      stream >> arguments.units;
    } else if (key == "gps-security") {
      stream >> arguments.gpsSecurity;
    } else if (key == "job") {
      stream >> arguments.job;
    } else {
      ADD_FAILURE() << "args.txt: " << key;
    }
  }
  return arguments;
}

std::string ToUtf8(const std::wstring& text) {
  const auto utf8 = ToPath(text).u8string();
  return std::string(utf8.begin(), utf8.end());
}

std::string WithoutFolder(std::string text, const std::string& folder) {
  for (std::size_t at = text.find(folder); at != text.npos; at = text.find(folder, at)) {
    text.erase(at, folder.size());
  }
  return text;
}

std::string JoinMessages(const std::vector<std::wstring>& messages, const TempDir& folder) {
  std::string text;
  for (const std::wstring& message : messages) {
    text += WithoutFolder(ToUtf8(message), ToUtf8(folder.Path(L""))) + "\n";
  }
  return text;
}

std::string Quoted(std::string_view text) {
  return testing::PrintToString(std::string(text));
}

// The line of `text` that holds `at`, without its end.
std::string_view LineAt(std::string_view text, std::size_t at) {
  const std::size_t before = at == 0 ? text.npos : text.rfind('\n', at - 1);
  const std::size_t start = before == text.npos ? 0 : before + 1;
  return text.substr(start, text.find('\n', start) - start);
}

testing::AssertionResult SameBytes(const std::string& expected, const std::string& made) {
  if (expected == made) return testing::AssertionSuccess();
  const auto [e, m] = std::mismatch(expected.begin(), expected.end(), made.begin(), made.end());
  const auto at = static_cast<std::size_t>(e - expected.begin());
  const std::string_view same = std::string_view(expected).substr(0, at);
  const auto line = std::count(same.begin(), same.end(), '\n') + 1;
  const std::size_t column = at - (same.find('\n') == same.npos ? 0 : same.rfind('\n') + 1);
  auto failure = testing::AssertionFailure();
  failure << "unlike from byte " << at << " of " << expected.size() << " expected, " << made.size()
          << " made: line " << line << ", column " << column << " counted from 0\n";
  const auto byte = [](const std::string& text, std::string::const_iterator place) {
    return place == text.end() ? std::string("the end") : Quoted({&*place, 1});
  };
  if (expected.find('\0') != expected.npos) {
    return failure << "expected " << byte(expected, e) << ", made " << byte(made, m);
  }
  return failure << "expected: " << Quoted(LineAt(expected, at))
                 << "\n    made: " << Quoted(LineAt(made, at));
}

class Golden : public testing::TestWithParam<Case> {};

TEST_P(Golden, Converts) {
  const Case& each = GetParam();
  const Files given = FilesIn(each.folder);
  const TempDir temp;
  Files expected;  // in the folder, after the run
  for (const auto& [name, contents] : given) {
    if (IsInput(name)) WriteBytes(temp.Folder() / name, contents);
    if (!IsRemark(name)) expected[name] = contents;
  }
  const auto text = [&](const char* name) { return given.contains(name) ? given.at(name) : ""; };
  const Arguments arguments = ParseArguments(text("args.txt"));
  const std::wstring input = ToText(temp.Folder() / FindName(given, "in", each.from));
  const std::wstring output = ToText(temp.Folder() / FindName(given, "out", each.to));

  HostLists lists;
  cZelSetGpsSecurityInDcConversions(static_cast<unsigned char>(arguments.gpsSecurity));
  bool converted = false;
  {
    const ScopedClock clock(kTime, kTicks);
    const std::wstring job = arguments.job.empty() ? L"" : ToText(temp.Folder() / arguments.job);
    converted = lists.Convert(each.from, input, each.to, output, arguments.units, job);
  }

  EXPECT_EQ(converted, std::any_of(given.begin(), given.end(),
                                   [](const auto& file) { return IsOutput(file.first); }));
  EXPECT_TRUE(SameBytes(text("messages.txt"), JoinMessages(lists.Messages(), temp)))
      << "in the messages";
  const Files made = FilesIn(temp.Folder());
  for (const auto& [name, contents] : expected) {
    SCOPED_TRACE(name);
    if (!made.contains(name)) {
      ADD_FAILURE() << "not made";
    } else {
      EXPECT_TRUE(SameBytes(contents, made.at(name)));
    }
  }
  for (const auto& [name, contents] : made) EXPECT_TRUE(expected.contains(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(FindCases()), CaseName);

TEST(GoldenFolder, HoldsCases) {
  EXPECT_FALSE(FindCases().empty());
}

}  // namespace
}  // namespace zelconvert
