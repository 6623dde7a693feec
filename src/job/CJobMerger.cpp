#include "job/CJobMerger.h"

#include <algorithm>

#include "io/BinaryFields.h"
#include "io/Paths.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

constexpr JobKind kCopiedKinds[] = {JobKind::Point,    JobKind::PointEx,  JobKind::Record15,
                                    JobKind::Record4,  JobKind::Record16, JobKind::Record9,
                                    JobKind::Record10, JobKind::Record7};

bool IsCopied(JobKind kind) {
  return std::ranges::find(kCopiedKinds, kind) != std::end(kCopiedKinds);
}

}  // namespace

bool CJobMerger::Merge(CJobFile& output) {
  return CopyHeader(output) && CopyRecords(m_First, output, &CJobMerger::PrepareFirst) &&
         CopyRecords(m_Second, output, &CJobMerger::PrepareSecond);
}

bool CJobMerger::CopyHeader(CJobFile& output) {
  JOB_HEADER first, second;
  return m_First.ReadJobHeader(first) && m_Second.ReadJobHeader(second) &&
         first.scale == second.scale && output.WriteJobHeader(first) && output.SeekToEnd();
}

// prepare: told of every payload before it is written, to change it.
bool CJobMerger::CopyRecords(CJobFile& job, CJobFile& output,
                             void (CJobMerger::*prepare)(JobKind, Payload)) {
  if (!job.SeekToFirstRecord()) return false;
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  CJobFile::FixedPayload payload;
  while (job.ReadNextRecordHead(kind, position, length)) {
    if (!IsCopied(kind)) {
      if (!job.SkipRecord()) return false;
      continue;
    }
    if (!job.ReadFixedPayload(payload)) return false;
    const Payload used = std::span(payload).first(InfoOf(kind).length);
    (this->*prepare)(kind, used);
    if (!output.WriteRecord(used, static_cast<std::uint32_t>(kind))) return false;
  }
  return !job.GetFile().HasReadFailed();
}

void CJobMerger::PrepareFirst(JobKind kind, Payload payload) {
  if (kind == JobKind::Record15) ++m_nRecords15;
  if (kind == JobKind::Record16) ++m_nRecords16;
  if (!IsPoint(kind)) return;
  const POINT_DATA point = ReadPoint(payload);
  m_Points.try_emplace(m_strName, point);
}

// The name goes to m_strName.
CJobMerger::POINT_DATA CJobMerger::ReadPoint(Payload payload) {
  const BinaryReader reader(payload);
  JOB_POINT::WalkHead(reader, m_Point);
  m_strName.clear();
  platform::AppendNarrow(m_strName, m_Point.name);
  return {m_Point.east, m_Point.north, m_Point.elevation};
}

// Points of a name that is there already are written all the same: which of two surveys is right is
// for the surveyor to say. Lines and road elements are numbered on; where other kinds refer to them
// is not known, so these stay as they are.
void CJobMerger::PrepareSecond(JobKind kind, Payload payload) {
  const BinaryWriter writer(payload);
  if (kind == JobKind::Record15) writer.Field(0, ++m_nRecords15);
  if (kind == JobKind::Record16) writer.Field(0, ++m_nRecords16);
  if (!IsPoint(kind)) return;
  const POINT_DATA point = ReadPoint(payload);
  const auto known = m_Points.find(m_strName);
  if (known == m_Points.end()) return;
  ++m_Counts.repeated;
  if (known->second != point) ++m_Counts.moved;
}

bool MergeJobs(const std::wstring& firstPath, const std::wstring& secondPath,
               const std::wstring& outputPath, StringList& /*messages*/, StringList& /*files*/,
               MergeCounts* counts) {
  CJobFile first(HasExtension(firstPath, L".job"));
  CJobFile second(HasExtension(secondPath, L".job"));
  CJobFile output(HasExtension(outputPath, L".job"));
  if (!first.Open(firstPath, false) || !second.Open(secondPath, false) ||
      !output.CreateNew(outputPath)) {
    return false;
  }
  CJobMerger merger(first, second);
  const bool merged = merger.Merge(output);
  if (counts != nullptr) *counts = merger.GetCounts();
  output.Close();
  return merged && !output.HasWriteFailed();
}

}  // namespace zelconvert
