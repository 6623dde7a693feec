// Files of the system: sharing, attributes, names.
#include <gtest/gtest.h>

#include "TempDir.h"
#include "Unprivileged.h"
#include "platform/Platform.h"

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

namespace zelconvert::platform {
namespace {

TEST(File, DeniesWritersByAnyName) {
  const TempDir dir;
  const std::wstring path = dir.Write(L"in.job", "content");
  const std::wstring link = dir.Path(L"link.job");
  std::filesystem::create_hard_link(ToPath(path), ToPath(link));
  std::wstring roundabout = dir.Path(L"") + L".\\in.job";
  struct Case {
    std::uint32_t first, second;
    bool opens;
  };
  for (const auto& [first, second, opens] :
       {Case{kOpenReadOnly, kOpenReadOnly, true}, Case{kOpenReadOnly, kOpenReadWrite, false},
        Case{kOpenReadOnly, kCreateOutput, false}, Case{kOpenReadWrite, kOpenReadOnly, false},
        Case{kOpenReadWrite, kCreateOutput, false}, Case{kOpenReadWrite, kOpenShared, true},
        Case{kOpenShared, kOpenReadWrite, true}, Case{kOpenShared, kOpenReadOnly, true}}) {
    for (const std::wstring& name : {path, link, roundabout}) {
      SCOPED_TRACE(testing::Message() << first << " " << second << " " << name);
      File held, other;
      ASSERT_TRUE(held.Open(path, first));
      EXPECT_EQ(other.Open(name, second), opens);
      EXPECT_TRUE(held.Close());
      EXPECT_EQ(dir.Read(L"in.job"), "content");
    }
  }
  File again;
  EXPECT_TRUE(again.Open(link, kOpenReadWrite));
}

TEST(File, ReadsWhatMayNotBeWritten) {
  const TempDir dir;
  const std::wstring path = dir.Write(L"in.job", "content");
  std::filesystem::permissions(ToPath(path), std::filesystem::perms(0444));
  std::filesystem::permissions(dir.Folder(), std::filesystem::perms::all);
  const Unprivileged nobody;
  for (const std::uint32_t access : {kOpenReadWrite, kOpenText}) {
    File file, other;
    char byte = 0;
    ASSERT_TRUE(file.Open(path, access));
    EXPECT_TRUE(file.Read(&byte, 1) == 1u && byte == 'c');
#if !defined(_WIN32)  // Wine lets the superuser write whatever the attribute says
    EXPECT_FALSE(file.Write("x", 1));
#endif
    EXPECT_FALSE(other.Open(path, kCreateOutput));
  }
}

TEST(File, RefusesWhatIsNoFile) {
  const TempDir dir;
  File file;
  for (const std::uint32_t access : {kOpenReadOnly, kOpenReadWrite, kCreateOutput}) {
    EXPECT_FALSE(file.Open(ToText(dir.Folder()), access));
    EXPECT_FALSE(file.Open(L"", access));
    EXPECT_FALSE(file.Open(dir.Path(L"missing") + L"/a.job", access));
    EXPECT_FALSE(file.Open(dir.Path(L"a") + std::wstring(L"\0b", 2), access));
  }
  EXPECT_FALSE(file.Open(dir.Path(L"missing"), kOpenReadWrite));
  EXPECT_TRUE(std::filesystem::is_empty(dir.Folder()));
}

TEST(File, IsDeletedWhileOpen) {
  const TempDir dir;
  const std::wstring path = dir.Path(L"out.dc");
  File file;
  ASSERT_TRUE(file.Open(path, kCreateOutput));
  EXPECT_TRUE(file.Write("abc", 3));
  EXPECT_TRUE(RemoveFile(path));
  EXPECT_TRUE(file.Close());
  EXPECT_FALSE(dir.Exists(L"out.dc"));
  EXPECT_FALSE(RemoveFile(path));
  EXPECT_FALSE(RemoveFile(ToText(dir.Folder())));
#if !defined(_WIN32)
  ASSERT_EQ(mkfifo((dir.Folder() / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(RemoveFile(dir.Path(L"pipe")));
  EXPECT_FALSE(file.Open(dir.Path(L"pipe"), kOpenReadWrite));
#endif
}

TEST(File, ReadsWritesAndSeeks) {
  const TempDir dir;
  const std::wstring path = dir.Write(L"a", "0123456789");
  File file;
  ASSERT_TRUE(file.Open(path, kOpenReadWrite));
  EXPECT_FALSE(file.Open(path, kOpenReadOnly));
  char bytes[20];
  EXPECT_EQ(file.Seek(-3, SeekFrom::End), 7);
  EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 3u);
  EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 0u);
  EXPECT_EQ(file.Seek(-1, SeekFrom::Begin), std::nullopt);
  EXPECT_EQ(file.Seek(0x1'0000'0005, SeekFrom::Begin), 0x1'0000'0005);
  EXPECT_EQ(file.Length(), 10);
  EXPECT_EQ(file.Seek(2, SeekFrom::Begin), 2);
  EXPECT_TRUE(file.Write("xy", 2));
  EXPECT_EQ(file.Seek(0, SeekFrom::Current), 4);
  EXPECT_TRUE(file.Close());
  EXPECT_FALSE(file.Read(bytes, 1));
  EXPECT_TRUE(file.Open(path, kCreateOutput | kAccessNoTruncate) && file.Close());
  EXPECT_EQ(dir.Read(L"a"), "01xy456789");
}

TEST(File, TakesAnyPath) {
  const TempDir dir;
  // Windows makes and removes so long a path in its unlimited form only.
  const std::wstring unlimited = sizeof(wchar_t) == 2 ? L"\\\\?\\" : L"";
  const std::wstring segment(60, L'f');
  std::wstring longFolder = dir.Path(L"");
  for (int i = 0; i < 6; ++i) longFolder += segment + platform::kPathSeparator;
  std::filesystem::create_directories(ToPath(unlimited + longFolder));
  std::filesystem::create_directory(dir.Folder() / "sub");
  for (const std::wstring& path :
       {dir.Path(L"") + L"sub\\m\u00fchle \u20ac \u4e2d.job", dir.Path(L"") + L"sub/other.job",
        longFolder + L"long.job", longFolder + L"../" + segment + L"/dots.job"}) {
    SCOPED_TRACE(testing::Message() << path);
    File file;
    EXPECT_TRUE(file.Open(path, kCreateOutput));
    EXPECT_TRUE(file.Close());
    ASSERT_TRUE(GetAttributes(path).has_value());
    EXPECT_FALSE(GetAttributes(path)->isDirectory);
    EXPECT_TRUE(RemoveFile(path));
  }
  for (int i = 0; i < 6; ++i) {
    std::filesystem::remove(ToPath(unlimited + longFolder));
    longFolder.resize(longFolder.size() - segment.size() - 1);
  }
}

TEST(File, PutsAttributesBackAsFound) {
  const TempDir dir;
  const std::wstring path = dir.Write(L"in.job", "x");
  const auto permissions = [&] { return std::filesystem::status(ToPath(path)).permissions(); };
  using std::filesystem::perms;
  const perms ofGroup = kPathSeparator == L'/' ? perms::group_write : perms::none;  // not ours
  std::filesystem::permissions(ToPath(path), perms::owner_read | ofGroup);
  const auto before = permissions();
  const auto found = GetAttributes(path);
  ASSERT_TRUE(found && found->isReadOnly && !found->isDirectory);
  EXPECT_TRUE(ClearReadOnly(path, *found));
  EXPECT_FALSE(GetAttributes(path)->isReadOnly);
  if (kPathSeparator == L'/') {
    EXPECT_EQ(permissions(), before | std::filesystem::perms::owner_write);
  }
  EXPECT_TRUE(RestoreAttributes(path, *found));
  EXPECT_TRUE(GetAttributes(path)->isReadOnly);
  EXPECT_EQ(permissions(), before);
  EXPECT_FALSE(GetAttributes(dir.Path(L"missing")));
  EXPECT_TRUE(ClearReadOnly(path, *found));
}

}  // namespace
}  // namespace zelconvert::platform
