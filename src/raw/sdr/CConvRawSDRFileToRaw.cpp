// SDR to raw: the settings, the atmosphere, the prism and the notes of a file.

#include <cmath>
#include <utility>

#include "convert/CConvertProgress.h"
#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "raw/Angles.h"
#include "raw/RawUnits.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kNotSdr2Text = L"This SDR file is not in SDR2X format.";
constexpr std::wstring_view kNotSdr33Text = L"This SDR file is not in SDR33 format.";
constexpr std::wstring_view kNamedPointsText =
    L"SDR2X format does not support alphanumeric point names. This is not a valid SDR2X file.";
constexpr std::wstring_view kNoHeaderText =
    L"This SDR file does not have a header record and can not be converted.\n";

constexpr int kHeaderCode = 0;
constexpr int kCollimationCode = 4;
constexpr std::size_t kFirstColumn = 4;  // after the code and the derivation
constexpr std::size_t kHeaderSize = 45;

/// Lengths that are as good as none, in file units.
constexpr double kNegligible = 0.001;

class SdrToRaw {
 public:
  SdrToRaw(CFileCE& sdr, CRawFile& raw, const SdrLayout& layout, Report& report)
      : m_sdr(sdr), m_raw(raw), m_layout(layout), m_report(report) {}

  [[nodiscard]] bool Run() {
    CConvertProgress progress;
    progress.Start();
    if (!CheckSdrKind()) return false;
    FindCollimation();
    if (!ReadSettings()) return false;
    const platform::LocalTime now = CurrentLocalTime();
    m_date = ToUtf8(FormatTime(L"m-d-Cy", now));
    m_time = ToUtf8(FormatTime(L"H:M:S", now));

    const std::int64_t length = m_sdr.GetLength();
    m_sdr.SeekToBegin();
    while (m_sdr.ReadLine(m_line)) {
      progress.SetPosition(m_sdr.GetPosition(), length);
      if (!ConvertLine()) return false;
    }
    return true;
  }

 private:
  [[nodiscard]] bool CheckSdrKind() {
    m_sdr.SeekToBegin();
    while (m_sdr.ReadLine(m_line)) {
      const int code = GetSdrRecordCode(m_line);
      if (code == kHeaderCode &&
          Mid(m_line, kFirstColumn, m_layout.headerName.size()) != m_layout.headerName) {
        return m_report.Refuse(m_layout.named ? kNotSdr33Text : kNotSdr2Text);
      }
      if (!HasGoodNames(code)) return m_report.Refuse(kNamedPointsText);
    }
    return true;
  }

  // Points of SDR2 are numbers of four digits.
  [[nodiscard]] bool HasGoodNames(int code) const {
    if (m_layout.named) return true;
    if (code == kSdrCode<SdrStation>) return !IsNonNumeric(Read<SdrStation>().name);
    if (code == kSdrCode<SdrCoordinates>) return !IsNonNumeric(Read<SdrCoordinates>().name);
    if (code != kSdrCode<SdrObservation>) return true;
    const auto shot = Read<SdrObservation>();
    return !IsNonNumeric(shot.station) && !IsNonNumeric(shot.target);
  }

  void FindCollimation() {
    bool on = false;
    m_sdr.SeekToBegin();
    while (!on && m_sdr.ReadLine(m_line)) {
      const int code = GetSdrRecordCode(m_line);
      if (code == kSdrCode<SdrStation> || code == kSdrCode<SdrCoordinates>) break;
      on = code == kCollimationCode;
    }
    m_collimation = on ? L"--COLLIMATION ON\n" : L"--COLLIMATION OFF\n";
    m_pending.push_back(m_collimation);
  }

  [[nodiscard]] bool ReadSettings() {
    bool hasHeader = false;
    m_sdr.SeekToBegin();
    while (m_sdr.ReadLine(m_line)) {
      const int code = GetSdrRecordCode(m_line);
      if (code == kSdrCode<SdrScale>) m_mode.scale = Read<SdrScale>().scale;
      if (code != kHeaderCode) continue;
      if (!ReadHeader()) return m_report.Refuse(kNoHeaderText);
      hasHeader = true;
    }
    return hasHeader || m_report.Refuse(kNoHeaderText);
  }

  /// False for a line that stops before its last setting. Other digits leave a unit as it is.
  [[nodiscard]] bool ReadHeader() {
    if (m_line.size() < kHeaderSize) return false;
    if (const auto angles = AngularUnitOfSdr(m_line[kSdrAngleUnitColumn])) {
      m_mode.angleUnit = RawCodeOf(*angles);
    }
    if (const auto lengths = LinearUnitOfSdr(m_line[kSdrLengthUnitColumn])) {
      m_mode.distanceUnit = RawCodeOf(*lengths);
    }
    return true;
  }

