// The two lists of cZelFileConvert, freed as a host frees them.
#pragma once

#include <string>
#include <vector>

#include "zelconvert/zelconvert.h"

namespace zelconvert {

struct HostLists {
  wchar_t** files = nullptr;
  wchar_t** messages = nullptr;

  HostLists() = default;
  ~HostLists() { cZelFreeAfterFileConvert(files, messages); }
  HostLists(const HostLists&) = delete;
  HostLists& operator=(const HostLists&) = delete;

  bool Convert(int from, const std::wstring& input, int to, const std::wstring& output,
               int units = 0, const std::wstring& job = {}) {
    return cZelFileConvert(from, input.c_str(), to, output.c_str(), &files, &messages, units,
                           job.empty() ? nullptr : job.c_str()) != 0;
  }

  static std::vector<std::wstring> Copy(wchar_t** texts) {
    std::vector<std::wstring> copy;
    for (; texts != nullptr && *texts != nullptr; ++texts) copy.emplace_back(*texts);
    return copy;
  }
  std::vector<std::wstring> Files() const { return Copy(files); }
  std::vector<std::wstring> Messages() const { return Copy(messages); }
};

}  // namespace zelconvert
