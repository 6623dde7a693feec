// The routes that are measured, and what makes an input of any size for each.
#pragma once

#include <cstddef>
#include <string>

#include "GenerateLog.h"
#include "GeneratePoints.h"
#include "GenerateRoads.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::bench {

struct RouteInput {
  const char* name;
  FileType from, to;
  const char *inputExtension, *outputExtension;
  void (*make)(const std::string& path, std::size_t records);
};

inline constexpr RouteInput kRouteInputs[] = {
    {"job to CR5", FT_JOB, FT_CR5, ".job", ".cr5", MakeJob<Order::Ascending>},
    {"job to CR5, shuffled", FT_JOB, FT_CR5, ".job", ".cr5", MakeJob<Order::Shuffled>},
    {"job to DC", FT_JOB, FT_DC, ".job", ".dc", MakeJob<Order::Ascending>},
    {"DC to job", FT_DC, FT_JOB, ".dc", ".job", MakeDc},
    {"DC to ILJ", FT_DC, FT_ILJ, ".dc", ".ilj", MakeDc},
    {"ILJ to DC", FT_ILJ, FT_DC, ".ilj", ".dc", MakeIlj},
    {"raw to DC", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Sideshots>},
    {"raw to DC, heights", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Heights>},
    {"raw to DC, GPS", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Gps>},
    {"raw to DC, traverse", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Traverse>},
    {"raw to DC, setups", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Setups>},
    {"raw to DC, backsights", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Backsights>},
    {"raw to DC, vectors", FT_RAW, FT_DC, ".raw", ".dc", MakeLog<Log::Vectors>},
    {"raw to SDR", FT_RAW, FT_SDR33, ".raw", ".sdr", MakeLog<Log::Sideshots>},
    {"raw to SDR, heights", FT_RAW, FT_SDR33, ".raw", ".sdr", MakeLog<Log::Heights>},
    {"raw to SDR, traverse", FT_RAW, FT_SDR33, ".raw", ".sdr", MakeLog<Log::Traverse>},
    {"raw to SDR, setups", FT_RAW, FT_SDR33, ".raw", ".sdr", MakeLog<Log::Setups>},
    {"raw to JobXML", FT_RAW, FT_JXL, ".raw", ".jxl", MakeLog<Log::Sideshots>},
    {"raw to JobXML, stored", FT_RAW, FT_JXL, ".raw", ".jxl", MakeLog<Log::Stored>},
    {"raw to JobXML, deleted", FT_RAW, FT_JXL, ".raw", ".jxl", MakeLog<Log::Deleted>},
    {"DC to job, a long road", FT_DC, FT_JOB, ".dc", ".job", MakeLongRoad},
    {"DC to job, roads", FT_DC, FT_JOB, ".dc", ".job", MakeRoads},
};

/// By the exported function; false if it refuses.
inline bool ConvertRoute(const RouteInput& route, const std::string& input,
                         const std::string& output) {
  const std::wstring from = ToText(input), to = ToText(output);
  wchar_t** files = nullptr;
  wchar_t** messages = nullptr;
  const bool converted = cZelFileConvert(route.from, from.c_str(), route.to, to.c_str(), &files,
                                         &messages, 0, nullptr) != 0;
  cZelFreeAfterFileConvert(files, messages);
  return converted;
}

}  // namespace zelconvert::bench
