// zelconvert convert IN OUT.
#include <string>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/ConvertRun.h"
#include "cli/GivenFiles.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

void RunConversion(const Options& options, const InputFile& input, const OutputFile& output,
                   Outcome& outcome) {
  const ConvertPlan plan = MakePlan(input, output.GetPath(), options);
  outcome.about = Describe(plan.conversion, input.GetName(), output.GetName());
  outcome.warnings = plan.warnings;
  ConvertRun().Run(plan, options.force, outcome);
  platform::FlushFolder(output.GetPath().parent_path());
  output.Send(outcome);
}

}  // namespace

ExitCode RunConvert(const Options& options) {
  Outcome outcome;
  Attempt(outcome, [&] {
    const OutputFile output(options.output, ExtensionNamed(options.to), options.json);
    const InputFile input(options.input, options.from);
    Attempt(outcome, [&] { RunConversion(options, input, output, outcome); });
    input.RenameIn(outcome);
    output.RenameIn(outcome);
  });
  return Tell(outcome, options.json);
}

}  // namespace zelconvert::cli
