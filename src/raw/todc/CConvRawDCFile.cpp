#include "raw/todc/CConvRawDCFile.h"

#include <type_traits>
#include <utility>

#include "convert/CConvertProgress.h"
#include "io/HandlerTable.h"
#include "io/Strings.h"
#include "raw/todc/CoordinateSystem.h"
#include "raw/todc/Gps.h"
#include "raw/todc/Job.h"
#include "raw/todc/JobPoints.h"
#include "raw/todc/RawPass.h"
#include "raw/todc/Rounds.h"
#include "raw/todc/Setup.h"
#include "raw/todc/Shots.h"
#include "raw/todc/StakeOut.h"
#include "raw/todc/Texts.h"

namespace zelconvert {
namespace {

/// The subjects of one run, and what they share.
struct Subjects {
  RawPass pass;
  Job job{pass};
  Rounds rounds{pass};
  Setup setup{pass, rounds};
  Shots shots{pass, setup, rounds};
  StakeOut stakeOut{pass, setup};
  Gps gps{pass, stakeOut};
  CoordinateSystem system{pass};
};

using Handler = Outcome (*)(Subjects&);
using Kind = RawRecordType;

template <class Subject, class Result, class... Arguments>
Outcome Call(Subject& subject, Result (Subject::*handle)(Arguments...), auto&... record) {
  if constexpr (std::is_same_v<Result, Outcome>) {
    return (subject.*handle)(record...);
  } else {
    (subject.*handle)(record...);
    return Outcome::Done;
  }
}

/// Of a record that isn't parsed here.
template <auto subject, auto handle>
Outcome Tell(Subjects& subjects) {
  return Call(subjects.*subject, handle);
}

/// Parses the record that the subject takes and hands it over.
template <auto subject, auto handle>
Outcome Give(Subjects& subjects) {
  const auto give =
      [&]<class Subject, class Result, class Record>(Result (Subject::*)(const Record&)) {
        Record record;
        if (!CRawFile::Parse(subjects.pass.record, record)) return Outcome::BadRecord;
        return Call(subjects.*subject, handle, record);
      };
  return give(handle);
}

/// The same of a record that doesn't count, whatever it holds, unless the subject wants it.
template <auto subject, auto isWanted, auto handle>
Outcome GiveIf(Subjects& subjects) {
  if (!(subjects.*subject.*isWanted)()) return Outcome::Done;
  return Give<subject, handle>(subjects);
}

constexpr auto kHandlers = MakeHandlerTable<kRawRecordTypes, Kind, Handler>({
    {Kind::JB, Give<&Subjects::job, &Job::OnJob>},
    {Kind::MO, Give<&Subjects::job, &Job::OnMode>},
    {Kind::CG, Give<&Subjects::job, &Job::OnCogoFlags>},
    {Kind::Comment, Tell<&Subjects::job, &Job::OnComment>},

    {Kind::OC, Give<&Subjects::setup, &Setup::OnOccupy>},
    {Kind::BK, Give<&Subjects::setup, &Setup::OnBacksight>},
    {Kind::LS, Give<&Subjects::setup, &Setup::OnLineOfSight>},

    {Kind::TR, Give<&Subjects::shots, &Shots::OnTraverse>},
    {Kind::SS, Give<&Subjects::shots, &Shots::OnSideshot>},

    {Kind::RB, Give<&Subjects::rounds, &Rounds::OnBacksightShot>},
    {Kind::RF, Give<&Subjects::rounds, &Rounds::OnForesightShot>},
    {Kind::RD, Give<&Subjects::rounds, &Rounds::OnDirection>},
    {Kind::MD, Give<&Subjects::rounds, &Rounds::OnSetDistance>},
    {Kind::RS, Tell<&Subjects::rounds, &Rounds::Clear>},
    {Kind::OB, Tell<&Subjects::rounds, &Rounds::Clear>},

    {Kind::SP, Give<&Subjects::stakeOut, &StakeOut::OnStoredPoint>},
    {Kind::CF, Give<&Subjects::stakeOut, &StakeOut::OnStake>},
    {Kind::SL, Give<&Subjects::stakeOut, &StakeOut::OnSlopeStake>},
    {Kind::SR, Give<&Subjects::stakeOut, &StakeOut::OnSlopeStake>},
    {Kind::SD, Give<&Subjects::stakeOut, &StakeOut::OnStakedDelta>},
    {Kind::OE, Give<&Subjects::stakeOut, &StakeOut::OnStationError>},
    {Kind::SK, Give<&Subjects::stakeOut, &StakeOut::OnStakeShot>},
    {Kind::GK, Give<&Subjects::stakeOut, &StakeOut::OnCheckPoint>},

    {Kind::RX, Give<&Subjects::gps, &Gps::OnReceiver>},
    {Kind::EQ, Tell<&Subjects::gps, &Gps::OnEquipment>},
    {Kind::AH, Give<&Subjects::gps, &Gps::OnAntennaHeight>},
    {Kind::BP, GiveIf<&Subjects::gps, &Gps::HasReceiver, &Gps::OnBasePoint>},
    {Kind::EP, GiveIf<&Subjects::gps, &Gps::WantsPosition, &Gps::OnPosition>},
    {Kind::GS, Give<&Subjects::gps, &Gps::OnStoredPoint>},
    {Kind::GP, GiveIf<&Subjects::gps, &Gps::WantsPoint, &Gps::OnPoint>},
    {Kind::BL, GiveIf<&Subjects::gps, &Gps::WantsVector, &Gps::OnVector>},
    {Kind::CV, Tell<&Subjects::gps, &Gps::OnCovariance>},
    {Kind::GQ, GiveIf<&Subjects::gps, &Gps::HasRover, &Gps::OnQuality>},
    {Kind::GO, GiveIf<&Subjects::gps, &Gps::HasRover, &Gps::OnOffset>},
    {Kind::EE, Tell<&Subjects::gps, &Gps::OnStoredPointAhead>},
    {Kind::CT, Give<&Subjects::gps, &Gps::OnControlPoint>},
    {Kind::RP, Give<&Subjects::gps, &Gps::OnRoverPoint>},

    {Kind::ES, Give<&Subjects::system, &CoordinateSystem::OnEllipsoid>},
    {Kind::ST, Give<&Subjects::system, &CoordinateSystem::OnSite>},
    {Kind::PJ, Give<&Subjects::system, &CoordinateSystem::OnProjection>},
    {Kind::PE, Give<&Subjects::system, &CoordinateSystem::OnGridProjection>},
    {Kind::DT, Give<&Subjects::system, &CoordinateSystem::OnDatum>},
    {Kind::DG, Give<&Subjects::system, &CoordinateSystem::OnDatumGrid>},
    {Kind::HA, Give<&Subjects::system, &CoordinateSystem::OnHorizontalAdjust>},
    {Kind::VA, Give<&Subjects::system, &CoordinateSystem::OnVerticalAdjust>},
    {Kind::CS, Give<&Subjects::system, &CoordinateSystem::OnNames>},
    {Kind::LM, Give<&Subjects::system, &CoordinateSystem::OnZone>},
    {Kind::LH, Tell<&Subjects::system, &CoordinateSystem::WriteNoSystem>},
    {Kind::SG, Give<&Subjects::system, &CoordinateSystem::OnGeoid>},
});

/// One run over a log.
class RawToDc {
 public:
  RawToDc(CRawFile& raw, CDcFile& dc, int version, MessageList& messages)
      : m_raw(raw), m_subjects{.pass{dc, version, messages}} {}

