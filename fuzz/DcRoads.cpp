// Any bytes as a DC file through the road conversion. Whatever they say, the input stays as it is,
// nothing is made outside the output folder, and a failed run leaves nothing in it.
#include <iterator>

#include "FuzzFile.h"
#include "dc/CDcFile.h"
#include "roads/ConvertDcRoads.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

std::ptrdiff_t CountIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), {});
}

/// The number of files that the run says it made and didn't take away.
std::ptrdiff_t Convert(const std::wstring& input, const std::wstring& output) {
  CDcFile file;
  Require(file.OpenForRead(input));
  Report report;
  std::vector<ROAD_HEADER> roads;
  try {
    const bool converted = ConvertDcRoads(file, report, roads, output);
    Require(converted || report.beside.empty());
  } catch (const ConversionFailure&) {  // a header line that is too short
  }
  return std::ssize(report.beside);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const fs::path out = FuzzDir().Folder() / "out";
  fs::remove_all(out);
  fs::create_directory(out);
  const std::wstring input = StoreInput(L"in.dc", data, size);
  const std::string before = FuzzDir().Read(L"in.dc");

  Require(Convert(input, ToText(out)) == CountIn(out));
  Require(FuzzDir().Read(L"in.dc") == before);
  Require(CountIn(FuzzDir().Folder()) == 2);
  return 0;
}
