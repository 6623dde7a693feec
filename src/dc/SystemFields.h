// The numbers that a coordinate system and its DC records share, bound once for both directions.
#pragma once

#include <cstdint>

#include "dc/records/CoordinateSystem.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Units.h"

namespace zelconvert {

enum class Quantity : std::uint8_t {
  Degrees,  ///< a latitude or longitude: degrees in a DC file whatever its angle unit
  Angle,
  Length,
  Ratio,
};

/// The units of a DC file. The defaults are those of a job, and change nothing but degrees.
struct DisplayUnits {
  LinearUnit length = LinearUnit::Metre;
  AngularUnit angle = AngularUnit::Radian;

  /// From radians or metres; null stays null.
  double ToDisplay(double value, Quantity quantity) const {
    if (quantity == Quantity::Ratio) return value;
    if (quantity == Quantity::Length) return FromMetres(value, length);
    return FromRadians(value, AngleUnitOf(quantity));
  }
  /// To radians or metres; null stays null.
  double FromDisplay(double value, Quantity quantity) const {
    if (quantity == Quantity::Ratio) return value;
    if (quantity == Quantity::Length) return ToMetres(value, length);
    return ToRadians(value, AngleUnitOf(quantity));
  }

 private:
  AngularUnit AngleUnitOf(Quantity quantity) const {
    return quantity == Quantity::Degrees ? AngularUnit::DecimalDegrees : angle;
  }
};

/// A number of a DC record and the one of the system that it is.
template <class Record, class System>
struct SystemField {
  double Record::*inRecord;
  double System::*inSystem;
  Quantity quantity;
};

/// Copies all `fields`, in the units of the DC file or back in radians and metres.
template <class Fields, class Record, class System>
void ToRecord(const Fields& fields, const DisplayUnits& units, const System& system,
              Record& record) {
  for (const auto& field : fields) {
    record.*field.inRecord = units.ToDisplay(system.*field.inSystem, field.quantity);
  }
}
template <class Fields, class Record, class System>
void ToSystem(const Fields& fields, const DisplayUnits& units, const Record& record,
              System& system) {
  for (const auto& field : fields) {
    system.*field.inSystem = units.FromDisplay(record.*field.inRecord, field.quantity);
  }
}

namespace system_fields {

using System = CGlkProjectionRecord;
using enum Quantity;

using Projection = tDC_PROJECTION_FIELDS;
inline constexpr SystemField<Projection, System> kProjection[] = {
    {&Projection::originLatitude, &System::originLatitude, Degrees},
    {&Projection::originLongitude, &System::originLongitude, Degrees},
    {&Projection::originNorthing, &System::originNorthing, Length},
    {&Projection::falseNorthing, &System::falseNorthing, Length},
    {&Projection::falseEasting, &System::falseEasting, Length},
    {&Projection::originEasting, &System::originEasting, Length},
    {&Projection::scale, &System::scale, Ratio},
    {&Projection::parallel1, &System::parallel1, Angle},
    {&Projection::parallel2, &System::parallel2, Angle},
};

using Site = tDC_LOCAL_SITERecord;
inline constexpr SystemField<Site, LocalSite> kSite[] = {
    {&Site::latitude, &LocalSite::latitude, Degrees},
    {&Site::longitude, &LocalSite::longitude, Degrees},
    {&Site::height, &LocalSite::height, Length},
    {&Site::scale, &LocalSite::scale, Ratio},
    {&Site::east, &LocalSite::east, Length},
    {&Site::north, &LocalSite::north, Length},
};

// The scale is left out: a DC file is read as if it held a ratio, and written in parts per million.
using Datum = tDC_DATUMRecord;
inline constexpr SystemField<Datum, System> kDatum[] = {
    {&Datum::rotationX, &System::datumRotationX, Angle},
    {&Datum::rotationY, &System::datumRotationY, Angle},
    {&Datum::rotationZ, &System::datumRotationZ, Angle},
    {&Datum::shiftX, &System::datumShiftX, Length},
    {&Datum::shiftY, &System::datumShiftY, Length},
    {&Datum::shiftZ, &System::datumShiftZ, Length},
};

using Horizontal = tDC_HORIZONTAL_ADJUSTRecord;
inline constexpr SystemField<Horizontal, HorizontalAdjust> kHorizontal[] = {
    {&Horizontal::originNorth, &HorizontalAdjust::originNorth, Length},
    {&Horizontal::originEast, &HorizontalAdjust::originEast, Length},
    {&Horizontal::translateNorth, &HorizontalAdjust::translateNorth, Length},
    {&Horizontal::translateEast, &HorizontalAdjust::translateEast, Length},
    {&Horizontal::rotation, &HorizontalAdjust::rotation, Angle},
    {&Horizontal::scale, &HorizontalAdjust::scale, Ratio},
};

using Vertical = tDC_VERTICAL_ADJUSTRecord;
inline constexpr SystemField<Vertical, VerticalAdjust> kVertical[] = {
    {&Vertical::originNorth, &VerticalAdjust::originNorth, Length},
    {&Vertical::originEast, &VerticalAdjust::originEast, Length},
    {&Vertical::constantShift, &VerticalAdjust::constantShift, Length},
    {&Vertical::slopeNorth, &VerticalAdjust::slopeNorth, Ratio},
    {&Vertical::slopeEast, &VerticalAdjust::slopeEast, Ratio},
};

}  // namespace system_fields
}  // namespace zelconvert
