#include <algorithm>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/FileTypes.h"
#include "cli/GivenFiles.h"
#include "cli/Json.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

struct Detected {
  std::string file;
  ExitCode code;
  const TypeInfo* type;  // null unless the code is kConverted
  std::string reason;
};

Detected Detect(const std::string& argument) {
  const InputFile file(argument, "");
  const std::string& name = file.GetGivenName();
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file.GetPath(), ignored) ||
      !platform::IsReadable(file.GetPath())) {
    return {name, kNoInput, nullptr, "it can't be read"};
  }
  const ToldType told = file.TellType();
  return {name, told.type == nullptr ? kFailed : kConverted, told.type, told.reason};
}

void PrintAsText(const Detected& detected) {
  if (detected.code == kNoInput) {
    PrintNote(detected.file + " can't be read");
  } else if (detected.type == nullptr) {
    PrintLine(detected.file + ": unknown: " + detected.reason);
  } else {
    std::string description = GetDescription(detected.type->type);
    description.erase(description.find_last_not_of(' ') + 1);  // one of them ends in a blank
    PrintLine(detected.file + ": " + std::string(detected.type->name) + " (" + description +
              "): " + detected.reason);
  }
}

Json::Object ToJson(const Detected& detected) {
  const TypeInfo* type = detected.type;
  return {{"file", detected.file},
          {"readable", detected.code != kNoInput},
          {"type", type == nullptr ? Json(nullptr) : Json(std::string(type->name))},
          {"number", type == nullptr ? -1 : static_cast<int>(type->type)},
          {"reason", detected.reason}};
}

}  // namespace

// The worst code among the files: unreadable before unknown.
ExitCode RunDetect(const Options& options) {
  ExitCode code = kConverted;
  Json::List objects;
  for (const std::string& file : options.files) {
    const Detected detected = Detect(file);
    code = std::max(code, detected.code);
    if (options.json) {
      objects.emplace_back(ToJson(detected));
    } else {
      PrintAsText(detected);
    }
  }
  if (options.json) {
    PrintOut(
        ToLines(Json::Object{{"files", std::move(objects)}, {"exitCode", static_cast<int>(code)}}));
  }
  return code;
}

}  // namespace zelconvert::cli
