// Runs a fuzz target over stored inputs: every argument is a file, or a folder of files.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int g_runs = 0;

void RunFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  ++g_runs;
}

void RunPath(const std::filesystem::path& path) {
  if (!std::filesystem::is_directory(path)) return RunFile(path);
  for (const auto& entry : std::filesystem::directory_iterator(path)) {
    if (entry.is_regular_file()) RunFile(entry.path());
  }
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::filesystem::exists(argv[i])) RunPath(argv[i]);
  }
  std::printf("%d stored inputs\n", g_runs);
  return g_runs == 0;  // a target without any input tests nothing
}
