#include "tools/ReadSurvey.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "convert/GpsSecurity.h"
#include "dc/CConvDcFile.h"
#include "front/DriverRun.h"
#include "ilj/CConvILJtoDC.h"
#include "io/CTextFile.h"
#include "io/Paths.h"
#include "job/CConvCR5File.h"
#include "raw/RawUnits.h"
#include "raw/sdr/CConvRawSDRFile.h"
#include "raw/todc/CConvRawDCFile.h"
#include "raw/todc/JobPoints.h"
#include "tools/EpsgCodes.h"
#include "tools/ReadDc.h"
#include "tools/ReadIlj.h"
#include "tools/ReadJob.h"
#include "tools/ReadRaw.h"
#include "tools/ReadSdr.h"
#include "tools/SurveyBuilder.h"

namespace zelconvert::tools {
namespace {

using platform::kOpenReadOnly;

constexpr std::wstring_view kOnlyWritten = L"JobXML files are only written: %s can't be read.";
constexpr std::wstring_view kNoSdr = L"The file %s doesn't begin as an SDR file does.";
constexpr std::wstring_view kNoPlace = L"No file can be made in the folder for temporary files.";

constexpr int kNewestDialect = 3;

/// A unit as conversions of coordinate lists number it.
int ListUnit(LinearUnit unit) {
  return unit == LinearUnit::InternationalFoot ? 1 : unit == LinearUnit::UsSurveyFoot ? 2 : 0;
}

// The names of a pair differ in their last four characters alone.
std::wstring Beside(const std::wstring& path, std::wstring_view extension) {
  constexpr std::size_t kReplaced = 4;
  return path.substr(0, path.size() - std::min(path.size(), kReplaced)).append(extension);
}

class SurveyReading {
 public:
  SurveyReading(const std::wstring& path, const ReadOptions& options, Survey& survey,
                StringList& messages)
      : m_path(path),
        m_options(options),
        m_survey(survey),
        m_messages(messages),
        m_builder(survey) {}

  bool Read();

 private:
  bool ReadByType();
  void KnowPointsOf(const std::wstring& job);
  bool ReadDcFile();
  bool ReadJob();
  bool ReadOpenJob(CJobFile& job);
  bool ReadList();
  bool ReadLog(const std::wstring& path, const std::wstring& job, bool isPaired);
  void AddRounds(std::vector<Shot>& rounds);
  bool ReadPair();
  bool ReadListAndLog();
  bool ReadSdrFile();
  bool ReadIlj();

  bool ListToJob(const std::wstring& job, LinearUnit unit);
  /// convert: writes to the DC file that it is given. What it made is then read.
  bool ReadThroughDc(const std::function<bool(CDcFile& dc, Report& report)>& convert,
                     Source& source);
  bool ReadMadeDc(const std::wstring& path, Source& source);

  bool Fail(DriverText text, const std::wstring& path) { return Say(FormatDriverText(text, path)); }
  bool Fail(DriverText text) { return Fail(text, m_path); }
  bool Say(const std::wstring& text) {
    m_messages.push_back(text);
    return false;
  }
  /// Where a file may be made on the way.
  std::wstring Place(std::wstring_view name);
  bool CheckThere(const std::wstring& path, DriverText missing = DriverText::FileMissing) {
    return FileExists(path) || Fail(missing, path);
  }

