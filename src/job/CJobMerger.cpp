#include "job/CJobMerger.h"

#include <algorithm>

#include "io/BinaryFields.h"
#include "io/Paths.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

// Of the second job the same but for the layers.
constexpr JobKind kCopiedKinds[] = {JobKind::Layer,    JobKind::Point,    JobKind::PointEx,
                                    JobKind::Record15, JobKind::Record4,  JobKind::Record16,
                                    JobKind::Record9,  JobKind::Record10, JobKind::Record7};

[[nodiscard]] bool IsCopied(JobKind kind) {
  return std::find(std::begin(kCopiedKinds), std::end(kCopiedKinds), kind) !=
         std::end(kCopiedKinds);
}

[[nodiscard]] bool HasId(JobKind kind) {
  return kind == JobKind::Layer || kind == JobKind::Record10 || kind == JobKind::Record15 ||
         kind == JobKind::Record16;
}

constexpr std::size_t IdOffset(JobKind kind) {
  return kind == JobKind::Record10 ? JOB_RECORD10::kIdOffset : 0;
}

std::uint32_t LoadId(JobKind kind, std::span<const std::byte> payload) {
  return LoadLittleEndian<std::uint32_t>(payload.data() + IdOffset(kind));
}

}  // namespace

MergeResult CJobMerger::Merge(CJobFile& output) {
  JOB_HEADER first, second;
  if (!m_first.ReadJobHeader(first) || !m_second.ReadJobHeader(second)) {
    return MergeResult::RecordUnreadable;
  }
  if (first.scale != second.scale) return MergeResult::ScalesDiffer;
  m_nWalkLength = 2 * (m_first.GetFile().GetLength() + m_second.GetFile().GetLength());
  m_progress.Start();
  const bool copied =
      CopyHeader(output, first) && FindIds() &&
      (!m_layers.insert(kDefaultLayerId).second || output.WriteLayer(DefaultLayer())) &&
      CopyRecords(m_first, output, &CJobMerger::PrepareFirst) &&
      CopyRecords(m_second, output, &CJobMerger::PrepareSecond);
  return copied ? MergeResult::Merged : MergeResult::RecordUnreadable;
}

// An old job has no block: then it is that of a new one.
bool CJobMerger::CopyHeader(CJobFile& output, const JOB_HEADER& header) {
  CoordBlock block;
  return output.WriteJobHeader(header) && m_first.ReadCoordBlock(block) &&
         output.WriteCoordBlock(block) && output.SeekToEnd();
}

// handle: called with the kind and the payload of each record of the copied kinds; false ends the
// walk with false. Where a head tells a wrong length, every walk must go on at the same place: so
// all these kinds are read in all walks.
template <class Handler>
bool CJobMerger::ForEachRecord(CJobFile& job, Handler handle) {
  CJobFile::FixedPayload payload;
  const bool walked = job.ForEachRecord([&](JobKind kind, std::int64_t position) {
    m_progress.SetPosition(m_nWalked + position, m_nWalkLength);
    if (!IsCopied(kind)) return job.SkipRecord();
    return job.ReadFixedPayload(payload) &&
           handle(kind, std::span(payload).first(InfoOf(kind).length));
  });
  m_nWalked += job.GetFile().GetLength();
  return walked;
}

// An element names its road by the road's id, and may stand in front of it. So the roads of the
// second job get their ids before anything is written.
bool CJobMerger::FindIds() {
  const bool first = ForEachRecord(m_first, [this](JobKind kind, Payload payload) {
    if (HasId(kind)) FindIdOfFirst(kind, LoadId(kind, payload));
    return true;
  });
  Id road = m_nLastRoad;
  return first && ForEachRecord(m_second, [&](JobKind kind, Payload payload) {
           if (kind != JobKind::Record10) return true;
           m_roadOfSecond.try_emplace(LoadId(kind, payload), ++road);
           m_roads.insert(road);
           return true;
         });
}

