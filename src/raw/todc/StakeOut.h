// Stake-out: a design point or station (CF) or a slope stake (SL, SR), then the shot (SK) or the
// GPS point that staked it. What the design asks for and what was reached go out after the shot. A
// stored point (SP) waits too: it may turn out to be a staked one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "raw/todc/RawPass.h"
#include "raw/todc/Setup.h"

namespace zelconvert {

class StakeOut {
 public:
  StakeOut(RawPass& pass, Setup& setup) : m_pass(pass), m_setup(setup) {}

  void OnStoredPoint(const POINT_RECORD& point);           // SP
  void OnStake(const CF_RECORD& stake);                    // CF
  void OnSlopeStake(const SLOPE_RECORD& slope);            // SL, SR
  void OnStakedDelta(const STAKED_DELTA_RECORD& delta);    // SD
  void OnStationError(const STATION_ERROR_RECORD& error);  // OE
  void OnStakeShot(const STAKE_SHOT_RECORD& shot);         // SK
  void OnCheckPoint(const NAME_RECORD&) { Flush(); }       // GK

  /// A GPS point was stored: the next stake needs no shot.
  void OnPointStored(const POINT_RECORD& point);
  /// Writes the stored point unless the record at hand belongs to a stake-out.
  void BeforeRecord();
  /// At the end of the log.
  void Finish();

 private:
  /// A design point or station that waits for its stake, its lengths in the first unit. The line
  /// that its record points into is gone: the texts count that stand beside it.
  struct Stake {
    CF_RECORD design;
    std::wstring name;
    std::wstring note;
  };
  /// A slope stake that waits for its shot, likewise.
  struct Slope {
    SLOPE_RECORD design;
    std::wstring note;
  };

  [[nodiscard]] bool IsStakeDue();
  void Flush();
  void WriteStake();
  void WritePointStake();
  STAKED_DELTA_RECORD DeltaToDesign() const;
  void WriteStationStake();
  double OffsetError(double offset) const;
  void WriteSlope();
  void WriteTarget(std::int32_t offsetDirection, double station, double offset);
  const CZelPoint* FindDesignPoint(std::wstring_view name) const;

  RawPass& m_pass;
  Setup& m_setup;
  CZelPoint m_storedPoint;         // of the latest SP or GS
  std::string m_storedName;        // of the latest SP, in UTF-8
  bool m_isStoredWaiting = false;  // the SP isn't written yet
  bool m_isGpsPointStored = false;
  std::optional<Stake> m_stake;
  std::optional<Slope> m_slope;
  std::optional<STAKED_DELTA_RECORD> m_delta;  // for the next stake of a point
  std::optional<double> m_offsetError;         // for the next stake of a station
};

}  // namespace zelconvert