  const std::wstring& m_path;
  const ReadOptions& m_options;
  Survey& m_survey;
  StringList& m_messages;
  SurveyBuilder m_builder;
  std::wstring m_folder;  // with its separator; empty: not yet made
};

bool SurveyReading::Read() {
  if (!ReadByType()) return false;
  m_builder.Reduce();
  m_survey.epsg = m_survey.hasSystem ? FindEpsgCode(m_survey.system) : std::nullopt;
  return true;
}

bool SurveyReading::ReadByType() {
  switch (m_survey.type) {
    case FT_DC:
    case FT_DC77:
    case FT_DC1000:
    case FT_DC1070:
      return ReadDcFile();
    case FT_JOB:
    case FT_OLD_JOB:
    case FT_PW_JOB:
      return ReadJob();
    case FT_CR5:
    case FT_SEQ_CR5:
      return ReadList();
    case FT_RAW:
    case FT_RW5:
    case FT_PW_RAW:
      return ReadLog(m_path, m_options.job, false);
    case FT_JOB_RAW:
    case FT_PW_JOB_RAW:
      return ReadPair();
    case FT_CR5_RW5:
      return ReadListAndLog();
    case FT_SDR2:
    case FT_SDR33:
      return ReadSdrFile();
    case FT_ILJ:
      return ReadIlj();
    case FT_JXL:
      return Say(FormatText(kOnlyWritten, m_path));
  }
  return Fail(DriverText::NotSupported);
}

// The conversion has told of a job that can't be read.
void SurveyReading::KnowPointsOf(const std::wstring& job) {
  PointMap points;
  if (!IsJobPath(job) || !ReadJobPoints(job, std::nullopt, points)) return;
  for (const auto& [name, point] : points) {
    m_builder.Know(name, {point.m_dNorth, point.m_dEast, point.m_dElevation});
  }
}

std::wstring SurveyReading::Place(std::wstring_view name) {
  if (m_folder.empty()) {
    m_folder = m_options.makeFolder();
    EnsureSeparator(m_folder);
  }
  return m_folder + std::wstring(name);
}

// ---- Through a DC file

bool SurveyReading::ReadThroughDc(const std::function<bool(CDcFile& dc, Report& report)>& convert,
                                  Source& source) {
  Report report;
  CDcFile dc;
  const std::wstring path = Place(L"survey.dc");
  if (!dc.OpenForWrite(path)) return Say(std::wstring(kNoPlace));
  const bool converted = convert(dc, report);
  m_messages.insert(m_messages.end(), report.messages.begin(), report.messages.end());
  if (!converted) return report.messages.empty() ? Fail(DriverText::CannotConvert) : false;
  if (!dc.Close() || dc.HasWriteFailed()) return Say(std::wstring(kNoPlace));
  return ReadMadeDc(path, source);
}

bool SurveyReading::ReadMadeDc(const std::wstring& path, Source& source) {
  CDcFile dc;
  if (!dc.Open(path, kOpenReadOnly)) return Say(std::wstring(kNoPlace));
  ReadDc(dc, &source, m_survey, m_builder);
  return !dc.HasReadFailed() || Say(std::wstring(kNoPlace));
}

bool SurveyReading::ReadDcFile() {
  CDcFile dc;
  if (!CheckThere(m_path)) return false;
  if (!dc.Open(m_path, kOpenReadOnly)) return Fail(DriverText::CannotOpen);
  ReadDc(dc, nullptr, m_survey, m_builder);
  return !dc.HasReadFailed() || Fail(DriverText::CannotConvert);
}

// ---- Jobs and coordinate lists

bool SurveyReading::ReadJob() {
  CJobFile job(HasExtension(m_path, L".job"));
  if (!CheckThere(m_path)) return false;
  if (!job.Open(m_path, true)) return Fail(DriverText::CannotOpen);
  if (!ReadJobFacts(job, m_survey)) return Fail(DriverText::CannotConvert);
  return ReadOpenJob(job);
}

bool SurveyReading::ReadOpenJob(CJobFile& job) {
  Source none;
  return ReadThroughDc(
      [&job](CDcFile& dc, Report& report) {
        return CConvDcFile(&dc, &job, kNewestDialect).ConvertFromNative(report);
      },
      none);
}

bool SurveyReading::ListToJob(const std::wstring& path, LinearUnit unit) {
  CFileCE list;
  CJobFile job(true);
  Report report;
  if (!CheckThere(m_path)) return false;
  if (!list.Open(m_path, kOpenReadOnly)) return Fail(DriverText::CannotOpen);
  if (!job.CreateNew(path)) return Say(std::wstring(kNoPlace));
  CConvCR5File conversion(&list, &job, false);
  conversion.SetUnits(ListUnit(unit));
  const bool converted = conversion.ConvertToNative(report);
  job.Close();
  if (job.HasWriteFailed()) return Say(std::wstring(kNoPlace));
  return (converted && !list.HasReadFailed()) || Fail(DriverText::CannotConvert);
}

bool SurveyReading::ReadList() {
  const LinearUnit unit = m_options.listUnit.value_or(LinearUnit::Metre);
  const std::wstring path = Place(L"list.job");
  if (!ListToJob(path, unit)) return false;
  CFileCE list;
  if (list.Open(m_path, kOpenReadOnly)) CountCr5Records(list, m_survey);
  CJobFile job(true);
  if (!job.Open(path, true)) return Say(std::wstring(kNoPlace));
  const bool read = ReadOpenJob(job);
  m_survey.job.clear();
  m_survey.lengthUnit = m_options.listUnit;
  return read;
}

// ---- Logs

bool SurveyReading::ReadLog(const std::wstring& path, const std::wstring& job, bool isPaired) {
  CRawFile log;
  if (!CheckThere(path, DriverText::RawFileMissing)) return false;
  if (!log.Open(path, kOpenReadOnly)) return Fail(DriverText::CannotOpen, path);
  LogFacts facts = tools::ReadLog(log, m_survey);
  log.SeekToBegin();
  const WithoutGpsSecurity security;
  const bool read = ReadThroughDc(
      [&](CDcFile& dc, Report& report) {
        return CConvRawDCFile(&log, &dc, isPaired, kNewestDialect, job).ConvertFromRaw(report);
      },
      facts.source);
  if (!read) return false;
  if (!isPaired) KnowPointsOf(job);  // those of a pair are the survey's
  for (const GpsPoint& point : facts.gpsPoints) {
    const PointFacts about{point.name, point.code, L'1', point.line};
    if (point.isDeleted) {
      m_builder.AddDeleted(about, point.grid);
    } else {
      m_builder.AddGps(about, point.grid, point.geodetic);
    }
  }
  AddRounds(facts.rounds);
  return !log.HasReadFailed() || Fail(DriverText::CannotConvert, path);
}

/// Each from the setup on its station that stands before it in the log. Sets have a circle of their
/// own, whose zero is at the backsight: the first reading to it tells where.
void SurveyReading::AddRounds(std::vector<Shot>& rounds) {
  std::unordered_map<std::wstring, std::size_t> setupOf;
  std::unordered_map<std::size_t, double> zeroOf;
  std::size_t next = 0;
  for (Shot& round : rounds) {
    for (; next < m_survey.setups.size() && m_survey.setups[next].line < round.line; ++next) {
      setupOf[m_survey.setups[next].station] = next;
    }
    const auto found = setupOf.find(round.station);
    if (found == setupOf.end()) continue;
    const Setup& setup = m_survey.setups[found->second];
    if (round.target == setup.backsight) {
      const bool isFaceTwo = !IsNull(round.zenith) && std::sin(round.zenith) < 0;
      zeroOf.try_emplace(found->second, Difference(round.circle, isFaceTwo ? kPi : 0));
    }
    const auto zero = zeroOf.find(found->second);
    if (zero == zeroOf.end()) continue;
    round.setup = found->second;
    round.instrumentHeight = setup.instrumentHeight;
    round.azimuth = Sum(setup.backsightAzimuth, Difference(round.circle, zero->second));
    m_builder.AddShot(std::move(round));
  }
}

bool SurveyReading::ReadPair() {
  if (!CheckThere(m_path)) return false;
  const bool isFirstBrand = HasExtension(m_path, L".job");
  return ReadLog(Beside(m_path, isFirstBrand ? L".raw" : L".pwr"), m_path, true);
}

// A list is in the unit of the log beside it.
bool SurveyReading::ReadListAndLog() {
  const std::wstring path = Beside(m_path, L".rw5");
  CRawFile log;
  if (!CheckThere(path, DriverText::RawFileMissing)) return false;
  if (!log.Open(path, kOpenReadOnly)) return Fail(DriverText::CannotOpen, path);
  MO_RECORD mode;
  std::string_view line;
  if (log.FindRecord("MO", line)) std::ignore = CRawFile::Parse(line, mode);
  std::ignore = log.Close();
  const std::wstring job = Place(L"list.job");
  const LinearUnit unit = LinearUnitOfRaw(mode.distanceUnit).value_or(LinearUnit::Metre);
  return ListToJob(job, unit) && ReadLog(path, job, true);
}

// ---- Other texts

bool SurveyReading::ReadSdrFile() {
  CFileCE sdr;
  if (!CheckThere(m_path)) return false;
  if (!sdr.Open(m_path, kOpenReadOnly)) return Fail(DriverText::CannotOpen);
  const SdrLayout* layout = FindSdrLayout(sdr);
  if (layout == nullptr) return Say(FormatText(kNoSdr, m_path));
  ReadSdr(sdr, *layout, m_survey, m_builder);
  return !sdr.HasReadFailed() || Fail(DriverText::CannotConvert);
}

bool SurveyReading::ReadIlj() {
  CTextFile ilj(CTextFile::kUtf16LittleEndian);
  ilj.SetAllowUnicode(true);
  if (!CheckThere(m_path)) return false;
  if (!ilj.Open(m_path, kOpenReadOnly)) return Fail(DriverText::CannotOpen);
  Source source = ReadIljMarks(ilj, m_survey);
  ilj.Rewind();
  return ReadThroughDc(
      [&ilj](CDcFile& dc, Report& report) { return CConvILJtoDC().Convert(dc, ilj, report); },
      source);
}

}  // namespace

std::optional<Survey> ReadSurvey(const std::wstring& path, FileType type, StringList& messages,
                                 const ReadOptions& options) {
  std::optional<Survey> survey(std::in_place);
  survey->type = type;
  try {
    if (SurveyReading(path, options, *survey, messages).Read()) return survey;
  } catch (const ConversionFailure&) {
    messages.push_back(FormatDriverText(DriverText::CannotConvert, path));
  }
  return std::nullopt;
}

}  // namespace zelconvert::tools
