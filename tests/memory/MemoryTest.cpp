// What conversions of hostile files take: every allocation of this program is counted.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"
#include "memory/HostileFiles.h"

namespace zelconvert {
namespace {

struct Memory {
  std::size_t held = 0, peak = 0, calls = 0;
};
Memory g_memory;

// In front of each block stands its size.
constexpr std::size_t kHead = alignof(std::max_align_t);

void* Allocate(std::size_t size) noexcept {
  auto* const block = static_cast<char*>(std::malloc(size + kHead));
  if (block == nullptr) return nullptr;
  *reinterpret_cast<std::size_t*>(block) = size;
  ++g_memory.calls;
  g_memory.held += size;
  g_memory.peak = std::max(g_memory.peak, g_memory.held);
  return block + kHead;
}

void Free(void* block) noexcept {
  if (block == nullptr) return;
  char* const start = static_cast<char*>(block) - kHead;
  g_memory.held -= *reinterpret_cast<std::size_t*>(start);
  std::free(start);
}

}  // namespace
}  // namespace zelconvert

void* operator new(std::size_t size) {
  void* const block = zelconvert::Allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return zelconvert::Allocate(size);
}
void operator delete(void* block) noexcept {
  zelconvert::Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  zelconvert::Free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  zelconvert::Free(block);
}

namespace zelconvert {
namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20;

struct Conversion {
  std::size_t input = 0, lines = 0, peak = 0, calls = 0;  // bytes; above what was held before
  bool converted = false;
};

Conversion Convert(FileType from, const std::wstring& input, FileType to,
                   const std::wstring& output) {
  const std::string bytes = ReadBytes(ToPath(input));
  Conversion run{bytes.size(),
                 static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'))};
  HostLists lists;
  g_memory.peak = g_memory.held;
  const Memory before = g_memory;
  run.converted = lists.Convert(from, input, to, output);
  run.peak = g_memory.peak - before.held;
  run.calls = g_memory.calls - before.calls;
  return run;
}

// All runs over one input, in the order of the routes.
std::vector<Conversion> ConvertToAll(const TempDir& dir, FileType from, const std::wstring& input) {
  std::vector<Conversion> runs;
  for (const FileType to : OutputsOf(from)) {
    const std::wstring output = dir.Path(L"out" + std::to_wstring(to) + L".job");
    runs.push_back(Convert(from, input, to, output));
    if (to != FT_JOB || !runs.back().converted) continue;
    const std::vector<Conversion> next = ConvertToAll(dir, to, output);
    runs.insert(runs.end(), next.begin(), next.end());
  }
  return runs;
}

std::vector<Conversion> ConvertToAll(const HostileFile& file, std::size_t size) {
  const TempDir dir;
  return ConvertToAll(dir, file.type, dir.Write(L"in.x", MakeHostile(file, size)));
}

// The larger file shows what grows and how fast; what doesn't has room beside.
TEST(Memory, IsAtMostSomeTimesTheInput) {
  for (const HostileFile& file : ReadHostileFiles()) {
    const std::vector<Conversion> small = ConvertToAll(file, kMiB * 3 / 8);
    const std::vector<Conversion> large = ConvertToAll(file, kMiB * 9 / 8);
    ASSERT_EQ(small.size(), large.size()) << file.name;
    for (std::size_t i = 0; i < large.size(); ++i) {
      SCOPED_TRACE(testing::Message()
                   << file.name << ", run " << i << " of it, peak " << large[i].peak << " after "
                   << small[i].peak << ", calls " << large[i].calls);
      EXPECT_LT(large[i].peak, 4 * large[i].input + 8 * kMiB);
      const std::size_t grown = large[i].peak - std::min(large[i].peak, small[i].peak);
      EXPECT_LE(grown, file.most * (large[i].input - small[i].input) + 4096);
      // None for each field: the records here have up to twelve.
      EXPECT_LE(large[i].calls, 8 * large[i].lines + 500);
    }
  }
}

// Of a line without an end no more is kept than counts.
TEST(Memory, IsThatOfALineAtMost) {
  for (const HostileFile& file : ReadHostileFiles()) {
    if (file.record != "x") continue;
    for (const Conversion& run : ConvertToAll(file, 4 * kMiB)) {
      EXPECT_LT(run.peak, run.input) << file.name;
    }
  }
}

}  // namespace
}  // namespace zelconvert
