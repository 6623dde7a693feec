// Traverse shots and sideshots: any form of angles and distances becomes slope distance, zenith
// angle and circle reading.
#pragma once

#include "raw/todc/RawPass.h"
#include "raw/todc/Rounds.h"
#include "raw/todc/Setup.h"

namespace zelconvert {

class Shots {
 public:
  Shots(RawPass& pass, Setup& setup, Rounds& rounds)
      : m_pass(pass), m_setup(setup), m_rounds(rounds) {}

  Outcome OnTraverse(const SHOT_RECORD& shot) { return OnShot(shot, true); }   // TR
  Outcome OnSideshot(const SHOT_RECORD& shot) { return OnShot(shot, false); }  // SS

 private:
  struct Sight {
    double slopeDistance;
    double zenith;
  };

  Outcome OnShot(const SHOT_RECORD& shot, bool isTraverse);
  [[nodiscard]] bool ReduceHorizontal(const SHOT_RECORD& shot, double& circle) const;
  Sight ReduceVertical(const SHOT_RECORD& shot) const;

  RawPass& m_pass;
  Setup& m_setup;
  Rounds& m_rounds;
};

}  // namespace zelconvert
