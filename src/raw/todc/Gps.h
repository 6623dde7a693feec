// GPS records: receivers, antennas, positions and vectors. A position comes as latitude, longitude
// and height (EP) or as a vector from the base (BL), and goes out as one or the other.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/GpsSecurity.h"
#include "raw/todc/Ecef.h"
#include "raw/todc/RawPass.h"
#include "raw/todc/StakeOut.h"

namespace zelconvert {

class Gps {
 public:
  Gps(RawPass& pass, StakeOut& stakeOut) : m_pass(pass), m_stakeOut(stakeOut) {}

  void OnReceiver(const RX_RECORD& receiver);                 // RX
  Outcome OnEquipment();                                      // EQ
  void OnAntennaHeight(const AH_RECORD& antenna);             // AH
  void OnBasePoint(const BP_RECORD& base);                    // BP
  void OnPosition(const EP_RECORD& position);                 // EP
  void OnStoredPoint(const POINT_RECORD& point);              // GS
  void OnPoint(const GP_RECORD& point);                       // GP
  Outcome OnVector(const BL_RECORD& vector);                  // BL
  void OnCovariance();                                        // CV
  void OnQuality(const GQ_RECORD& quality);                   // GQ
  void OnOffset(const GO_RECORD& offset);                     // GO
  void OnStoredPointAhead() { m_isStoredPointAhead = true; }  // EE
  void OnControlPoint(const CT_RECORD& control);              // CT
  void OnRoverPoint(const POINT_RECORD& point);               // RP

  // Records that come without what they belong to don't count, whatever they hold.
  [[nodiscard]] bool HasReceiver() const { return m_receiver != Receiver::None; }
  [[nodiscard]] bool HasRover() const { return m_receiver == Receiver::Rover; }
  [[nodiscard]] bool WantsVector() const { return HasRover() && m_base == Base::Real; }
  [[nodiscard]] bool WantsPoint() const { return HasRover() || m_isStoredPointAhead; }
  [[nodiscard]] bool WantsPosition() const { return WantsPoint() || m_isControlOpen; }

 private:
  /// What the latest RX set up.
  enum class Receiver {
    None,   ///< nothing, or static receivers alone
    Other,  ///< a base, or a rover whose signature doesn't hold
    Rover,
  };
  enum class Base { Real, Virtual };
  /// A shot goes from its first EP, BL or GQ to its GS or GP; a second EP, or an RX, begins
  /// another.
  enum class Shot {
    Begun,     ///< with a quality at most
    Position,  ///< an EP came
    Vector,    ///< the 67 of a BL was written
    Over,      ///< GS or GP came
  };
  enum class Measured { Position, Vector };

  /// Latitude and longitude in decimal degrees.
  struct Position {
    double latitude = 0;
    double longitude = 0;
    double height = 0;
    std::int32_t method = 1;
    std::int32_t classification = 1;
    double horizontalPrecision = 0;
    double verticalPrecision = 0;

    Position WithoutPrecisions() const;
  };
  /// What the latest antenna height record said.
  struct Antenna {
    double height = 0;
    std::int32_t kind = 1;  ///< 1 reduced, 2 as measured
  };

  void SetReducedHeight(std::string_view role, double height);
  void WriteAntennaHeight(std::string_view role, const Antenna& antenna);
  [[nodiscard]] bool AddPrefix(std::string& name);
  void BeginShotAfterLast();
  void WriteResult(std::string_view name, std::string_view description, std::int32_t classStep);
  void WriteWaitingQuality();
  void MarkMeasured(std::string_view name, const Position& position);
  void WritePosition(std::wstring_view subtype, std::string_view name, std::string_view description,
                     const Position& position);
  template <class Record>
  void Write(Record& record, const EcefPosition& coordinates, std::wstring_view subtype,
             std::string_view name, std::string_view description, const Position& position);
  void WriteStoredPosition(std::string_view name);
  EcefPosition ToEcef(const Position& position) const;

  RawPass& m_pass;
  StakeOut& m_stakeOut;
  const bool m_isSignatureTested = IsGpsSecurityOn();

  Receiver m_receiver = Receiver::None;
  Base m_base = Base::Real;
  Shot m_shot = Shot::Begun;
  Measured m_latest = Measured::Position;  // the later of EP and BL
  bool m_isQualityWaiting = false;         // of the shot at hand, with which it goes
  bool m_isCovarianceSkipped = false;      // the next one: its vector was dropped
  bool m_isStoredPointAhead = false;       // from EE to the GP that is keyed in
  bool m_isControlOpen = false;            // from CT to RP

  std::string m_role = "KI";         // of the latest RX, EQ or AH
  std::string m_roverRecord;         // the RX of the rover, for its signature
  std::int32_t m_antennaNumber = 0;  // of the latest EQ
  double m_baseAntennaHeight = 0;
  double m_roverAntennaHeight = 0;
  Antenna m_antenna;
  Position m_position;  // of the latest EP or BP; method, class and precisions of a later BL
  EcefPosition m_basePosition;
  std::wstring m_storedName;  // of the latest GS

  // Reused, so that a shot allocates nothing.
  tDC_GPS_POSITIONRecord m_positionRecord;
  tDC_GPS_POSITION2Record m_vectorRecord;
  tDC_SETUP_Record m_quality;  // the latest GQ, which may wait for its position
};

}  // namespace zelconvert
