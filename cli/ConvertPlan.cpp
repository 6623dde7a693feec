#include "cli/ConvertPlan.h"

#include <filesystem>

#include "cli/Cr5Import.h"
#include "cli/FileChecks.h"
#include "cli/FileNames.h"
#include "cli/FileTypes.h"
#include "cli/Host.h"
#include "cli/InputType.h"
#include "cli/Outcome.h"
#include "cli/Verify.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

const TypeInfo& TypeOfOutput(const std::string& asked, const fs::path& output) {
  if (!asked.empty()) return *FindType(asked);
  if (const TypeInfo* type = TypeNamed(output)) return *type;
  throw HostFailure(kWrongUsage, "the name " + ToText(output) + " tells no type; --to does");
}

std::string TellOutputs(const TypeInfo& from) {
  const std::string name(from.name);
  const std::string outputs = OutputNames(from);
  if (!outputs.empty()) return name + " converts to " + outputs;
  if (!from.command.empty()) return "see zelconvert help " + std::string(from.command);
  return "nothing is made from " + name;
}

void CheckRoute(const TypeInfo& from, const TypeInfo& to) {
  if (ConvertsTo(from, to)) return;
  throw HostFailure(kWrongUsage, "there is no conversion from " + std::string(from.name) + " to " +
                                     std::string(to.name) + "; " + TellOutputs(from));
}

// Whose points the log is given. Those of a coordinate list have to become a job first.
fs::path JobOfPoints(const Options& options, const TypeInfo& from, const TypeInfo& to,
                     const fs::path& input) {
  if (!options.job) return from.type == FT_JOB_RAW || from.type == FT_PW_JOB_RAW ? input : "";
  const bool isLog = from.type == FT_RAW || from.type == FT_RW5 || from.type == FT_PW_RAW;
  if (!isLog || GetExtension(to.type) != ".dc") {
    throw HostFailure(kWrongUsage, "--job is for making a DC file of a raw log alone");
  }
  return CheckJob(*options.job);
}

}  // namespace

ConvertPlan MakePlan(const InputFile& file, const fs::path& output, const Options& options) {
  const fs::path& input = file.GetPath();
  const TypeInfo& from = file.GetType();
  const OutputPlace place(output);
  place.CheckNoFolder();
  const TypeInfo& to = TypeOfOutput(options.to, output);
  CheckRoute(from, to);
  if (options.verify) CheckVerifiable(to.type);

  ConvertPlan plan{{from.type, to.type, input, output, FileRead(from.type, input),
                    JobOfPoints(options, from, to, input)},
                   {},
                   options.verify,
                   options.keep};
  const Conversion& asked = plan.conversion;
  const bool isRead = options.from.empty() && asked.read == input;  // to tell its type
  if (!isRead) CheckReadable(asked.read);
  for (const fs::path& each : {input, asked.read, asked.job}) place.CheckDistinct(each);
  place.CheckReplaceable(options.force);
  AddWarning(plan.warnings, WarnOfInputName(from.type, input));
  if (!asked.job.empty()) AddWarning(plan.warnings, WarnOfJobName(asked.job));
  AddWarning(plan.warnings, WarnOfOutputName(to.type, output));
  if (from.type == FT_CR5_RW5) AddWarning(plan.warnings, WarnOfContents(input));
  return plan;
}

Json::Object Describe(const Conversion& conversion, const std::string& input,
                      const std::string& output) {
  return {{"input", input},
          {"from", std::string(FindType(conversion.from)->name)},
          {"output", output},
          {"to", std::string(FindType(conversion.to)->name)}};
}

}  // namespace zelconvert::cli
