#include "cli/GivenFiles.h"

#include <cstdio>
#include <fstream>
#include <vector>

#include "cli/FileChecks.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

constexpr const char* kInputName = "standard input";
constexpr const char* kOutputName = "standard output";

std::unique_ptr<TemporaryFolder> MakeFolder(const std::string& name, const std::string& extension,
                                            const char* option) {
  if (extension.empty()) {
    throw HostFailure(kWrongUsage, name + " has no name that tells its type; " + option + " does");
  }
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

}  // namespace

bool IsStandardStream(const std::string& argument) {
  return argument == "-";
}

InputFile::InputFile(const std::string& argument, const std::string& extension) {
  if (!IsStandardStream(argument)) {
    m_path = Absolute(argument);
    return;
  }
  m_pFolder = MakeFolder(kInputName, extension, "--from");
  m_path = m_pFolder->GetPath() / (kInputName + extension);
  SaveStandardInput(m_path);
}

std::string InputFile::GetName() const {
  return m_pFolder != nullptr ? kInputName : ToText(m_path);
}

void InputFile::RenameIn(Outcome& outcome) const {
  Rename(outcome, ToText(m_path), GetName());
}

OutputFile::OutputFile(const std::string& argument, const std::string& extension) {
  if (!IsStandardStream(argument)) {
    m_path = Absolute(argument);
    return;
  }
  m_pFolder = MakeFolder(kOutputName, extension, "--to");
  m_path = m_pFolder->GetPath() / (kOutputName + extension);
}

void OutputFile::Send(Outcome& outcome) const {
  if (!IsStandardOutput()) return;
  WriteToStandardOutput(outcome.files.front());
  for (std::size_t i = 1; i < outcome.files.size(); ++i) {
    AddWarning(outcome.warnings, "standard output takes one file: " +
                                     ToText(outcome.files[i].filename()) + " is left out");
  }
  outcome.files.clear();
}

std::string OutputFile::GetName() const {
  return IsStandardOutput() ? kOutputName : ToText(m_path);
}

void OutputFile::RenameIn(Outcome& outcome) const {
  Rename(outcome, ToText(m_path), GetName());
}

}  // namespace zelconvert::cli
