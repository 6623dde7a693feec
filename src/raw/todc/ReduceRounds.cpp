#include "raw/todc/ReduceRounds.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "raw/Angles.h"

namespace zelconvert {
namespace {

constexpr double kFullRadians = 6.283185307179586;

double WrapRadians(double v) {
  const double remainder = std::fmod(v, kFullRadians);
  return remainder < 0 ? remainder + kFullRadians : remainder;
}

/// Direction, zenith angle and distance of one pointing; each may be null.
struct Pointing {
  double direction = DC_NULL;
  double zenith = DC_NULL;
  double distance = DC_NULL;
};

/// Writes one set: its pairs as they come, its means at the end.
class SetWriter {
 public:
  SetWriter(CDcFile& dc, AngularUnit angleUnit, std::wstring station, std::wstring target)
      : m_dc(dc),
        m_angleUnit(angleUnit),
        m_station(std::move(station)),
        m_target(std::move(target)) {}

  void WriteRodHeight(double height) {
    tDC_SCALERecord rod;
    rod.scale = height;
    m_dc.Write(rod);
  }

  void WriteObservation(const wchar_t* face, const Pointing& pointing, const std::wstring& note) {
    tDC_OBSERVATION_SIGMARecord observation;
    observation.subtype = face;
    observation.from = m_station;
    observation.to = m_target;
    observation.distance = pointing.distance;
    observation.angle1 = pointing.zenith;
    observation.angle2 = pointing.direction;
    observation.code = note;
    m_dc.Write(observation);
  }

  void WriteFaces(const Pointing& one, const Pointing& two, const std::wstring& note) {
    WriteObservation(L"F1", one, note);
    WriteObservation(L"F2", two, note);
    WritePair(one, two, note);
  }

  /// The mean record of a pair, whose values join those of the set.
  void WritePair(const Pointing& one, const Pointing& two, const std::wstring& note) {
    tDC_MP_Record pair;
    pair.text1 = m_station;
    pair.text2 = m_target;
    pair.value1 = one.direction;
    pair.value2 = two.direction;
    pair.value3 = one.zenith;
    pair.value4 = two.zenith;
    pair.value5 = one.distance;
    pair.value6 = two.distance;
    pair.code = note;
    m_dc.Write(pair);

    const double direction = MeanDirection(one.direction, two.direction, m_angleUnit);
    Keep(m_directions, IsNull(direction) ? one.direction : direction);
    const double zenith = MeanZenith(one.zenith, two.zenith, m_angleUnit);
    Keep(m_zeniths, IsNull(zenith) ? one.zenith : zenith);
    Keep(m_distances, one.distance);
    Keep(m_distances, two.distance);
    ++m_pairs;
  }

  /// The means of the set. The first set of a setup is the reference of those after it.
  void WriteMeans(RoundsReference& reference) {
    if (m_pairs == 0) return;
    const double direction = MeanAngle(m_directions, m_angleUnit);
    if (IsNull(reference.direction)) reference = {direction, m_target};
    double relative = DC_NULL;
    if (!IsNull(direction)) {
      relative = direction - reference.direction;
      if (relative < 0) relative += FullCircle(m_angleUnit);
    }
    tDC_MA_Record means;
    means.text1 = m_station;
    means.text2 = m_target;
    means.text3 = reference.name;
    means.value1 = relative;
    means.value2 = MeanValue(m_zeniths);
    means.value3 = MeanValue(m_distances);
    means.value4 = StandardErrorOfAngles(m_directions, direction, m_angleUnit);
    means.value5 = StandardError(m_zeniths, means.value2);
    means.value6 = StandardError(m_distances, means.value3);
    means.number1 = m_pairs;
    means.number2 = static_cast<std::int32_t>(m_distances.size());
    m_dc.Write(means);
  }

 private:
  static void Keep(std::vector<double>& values, double value) {
    if (!IsNull(value)) values.push_back(value);
  }

