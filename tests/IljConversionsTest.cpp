// Between ILJ and DC as a whole: what a DC file can hold comes back to the decimals that both
// print, and files that are damaged do no harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"
#include "io/CivilTime.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using F = IljFieldType;
using R = IljRecordType;

// Records with every field at random, the same in every run.
class Records {
 public:
  explicit Records(unsigned seed) : m_engine(seed) {}

  const std::vector<std::wstring>& Lines() const { return m_lines; }

  void AddJobMode(std::int32_t distance, std::int32_t angle) {
    auto record = Start<R::JOBMO>();
    record.Set<F::UNDI>(distance);
    record.Set<F::UNAN>(angle);
    record.Set<F::DESC>(std::wstring_view(L"1.0.0"));
    Add(record);
  }

  void AddPoint(std::int32_t coordinates) {
    auto record = Start<R::POINT>();
    record.Set<F::DERV>(std::wstring_view(L"KI"));
    record.Set<F::PTNM>(Name(16));
    record.Set<F::DESC>(Name(16));
    record.Set<F::CDTY>(coordinates);
    record.Set<F::CDOR>(Whole(1, 10));
    record.Set<F::CDCL>(Whole(1, 10));
    if (coordinates == ilj::kGridCoordinates) {
      record.Set<F::NRTH>(Length());
      record.Set<F::EAST>(Length());
      if (Whole(0, 3) != 0) record.Set<F::ELEV>(Length());
    } else {
      record.Set<F::LATI>(Real(-1.6, 1.6));
      record.Set<F::LONG>(Real(-3.2, 3.2));
      record.Set<F::HGHT>(Length());
    }
    Add(record);
  }

  template <R Type>
  void AddNote() {
    auto record = Start<Type>();
    record.template Set<F::NOTE>(Name(56) + L" \u00fc\u20ac:");
    Add(record);
  }

  void AddDatum(std::int32_t type) {
    auto record = Start<R::PRJDT>();
    record.Set<F::PJDT>(type);
    if (type == ilj::kDatumGridFile) {
      record.Set<F::PJDN>(Name(32));
    } else {
      record.Set<F::HDST>(Real(6.3e6, 6.4e6));
      record.Set<F::NUMR>(Real(290, 300));
    }
    if (type == ilj::kDatumShifts || type == ilj::kDatumSevenParameters) {
      record.Set<F::TRAX>(Length());
      record.Set<F::TRAY>(Length());
      record.Set<F::TRAZ>(Length());
    }
    if (type == ilj::kDatumSevenParameters) {
      record.Set<F::ROTX>(Real(-1e-3, 1e-3));
      record.Set<F::ROTY>(Real(-1e-3, 1e-3));
      record.Set<F::ROTZ>(Real(-1e-3, 1e-3));
      record.Set<F::SCPP>(Real(0.9999, 1.0001));
    }
    Add(record);
  }

  void AddPlane(std::int32_t type) {
    auto record = Start<R::PRJMP>();
    record.Set<F::MPTY>(type);
    record.Set<F::LATI>(Real(-1.6, 1.6));
    record.Set<F::LONG>(Real(-3.2, 3.2));
    if (Whole(0, 1) != 0) record.Set<F::HGHT>(Length());
    record.Set<F::NRTH>(Length());
    record.Set<F::EAST>(Length());
    if (Whole(0, 1) != 0) record.Set<F::ELEV>(Length());
    record.Set<F::SCAL>(Real(0.9, 1.1));
    record.Set<F::LAT1>(Real(-1.6, 1.6));
    if (!ilj::HasSkewAxis(type)) record.Set<F::LAT2>(Real(-1.6, 1.6));
    if (type == 2056 || type == 2063 || type == 2064 || type == 2069) {
      record.Set<F::PJCT>(Whole(0, 1));
      record.Set<F::PJAF>(Whole(0, 1));
      record.Set<F::NUMB>(Whole(0, 1));
      record.Set<F::PJAE>(Whole(0, 3));
      record.Set<F::FIL1>(Name(32));
      record.Set<F::FIL2>(Name(32));
    }
    Add(record);
  }

