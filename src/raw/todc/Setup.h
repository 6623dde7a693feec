// Where the instrument stands and how it is oriented: occupied points, backsights and heights, and
// the observations that are made from there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "raw/todc/RawPass.h"
#include "raw/todc/Rounds.h"

namespace zelconvert {

class Setup {
 public:
  Setup(RawPass& pass, Rounds& rounds) : m_pass(pass), m_rounds(rounds) {}

  void OnOccupy(const OC_RECORD& point);         // OC
  void OnBacksight(const BK_RECORD& backsight);  // BK
  void OnLineOfSight(const LS_RECORD& heights);  // LS

  /// The station that a shot tells of.
  void StandAt(std::string_view station) { AssignUtf8(m_station, station); }
  /// The instrument moves to the foresight and looks back.
  void MoveTo(std::string_view foresight, double backsightAzimuth);
  /// D9 from the station.
  void WriteObservation(std::string_view to, double slopeDistance, double zenith, double circle,
                        std::string_view note, wchar_t classification);

  const std::wstring& Station() const { return m_station; }
  const std::wstring& Backsight() const { return m_backsight; }
  double BacksightAzimuth() const { return m_backsightAzimuth; }
  /// The reading of the horizontal circle at the backsight.
  double Circle() const { return m_circle; }

 private:
  void FindHeights(std::string_view name);
  std::wstring NextBacksightName();
  void WriteStation();
  void WriteOrientation(double azimuth);
  void WriteRodHeight(double height);

  RawPass& m_pass;
  Rounds& m_rounds;
  std::wstring m_station;
  std::wstring m_backsight;
  double m_backsightAzimuth = 0;
  double m_circle = 0;
  double m_instrumentHeight = 0;
  double m_rodHeight = 0;
  bool m_isOccupied = false;  // an OC has been obeyed
  bool m_isFirstLineOfSight = true;
  std::int32_t m_nextBacksightNumber = 1000;

  // Reused, so that a shot allocates nothing.
  tDC_OBSERVATION_SIGMARecord m_observation;
  tDC_SCALERecord m_rod;
};

}  // namespace zelconvert
