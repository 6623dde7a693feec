// What goes wrong around a conversion: its text, the input as it was, no output left.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "HostLists.h"
#include "RouteTable.h"
#include "TempDir.h"
#include "Unprivileged.h"
#include "front/DriverRun.h"
#include "io/CFileCE.h"
#include "io/Clock.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

// A conversion of a route in a folder of its own.
class HostCall {
 public:
  explicit HostCall(const Route& route)
      : m_route(route), m_example(ReadBytes(fs::path("examples") / route.example)) {
    input = folder.Write(route.input, m_example);
    output = folder.Path(L"out.x");
  }

  void Convert() {
    HostLists lists;
    converted = lists.Convert(m_route.from, input, m_route.to, output, 0, job);
    files = lists.Files();
    messages = lists.Messages();
  }

  // Refused with this text about `path` alone, the example as it was and nothing beside it.
  void ExpectRefusal(const wchar_t* text, const std::wstring& path) {
    Convert();
    EXPECT_FALSE(converted);
    EXPECT_TRUE(files.empty());
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.back(), FormatText(text, path));
    EXPECT_FALSE(fs::exists(fs::symlink_status(folder.Folder() / "out.x")));
    if (fs::is_regular_file(InputPath())) {
      EXPECT_EQ(folder.Read(m_route.input), m_example);
    }
  }

  // Puts in the input's place what no conversion of its type takes.
  void Damage() {
    const bool isJob = m_route.from == FT_JOB || m_route.from == FT_PW_JOB;
    m_example = isJob ? m_example.substr(0, 4700) : "00NM\r\nOC\r\nSP,PNX,N 1,E 1,EL1\r\n";
    folder.Write(m_route.input, m_example);
  }

  fs::path InputPath() const { return folder.Folder() / m_route.input; }
  fs::path OutputPath() const { return folder.Folder() / "out.x"; }

  const TempDir folder;
  std::wstring input, output, job;
  bool converted = false;
  std::vector<std::wstring> files, messages;

 private:
  const Route m_route;
  std::string m_example;
};

bool IsReadOnly(const fs::path& path) {
  return (fs::status(path).permissions() & fs::perms::owner_write) == fs::perms::none;
}

struct Failure {
  const char* name;
  std::function<void(HostCall&, const Route&)> check;
};

constexpr const wchar_t* kCannotCreate = L"Unable to create the destination file %s\n";

