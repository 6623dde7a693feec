// Texts of files, names and messages on their way to a screen: none may move its cursor, change its
// state, or pass for a line of the program's own.
#pragma once

#include <string>
#include <string_view>

namespace zelconvert::tools {

/// UTF-8 on one line: control characters, and those that end lines or turn the direction of
/// writing, become "\n", "\x1b", "\u009b", and bytes that are no UTF-8 "\xff".
std::string Printable(std::string_view text);
/// The same of wide text.
std::wstring Printable(std::wstring_view text);
/// The same of several lines, whose ends stay. Of JSON it is JSON.
std::string PrintableLines(std::string text);

}  // namespace zelconvert::tools
