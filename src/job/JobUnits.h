// The units of a job's settings, which are what its owner is shown: the job itself holds metres and
// radians.
#pragma once

#include "io/Units.h"

namespace zelconvert {

/// code: 1 international feet, 2 US survey feet; anything else is metres.
constexpr LinearUnit LinearUnitOfJob(int code) {
  return code == 1   ? LinearUnit::InternationalFoot
         : code == 2 ? LinearUnit::UsSurveyFoot
                     : LinearUnit::Metre;
}
/// code: 0 degrees; anything else is gons.
constexpr AngularUnit AngularUnitOfJob(int code) {
  return code == 0 ? AngularUnit::DecimalDegrees : AngularUnit::Gon;
}

}  // namespace zelconvert
