#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CommandTable.h"
#include "cli/Pages.h"

namespace zelconvert::cli {
namespace {

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    escaped += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
  }
  return escaped;
}

bool IsInWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-';
}

// Names of arguments and values, as IN and TYPE, stand in capitals.
bool IsPlaceholder(std::string_view word, const std::vector<std::string_view>& placeholders) {
  return std::ranges::find(placeholders, word) != placeholders.end();
}

std::string Marked(std::string_view word, const std::vector<std::string_view>& placeholders) {
  if (word.starts_with("--")) return "\\fB" + Escaped(word) + "\\fP";
  if (IsPlaceholder(word, placeholders)) return "\\fI" + Escaped(word) + "\\fP";
  return Escaped(word);
}

// A text with options in bold and placeholders in italics. A line may not begin with a point.
std::string Marked(std::string_view text, const CommandInfo& command, bool isLine) {
  std::vector<std::string_view> placeholders;
  for (const OptionInfo* option : OptionsOf(command)) {
    if (option->IsArgument()) placeholders.push_back(option->name);
    if (!option->valueName.empty()) placeholders.push_back(option->valueName);
  }
  std::string marked = isLine && text.starts_with('.') ? "\\&" : "";
  for (std::size_t at = 0; at < text.size();) {
    const auto* end = std::find_if_not(text.begin() + at, text.end(), IsInWord);
    const auto length = static_cast<std::size_t>(end - (text.begin() + at));
    const std::string_view word = text.substr(at, std::max<std::size_t>(length, 1));
    marked += length == 0 ? Escaped(word) : Marked(word, placeholders);
    at += word.size();
  }
  return marked;
}

std::string Paragraphs(std::string_view text, const CommandInfo& command) {
  std::string paragraphs;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    paragraphs += (paragraphs.empty() ? "" : ".PP\n") + Marked(line, command, true) + "\n";
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return paragraphs;
}

std::string Synopsis(const CommandInfo& command) {
  std::string line = "\\fBzelconvert " + Escaped(command.name) + "\\fP [\\fIOPTIONS\\fP]";
  for (const OptionInfo& option : command.options) {
    const std::string name(option.IsArgument() ? option.name : option.valueName);
    const bool isMany = std::holds_alternative<std::vector<std::string> Options::*>(option.target);
    const std::string value = "\\fI" + name + "\\fP" + (isMany ? "..." : "");
    if (option.IsArgument()) line += option.IsRequired() ? " " + value : " [" + value + "]";
    if (!option.IsArgument() && option.IsRequired()) {
      line += " \\fB" + Escaped(option.name) + "\\fP " + value;
    }
  }
  return line + "\n";
}

std::string Entry(const OptionInfo& option, const CommandInfo& command) {
  std::string names;
  for (const std::string_view name : Spellings(option.name)) {
    names += (names.empty() ? "\\fB" : ", \\fB") + Escaped(name) + "\\fP";
  }
  if (!option.valueName.empty()) names += " \\fI" + std::string(option.valueName) + "\\fP";
  return ".TP\n" + names + "\n" + Marked(option.help, command, true) + ".\n";
}

std::string CommandPart(const CommandInfo& command) {
  std::string part = ".SS " + Escaped(command.name) + "\n" + Escaped(command.help) + ".\n";
  if (!command.details.empty()) part += ".PP\n" + Paragraphs(command.details, command);
  for (const OptionInfo& option : command.options) {
    if (!option.IsArgument()) part += Entry(option, command);
  }
  return part;
}

std::string Title(std::string_view title) {
  std::string text = ".SH ";
  for (const char c : title) text += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text + "\n";
}

}  // namespace

std::string MakeManPage() {
  std::string page =
      ".\\\" Made by \"zelconvert generate man\".\n.TH ZELCONVERT 1 \"\" \"zelconvert\" \"User "
      "Commands\"\n.SH NAME\nzelconvert \\- convert land\\-survey field data between file types\n";
  std::string synopsis, commands, examples;
  for (const CommandInfo& command : GetCommands()) {
    synopsis += (synopsis.empty() ? "" : ".br\n") + Synopsis(command);
    commands += CommandPart(command);
    for (const std::string_view example : command.examples) {
      examples += "zelconvert " + Escaped(example) + "\n";
    }
  }
  const CommandInfo none{};
  page += Title("Synopsis") + synopsis + Title("Description") + Escaped(kHostHelp) + "\n";
  page += Title("Commands") + commands + Title("Options of every command");
  for (const OptionInfo& option : GetCommonOptions()) page += Entry(option, none);
  for (const Section& section : GetSections()) {
    page += Title(section.title) + Paragraphs(section.text, none);
  }
  return page + Title("Examples") + ".nf\n" + examples + ".fi\n";
}

}  // namespace zelconvert::cli
