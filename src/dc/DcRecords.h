// Every record of a DC file but those of roads.
#pragma once

#include "dc/records/CoordinateSystem.h"
#include "dc/records/Features.h"
#include "dc/records/Gps.h"
#include "dc/records/Observations.h"
#include "dc/records/Positions.h"
#include "dc/records/Settings.h"
#include "dc/records/StakeOut.h"
