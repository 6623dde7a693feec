// Any line as every record of an interlock job: written once it may come out otherwise, since a
// value that isn't valid isn't written, and its field may have one when it is unset; then it stays.

#include <tuple>

#include "FuzzFile.h"
#include "convert/ConversionBase.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"

namespace zelconvert {
namespace {

/// The line that a record makes of another one; empty for a date that no calendar has.
std::string Rewrite(CMoskoJobRecord& record, std::string_view line) {
  try {
    std::ignore = record.ParseText(line.substr(line.find('\t') + 1));
    return record.ToText();
  } catch (const ConversionFailure&) {
    return {};
  }
}

void ReadLine(std::string_view line) {
  for (std::size_t type = 1; type < kIljRecordTypes; ++type) {
    CMoskoJobRecord record(static_cast<IljRecordType>(type));
    const std::string twice = Rewrite(record, Rewrite(record, line));
    Require(twice.empty() || Rewrite(record, twice) == twice);
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.ilj", data, size, [](const std::wstring& input) {
    CTextFile file(CTextFile::kUtf16LittleEndian);
    file.SetAllowUnicode(true);
    if (!file.Open(input, platform::kOpenText)) return;
    file.Rewind();
    for (std::string_view line; file.ReadString(line);) ReadLine(line);
  });
}
