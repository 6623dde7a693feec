#include "front/Dispatch.h"

#include "front/CFileTypeManager.h"
#include "front/DriverRun.h"
#include "front/Drivers.h"
#include "io/Paths.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

void RunFromRaw(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted = ConvertFromRaw(request.outputType, request.input, request.output,
                                     outcome.files, outcome.messages, request.featureFile, false);
}

void RunFromJob(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted = ConvertFromJob(request.outputType, request.input, request.output,
                                     outcome.files, outcome.messages);
}

void RunDcIlj(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted = ConvertDcIlj(request.outputType, request.inputType, request.input,
                                   request.output, outcome.files, outcome.messages);
}

void RunToJob(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted = ConvertToJob(request.inputType, request.input, request.output, outcome.files,
                                   outcome.messages, request.outputType, request.units);
}

void RunJobRawPair(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted =
      ConvertJobRawPair(request.input, request.output, outcome.files, outcome.messages,
                        request.outputType, request.units, request.featureFile);
}

void RunCr5Rw5Pair(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.converted =
      ConvertCr5Rw5Pair(request.input, request.output, outcome.files, outcome.messages,
                        request.outputType, request.units, request.featureFile);
}

// A job beside the output that bridges two conversions; gone when this is.
class TemporaryJob {
 public:
  explicit TemporaryJob(const std::wstring& directory) {
    do {
      m_path = GetTempJobName(directory.c_str()) + L".job";
    } while (FileExists(m_path));
  }
  ~TemporaryJob() { platform::RemoveFile(m_path); }
  TemporaryJob(const TemporaryJob&) = delete;
  TemporaryJob& operator=(const TemporaryJob&) = delete;
  const std::wstring& GetPath() const { return m_path; }

 private:
  std::wstring m_path;
};

// CR5 and DC have no direct conversion. What the two stages report stays here.
void RunThroughJob(const ConvertRequest& request, ConvertOutcome& outcome) {
  outcome.reportsLists = false;
  if (platform::IsSameFile(request.input, request.output)) return;

  const TemporaryJob job(GetFolder(request.output));
  StringList files, messages, roadFiles;
  if (!ConvertToJob(request.inputType, request.input, job.GetPath(), files, messages, FT_JOB,
                    request.units, &roadFiles)) {
    return;
  }
  outcome.converted =
      ConvertFromJob(request.outputType, job.GetPath(), request.output, files, messages);
  if (outcome.converted) return;
  RemoveOutput(request.output);
  RemoveFiles(roadFiles);
}

struct Rule {
  TypeSet inputs;
  TypeSet outputs;
  void (*run)(const ConvertRequest& request, ConvertOutcome& outcome);
};

// The first that fits decides. This isn't the table of CFileTypeManager: a pair that a host is
// offered may be refused here, and one that it isn't offered is tried.
constexpr Rule kRules[] = {
    {kRawTypes, TypeSet::Any(), RunFromRaw},
    {kCr5Types, kDcTypes, RunThroughJob},
    {kDcTypes, kCr5Types, RunThroughJob},
    {kJobTypes, TypeSet::Any(), RunFromJob},
    {TypeSet::Of(FT_ILJ), kDcTypes, RunDcIlj},
    {kDcTypes, TypeSet::Of(FT_ILJ), RunDcIlj},
    {TypeSet::Any(), kJobTypes, RunToJob},
    {kJobRawTypes, kDcTypes, RunJobRawPair},
    {TypeSet::Of(FT_CR5_RW5), kDcTypes, RunCr5Rw5Pair},
};

}  // namespace

ConvertOutcome RunConversion(const ConvertRequest& request) {
  ConvertOutcome outcome;
  for (const Rule& rule : kRules) {
    if (rule.inputs.Contains(request.inputType) && rule.outputs.Contains(request.outputType)) {
      rule.run(request, outcome);
      return outcome;
    }
  }
  outcome.messages = {FormatDriverText(DriverText::NotSupported)};
  return outcome;
}

}  // namespace zelconvert
