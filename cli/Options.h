// What a command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zelconvert::cli {

/// CommandTable.cpp says which of them a command has; the others stay as they are here. Paths and
/// names as they were given.
struct Options {
  std::string input, second, output;
  std::vector<std::string> files;  ///< of detect, info and batch
  std::string subject;             ///< of help: a command; empty: all of them
  std::string from, to;            ///< short names of types; empty: told by the files
  std::string units;               ///< name of a unit; empty: not said
  std::string format, crs;         ///< of points; empty: csv, native
  std::string tolerance;           ///< of diff, metres; empty: not said
  std::optional<std::string> job;  ///< whose points a log is given
  std::string outDir;
  std::optional<std::string> filesFrom;  ///< names of further files
  std::optional<std::string> report;
  int jobs = 0;  ///< 0: not said
  bool keepGoing = false;
  bool skipExisting = false;
  bool force = false;   ///< an output that exists is replaced
  bool verify = false;  ///< of convert: the output is read back and compared
  bool keep = false;    ///< of convert: an output that lacks something stays
  bool json = false;    ///< of every command: output is one JSON object
  bool quiet = false;   ///< of every command: errors and what was asked for alone
};

}  // namespace zelconvert::cli
