// The lines of an SDR file: a record code, a derivation, fixed columns. A record is a structure and
// one table of its columns, which stand one after the other; reader and writer follow from it.
// SDR33 and SDR2 differ in the widths and in how a point is named; docs/formats/sdr.md shows both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "io/Columns.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {

// The fields of a line, in the 8-bit text of the file. Each is appended and never longer than its
// width: the right end is lost.
namespace sdr {

/// "%-*.*f"; blank for a null value.
void FormatReal(std::string& line, double value, std::size_t width, int decimals);
/// "%-*d". No record has one.
void FormatInteger(std::string& line, std::int32_t value, std::size_t width);
/// "%04d" in 4.
void FormatPointNumber(std::string& line, std::int32_t number);
/// Trimmed, the first 14 characters, right-justified in 16.
void FormatName(std::string& line, std::wstring_view name);

}  // namespace sdr

/// What the two layouts differ in.
struct SdrLayout {
  bool named;  ///< points have names, else numbers
  std::size_t nameWidth;
  std::size_t realWidth;
  int lengthDecimals;  ///< of coordinates and distances
  std::wstring_view headerStart;
  std::wstring_view headerName;  ///< how the header's name field starts
};
extern const SdrLayout kSdr33;
extern const SdrLayout kSdr2;

/// How a field stands in its column. Reals are at the left, and blank if null.
enum class SdrForm : std::uint8_t {
  Name,    ///< of a point: FormatName or FormatPointNumber
  Length,  ///< a real with the layout's decimals
  Angle,   ///< a real with 5 decimals
  Short,   ///< a real with 3 decimals
  Whole,   ///< likewise, never cut
  Text,    ///< at the left, never cut
};

inline constexpr std::size_t kSdrTextWidth = 16;

template <class Record>
struct SdrColumn {
  std::variant<std::wstring_view Record::*, double Record::*> member;
  SdrForm form;
  std::size_t textWidth = kSdrTextWidth;

  std::size_t Width(const SdrLayout& layout) const {
    return form == SdrForm::Name   ? layout.nameWidth
           : form == SdrForm::Text ? textWidth
                                   : layout.realWidth;
  }
};

// The records. Angles are decimal degrees or gons and lengths feet or metres, as the header says.

struct SdrInstrument {
  static constexpr std::string_view kCode = "01NM";
  std::wstring_view reduction;  ///< "3RED 3" beside an offset
  std::wstring_view serials = L"           000000                00000021";
  double edmOffset = DC_NULL;
  double prismOffset = DC_NULL;
  double prismConstant = DC_NULL;
  static constexpr SdrColumn<SdrInstrument> kColumns[] = {
      {&SdrInstrument::reduction, SdrForm::Text, 6},
      {&SdrInstrument::serials, SdrForm::Text, 41},
      {&SdrInstrument::edmOffset, SdrForm::Whole},
      {&SdrInstrument::prismOffset, SdrForm::Whole},
      {&SdrInstrument::prismConstant, SdrForm::Whole},
  };
};

struct SdrStation {
  static constexpr std::string_view kCode = "02TV";
  std::wstring_view name;
  double north, east, elevation;
  double instrumentHeight;
  std::wstring_view description;
  static constexpr SdrColumn<SdrStation> kColumns[] = {
      {&SdrStation::name, SdrForm::Name},
      {&SdrStation::north, SdrForm::Length},
      {&SdrStation::east, SdrForm::Length},
      {&SdrStation::elevation, SdrForm::Length},
      {&SdrStation::instrumentHeight, SdrForm::Whole},
      {&SdrStation::description, SdrForm::Text},
  };
};

struct SdrTargetHeight {
  static constexpr std::string_view kCode = "03NM";
  double height;
  static constexpr SdrColumn<SdrTargetHeight> kColumns[] = {
      {&SdrTargetHeight::height, SdrForm::Short}};
};

/// Read only: in millimetres of mercury and degrees Celsius if lengths are metres, else in inches
/// and degrees Fahrenheit.
struct SdrAtmosphere {
  static constexpr std::string_view kCode = "05NM";
  double pressure = 0;
  double temperature = 0;
  static constexpr SdrColumn<SdrAtmosphere> kColumns[] = {
      {&SdrAtmosphere::pressure, SdrForm::Short}, {&SdrAtmosphere::temperature, SdrForm::Short}};
};

struct SdrScale {
  static constexpr std::string_view kCode = "06NM";
  double scale = 0;
  static constexpr SdrColumn<SdrScale> kColumns[] = {{&SdrScale::scale, SdrForm::Short}};
};

