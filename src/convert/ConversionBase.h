// What every conversion class shares: the two bases, and the texts of a record that can't be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelconvert {

/// Texts in the order they arose; the paths of files made.
using StringList = std::vector<std::wstring>;

/// Texts for the host. A file may give cause for a warning with each of its lines, so of the
/// warnings only the first are kept.
class MessageList : public StringList {
 public:
  /// Adds the text of a run that goes on. At the first one too many a text takes its place that
  /// says so; the rest is dropped. What ends a run is added by push_back and never dropped.
  void Warn(std::wstring text) {
    constexpr std::wstring_view kMoreText = L"There are more warnings; they are not listed.";
    if (IsFull()) return;
    m_characters += text.size();
    push_back(IsFull() ? std::wstring(kMoreText) : std::move(text));
  }
  [[nodiscard]] bool IsFull() const { return m_characters > kMostCharacters; }

 private:
  /// Some thousands of warnings, with names of the usual length.
  static constexpr std::size_t kMostCharacters = std::size_t{1} << 19;
  std::size_t m_characters = 0;  // of the warnings
};

/// Files made beside the output, all in one folder. As many may come of an input as it has lines,
/// so each takes a few bytes.
class FilesBeside {
 public:
  /// Before the first file. folder: with a separator at its end.
  void SetFolder(std::wstring_view folder);
  /// The path of a new file, which is in the list from here on. name: ASCII.
  const std::wstring& Add(std::wstring_view name);
  /// Takes the file away from the list that came last.
  void DropLast();
  std::size_t GetCount() const { return m_count; }
  /// Deletes the files and forgets them.
  void Remove() noexcept;

 private:
  std::wstring m_path;  // the folder, then a name; has room for any that came
  std::size_t m_folderLength = 0;
  std::string m_names;  // a zero after each
  std::size_t m_count = 0;
};

/// What a run tells its host.
struct Report {
  StringList files;      ///< the paths of the files made
  MessageList messages;  ///< warnings and errors, in the order they arose
  FilesBeside beside;    ///< which no host is told of: the files of roads

  /// Says why a run ends, and is false.
  [[nodiscard]] bool Refuse(std::wstring_view text) {
    messages.emplace_back(text);
    return false;
  }
};

/// What a host asks for. The types are its numbers, unchecked.
struct ConvertRequest {
  int inputType = -1;
  std::wstring input;
  int outputType = -1;
  std::wstring output;
  int units = 0;  ///< of a CR5 input: 0 metres, 1 international feet, 2 US survey feet
  std::wstring featureFile = {};  ///< may be empty
};

/// Thrown where a file breaks a conversion in a way that no text of its own words, such as a DC
/// header line that is too short. Nothing between there and the driver catches it: the driver ends
/// the run as a failed one with its general text.
struct ConversionFailure : std::exception {
  const char* what() const noexcept override { return "a record that can't be converted"; }
};

/// Base of the conversions between a foreign format and a native one. The two files are `File1`
/// (the foreign or text side) and `File2` (the job side); they stay the driver's, open, for the
/// whole life of the conversion.
template <class File1, class File2>
class CConvFile {
 public:
  CConvFile() = default;
  CConvFile(File1* file1, File2* file2) : m_pFile1(file1), m_pFile2(file2) {}
  virtual ~CConvFile() = default;
  CConvFile(const CConvFile&) = delete;
  CConvFile& operator=(const CConvFile&) = delete;

  /// Both append to the report: messages, and the files made beside the output. The base converts
  /// nothing.
  [[nodiscard]] virtual bool ConvertToNative(Report& /*report*/) { return false; }
  [[nodiscard]] virtual bool ConvertFromNative(Report& /*report*/) { return false; }

  /// True: `File1` is read and `File2` written; false: the reverse.
  void SetDirection(bool toNative) { m_bDirection = toNative; }

 protected:
  File1* m_pFile1 = nullptr;
  File2* m_pFile2 = nullptr;
  bool m_bDirection = true;  // with its setter, a name alone: a conversion has a function each way
};

/// Base of the conversions of a raw log. Both append to the report, and are false for a conversion
/// that isn't whole.
class CConvRawFile {
 public:
  virtual ~CConvRawFile() = default;
  [[nodiscard]] virtual bool ConvertToRaw(Report& report) = 0;
  [[nodiscard]] virtual bool ConvertFromRaw(Report& report) = 0;
};

/// Deletes the files at these paths, which a run has made, and forgets them.
void RemoveFiles(StringList& paths);
inline void RemoveFiles(FilesBeside& files) {
  files.Remove();
}

/// "Could not read %ith record: %s." and its twin. n: the number of the record, from 0; text: what
/// it is called.
std::wstring FormatRecordReadError(std::int64_t n, std::wstring_view text);
std::wstring FormatRecordParseError(std::int64_t n, std::wstring_view text);

}  // namespace zelconvert
