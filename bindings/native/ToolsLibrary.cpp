#include <cstdlib>
#include <cstring>
#include <functional>

#include "bindings/native/Run.h"
#include "bindings/native/zelconvert_tools.h"

namespace {

char* Copy(const std::string& text) {
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy != nullptr) std::memcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

}  // namespace

extern "C" {

int32_t zelToolsRun(const char* words, size_t length, ZelToolsPercent percent, void* context,
                    char** answer) {
  std::function<void(int)> onPercent;
  if (percent != nullptr) onPercent = [=](int value) { percent(context, value); };
  const zelconvert::bindings::Answer told = zelconvert::bindings::Run({words, length}, onPercent);
  *answer = Copy(told.json);
  return told.code;
}

void zelToolsFree(char* answer) {
  std::free(answer);
}
}
