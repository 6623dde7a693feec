// Routes whose conversion isn't there yet: their driver refuses them.
#pragma once

#include "front/CFileTypeManager.h"

namespace zelconvert {

struct UnbuiltRoute {
  TypeSet from, to;
};
inline constexpr UnbuiltRoute kUnbuilt[] = {
    {kCr5Types, TypeSet::Any()},         {kJobTypes, TypeSet::Any()}, {kDcTypes, TypeSet::Any()},
    {TypeSet::Of(FT_ILJ), kDcTypes},     {kRawTypes, TypeSet::Any()}, {kJobRawTypes, kDcTypes},
    {TypeSet::Of(FT_CR5_RW5), kDcTypes},
};

constexpr bool IsUnbuilt(int from, int to) {
  for (const UnbuiltRoute& route : kUnbuilt) {
    if (route.from.Contains(from) && route.to.Contains(to)) return true;
  }
  return false;
}

}  // namespace zelconvert
