// zelconvert generate PAGE: for whoever changes the table of commands; the pages are kept beside
// it, so that a package for another system can be built.
#include <string>

#include "cli/Commands.h"
#include "cli/Pages.h"

namespace zelconvert::cli {

ExitCode RunGenerate(const Options& options) {
  const std::string& page = options.subject;
  WriteOut(page == "man"    ? MakeManPage()
           : page == "bash" ? MakeBashCompletion()
           : page == "zsh"  ? MakeZshCompletion()
           : page == "fish" ? MakeFishCompletion()
                            : MakeRoutesPage());
  return kConverted;
}

}  // namespace zelconvert::cli
