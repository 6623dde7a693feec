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

/// False if the run failed and so took its files away; where it broke off they stay.
bool KeepsFiles(const std::wstring& input, const std::wstring& output) {
  CDcFile file;
  Require(file.OpenForRead(input));
  StringList messages;
  std::vector<ROAD_HEADER> roads;
  try {
    return ConvertDcRoads(file, messages, roads, output);
  } catch (const ConversionFailure&) {  // a header line that is too short
    return true;
  }
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

  if (!KeepsFiles(input, ToText(out))) Require(CountIn(out) == 0);
  Require(FuzzDir().Read(L"in.dc") == before);
  Require(CountIn(FuzzDir().Folder()) == 2);
  return 0;
}
