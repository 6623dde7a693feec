#include "cli/ConvertPlan.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>

#include "cli/FileChecks.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

// Types of two files that stand together: the log beside the file that is named is what is read.
struct Pair {
  FileType type;
  const char* extension;
  const char* log;
};
constexpr Pair kPairs[] = {
    {FT_JOB_RAW, ".job", ".raw"}, {FT_PW_JOB_RAW, ".pwj", ".pwr"}, {FT_CR5_RW5, ".cr5", ".rw5"}};

const Pair* FindPair(FileType type) {
  const auto* pair = std::find_if(std::begin(kPairs), std::end(kPairs),
                                  [type](const Pair& each) { return each.type == type; });
  return pair == std::end(kPairs) ? nullptr : pair;
}

std::string LowerExtension(const fs::path& path) {
  std::string text = ToText(path.extension());
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

const TypeInfo& TypeOfInput(const std::string& asked, const fs::path& input) {
  if (!asked.empty()) return *FindType(asked);
  CheckReadable(input);
  const TypeInfo* type = FindType(DetectType(input));
  if (type == nullptr) {
    throw HostFailure(kWrongUsage, "the name " + ToText(input) + " tells no type; --from does");
  }
  // What is named like a job and doesn't begin like one is taken for its pair with a log.
  if (const Pair* pair = FindPair(type->type)) {
    throw HostFailure(kNoInput, ToText(input) + " doesn't begin as a " + pair->extension +
                                    " file does; to convert the " + pair->log +
                                    " file beside it use --from " + std::string(type->name));
  }
  return *type;
}

const TypeInfo& TypeOfOutput(const std::string& asked, const fs::path& output) {
  if (!asked.empty()) return *FindType(asked);
  const std::string extension = LowerExtension(output);
  for (const TypeInfo& type : kTypes) {
    if (type.namedByExtension && extension == GetExtension(type.type)) return type;
  }
  throw HostFailure(kWrongUsage, "the name " + ToText(output) + " tells no type; --to does");
}

std::string TellOutputs(const TypeInfo& from) {
  const std::string name(from.name);
  if (!from.outputs.empty()) return name + " converts to " + std::string(from.outputs);
  if (!from.command.empty()) return "see zelconvert help " + std::string(from.command);
  return "nothing is made from " + name;
}

void CheckRoute(const TypeInfo& from, const TypeInfo& to) {
  if (ConvertsTo(from, to)) return;
  throw HostFailure(kWrongUsage, "there is no conversion from " + std::string(from.name) + " to " +
                                     std::string(to.name) + "; " + TellOutputs(from));
}

// The file that the library will read. Of the two job types it is the spelling that decides there,
// not the type.
fs::path FileRead(FileType from, const fs::path& input) {
  const Pair* pair = FindPair(from);
  if (pair == nullptr) return input;
  if (from != FT_CR5_RW5) pair = FindPair(input.extension() == ".job" ? FT_JOB_RAW : FT_PW_JOB_RAW);
  return fs::path(input).replace_extension(pair->log);
}

// The library tells the brand of jobs and logs by the extension as it is spelled.
std::string WarnOfSpelling(FileType from, const fs::path& input) {
  const Pair* pair = FindPair(from);
  const std::string expected = pair == nullptr ? GetExtension(from) : pair->extension;
  const bool tellsBrand = expected == ".job" || expected == ".raw" || expected == ".rw5";
  if (!tellsBrand || ToText(input.extension()) == expected) return {};
  return ToText(input.filename()) + " is not spelled " + expected +
         ", so the library takes it for a file of the second brand; named " + ToText(input.stem()) +
         expected + " it would be one of the first";
}

int UnitsOf(const std::string& name) {
  return std::find_if(std::begin(kUnits), std::end(kUnits),
                      [&](const UnitName& unit) { return unit.name == name; })
      ->number;
}

}  // namespace

ConvertPlan MakePlan(const ConvertOptions& options) {
  const fs::path input = Absolute(options.input);
  const fs::path output = Absolute(options.output);
  const TypeInfo& from = TypeOfInput(options.from, input);
  CheckNoFolder(output);
  const TypeInfo& to = TypeOfOutput(options.to, output);
  CheckRoute(from, to);

  const fs::path read = FileRead(from.type, input);
  CheckReadable(read);
  CheckDistinct(output, input);
  CheckDistinct(output, read);
  CheckOutput(output, options.force);
  ConvertPlan plan{{from.type, to.type, input, output, UnitsOf(options.units), {}},
                   WarnOfSpelling(from.type, input),
                   read};
  if (!options.featureFile.empty()) {
    plan.conversion.featureFile = Absolute(options.featureFile);
    CheckReadable(plan.conversion.featureFile);
  }
  return plan;
}

}  // namespace zelconvert::cli
