#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <type_traits>
#include <variant>

#include "cli/CommandTable.h"

namespace zelconvert::cli {
namespace {

void AddOption(CLI::App& command, const OptionInfo& info, Options& options) {
  const std::string name(info.name), help(info.help);
  const auto add = [&](auto target) {
    if constexpr (std::is_same_v<decltype(target), bool Options::*>) {
      return command.add_flag(name, options.*target, help);
    } else {
      return command.add_option(name, options.*target, help);
    }
  };
  CLI::Option* option = std::visit(add, info.target);
  option->required(info.IsRequired());
  if (info.value != Value::None) option->type_name(std::string(info.valueName));
  if (info.value != Value::Choice) return;
  // The choices stand in the footer or in the option's own text.
  const std::vector<std::string> choices(info.choices.begin(), info.choices.end());
  option->check(CLI::IsMember(choices).description(""));
}

void AddCommand(CLI::App& app, const CommandInfo& info, Options& options) {
  CLI::App& command = *app.add_subcommand(std::string(info.name), std::string(info.help));
  for (const OptionInfo& option : info.options) AddOption(command, option, options);
  if (!info.footer.empty()) command.footer(std::string(info.footer));
}

void AddCommands(CLI::App& app, Options& options) {
  app.set_version_flag("--version", "zelconvert " ZELCONVERT_VERSION);
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // "/data/a.job" and "//server/a.job" are paths
  app.footer(std::string(kHostFooter));
  for (const CommandInfo& info : GetCommands()) AddCommand(app, info, options);
}

ExitCode Help(CLI::App& app, const std::string& name) {
  if (!name.empty() && FindCommand(name) == nullptr) {
    throw HostFailure(kWrongUsage, "there is no command " + name);
  }
  const CLI::App* subject = name.empty() ? &app : app.get_subcommand(name);
  PrintOut(app.get_formatter()->make_help(
      subject, name.empty() ? "zelconvert" : "zelconvert " + name, CLI::AppFormatMode::Normal));
  return kConverted;
}

ExitCode FailByUsage(const std::string& text) {
  return Fail(kWrongUsage, text + "\nRun \"zelconvert help\" for usage.");
}

}  // namespace

ExitCode RunCommandLine(std::vector<std::string> arguments) {
  if (!arguments.empty() && !arguments.front().starts_with('-') &&
      FindCommand(arguments.front()) == nullptr) {
    return FailByUsage("there is no command " + arguments.front());
  }
  Options options;
  CLI::App app(std::string(kHostHelp), "zelconvert");
  AddCommands(app, options);
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
    app.parse(std::move(arguments));
    const CommandInfo& command = *FindCommand(app.get_subcommands().front()->get_name());
    return command.run == nullptr ? Help(app, options.subject) : command.run(options);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != 0) return FailByUsage(error.what());
    app.exit(error);  // prints help or version
    return kConverted;
  } catch (const HostFailure& failure) {
    return Fail(failure.GetCode(), failure.what());
  } catch (const std::exception& error) {
    return Fail(kFailed, error.what());
  }
}

}  // namespace zelconvert::cli
