// Jobs for the benchmarks.
#pragma once

#include <cstddef>
#include <string>

#include "Generate.h"
#include "job/CJobFile.h"

namespace zelconvert::bench {

enum class Order { Ascending, Shuffled };

// A permutation of 1 to `count` without a table: a stride that shares no factor with it.
inline std::size_t Shuffle(std::size_t i, std::size_t count) {
  return (i * 7368787 + 13) % count;  // 7368787 is prime
}

template <Order order>
void MakeJob(const std::string& path, std::size_t points) {
  CJobFile job(true);
  bool isMade = job.Create(ToText(path), kJobVersion) && job.WriteLayer(DefaultLayer());
  JOB_POINT record;
  for (std::size_t i = 0; isMade && i < points; ++i) {
    const Point point = MakePoint(order == Order::Shuffled ? Shuffle(i, points) : i);
    record.name = std::to_wstring(point.number);
    record.description.assign(point.code.begin(), point.code.end());
    record.east = point.east;
    record.north = point.north;
    record.elevation = point.elevation;
    record.layer = kDefaultLayerId;
    isMade = job.WritePoint(record);
  }
}

}  // namespace zelconvert::bench
