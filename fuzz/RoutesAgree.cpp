// A traverse that the bytes of an input decide, by the routes from its log to DC, SDR and JobXML:
// any two of them agree on every coordinate.

#include "FuzzRoute.h"
#include "Traverse.h"

namespace zelconvert {
namespace {

/// Numbers from the bytes; 0 when there are no more.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}

  unsigned operator()(unsigned count) {
    unsigned number = 0;
    for (unsigned range = 1; range < count && !m_bytes.empty(); range *= 256) {
      number = number * 256 + static_cast<unsigned char>(m_bytes.front());
      m_bytes.remove_prefix(1);
    }
    return number % count;
  }

 private:
  std::string_view m_bytes;
};

std::string Convert(const std::string& log, FileType type) {
  const RouteResult made = ConvertFile(FT_RAW, MemoryFiles::Write(L"in.raw", log), type, L"out");
  Require(made.converted);
  return made.output;
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  testing::FLAGS_gtest_break_on_failure = true;
  const Traverse traverse(Bytes(ToBytes(data, size)));
  ExpectAgreement(traverse.points, traverse.log, traverse.units.scaleFactor, Convert);
  return 0;
}
