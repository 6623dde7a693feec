// A raw field log as a DC file: one pass over the records with a memory across them. A setup, a
// backsight or the advance of a traverse each become several DC records in a fixed order; shots are
// reduced to slope distance, zenith angle and circle reading.
//
// The pass is a table of handlers, one per kind of record, and its memory the structures of
// RawDcState.h. The handlers stand in files by subject: CConvRawDCFileSetup.cpp, ...Shots.cpp,
// ...StakeOut.cpp, ...Gps.cpp and ...CoordSystem.cpp.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "raw/CRawFile.h"
#include "raw/CZelPoint.h"
#include "raw/RawIndex.h"
#include "raw/todc/RawDcState.h"

namespace zelconvert {

class CConvRawDCFile : public CConvRawFile {
 public:
  /// The files are open and stay the caller's. `native`: the log bears the extension of the first
  /// of the two field applications. `version`: the dialect, 0 to 3; another one fails at the first
  /// MO. `jobPath`: a job whose points the log refers to; a path that is none of a job's counts
  /// for nothing, and a job that can't be read is a warning.
  CConvRawDCFile(CRawFile* raw, CDcFile* dc, bool writeUnusedPoints, bool native, int version,
                 std::wstring jobPath);

  /// There is no way from DC to raw: true, and nothing done.
  bool ConvertToRaw(StringList& messages) override;
  /// Runs once. Appends warnings and errors; on false the output is what was written so far.
  bool ConvertFromRaw(StringList& messages) override;

  /// Points of the job and further ones, in the log's first unit: where stakes find their design.
  void SetDesignPoints(PointMap jobPoints, PointMap extraPoints);

 private:
  using Handle = Outcome (CConvRawDCFile::*)();
  struct Handler {
    RawRecordType type;
    Handle handle;
  };
  static const Handler kHandlers[];
  static Handle HandlerOf(RawRecordType type);

  // The pass (CConvRawDCFile.cpp). m_strRecord holds the record at hand.
  void ReadDesignPoints();
  void WatchNames();
  Outcome ConvertRecord();
  bool Finish();
  void WriteUnusedPoints();
  void Say(std::wstring text);
  /// A DP behind the record at hand deletes the point.
  bool IsDeleted(std::wstring_view name) const;
  /// The name was shot or written as a GPS result.
  bool IsWritten(std::wstring_view name) const;
  bool IsBacksightName(std::wstring_view name) const;
  /// The class of a record: `dead` for a deleted point, and for an invented backsight name unless
  /// such names keep their class.
  wchar_t Classify(std::wstring_view name, bool deleted, wchar_t live = L'1',
                   wchar_t dead = L'6') const;
  /// 69.
  void WriteGridPosition(const CZelPoint& point, bool deleted);

  // Job, mode and setup (CConvRawDCFileSetup.cpp).
  Outcome OnJob();          // JB
  Outcome OnMode();         // MO
  Outcome OnOccupy();       // OC
  Outcome OnBacksight();    // BK
  Outcome OnLineOfSight();  // LS
  Outcome OnComment();      // --
  Outcome OnStoredPoint();  // SP
  bool WriteHeader(const MO_RECORD& mode);
  void WriteJob(const MO_RECORD& mode);
  /// 78, or D4 in older versions. Both flags as they are written.
  void WriteCogo(std::int32_t azimuthOrigin, std::int32_t gridOrientation);
  /// 65, 64 and C8 of a log without a coordinate system.
  void WriteDefaultSystem();
  CZelPoint ToPoint(const POINT_RECORD& point) const;
  void FindHeights(std::wstring_view name);
  std::wstring NextBacksightName();
  void WriteStation(std::wstring_view name);
  void WriteOrientation(double azimuth);
  void WriteRodHeight(double height);

  // Shots (CConvRawDCFileShots.cpp).
  Outcome OnTraverse();  // TR
  Outcome OnSideshot();  // SS
  Outcome OnShot(bool traverse);
  bool ReduceHorizontal(const SHOT_RECORD& shot, double& circle) const;
  void ReduceVertical(const SHOT_RECORD& shot, double& zenith, double& slopeDistance) const;
  void WriteObservation(std::wstring_view to, double slopeDistance, double zenith, double circle,
                        std::wstring_view note, wchar_t classification);
  void MoveTo(std::wstring_view foresight, double backsightAzimuth);

