// Any bytes as a DC file through the road conversion: what the run says it made is there, and a
// failed run leaves nothing.
#include "FuzzFile.h"
#include "dc/CDcFile.h"
#include "roads/ConvertDcRoads.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& input) {
  CDcFile file;
  Require(file.OpenForRead(input));
  Report report;
  RoadHeaders roads;
  try {
    const bool converted = ConvertDcRoads(file, report, roads, MemoryFiles::Path({}));
    Require(converted || report.beside.GetCount() == 0);
  } catch (const ConversionFailure&) {  // a header line that is too short
  }
  Require(MemoryFiles::Names().size() == 1 + report.beside.GetCount());
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return zelconvert::RunOnFile(L"in.dc", data, size, zelconvert::Convert);
}
