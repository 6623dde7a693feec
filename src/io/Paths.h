// Paths as plain text. "/" and "\" both separate; the platform's own is the one that is appended.
#pragma once

#include <string>
#include <string_view>

namespace zelconvert {

/// True if `path` isn't empty and names an entry that is no directory.
[[nodiscard]] bool FileExists(const std::wstring& path);
/// Up to and including the last separator; the whole text if there is none.
std::wstring GetDirectory(std::wstring_view path);
/// The folder that an entry stands in, with its separator; "." for a name without one.
std::wstring GetFolder(std::wstring_view path);
/// After the last separator; the whole text if there is none.
std::wstring GetFileName(std::wstring_view path);
/// Before the last point; unchanged if there is none.
std::wstring RemoveExtension(std::wstring_view path);
/// Replaces an extension of three characters, or appends; with or without the point. An empty
/// `extension` changes nothing.
void SetExtension(std::wstring& path, std::wstring_view extension);
/// Appends the platform's separator unless one ends the path.
void EnsureSeparator(std::wstring& path);
/// "temp" and the tick count in `directory`; a name that nothing bears. Not created. With no
/// directory the name starts with a separator: the root of the current drive.
std::wstring GetTempJobName(const wchar_t* directory);
/// Such a name with `extension`, and an empty file that bears it, so that no other thread or
/// program takes it too. Where the system lets no file be made the name comes alone.
std::wstring MakeTempJob(const wchar_t* directory, std::wstring_view extension);
/// Folder of the host's executable, with its separator.
std::wstring GetProgramDirectory();

/// The last four characters are `extension`, such as ".job", with or without regard to case.
[[nodiscard]] bool HasExtension(std::wstring_view path, std::wstring_view extension);
[[nodiscard]] bool HasExtensionIgnoringCase(std::wstring_view path, std::wstring_view extension);

}  // namespace zelconvert
