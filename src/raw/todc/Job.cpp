#include "raw/todc/Job.h"

#include "dc/DcDialect.h"
#include "dc/DcUnits.h"
#include "io/Strings.h"
#include "raw/todc/Texts.h"

namespace zelconvert {

void Job::OnJob(const JB_RECORD& job) {
  AssignUtf8(m_name, job.name);
  AssignUtf8(m_date, job.date);
  AssignUtf8(m_time, job.time);
}

Outcome Job::OnMode(const MO_RECORD& mode) {
  const MO_RECORD& first = m_pass.index.FirstMode();
  const bool isFirst = !m_pass.mode.isSet;
  m_pass.mode.Set(mode, first);
  if (isFirst) {
    if (!WriteHeader(mode)) return Outcome::Failed;
    WriteJob(mode);
  } else if (!m_isConflictReported) {
    m_pass.Warn(std::wstring(kConflictingModes));
    m_isConflictReported = true;
  }
  WriteCogo(mode.azimuthOrigin == kFromSouth ? 2 : 1, 1);
  if (isFirst && !m_pass.index.HasLocalization()) WriteNoCoordinateSystem(m_pass.dc, first.scale);
  return Outcome::Done;
}

bool Job::WriteHeader(const MO_RECORD& mode) {
  const std::wstring_view version = DcVersionText(m_pass.version);
  if (version.empty()) return false;
  tDC_HEADERRecord header;
  header.version = version;
  header.dateTime.append(m_date).append(L" ").append(Left(m_time, 5));
  header.angleUnit = DcDigit(AngularUnitOfRaw(mode.angleUnit));
  header.distanceUnit = DcDigit(LinearUnitOfRaw(mode.distanceUnit).value_or(LinearUnit::Metre));
  m_pass.dc.Write(header);
  return true;
}

void Job::WriteJob(const MO_RECORD& mode) {
  tDC_JOBRecord job;
  job.name = m_name;
  job.scaleFlag = mode.curvature == 1 ? 2 : 1;
  job.gridFlag = mode.scaleMode == 2 || mode.scaleMode == 3 ? 2 : 1;
  m_pass.dc.Write(job);

  tDC_OFFSET_SETTINGRecord offset;
  offset.value = mode.edmOffset;
  m_pass.dc.Write(offset);
}

void Job::OnCogoFlags(const CG_RECORD& flags) {
  WriteCogo(flags.azimuthOrigin == 2 ? 2 : 1, flags.groundOrigin);
}

void Job::WriteCogo(std::int32_t azimuthOrigin, std::int32_t gridOrientation) {
  tDC_COGORecord cogo;
  cogo.azimuthOrigin = azimuthOrigin;
  cogo.gridOrientation = gridOrientation;
  WriteCogoSettings(m_pass.dc, m_pass.version, cogo);
}

void Job::OnComment() {
  tDC_NOTERecord note;
  AssignUtf8(note.text, m_pass.record.substr(2));
  m_pass.dc.Write(note);
}

}  // namespace zelconvert
