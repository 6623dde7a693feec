// Runs a planned conversion in a staging folder and moves what was made into place.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "cli/ConvertPlan.h"
#include "cli/Outcome.h"
#include "cli/StagingFolder.h"

namespace zelconvert::cli {

/// Told where the files of a conversion are to go if there are more than the output. Returns those
/// of them that must stay as they are there.
using Paths = std::vector<std::filesystem::path>;
using Approve = std::function<Paths(const Paths& targets)>;

/// Runs plans one after the other.
class ConvertRun {
 public:
  /// Appends the messages and the files made. Throws a HostFailure; the messages are there then,
  /// too. approve: null if nobody is to be asked.
  void Run(const ConvertPlan& plan, bool force, Outcome& outcome, const Approve& approve = {});

 private:
  std::unique_ptr<StagingFolder> TakeStaging(const std::filesystem::path& parent);

  std::unique_ptr<StagingFolder> m_pStaging;  // empty, of the run before; null: none
};

}  // namespace zelconvert::cli
