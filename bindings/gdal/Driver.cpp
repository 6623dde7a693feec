// The driver ZELCONVERT: every readable type as a vector data set. docs/gdal.md tells how to use
// it.
#include <cpl_conv.h>
#include <cpl_error.h>
#include <gdal_priv.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bindings/gdal/FileIdentity.h"
#include "bindings/gdal/LocalFiles.h"
#include "bindings/gdal/SurveyDataset.h"
#include "cli/FileTypes.h"
#include "platform/posix/Paths.h"
#include "tools/ReadSurvey.h"
#include "tools/Units.h"

namespace zelconvert::gdal {
namespace {

constexpr const char* kType = "TYPE";
constexpr const char* kUnits = "UNITS";
constexpr const char* kJob = "JOB";
constexpr const char* kExtensions = "job pwj dc raw rw5 pwr cr5 sdr ilj";
constexpr std::size_t kMostWarnings = 10;

/// There is no folder for what is made on the way; why has been told.
struct NoFolder {};

// ---- Which files

std::string_view BeginningOf(const GDALOpenInfo& info) {
  return {reinterpret_cast<const char*>(info.pabyHeader),
          static_cast<std::size_t>(std::max(info.nHeaderBytes, 0))};
}

/// With its point, or empty.
std::string Extension(const char* path) {
  const std::string extension = CPLGetExtension(path);
  return extension.empty() ? extension : "." + extension;
}

/// The type of the open option, or what the file is by itself.
std::optional<FileType> TypeOf(const GDALOpenInfo& info) {
  if (info.nHeaderBytes <= 0) return std::nullopt;
  const char* name = CSLFetchNameValue(info.papszOpenOptions, kType);
  if (name == nullptr) return IdentifyFile(BeginningOf(info), Extension(info.pszFilename));
  const cli::TypeInfo* type = cli::FindType(std::string_view(name));
  return type == nullptr ? std::nullopt : std::optional(type->type);
}

int Identify(GDALOpenInfo* info) {
  return TypeOf(*info) ? TRUE : FALSE;
}

// ---- The file and what it needs as real files

/// The extension of the log that stands beside a file of such a pair; null: there is none.
const char* LogExtension(FileType type) {
  return type == FT_JOB_RAW      ? ".raw"
         : type == FT_PW_JOB_RAW ? ".pwr"
         : type == FT_CR5_RW5    ? ".rw5"
                                 : nullptr;
}

void Replace(std::string& text, const std::string& from, const std::string& to) {
  if (from.empty()) return;
  for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

class Input {
 public:
  Input(const GDALOpenInfo& info, FileType type)
      : m_info(info),
        m_type(type),
        m_given(info.pszFilename),
        m_givenJob(CSLFetchNameValueDef(info.papszOpenOptions, kJob, "")),
        m_path(m_given),
        m_job(m_givenJob) {}

  /// Null, and the reason has been told, if it can't be read.
  std::unique_ptr<GDALDataset> Open();

 private:
  bool MakeReal();
  bool Copy(const std::string& path, const std::string& extension, std::string& copy);
  tools::ReadOptions MakeOptions();
  /// With the files as GDAL knows them, not as their copies.
  std::vector<std::string> Worded(const StringList& messages) const;
  void Tell(const std::vector<std::string>& messages, bool isRead) const;

  const GDALOpenInfo& m_info;
  const FileType m_type;
  const std::string m_given, m_givenJob;
  std::string m_path;  // of the real file
  std::string m_job;   // likewise; empty: none
  WorkFolder m_copies, m_work;
};

bool Input::Copy(const std::string& path, const std::string& extension, std::string& copy) {
  const std::string& folder = m_copies.GetPath();
  if (folder.empty()) return false;
  const std::string name = CPLGetBasename(path.c_str());
  copy = folder + "/" + (name.empty() ? "input" : name) + extension;
  return CopyVirtual(path, copy);
}

bool Input::MakeReal() {
  if (IsVirtual(m_givenJob) && !Copy(m_givenJob, Extension(m_givenJob.c_str()), m_job)) {
    return false;
  }
  if (!IsVirtual(m_given)) return true;
  const std::string own = Extension(m_given.c_str());
  if (!Copy(m_given, own.empty() ? ExtensionOf(m_type) : own, m_path)) return false;
  const char* log = LogExtension(m_type);
  std::string copy;
  return log == nullptr || Copy(CPLResetExtension(m_given.c_str(), log + 1), log, copy);
}

tools::ReadOptions Input::MakeOptions() {
  tools::ReadOptions options;
  options.makeFolder = [this] {
    if (m_work.GetPath().empty()) throw NoFolder();
    return platform::FromSystemPath(m_work.GetPath());
  };
  const std::string unit = CSLFetchNameValueDef(m_info.papszOpenOptions, kUnits, "");
  for (const auto each :
       {LinearUnit::Metre, LinearUnit::InternationalFoot, LinearUnit::UsSurveyFoot}) {
    if (tools::NameOf(each) == unit) options.listUnit = each;
  }
  options.job = platform::FromSystemPath(m_job);
  return options;
}

std::vector<std::string> Input::Worded(const StringList& messages) const {
  std::vector<std::string> texts;
  for (const std::wstring& message : messages) {
    std::string& text = texts.emplace_back(tools::Utf8(message));
    Replace(text, m_path, m_given);
    Replace(text, m_job, m_givenJob);
  }
  return texts;
}

void Input::Tell(const std::vector<std::string>& messages, bool isRead) const {
  for (std::size_t i = 0; i < messages.size(); ++i) {
    if (isRead && i == kMostWarnings) {
      CPLError(CE_Warning, CPLE_AppDefined, "%s: %zu more in the metadata domain WARNINGS.",
               m_given.c_str(), messages.size() - i);
      break;
    }
    const bool isReason = !isRead && i + 1 == messages.size();
    CPLError(isReason ? CE_Failure : CE_Warning, isReason ? CPLE_OpenFailed : CPLE_AppDefined, "%s",
             messages[i].c_str());
  }
}

std::unique_ptr<GDALDataset> Input::Open() {
  static std::mutex oneAtATime;  // as ReadSurvey asks
  if (!MakeReal()) return nullptr;
  StringList messages;
  std::optional<tools::Survey> survey;
  {
    const std::lock_guard lock(oneAtATime);
    survey = tools::ReadSurvey(platform::FromSystemPath(m_path), m_type, messages, MakeOptions());
  }
  std::vector<std::string> texts = Worded(messages);
  Tell(texts, survey.has_value());
  if (!survey) return nullptr;
  return std::make_unique<SurveyDataset>(*std::move(survey), std::move(texts));
}

GDALDataset* Open(GDALOpenInfo* info) {
  const std::optional<FileType> type = TypeOf(*info);
  if (!type || info->eAccess == GA_Update) return nullptr;
  try {
    return Input(*info, *type).Open().release();
  } catch (const NoFolder&) {
    return nullptr;  // and why has been told
  } catch (const std::exception& failure) {
    CPLError(CE_Failure, CPLE_OutOfMemory, "%s: %s", info->pszFilename, failure.what());
    return nullptr;
  }
}

// ---- What it tells of itself

/// Those that can be read, in their order.
std::string TypeOptions() {
  std::string values;
  for (const cli::TypeInfo& type : cli::kTypes) {
    if (type.type != FT_JXL) values += "<Value>" + std::string(type.name) + "</Value>";
  }
  return "<OpenOptionList>"
         "<Option name='TYPE' type='string-select' description='Type of the file, where its name "
         "and its first bytes do not tell'>" +
         values +
         "</Option>"
         "<Option name='UNITS' type='string-select' description='Unit of a coordinate list'>"
         "<Value>m</Value><Value>ft</Value><Value>usft</Value></Option>"
         "<Option name='JOB' type='string' description='Job whose points a log refers to'/>"
         "</OpenOptionList>";
}

}  // namespace
}  // namespace zelconvert::gdal

/// Called by GDAL, which finds it by the name of the plugin.
extern "C" CPL_DLL void RegisterOGRZELCONVERT() {
  using namespace zelconvert::gdal;
  constexpr const char* kName = "ZELCONVERT";
  if (!GDAL_CHECK_VERSION(kName) || GDALGetDriverByName(kName) != nullptr) return;
  auto driver = std::make_unique<GDALDriver>();
  driver->SetDescription(kName);
  driver->SetMetadataItem(GDAL_DMD_LONGNAME, "Land-survey field data (zelconvert)");
  driver->SetMetadataItem(GDAL_DMD_EXTENSIONS, kExtensions);
  driver->SetMetadataItem(GDAL_DMD_OPENOPTIONLIST, TypeOptions().c_str());
  for (const char* capability : {GDAL_DCAP_OPEN, GDAL_DCAP_VECTOR, GDAL_DCAP_VIRTUALIO,
                                 GDAL_DCAP_Z_GEOMETRIES, GDAL_DCAP_MEASURED_GEOMETRIES}) {
    driver->SetMetadataItem(capability, "YES");
  }
  driver->pfnIdentify = Identify;
  driver->pfnOpen = Open;
  GetGDALDriverManager()->RegisterDriver(driver.release());
}
