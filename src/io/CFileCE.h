// The binary file under every format: boolean results instead of exceptions, read-ahead and
// write-behind buffers, a line reader and a line writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"

namespace zelconvert {

class CFileCE {
 public:
  /// bUnicode: lines are UTF-16LE in the file, else 8-bit text of the platform.
  explicit CFileCE(bool bUnicode = false);
  virtual ~CFileCE();
  CFileCE(const CFileCE&) = delete;
  CFileCE& operator=(const CFileCE&) = delete;

  /// flags: an access word of Platform.h. False if already open or refused.
  bool Open(const std::wstring& path, std::uint32_t flags);
  /// True if not open. False if the close, or a write that was still held back, failed.
  bool Close();
  bool IsOpen() const;
  /// The path of the last successful Open.
  const std::wstring& GetPath() const;
  /// Replaces the read-ahead buffer; 0 reads without one.
  void SetBufferSize(std::uint32_t kilobytes);

  /// Reads up to `count` bytes. With `pRead` the number read is stored and a short read is a
  /// success; without it a short read is false (what was there has been copied).
  bool Read(void* buffer, std::size_t count, std::size_t* pRead = nullptr);
  /// False at once if the line reader holds unread characters. The bytes reach the platform in
  /// blocks: a full disk may show at a later call, at Close, and in HasWriteFailed.
  bool Write(const void* buffer, std::size_t count);
  /// True once any write, flush or close has failed.
  bool HasWriteFailed() const;

  /// The next line without its line end (LF or CR LF), in `text`, whose memory is reused. False at
  /// the end of the file; a last line without line end is a line, and keeps a CR at its end.
  bool ReadLine(std::wstring& text);
  /// Writes `text` and CR LF; a text with line feeds in it becomes several lines.
  bool WriteLine(std::wstring_view text);
  bool Flush();

  std::int64_t GetPosition();
  bool Seek(std::int64_t offset, platform::SeekFrom from);
  bool SeekToBegin();
  bool SeekToEnd();
  bool SeekTo(std::int64_t position);
  std::int64_t GetLength();
};

}  // namespace zelconvert
