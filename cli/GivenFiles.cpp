#include "cli/GivenFiles.h"

#include <cstdio>
#include <fstream>
#include <vector>

#include "cli/FileChecks.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

constexpr const char* kInputName = "standard input";
constexpr const char* kOutputName = "standard output";

std::unique_ptr<TemporaryFolder> MakeFolder() {
  platform::UseBinaryStreams();
  return std::make_unique<TemporaryFolder>();
}

constexpr std::size_t kBlockSize = 1 << 16;

void SaveStandardInput(const fs::path& path) {
  std::ofstream file(path, std::ios::binary);
  std::vector<char> block(kBlockSize);
  for (std::size_t size = 0; (size = std::fread(block.data(), 1, block.size(), stdin)) != 0;) {
    file.write(block.data(), static_cast<std::streamsize>(size));
  }
  if (std::ferror(stdin) != 0) throw HostFailure(kNoInput, "standard input can't be read");
  file.close();
  if (!file) {
    throw HostFailure(kNoOutput, "standard input can't be kept in the folder " +
                                     ToText(path.parent_path().parent_path()));
  }
}

void WriteToStandardOutput(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> block(kBlockSize);
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())) ||
         file.gcount() != 0) {
    std::fwrite(block.data(), 1, static_cast<std::size_t>(file.gcount()), stdout);
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw HostFailure(kNoOutput, "standard output can't be written");
  }
}

std::string TellLeftOut(const std::vector<fs::path>& files) {
  std::string names;
  for (std::size_t i = 1; i < files.size(); ++i) {
    names += (names.empty() ? "" : ", ") + ToText(files[i].filename());
  }
  if (names.empty()) return {};
  return "standard output takes one file; left out, and made beside an OUT with a name: " + names;
}

}  // namespace

bool IsStandardStream(const std::string& argument) {
  return argument == "-";
}

InputFile::InputFile(const std::string& argument, const std::string& asked, const char* option)
    : m_asked(FindType(asked)), m_option(option) {
  if (IsStandardStream(argument)) {
    TakeStandardInput();
  } else {
    m_path = Absolute(argument);
    m_given = ToText(platform::ToPath(argument));
  }
}

// The library tells brands of jobs by extensions.
void InputFile::TakeStandardInput() {
  const bool isTaken = std::feof(stdin) != 0;
  if (isTaken) throw HostFailure(kWrongUsage, "standard input is one file");
  if (m_asked != nullptr && IsPair(m_asked->type)) {
    throw HostFailure(kWrongUsage,
                      "standard input is one file, " + std::string(m_asked->name) + " are two");
  }
  m_given = kInputName;
  m_pFolder = MakeFolder();
  m_path = m_pFolder->GetPath() / kInputName;
  SaveStandardInput(m_path);
  const TypeInfo* type = TellType().type;
  if (type == nullptr) return;
  const fs::path named = fs::path(m_path) += GetExtension(type->type);
  fs::rename(m_path, named);
  m_path = named;
}

std::string InputFile::GetName() const {
  return m_pFolder != nullptr ? kInputName : ToText(m_path);
}

ToldType InputFile::TellType() const {
  if (m_asked != nullptr) return {m_asked, "as " + std::string(m_option) + " says"};
  return m_pFolder != nullptr ? TellTypeByContents(m_path) : cli::TellType(m_path);
}

const TypeInfo& InputFile::GetType() const {
  if (m_asked != nullptr) return *m_asked;
  CheckReadable(m_path);
  const ToldType told = TellType();
  if (m_pFolder == nullptr || told.type != nullptr) return CheckType(told, m_given, m_option);
  throw HostFailure(
      kWrongUsage, "standard input begins as no type does; " + std::string(m_option) + " names it");
}

void InputFile::RenameIn(Outcome& outcome) const {
  Rename(outcome, ToText(m_path), GetName());
}

void InputFile::RenameIn(std::vector<std::string>& texts) const {
  Rename(texts, ToText(m_path), GetName());
}

OutputFile::OutputFile(const std::string& argument, const std::string& extension, bool json) {
  if (!IsStandardStream(argument)) {
    m_path = Absolute(argument);
    return;
  }
  if (json) {
    throw HostFailure(kWrongUsage, "standard output can't take both OUT and what --json prints");
  }
  if (extension.empty()) {
    throw HostFailure(kWrongUsage, "standard output has no name that tells its type; --to does");
  }
  m_pFolder = MakeFolder();
  m_path = m_pFolder->GetPath() / (kOutputName + extension);
}

void OutputFile::Send(Outcome& outcome) const {
  if (!IsStandardOutput()) return;
  WriteToStandardOutput(outcome.files.front());
  AddWarning(outcome.warnings, TellLeftOut(outcome.files));
  outcome.files.clear();
}

std::string OutputFile::GetName() const {
  return IsStandardOutput() ? kOutputName : ToText(m_path);
}

void OutputFile::RenameIn(Outcome& outcome) const {
  Rename(outcome, ToText(m_path), GetName());
}

}  // namespace zelconvert::cli
