// What a DC file gets from a log are its plain shots. Sets of rounds are gathered while one is
// pending, which no record tells, and dropped at the next shot.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "raw/todc/RawPass.h"
#include "raw/todc/ReduceRounds.h"

namespace zelconvert {

class Rounds {
 public:
  explicit Rounds(RawPass& pass) : m_pass(pass) {}

  void OnBacksightShot(const ROUND_BACKSIGHT_RECORD& shot) {  // RB
    if (m_isPending) m_set.backsightShots.push_back(ToRoundShot(shot));
  }
  void OnForesightShot(const ROUND_FORESIGHT_RECORD& shot) {  // RF
    if (m_isPending) m_set.foresightShots.push_back(ToRoundShot(shot));
  }
  void OnDirection(const DIRECTION_RECORD& direction);      // RD
  void OnSetDistance(const SET_DISTANCE_RECORD& distance);  // MD
  void Clear() { m_set = {}; }                              // RS, OB, a setup

  /// At a shot. True if a set has been reduced.
  [[nodiscard]] bool End(const std::wstring& station, const std::wstring& backsight,
                         std::string_view foresight);

 private:
  struct Set {
    std::vector<RB_RECORD> backsightShots;
    std::vector<RF_RECORD> foresightShots;
    std::vector<RD_RECORD> directions;
    RD_RECORD currentDirection;
    bool hasDirection = false;  // currentDirection holds something
    DirectionKind lastDirectionKind = DirectionKind::BacksightDirect;
  };

  ROUND_SHOT ToRoundShot(const ROUND_SHOT_RECORD& shot) const;

  RawPass& m_pass;
  Set m_set;
  bool m_isPending = false;  // no record marks a set, so none is reduced
};

}  // namespace zelconvert
