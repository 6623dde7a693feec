// What every command of the host shares: exit codes, failures, output.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace zelconvert::cli {

enum ExitCode {
  kConverted = 0,   ///< or whatever else was asked for is done
  kFailed = 1,      ///< the conversion failed
  kWrongUsage = 2,  ///< the command line asks for what there isn't
  kNoInput = 3,     ///< an input can't be read
  kNoOutput = 4     ///< an output can't be written
};

/// Ends a command. The text is one line for the user, in UTF-8.
class HostFailure : public std::runtime_error {
 public:
  HostFailure(ExitCode code, const std::string& text) : std::runtime_error(text), m_code(code) {}
  ExitCode GetCode() const { return m_code; }

 private:
  ExitCode m_code;
};

/// For the rest of the process: no warnings and no bar.
void SetQuiet();
bool IsQuiet();
/// Whether there is somebody to see how a run gets on.
bool ShowsProgress();

// Names and texts of files are UTF-8 but for bytes that are none. What could do something to a
// screen is printed as tools::Printable shows it.

/// Lines to standard output.
void PrintOut(const std::string& text);
/// One line; its end is added.
void PrintLine(const std::string& text);
/// Data to standard output, as it is.
void WriteOut(const std::string& bytes);
/// The host's own words and bars to standard error, as they are.
void PrintError(const std::string& text);
/// Texts of a conversion, each on a line of its own, to standard error.
void PrintMessages(const std::vector<std::string>& messages);
/// The host's own words, on a line of standard error, in colour if that is a terminal that shows it
/// and NO_COLOR isn't set.
void PrintNote(const std::string& text);
/// Likewise; nothing for an empty text or when quiet.
void PrintWarning(const std::string& text);
/// Prints the note and returns the code.
ExitCode Fail(ExitCode code, const std::string& text);

}  // namespace zelconvert::cli
