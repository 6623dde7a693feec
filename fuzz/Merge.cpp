// Any bytes as a job, merged with a copy of itself.

#include "FuzzFile.h"
#include "job/CJobMerger.h"

namespace zelconvert {
namespace {

struct Found {
  std::size_t points = 0, layers = 0, others = 0;
};

Found CountRecords(const std::wstring& path) {
  CJobFile job(true);
  Require(job.Open(path, true) && job.SeekToFirstRecord());
  Found found;
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  while (job.ReadNextRecordHead(kind, position, length)) {
    Require(length == InfoOf(kind).length && length > 0);
    ++(IsPoint(kind) ? found.points : kind == JobKind::Layer ? found.layers : found.others);
    Require(job.SkipRecord());
  }
  return found;
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::string_view bytes = ToBytes(data, size);
  const std::wstring output = MemoryFiles::Path(L"out.job");
  Report report;
  for (const wchar_t* extension : {L".job", L".pwj"}) {
    const std::wstring first = MemoryFiles::Write(std::wstring(L"a") + extension, bytes);
    const std::wstring second = MemoryFiles::Write(std::wstring(L"b") + extension, bytes);
    MergeCounts counts;
    if (MergeJobs(first, second, output, report, &counts) != MergeResult::Merged) continue;
    const Found found = CountRecords(output);
    Require(found.points % 2 == 0 && found.others % 2 == 0 && found.layers > 0);
    Require(counts.repeated == found.points / 2 && counts.moved <= counts.repeated);
  }
  return 0;
}
