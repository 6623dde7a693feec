// Routes whose conversion isn't there yet: what becomes of them isn't tested.
#pragma once

#include "front/CFileTypeManager.h"

namespace zelconvert {

struct UnbuiltRoute {
  TypeSet from, to;
};
inline constexpr UnbuiltRoute kUnbuilt[] = {
    {kDcTypes, kJobTypes},   // CConvDcFile
    {kDcTypes, kCr5Types},   // the same
    {kRawTypes, kSdrTypes},  // CConvRawSDRFile
};

constexpr bool IsUnbuilt(int from, int to) {
  for (const UnbuiltRoute& route : kUnbuilt) {
    if (route.from.Contains(from) && route.to.Contains(to)) return true;
  }
  return false;
}

}  // namespace zelconvert
