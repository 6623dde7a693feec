// Every command with its arguments, options and texts, as data: the command line is read by this
// table, and whatever tells about the commands can be made of it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/Commands.h"

namespace zelconvert::cli {

/// What follows an option, or in the place of an argument.
enum class Value { None, Path, Folder, Choice, Number, Text, Command };

/// Whether the command can do without. Usual: it can without an option, not without an argument.
enum class Need { Usual, Required, Optional };

struct OptionInfo {
  /// monostate: whoever reads the command line handles it.
  using Target =
      std::variant<std::monostate, bool Options::*, int Options::*, std::string Options::*,
                   std::optional<std::string> Options::*, std::vector<std::string> Options::*>;

  std::string_view name;  ///< "--to" or "-h,--help"; of an argument without dashes, "OUT"
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
  std::string_view details;                    ///< paragraphs, a line each
  std::span<const std::string_view> examples;  ///< arguments of calls
  ExitCode (*run)(const Options&) = nullptr;   ///< null: "help", for whoever reads the command line
};

/// What isn't about a command of its own.
struct Section {
  std::string_view title;
  std::string_view text;  ///< paragraphs, a line each
};

inline constexpr std::string_view kHostHelp = "Converts land-survey field data between file types.";

std::span<const Section> GetSections();
/// Those that a user is told of.
std::span<const CommandInfo> GetCommands();
/// Those that the host itself runs.
std::span<const CommandInfo> GetHiddenCommands();
/// Those that every command has beside its own.
std::span<const OptionInfo> GetCommonOptions();
/// Its own and the common ones.
std::vector<const OptionInfo*> OptionsOf(const CommandInfo& command);
/// "-h" and "--help" of "-h,--help".
std::vector<std::string_view> Spellings(std::string_view name);
/// Also one that a user isn't told of. Null if there is none.
const CommandInfo* FindCommand(std::string_view name);

}  // namespace zelconvert::cli
