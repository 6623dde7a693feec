#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <exception>
#include <type_traits>
#include <variant>

#include "cli/CommandTable.h"
#include "cli/Json.h"
#include "cli/NearMisses.h"

namespace zelconvert::cli {
namespace {

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

// Each paragraph begins a line.
std::string Wrapped(std::string_view text) {
  constexpr std::size_t kWidth = 79;
  std::string wrapped;
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
    const bool fits = length + 1 + (end - at) <= kWidth;
    if (length != 0) wrapped += fits ? ' ' : '\n';
    length = (fits && length != 0 ? length + 1 : 0) + end - at;
    wrapped += text.substr(at, end - at);
    if (end < text.size() && text[end] == '\n') {
      wrapped += '\n';
      length = 0;
    }
    at = end + 1;
  }
  return wrapped;
}

// The choices stand in the footer or in the option's own text.
CLI::Validator OneOf(const OptionInfo& info) {
  const auto find = [&info](const std::string& word) -> std::string {
    if (std::ranges::find(info.choices, word) != info.choices.end()) return {};
    throw HostFailure(kWrongUsage, TellUnknown(Lower(info.valueName), word, info.choices));
  };
  return CLI::Validator(find, "");
}

CLI::Validator Count(const OptionInfo& info) {
  const auto check = [&info](const std::string& word) -> std::string {
    constexpr std::size_t kMostDigits = 9;
    const bool isNumber = word.find_first_not_of("0123456789") == std::string::npos &&
                          word.size() <= kMostDigits && std::atoi(word.c_str()) > 0;
    if (isNumber) return {};
    throw HostFailure(kWrongUsage,
                      std::string(info.name) + " takes a number from 1 up, not '" + word + "'");
  };
  return CLI::Validator(check, "");
}

void AddOption(CLI::App& command, const OptionInfo& info, Options& options) {
  const std::string name(info.name), help(info.help);
  const auto add = [&](auto target) {
    if constexpr (std::is_same_v<decltype(target), std::monostate>) {
      return command.set_help_flag(name, help);
    } else if constexpr (std::is_same_v<decltype(target), bool Options::*>) {
      return command.add_flag(name, options.*target, help);
    } else {
      return command.add_option(name, options.*target, help);
    }
  };
  CLI::Option* option = std::visit(add, info.target);
  option->required(info.IsRequired());
  if (info.value != Value::None) option->type_name(std::string(info.valueName));
  if (info.value == Value::Choice) option->check(OneOf(info));
  if (info.value == Value::Number) option->check(Count(info));
}

CLI::App& AddCommand(CLI::App& app, const CommandInfo& info, Options& options) {
  CLI::App& command = *app.add_subcommand(std::string(info.name), std::string(info.help));
  for (const OptionInfo* option : OptionsOf(info)) AddOption(command, *option, options);
  command.footer(Wrapped(info.details));
  command.allow_extras();  // which are told in words of the host's own
  return command;
}

// only: the one that is run, which has no need of the others. A short run is kept short by it.
void AddCommands(CLI::App& app, Options& options, const CommandInfo* only) {
  app.set_version_flag("--version", "zelconvert " ZELCONVERT_VERSION);
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // "/data/a.job" and "//server/a.job" are paths
  for (const Section& section : GetSections()) {
    if (section.title == "Exit codes") app.footer("Exit codes:\n" + Wrapped(section.text));
  }
  if (only != nullptr) {
    AddCommand(app, *only, options);
    return;
  }
  for (const CommandInfo& info : GetCommands()) AddCommand(app, info, options);
}

std::string TellUnknownCommand(std::string_view name) {
  std::vector<std::string_view> names;
  for (const CommandInfo& info : GetCommands()) names.push_back(info.name);
  return TellUnknown("command", name, names);
}

std::string TellExtra(const CommandInfo& command, const std::string& word) {
  if (!word.starts_with('-')) return "'" + word + "' is one argument too many";
  std::vector<std::string_view> names;
  for (const OptionInfo* option : OptionsOf(command)) {
    if (!option->IsArgument()) names.push_back(Spellings(option->name).back());
  }
  return TellUnknown("option", word.substr(0, word.find('=')), names);
}

// What stands on the command line and belongs nowhere comes before what is missing.
std::string TellExtras(const CLI::App& app) {
  for (const CLI::App* command : app.get_subcommands()) {
    const std::vector<std::string> words = command->remaining();
    if (!words.empty()) return TellExtra(*FindCommand(command->get_name()), words.front());
  }
  return {};
}

Json::Object ToJson(const OptionInfo& info) {
  Json::List spellings, choices;
  for (const std::string_view each : Spellings(info.name))
    spellings.emplace_back(std::string(each));
  for (const std::string_view each : info.choices) choices.emplace_back(std::string(each));
  return {{"names", std::move(spellings)},
          {"help", std::string(info.help)},
          {"value", std::string(info.valueName)},
          {"choices", std::move(choices)},
          {"required", info.IsRequired()}};
}

ExitCode PrintTable(const std::string& subject) {
  Json::List commands;
  for (const CommandInfo& info : GetCommands()) {
    if (!subject.empty() && info.name != subject) continue;
    Json::List options;
    for (const OptionInfo* option : OptionsOf(info)) options.emplace_back(ToJson(*option));
    commands.emplace_back(Json::Object{{"name", std::string(info.name)},
                                       {"help", std::string(info.help)},
                                       {"options", std::move(options)}});
  }
  PrintOut(ToLines(Json::Object{{"commands", std::move(commands)}}));
  return kConverted;
}

ExitCode Help(CLI::App& app, const std::string& name) {
  const CLI::App* subject = name.empty() ? &app : app.get_subcommand(name);
  PrintOut(app.get_formatter()->make_help(
      subject, name.empty() ? "zelconvert" : "zelconvert " + name, CLI::AppFormatMode::Normal));
  return kConverted;
}

// Prints help or version, or throws a HostFailure.
ExitCode Explain(CLI::App& app, const CLI::ParseError& error) {
  const std::string extra = TellExtras(app);
  if (error.get_exit_code() != 0) {
    throw HostFailure(kWrongUsage, extra.empty() ? error.what() : extra);
  }
  app.exit(error);
  return kConverted;
}

ExitCode Run(CLI::App& app, const Options& options) {
  const std::string extra = TellExtras(app);
  if (!extra.empty()) throw HostFailure(kWrongUsage, extra);
  if (options.quiet) SetQuiet();
  const CommandInfo& command = *FindCommand(app.get_subcommands().front()->get_name());
  if (command.run != nullptr) return command.run(options);
  const std::string& subject = options.subject;
  if (!subject.empty() && FindCommand(subject) == nullptr) {
    throw HostFailure(kWrongUsage, TellUnknownCommand(subject));
  }
  return options.json ? PrintTable(subject) : Help(app, subject);
}

ExitCode ParseAndRun(std::vector<std::string> arguments) {
  const bool namesCommand = !arguments.empty() && !arguments.front().starts_with('-');
  const CommandInfo* command = namesCommand ? FindCommand(arguments.front()) : nullptr;
  if (namesCommand && command == nullptr) {
    throw HostFailure(kWrongUsage, TellUnknownCommand(arguments.front()));
  }
  const bool isHelp = command == nullptr || command->run == nullptr;
  Options options;
  CLI::App app(std::string(kHostHelp), "zelconvert");
  AddCommands(app, options, isHelp ? nullptr : command);
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return Explain(app, error);
  }
  return Run(app, options);
}

ExitCode TellFailure(ExitCode code, const std::string& text, bool asJson) {
  if (asJson) {
    PrintOut(ToLines(Json::Object{{"exitCode", static_cast<int>(code)}, {"error", text}}));
    return code;
  }
  PrintNote(text);
  if (code == kWrongUsage) PrintError("Run \"zelconvert help\" for usage.\n");
  return code;
}

}  // namespace

ExitCode RunCommandLine(std::vector<std::string> arguments) {
  const bool asJson = std::ranges::find(arguments, "--json") != arguments.end();
  try {
    return ParseAndRun(std::move(arguments));
  } catch (const HostFailure& failure) {
    return TellFailure(failure.GetCode(), failure.what(), asJson);
  } catch (const std::exception& error) {
    return TellFailure(kFailed, error.what(), asJson);
  }
}

}  // namespace zelconvert::cli