void CJobMerger::FindIdOfFirst(JobKind kind, Id id) {
  if (kind == JobKind::Layer) m_layers.insert(id);
  if (kind == JobKind::Record15) m_nLastLine = std::max(m_nLastLine, id);
  if (kind == JobKind::Record16) m_nLastElement = std::max(m_nLastElement, id);
  if (kind != JobKind::Record10) return;
  m_roads.insert(id);
  const auto number = static_cast<std::int32_t>(id);  // with a sign
  if (number > static_cast<std::int32_t>(m_nLastRoad)) m_nLastRoad = id;
}

// prepare: told of every payload before it is written, to change it.
bool CJobMerger::CopyRecords(CJobFile& job, CJobFile& output,
                             void (CJobMerger::*prepare)(JobKind, Payload)) {
  return ForEachRecord(job, [&](JobKind kind, Payload payload) {
    if (kind == JobKind::Layer && &job == &m_second) return true;
    (this->*prepare)(kind, payload);
    return output.WriteRecord(payload, static_cast<std::uint32_t>(kind));
  });
}

// Takes a point to a layer that is there, without its attributes. The name goes to m_strName.
CJobMerger::POINT_DATA CJobMerger::PreparePoint(JobKind kind, Payload payload) {
  const BinaryReader reader(payload);
  const BinaryWriter writer(payload);
  Id layer = 0;
  reader.Field(JOB_POINT::kLayerOffset, layer);
  if (!m_layers.contains(layer)) writer.Field(JOB_POINT::kLayerOffset, kDefaultLayerId);
  writer.Field(kind == JobKind::Point ? JOB_POINT::kLinkOffset : JOB_POINT_EX::kLinkOffset, Id{0});
  JOB_POINT::WalkHead(reader, m_point);
  m_strName.clear();
  platform::AppendNarrow(m_strName, m_point.name);
  return {m_point.east, m_point.north, m_point.elevation};
}

void CJobMerger::PrepareFirst(JobKind kind, Payload payload) {
  if (!IsPoint(kind)) return;
  const POINT_DATA point = PreparePoint(kind, payload);
  m_points.try_emplace(m_strName, point);
}

// Points of a name that is there already are written all the same: which of two surveys is right is
// for the surveyor to say. What ids the kinds 4, 7 and 9 refer to is not known, so these stay as
// they are.
void CJobMerger::PrepareSecond(JobKind kind, Payload payload) {
  if (HasId(kind)) {
    BinaryWriter(payload).Field(IdOffset(kind), NewId(kind, LoadId(kind, payload)));
  }
  if (!IsPoint(kind)) return;
  const POINT_DATA point = PreparePoint(kind, payload);
  const auto known = m_points.find(m_strName);
  if (known == m_points.end()) return;
  ++m_counts.repeated;
  if (known->second != point) ++m_counts.moved;
}

// Of two roads with one id an element has the one in front of it. An element without a road must
// not come to have one.
CJobMerger::Id CJobMerger::NewId(JobKind kind, Id id) {
  if (kind == JobKind::Record15) return ++m_nLastLine;
  if (kind == JobKind::Record10) return m_roadOfSecond[id] = ++m_nLastRoad;
  const auto road = m_roadOfSecond.find(id);
  if (road != m_roadOfSecond.end()) return road->second;
  do ++m_nLastElement;
  while (m_roads.contains(m_nLastElement));
  return m_nLastElement;
}

MergeResult MergeJobs(const std::wstring& firstPath, const std::wstring& secondPath,
                      const std::wstring& outputPath, Report& /*report*/, MergeCounts* counts) {
  CJobFile first(HasExtension(firstPath, L".job"));
  CJobFile second(HasExtension(secondPath, L".job"));
  CJobFile output(HasExtension(outputPath, L".job"));
  if (!first.Open(firstPath, false)) return MergeResult::FirstNotOpened;
  if (!second.Open(secondPath, false)) return MergeResult::SecondNotOpened;
  if (!output.CreateNew(outputPath)) return MergeResult::NotWritten;
  CJobMerger merger(first, second);
  const MergeResult result = merger.Merge(output);
  output.Close();
  if (counts != nullptr) *counts = merger.GetCounts();
  return output.HasWriteFailed() ? MergeResult::NotWritten : result;
}

}  // namespace zelconvert
