// Commands for what no function of the library does: they run a conversion of the core, with the
// care for files that "convert" takes.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zelconvert::cli {

struct DirectArguments {
  std::vector<std::string> inputs;
  std::string output;
  bool force = false;
};

/// Paths as the core takes them; the output is one of a staging folder, with its later name.
struct DirectFiles {
  std::vector<std::wstring> inputs;
  std::wstring output;
};

/// Makes the output, or throws a HostFailure.
using DirectConversion = std::function<void(const DirectFiles& files)>;

/// A file argument for each name in `inputs`, then OUT and --force.
std::shared_ptr<DirectArguments> AddDirectArguments(CLI::App& command,
                                                    const std::vector<std::string>& inputs);

/// Checks the files, converts, and moves what was made into place. Throws a HostFailure.
void RunDirect(const DirectArguments& arguments, const DirectConversion& convert);

/// Texts of a conversion, one a line, to standard error.
void PrintMessages(const std::vector<std::wstring>& messages);

}  // namespace zelconvert::cli
