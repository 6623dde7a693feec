#include "front/Drivers.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>

#include "dc/CConvDcFile.h"
#include "dc/CDcFile.h"
#include "front/CFileTypeManager.h"
#include "front/DriverRun.h"
#include "ilj/CConvDCtoILJ.h"
#include "ilj/CConvILJtoDC.h"
#include "io/CFileCE.h"
#include "io/CTextFile.h"
#include "io/Paths.h"
#include "job/CConvCR5File.h"
#include "job/CJobFile.h"
#include "jxl/CConvertJobXml.h"
#include "platform/Platform.h"
#include "raw/sdr/CConvRawSDRFile.h"
#include "raw/todc/CConvRawDCFile.h"
#include "raw/todc/JobPoints.h"

namespace zelconvert {
namespace {

using platform::kCreateOutput;
using platform::kOpenText;

// How a job of each type is made. The brand is the one of ".job" files.
struct JobOutput {
  FileType type;
  std::uint16_t version;
  bool brand;
};
constexpr JobOutput kJobOutputs[] = {
    {FT_JOB, kJobVersion, true},
    {FT_OLD_JOB, kOldJobVersion, true},
    {FT_PW_JOB, kJobVersion, false},
};

// The dialect numbers of a DC type. A raw log takes the newest for the plain type.
struct DcDialect {
  FileType type;
  int fromJob;
  int fromRaw;
};
constexpr DcDialect kDcDialects[] = {
    {FT_DC, 2, 3},
    {FT_DC77, 1, 1},
    {FT_DC1000, 2, 2},
    {FT_DC1070, 3, 3},
};

// Of a DC file that is read, where it makes no difference.
constexpr int kNewestDialect = 3;

/// The row of a type that has one.
template <class Row, std::size_t size>
const Row& Find(const Row (&rows)[size], int type) {
  return *std::find_if(rows, rows + size - 1, [type](const Row& row) { return row.type == type; });
}

[[nodiscard]] bool Refuse(Report& report) {
  return report.Refuse(FormatDriverText(DriverText::NotSupported));
}

[[nodiscard]] bool CreateOutput(CFileCE& file, const std::wstring& path) {
  return file.OpenForWrite(path);
}
[[nodiscard]] bool CreateOutput(CJxlFile& file, const std::wstring& path) {
  return file.Create(path);
}

// Raw logs

/// By the name alone, in lower case: other logs are those of the second brand.
[[nodiscard]] bool IsNative(const std::wstring& rawPath) {
  return HasExtension(rawPath, L".raw") || HasExtension(rawPath, L".rw5");
}

/// The output would take the place of the job that a log refers to.
[[nodiscard]] bool IsSameJob(const ConvertRequest& request) {
  return IsJobPath(request.featureFile) &&
         platform::IsSameFile(request.featureFile, request.output);
}

/// convert: called with the open log. mayCreate: false if the output would harm another file.
template <class Output, class Convert>
[[nodiscard]] bool FromRaw(const ConvertRequest& request, Report& report, Output& output,
                           Convert convert, bool mayCreate = true) {
  CRawFile raw;
  return Execute(
      request, report,
      {
          .missing = DriverText::RawFileMissing,
          .openInput = [&] { return raw.OpenForRead(request.input); },
          .createOutput = [&] { return mayCreate && CreateOutput(output, request.output); },
          .convert = [&] { return convert(raw); },
          .closing = {Closer(raw), Closer(output)},
      });
}

/// isPaired: a job of the same name stands beside the log.
[[nodiscard]] bool ReduceRaw(const ConvertRequest& request, Report& report, bool isPaired) {
  CDcFile dc;
  const int dialect = Find(kDcDialects, request.outputType).fromRaw;
  const auto convert = [&](CRawFile& raw) {
    return CConvRawDCFile(&raw, &dc, isPaired, dialect, request.featureFile).ConvertFromRaw(report);
  };
  return FromRaw(request, report, dc, convert, !IsSameJob(request));
}

/// A failure takes away what stood at the output, even if it wasn't made here; only a file of the
/// pair itself stays.
[[nodiscard]] bool PairToDc(const ConvertRequest& pair, std::wstring_view extension,
                            Report& report) {
  const std::wstring& input = pair.input;
  ConvertRequest request = pair;
  request.input = input.substr(0, input.size() - std::min<std::size_t>(input.size(), 4));
  request.input += extension;
  const bool isInput = platform::IsSameFile(input, pair.output);
  if (isInput && FileExists(request.input)) {
    return report.Refuse(FormatDriverText(DriverText::CannotCreate, pair.output));
  }
  if (ReduceRaw(request, report, true)) return true;
  if (!isInput && !platform::IsSameFile(request.input, pair.output) && !IsSameJob(pair)) {
    RemoveOutput(pair.output);
  }
  return false;
}

// Jobs

/// convert: called with the open job, of the brand that the exact extension ".job" stands for.
template <class Output, class Convert>
[[nodiscard]] bool FromJob(const ConvertRequest& request, Report& report, Output& output,
                           Convert convert) {
  CJobFile job(HasExtension(request.input, L".job"));
  return Execute(request, report,
                 {
                     .openInput = [&] { return job.Open(request.input, false); },
                     .createOutput = [&] { return CreateOutput(output, request.output); },
                     .convert = [&] { return convert(job); },
                     .closing = {Closer(job.GetFile()), Closer(output)},
                 });
}

[[nodiscard]] bool OpenInput(CDcFile& file, const std::wstring& path) {
  return file.OpenForRead(path);
}
/// Of a CR5 file, which no route opens.
[[nodiscard]] bool OpenInput(CFileCE& /*file*/, const std::wstring& /*path*/) {
  return true;
}

/// convert: called with the job that was made. An input that isn't open has to be told from the
/// output, in whose place it would be emptied.
template <class Input, class Convert>
[[nodiscard]] bool ToJob(const ConvertRequest& asked, Report& report, Input& input,
                         Convert convert) {
  ConvertRequest request = asked;
  if (asked.output.empty()) request.output = MakeTempJob(nullptr, {});
  const JobOutput& form = Find(kJobOutputs, request.outputType);
  CJobFile job(form.brand);
  const bool converted = Execute(
      request, report,
      {
          .openInput = [&] { return OpenInput(input, request.input); },
          .createOutput =
              [&] {
                return (input.IsOpen() || !platform::IsSameFile(request.output, request.input)) &&
                       job.Create(request.output, form.version);
              },
          .convert = [&] { return convert(job); },
          .closing = {Closer(job.GetFile()), Closer(input)},
      });
  if (!converted && asked.output.empty()) RemoveOutput(request.output);
  return converted;
}

// A job beside the output that bridges two conversions; gone when this is.
class TemporaryJob {
 public:
  explicit TemporaryJob(const std::wstring& directory)
      : m_path(MakeTempJob(directory.c_str(), L".job")) {}
  ~TemporaryJob() { std::ignore = platform::RemoveFile(m_path); }
  TemporaryJob(const TemporaryJob&) = delete;
  TemporaryJob& operator=(const TemporaryJob&) = delete;
  const std::wstring& GetPath() const { return m_path; }

