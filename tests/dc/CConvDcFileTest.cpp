// What job to DC does beside its golden cases: dialects, names, features, failed writes.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "TempDir.h"
#include "dc/CConvDcFile.h"
#include "io/BinaryFields.h"

namespace zelconvert {
namespace {

std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find("\r\n", start)) != bytes.npos; start = end + 2) {
    lines.push_back(bytes.substr(start, end - start));
  }
  return lines;
}

// A job with a point that has an attribute block, one that names another kind of record for it, one
// whose block says nothing, one of the old form, which names none, and two that name a place
// outside of the file's records.
std::wstring MakeJob(const TempDir& folder, const std::wstring& name, std::uint16_t version) {
  CJobFile job(true);
  EXPECT_TRUE(job.Create(folder.Path(name), version));
  JOB_GENERIC_RECORD block;
  block.kind = static_cast<std::uint32_t>(JobKind::Attributes);
  block.data = {std::byte{'d'}, std::byte{'a'}, std::byte{'t'}, std::byte{'a'}};
  block.length = 4;
  JOB_POINT point;
  point.elevation = 1;
  for (const auto& [each, kind, start] :
       {std::tuple{L"P1", block.kind, 'd'}, {L"P2", 12u, 'd'}, {L"P2a", block.kind, '?'}}) {
    point.name = each;
    block.kind = kind;
    block.data.front() = static_cast<std::byte>(start);
    point.attributeLink = static_cast<std::uint32_t>(job.GetFile().GetPosition());
    EXPECT_EQ(job.WriteGenericRecord(block), version >= kJobVersion);
    EXPECT_TRUE(job.WritePoint(point));
  }
  point.name = L"P3";
  block = {1, 92, std::vector<std::byte>(92)};
  const BinaryWriter writer(block.data);
  JOB_POINT::Walk(writer, point, JobRecordForm::Old);
  EXPECT_TRUE(version < kJobVersion ? job.WritePoint(point) : job.WriteGenericRecord(block));
  point.name = L"P4";
  for (const std::uint32_t outside : {0xFFFFFFFFu, 1u}) {
    point.attributeLink = outside;
    EXPECT_TRUE(job.WritePoint(point));
  }
  job.Close();
  return folder.Path(name);
}

// Knows one block and one feature with an attribute of every kind.
class OneFeature : public CFeatureCodeData {
 public:
  bool Decode(std::span<const std::byte> block, FEATURE_SET& features) const override {
    if (block[0] != std::byte{'d'}) return CFeatureCodeData::Decode(block, features);
    features.code = L"TREE";
    features.attributes = {{kAttributeText, L"Species", L"Oak", L"", 0, 0},
                           {0x8004, L"Date", L"passed over", L"", 0, 0},
                           {kAttributeNumber, L"Girth", L"", L"", 1.25, 0},
                           {kAttributeList, L"State", L"sound", L"", 0, 3},
                           {kAttributeList, L"Place", L"park", L"edge", 0, 12},
                           {kAttributesEnd, L"", L"", L"", 0, 0},
                           {kAttributeText, L"After the end", L"", L"", 0, 0}};
    return true;
  }
};

struct Outcome {
  bool done;
  std::string output;
};

Outcome Convert(const TempDir& folder, const std::wstring& path, int version,
                std::unique_ptr<CFeatureCodeData> features = nullptr, bool brand = true) {
  CJobFile job(brand);
  EXPECT_TRUE(job.Open(path, false));
  CDcFile file;
  EXPECT_TRUE(file.OpenForWrite(folder.Path(L"out.dc")));
  Report report;
  CConvDcFile conversion(&file, &job, version);
  if (features) conversion.SetFeatureData(std::move(features));
  const bool done = conversion.ConvertFromNative(report);
  EXPECT_TRUE(file.Close());
  EXPECT_TRUE(report.messages.empty() && report.files.empty());
  return {done, folder.Read(L"out.dc")};
}

// Those that routes write are golden cases.
TEST(JobToDc, Dialects) {
  TempDir folder;
  const std::wstring path = MakeJob(folder, L"job.job", kJobVersion);
  const std::vector<std::string> lines = Lines(Convert(folder, path, 0).output);
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_EQ(lines[0].substr(0, 14), "00NMFX V07-50 ");
  EXPECT_EQ(lines[2], "D4NM11                ");
  for (int version : {-1, 4}) {
    const Outcome run = Convert(folder, path, version);
    EXPECT_FALSE(run.done);
    EXPECT_EQ(run.output, "");
  }
}

TEST(JobToDc, NameOfTheJob) {
  TempDir folder;
  struct Case {
    const wchar_t* file;
    const char* name;
  };
  for (const auto& [file, name] :
       {Case{L"Field.JOB", "Field"}, Case{L"a.b.pwJ", "a.b"}, Case{L"field.dat", "field.dat"},
        Case{L"job", "job"}, Case{L"a name longer than 16.job", "a name longer th"}}) {
    const Outcome run = Convert(folder, MakeJob(folder, file, kJobVersion), 2);
    EXPECT_TRUE(run.done);
    EXPECT_EQ(
        Lines(run.output).at(1),
        std::string("10NM") + name + std::string(16 - std::string(name).size(), ' ') + "121111");
  }
}

TEST(JobToDc, FeaturesFollowTheirPoint) {
  TempDir folder;
  const auto pad = [](std::string text, std::size_t width) {
    return text.append(width - text.size(), ' ');
  };
  const Outcome run =
      Convert(folder, MakeJob(folder, L"job.job", kJobVersion), 2, std::make_unique<OneFeature>());
  EXPECT_TRUE(run.done);
  const std::vector<std::string> lines = Lines(run.output);
  ASSERT_EQ(lines.size(), 17u);
  EXPECT_EQ(lines[6].substr(0, 20), "69KI              P1");
  EXPECT_EQ(lines[7], pad("87FCTREE", 24));
  EXPECT_EQ(lines[8], pad("89FCSpecies?", 24) + pad("Oak", 100));
  EXPECT_EQ(lines[9], pad("88FCGirth?", 24) + "         1.25000");
  EXPECT_EQ(lines[10], pad("92FCState?", 24) + pad("sound", 20) + "003");
  EXPECT_EQ(lines[11], pad("92FCPlace?", 24) + pad("park/edge", 20) + "012");
  EXPECT_EQ(lines[12].substr(0, 20), "69KI              P2");
  EXPECT_EQ(lines[13].substr(0, 20), "69KI             P2a");
  EXPECT_EQ(lines[14].substr(0, 20), "69KI              P3");
  EXPECT_EQ(lines[16].substr(0, 20), "69KI              P4");
}

}  // namespace
}  // namespace zelconvert
