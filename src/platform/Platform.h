// The one border to the operating system: files, attributes, clock, heap, 8-bit text, windows.
// posix/ and win32/ implement it; no other folder includes a system header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zelconvert/zelconvert.h"

namespace zelconvert::platform {

/// The separator that is appended where a path needs one. Both "/" and "\" are accepted everywhere.
extern const wchar_t kPathSeparator;

/// Access words of File::Open: the sum of the bits below.
inline constexpr std::uint32_t kAccessWrite = 0x0001;
inline constexpr std::uint32_t kAccessReadWrite = 0x0002;
inline constexpr std::uint32_t kAccessDenyWrite = 0x0020;
inline constexpr std::uint32_t kAccessCreate = 0x1000;      ///< made if absent, else truncated
inline constexpr std::uint32_t kAccessNoTruncate = 0x2000;  ///< with create: keeps what is there

// A file that is only to be opened, not made, and may not be written (a read-only medium, no
// permission) is opened for reading all the same: asking for both keeps others from changing an
// input while it is read.
inline constexpr std::uint32_t kOpenReadOnly = 0x0020;
/// For a look at a file that others may be writing.
inline constexpr std::uint32_t kOpenShared = 0x0000;
inline constexpr std::uint32_t kOpenReadWrite = 0x0022;
inline constexpr std::uint32_t kCreateOutput = 0x1022;
inline constexpr std::uint32_t kOpenText = 0x2022;

enum class SeekFrom { Begin = 0, Current = 1, End = 2 };

/// An open file, unbuffered. Deny-write holds within the process, in all its threads, on every
/// platform: while a file is open, a second open of it (by any path or link) fails if one may write
/// and the other isn't kOpenShared. A file that is open can be deleted everywhere. Directories
/// don't open, nor devices of Windows as outputs. An object belongs to one thread at a time.
class File {
 public:
  File();
  /// Closes; a failure is lost.
  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  /// False, with nothing changed on disk, if already open or refused by the system.
  [[nodiscard]] bool Open(const std::wstring& path, std::uint32_t access);
  /// Between a successful Open and Close; otherwise Read, Write, Seek and Length
  /// fail.
  [[nodiscard]] bool IsOpen() const;
  /// Bytes read, fewer than `count` only at the end of the file; nullopt on an error.
  std::optional<std::size_t> Read(void* buffer, std::size_t count);
  /// All of it or false.
  [[nodiscard]] bool Write(const void* buffer, std::size_t count);
  /// The new position from the start, or nullopt (a position below 0 is refused).
  std::optional<std::int64_t> Seek(std::int64_t offset, SeekFrom from);
  /// Bytes, or nullopt.
  std::optional<std::int64_t> Length() const;
  /// True if not open. False if the system reported a late write error; the file is closed anyway.
  [[nodiscard]] bool Close();

 private:
  struct Handle;
  std::unique_ptr<Handle> m_pHandle;
};

struct Attributes {
  bool isDirectory = false;
  bool isReadOnly = false;  ///< POSIX: the owner has no write permission
  std::uint32_t word = 0;   ///< the system's own word, for RestoreAttributes
};

/// nullopt: nothing there, or not to be looked at.
std::optional<Attributes> GetAttributes(const std::wstring& path);
/// Makes the file writable for its owner, all else as `found`.
[[nodiscard]] bool ClearReadOnly(const std::wstring& path, const Attributes& found);
/// Puts back what GetAttributes found. Both are false if the system refuses.
[[nodiscard]] bool RestoreAttributes(const std::wstring& path, const Attributes& found) noexcept;
/// Deletes a file, open or not; false if absent or refused. Devices stay.
[[nodiscard]] bool RemoveFile(const std::wstring& path) noexcept;
enum class NewFile { Made, Taken, Refused };
/// Makes an empty file of a name that nothing has, not even a link to nowhere: of all who ask at
/// once, one makes it. Refused: by the system, for whatever else.
NewFile MakeNewFile(const std::wstring& path);
/// Whether both paths name one file that is there, by whatever links.
[[nodiscard]] bool IsSameFile(const std::wstring& path, const std::wstring& other);

/// Milliseconds of a monotonic clock, wrapping at 2^32.
std::uint32_t SystemTickCount();

/// Date and time of day in the zone of the machine.
struct LocalTime {
  std::uint16_t year = 0, month = 0, dayOfWeek = 0, day = 0;  ///< month 1-12, Sunday 0, day 1-31
  std::uint16_t hour = 0, minute = 0, second = 0, millisecond = 0;
};
/// Now.
LocalTime SystemLocalTime();

/// Folder of the running executable with a separator at its end; empty if unknown.
std::wstring ProgramDirectory();

/// A zeroed block that the host frees: HeapFree on the process heap on Windows, free() elsewhere.
/// Never null for 0 bytes; null when memory is short.
void* AllocateForHost(std::size_t bytes);

/// Append the other form of `text`. 8-bit text is the ANSI code page on Windows; elsewhere
/// windows-1252 with 81 8D 8F 90 9D as the code points of the same number, so that every byte
/// survives a round trip. A character without a byte becomes "?". Zero characters and bytes are
/// kept.
void AppendWide(std::wstring& out, std::string_view text);
void AppendNarrow(std::string& out, std::wstring_view text);

/// The number of the progress message, the same for the life of the process.
std::uint32_t CallbackMessage();
/// Whether messages can be sent to it; false for null.
[[nodiscard]] bool IsWindowAlive(ZelWindowHandle window);
/// Delivers the message and waits until it has been handled. `window` may be dead, not null.
void SendToWindow(ZelWindowHandle window, std::uintptr_t wParam, std::intptr_t lParam);

}  // namespace zelconvert::platform
