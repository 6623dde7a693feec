// zelconvert, the command-line host of the library.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {

void PrintOut(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void PrintError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

void PrintWarning(const std::string& text) {
  if (!text.empty()) PrintError("zelconvert: warning: " + text + "\n");
}

namespace {

constexpr const char* kFooter =
    "Exit codes: 0 done, 1 the conversion failed, 2 wrong usage, 3 an input can't be read,\n"
    "4 an output can't be written.";

int Fail(ExitCode code, const std::string& text) {
  PrintError("zelconvert: " + text + "\n");
  return code;
}

int FailByUsage(const std::string& text) {
  return Fail(kWrongUsage, text + "\nRun \"zelconvert help\" for usage.");
}

// Null if there is none.
const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  const auto named = [&](const CLI::App* command) { return command->get_name() == name; };
  const auto commands = app.get_subcommands(named);
  return commands.empty() ? nullptr : commands.front();
}

// "zelconvert help" and "zelconvert help COMMAND".
void AddHelpCommand(CLI::App& app) {
  auto* command = app.add_subcommand("help", "Tell how to use a command");
  auto name = std::make_shared<std::string>();
  command->add_option("COMMAND", *name, "The command")->type_name("");
  command->callback([&app, name] {
    const CLI::App* subject = name->empty() ? &app : FindCommand(app, *name);
    if (subject == nullptr) throw HostFailure(kWrongUsage, "there is no command " + *name);
    PrintOut(app.get_formatter()->make_help(
        subject, name->empty() ? "zelconvert" : "zelconvert " + *name, CLI::AppFormatMode::Normal));
  });
}

int Run(std::vector<std::string> arguments) {
  int exitCode = kConverted;
  CLI::App app("Converts land-survey field data between file types.", "zelconvert");
  app.set_version_flag("--version", "zelconvert " ZELCONVERT_VERSION);
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // "/data/a.job" and "//server/a.job" are paths
  app.footer(kFooter);
  AddConvertCommand(app, exitCode);
  AddDetectCommand(app, exitCode);
  AddTypesCommand(app, exitCode);
  AddImportCr5Command(app);
  AddImportSdrCommand(app);
  AddMergeCommand(app);
  AddHelpCommand(app);

  if (!arguments.empty() && !arguments.front().starts_with('-') &&
      FindCommand(app, arguments.front()) == nullptr) {
    return FailByUsage("there is no command " + arguments.front());
  }
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // help and version
    return FailByUsage(error.what());
  } catch (const HostFailure& failure) {
    return Fail(failure.GetCode(), failure.what());
  } catch (const std::exception& error) {
    return Fail(kFailed, error.what());
  }
  return exitCode;
}

}  // namespace
}  // namespace zelconvert::cli

int main(int argc, char** argv) {
  using namespace zelconvert::cli;
  platform::PrepareProcess();
  const int exitCode = Run(platform::GetArguments(argc, argv));
  if (std::fflush(stdout) != 0) return Fail(kNoOutput, "standard output can't be written");
  return exitCode;
}
