// The files of a command line, of which one to read and one to make may be "-", standard input and
// output. Conversions need files with names: each becomes one in a private temporary folder.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "cli/InputType.h"
#include "cli/Outcome.h"
#include "cli/TemporaryFolder.h"

namespace zelconvert::cli {

bool IsStandardStream(const std::string& argument);

class InputFile {
 public:
  /// asked: the short name of its type, or empty if name and contents are to tell; option: what
  /// asks for it. Standard input is read to its end. Throws a HostFailure.
  InputFile(const std::string& argument, const std::string& asked, const char* option = "--from");

  /// Absolute. A temporary file stands as long as this.
  const std::filesystem::path& GetPath() const { return m_path; }
  /// For the user's eyes: the path, and the file as it was given.
  std::string GetName() const;
  const std::string& GetGivenName() const { return m_given; }
  /// The type as it is asked for, or else as it is told. Of a file that can be read.
  ToldType TellType() const;
  /// Throws a HostFailure for a file that can't be read, or whose type isn't told.
  const TypeInfo& GetType() const;
  /// Makes the texts call standard input by its name.
  void RenameIn(Outcome& outcome) const;
  void RenameIn(std::vector<std::string>& texts) const;

 private:
  void TakeStandardInput();

  std::unique_ptr<TemporaryFolder> m_pFolder;  // null: a file that the user named
  std::filesystem::path m_path;
  std::string m_given;
  const TypeInfo* m_asked;  // null: no type
  const char* m_option;
};

class OutputFile {
 public:
  /// extension: of a file of the type that standard output is to be; empty if nothing says it.
  /// json: whether JSON goes to standard output. Throws a HostFailure.
  OutputFile(const std::string& argument, const std::string& extension, bool json);

  bool IsStandardOutput() const { return m_pFolder != nullptr; }
  const std::filesystem::path& GetPath() const { return m_path; }
  std::string GetName() const;
  /// For standard output: writes the first of the files there, and warns of the others. To be
  /// called when they are made. Throws a HostFailure.
  void Send(Outcome& outcome) const;
  void RenameIn(Outcome& outcome) const;

 private:
  std::unique_ptr<TemporaryFolder> m_pFolder;
  std::filesystem::path m_path;
};

}  // namespace zelconvert::cli
