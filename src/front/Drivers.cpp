#include "front/Drivers.h"

#include <algorithm>
#include <cstdint>

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
using platform::kOpenReadWrite;
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

/// The row of a type, or null.
template <class Row, std::size_t size>
const Row* Find(const Row (&rows)[size], int type) {
  const Row* row =
      std::find_if(rows, rows + size, [type](const Row& each) { return each.type == type; });
  return row == rows + size ? nullptr : row;
}

bool RefusePair(StringList& messages) {
  messages.push_back(FormatDriverText(DriverText::NotSupported));
  return false;
}

bool ReadCr5(CFileCE& file, CJobFile& job, int units, StringList& messages, StringList& files) {
  CConvCR5File conversion(&file, &job, false);
  conversion.SetDirection(true);
  conversion.SetUnits(units);
  return conversion.ConvertToNative(messages, files);
}

bool WriteCr5(CFileCE& file, CJobFile& job, bool sequential, StringList& messages,
              StringList& files) {
  CConvCR5File conversion(&file, &job, sequential);
  conversion.SetDirection(false);
  return conversion.ConvertFromNative(messages, files);
}

bool ReadDc(CDcFile& file, CJobFile& job, StringList& messages, StringList& files) {
  CConvDcFile conversion(&file, &job, kNewestDialect);
  conversion.SetDirection(true);
  return conversion.ConvertToNative(messages, files);
}

bool WriteDc(CDcFile& file, CJobFile& job, int dialect, StringList& messages, StringList& files) {
  CConvDcFile conversion(&file, &job, dialect);
  conversion.SetDirection(false);
  return conversion.ConvertFromNative(messages, files);
}

bool WriteSdr(CRawFile& raw, CFileCE& file, int outputType, StringList& messages) {
  CConvRawSDRFile conversion(&raw, &file);
  conversion.SetSdrVersion(outputType == FT_SDR2 ? SdrVersion::Sdr2 : SdrVersion::Sdr33);
  return conversion.ConvertFromRaw(messages);
}

}  // namespace

bool ConvertToJob(int inputType, const std::wstring& input, const std::wstring& output,
                  StringList& files, StringList& messages, int outputType, int units,
                  StringList* roadFiles) {
  const JobOutput* form = Find(kJobOutputs, outputType);
  if (form == nullptr) return false;
  const std::wstring jobPath = output.empty() ? GetTempJobName(nullptr) : output;
  const bool fromDc = kDcTypes.Contains(inputType);

  CFileCE file;  // of a CR5 input, which nobody opens: that conversion fails at its first read
  CJobFile job(form->brand);
  CDcFile dcFile;
  StringList ownRoadFiles;
  StringList& beside = roadFiles != nullptr ? *roadFiles : ownRoadFiles;
  return Execute({
      .input = input,
      .output = jobPath,
      .files = files,
      .messages = messages,
      .missing = DriverText::FileMissing,
      .openInput = [&] { return !fromDc || dcFile.OpenForRead(input); },
      .createOutput = [&] { return job.Create(jobPath, form->version); },
      .convert =
          [&] {
            if (kCr5Types.Contains(inputType)) return ReadCr5(file, job, units, messages, files);
            if (fromDc) return ReadDc(dcFile, job, messages, beside);
            // Unlike elsewhere the job that was made is kept: empty, and a success.
            RefusePair(messages);
            return true;
          },
      .closing = {Closer(file), Closer(job.GetFile()), Closer(dcFile)},
      .beside = &beside,
  });
}

bool ConvertFromJob(int outputType, const std::wstring& input, const std::wstring& output,
                    StringList& files, StringList& messages) {
  const DcDialect* dialect = Find(kDcDialects, outputType);

  CJobFile job(HasExtension(input, L".job"));
  CFileCE file;
  CDcFile dcFile;
  return Execute({
      .input = input,
      .output = output,
      .files = files,
      .messages = messages,
      .missing = DriverText::FileMissing,
      .openInput = [&] { return job.Open(input, false); },
      .createOutput =
          [&] {
            return dialect != nullptr ? dcFile.OpenForWrite(output)
                                      : file.Open(output, kCreateOutput);
          },
      .convert =
          [&] {
            if (kCr5Types.Contains(outputType)) {
              return WriteCr5(file, job, outputType == FT_SEQ_CR5, messages, files);
            }
            if (dialect != nullptr) {
              return WriteDc(dcFile, job, dialect->fromJob, messages, files);
            }
            return RefusePair(messages);
          },
      .closing = {Closer(job.GetFile()), Closer(file), Closer(dcFile)},
  });
}

