// A bar on standard error while a conversion runs.
#pragma once

#include "cli/platform/Host.h"

namespace zelconvert::cli {

class ProgressBar {
 public:
  ProgressBar();

 private:
  void Show(int percent);

  int m_shown = -1;
  platform::ProgressWindow m_window;
};

}  // namespace zelconvert::cli
