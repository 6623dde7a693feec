// Every command with its arguments, options and texts, as data: the command line is read by this
// table, and whatever tells about the commands can be made of it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "cli/Commands.h"

namespace zelconvert::cli {

/// What follows an option, or in the place of an argument.
enum class Value { None, Path, Choice, Command };

struct OptionInfo {
  using Target =
      std::variant<bool Options::*, std::string Options::*, std::optional<std::string> Options::*,
                   std::vector<std::string> Options::*>;

  std::string_view name;  ///< "--to"; of an argument without dashes, "OUT"
  Value value;
  Target target;
  std::string_view help;
  std::string_view valueName = {};  ///< as help calls the value of an option
  std::span<const std::string_view> choices = {};

  constexpr bool IsArgument() const { return !name.starts_with('-'); }
  /// All arguments but that of "help".
  constexpr bool IsRequired() const { return IsArgument() && value == Value::Path; }
};

struct CommandInfo {
  std::string_view name;
  std::string_view help;
  std::span<const OptionInfo> options;
  std::string_view footer;                    ///< empty: that of the host
  ExitCode (*run)(const Options&) = nullptr;  ///< null: "help", for whoever reads the command line
};

inline constexpr std::string_view kHostHelp = "Converts land-survey field data between file types.";
inline constexpr std::string_view kHostFooter =
    "Exit codes: 0 done, 1 the conversion failed, 2 wrong usage, 3 an input can't be read,\n"
    "4 an output can't be written.";

std::span<const CommandInfo> GetCommands();
/// Those that every command has beside its own.
std::span<const OptionInfo> GetCommonOptions();
/// Null if there is none.
const CommandInfo* FindCommand(std::string_view name);

}  // namespace zelconvert::cli