  // Rounds (CConvRawDCFileRounds.cpp).
  Outcome OnRoundBacksight();  // RB
  Outcome OnRoundForesight();  // RF
  Outcome OnDirection();       // RD
  Outcome OnSetDistance();     // MD
  Outcome OnEndOfRounds();     // RS, OB
  void EndRounds(bool traverse, std::wstring_view foresight);
  ROUND_SHOT ToRoundShot(const ROUND_SHOT_RECORD& shot) const;

  // Stake-out (CConvRawDCFileStakeOut.cpp).
  Outcome OnStake();         // CF
  Outcome OnSlopeStake();    // SL, SR
  Outcome OnStakedDelta();   // SD
  Outcome OnStationError();  // OE
  Outcome OnStakeShot();     // SK
  Outcome OnCheckPoint();    // GK
  bool IsStakeDue();
  void FlushPending();
  void FlushStake();
  void FlushSlope();
  void WriteStake();
  void WritePointStake();
  const CZelPoint* FindDesignPoint(std::wstring_view name) const;
  void WriteStationStake();
  void WriteSlope();

  // GPS (CConvRawDCFileGps.cpp).
  Outcome OnReceiver();       // RX
  Outcome OnEquipment();      // EQ
  Outcome OnAntennaHeight();  // AH
  Outcome OnBasePoint();      // BP
  Outcome OnGpsPosition();    // EP
  Outcome OnGpsStored();      // GS
  Outcome OnGpsPoint();       // GP
  Outcome OnVector();         // BL
  Outcome OnCovariance();     // CV
  Outcome OnQuality();        // GQ
  Outcome OnGpsOffset();      // GO
  Outcome OnStoredGps();      // EE
  Outcome OnControlPoint();   // CT
  Outcome OnRoverPoint();     // RP
  void SetReducedHeight(std::wstring_view role, double height);
  void WriteAntennaHeight(std::wstring_view role, double height, std::int32_t kind);
  bool AddGpsPrefix(std::wstring& name);
  void WriteGpsResult(std::wstring_view name, std::wstring_view description,
                      std::int32_t classStep);
  void WritePendingQuality();
  void AddGpsName(std::wstring_view name);
  void WriteGpsPosition(std::wstring_view subtype, std::wstring_view name,
                        std::wstring_view description, double horizontalPrecision,
                        double verticalPrecision);
  void WriteVector(std::wstring_view subtype, std::wstring_view name, std::wstring_view description,
                   const EcefPosition& difference);
  void WriteStoredGpsPosition(std::wstring_view name);

  // Coordinate system (CConvRawDCFileCoordSystem.cpp).
  Outcome OnEllipsoid();           // ES
  Outcome OnSite();                // ST
  Outcome OnProjection();          // PJ
  Outcome OnExtendedProjection();  // PE
  Outcome OnDatum();               // DT
  Outcome OnDatumGrid();           // DG
  Outcome OnHorizontalAdjust();    // HA
  Outcome OnVerticalAdjust();      // VA
  Outcome OnSystemNames();         // CS
  Outcome OnCogoFlags();           // CG
  Outcome OnZone();                // LM
  Outcome OnLocalization();        // LH
  Outcome OnGeoid();               // SG
  double SystemAngle(double v) const;
  double ProjectionAngle(double v) const;
  template <class Projection>
  void FillProjection(const PJ_RECORD& source, Projection& projection) const;

  CRawFile* m_pRaw;
  CDcFile* m_pDc;
  bool m_bWriteUnusedPoints;
  bool m_bNative;
  int m_nVersion;
  std::wstring m_strJobPath;
  PointMap m_JobPoints;
  PointMap m_ExtraPoints;
  bool m_bKeepBacksightClass = true;

  StringList* m_pMessages = nullptr;
  std::wstring m_strRecord;
  std::int64_t m_nLineNumber = 0;
  RawRecordType m_RecordType = RawRecordType::AA;
  RawRecordType m_PrevRecordType = RawRecordType::AA;
  RawIndex m_Index;

  ModeState m_Mode;
  SetupState m_Setup;
  StoredPointState m_Stored;
  StakeState m_Stake;
  RoundsState m_Rounds;
  GpsState m_Gps;
  WrittenNames m_Names;

  // Reused, so that a shot allocates nothing.
  tDC_OBSERVATION_SIGMARecord m_Observation;
  tDC_GRID_POSITIONRecord m_Position;
  tDC_SCALERecord m_RodHeight;
  tDC_GPS_POSITIONRecord m_GpsPosition;
  tDC_GPS_POSITION2Record m_Vector;
  tDC_SETUP_Record m_Quality;  // the latest GQ, which may wait for its position
};

}  // namespace zelconvert
