#include "cli/Cr5Import.h"

#include <algorithm>
#include <iterator>

#include "cli/Host.h"
#include "cli/platform/Host.h"
#include "job/CConvCR5File.h"
#include "job/Cr5Records.h"

namespace zelconvert::cli {

namespace fs = std::filesystem;
using platform::ToLibrary;
using platform::ToText;
using zelconvert::platform::kOpenReadOnly;

// As kUnitNames has them.
constexpr LinearUnit kUnits[] = {LinearUnit::Metre, LinearUnit::InternationalFoot,
                                 LinearUnit::UsSurveyFoot};

int UnitsNamed(std::string_view name) {
  if (name.empty()) return 0;
  return static_cast<int>(std::find(std::begin(kUnitNames), std::end(kUnitNames), name) -
                          std::begin(kUnitNames));
}

std::optional<LinearUnit> LinearUnitNamed(std::string_view name) {
  if (name.empty()) return std::nullopt;
  return kUnits[UnitsNamed(name)];
}

std::string_view NameOfUnit(LinearUnit unit) {
  return kUnitNames[std::find(std::begin(kUnits), std::end(kUnits), unit) - std::begin(kUnits)];
}

void ImportCr5(const fs::path& list, const fs::path& jobPath, FileType type, int units) {
  CFileCE cr5;
  CJobFile job(type != FT_PW_JOB);
  if (!cr5.Open(ToLibrary(list), kOpenReadOnly)) {
    throw HostFailure(kNoInput, ToText(list) + " can't be opened");
  }
  Report report;
  const bool created =
      job.Create(ToLibrary(jobPath), type == FT_OLD_JOB ? kOldJobVersion : kJobVersion);
  CConvCR5File conversion(&cr5, &job, false);
  conversion.SetUnits(units);
  const bool converted = created && conversion.ConvertToNative(report);
  job.Close();
  if (!created || job.HasWriteFailed()) {
    throw HostFailure(kNoOutput, ToText(jobPath) + " can't be written");
  }
  if (cr5.HasReadFailed()) throw HostFailure(kFailed, ToText(list) + " can't be read to its end");
  if (!converted) throw HostFailure(kFailed, ToText(list) + " ends within its header");
}

std::string WarnOfContents(const fs::path& list) {
  char bytes[CR5_HEADER::kSignature.size()] = {};
  CFileCE file;
  if (!file.Open(ToLibrary(list), kOpenReadOnly) || !file.Read(bytes, sizeof bytes)) return {};
  if (std::string_view(bytes, sizeof bytes) == CR5_HEADER::kSignature) return {};
  return ToText(list) + " doesn't begin as a CR5 file does";
}

}  // namespace zelconvert::cli
