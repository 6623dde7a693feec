#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CommandTable.h"
#include "cli/Pages.h"

namespace zelconvert::cli {
namespace {

template <class Texts>
std::string Joined(const Texts& texts) {
  std::string joined;
  for (const auto& text : texts) joined += (joined.empty() ? "" : " ") + std::string(text);
  return joined;
}

std::string CommandNames() {
  std::string names;
  for (const CommandInfo& command : GetCommands()) {
    names += (names.empty() ? "" : " ") + std::string(command.name);
  }
  return names;
}

// What may stand in the place of a value, if that is known; empty: files.
std::string ValuesOf(const OptionInfo& option) {
  return option.value == Value::Command ? CommandNames() : Joined(option.choices);
}

// What nobody can know beforehand.
bool IsFree(const OptionInfo& option) {
  return option.value == Value::Number || option.value == Value::Text;
}

bool IsMany(const OptionInfo& option) {
  return std::holds_alternative<std::vector<std::string> Options::*>(option.target);
}

// Of a command whose arguments are words that are known, how many it takes; 0: they are files.
std::size_t CountWordArguments(const CommandInfo& command) {
  return static_cast<std::size_t>(std::ranges::count_if(command.options, [](const auto& option) {
    return option.IsArgument() && !ValuesOf(option).empty();
  }));
}

std::string OptionNames(const CommandInfo& command) {
  std::vector<std::string_view> names;
  for (const OptionInfo* option : OptionsOf(command)) {
    if (option->IsArgument()) continue;
    for (const std::string_view name : Spellings(option->name)) names.push_back(name);
  }
  return Joined(names);
}

// For single quotes of a shell; `special`: what else has a meaning there, which a backslash takes.
std::string Quoted(std::string_view text, std::string_view special = {}) {
  std::string quoted;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) quoted += '\\';
    quoted += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return quoted;
}

// ---- bash

std::string BashCase(const std::string& what, const std::string& assignment) {
  return "        '" + what + "') " + assignment + " ;;\n";
}

std::string BashCases(const CommandInfo& command) {
  const std::string name(command.name);
  std::string cases, words;
  for (const OptionInfo* option : OptionsOf(command)) {
    const std::string values = ValuesOf(*option);
    if (option->IsArgument()) {
      words = values;
      continue;
    }
    const std::string assignment = !values.empty()                  ? "values='" + values + "'"
                                   : option->value == Value::Folder ? "kind=folder"
                                   : IsFree(*option)                ? "kind=free"
                                                                    : "";
    if (assignment.empty()) continue;
    for (const std::string_view spelling : Spellings(option->name)) {
      cases += BashCase(name + " " + std::string(spelling), assignment);
    }
  }
  const std::size_t count = CountWordArguments(command);
  if (count == 0) return cases;
  return cases + BashCase(name, "words='" + words + "' most=" + std::to_string(count));
}

// ---- zsh

std::string ZshValues(const OptionInfo& option, const std::string& label) {
  const std::string values = ValuesOf(option);
  const std::string files = option.value == Value::Folder ? "_files -/" : "_files";
  const std::string action = !values.empty() ? "(" + values + ")" : IsFree(option) ? "" : files;
  return ":" + label + ":" + action;
}

std::string ZshSpec(const OptionInfo& option) {
  if (option.IsArgument()) {
    const std::string start = IsMany(option) ? "*" : option.IsRequired() ? "" : ":";
    return " \\\n                '" + start + ZshValues(option, std::string(option.name)) + "'";
  }
  const std::vector<std::string_view> names = Spellings(option.name);
  const std::string instead = names.size() > 1 ? "(" + Joined(names) + ")" : "";
  const std::string help = "[" + Quoted(option.help, "[]:") + "]";
  std::string specs;
  for (const std::string_view name : names) {
    specs += " \\\n                '" + instead + std::string(name);
    if (option.value != Value::None && name.starts_with("--")) specs += "=";  // or a blank
    specs += help;
    if (option.value != Value::None) specs += ZshValues(option, std::string(option.valueName));
    specs += "'";
  }
  return specs;
}

// ---- fish

std::string FishLine(const OptionInfo& option, const std::string& condition) {
  if (option.IsArgument()) return {};
  std::string line = "complete -c zelconvert -n '" + condition + "'";
  const std::string values = ValuesOf(option);
  for (const std::string_view name : Spellings(option.name)) {
    line += name.starts_with("--") ? " -l " + std::string(name.substr(2))
                                   : " -s " + std::string(name.substr(1));
  }
  if (!values.empty()) {
    line += " -x -a '" + values + "'";
  } else if (option.value == Value::Folder) {
    line += " -x -a '(__fish_complete_directories)'";
  } else if (option.value != Value::None) {
    line += IsFree(option) ? " -x" : " -r";
  }
  return line + " -d '" + Quoted(option.help) + "'\n";
}

// Arguments that are words: no files, and no more words than it takes.
std::string FishWords(const CommandInfo& command, const std::string& condition) {
  const std::size_t count = CountWordArguments(command);
  if (count == 0) return {};
  const auto argument = std::ranges::find_if(command.options, &OptionInfo::IsArgument);
  return "complete -c zelconvert -n '" + condition + "' -f\n" +  //
         "complete -c zelconvert -n '" + condition + " " + std::to_string(count) + "' -f -a '" +
         ValuesOf(*argument) + "'\n";
}

}  // namespace

