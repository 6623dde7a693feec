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

template <class Record>
using Parser = bool (*)(std::wstring_view, Record&);

/// Parses a record and hands it over.
template <auto subject, auto parse, auto handle>
Outcome Give(Subjects& subjects) {
  const auto give = [&]<class Record>(Parser<Record>) {
    Record record;
    if (!parse(subjects.pass.record, record)) return Outcome::BadRecord;
    return Call(subjects.*subject, handle, record);
  };
  return give(parse);
}

/// The same of a record that doesn't count, whatever it holds, unless the subject wants it.
template <auto subject, auto isWanted, auto parse, auto handle>
Outcome GiveIf(Subjects& subjects) {
  if (!(subjects.*subject.*isWanted)()) return Outcome::Done;
  return Give<subject, parse, handle>(subjects);
}

constexpr auto kHandlers = MakeHandlerTable<kRawRecordTypes, Kind, Handler>({
    {Kind::JB, Give<&Subjects::job, &CRawFile::ParseJB, &Job::OnJob>},
    {Kind::MO, Give<&Subjects::job, &CRawFile::ParseMO, &Job::OnMode>},
    {Kind::CG, Give<&Subjects::job, &CRawFile::ParseCG, &Job::OnCogoFlags>},
    {Kind::Comment, Tell<&Subjects::job, &Job::OnComment>},

    {Kind::OC, Give<&Subjects::setup, &CRawFile::ParseOC, &Setup::OnOccupy>},
    {Kind::BK, Give<&Subjects::setup, &CRawFile::ParseBK, &Setup::OnBacksight>},
    {Kind::LS, Give<&Subjects::setup, &CRawFile::ParseLS, &Setup::OnLineOfSight>},

    {Kind::TR, Give<&Subjects::shots, &CRawFile::ParseTR, &Shots::OnTraverse>},
    {Kind::SS, Give<&Subjects::shots, &CRawFile::ParseSS, &Shots::OnSideshot>},

    {Kind::RB, Give<&Subjects::rounds, &CRawFile::ParseRB, &Rounds::OnBacksightShot>},
    {Kind::RF, Give<&Subjects::rounds, &CRawFile::ParseRF, &Rounds::OnForesightShot>},
    {Kind::RD, Give<&Subjects::rounds, &CRawFile::ParseRD, &Rounds::OnDirection>},
    {Kind::MD, Give<&Subjects::rounds, &CRawFile::ParseMD, &Rounds::OnSetDistance>},
    {Kind::RS, Tell<&Subjects::rounds, &Rounds::Clear>},
    {Kind::OB, Tell<&Subjects::rounds, &Rounds::Clear>},

    {Kind::SP, Give<&Subjects::stakeOut, &CRawFile::ParseSP, &StakeOut::OnStoredPoint>},
    {Kind::CF, Give<&Subjects::stakeOut, &CRawFile::ParseCF, &StakeOut::OnStake>},
    {Kind::SL, Give<&Subjects::stakeOut, &CRawFile::ParseSL, &StakeOut::OnSlopeStake>},
    {Kind::SR, Give<&Subjects::stakeOut, &CRawFile::ParseSR, &StakeOut::OnSlopeStake>},
    {Kind::SD, Give<&Subjects::stakeOut, &CRawFile::ParseSD, &StakeOut::OnStakedDelta>},
    {Kind::OE, Give<&Subjects::stakeOut, &CRawFile::ParseOE, &StakeOut::OnStationError>},
    {Kind::SK, Give<&Subjects::stakeOut, &CRawFile::ParseSK, &StakeOut::OnStakeShot>},
    {Kind::GK, Give<&Subjects::stakeOut, &CRawFile::ParseGK, &StakeOut::OnCheckPoint>},

    {Kind::RX, Give<&Subjects::gps, &CRawFile::ParseRX, &Gps::OnReceiver>},
    {Kind::EQ, Tell<&Subjects::gps, &Gps::OnEquipment>},
    {Kind::AH, Give<&Subjects::gps, &CRawFile::ParseAH, &Gps::OnAntennaHeight>},
    {Kind::BP, GiveIf<&Subjects::gps, &Gps::HasReceiver, &CRawFile::ParseBP, &Gps::OnBasePoint>},
    {Kind::EP, GiveIf<&Subjects::gps, &Gps::WantsPosition, &CRawFile::ParseEP, &Gps::OnPosition>},
    {Kind::GS, Give<&Subjects::gps, &CRawFile::ParseGS, &Gps::OnStoredPoint>},
    {Kind::GP, GiveIf<&Subjects::gps, &Gps::WantsPoint, &CRawFile::ParseGP, &Gps::OnPoint>},
    {Kind::BL, GiveIf<&Subjects::gps, &Gps::WantsVector, &CRawFile::ParseBL, &Gps::OnVector>},
    {Kind::CV, Tell<&Subjects::gps, &Gps::OnCovariance>},
    {Kind::GQ, GiveIf<&Subjects::gps, &Gps::HasRover, &CRawFile::ParseGQ, &Gps::OnQuality>},
    {Kind::GO, GiveIf<&Subjects::gps, &Gps::HasRover, &CRawFile::ParseGO, &Gps::OnOffset>},
    {Kind::EE, Tell<&Subjects::gps, &Gps::OnStoredPointAhead>},
    {Kind::CT, Give<&Subjects::gps, &CRawFile::ParseCT, &Gps::OnControlPoint>},
    {Kind::RP, Give<&Subjects::gps, &CRawFile::ParseRP, &Gps::OnRoverPoint>},

    {Kind::ES, Give<&Subjects::system, &CRawFile::ParseES, &CoordinateSystem::OnEllipsoid>},
    {Kind::ST, Give<&Subjects::system, &CRawFile::ParseST, &CoordinateSystem::OnSite>},
    {Kind::PJ, Give<&Subjects::system, &CRawFile::ParsePJ, &CoordinateSystem::OnProjection>},
    {Kind::PE, Give<&Subjects::system, &CRawFile::ParsePE, &CoordinateSystem::OnGridProjection>},
    {Kind::DT, Give<&Subjects::system, &CRawFile::ParseDT, &CoordinateSystem::OnDatum>},
    {Kind::DG, Give<&Subjects::system, &CRawFile::ParseDG, &CoordinateSystem::OnDatumGrid>},
    {Kind::HA, Give<&Subjects::system, &CRawFile::ParseHA, &CoordinateSystem::OnHorizontalAdjust>},
    {Kind::VA, Give<&Subjects::system, &CRawFile::ParseVA, &CoordinateSystem::OnVerticalAdjust>},
    {Kind::CS, Give<&Subjects::system, &CRawFile::ParseCS, &CoordinateSystem::OnNames>},
    {Kind::LM, Give<&Subjects::system, &CRawFile::ParseLM, &CoordinateSystem::OnZone>},
    {Kind::LH, Tell<&Subjects::system, &CoordinateSystem::OnLocalization>},
    {Kind::SG, Give<&Subjects::system, &CRawFile::ParseSG, &CoordinateSystem::OnGeoid>},
});

