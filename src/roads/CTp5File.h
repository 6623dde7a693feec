// TP5: one cross-section template of a road as text: a TH line, then a TS line per segment from the
// centre line outwards. docs/formats/roads.md shows one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/CFileCE.h"

namespace zelconvert {

class CTp5File : public CFileCE {
 public:
  static constexpr std::wstring_view kExtension = L"TP5";

  CTp5File() = default;
  std::wstring GetDefaultExtension() const { return std::wstring(kExtension); }
  /// Made anew, or emptied; nobody else writes it while it is open.
  bool OpenForWrite(const std::wstring& path);
  /// An existing file, at its first line.
  bool OpenForRead(const std::wstring& path);

  /// cutSlope, fillSlope: horizontal run per unit of height.
  bool WriteTH(std::int64_t segments, double cutSlope, double fillSlope);
  /// value: a grade in percent, or a difference of elevation when isDelta is set.
  bool WriteTS(double width, double value, bool isDelta, std::wstring_view code);
  // Whether the next line is the one that these values give.
  bool HasTH(std::int64_t segments, double cutSlope, double fillSlope);
  bool HasTS(double width, double value, bool isDelta, std::wstring_view code);

 private:
  void BuildTH(std::int64_t segments, double cutSlope, double fillSlope);
  void BuildTS(double width, double value, bool isDelta, std::wstring_view code);
  bool IsNextLine();

  std::wstring m_strLine;  // reused, as is the next
  std::wstring m_strRead;
};

}  // namespace zelconvert
