// The names that columns have cut.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "io/Strings.h"

namespace zelconvert {

/// Tells of each name once a file, when the first line that cuts it is written.
class CutNames {
 public:
  /// messages: where the warnings go; null, as at first: nowhere. They stay the caller's.
  void SetMessages(MessageList* messages) { m_pMessages = messages; }
  /// name: the whole of it; width: the characters that stay.
  void Tell(std::wstring_view name, int width) {
    constexpr std::wstring_view kText =
        L"Warning: The name %s is longer than %ld characters and has been cut.";
    if (m_pMessages == nullptr || m_pMessages->IsFull() || m_told.contains(name)) return;
    m_told.emplace(name);
    m_pMessages->Warn(FormatText(FormatText(kText, width), name));
  }

 private:
  MessageList* m_pMessages = nullptr;
  std::set<std::wstring, std::less<>> m_told;
};

}  // namespace zelconvert
