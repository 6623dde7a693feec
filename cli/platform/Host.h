// What the host needs of the operating system beyond the standard library. posix/ and win32/
// implement it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace zelconvert::cli::platform {

/// The arguments after the program's name, in UTF-8. (POSIX: the bytes as they are.)
std::vector<std::string> GetArguments(int argc, char** argv);
/// Once, first: output takes UTF-8, and a file that may not grow further is a failed write.
void PrepareProcess();
bool IsOutputATerminal();
bool IsErrorATerminal();
/// Whether standard error is a terminal that takes escape sequences.
bool ErrorShowsColour();
/// From now on the bytes of standard input and output are what a program reads and writes.
void UseBinaryStreams();

/// A path as an argument gives it; "/" and "\" both separate, as in the library.
std::filesystem::path ToPath(std::string_view argument);
/// The argument that gives the path.
std::string ToArgument(const std::filesystem::path& path);
/// A path as the library takes it.
std::wstring ToLibrary(const std::filesystem::path& path);
/// A path for the user's eyes: in UTF-8, but for what is none in the name itself.
std::string ToText(const std::filesystem::path& path);
/// A text of the library, in which paths are what ToText makes of them.
std::string FromLibraryText(std::wstring_view text);

/// Equal for two spellings that the system takes for one name.
std::filesystem::path::string_type NameKey(std::filesystem::path::string_type name);

/// Whether the file opens for reading.
bool IsReadable(const std::filesystem::path& path);

/// Gives a file that was just made its place, in the same file system. If it may not replace one,
/// the error is file_exists where there is an entry of that name, whoever made it when.
void MoveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to, bool replace,
                   std::error_code& error);
/// When it returns without an error what was written is on the disk, where there is one.
void FlushFile(const std::filesystem::path& path, std::error_code& error);
/// Likewise what was moved into a folder, as far as the system lets one know.
void FlushFolder(const std::filesystem::path& path);
/// A file for writing, null if it can't be opened. If it may not replace one, it is new.
std::FILE* OpenForWriting(const std::filesystem::path& path, bool replace);

/// Receives the progress of conversions while it lives, of those of the library and of those of the
/// core that the host is linked to. `receive` gets the percentage; -1: the
/// conversion has ended.
class ProgressWindow {
 public:
  explicit ProgressWindow(std::function<void(int percent)> receive);
  ~ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;

 private:
  struct Window;
  std::unique_ptr<Window> m_pWindow;
};

// What a run that the user breaks off doesn't leave.

/// Makes a folder for files that goes away with them, whose owner alone may look into it. False if
/// there is an entry of this name or another run has taken the new one away, or with `error`.
bool MakeTemporaryFolder(const std::filesystem::path& path, std::error_code& error);
/// Removes one that was made so, with all that is in it.
void RemoveTemporaryFolder(const std::filesystem::path& path);
/// Removes one whose process was killed; nothing if that lives.
void RemoveIfAbandoned(const std::filesystem::path& path);
/// Gives a file that is read-only now that attribute back. One file at a time; to be called before
/// the folder is made.
void KeepReadOnly(const std::filesystem::path& file);

}  // namespace zelconvert::cli::platform
