// The commands of the host. Each adds itself to the application; when its name is on the command
// line it runs while the line is parsed and leaves its exit code, or throws a HostFailure.
#pragma once

namespace CLI {
class App;
}

namespace zelconvert::cli {

void AddConvertCommand(CLI::App& app, int& exitCode);
void AddDetectCommand(CLI::App& app, int& exitCode);
void AddTypesCommand(CLI::App& app, int& exitCode);
void AddImportCr5Command(CLI::App& app);
void AddImportSdrCommand(CLI::App& app);
void AddMergeCommand(CLI::App& app);

}  // namespace zelconvert::cli
