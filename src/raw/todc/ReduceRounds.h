// Sets of rounds: directions, zenith angles and distances in both faces, and their means. Angles
// are reckoned in `angleUnit`, decimal degrees or gons, unless a comment says radians.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "dc/CDcFile.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// A shot of a set of rounds.
struct ROUND_SHOT {
  std::wstring station;
  std::wstring target;
  double horizontal = 0;
  double zenith = 0;
  double slopeDistance = 0;
  double rodHeight = 0;
  std::wstring note;
  bool faceOne = true;  ///< the zenith is below 180, in either unit
};
using RB_RECORD = ROUND_SHOT;
using RF_RECORD = ROUND_SHOT;

/// The directions and distances of one set. A slot that wasn't read is DC_NULL.
struct RD_RECORD {
  std::int32_t set = 0;
  double directions[kDirectionKinds] = {DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL};
  double distances[2] = {DC_NULL, DC_NULL};  ///< direct and reverse

  double& operator[](DirectionKind kind) { return directions[static_cast<int>(kind)]; }
  double operator[](DirectionKind kind) const { return directions[static_cast<int>(kind)]; }
};

/// Wraps both radians to [0, 2 pi) and lifts the smaller by a full circle if they are half a circle
/// or more apart.
void AlignAngles(double& a, double& b);

/// The mean of a direction in face one and one in face two; null if either is.
double MeanDirection(double d1, double d2, AngularUnit angleUnit);
/// The zenith angle of a pair of faces, free of the index error; null if one is null.
double MeanZenith(double z1, double z2, AngularUnit angleUnit);

/// The mean of directions that may lie on both sides of north. Null for none.
double MeanAngle(std::span<const double> angles, AngularUnit angleUnit);
/// The plain mean. Null for none.
double MeanValue(std::span<const double> values);
/// The standard error of a mean; null for fewer than two values.
double StandardError(std::span<const double> values, double mean);
/// Likewise of directions.
double StandardErrorOfAngles(std::span<const double> angles, double mean, AngularUnit angleUnit);

/// What the directions of a setup are relative to: the mean of its first set.
struct RoundsReference {
  double direction = DC_NULL;  ///< null until a set has been reduced
  std::wstring name;           ///< the target of that set
};

/// The names of a set that has directions alone.
struct RoundsNames {
  std::wstring station;
  std::wstring backsight;
  std::wstring foresight;
};

/// Writes the sets that were collected at a setup: for each pair of shots the observations and
/// their mean, for each set its means and standard errors. The backsights come first and are the
/// reference if there is none yet. Shot i goes with entry i of `directions`, whose reverse slot
/// completes a pair in one face; without shots the directions themselves are the set. Shots to
/// several targets in a list aren't told apart. No log gets here: no record marks a set as pending.
void ReduceRounds(CDcFile& dc, std::span<const RB_RECORD> backsightShots,
                  std::span<const RF_RECORD> foresightShots, std::span<const RD_RECORD> directions,
                  RoundsReference& reference, AngularUnit angleUnit, const RoundsNames& names);

}  // namespace zelconvert