  void AddAdjustments() {
    auto horizontal = Start<R::PRJHA>();
    horizontal.Set<F::NRTH>(Length());
    horizontal.Set<F::EAST>(Length());
    horizontal.Set<F::TRAY>(Length());
    horizontal.Set<F::TRAX>(Length());
    horizontal.Set<F::ROTZ>(Real(-1, 1));
    horizontal.Set<F::SCAL>(Real(0.9, 1.1));
    Add(horizontal);
    auto vertical = Start<R::PRJVA>();
    vertical.Set<F::PJVA>(Whole(0, 1) != 0 ? ilj::kVerticalPlane : ilj::kVerticalPlaneAndGeoid);
    vertical.Set<F::NRTH>(Length());
    vertical.Set<F::EAST>(Length());
    vertical.Set<F::TRAZ>(Length());
    vertical.Set<F::TINO>(Real(-1, 1));
    vertical.Set<F::TIEA>(Real(-1, 1));
    vertical.Set<F::PJRE>(Name(32));
    Add(vertical);
    auto site = Start<R::PRJST>();
    site.Set<F::LATI>(Real(-1.6, 1.6));
    site.Set<F::LONG>(Real(-3.2, 3.2));
    site.Set<F::HGHT>(Length());
    site.Set<F::SCAL>(Real(0.9, 1.1));
    site.Set<F::TRAY>(Length());
    site.Set<F::TRAX>(Length());
    Add(site);
  }

  void AddNamesAndSettings() {
    auto names = Start<R::PRJCS>();
    names.Set<F::PJCO>(Whole(1, 4));
    names.Set<F::PJZG>(Name(32));
    names.Set<F::PJRE>(Name(32));
    names.Set<F::PJDN>(Name(32));
    Add(names);
    auto settings = Start<R::PRJCG>();
    settings.Set<F::PJAZ>(Whole(1, 2));
    settings.Set<F::PJGO>(Whole(1, 4));
    Add(settings);
  }

 private:
  template <R Type>
  IljRecord<Type> Start() {
    IljRecord<Type> record;
    record.SetDateTime(CivilSeconds(2026, 9, 17, 9, 0, 1));
    return record;
  }
  void Add(const CMoskoJobRecord& record) {
    EXPECT_TRUE(record.IsValid()) << static_cast<int>(record.GetRecordType());
    m_lines.push_back(record.ToText());
  }
  double Real(double low, double high) {
    return low + (high - low) * static_cast<double>(m_engine()) / 4294967295.0;
  }
  double Length() { return Real(-9e6, 9e6); }
  std::int32_t Whole(std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(m_engine() % static_cast<unsigned>(high - low + 1));
  }
  std::wstring Name(int maxLength) {
    static constexpr std::wstring_view kLetters =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    std::wstring name = L"N";
    for (int i = Whole(1, maxLength); i > 1; --i) name += kLetters[m_engine() % kLetters.size()];
    return name;
  }

  std::mt19937 m_engine;
  std::vector<std::wstring> m_lines;
};

std::vector<std::wstring> ConvertThereAndBack(const std::vector<std::wstring>& lines) {
  const TempDir folder;
  const std::wstring ilj = folder.Path(L"in.ilj");
  CTextFile text(CTextFile::kUtf8);
  EXPECT_TRUE(text.Open(ilj, platform::kCreateOutput, CTextFile::kUtf8, true));
  for (const std::wstring& line : lines) text.WriteString(line);
  text.Close();
  const std::wstring dc = folder.Path(L"there.dc"), again = folder.Path(L"back.ilj");
  HostLists there, back;
  EXPECT_TRUE(cZelFileConvert(FT_ILJ, ilj.c_str(), FT_DC, dc.c_str(), &there.files, &there.messages,
                              0, nullptr));
  EXPECT_TRUE(cZelFileConvert(FT_DC, dc.c_str(), FT_ILJ, again.c_str(), &back.files, &back.messages,
                              0, nullptr));
  EXPECT_TRUE(there.Messages().empty() && back.Messages().empty());
  std::vector<std::wstring> result;
  EXPECT_TRUE(text.Open(again, platform::kOpenText));
  for (std::wstring line; text.ReadString(line);) result.push_back(line);
  return result;
}

// What two printed values of a field may differ by. A DC file has 9 decimals of a degree or gon,
// 10 of the rotation of an adjustment.
double Tolerance(F type) {
  const int decimals = IljLayoutOf(type).decimals;
  return decimals > 10 ? 2e-11 : 1.1 * std::pow(10, -decimals);
}