/// One run over a log.
class RawToDc {
 public:
  RawToDc(CRawFile& raw, CDcFile& dc, int version, StringList& messages)
      : m_raw(raw), m_subjects{.pass{dc, version, messages}} {}

  bool Convert(const std::wstring& jobPath, bool writeUnusedPoints) {
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
      if (outcome == Outcome::BadRecord) m_pass.Say(FormatText(kBadRecord, m_pass.line));
      if (outcome != Outcome::Done) return false;
    }
    return Finish(writeUnusedPoints);
  }

 private:
  void ReadJob(const std::wstring& path) {
    if (!IsJobPath(path)) return;
    const auto unit = LinearUnitOfRaw(m_pass.index.FirstMode().distanceUnit);
    if (!ReadJobPoints(path, unit, m_pass.m_JobPoints)) m_pass.Say(FormatText(kJobNotRead, path));
  }

  Outcome ConvertRecord() {
    m_subjects.stakeOut.BeforeRecord();
    const Handler* handle = kHandlers.Find(m_pass.kind);
    return handle != nullptr ? (*handle)(m_subjects) : Outcome::Done;
  }

  bool Finish(bool writeUnusedPoints) {
    m_subjects.stakeOut.Finish();
    if (!m_pass.mode.isSet) {
      m_pass.Say(std::wstring(kNoMode));
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

bool CConvRawDCFile::ConvertToRaw(StringList& /*messages*/) {
  return true;
}

bool CConvRawDCFile::ConvertFromRaw(StringList& messages) {
  m_pDc->SetMessages(&messages);
  return RawToDc(*m_pRaw, *m_pDc, m_nVersion, messages).Convert(m_strJobPath, m_bWriteUnusedPoints);
}

}  // namespace zelconvert
