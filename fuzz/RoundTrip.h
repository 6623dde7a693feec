// What a writer made, read back and made again.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "FuzzRoute.h"
#include "io/Clock.h"

namespace zelconvert {

/// The lines that begin so, in their order.
inline std::string LinesOf(const std::string& file, std::string_view start) {
  std::string lines;
  for (std::size_t at = 0; at < file.size();) {
    const std::size_t length = file.find('\n', at) - at;
    if (file.compare(at, start.size(), start) == 0) lines.append(file, at, length);
    at += std::min(length, file.size() - at - 1) + 1;
  }
  return lines;
}

/// Whether a coordinate of a DC file fills its columns: it may have been cut there, and is cut
/// shorter each time it is brought to other units and back.
inline bool HasCutPoint(const std::string& dc) {
  constexpr std::size_t kCoordinates[] = {20, 36, 52};
  for (std::size_t at = 0; at < dc.size(); at = std::min(dc.find('\n', at), dc.size() - 1) + 1) {
    const std::string line = dc.substr(at, kCoordinates[2] + 1);
    const auto isCut = [&line](std::size_t start) {
      return start < line.size() && line[start] != ' ';
    };
    const bool isPosition =
        line.starts_with("69") || line.starts_with("68") || line.starts_with("66");
    if (isPosition && std::any_of(kCoordinates, std::end(kCoordinates), isCut)) return true;
  }
  return false;
}

/// Any bytes as a file of one type, to another and back, three times: what comes back first lacks
/// what the other type can't hold, and then the points that lost a coordinate so; but from then on
/// nothing of the points gets lost, or moves. One of the types is DC. pointStart: what the lines of
/// points begin with.
inline void RequireRoundTrip(FileType type, const std::wstring& input, FileType other,
                             std::string_view pointStart) {
  const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 123456);
  std::string points[3];
  std::wstring path = input;
  for (std::string& found : points) {
    const RouteResult out = ConvertFile(type, path, other, L"out.job");
    if (!out.converted) return;
    const RouteResult back = ConvertFile(other, out.path, type, L"back");
    if (!back.converted) return;
    if (HasCutPoint(kDcTypes.Contains(type) ? back.output : out.output)) return;
    found = LinesOf(back.output, pointStart);
    path = back.path;
  }
  Require(points[1] == points[2]);
}

}  // namespace zelconvert
