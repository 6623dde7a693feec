// The files of a command line, of which one to read and one to make may be "-", standard input and
// output. Conversions need files with names: each becomes one in a private temporary folder.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "cli/Outcome.h"
#include "cli/TemporaryFolder.h"

namespace zelconvert::cli {

bool IsStandardStream(const std::string& argument);

class InputFile {
 public:
  /// extension: of a file of the type that standard input is said to be; empty if nothing says it.
  /// Standard input is read to its end. Throws a HostFailure.
  InputFile(const std::string& argument, const std::string& extension);

  /// Absolute. A temporary file stands as long as this.
  const std::filesystem::path& GetPath() const { return m_path; }
  /// For the user's eyes.
  std::string GetName() const;
  /// Makes the texts call standard input by its name.
  void RenameIn(Outcome& outcome) const;

 private:
  std::unique_ptr<TemporaryFolder> m_pFolder;  // null: a file that the user named
  std::filesystem::path m_path;
};

class OutputFile {
 public:
  /// As of an input.
  OutputFile(const std::string& argument, const std::string& extension);

  bool IsStandardOutput() const { return m_pFolder != nullptr; }
  const std::filesystem::path& GetPath() const { return m_path; }
  std::string GetName() const;
  /// For standard output: writes the first of the files there, and warns of each other. To be
  /// called when they are made. Throws a HostFailure.
  void Send(Outcome& outcome) const;
  void RenameIn(Outcome& outcome) const;

 private:
  std::unique_ptr<TemporaryFolder> m_pFolder;
  std::filesystem::path m_path;
};

}  // namespace zelconvert::cli
