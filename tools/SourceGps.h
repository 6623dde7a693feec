// What the GPS records of a log say, one by one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "raw/RawRecords.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// Takes the records in their order. Vectors, and positions that count for themselves, go into the
/// survey, from antenna to antenna as a DC file has them. Control points are left out, and what
/// only the kind of a point stores: these bear other names.
class SourceGps {
 public:
  /// `survey` stays the caller's.
  explicit SourceGps(Survey& survey) : m_survey(survey) {}

  /// The record of a line; other kinds are passed over. unit: of its lengths.
  void Take(RawRecordType kind, std::string_view record, std::int64_t line, LinearUnit unit);

  /// The class that the log gives a vector of the survey, as a DC file has it.
  wchar_t GetClass(std::size_t vector) const { return m_classes[vector]; }

 private:
  /// Where the rover's antenna was.
  struct Fix {
    GeodeticPosition position;
    std::int32_t method = 1;
    std::int32_t classification = 1;
  };
  using Ecef = std::array<double, 3>;  // metres

  void OnReceiver();
  void OnAntenna();
  void OnBase();
  void OnPosition();
  void OnVector();
  void OnStored();
  void OnKind();
  void SetAntennaHeight(std::string_view role, double height);
  template <class Record>
  GeodeticPosition PositionOf(const Record& record, double antennaHeight) const;
  void AddVector(std::string_view rover, std::string_view code, const Ecef& delta,
                 std::int32_t classification);
  void AddPosition(std::string_view name, std::string_view code, const GeodeticPosition& position,
                   wchar_t classification);

  Survey& m_survey;
  std::vector<wchar_t> m_classes;
  std::string_view m_record;  // the line at hand, with its number and unit
  std::int64_t m_line = 0;
  LinearUnit m_unit = LinearUnit::Metre;

  bool m_hasReceiver = false;
  bool m_isRover = false;
  bool m_isVirtual = false;  // the base
  std::wstring m_base;
  std::optional<Ecef> m_basePlace;
  double m_baseHeight = 0, m_roverHeight = 0;  // of the antennas, metres
  std::optional<Fix> m_fix;                    // of the latest EP, until a point is stored
  bool m_isVectorLatest = false;               // of EP and BL
};

}  // namespace zelconvert::tools
