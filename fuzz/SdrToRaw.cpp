// Any file as SDR of either layout, converted to a raw log.

#include <algorithm>

#include "FuzzFile.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& path, SdrVersion version) {
  CFileCE sdr;
  CRawFile raw;
  Require(sdr.Open(path, platform::kOpenReadWrite));
  Require(raw.OpenForWrite(MemoryFiles::Path(L"out.raw")));
  Report report;
  CConvRawSDRFile conversion(&raw, &sdr);
  conversion.SetSdrVersion(version);
  const bool converted = conversion.ConvertToRaw(report);
  Require(raw.Close() && report.messages.size() == (converted ? 0u : 1u));
}

// Whatever the file held, the log is jobs, modes and comments that parse.
void RequireLog() {
  CRawFile raw;
  Require(raw.Open(MemoryFiles::Path(L"out.raw"), platform::kOpenReadWrite));
  std::string_view record;
  while (raw.ReadRecord(record)) {
    JB_RECORD job;
    MO_RECORD mode;
    const RawRecordType type = CRawFile::GetRecordType(record);
    Require(type == RawRecordType::Comment ||
            (type == RawRecordType::JB && CRawFile::Parse(record, job)) ||
            (type == RawRecordType::MO && CRawFile::Parse(record, mode)));
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.sdr", data, size, [](const std::wstring& input) {
    for (const SdrVersion version : {SdrVersion::Sdr2, SdrVersion::Sdr33}) {
      Convert(input, version);
      RequireLog();
    }
  });
}