 private:
  std::wstring m_path;
};

using Stage = bool (*)(const ConvertRequest& request, Report& report);

// True when both stages are. `made`: what the first one reports.
[[nodiscard]] bool RunStages(const ConvertRequest& request, Stage toJob, Stage fromJob,
                             Report& made) {
  const TemporaryJob job(GetFolder(request.output));
  ConvertRequest first = request, second = request;
  first.output = second.input = job.GetPath();
  first.outputType = second.inputType = FT_JOB;
  Report ignored;
  return toJob(first, made) && fromJob(second, ignored);
}

// Nobody is told why such a conversion fails, not even if memory is short.
[[nodiscard]] bool ThroughJob(const ConvertRequest& request, Stage toJob, Stage fromJob) {
  if (platform::IsSameFile(request.input, request.output)) return false;
  Report made;
  try {
    if (RunStages(request, toJob, fromJob, made)) return true;
  } catch (...) {
  }
  if (!made.files.empty()) RemoveOutput(request.output);
  RemoveFiles(made.beside);
  return false;
}

}  // namespace

bool RawToDc(const ConvertRequest& request, Report& report) {
  return ReduceRaw(request, report, false);
}

bool RawToSdr(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return FromRaw(request, report, file, [&](CRawFile& raw) {
    CConvRawSDRFile conversion(&raw, &file);
    conversion.SetSdrVersion(request.outputType == FT_SDR2 ? SdrVersion::Sdr2 : SdrVersion::Sdr33);
    return conversion.ConvertFromRaw(report);
  });
}

bool RawToJxl(const ConvertRequest& request, Report& report) {
  CJxlFile jxl(IsNative(request.input));
  return FromRaw(request, report, jxl,
                 [&](CRawFile& raw) { return CConvertJobXml().Convert(raw, jxl, report); });
}

bool RefuseRaw(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return FromRaw(request, report, file, [&](CRawFile&) { return Refuse(report); });
}

bool JobRawToDc(const ConvertRequest& request, Report& report) {
  return PairToDc(request, HasExtension(request.input, L".job") ? L".raw" : L".pwr", report);
}

bool Cr5Rw5ToDc(const ConvertRequest& request, Report& report) {
  return PairToDc(request, L".rw5", report);
}

bool JobToDc(const ConvertRequest& request, Report& report) {
  CDcFile dc;
  return FromJob(request, report, dc, [&](CJobFile& job) {
    return CConvDcFile(&dc, &job, Find(kDcDialects, request.outputType).fromJob)
        .ConvertFromNative(report);
  });
}

bool JobToCr5(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return FromJob(request, report, file, [&](CJobFile& job) {
    return CConvCR5File(&file, &job, request.outputType == FT_SEQ_CR5).ConvertFromNative(report);
  });
}

bool RefuseJob(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return FromJob(request, report, file, [&](CJobFile&) { return Refuse(report); });
}

bool DcToJob(const ConvertRequest& request, Report& report) {
  CDcFile dc;
  return ToJob(request, report, dc, [&](CJobFile& job) {
    return CConvDcFile(&dc, &job, kNewestDialect).ConvertToNative(report);
  });
}

bool Cr5ToJob(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return ToJob(request, report, file, [&](CJobFile& job) {
    CConvCR5File conversion(&file, &job, false);
    conversion.SetUnits(request.units);
    return conversion.ConvertToNative(report);
  });
}

bool MakeEmptyJob(const ConvertRequest& request, Report& report) {
  CFileCE file;
  return ToJob(request, report, file, [&](CJobFile&) {
    std::ignore = Refuse(report);
    return true;
  });
}

bool DcToIlj(const ConvertRequest& request, Report& report) {
  CDcFile dc;
  CTextFile ilj(CTextFile::kUtf8);
  CTextFile::s_bUnicodeAllowed = true;  // from now on, in the whole process
  return Execute(
      request, report,
      {
          .openInput = [&] { return dc.OpenForRead(request.input); },
          .createOutput =
              [&] { return ilj.Open(request.output, kCreateOutput, CTextFile::kUtf8, true); },
          .convert = [&] { return CConvDCtoILJ().Convert(dc, ilj, report); },
          .closing = {Closer(ilj), Closer(dc)},
      });
}

bool IljToDc(const ConvertRequest& request, Report& report) {
  CTextFile ilj(CTextFile::kUtf16LittleEndian);
  CDcFile dc;
  ilj.SetAllowUnicode(true);
  return Execute(request, report,
                 {
                     .openInput = [&] { return ilj.Open(request.input, kOpenText); },
                     .createOutput = [&] { return dc.OpenForWrite(request.output); },
                     .convert = [&] { return CConvILJtoDC().Convert(dc, ilj, report); },
                     .closing = {Closer(dc), Closer(ilj)},
                 });
}

bool Cr5ToDc(const ConvertRequest& request, Report& /*report*/) {
  return ThroughJob(request, Cr5ToJob, JobToDc);
}

bool DcToCr5(const ConvertRequest& request, Report& /*report*/) {
  return ThroughJob(request, DcToJob, JobToCr5);
}

}  // namespace zelconvert