  /// False for a bad header. Points and observations don't go into the log.
  [[nodiscard]] bool ConvertLine() {
    const int code = GetSdrRecordCode(m_line);
    if (code == kSdrCode<SdrJob>) WriteJob();
    if (code == kSdrCode<SdrInstrument>) WritePrism();
    if (code == kSdrCode<SdrAtmosphere>) WriteAtmosphere();
    if (code == kSdrCode<SdrScale>) WriteScale();
    if (code == kSdrCode<SdrNote>) WriteNote();
    if (code != kHeaderCode) return true;
    // The comment stands twice in the log: once from the search, once from the header.
    m_pending.push_back(m_collimation);
    return ReadHeader();
  }

  void WriteJob() {
    m_raw.WriteJB({ToUtf8(Read<SdrJob>().name), m_date, m_time});
    m_raw.WriteMO(m_mode);
    m_jobWritten = true;
    for (const std::wstring& comment : m_pending) m_raw.WriteComment(comment);
  }

  void WriteScale() {
    const double scale = Read<SdrScale>().scale;
    if (scale == m_mode.scale) return;
    m_mode.scale = scale;
    m_raw.WriteMO(m_mode);
  }

  void WritePrism() {
    const auto instrument = Read<SdrInstrument>();
    m_raw.WriteRecord(L"--PRISM CONSTANT %lf\n", {instrument.prismConstant});
    m_raw.WriteRecord(L"--PRISM OFFSET %lf\n", {instrument.prismOffset});
  }

  void WriteAtmosphere() {
    const bool metric = LinearUnitOfRaw(m_mode.distanceUnit) == LinearUnit::Metre;
    const auto [pressure, temperature] = Read<SdrAtmosphere>();
    m_raw.WriteRecord(
        metric ? L"--TEMP %lf C\n--PRESS %lf MM\n" : L"--TEMP %lf F\n--PRESS %lf INCH\n",
        {temperature, pressure});
  }

  void WriteNote() {
    std::wstring note = L"--";
    note.append(Read<SdrNote>().text).append(L"\n");
    if (m_jobWritten) {
      m_raw.WriteLine(note);
    } else {
      m_pending.push_back(std::move(note));
    }
  }

  template <class Record>
  Record Read() const {
    return ReadSdr<Record>(m_line, m_layout);
  }

  CFileCE& m_sdr;
  CRawFile& m_raw;
  const SdrLayout& m_layout;
  Report& m_report;
  std::wstring m_line;

  MO_RECORD m_mode;  // the units and the scale of the file; all else 0
  std::string m_date, m_time;
  std::wstring m_collimation;
  StringList m_pending;  // comments of before the job record
  bool m_jobWritten = false;
};

}  // namespace

bool CConvRawSDRFile::ConvertToRaw(Report& report) {
  return SdrToRaw(*m_pSdrFile, *m_pRawFile, Layout(), report).Run();
}

std::wstring CConvRawSDRFile::MakeSideshotLine(std::wstring_view kind, int mode, AngularUnit unit,
                                               const CZelPoint& station, double instrumentHeight,
                                               double rodHeight, double reference, double circle,
                                               const CZelPoint& point) {
  const double north = point.m_dNorth - station.m_dNorth;
  const double east = point.m_dEast - station.m_dEast;
  const double rise = point.m_dElevation - station.m_dElevation + rodHeight - instrumentHeight;
  const double horizontalDistance = std::sqrt(north * north + east * east);
  double azimuth = 0;
  if (std::fabs(north) >= kNegligible || std::fabs(east) >= kNegligible) {
    azimuth = (mode == 1 ? std::atan2(east, north) : std::atan2(north, east)) * 180.0 / kPi;
  }
  double verticalAngle = 0;
  if (horizontalDistance >= kNegligible && std::fabs(rise) >= kNegligible) {
    verticalAngle = std::atan2(rise, horizontalDistance) * 180.0 / kPi;
  }
  const double angleRight = ConvertAngleUnit(unit, AngularUnit::DecimalDegrees,
                                             NormalizeDegrees(azimuth - reference + circle));

  std::wstring line;
  line.append(kind.size() < 2 ? 2 - kind.size() : 0, L' ').append(kind);
  line.append(L",OP").append(station.m_strName).append(L",FP").append(point.m_strName);
  line += L",AR";
  AppendFixed(line, angleRight, 4);
  line += L",ZE";
  AppendFixed(line, 90 - verticalAngle, 4);
  line += L",SD";
  AppendFixed(line, std::sqrt(horizontalDistance * horizontalDistance + rise * rise), 4);
  line.append(L",--").append(point.m_strDescription).append(L"\n");
  return line;
}

}  // namespace zelconvert
