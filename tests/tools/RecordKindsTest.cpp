// The kinds of records by their names: those of the pages in docs/formats.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "TempDir.h"
#include "io/Strings.h"
#include "tools/RecordCounts.h"

namespace zelconvert::tools {
namespace {

std::string Narrow(std::wstring_view text) {
  return ToNarrow(text);
}

/// Every tag once, and each with a piece of text of the page.
void ExpectOnPage(RecordFormat format, const char* page, std::string (*piece)(const RecordKind&)) {
  const std::string text = ReadBytes(std::string("docs/formats/") + page);
  ASSERT_FALSE(text.empty()) << page;
  std::set<std::wstring_view> tags;
  for (const RecordKind& kind : RecordKindsOf(format)) {
    EXPECT_TRUE(tags.insert(kind.tag).second) << Narrow(kind.tag);
    EXPECT_NE(text.find(piece(kind)), std::string::npos) << page << ": " << piece(kind);
  }
}

TEST(RecordKinds, StandOnTheirPages) {
  const auto words = [](const RecordKind& kind) { return Narrow(kind.name); };
  ExpectOnPage(RecordFormat::Raw, "raw.md",
               [](const RecordKind& kind) { return Narrow(kind.tag); });
  ExpectOnPage(RecordFormat::Sdr, "sdr.md",
               [](const RecordKind& kind) { return Narrow(kind.tag); });
  ExpectOnPage(RecordFormat::Ilj, "ilj.md", words);
  ExpectOnPage(RecordFormat::Job, "job.md", words);
}

// DC records stand under headings, those of roads in a table.
TEST(RecordKinds, OfDcFilesStandOnTheirPages) {
  const std::string page = ReadBytes("docs/formats/dc.md"),
                    roads = ReadBytes("docs/formats/roads.md");
  std::set<std::string> known;
  for (const RecordKind& kind : RecordKindsOf(RecordFormat::Dc)) {
    const std::string tag = Narrow(kind.tag), name = Narrow(kind.name);
    EXPECT_TRUE(known.insert(tag).second) << tag;
    EXPECT_TRUE(page.find("### " + tag + " " + name + ", `") != page.npos ||
                roads.find("| " + tag + " | " + name + " |") != roads.npos ||
                name == "known, not used")
        << tag << " " << name;
  }
  for (std::size_t at = page.find("\n### "); at != page.npos; at = page.find("\n### ", at + 1)) {
    EXPECT_TRUE(known.contains(page.substr(at + 5, 2))) << page.substr(at + 5, 20);
  }
}

TEST(RecordCounter, CountsWhatIsKnownByItsTag) {
  std::vector<RecordCount> counts;
  RecordCounter counter(RecordFormat::Dc, counts);
  for (const wchar_t* tag : {L"69", L"d9", L"69", L"zz", L"D9", L"", L"\u00e9\u00e9"}) {
    counter.Count(tag);
  }
  ASSERT_EQ(counts.size(), 3u);
  EXPECT_EQ(counts[0].count, 2u);
  EXPECT_EQ(counts[1].tag, L"D9");
  EXPECT_EQ(counts[1].count, 2u);
  EXPECT_EQ(counts[2].tag, L"?");
  EXPECT_EQ(counts[2].count, 3u);
}

}  // namespace
}  // namespace zelconvert::tools