struct SdrBacksight {
  static constexpr std::string_view kCode = "07KI";
  std::wstring_view station;
  std::wstring_view backsight;
  double azimuth;
  double circle;  ///< the circle's reading at the backsight
  static constexpr SdrColumn<SdrBacksight> kColumns[] = {
      {&SdrBacksight::station, SdrForm::Name},
      {&SdrBacksight::backsight, SdrForm::Name},
      {&SdrBacksight::azimuth, SdrForm::Angle},
      {&SdrBacksight::circle, SdrForm::Angle},
  };
};

struct SdrCoordinates {
  static constexpr std::string_view kCode = "08KI";
  std::wstring_view name;
  double north, east, elevation;
  std::wstring_view description;
  static constexpr SdrColumn<SdrCoordinates> kColumns[] = {
      {&SdrCoordinates::name, SdrForm::Name},        {&SdrCoordinates::north, SdrForm::Length},
      {&SdrCoordinates::east, SdrForm::Length},      {&SdrCoordinates::elevation, SdrForm::Length},
      {&SdrCoordinates::description, SdrForm::Text},
  };
};

struct SdrObservation {
  static constexpr std::string_view kCode = "09F1";
  std::wstring_view station;
  std::wstring_view target;
  double slopeDistance;
  double zenith;
  double horizontal;
  std::wstring_view note;
  static constexpr SdrColumn<SdrObservation> kColumns[] = {
      {&SdrObservation::station, SdrForm::Name},         {&SdrObservation::target, SdrForm::Name},
      {&SdrObservation::slopeDistance, SdrForm::Length}, {&SdrObservation::zenith, SdrForm::Angle},
      {&SdrObservation::horizontal, SdrForm::Angle},     {&SdrObservation::note, SdrForm::Text},
  };
};

struct SdrJob {
  static constexpr std::string_view kCode = "10NM";
  std::wstring_view name;
  static constexpr SdrColumn<SdrJob> kColumns[] = {{&SdrJob::name, SdrForm::Text}};
};

struct SdrNote {
  static constexpr std::string_view kCode = "13NM";
  std::wstring_view text;
  static constexpr SdrColumn<SdrNote> kColumns[] = {{&SdrNote::text, SdrForm::Text, 60}};
};

/// The fields of a line. A real without a character is `blank`.
template <class Record>
Record ReadSdr(std::wstring_view line, const SdrLayout& layout, double blank = 0) {
  Record record = {};
  std::size_t start = Record::kCode.size();
  for (const SdrColumn<Record>& column : Record::kColumns) {
    const std::wstring_view field = Mid(line, start, column.Width(layout));
    start += column.Width(layout);
    if (const auto* text = std::get_if<0>(&column.member)) {
      record.** text = field;
    } else {
      record.**std::get_if<1>(&column.member) = Trim(field).empty() ? blank : ToReal(field);
    }
  }
  return record;
}

// The header, 00NM: its units stand in these columns.
inline constexpr std::size_t kSdrAngleUnitColumn = 40;
inline constexpr std::size_t kSdrLengthUnitColumn = 41;
/// None for a character that is no unit's.
std::optional<AngularUnit> AngularUnitOfSdr(wchar_t c);
std::optional<LinearUnit> LinearUnitOfSdr(wchar_t c);

/// The record code of a line, 0 to 13; -1 if it is none.
constexpr int GetSdrRecordCode(std::wstring_view line) {
  if (line.size() < 2 || !IsDigit(line[0]) || !IsDigit(line[1])) return -1;
  const int code = (line[0] - L'0') * 10 + (line[1] - L'0');
  return code <= 13 ? code : -1;
}
template <class Record>
inline constexpr int kSdrCode = (Record::kCode[0] - '0') * 10 + (Record::kCode[1] - '0');
/// The index of a line's derivation ("F1" 0 ... "TA" 28); -1 if it is none.
int GetSdrDerivation(std::wstring_view line);

/// Puts together one line after the other.
class SdrLines {
 public:
  explicit SdrLines(const SdrLayout& layout) : m_layout(layout) {}

  /// False, and the line not to be used, for a name that the layout has no way to write.
  template <class Record>
  [[nodiscard]] bool Make(const Record& record) {
    m_line = Record::kCode;
    for (const SdrColumn<Record>& column : Record::kColumns) {
      if (const auto* real = std::get_if<1>(&column.member)) {
        AppendReal(record.**real, column.form);
      } else if (!AppendText(record.**std::get_if<0>(&column.member), column.form,
                             column.textWidth)) {
        return false;
      }
    }
    return true;
  }
  void MakeHeader(std::wstring_view date, std::wstring_view time, AngularUnit angles, bool metres);

  /// The line made last.
  std::string_view Line() const { return m_line; }

 private:
  void AppendReal(double value, SdrForm form);
  [[nodiscard]] bool AppendText(std::wstring_view text, SdrForm form, std::size_t width);

  const SdrLayout& m_layout;
  std::string m_line;
};

}  // namespace zelconvert
