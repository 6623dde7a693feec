// The commands of the host. Each returns its exit code, or throws a HostFailure.
#pragma once

#include "cli/Host.h"
#include "cli/Options.h"

namespace zelconvert::cli {

ExitCode RunConvert(const Options& options);
ExitCode RunBatch(const Options& options);
ExitCode RunDetect(const Options& options);
ExitCode RunGenerate(const Options& options);
ExitCode RunTypes(const Options& options);
ExitCode RunInfo(const Options& options);
ExitCode RunPoints(const Options& options);
ExitCode RunImportCr5(const Options& options);
ExitCode RunImportSdr(const Options& options);
ExitCode RunMerge(const Options& options);
ExitCode RunDiff(const Options& options);
ExitCode RunPlot(const Options& options);

}  // namespace zelconvert::cli
