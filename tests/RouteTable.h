// A conversion by each driver to each kind of file that it makes, for tests that go through all of
// them.
#pragma once

#include <algorithm>
#include <string>

#include "cli/FileTypes.h"

namespace zelconvert {

struct Route {
  FileType from;
  const wchar_t* input;
  const char* example;  // from examples/
  FileType to;
  const wchar_t* second = L"";  // beside the input, or the job of a log
  const char* secondExample = "";
};

inline constexpr Route kRoutes[] = {
    {FT_JOB, L"in.job", "boundary.job", FT_CR5},
    {FT_PW_JOB, L"in.pwj", "boundary.pwj", FT_SEQ_CR5},
    {FT_JOB, L"in.job", "control.job", FT_DC},
    {FT_DC, L"in.dc", "ridge-road.dc", FT_JOB},
    {FT_DC77, L"in.dc", "ridge-control.dc", FT_OLD_JOB},
    {FT_DC, L"in.dc", "ridge-control.dc", FT_ILJ},
    {FT_ILJ, L"in.ilj", "grenze.ilj", FT_DC1070},
    {FT_RAW, L"in.raw", "prairie-rtk.raw", FT_DC, L"points.job", "control.job"},
    {FT_RW5, L"in.rw5", "../tests/golden/raw-to-sdr2/figure-marks-us-feet/in.raw",
     FT_SDR2},  // with a warning
    {FT_PW_RAW, L"in.pwr", "mill-creek-simple.raw", FT_JXL},
};

template <class Info>
std::string RouteName(const Info& route) {
  std::string name = std::string(cli::FindType(route.param.from)->name) + "_to_" +
                     std::string(cli::FindType(route.param.to)->name);
  std::replace(name.begin(), name.end(), '+', '_');
  return name + "_" + std::to_string(route.index);
}

}  // namespace zelconvert
