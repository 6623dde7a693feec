// Both directions of CR5 over files of the fuzz folder.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "FuzzFile.h"
#include "job/CConvCR5File.h"

namespace zelconvert {

/// The CR5 file made of a job; empty if it isn't made.
inline std::string ExportCr5(const std::wstring& jobPath, bool brand, bool sequential) {
  {
    CJobFile job(brand);
    CFileCE file;
    if (!job.Open(jobPath, true)) return {};
    Require(file.Open(MemoryFiles::Path(L"out.cr5"), platform::kCreateOutput));
    Report report;
    try {
      if (!CConvCR5File(&file, &job, sequential).ConvertFromNative(report)) return {};
    } catch (const std::out_of_range&) {
      Require(sequential);
      return {};
    }
  }
  return MemoryFiles::Read(L"out.cr5");
}

/// Whether a job was made of a CR5 file.
inline bool ImportCr5(const std::wstring& cr5Path, const std::wstring& jobPath,
                      std::uint16_t version, int units) {
  CFileCE file;
  CJobFile job(true);
  Require(file.Open(cr5Path, platform::kOpenReadWrite) && job.Create(jobPath, version));
  CConvCR5File conversion(&file, &job, false);
  conversion.SetUnits(units);
  Report report;
  return conversion.ConvertToNative(report);
}

inline std::int32_t NumberAt(const std::string& cr5, std::size_t offset) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(cr5.at(offset + i))) << (8 * i);
  }
  return static_cast<std::int32_t>(number);
}

/// The records, and that they ascend.
inline std::vector<std::string> RecordsOf(const std::string& cr5) {
  Require(cr5.size() % 45 == 38);
  std::vector<std::string> records;
  for (std::size_t at = 38; at < cr5.size(); at += 45) {
    Require(at == 38 || NumberAt(cr5, at - 45) <= NumberAt(cr5, at));
    records.push_back(cr5.substr(at, 45));
  }
  return records;
}

}  // namespace zelconvert