bool ConvertDcIlj(int outputType, int inputType, const std::wstring& input,
                  const std::wstring& output, StringList& files, StringList& messages) {
  const bool fromDc = kDcTypes.Contains(inputType);
  const bool toDc = kDcTypes.Contains(outputType);

  CTextFile inputText(CTextFile::kUtf16LittleEndian);
  CTextFile outputText(CTextFile::kUtf8);
  CDcFile inputDc;
  CDcFile outputDc;
  inputText.SetAllowUnicode(true);
  if (!toDc) CTextFile::s_bUnicodeAllowed = true;  // from now on, in the whole process
  return Execute({
      .input = input,
      .output = output,
      .files = files,
      .messages = messages,
      .missing = DriverText::FileMissing,
      .openInput =
          [&] { return fromDc ? inputDc.OpenForRead(input) : inputText.Open(input, kOpenText); },
      .createOutput =
          [&] {
            return toDc ? outputDc.OpenForWrite(output)
                        : outputText.Open(output, kCreateOutput, CTextFile::kUtf8, true);
          },
      .convert =
          [&] {
            if (toDc) return CConvILJtoDC().Convert(outputDc, inputText, messages, files);
            if (outputType != FT_ILJ) return RefusePair(messages);
            return fromDc && CConvDCtoILJ().Convert(inputDc, outputText, messages, files);
          },
      .closing = {Closer(outputText), Closer(outputDc), Closer(inputText), Closer(inputDc)},
  });
}

namespace {

/// The output would take the place of the job that a log refers to.
bool IsSameJob(const std::wstring& jobPath, const std::wstring& output) {
  return IsJobPath(jobPath) && platform::IsSameFile(jobPath, output);
}

}  // namespace

bool ConvertFromRaw(int outputType, const std::wstring& input, const std::wstring& output,
                    StringList& files, StringList& messages, const std::wstring& jobPath,
                    bool bPaired) {
  // By the name alone, in lower case: other logs are those of the second brand.
  const bool bNative = HasExtension(input, L".raw") || HasExtension(input, L".rw5");
  const DcDialect* dialect = Find(kDcDialects, outputType);

  CRawFile raw;
  CFileCE file;
  CDcFile dcFile;
  CJxlFile jxlFile(bNative);
  return Execute({
      .input = input,
      .output = output,
      .files = files,
      .messages = messages,
      .missing = DriverText::RawFileMissing,
      .openInput = [&] { return raw.Open(input, kOpenReadWrite); },
      .createOutput =
          [&] {
            if (dialect != nullptr) {
              return !IsSameJob(jobPath, output) && dcFile.OpenForWrite(output);
            }
            if (outputType == FT_JXL) return jxlFile.Create(output);
            return file.Open(output, kCreateOutput);
          },
      .convert =
          [&] {
            if (dialect != nullptr) {
              return CConvRawDCFile(&raw, &dcFile, bPaired, bNative, dialect->fromRaw, jobPath)
                  .ConvertFromRaw(messages);
            }
            if (outputType == FT_JXL) {
              return CConvertJobXml(bNative).Convert(raw, jxlFile, messages, files);
            }
            if (kSdrTypes.Contains(outputType)) return WriteSdr(raw, file, outputType, messages);
            return RefusePair(messages);
          },
      .closing = {Closer(raw), Closer(file), Closer(dcFile), Closer(jxlFile)},
  });
}

namespace {

// The raw log that belongs to `input` goes to the driver of raw logs. What stood at `output` is
// gone on failure, even if it wasn't made here; only a file of the pair itself stays.
bool ConvertPair(const std::wstring& input, const std::wstring& rawPath, const std::wstring& output,
                 StringList& files, StringList& messages, int outputType,
                 const std::wstring& jobPath) {
  if (platform::IsSameFile(input, output) && FileExists(rawPath)) {
    messages.push_back(FormatDriverText(DriverText::CannotCreate, output));
    return false;
  }
  if (ConvertFromRaw(outputType, rawPath, output, files, messages, jobPath, true)) return true;
  if (!platform::IsSameFile(input, output) && !platform::IsSameFile(rawPath, output) &&
      !IsSameJob(jobPath, output)) {
    RemoveOutput(output);
  }
  return false;
}

/// `path` with its last four characters replaced.
std::wstring ReplaceEnd(const std::wstring& path, std::wstring_view extension) {
  return path.substr(0, path.size() - std::min<std::size_t>(path.size(), 4)).append(extension);
}

}  // namespace

bool ConvertJobRawPair(std::wstring input, std::wstring output, StringList& files,
                       StringList& messages, int outputType, int /*units*/,
                       const std::wstring& jobPath) {
  const std::wstring rawPath = ReplaceEnd(input, HasExtension(input, L".job") ? L".raw" : L".pwr");
  return ConvertPair(input, rawPath, output, files, messages, outputType, jobPath);
}

bool ConvertCr5Rw5Pair(std::wstring input, std::wstring output, StringList& files,
                       StringList& messages, int outputType, int /*units*/,
                       const std::wstring& jobPath) {
  return ConvertPair(input, ReplaceEnd(input, L".rw5"), output, files, messages, outputType,
                     jobPath);
}

}  // namespace zelconvert
