#include "io/Units.h"

namespace zelconvert {
namespace {

// Only the two exact values are spared: data that was scaled once may hold other null values.
bool PassesUnchanged(double value) {
  return value == kNullLimit || value == DC_NULL;
}

}  // namespace

double MetresFromUnits(double value, int unit) {
  if (PassesUnchanged(value)) return value;
  if (unit == kInternationalFeet) return value * kMetresPerFoot;
  if (unit == kUsSurveyFeet) return value * kMetresPerUsFoot;
  return value;
}

double UnitsFromMetres(double value, int unit) {
  if (PassesUnchanged(value)) return value;
  if (unit == kInternationalFeet) return value * kFeetPerMetre;
  if (unit == kUsSurveyFeet) return value * kUsFeetPerMetre;
  return value;
}

}  // namespace zelconvert
