#include "bindings/native/Call.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "cli/Cr5Import.h"
#include "cli/FileTypes.h"

namespace zelconvert::bindings {
namespace {

using cli::HostFailure;
using cli::Options;

struct Command {
  std::string_view name;
  cli::ExitCode (*run)(const Options&);
};
constexpr Command kCommands[] = {
    {"convert", cli::RunConvert},
    {"detect", cli::RunDetect},
    {"diff", cli::RunDiff},
    {"import-cr5", cli::RunImportCr5},
    {"import-sdr", cli::RunImportSdr},
    {"info", cli::RunInfo},
    {"merge", cli::RunMerge},
    {"plot", cli::RunPlot},
    {"points", cli::RunPoints},
    {"types", cli::RunTypes},
};

constexpr std::string_view kFormats[] = {"csv", "geojson"};
constexpr std::string_view kSystems[] = {"native", "wgs84"};

struct Option {
  std::string_view name;
  std::variant<bool Options::*, std::string Options::*, std::optional<std::string> Options::*,
               std::vector<std::string> Options::*>
      target;
  std::span<const std::string_view> choices = {};  // none: any
};
constexpr Option kOptions[] = {
    {"input", &Options::input},
    {"second", &Options::second},
    {"output", &Options::output},
    {"files", &Options::files},
    {"from", &Options::from, cli::kTypeNames},
    {"to", &Options::to, cli::kTypeNames},
    {"units", &Options::units, cli::kUnitNames},
    {"format", &Options::format, kFormats},
    {"crs", &Options::crs, kSystems},
    {"tolerance", &Options::tolerance},
    {"job", &Options::job},
    {"verify", &Options::verify},
    {"force", &Options::force},
};

// The one of `rows` with this name.
template <class Row, std::size_t size>
const Row& Find(const Row (&rows)[size], std::string_view name) {
  const Row* row = std::find_if(rows, rows + size, [name](const Row& r) { return r.name == name; });
  if (row != rows + size) return *row;
  throw HostFailure(cli::kWrongUsage, "there is no " + std::string(name));
}

struct Setter {
  void operator()(bool Options::*target) const { options.*target = true; }
  void operator()(std::string Options::*target) const { options.*target = value; }
  void operator()(std::optional<std::string> Options::*target) const { options.*target = value; }
  void operator()(std::vector<std::string> Options::*target) const {
    (options.*target).push_back(value);
  }

  Options& options;
  const std::string& value;
};

void Set(Options& options, const Option& option, const std::string& value) {
  const auto& choices = option.choices;
  if (!choices.empty() && std::find(choices.begin(), choices.end(), value) == choices.end()) {
    throw HostFailure(cli::kWrongUsage, std::string(option.name) + " can't be " + value);
  }
  std::visit(Setter{options, value}, option.target);
}

std::string TakeWord(std::string_view& words) {
  const std::size_t length = std::min(words.find('\0'), words.size());
  const std::string word(words.substr(0, length));
  words.remove_prefix(std::min(length + 1, words.size()));
  return word;
}

}  // namespace

Call ParseCall(std::string_view words) {
  Call call{Find(kCommands, TakeWord(words)).run, {}};
  call.options.json = true;
  while (!words.empty()) {
    const std::string name = TakeWord(words), value = TakeWord(words);
    Set(call.options, Find(kOptions, name), value);
  }
  return call;
}

}  // namespace zelconvert::bindings
