#include "cli/BatchWorker.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

#include "cli/ConvertPlan.h"
#include "cli/ConvertRun.h"
#include "cli/FileTypes.h"
#include "cli/TemporaryFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

// What the two processes say to each other are lists of texts: their number, then of each its
// length and its bytes. The first word of an answer tells what it is.
using Words = std::vector<std::string>;
constexpr const char* kTargets = "targets";  // and the paths: may they be made?
constexpr const char* kResult = "result";    // and an outcome

void AppendNumber(std::string& bytes, std::size_t number) {
  const auto value = static_cast<std::uint32_t>(number);
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string Pack(const Words& words) {
  std::string texts, bytes;
  for (const std::string& word : words) {
    AppendNumber(texts, word.size());
    texts += word;
  }
  AppendNumber(bytes, texts.size());
  return bytes + texts;
}

std::size_t LoadNumber(std::string_view bytes) {
  std::uint32_t value = 0;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

// read(bytes, size): false at the end.
template <class Read>
bool Receive(const Read& read, Words& words) {
  constexpr std::size_t kNumber = sizeof(std::uint32_t);
  std::string bytes(kNumber, '\0');
  if (!read(bytes.data(), bytes.size())) return false;
  bytes.resize(LoadNumber(bytes));
  if (!bytes.empty() && !read(bytes.data(), bytes.size())) return false;
  words.clear();
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t size = LoadNumber(rest);
    words.emplace_back(rest.substr(kNumber, size));
    rest.remove_prefix(kNumber + size);
  }
  return true;
}

void AppendList(Words& words, const Words& list) {
  words.push_back(std::to_string(list.size()));
  words.insert(words.end(), list.begin(), list.end());
}

Words TakeList(const Words& words, std::size_t& at) {
  const std::size_t count = std::stoul(words.at(at++));
  const Words list(words.begin() + static_cast<std::ptrdiff_t>(at),
                   words.begin() + static_cast<std::ptrdiff_t>(at + count));
  at += count;
  return list;
}

// Paths go as arguments do.
Words TextsOf(const Paths& paths) {
  Words texts;
  std::ranges::transform(paths, std::back_inserter(texts), platform::ToArgument);
  return texts;
}

Paths PathsOf(const Words& texts) {
  Paths paths;
  std::ranges::transform(texts, std::back_inserter(paths), platform::ToPath);
  return paths;
}

Words WordsOf(const Outcome& outcome, const std::string& from) {
  Words words = {kResult, std::to_string(outcome.code), from, outcome.error};
  for (const Words& list : {outcome.warnings, outcome.messages, TextsOf(outcome.files)}) {
    AppendList(words, list);
  }
  return words;
}

void ReadOutcome(const Words& words, Outcome& outcome, std::string& from) {
  std::size_t at = 1;
  outcome.code = static_cast<ExitCode>(std::stoi(words.at(at++)));
  from = words.at(at++);
  outcome.error = words.at(at++);
  outcome.warnings = TakeList(words, at);
  outcome.messages = TakeList(words, at);
  outcome.files = PathsOf(TakeList(words, at));
}

// ---- The process that converts

bool ReadFromBatch(char* bytes, std::size_t size) {
  return std::fread(bytes, 1, size, stdin) == size;
}

void Answer(const Words& words) {
  WriteOut(Pack(words));
  std::fflush(stdout);
}

Paths AskForTargets(const Paths& targets) {
  Words words = TextsOf(targets);
  words.insert(words.begin(), kTargets);
  Answer(words);
  if (!Receive(ReadFromBatch, words)) throw HostFailure(kFailed, "the batch is over");
  return PathsOf(words);
}

void ConvertAsTold(const Words& words, ConvertRun& run) {
  Options options;
  options.from = words.at(2);
  options.to = words.at(3);
  options.force = !words.at(4).empty();
  Outcome outcome;
  std::string from = options.from;
  Attempt(outcome, [&] {
    const InputFile input(words.at(0), options.from);
    const ConvertPlan plan = MakePlan(input, platform::ToPath(words.at(1)), options);
    from = FindType(plan.conversion.from)->name;
    outcome.warnings = plan.warnings;
    run.Run(plan, options.force, outcome, AskForTargets);
  });
  Answer(WordsOf(outcome, from));
}

}  // namespace

ExitCode RunBatchWorker(const Options&) {
  SetQuiet();
  platform::UseBinaryStreams();
  ConvertRun run;
  for (Words words; Receive(ReadFromBatch, words);) ConvertAsTold(words, run);
  return kConverted;
}

// ---- The process of the batch

BatchWorker::BatchWorker(const Options& options)
    : m_options(options), m_process(kBatchWorkerCommand) {}

BatchWorker::~BatchWorker() {
  m_process.Wait();
  for (const fs::path& folder : m_folders) RemoveAbandonedFolders(folder);
}

// All of the bytes, or false.
bool BatchWorker::Read(char* bytes, std::size_t size) {
  while (size > 0) {
    if (m_received.empty()) {
      m_received = {m_block.data(), m_process.Read(m_block.data(), m_block.size())};
    }
    if (m_received.empty()) return false;
    const std::size_t part = m_received.copy(bytes, size);
    m_received.remove_prefix(part);
    bytes += part;
    size -= part;
  }
  return true;
}

bool BatchWorker::Converse(const BatchFile& file, bool replace, const Judge& judge,
                           Outcome& outcome) {
  const auto read = [this](char* bytes, std::size_t size) { return Read(bytes, size); };
  Words words = {platform::ToArgument(file.input), platform::ToArgument(file.output),
                 m_options.from, m_options.to, replace ? "replace" : ""};
  if (!m_process.Write(Pack(words)) || !Receive(read, words)) return false;
  if (words.at(0) == kTargets) {
    words.erase(words.begin());
    if (!m_process.Write(Pack(judge(words))) || !Receive(read, words)) return false;
  }
  std::string from;
  ReadOutcome(words, outcome, from);
  if (!from.empty()) outcome.about.emplace_back("from", from);
  return true;
}

bool BatchWorker::Convert(const BatchFile& file, bool replace, const Judge& judge,
                          Outcome& outcome) {
  m_folders[0] = std::exchange(m_folders[1], file.output.parent_path());
  if (Converse(file, replace, judge, outcome)) return true;
  outcome = {};
  outcome.error = "the process that converted it " + m_process.Wait();
  return false;
}

}  // namespace zelconvert::cli
