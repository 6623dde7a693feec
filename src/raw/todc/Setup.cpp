#include "raw/todc/Setup.h"

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

/// A backsight point that the log doesn't name.
constexpr std::string_view kNamelessBacksight = "0";

/// Notes of observations have 16 columns.
constexpr std::size_t kNoteColumns = 16;

}  // namespace

void Setup::OnOccupy(const OC_RECORD& point) {
  StandAt(point.name);
  if (m_pass.index.OccupyIsSuperseded(m_pass.line)) return;
  m_isOccupied = true;
  if (!m_pass.IsWritten(point.name)) m_pass.WriteGridPosition(point);
  FindHeights(point.name);
  WriteStation();
  m_rounds.Clear();
}

void Setup::OnBacksight(const BK_RECORD& backsight) {
  if (m_pass.index.BacksightIsSuperseded(m_pass.line)) return;
  m_backsightAzimuth = m_pass.mode.Angle(backsight.azimuth);
  m_circle = m_pass.mode.Angle(backsight.circle);
  StandAt(backsight.station);
  const std::string_view name = Trim(backsight.backsight);
  AssignUtf8(m_backsight, name);
  if (name == kNamelessBacksight) m_backsight = NextBacksightName();
  if (!m_isOccupied) {
    FindHeights(backsight.station);
    WriteStation();
  }
  WriteOrientation(m_backsightAzimuth);
}

std::wstring Setup::NextBacksightName() {
  std::wstring name;
  do {
    name = L"BS";
    AppendInteger(name, m_nextBacksightNumber++);
  } while (m_pass.m_JobPoints.contains(name));
  return name;
}

void Setup::OnLineOfSight(const LS_RECORD& heights) {
  const double height = m_pass.mode.Length(heights.instrumentHeight);
  const bool isChanged = height != m_instrumentHeight;
  m_instrumentHeight = height;
  m_rodHeight = m_pass.mode.Length(heights.rodHeight);
  WriteRodHeight(m_rodHeight);
  if (isChanged && !m_isFirstLineOfSight && !m_pass.index.OccupyIsSuperseded(m_pass.line)) {
    WriteStation();
    WriteOrientation(DC_NULL);
  }
  m_isFirstLineOfSight = false;
}

void Setup::MoveTo(std::string_view foresight, double backsightAzimuth) {
  m_backsightAzimuth = backsightAzimuth;
  m_backsight = m_station;
  StandAt(foresight);
  FindHeights(foresight);
  WriteStation();
  WriteOrientation(backsightAzimuth);
}

/// Takes the instrument height that goes with the setup at hand from the records after it.
void Setup::FindHeights(std::string_view name) {
  const HeightsAhead* ahead = m_pass.index.FindHeights(m_pass.line, m_pass.kind, name);
  if (ahead == nullptr) return;
  m_instrumentHeight =
      LengthInUnit(ahead->heights.instrumentHeight,
                   LinearUnitOfRaw(m_pass.index.FirstMode().distanceUnit), ahead->unit);
}

void Setup::WriteStation() {
  tDC_STATION_EXTRecord station;
  station.name = m_station;
  station.height = m_instrumentHeight;
  m_pass.dc.Write(station);
}

/// The backsight and its observation, and the rod height that holds from then on.
void Setup::WriteOrientation(double azimuth) {
  tDC_BACKSIGHT_EXTRecord backsight;
  backsight.from = m_station;
  backsight.to = m_backsight;
  backsight.angle1 = azimuth;
  backsight.angle2 = m_circle;
  m_pass.dc.Write(backsight);
  WriteRodHeight(DC_NULL);

  tDC_OBSERVATION_TEXTRecord observation;
  observation.from = m_station;
  observation.to = m_backsight;
  observation.angle2 = FormatDcNumber(m_circle, 5);
  observation.classification = L'5';
  m_pass.dc.Write(observation);
  WriteRodHeight(m_rodHeight);
}

void Setup::WriteRodHeight(double height) {
  m_rod.scale = height;
  m_pass.dc.Write(m_rod);
}

void Setup::WriteObservation(std::string_view to, double slopeDistance, double zenith,
                             double circle, std::string_view note, wchar_t classification) {
  m_observation.from = m_station;
  AssignUtf8(m_observation.to, to);
  m_observation.distance = slopeDistance;
  m_observation.angle1 = zenith;
  m_observation.angle2 = circle;
  AssignUtf8(m_observation.code, note);
  if (m_observation.code.size() > kNoteColumns) m_observation.code.resize(kNoteColumns);
  m_observation.classification = classification;
  m_pass.dc.Write(m_observation);
}

}  // namespace zelconvert
