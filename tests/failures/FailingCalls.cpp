#include "failures/FailingCalls.h"

#include <cstdlib>
#include <new>

namespace zelconvert::failing {

State g_state;

bool Fails(Kind kind, const char* name) {
  State& state = g_state;
  if (!state.isOn || kind != state.kind) return false;
  const std::size_t number = state.count++;
  if (number != state.number && (number < state.number || state.times == Times::Once)) return false;
  if (*state.failed == '\0') state.failed = name;
  return true;
}

Watch::Watch(Kind kind, std::size_t number, Times times) {
  g_state = {true, kind, times, number, 0, "", 0};
}
Watch::~Watch() {
  g_state.isOn = false;
}
std::size_t Watch::Count() const {
  return g_state.count;
}
const char* Watch::Failed() const {
  return g_state.failed;
}
int Watch::Open() const {
  return g_state.open;
}

}  // namespace zelconvert::failing

using zelconvert::failing::Fails;
using zelconvert::failing::Kind;

void* operator new(std::size_t size) {
  void* const block = Fails(Kind::Allocation, "new") ? nullptr : std::malloc(size ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Fails(Kind::Allocation, "new") ? nullptr : std::malloc(size ? size : 1);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
