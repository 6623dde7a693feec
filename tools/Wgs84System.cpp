#include "tools/Wgs84System.h"

#include <cmath>

#include "io/Numbers.h"
#include "tools/EpsgCodes.h"
#include "tools/Units.h"

namespace zelconvert::tools {
namespace {

class Words {
 public:
  explicit Words(const char* start) : m_text(start) {}

  Words& Text(const char* text) {
    m_text += text;
    return *this;
  }
  Words& Real(const char* name, double value) {
    constexpr int kDigits = 12;
    m_text += std::string(" +") + name + "=" + Utf8(FormatFixed(NullToZero(value), kDigits));
    return *this;
  }
  Words& Degrees(const char* name, double radians) {
    return Real(name, NullToZero(radians) * 180 / kPi);
  }
  const std::string& Get() const { return m_text; }

 private:
  std::string m_text;
};

Words& AddEllipsoid(Words& words, const CGlkProjectionRecord& system) {
  return words.Real("a", system.semiMajorAxis).Real("rf", system.inverseFlattening);
}

bool AddProjection(Words& words, const CGlkProjectionRecord& system) {
  switch (system.projectionId) {
    case kTransverseMercator:
      words.Text("tmerc").Real("k", NullToOne(system.scale));
      break;
    case kLambertTwoParallels:
      words.Text("lcc").Degrees("lat_1", system.parallel1).Degrees("lat_2", system.parallel2);
      break;
    case kObliqueMercator:
      // From the natural origin, and turned back by the azimuth of the axis.
      words.Text("omerc +no_uoff").Real("k", NullToOne(system.scale));
      words.Degrees("alpha", system.parallel1).Degrees("gamma", system.parallel1);
      words.Degrees("lonc", system.originLongitude);
      break;
    case kPolarStereographic:
      words.Text("stere").Real("k", NullToOne(system.scale));
      break;
    default:
      return false;
  }
  if (system.projectionId != kObliqueMercator) words.Degrees("lon_0", system.originLongitude);
  words.Degrees("lat_0", system.originLatitude);
  words.Real("x_0", NullToZero(system.falseEasting) - NullToZero(system.originEasting));
  words.Real("y_0", NullToZero(system.falseNorthing) - NullToZero(system.originNorthing));
  return true;
}

bool HasEllipsoid(const CGlkProjectionRecord& system) {
  return system.semiMajorAxis > 0 && system.inverseFlattening > 0;
}

}  // namespace

std::string Projection(const CGlkProjectionRecord& system, std::string& why) {
  if (IsMovedFromProjection(system)) {
    why =
        "the coordinates are fitted to a local site or to control points, not those of the "
        "projection";
    return {};
  }
  if (!HasEllipsoid(system)) {
    why = "the file doesn't tell the ellipsoid of its coordinate system";
    return {};
  }
  Words words("+proj=");
  if (!AddProjection(words, system)) {
    why = "the projection of the file (" + std::to_string(system.projectionId) +
          ") isn't one that can be reckoned";
    return {};
  }
  return AddEllipsoid(words, system).Get();
}

std::string InverseProjection(const CGlkProjectionRecord& system, std::string& why) {
  const std::string projection = Projection(system, why);
  if (projection.empty()) return {};
  return "+proj=pipeline +step +inv " + projection +
         " +step +proj=unitconvert +xy_in=rad +xy_out=deg";
}

std::string GeographicSystem(const CGlkProjectionRecord& system, std::string& why) {
  if (const auto code = FindGeographicCode(system)) return "EPSG:" + std::to_string(*code);
  const bool isTurned = system.datumRotationX != 0 || system.datumRotationY != 0 ||
                        system.datumRotationZ != 0 || system.datumScale != 0;
  if (system.datumKind != kDatumShifts || isTurned) {
    why = "the datum of the file isn't one that can be reckoned";
    return {};
  }
  // Files tell the shifts from WGS 84 to the datum.
  Words words("+proj=longlat +no_defs +type=crs");
  AddEllipsoid(words, system).Text(" +towgs84=");
  for (const double shift : {system.datumShiftX, system.datumShiftY, system.datumShiftZ}) {
    words.Text(Utf8(FormatFixed(-NullToZero(shift), 5)).append(",").c_str());
  }
  return words.Get().substr(0, words.Get().size() - 1);
}

}  // namespace zelconvert::tools
