#include "dc/CutNames.h"

#include "io/Strings.h"

namespace zelconvert {

void CutNames::Tell(std::wstring_view name, int width) {
  constexpr std::wstring_view kText =
      L"Warning: The name %s is longer than %ld characters and has been cut.";
  if (m_pMessages == nullptr || m_told.contains(name)) return;
  m_told.emplace(name);
  m_pMessages->push_back(FormatText(FormatText(kText, width), name));
}

}  // namespace zelconvert
