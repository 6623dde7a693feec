// What a package installs beside the host, made of the table of commands.
#pragma once

#include <string>

namespace zelconvert::cli {

/// For man, in the language of its macros.
std::string MakeManPage();

/// What every route carries and drops, in Markdown.
std::string MakeRoutesPage();

// Scripts that complete command lines in a shell.

std::string MakeBashCompletion();
std::string MakeZshCompletion();
std::string MakeFishCompletion();

}  // namespace zelconvert::cli
