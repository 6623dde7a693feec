// The job reader: everything it can be asked, and a job copied by field, copied again.

#include <tuple>

#include "FuzzFile.h"
#include "job/CJobFile.h"

namespace zelconvert {
namespace {

struct Records {
  JOB_POINT point;
  JOB_POINT_EX pointEx;
  JOB_LAYER layer;
  JOB_RECORD4 record4;
  JOB_RECORD7 record7;
  JOB_RECORD9 record9;
  JOB_RECORD10 record10;
  JOB_RECORD15 record15;
  JOB_RECORD16 record16;
  JOB_RECORD18 record18;
  JOB_GENERIC_RECORD generic;
};

// False if the record can't be read whole.
bool CopyRecord(JobKind kind, CJobFile& from, CJobFile& to, Records& records) {
  const auto copy = [&](auto& record) {
    if (!from.Read(record)) return false;
    std::ignore = to.Write(record);  // refused by versions that don't hold the kind
    return true;
  };
  switch (kind) {
    case JobKind::Point:
      return copy(records.point);
    case JobKind::PointEx:
      return copy(records.pointEx);
    case JobKind::Layer:
      return copy(records.layer);
    case JobKind::Record4:
      return copy(records.record4);
    case JobKind::Record7:
      return copy(records.record7);
    case JobKind::Record9:
      return copy(records.record9);
    case JobKind::Record10:
      return copy(records.record10);
    case JobKind::Record15:
      return copy(records.record15);
    case JobKind::Record16:
      return copy(records.record16);
    case JobKind::Record18:
      return copy(records.record18);
    case JobKind::Attributes:
      if (!from.ReadGenericRecord(records.generic)) return false;
      std::ignore = to.WriteGenericRecord(records.generic);
      return true;
    case JobKind::Unused:
    case JobKind::Record12:
      return from.SkipRecord();
  }
  return false;
}

// What can be read of the job, in a new one.
std::string Copy(const std::wstring& input, bool brand, std::uint16_t version) {
  const std::wstring output = MemoryFiles::Path(L"copy.job");
  CJobFile from(brand), to(brand);
  if (!from.Open(input, true)) return {};
  Require(to.Create(output, version));
  JOB_HEADER header;
  CoordBlock block;
  Require(from.ReadJobHeader(header) && to.WriteJobHeader(header));
  Require(from.ReadCoordBlock(block) && to.WriteCoordBlock(block) == (version == kJobVersion));
  Require(to.SeekToEnd() && from.SeekToFirstRecord());
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  Records records;
  while (from.ReadNextRecordHead(kind, position, length)) {
    if (!CopyRecord(kind, from, to, records)) break;
  }
  to.Close();
  return MemoryFiles::Read(L"copy.job");
}

void Search(const std::wstring& path, bool brand) {
  CJobFile job(brand);
  if (!job.Open(path, false)) return;
  JOB_GENERIC_RECORD record;
  JOB_OLD_HEADER old;
  Require(job.ReadOldHeader(old));
  for (const bool bFirstFree : {false, true}) {
    Require(job.SeekToFirstRecord());
    std::ignore = job.FindRecord4(1, bFirstFree);
    Require(job.SeekToFirstRecord());
    std::ignore = job.FindRecord9(1, bFirstFree);
  }
  Require(job.SeekToFirstRecord());
  std::ignore = job.ReadBlockAtPosition(record);
  Require(job.SeekToFreeSlot(100));
  Require(job.SeekToFirstRecord());
  std::ignore = job.DeleteRecord();
  std::ignore = job.PointExists(L"1");
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::wstring path = MemoryFiles::Write(L"in.job", ToBytes(data, size));
  for (const bool brand : {true, false}) {
    for (const std::uint16_t version : {kOldJobVersion, kJobVersion}) {
      const std::string once = Copy(path, brand, version);
      const std::wstring again = MemoryFiles::Write(L"once.job", once);
      Require(Copy(again, brand, version) == once);
    }
    Search(path, brand);
  }
  return 0;
}