std::vector<std::wstring_view> Fields(std::wstring_view line) {
  std::vector<std::wstring_view> fields;
  while (!line.empty()) {
    fields.push_back(line.substr(0, line.find(L'\t')));
    line.remove_prefix(std::min(line.size(), fields.back().size() + 1));
  }
  return fields;
}

void ExpectSame(std::wstring_view line, std::wstring_view again) {
  SCOPED_TRACE(testing::Message() << std::wstring(line) << L"\n" << std::wstring(again));
  const auto fields = Fields(line), others = Fields(again);
  ASSERT_EQ(fields.size(), others.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto type = static_cast<F>(kIljFieldMap.GetType(fields[i].substr(0, kIljTagLength)));
    if (type == F::DATE || type == F::TIME) continue;  // the moment of the second conversion
    if (IljLayoutOf(type).accepts == nullptr) {
      EXPECT_EQ(TrimRight(fields[i]), TrimRight(others[i]));
    } else {
      EXPECT_EQ(fields[i].substr(0, 5), others[i].substr(0, 5));
      EXPECT_NEAR(ToReal(fields[i].substr(5)), ToReal(others[i].substr(5)), Tolerance(type));
    }
  }
}

TEST(IljConversionsTest, KeepWhatDcFilesHold) {
  for (std::int32_t distance = 0; distance <= 2; ++distance) {
    for (std::int32_t angle = 0; angle <= 1; ++angle) {
      Records records(static_cast<unsigned>(10 * distance + angle));
      records.AddJobMode(distance, angle);
      records.AddNamesAndSettings();
      for (int i = 0; i < 50; ++i) {
        for (const std::int32_t kind :
             {ilj::kGpsCoordinates, ilj::kLocalCoordinates, ilj::kGridCoordinates}) {
          records.AddPoint(kind);
        }
        records.AddNote<R::UNOTE>();
        records.AddNote<R::SNOTE>();
        for (const std::int32_t datum : {513, 515, 516, 517}) records.AddDatum(datum);
        records.AddAdjustments();
      }
      for (std::int32_t plane = 2049; plane <= 2069; ++plane) {
        if (plane != 2061 && plane != 2067) records.AddPlane(plane);
      }
      const std::vector<std::wstring>& lines = records.Lines();
      const std::vector<std::wstring> again = ConvertThereAndBack(lines);
      ASSERT_EQ(lines.size(), again.size());
      for (std::size_t i = 0; i < lines.size(); ++i) ExpectSame(lines[i], again[i]);
    }
  }
}

void ConvertDamaged(const TempDir& folder, FileType from, FileType to, std::string_view bytes) {
  const std::wstring input = folder.Write(L"in", bytes), output = folder.Path(L"out");
  HostLists lists;
  const bool converted = cZelFileConvert(from, input.c_str(), to, output.c_str(), &lists.files,
                                         &lists.messages, 0, nullptr) != 0;
  EXPECT_EQ(folder.Exists(L"out"), converted);
  EXPECT_TRUE(converted || lists.messages != nullptr);
  EXPECT_EQ(folder.Read(L"in"), bytes);
  std::filesystem::remove(folder.Folder() / "out");
}

// Truncations and bytes changed, seven apart, so that every column has its turn.
TEST(IljConversionsTest, SurviveDamage) {
  struct Example {
    FileType from, to;
    const char* path;
  };
  const TempDir folder;
  for (const auto& [from, to, path] : {Example{FT_ILJ, FT_DC, "examples/grenze.ilj"},
                                       Example{FT_DC, FT_ILJ, "examples/ridge-control.dc"}}) {
    std::string bytes = ReadBytes(path);
    ASSERT_FALSE(bytes.empty());
    for (std::size_t i = 0; i < bytes.size(); i += 7) {
      SCOPED_TRACE(i);
      ConvertDamaged(folder, from, to, std::string_view(bytes).substr(0, i));
      const char byte = bytes[i];
      bytes[i] = static_cast<char>(byte ^ (i % 2 == 0 ? 0x80 : 0x0D));
      ConvertDamaged(folder, from, to, bytes);
      bytes[i] = byte;
    }
  }
}

}  // namespace
}  // namespace zelconvert
