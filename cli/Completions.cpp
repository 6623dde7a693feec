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

std::string BashCase(const std::string& what, const std::string& variable,
                     const std::string& words) {
  return "        '" + what + "') " + variable + "='" + words + "' ;;\n";
}

std::string BashCases(const CommandInfo& command) {
  const std::string name(command.name);
  std::string cases;
  for (const OptionInfo* option : OptionsOf(command)) {
    const std::string values = ValuesOf(*option);
    if (values.empty()) continue;
    if (option->IsArgument()) {
      cases += BashCase(name, "words", values);
    } else {
      cases += BashCase(name + " " + std::string(Spellings(option->name).back()), "values", values);
    }
  }
  return cases;
}

// ---- zsh

std::string ZshValues(const OptionInfo& option, const std::string& label) {
  const std::string values = ValuesOf(option);
  const std::string files = option.value == Value::Folder ? "_files -/" : "_files";
  const bool isFree = option.value == Value::Number || option.value == Value::Text;
  const std::string action = !values.empty() ? "(" + values + ")" : isFree ? "" : files;
  return ":" + label + ":" + action;
}

std::string ZshSpec(const OptionInfo& option) {
  if (option.IsArgument()) {
    const bool isMany = std::holds_alternative<std::vector<std::string> Options::*>(option.target);
    const std::string start = isMany ? "*" : option.IsRequired() ? "" : ":";
    return " \\\n                '" + start + ZshValues(option, std::string(option.name)) + "'";
  }
  std::string specs;
  for (const std::string_view name : Spellings(option.name)) {
    specs += " \\\n                '" + std::string(name) + "[" + Quoted(option.help, "[]:") + "]";
    if (option.value != Value::None) specs += ZshValues(option, std::string(option.valueName));
    specs += "'";
  }
  return specs;
}

// ---- fish

std::string FishLine(const OptionInfo& option, const std::string& condition) {
  std::string line = "complete -c zelconvert -n '" + condition + "'";
  const std::string values = ValuesOf(option);
  if (option.IsArgument()) return values.empty() ? "" : line + " -f -a '" + values + "'\n";
  for (const std::string_view name : Spellings(option.name)) {
    line += name.starts_with("--") ? " -l " + std::string(name.substr(2))
                                   : " -s " + std::string(name.substr(1));
  }
  if (!values.empty()) {
    line += " -x -a '" + values + "'";
  } else if (option.value != Value::None) {
    line += " -r";
  }
  return line + " -d '" + Quoted(option.help) + "'\n";
}

}  // namespace

std::string MakeBashCompletion() {
  std::string values, options;
  for (const CommandInfo& command : GetCommands()) {
    values += BashCases(command);
    options += BashCase(std::string(command.name), "options", OptionNames(command));
  }
  return "# Completes command lines of zelconvert in bash. Made by \"zelconvert generate bash\".\n"
         "_zelconvert() {\n"
         "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "    local key values= words= options=\n"
         "    if [[ $cur == = ]]; then cur=; fi\n"
         "    if [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD - 2]}; fi\n"
         "    COMPREPLY=()\n"
         "    if ((COMP_CWORD == 1)); then\n"
         "        COMPREPLY=($(compgen -W '" +
         CommandNames() +
         " --help --version' -- \"$cur\"))\n"
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
         "    if ((CURRENT == 2)); then\n"
         "        _describe command commands\n"
         "        _arguments '--help[Tell how to use it]' '--version[Tell the version]'\n"
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
      "# Completes command lines of zelconvert in fish. Made by \"zelconvert generate fish\".\n" +
      start + " -f -l help -d 'Tell how to use it'\n" + start +
      " -f -l version -d 'Tell the version'\n";
  for (const CommandInfo& command : GetCommands()) {
    const std::string name(command.name);
    const std::string seen = "__fish_seen_subcommand_from " + name;
    script += start + " -f -a " + name + " -d '" + Quoted(command.help) + "'\n";
    for (const OptionInfo* option : OptionsOf(command)) script += FishLine(*option, seen);
  }
  return script;
}

}  // namespace zelconvert::cli
