#include "cli/ProgressBar.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/Host.h"

namespace zelconvert::cli {
namespace {

constexpr char kMarks[] = "########################################";
constexpr int kWidth = sizeof kMarks - 1;

// The bar; blanks in its place for a percentage below 0.
std::string Draw(int percent) {
  char text[2 * kWidth];
  if (percent < 0) {
    std::snprintf(text, sizeof text, "\r%*s\r", kWidth + 8, "");
  } else {
    std::snprintf(text, sizeof text, "\r[%-*.*s] %3d %%", kWidth, percent * kWidth / 100, kMarks,
                  percent);
  }
  return text;
}

}  // namespace

ProgressBar::ProgressBar() : m_window([this](int percent) { Show(percent); }) {}

// A message comes for every record; the eye needs one per percent.
void ProgressBar::Show(int percent) {
  percent = std::clamp(percent, -1, 100);
  if (percent == m_shown) return;
  m_shown = percent;
  PrintError(Draw(percent));
}

}  // namespace zelconvert::cli