  [[nodiscard]] bool Convert(const std::wstring& jobPath, bool writeUnusedPoints) {
    CConvertProgress progress;
    progress.Start();
    m_pass.index.Build(m_raw);
    ReadJob(jobPath);
    m_pass.WatchNames(writeUnusedPoints);
    const std::int64_t length = m_raw.GetLength();
    while (m_raw.ReadRecord(m_pass.record)) {
      m_pass.NextRecord();
      progress.SetPosition(m_raw.GetPosition(), length);
      const Outcome outcome = ConvertRecord();
      if (outcome == Outcome::BadRecord) m_pass.Say(FormatText(kBadRawRecordText, m_pass.line));
      if (outcome != Outcome::Done) return false;
    }
    return Finish(writeUnusedPoints);
  }

 private:
  void ReadJob(const std::wstring& path) {
    if (!IsJobPath(path)) return;
    const auto unit = LinearUnitOfRaw(m_pass.index.FirstMode().distanceUnit);
    if (!ReadJobPoints(path, unit, m_pass.m_JobPoints)) m_pass.Warn(FormatText(kJobNotRead, path));
  }

  Outcome ConvertRecord() {
    m_subjects.stakeOut.BeforeRecord();
    const Handler* handle = kHandlers.Find(m_pass.kind);
    return handle != nullptr ? (*handle)(m_subjects) : Outcome::Done;
  }

  [[nodiscard]] bool Finish(bool writeUnusedPoints) {
    m_subjects.stakeOut.Finish();
    if (!m_pass.mode.isSet) {
      m_pass.Say(kNoMode);
      return false;
    }
    if (writeUnusedPoints) m_pass.WriteUnusedPoints();
    return true;
  }

  CRawFile& m_raw;
  Subjects m_subjects;
  RawPass& m_pass = m_subjects.pass;
};

}  // namespace

CConvRawDCFile::CConvRawDCFile(CRawFile* raw, CDcFile* dc, bool writeUnusedPoints, int version,
                               std::wstring jobPath)
    : m_pRaw(raw),
      m_pDc(dc),
      m_bWriteUnusedPoints(writeUnusedPoints),
      m_nVersion(version),
      m_strJobPath(std::move(jobPath)) {}

bool CConvRawDCFile::ConvertFromRaw(Report& report) {
  m_pDc->SetMessages(&report.messages);
  return RawToDc(*m_pRaw, *m_pDc, m_nVersion, report.messages)
      .Convert(m_strJobPath, m_bWriteUnusedPoints);
}

}  // namespace zelconvert
