// Every record of an SDR file on any line, in both layouts: written once it may come out otherwise,
// but written again it stays. (A number that is never cut may push what follows it out of its
// column.)

#include <algorithm>
#include <iterator>
#include <optional>

#include "FuzzFile.h"
#include "io/CFileCE.h"
#include "raw/sdr/SdrLines.h"

namespace zelconvert {
namespace {

template <class Record>
std::optional<std::wstring> Rewrite(std::wstring_view line, const SdrLayout& layout) {
  SdrLines lines(layout);
  if (!lines.Make(ReadSdr<Record>(line, layout))) return std::nullopt;
  return ToWide(lines.Line());
}

template <class Record>
bool HasFixedColumns() {
  return std::none_of(std::begin(Record::kColumns), std::end(Record::kColumns),
                      [](const auto& column) { return column.form == SdrForm::Whole; });
}

template <class Record>
void RequireStable(std::wstring_view line, const SdrLayout& layout) {
  const auto once = Rewrite<Record>(line, layout);
  if (!once) return;
  const auto twice = Rewrite<Record>(*once, layout);
  Require(!twice || !HasFixedColumns<Record>() || Rewrite<Record>(*twice, layout) == twice);
}

template <class... Records>
void ReadAs(std::wstring_view line) {
  for (const SdrLayout* layout : {&kSdr33, &kSdr2}) (RequireStable<Records>(line, *layout), ...);
}

void ReadLine(std::wstring_view line) {
  Require(GetSdrRecordCode(line) < 14 && GetSdrDerivation(line) < 29);
  ReadAs<SdrInstrument, SdrStation, SdrTargetHeight, SdrAtmosphere, SdrScale, SdrBacksight,
         SdrCoordinates, SdrObservation, SdrJob, SdrNote>(line);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.sdr", data, size, [](const std::wstring& input) {
    CFileCE file;
    Require(file.Open(input, platform::kOpenReadWrite));
    for (std::wstring line; file.ReadLine(line);) ReadLine(line);
  });
}
