// zelconvert import-cr5 IN OUT: a job of a coordinate list.
#include <filesystem>
#include <string>

#include "cli/Commands.h"
#include "cli/Cr5Import.h"
#include "cli/DirectCommand.h"
#include "cli/FileNames.h"
#include "cli/Host.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

const TypeInfo& TypeOf(const std::string& asked, const fs::path& output) {
  if (!asked.empty()) return *FindType(asked);
  const TypeInfo* type = TypeNamed(output);
  if (type != nullptr && (type->type == FT_JOB || type->type == FT_PW_JOB)) return *type;
  throw HostFailure(kWrongUsage, "OUT is no .job or .pwj file; --to says what it is to be");
}

void Import(const fs::path& list, const fs::path& job, const Options& options, Outcome& outcome) {
  const FileType type = TypeOf(options.to, job).type;
  AddWarning(outcome.warnings, WarnOfContents(list));
  AddWarning(outcome.warnings, WarnOfOutputName(type, job));
  ImportCr5(list, job, type, UnitsNamed(options.units));
  if (options.units.empty()) {
    AddWarning(outcome.warnings, "the coordinates of " + platform::ToText(list) +
                                     " were taken to be metres; --units says otherwise");
  }
}

}  // namespace

ExitCode RunImportCr5(const Options& options) {
  return RunDirect(options, {{options.input, "cr5"}}, ExtensionNamed(options.to),
                   [&](const auto& inputs, const fs::path& job, Outcome& outcome) {
                     Import(inputs.front().GetPath(), job, options, outcome);
                   });
}

}  // namespace zelconvert::cli
