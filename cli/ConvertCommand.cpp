// zelconvert convert IN OUT.
#include <string>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/ConvertRun.h"
#include "cli/FileTypes.h"
#include "cli/GivenFiles.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

void RunConversion(const Options& options, const InputFile& input, const OutputFile& output,
                   Outcome& outcome) {
  const ConvertPlan plan = MakePlan(input.GetPath(), output.GetPath(), options);
  outcome.about = Describe(plan.conversion, input.GetName(), output.GetName());
  outcome.warnings = plan.warnings;
  RunPlan(plan, options.force, outcome);
  output.Send(outcome);
}

void CheckStreams(const Options& options) {
  if (options.json && IsStandardStream(options.output)) {
    throw HostFailure(kWrongUsage, "standard output can't take both OUT and what --json prints");
  }
  const TypeInfo* from = FindType(options.from);
  if (from != nullptr && IsPair(from->type) && IsStandardStream(options.input)) {
    throw HostFailure(kWrongUsage, "standard input is one file, " + options.from + " are two");
  }
}

}  // namespace

ExitCode RunConvert(const Options& options) {
  Outcome outcome;
  Attempt(outcome, [&] {
    CheckStreams(options);
    const OutputFile output(options.output, ExtensionNamed(options.to));
    const InputFile input(options.input, ExtensionNamed(options.from));
    Attempt(outcome, [&] { RunConversion(options, input, output, outcome); });
    input.RenameIn(outcome);
    output.RenameIn(outcome);
  });
  return Tell(outcome, options.json);
}

}  // namespace zelconvert::cli
