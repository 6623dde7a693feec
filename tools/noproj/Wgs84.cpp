#include "tools/Wgs84.h"

namespace zelconvert::tools {

std::unique_ptr<Wgs84> Wgs84::Make(const Survey& /*survey*/, std::string& why) {
  why = "WGS 84 needs the PROJ library, without which this program was built";
  return nullptr;
}

}  // namespace zelconvert::tools
