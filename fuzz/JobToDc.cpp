// Any file as a job of either brand, converted to every dialect.

#include <string>
#include <tuple>

#include "FuzzFile.h"
#include "dc/CConvDcFile.h"

namespace zelconvert {
namespace {

// Takes every block for a feature.
class AnyFeature : public CFeatureCodeData {
 public:
  bool Decode(std::span<const std::byte> block, FEATURE_SET& features) const override {
    features.code.assign(block.size() % 100, L'f');
    features.attributes.push_back(
        {kAttributeNumber, L"size", {}, {}, static_cast<double>(block.size()), 0});
    return true;
  }
};

void Convert(const std::wstring& path, bool bBrand, int version) {
  CJobFile job(bBrand);
  if (!job.Open(path, false)) return;
  CDcFile file;
  Require(file.OpenForWrite(MemoryFiles::Path(L"out.dc")));
  Report report;
  CConvDcFile conversion(&file, &job, version);
  if (version == 3) conversion.SetFeatureData(std::make_unique<AnyFeature>());
  std::ignore = conversion.ConvertFromNative(report);
  Require(report.files.empty() && !file.HasWriteFailed() && file.Close());
}

// Whatever the job held, the file begins as every DC file does.
void RequireHeader() {
  CDcFile file;
  Require(file.OpenForRead(MemoryFiles::Path(L"out.dc")));
  tDC_HEADERRecord header;
  DcLine line;
  if (!file.ReadLine(line)) return;
  CDcFile::Read(line, header);
  Require(header.coordinateOrder == 1);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.job", data, size, [](const std::wstring& input) {
    for (int version = 0; version < 4; ++version) {
      Convert(input, true, version);
      Convert(input, false, version);
    }
    if (MemoryFiles::Exists(L"out.dc")) RequireHeader();
  });
}
