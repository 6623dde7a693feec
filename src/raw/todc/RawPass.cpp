#include "raw/todc/RawPass.h"

#include "raw/CRawFile.h"

namespace zelconvert {

RawPass::RawPass(CDcFile& dcFile, int dcVersion, MessageList& messageList)
    : dc(dcFile), version(dcVersion), m_messages(messageList) {
  m_position.subtype = L"KI";
}

void RawPass::NextRecord() {
  ++line;
  previousKind = kind;
  kind = CRawFile::GetRecordType(record);
}

void RawPass::WatchNames(bool writeUnusedPoints) {
  if (writeUnusedPoints) {
    for (const auto& [name, point] : m_JobPoints) index.AskFor(name);
  }
  observed.Watch(index.AskedNames());
  measured.Watch(index.AskedNames());
}

bool RawPass::IsBacksightName(std::wstring_view name) const {
  return name.starts_with(L"BS") && !m_JobPoints.contains(name);
}

void RawPass::Take(const POINT_RECORD& told, CZelPoint& point) const {
  AssignUtf8(point.m_strName, told.name);
  point.m_dNorth = mode.Length(told.north);
  point.m_dEast = mode.Length(told.east);
  point.m_dElevation = mode.Length(told.elevation);
  AssignUtf8(point.m_strDescription, told.note);
}

void RawPass::WriteGridPosition(const CZelPoint& point, bool deleted) {
  m_position.name = point.m_strName;
  m_position.north = point.m_dNorth;
  m_position.east = point.m_dEast;
  m_position.elevation = point.m_dElevation;
  m_position.code = point.m_strDescription;
  m_position.classification = Classify(point.m_strName, deleted);
  dc.Write(m_position);
}

void RawPass::WriteGridPosition(const POINT_RECORD& told) {
  CZelPoint point;
  Take(told, point);
  WriteGridPosition(point, false);
}

void RawPass::WriteUnusedPoints() {
  for (const auto& [name, point] : m_JobPoints) {
    if (!IsWritten(name)) WriteGridPosition(point, false);
  }
}

}  // namespace zelconvert