const Failure kFailures[] = {
    {"no file as input",
     [](HostCall& run, const Route& route) {
       const bool isLog = route.from == FT_RAW || route.from == FT_RW5 || route.from == FT_PW_RAW;
       const auto* missing = isLog ? L"File %s does not exist." : L"The file %s does not exist.";
       fs::remove(run.InputPath());
       run.ExpectRefusal(missing, run.input);
       fs::create_directory(run.InputPath());
       run.ExpectRefusal(missing, run.input);
     }},
    {"output in a missing folder, a directory, and the input",
     [](HostCall& run, const Route&) {
       for (const std::wstring& path :
            {run.folder.Path(L"missing/out.x"), run.folder.Path(L""), run.input}) {
         run.output = path;
         run.ExpectRefusal(kCannotCreate, path);
       }
     }},
    {"output is a link to the input",
     [](HostCall& run, const Route&) {
       fs::create_hard_link(run.InputPath(), run.OutputPath());
       run.Convert();
       EXPECT_FALSE(run.converted);
       EXPECT_TRUE(fs::equivalent(run.InputPath(), run.OutputPath()));
       fs::remove(run.OutputPath());
       run.output = run.folder.Path(L"linked.x");
       std::error_code unsupported;
       fs::create_symlink(run.InputPath(), run.InputPath().parent_path() / "linked.x", unsupported);
       if (!unsupported) run.ExpectRefusal(kCannotCreate, run.output);
     }},
    {"read-only input",
     [](HostCall& run, const Route&) {
       fs::permissions(run.InputPath(), fs::perms::owner_read | fs::perms::group_read);
       const fs::perms before = fs::status(run.InputPath()).permissions();
       run.Convert();
       EXPECT_EQ(fs::status(run.InputPath()).permissions(), before);
       fs::remove(run.OutputPath());
       run.output = run.folder.Path(L"missing/out.x");
       run.ExpectRefusal(kCannotCreate, run.output);
       EXPECT_EQ(fs::status(run.InputPath()).permissions(), before);
     }},
    {"read-only input that is refused",
     [](HostCall& run, const Route&) {
       run.Damage();
       fs::permissions(run.InputPath(), fs::perms::owner_read);
       run.Convert();
       EXPECT_FALSE(run.converted || fs::exists(run.OutputPath()));
       EXPECT_TRUE(IsReadOnly(run.InputPath()));
     }},
#if !defined(_WIN32)
    {"no output",
     [](HostCall& run, const Route& route) {
       const ScopedClock clock({}, 77);
       const Unprivileged nobody;
       const bool toJob = route.to == FT_JOB || route.to == FT_OLD_JOB;
       run.output.clear();
       run.ExpectRefusal(kCannotCreate, toJob ? L"/temp77" : L"");
     }},
    {"neither output nor input",  // as root the file of a job is made there for a moment
     [](HostCall& run, const Route&) {
       const ScopedClock clock({}, 77);
       fs::remove(run.InputPath());
       run.output.clear();
       run.Convert();
       std::error_code nothing;
       EXPECT_FALSE(run.converted || fs::remove("/temp77", nothing));
     }},
    {"input that may not be written",
     [](HostCall& run, const Route&) {
       fs::permissions(run.InputPath(), fs::perms(0444));
       fs::permissions(run.InputPath().parent_path(), fs::perms::all);
       const Unprivileged nobody;
       run.Convert();
       EXPECT_TRUE(run.converted && fs::exists(run.OutputPath()));
       EXPECT_TRUE(IsReadOnly(run.InputPath()));
     }},
    {"full disk",
     [](HostCall& run, const Route&) {
       run.Convert();
       std::vector<std::wstring> texts = run.messages;
       texts.push_back(FormatText(L"Unable to write the file %s.", run.output));
       for (const char* made : {"out.x", "RIDGE_RO.RD5", "RURAL_2L.tp5"}) {
         fs::remove(run.OutputPath().parent_path() / made);
       }
       fs::create_symlink("/dev/full", run.OutputPath());
       run.ExpectRefusal(L"Unable to write the file %s.", run.output);
       EXPECT_EQ(run.messages, texts);
       EXPECT_TRUE(fs::exists("/dev/full"));
       EXPECT_FALSE(run.folder.Exists(L"RIDGE_RO.RD5") || run.folder.Exists(L"RURAL_2L.tp5"));
     }},
#endif
};

class Drivers : public testing::TestWithParam<Route> {};

TEST_P(Drivers, FailWell) {
  for (const Failure& failure : kFailures) {
    SCOPED_TRACE(failure.name);
    HostCall run(GetParam());
    failure.check(run, GetParam());
  }
}

