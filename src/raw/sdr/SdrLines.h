// The lines of an SDR file: a record code, a derivation, fixed columns. SDR33 and SDR2 differ in
// the widths and in how a point is named; docs/formats/sdr.md shows both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "raw/CZelPoint.h"

namespace zelconvert {

// The fields of a line. Each is appended and never longer than its width: the right end is lost.
namespace sdr {

/// "%-*.*f"; blank for a null value.
void FormatReal(std::wstring& line, double value, std::size_t width, int decimals);
/// "%-*d".
void FormatInteger(std::wstring& line, std::int32_t value, std::size_t width);
/// "%04d" in 4.
void FormatPointNumber(std::wstring& line, std::int32_t number);
/// Trimmed, the first 14 characters, right-justified in 16.
void FormatName(std::wstring& line, std::wstring_view name);

}  // namespace sdr

/// What the two layouts differ in.
struct SdrLayout {
  bool named;  ///< points have names, else numbers
  std::size_t nameWidth;
  std::size_t realWidth;
  int coordinateDecimals;
  int distanceDecimals;
  std::wstring_view headerStart;
  std::wstring_view headerName;  ///< how the header's name field starts
};
extern const SdrLayout kSdr33;
extern const SdrLayout kSdr2;

/// An observation; the texts take the place of numbers that weren't measured.
struct SdrObservation {
  std::wstring_view station;
  std::wstring_view target;
  double distance = 0;
  double zenith = 0;
  double horizontal = 0;
  std::wstring_view note;
};

/// Puts together one line after the other. A function that takes a name is false, and its line not
/// to be used, when the layout has no way to write that name.
class SdrLines {
 public:
  explicit SdrLines(const SdrLayout& layout) : m_layout(layout) {}

  /// The line that the last call made.
  const std::wstring& Line() const { return m_line; }

  void Header(std::wstring_view date, std::wstring_view time, bool gons, bool metres);
  void Job(std::wstring_view name);
  void Scale(double scale);
  void Instrument(double edmOffset);
  bool Station(const CZelPoint& point, double instrumentHeight);
  void TargetHeight(double height);
  bool Backsight(std::wstring_view station, std::wstring_view backsight, double azimuth,
                 double circle);
  bool Coordinates(const CZelPoint& point);
  bool Observation(const SdrObservation& shot);
  /// The circle at the backsight, without distance and zenith.
  bool BacksightObservation(std::wstring_view station, std::wstring_view backsight, double circle,
                            std::wstring_view note);
  void Note(std::wstring_view text);
  void Text(std::wstring_view text) { m_line = text; }

 private:
  bool AppendName(std::wstring_view name);
  bool AppendPoint(const CZelPoint& point);
  void AppendReal(double value, int decimals);

  const SdrLayout& m_layout;
  std::wstring m_line;
};

}  // namespace zelconvert
