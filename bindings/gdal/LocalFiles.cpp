#include "bindings/gdal/LocalFiles.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_vsi.h>

#include <memory>
#include <vector>

namespace zelconvert::gdal {
namespace {

struct CloseFile {
  void operator()(VSILFILE* file) const { VSIFCloseL(file); }
};
using OpenFile = std::unique_ptr<VSILFILE, CloseFile>;

bool Fail(const char* what, const std::string& path) {
  CPLError(CE_Failure, CPLE_OpenFailed, "%s %s.", what, path.c_str());
  return false;
}

}  // namespace

const std::string& WorkFolder::GetPath() {
  constexpr long kOwnerAlone = 0700;
  if (m_path.empty()) {
    const std::string path = CPLGenerateTempFilename("zelconvert");
    if (VSIMkdir(path.c_str(), kOwnerAlone) == 0) {
      m_path = path;
    } else {
      Fail("No folder can be made at", path);
    }
  }
  return m_path;
}

WorkFolder::~WorkFolder() {
  if (!m_path.empty()) VSIRmdirRecursive(m_path.c_str());
}

bool IsVirtual(std::string_view path) {
  return path.starts_with("/vsi");
}

bool CopyVirtual(const std::string& path, const std::string& copy) {
  constexpr std::size_t kPiece = 1 << 20;
  const OpenFile from(VSIFOpenL(path.c_str(), "rb"));
  if (from == nullptr) return Fail("There is no file", path);
  OpenFile to(VSIFOpenL(copy.c_str(), "wb"));
  if (to == nullptr) return Fail("No file can be made at", copy);
  std::vector<char> bytes(kPiece);
  std::size_t count = 0;
  do {
    count = VSIFReadL(bytes.data(), 1, bytes.size(), from.get());
    if (VSIFWriteL(bytes.data(), 1, count, to.get()) != count) {
      return Fail("No file can be made at", copy);
    }
  } while (count == bytes.size());
  return VSIFCloseL(to.release()) == 0 || Fail("No file can be made at", copy);
}

}  // namespace zelconvert::gdal