// Truncations and bytes changed, at an odd distance, so that every column has its turn.
TEST_P(Drivers, SurviveDamage) {
  HostCall run(GetParam());
  const std::string whole = ReadBytes(run.InputPath());
  for (std::size_t i = 0; i < whole.size(); i += whole.size() / 150 | 1) {
    SCOPED_TRACE(i);
    std::string changed = whole;
    changed[i] = static_cast<char>(changed[i] ^ (i % 2 == 0 ? 0x80 : 0x0D));
    for (const std::string& bytes : {whole.substr(0, i), changed}) {
      run.folder.Write(GetParam().input, bytes);
      run.Convert();
      EXPECT_EQ(ReadBytes(run.InputPath()), bytes);
      fs::remove(run.InputPath());
      EXPECT_EQ(fs::is_empty(run.folder.Folder()), !run.converted);  // no file of a road either
      for (const auto& made : fs::directory_iterator(run.folder.Folder())) fs::remove(made);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Routes, Drivers, testing::ValuesIn(kRoutes),
                         RouteName<testing::TestParamInfo<Route>>);

// The brand of a job goes by its exact extension.
TEST(Drivers, RefuseAJobOfTheOtherBrand) {
  HostCall run({FT_JOB, L"in.JOB", "control.job", FT_CR5});
  run.ExpectRefusal(L"Unable to open the file %s.", run.input);
}

TEST(Drivers, TakeTheBrandOfALogFromItsExactExtension) {
  for (const auto& [input, brand] : {std::pair{L"in.raw", "product=\"Gridlark\""},
                                     {L"in.rw5", "product=\"Gridlark\""},
                                     {L"in.RAW", "product=\"Plumbwick\""},
                                     {L"in.RW5", "product=\"Plumbwick\""}}) {
    HostCall run({FT_RAW, input, "mill-creek-simple.raw", FT_JXL});
    run.Convert();
    EXPECT_NE(ReadBytes(run.OutputPath()).find(brand), std::string::npos) << brand;
  }
}

TEST(Drivers, ListNoRoadFiles) {
  HostCall run({FT_DC, L"in.dc", "ridge-road.dc", FT_JOB});
  run.Convert();
  EXPECT_TRUE(run.folder.Exists(L"RIDGE_RO.RD5"));
  EXPECT_EQ(run.files, std::vector<std::wstring>{run.output});
}

TEST(Drivers, FindTheLogOfAPair) {
  const struct {
    FileType type;
    const wchar_t* input;
    const wchar_t* log;
  } cases[] = {
      {FT_JOB_RAW, L"in.job", L"in.raw"},    {FT_JOB_RAW, L"in.JOB", L"in.pwr"},
      {FT_PW_JOB_RAW, L"in.pwj", L"in.pwr"}, {FT_CR5_RW5, L"in.cr5", L"in.rw5"},
      {FT_CR5_RW5, L"in.job", L"in.rw5"},
  };
  for (const auto& [type, input, log] : cases) {
    SCOPED_TRACE(ToPath(input).string());
    HostCall run({type, input, "control.job", FT_DC});
    run.ExpectRefusal(L"File %s does not exist.", run.folder.Path(log));
    run.output = run.input;
    run.ExpectRefusal(L"File %s does not exist.", run.folder.Path(log));
    EXPECT_TRUE(run.folder.Exists(input));
    // Neither file of the pair is an output.
    run.folder.Write(log, ReadBytes("examples/mill-creek-simple.raw"));
    for (const wchar_t* name : {input, log}) {
      HostCall again({type, input, "control.job", FT_DC});
      again.folder.Write(log, "a log");
      again.output = again.folder.Path(name);
      again.ExpectRefusal(kCannotCreate, again.output);
      EXPECT_TRUE(again.folder.Exists(log));
    }
  }
}

TEST(Drivers, KeepTheJobOfALog) {
  for (const FileType type : {FT_RAW, FT_CR5_RW5}) {
    HostCall run({type, L"in.raw", "mill-creek-simple.raw", FT_DC});
    run.folder.Write(L"in.rw5", "a log");
    run.folder.Write(L"other.job", "a job");
    run.job = run.output = run.folder.Path(L"other.job");
    run.ExpectRefusal(kCannotCreate, run.output);
    EXPECT_TRUE(run.folder.Exists(L"other.job"));
  }
}

// Some drivers delete what they didn't make; what is protected stays.
TEST(Drivers, KeepAProtectedFileThatIsInTheWay) {
  for (const FileType type : {FT_JOB_RAW, FT_CR5_RW5}) {
    for (const bool isProtected : {true, false}) {
      HostCall run({type, L"in.job", "control.job", FT_DC});
      run.folder.Write(L"out.x", "precious");
      if (isProtected) fs::permissions(run.OutputPath(), fs::perms::owner_read);
      run.Convert();
      EXPECT_FALSE(run.converted);
      EXPECT_EQ(fs::exists(run.OutputPath()), isProtected);
    }
  }
}

// On these routes the input isn't open when the output is made.
TEST(Drivers, KeepAnInputThatIsNotOpen) {
  for (const Route& route : {Route{FT_DC, L"in.dc", "ridge-control.dc", FT_CR5},
                             Route{FT_DC, L"in.dc", "ridge-control.dc", FT_SEQ_CR5},
                             Route{FT_CR5, L"in.cr5", "boundary.job", FT_JOB}}) {
    HostCall run(route);
    run.output = run.input;
    run.Convert();
    EXPECT_FALSE(run.converted);
    EXPECT_EQ(ReadBytes(run.InputPath()), ReadBytes(fs::path("examples") / route.example));
  }
}

TEST(Drivers, TakeNoPathForAnEmptyOne) {
  HostLists lists;
  EXPECT_FALSE(cZelFileConvert(FT_RAW, nullptr, FT_DC, nullptr, nullptr, nullptr, 0, nullptr));
  EXPECT_FALSE(cZelFileConvert(FT_JOB, L"", FT_DC, L"", nullptr, &lists.messages, 0, L""));
  EXPECT_EQ(lists.Messages(), std::vector<std::wstring>{L"The file  does not exist."});
}

// What the steps of a run do is up to a driver; here they are told.
TEST(DriverRun, EndsEveryWayWithItsFilesClosed) {
  constexpr FileState kIntact = FileState::Intact, kReadFailed = FileState::ReadFailed,
                      kWriteFailed = FileState::WriteFailed;
  const auto succeed = [] { return true; };
  const auto fail = []() -> bool { throw ConversionFailure(); };
  struct {
    const char* name;
    std::function<bool()> convert;
    FileState output;
    bool cannotConvert = false, cannotWrite = false;  // the texts
  } const cases[] = {
      {"success", succeed, kIntact},
      {"refusal", [] { return false; }, kIntact},
      {"exception", fail, kIntact, true},
      {"no memory", []() -> bool { throw std::bad_alloc(); }, kIntact, true},
      {"lost data", succeed, kWriteFailed, false, true},
      {"broken drive", succeed, kReadFailed, true},
      {"broken drive, told otherwise", [] { return false; }, kReadFailed, true},
      {"broken drive, told already", fail, kReadFailed, true},
      {"both", fail, kWriteFailed, true, true},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    const TempDir folder;
    const std::wstring input = folder.Write(L"in.x", "input"), output = folder.Path(L"out.x");
    fs::permissions(ToPath(input), fs::perms::owner_read);
    Report report;
    std::string closed;
    CFileCE file;
    const bool result =
        Execute({.input = input, .output = output}, report,
                {
                    .openInput = [&] { return !IsReadOnly(ToPath(input)); },
                    .createOutput = [&] { return file.Open(output, platform::kCreateOutput); },
                    .convert = each.convert,
                    .closing = {[&] { return closed += '1', each.output; }, Closer(file),
                                [&] { return closed += '2', kIntact; }},
                });
    StringList texts;
    if (each.cannotConvert) texts.push_back(FormatText(L"Unable to convert the file %s.", input));
    if (each.cannotWrite) texts.push_back(FormatText(L"Unable to write the file %s.", output));
    EXPECT_EQ(report.messages, texts);
    EXPECT_EQ(result, texts.empty() && each.convert());
    EXPECT_EQ(report.files, result ? StringList{output} : StringList{});
    EXPECT_EQ(folder.Exists(L"out.x"), result);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(closed, "12");
    EXPECT_TRUE(IsReadOnly(ToPath(input)));
  }
}

}  // namespace
}  // namespace zelconvert
