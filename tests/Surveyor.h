// A surveyor who knows the points: observes them without error and keeps a raw log.
#pragma once

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>

#include "Office.h"
#include "io/Units.h"

namespace zelconvert {

inline constexpr double kMetresOf[] = {0.3048, 1.0, 1200.0 / 3937.0};  // by UN

struct Units {
  int distance;            // UN
  int angle;               // AU
  int azimuthOrigin = 0;   // AD
  double scaleFactor = 1;  // SF
};

inline std::string Text(double value, int decimals = 12) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

inline double Wrap(double degrees) {
  return std::fmod(std::fmod(degrees, 360) + 360, 360);
}

/// Decimal degrees as DDD.MMSSsssssss, rounded half up at the last digit.
inline std::string Dms(double degrees) {
  const auto ticks = static_cast<long long>(std::llround(Wrap(degrees) * 3600e7));
  char text[64];
  std::snprintf(text, sizeof text, "%lld.%02lld%09lld", ticks / 36000000000, ticks / 600000000 % 60,
                ticks % 600000000);
  return text;
}

/// Writes a log of observations without error.
class Surveyor {
 public:
  explicit Surveyor(const Points& points, const Units& units) : m_points(points) {
    m_log << "JB,NMtraverse,DT01-02-2026,TM03:04:05\r\n";
    SetUnits(units);
  }

  void SetUnits(const Units& units) {
    m_units = units;
    m_log << "MO,AD" << units.azimuthOrigin << ",UN" << units.distance << ",SF"
          << Text(units.scaleFactor) << ",EC0,EO0.0,AU" << units.angle << "\r\n";
  }
  void Occupy(const std::string& name) {
    m_station = name;
    const Point& p = m_points.at(name);
    m_log << "OC,OP" << name << ",N " << Length(p.north) << ",E " << Length(p.east) << ",EL"
          << Length(p.elevation) << ",--\r\n";
  }
  void Backsight(const std::string& name, double circle) {
    m_backAzimuth = AzimuthTo(name);
    m_circle = circle;
    m_log << "BK,OP" << m_station << ",BP" << name << ",BS"
          << Angle(m_backAzimuth + 180 * m_units.azimuthOrigin) << ",BC" << Angle(circle) << "\r\n";
  }
  void Heights(double instrument, double rod) {
    m_instrument = instrument;
    m_rod = rod;
    m_log << "LS,HI" << Length(instrument) << ",HR" << Length(rod) << "\r\n";
  }
  /// A circle reading and a zenith in the other face from now on.
  void TurnOver() { m_turn = 180 - m_turn; }
  /// `form` counts through the ways of telling a direction, `vertical` through those of a height.
  void Shoot(const char* tag, const std::string& name, int form, int vertical) {
    m_log << tag << ",OP" << m_station << ",FP" << name << "," << Horizontal(name, form) << ","
          << Vertical(name, vertical) << ",--\r\n";
  }
  /// The instrument goes to `name` and looks back; the circle reads there what it did here.
  void Advance(const std::string& name) {
    const std::string from = m_station;
    m_station = name;
    m_backAzimuth = AzimuthTo(from);
  }
  std::string Log() const { return m_log.str(); }

 private:
  std::string Length(double metres) const { return Text(metres / kMetresOf[m_units.distance]); }
  std::string Angle(double degrees) const {
    return m_units.angle == 1 ? Text(Wrap(degrees) / 0.9) : Dms(degrees);
  }
  double AzimuthTo(const std::string& name) const {
    const Point& from = m_points.at(m_station);
    const Point& to = m_points.at(name);
    return Wrap(std::atan2(to.east - from.east, to.north - from.north) * 180 / kPi);
  }
  std::string Horizontal(const std::string& name, int form) const {
    const double azimuth = AzimuthTo(name);
    switch (form % 6) {
      case 0:
        return "AR" + Angle(azimuth - m_backAzimuth + m_circle + m_turn);
      case 1:
        return "AZ" + Angle(azimuth);
      case 2:
        return "AL" + Angle(m_backAzimuth - azimuth);
      case 3:
        return "DR" + Angle(azimuth - m_backAzimuth - 180);
      case 4:
        return "DL" + Angle(m_backAzimuth + 180 - azimuth);
      default:
        if (azimuth < 90) return "BRN" + Dms(azimuth) + "E";
        if (azimuth < 180) return "BRS" + Dms(180 - azimuth) + "E";
        if (azimuth < 270) return "BRS" + Dms(azimuth - 180) + "W";
        return "BRN" + Dms(360 - azimuth) + "W";
    }
  }
  std::string Vertical(const std::string& name, int form) const {
    const Point& from = m_points.at(m_station);
    const Point& to = m_points.at(name);
    const double run = std::hypot(to.north - from.north, to.east - from.east) / m_units.scaleFactor;
    const double rise = to.elevation + m_rod - from.elevation - m_instrument;
    const double zenith = 90 - std::atan2(rise, run) * 180 / kPi;
    const std::string slope = ",SD" + Length(std::hypot(run, rise));
    if (form % 3 == 0) return "CE" + Length(rise) + ",HD" + Length(run);
    if (form % 3 == 1) return "VA" + Angle(90 - zenith) + slope;
    return "ZE" + Angle(m_turn == 0 ? zenith : 360 - zenith) + slope;
  }

  const Points& m_points;
  std::ostringstream m_log;
  Units m_units{};
  std::string m_station;
  double m_backAzimuth = 0;
  double m_circle = 0;
  double m_instrument = 0;
  double m_rod = 0;
  double m_turn = 0;  // of the circle in the other face
};

}  // namespace zelconvert
