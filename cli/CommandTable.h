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
enum class Value { None, Path, Folder, Choice, Number, Command };

/// Whether the command can do without. Usual: it can without an option, not without an argument.
enum class Need { Usual, Required, Optional };

struct OptionInfo {
  using Target =
      std::variant<bool Options::*, int Options::*, std::string Options::*,
                   std::optional<std::string> Options::*, std::vector<std::string> Options::*>;

  std::string_view name;  ///< "--to"; of an argument without dashes, "OUT"
  Value value;
  Target target;
  std::string_view help;
  std::string_view valueName = {};  ///< as help calls the value of an option
  std::span<const std::string_view> choices = {};

  Need need = Need::Usual;

  constexpr bool IsArgument() const { return !name.starts_with('-'); }
  constexpr bool IsRequired() const {
    return need == Need::Required || (need == Need::Usual && IsArgument());
  }
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

/// Those that a user is told of.
std::span<const CommandInfo> GetCommands();
/// Those that the host itself runs.
std::span<const CommandInfo> GetHiddenCommands();
/// Those that every command has beside its own.
std::span<const OptionInfo> GetCommonOptions();
/// Also one that a user isn't told of. Null if there is none.
const CommandInfo* FindCommand(std::string_view name);

}  // namespace zelconvert::cli