std::string MakeBashCompletion() {
  std::string values, options;
  for (const CommandInfo& command : GetCommands()) {
    values += BashCases(command);
    options += BashCase(std::string(command.name), "options='" + OptionNames(command) + "'");
  }
  return "# Completes command lines of zelconvert in bash. Made by \"zelconvert generate bash\".\n"
         "_zelconvert() {\n"
         "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "    local key word kind= values= words= options= count=0 most=0\n"
         "    if [[ $cur == = ]]; then cur=; fi\n"
         "    if [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD - 2]}; fi\n"
         "    COMPREPLY=()\n"
         "    if ((COMP_CWORD == 1)); then\n"
         "        words='" +
         CommandNames() +
         "'\n"
         "        if [[ $cur == -* ]]; then words='-h --help --version'; fi\n"
         "        compopt +o default\n"
         "        COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n"
         "        return\n"
         "    fi\n"
         "    case ${COMP_WORDS[1]} in\n" +
         options +
         "    esac\n"
         "    for key in \"${COMP_WORDS[1]}\" \"${COMP_WORDS[1]} $prev\"; do\n"
         "        case $key in\n" +
         values +
         "        esac\n"
         "    done\n"
         "    for word in \"${COMP_WORDS[@]:2:COMP_CWORD - 2}\"; do\n"
         "        if [[ $word != -* ]]; then ((++count)); fi\n"
         "    done\n"
         "    if [[ $words || $kind ]]; then compopt +o default; fi\n"
         "    if [[ $kind == folder ]]; then compopt -o dirnames; fi\n"
         "    if ((count >= most)); then words=; fi\n"
         "    if [[ $cur == -* ]]; then words=$options; fi\n"
         "    if [[ $values ]]; then words=$values; fi\n"
         "    COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n"
         "}\n"
         "complete -o default -F _zelconvert zelconvert\n";
}

std::string MakeZshCompletion() {
  std::string names, cases;
  for (const CommandInfo& command : GetCommands()) {
    const std::string name(command.name);
    names += "        '" + name + ":" + Quoted(command.help, ":") + "'\n";
    cases += "        " + name + ")\n            _arguments";
    for (const OptionInfo* option : OptionsOf(command)) cases += ZshSpec(*option);
    cases += "\n            ;;\n";
  }
  return "#compdef zelconvert\n"
         "# Completes command lines of zelconvert in zsh. Made by \"zelconvert generate zsh\".\n"
         "_zelconvert() {\n"
         "    local -a commands\n"
         "    commands=(\n" +
         names +
         "    )\n"
         "    if ((CURRENT == 2)) && [[ $PREFIX != -* ]]; then\n"
         "        _describe command commands\n"
         "        return\n"
         "    fi\n"
         "    if ((CURRENT == 2)); then\n"
         "        _arguments '(- *)'{-h,--help}'[Tell how to use it]' "
         "'(- *)--version[Tell the version]'\n"
         "        return\n"
         "    fi\n"
         "    shift words\n"
         "    ((CURRENT--))\n"
         "    case $words[1] in\n" +
         cases +
         "    esac\n"
         "}\n"
         "_zelconvert \"$@\"\n";
}

std::string MakeFishCompletion() {
  const std::string start = "complete -c zelconvert -n __fish_use_subcommand";
  std::string script =
      "# Completes command lines of zelconvert in fish. Made by \"zelconvert generate fish\".\n"
      "# Whether it is the command, with fewer arguments than that.\n"
      "function __zelconvert_in -a name most\n"
      "    set -l words (commandline -opc | string match -v -- '-*')\n"
      "    test \"$words[2]\" = $name; and begin\n"
      "        test -z \"$most\"; or test (count $words) -lt (math $most + 2)\n"
      "    end\n"
      "end\n" +
      start + " -f -s h -l help -d 'Tell how to use it'\n" + start +
      " -f -l version -d 'Tell the version'\n";
  for (const CommandInfo& command : GetCommands()) {
    const std::string name(command.name);
    const std::string seen = "__zelconvert_in " + name;
    script += start + " -f -a " + name + " -d '" + Quoted(command.help) + "'\n";
    script += FishWords(command, seen);
    for (const OptionInfo* option : OptionsOf(command)) script += FishLine(*option, seen);
  }
  return script;
}

}  // namespace zelconvert::cli