  CDcFile& m_dc;
  AngularUnit m_angleUnit;
  std::wstring m_station;
  std::wstring m_target;
  std::vector<double> m_directions;
  std::vector<double> m_zeniths;
  std::vector<double> m_distances;
  std::int32_t m_pairs = 0;
};

Pointing PointingOf(const ROUND_SHOT& shot) {
  return {shot.horizontal, shot.zenith, shot.slopeDistance};
}

void WriteBothFaces(SetWriter& set, const ROUND_SHOT& first, const ROUND_SHOT& second) {
  set.WriteObservation(L"F1", PointingOf(second), second.note);
  const ROUND_SHOT& one = first.faceOne ? first : second;
  const ROUND_SHOT& two = first.faceOne ? second : first;
  set.WritePair(PointingOf(one), PointingOf(two), one.note);
}

void ReduceShots(CDcFile& dc, std::span<const ROUND_SHOT> shots,
                 std::span<const RD_RECORD> directions, DirectionKind reverse,
                 RoundsReference& reference, AngularUnit angleUnit) {
  if (shots.empty()) return;
  SetWriter set(dc, angleUnit, shots[0].station, shots[0].target);
  set.WriteRodHeight(shots[0].rodHeight);
  // A shot without one in the other face: its reverse direction makes it a pair.
  const auto writeSingleFace = [&](std::size_t i) {
    const double other = i < directions.size() ? directions[i][reverse] : DC_NULL;
    set.WriteFaces(PointingOf(shots[i]), {other}, shots[i].note);
  };
  for (std::size_t i = 0; i < shots.size(); i += 2) {
    const bool last = i + 1 == shots.size();
    if (!last && shots[i].faceOne != shots[i + 1].faceOne) {
      WriteBothFaces(set, shots[i], shots[i + 1]);
      continue;
    }
    writeSingleFace(i);
    if (!last) writeSingleFace(i + 1);
  }
  set.WriteMeans(reference);
}

void ReduceDirections(CDcFile& dc, std::span<const RD_RECORD> directions, bool backsight,
                      RoundsReference& reference, AngularUnit angleUnit, const RoundsNames& names) {
  using enum DirectionKind;
  SetWriter set(dc, angleUnit, names.station, backsight ? names.backsight : names.foresight);
  for (const RD_RECORD& entry : directions) {
    Pointing direct{entry[BacksightDirect]};
    Pointing reverse{entry[BacksightReverse]};
    if (!backsight) {
      direct = {entry[ForesightDirect], entry[ZenithDirect], entry.distances[0]};
      reverse = {entry[ForesightReverse], entry[ZenithReverse], entry.distances[1]};
    }
    if (IsNull(direct.direction) && IsNull(reverse.direction)) continue;
    set.WriteFaces(direct, reverse, {});
  }
  set.WriteMeans(reference);
}

}  // namespace

void AlignAngles(double& a, double& b) {
  a = WrapRadians(a);
  b = WrapRadians(b);
  if (std::fabs(a - b) < kPi) return;
  (a < b ? a : b) += kFullRadians;
}

double MeanDirection(double d1, double d2, AngularUnit angleUnit) {
  if (IsNull(d1) || IsNull(d2)) return DC_NULL;
  double one = RadiansOf(d1, angleUnit);
  double two = RadiansOf(NormalizeAngle(d2 + FullCircle(angleUnit) / 2, angleUnit), angleUnit);
  AlignAngles(one, two);
  return NormalizeAngle(FromRadians((one + two) / 2, angleUnit), angleUnit);
}

double MeanZenith(double z1, double z2, AngularUnit angleUnit) {
  return Computed((FullCircle(angleUnit) - z2 + z1) / 2, z1, z2);
}

double MeanAngle(std::span<const double> angles, AngularUnit angleUnit) {
  if (angles.empty()) return DC_NULL;
  const double full = FullCircle(angleUnit);
  const bool west = std::any_of(angles.begin(), angles.end(),
                                [&](double v) { return v > full * 3 / 4 && v <= full; });
  const bool east =
      std::any_of(angles.begin(), angles.end(), [&](double v) { return v >= 0 && v <= full / 4; });
  if (!west || !east) return MeanValue(angles);
  // Turned by 100 they all lie on one side of north.
  std::vector<double> turned(angles.begin(), angles.end());
  for (double& v : turned) v = NormalizeAngle(v + 100, angleUnit);
  const double mean = MeanValue(turned) - 100;
  return mean < 0 ? mean + full : mean;
}

double MeanValue(std::span<const double> values) {
  if (values.empty()) return DC_NULL;
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double StandardError(std::span<const double> values, double mean) {
  if (values.size() <= 1) return DC_NULL;
  double sum = 0;
  for (const double v : values) sum += (v - mean) * (v - mean);
  const auto n = static_cast<double>(values.size());
  return std::sqrt(sum / (n * (n - 1)));
}

double StandardErrorOfAngles(std::span<const double> angles, double mean, AngularUnit angleUnit) {
  std::vector<double> deviations;
  for (const double v : angles) {
    double a = RadiansOf(v, angleUnit);
    double b = RadiansOf(mean, angleUnit);
    AlignAngles(a, b);
    deviations.push_back(FromRadians(a - b, angleUnit));
  }
  return StandardError(deviations, 0);
}

void ReduceRounds(CDcFile& dc, std::span<const RB_RECORD> backsightShots,
                  std::span<const RF_RECORD> foresightShots, std::span<const RD_RECORD> directions,
                  RoundsReference& reference, AngularUnit angleUnit, const RoundsNames& names) {
  ReduceShots(dc, backsightShots, directions, DirectionKind::BacksightReverse, reference,
              angleUnit);
  ReduceShots(dc, foresightShots, directions, DirectionKind::ForesightReverse, reference,
              angleUnit);
  if (!backsightShots.empty() || !foresightShots.empty()) return;
  ReduceDirections(dc, directions, true, reference, angleUnit, names);
  ReduceDirections(dc, directions, false, reference, angleUnit, names);
}

}  // namespace zelconvert
