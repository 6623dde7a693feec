// Every kind of record that a page of docs/formats tells of has its row in the table, and no other.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "TempDir.h"
#include "tools/RecordCounts.h"
#include "tools/RecordKinds.h"

namespace zelconvert::tools {
namespace {

using Tags = std::set<std::string>;

/// What the group of a pattern finds on a page, with ", " between several.
void AddTags(const char* page, const char* pattern, Tags& tags) {
  const std::string text = ReadBytes(std::string("docs/formats/") + page);
  ASSERT_FALSE(text.empty()) << page;
  const std::regex row(pattern), tag("[A-Z0-9-]+");
  for (std::sregex_iterator at(text.begin(), text.end(), row), end; at != end; ++at) {
    const std::string list = (*at)[1];
    for (std::sregex_iterator each(list.begin(), list.end(), tag); each != end; ++each) {
      tags.insert(each->str());
    }
  }
}

TEST(RecordKinds, AreThoseOfTheirPages) {
  struct Case {
    FileType type;
    std::vector<std::pair<const char*, const char*>> pages;  // with a pattern each
    Tags others;                                             // that stand in sentences
  };
  const Case kCases[] = {
      {FT_RAW, {{"raw.md", R"(\n\| ([A-Z]{2}(?:, [A-Z]{2})*) \| )"}}, {"--"}},
      {FT_DC,
       {{"dc.md", R"(\n### ([0-9A-Z]{2}) )"}, {"roads.md", R"(\n\| ([0-9A-Z][0-9]) \| )"}},
       {}},
      {FT_JOB, {{"job.md", R"(\n\| ([0-9]+) \| (?:[0-9]+|any) \| )"}}, {"header", "system"}},
      {FT_ILJ, {{"ilj.md", R"(\n\| [0-9]+ \| ([A-Z]{5}) \| )"}}, {}},
      {FT_SDR33, {{"sdr.md", R"(\n\| ([0-9]{2})[A-Z][A-Z0-9] \| )"}}, {"00", "04"}},
  };
  for (const auto& [type, pages, others] : kCases) {
    Tags expected = others, tags;
    for (const auto& [page, pattern] : pages) AddTags(page, pattern, expected);
    for (const RecordKind& kind : GetRecordKinds(type)) {
      EXPECT_TRUE(tags.emplace(kind.tag).second) << kind.tag;
    }
    EXPECT_EQ(tags, expected);
  }
}

TEST(RecordCounter, CountsWhatIsKnownByItsTag) {
  Survey survey;
  survey.type = FT_DC1000;
  RecordCounter counter(survey);
  for (const wchar_t* tag : {L"69", L"d9", L"69", L"zz", L"D9", L"", L"\u00e9\u00e9"}) {
    counter.Count(tag);
  }
  const std::vector<RecordCount>& counts = survey.counts;
  ASSERT_EQ(counts.size(), 3u);
  EXPECT_EQ(counts[0].name, L"positions in the grid");
  EXPECT_EQ(counts[0].count, 2u);
  EXPECT_EQ(counts[1].tag, L"D9");
  EXPECT_EQ(counts[1].count, 2u);
  EXPECT_EQ(counts[2].tag, L"?");
  EXPECT_EQ(counts[2].count, 3u);
}

}  // namespace
}  // namespace zelconvert::tools
