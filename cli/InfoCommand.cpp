// zelconvert info FILE...: what the files hold.
#include <algorithm>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/InputSurvey.h"
#include "cli/Json.h"
#include "tools/Info.h"

namespace zelconvert::cli {
namespace {

using tools::Info;

struct Looked {
  ExitCode code = kConverted;
  Json::Object json;
  std::string text;
};

Looked LookAt(const std::string& file, const Options& options) {
  Looked looked;
  std::vector<std::string> messages;
  try {
    const InputFile input(file, options.from);
    Info info = tools::MakeInfo(ReadSurveyOf(input, ReadOptionsOf(options), messages));
    const ToldType told = input.TellType();
    info.file = input.GetGivenName();
    info.type = told.type->name;
    info.reason = told.reason;
    looked.json = tools::ToJson(info);
    looked.text = tools::ToText(info);
  } catch (const HostFailure& failure) {
    looked.code = failure.GetCode();
    looked.json = {{"file", file}, {"error", std::string(failure.what())}};
    messages.emplace_back(failure.what());
  }
  if (options.json) {
    looked.json.emplace_back("messages", Json::List(messages.begin(), messages.end()));
  } else if (looked.code != kConverted) {
    PrintMessages({messages.begin(), messages.end() - 1});
    PrintNote(messages.back());
  } else if (!IsQuiet()) {
    PrintMessages(messages);
  }
  return looked;
}

}  // namespace

// The worst code among the files.
ExitCode RunInfo(const Options& options) {
  ExitCode code = kConverted;
  Json::List objects;
  bool isFirst = true;
  for (const std::string& file : options.files) {
    Looked looked = LookAt(file, options);
    code = std::max(code, looked.code);
    if (options.json) {
      objects.emplace_back(std::move(looked.json));
    } else if (!looked.text.empty()) {
      PrintOut((isFirst ? "" : "\n") + looked.text);
      isFirst = false;
    }
  }
  if (options.json) {
    PrintOut(
        ToLines(Json::Object{{"files", std::move(objects)}, {"exitCode", static_cast<int>(code)}}));
  }
  return code;
}

}  // namespace zelconvert::cli
