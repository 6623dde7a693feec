// The fields of every raw record, in the order in which they are looked for and written.
#pragma once

#include "raw/RawFields.h"
#include "raw/RawRecords.h"

namespace zelconvert {

inline constexpr RawField<JB_RECORD> kJbFields[] = {
    {L"NM", &JB_RECORD::name},
    {L"DT", &JB_RECORD::date},
    {L"TM", &JB_RECORD::time},
};
inline constexpr RawField<MO_RECORD> kMoFields[] = {
    {L"AD", &MO_RECORD::azimuthOrigin}, {L"UN", &MO_RECORD::distanceUnit},
    {L"SF", &MO_RECORD::scale},         {L"EC", &MO_RECORD::curvature},
    {L"EO", &MO_RECORD::edmOffset},     {L"AU", &MO_RECORD::angleUnit, RawUse::Optional},
};
inline constexpr RawField<BK_RECORD> kBkFields[] = {
    {L"OP", &BK_RECORD::station},
    {L"BP", &BK_RECORD::backsight},
    {L"BS", &BK_RECORD::azimuth},
    {L"BC", &BK_RECORD::circle},
};
inline constexpr RawField<LS_RECORD> kLsFields[] = {
    {L"HI", &LS_RECORD::instrumentHeight},
    {L"HR", &LS_RECORD::rodHeight},
};

// A point: OC names itself by OP, or by PN as the others do.
inline constexpr RawField<POINT_RECORD> kOccupiedNameFields[] = {{L"OP", &POINT_RECORD::name}};
inline constexpr RawField<POINT_RECORD> kPointNameFields[] = {{L"PN", &POINT_RECORD::name}};
inline constexpr RawField<POINT_RECORD> kTrimmedNameFields[] = {
    {L"PN", &POINT_RECORD::name, RawUse::Trimmed},
};
inline constexpr RawField<POINT_RECORD> kPositionFields[] = {
    {L"N ", &POINT_RECORD::north},
    {L"E ", &POINT_RECORD::east},
    {L"EL", &POINT_RECORD::elevation},
    {L"--", &POINT_RECORD::note},
};
inline constexpr RawField<NAME_RECORD> kNameFields[] = {{L"PN", &NAME_RECORD::name}};

// A shot: the tags of the horizontal value in the order of HorizontalKind, which is the order in
// which they are looked for.
inline constexpr wchar_t kHorizontalTags[][3] = {L"AZ", L"BR", L"AR", L"AL", L"DR", L"DL"};
struct VerticalTags {
  VerticalKind kind;
  wchar_t vertical[3];
  wchar_t distance[3];
};
inline constexpr VerticalTags kVerticalTags[] = {
    {VerticalKind::Zenith, L"ZE", L"SD"},
    {VerticalKind::VerticalAngle, L"VA", L"SD"},
    {VerticalKind::ElevationChange, L"CE", L"HD"},
};

inline constexpr RawField<STAKE_SHOT_RECORD> kSkFields[] = {
    {L"OP", &STAKE_SHOT_RECORD::station},       {L"FP", &STAKE_SHOT_RECORD::foresight},
    {L"AR", &STAKE_SHOT_RECORD::angleRight},    {L"ZE", &STAKE_SHOT_RECORD::zenith},
    {L"SD", &STAKE_SHOT_RECORD::slopeDistance}, {L"--", &STAKE_SHOT_RECORD::note},
};
inline constexpr RawField<ROUND_SHOT_RECORD> kRbFields[] = {
    {L"OP", &ROUND_SHOT_RECORD::station},       {L"BP", &ROUND_SHOT_RECORD::target},
    {L"AR", &ROUND_SHOT_RECORD::angleRight},    {L"ZE", &ROUND_SHOT_RECORD::zenith},
    {L"SD", &ROUND_SHOT_RECORD::slopeDistance}, {L"HR", &ROUND_SHOT_RECORD::rodHeight},
    {L"--", &ROUND_SHOT_RECORD::note},
};
inline constexpr RawField<ROUND_SHOT_RECORD> kRfFields[] = {
    {L"OP", &ROUND_SHOT_RECORD::station},       {L"FP", &ROUND_SHOT_RECORD::target},
    {L"AR", &ROUND_SHOT_RECORD::angleRight},    {L"ZE", &ROUND_SHOT_RECORD::zenith},
    {L"SD", &ROUND_SHOT_RECORD::slopeDistance}, {L"HR", &ROUND_SHOT_RECORD::rodHeight},
    {L"--", &ROUND_SHOT_RECORD::note},
};
// In the order of DirectionKind.
inline constexpr wchar_t kDirectionTags[][3] = {L"BD", L"FD", L"ZD", L"FV", L"ZV", L"BV"};

// A design point or a station on a line, and what both have.
inline constexpr RawField<CF_RECORD> kCfPointFields[] = {{L"PN", &CF_RECORD::name}};
inline constexpr RawField<CF_RECORD> kCfStationFields[] = {
    {L"ST", &CF_RECORD::station},
    {L"OD", &CF_RECORD::offsetDirection},
    {L"OL", &CF_RECORD::offset},
};
inline constexpr RawField<CF_RECORD> kCfGradeFields[] = {
    {L"EL", &CF_RECORD::elevation},
    {L"GD", &CF_RECORD::grade},
    {L"--", &CF_RECORD::note, RawUse::Optional},
};
inline constexpr RawField<SLOPE_RECORD> kSlopeFields[] = {
    {L"ST", &SLOPE_RECORD::station},       {L"OD", &SLOPE_RECORD::offsetDirection},
    {L"EL", &SLOPE_RECORD::elevation},     {L"GD", &SLOPE_RECORD::grade},
    {L"AS", &SLOPE_RECORD::stationShift},  {L"HH", &SLOPE_RECORD::hingeHorizontal},
    {L"VH", &SLOPE_RECORD::hingeVertical}, {L"HC", &SLOPE_RECORD::catchHorizontal},
    {L"VC", &SLOPE_RECORD::catchVertical}, {L"CF", &SLOPE_RECORD::cutFill},
    {L"DS", &SLOPE_RECORD::designSlope},   {L"OB", &SLOPE_RECORD::offset},
    {L"--", &SLOPE_RECORD::note},          {L"OL", &SLOPE_RECORD::offsetLength, RawUse::Optional},
};
inline constexpr RawField<STAKED_DELTA_RECORD> kSdFields[] = {
    {L"ND", &STAKED_DELTA_RECORD::north},
    {L"ED", &STAKED_DELTA_RECORD::east},
    {L"LD", &STAKED_DELTA_RECORD::elevation},
};
inline constexpr RawField<STATION_ERROR_RECORD> kOeFields[] = {
    {L"ST", &STATION_ERROR_RECORD::station},
    {L"OE", &STATION_ERROR_RECORD::offsetError},
};

// GPS.
inline constexpr RawField<RX_RECORD> kRxFields[] = {
    {L"DC", &RX_RECORD::role},
    {L"RA", &RX_RECORD::antennaHeight},
};
inline constexpr RawField<EQ_RECORD> kEqFields[] = {
    {L"DC", &EQ_RECORD::role},
    {L"RX", &EQ_RECORD::receiverType},
    {L"RS", &EQ_RECORD::receiverSerial},
    {L"AN", &EQ_RECORD::antennaNumber},
    {L"AI", &EQ_RECORD::antennaId},
    {L"AT", &EQ_RECORD::antennaType},
    {L"TS", &EQ_RECORD::antennaSerial},
    {L"TA", &EQ_RECORD::tapeAdjustment},
    {L"HO", &EQ_RECORD::horizontalOffset},
    {L"VO", &EQ_RECORD::verticalOffset},
};
inline constexpr RawField<AH_RECORD> kAhFields[] = {
    {L"DC", &AH_RECORD::role},
    {L"MA", &AH_RECORD::measuredHeight},
    {L"ME", &AH_RECORD::method},
    {L"RA", &AH_RECORD::reducedHeight},
};
inline constexpr RawField<BP_RECORD> kBpFields[] = {
    {L"PN", &BP_RECORD::name},
    {L"LA", &BP_RECORD::latitude},
    {L"LN", &BP_RECORD::longitude},
    {L"HT", &BP_RECORD::height},
    {L"SG", &BP_RECORD::geoid, RawUse::ReadOnly},
};
inline constexpr RawField<EP_RECORD> kEpFields[] = {
    {L"LA", &EP_RECORD::latitude},
    {L"LN", &EP_RECORD::longitude},
    {L"HT", &EP_RECORD::height},
    {L"GM", &EP_RECORD::method},
    {L"CL", &EP_RECORD::classification},
    {L"RH", &EP_RECORD::horizontalPrecision},
    {L"RV", &EP_RECORD::verticalPrecision},
};
inline constexpr RawField<BL_RECORD> kBlFields[] = {
    {L"DC", &BL_RECORD::role},
    {L"PN", &BL_RECORD::name},
    {L"DX", &BL_RECORD::deltaX},
    {L"DY", &BL_RECORD::deltaY},
    {L"DZ", &BL_RECORD::deltaZ},
    {L"--", &BL_RECORD::note},
    {L"GM", &BL_RECORD::method},
    {L"CL", &BL_RECORD::classification},
    {L"HP", &BL_RECORD::horizontalPrecision},
    {L"VP", &BL_RECORD::verticalPrecision},
};
inline constexpr RawField<CV_RECORD> kCvFields[] = {
    {L"DC", &CV_RECORD::role}, {L"SV", &CV_RECORD::satellites}, {L"SC", &CV_RECORD::scalar},
    {L"XX", &CV_RECORD::xx},   {L"XY", &CV_RECORD::xy},         {L"XZ", &CV_RECORD::xz},
    {L"YY", &CV_RECORD::yy},   {L"YZ", &CV_RECORD::yz},         {L"ZZ", &CV_RECORD::zz},
};
inline constexpr RawField<GQ_RECORD> kGqFields[] = {
    {L"DC", &GQ_RECORD::role},
    {L"SV", &GQ_RECORD::satellites},
    {L"DR", &GQ_RECORD::relative},
    {L"PD", &GQ_RECORD::pdop},
    {L"DH", &GQ_RECORD::hdop},
    {L"DV", &GQ_RECORD::vdop},
    {L"RM", &GQ_RECORD::rms},
    {L"NE", &GQ_RECORD::epochs},
    {L"RH", &GQ_RECORD::horizontalPrecision},
    {L"RV", &GQ_RECORD::verticalPrecision},
    {L"WS", &GQ_RECORD::startWeek},
    {L"FS", &GQ_RECORD::startSeconds},
    {L"WE", &GQ_RECORD::endWeek},
    {L"ES", &GQ_RECORD::endSeconds},
    {L"IM", &GQ_RECORD::initialization},
};
inline constexpr RawField<GO_RECORD> kGoFields[] = {
    {L"PN", &GO_RECORD::name},
    {L"AZ", &GO_RECORD::azimuth},
    {L"ZE", &GO_RECORD::zenith},
    {L"SD", &GO_RECORD::slopeDistance},
    {L"HI", &GO_RECORD::instrumentHeight},
    {L"HR", &GO_RECORD::rodHeight},
    {L"--", &GO_RECORD::note},
};
struct GpsPointKindText {
  std::wstring_view text;
  GpsPointKind kind;
};
inline constexpr GpsPointKindText kGpsPointKinds[] = {
    {L"USER_INPUT", GpsPointKind::UserInput},
    {L"CONTROL", GpsPointKind::Control},
    {L"CHECK", GpsPointKind::Check},
    {L"DATA", GpsPointKind::Data},
    {L"OFFSET", GpsPointKind::Offset},
    {L"FEATURE", GpsPointKind::Feature},
    {L"REMOTE_ELEV", GpsPointKind::RemoteElevation},
    {L"STAKE_OUT", GpsPointKind::StakeOut},
};

// Coordinate system.
inline constexpr RawField<ES_RECORD> kEsFields[] = {
    {L"RD", &ES_RECORD::semiMajorAxis},
    {L"IF", &ES_RECORD::inverseFlattening},
};
inline constexpr RawField<ST_RECORD> kStFields[] = {
    {L"LA", &ST_RECORD::latitude}, {L"LN", &ST_RECORD::longitude}, {L"HT", &ST_RECORD::height},
    {L"SC", &ST_RECORD::scale},    {L"N ", &ST_RECORD::north},     {L"E ", &ST_RECORD::east},
};
inline constexpr RawField<PJ_RECORD> kPjFields[] = {
    {L"TP", &PJ_RECORD::type},      {L"LA", &PJ_RECORD::latitude}, {L"LN", &PJ_RECORD::longitude},
    {L"HT", &PJ_RECORD::height},    {L"N ", &PJ_RECORD::north},    {L"E ", &PJ_RECORD::east},
    {L"EL", &PJ_RECORD::elevation}, {L"SC", &PJ_RECORD::scale},    {L"OO", &PJ_RECORD::angle1},
    {L"OT", &PJ_RECORD::angle2},
};
// Behind the fields of PJ.
inline constexpr RawField<PE_RECORD> kPeFields[] = {
    {L"CT", &PE_RECORD::ct}, {L"AF", &PE_RECORD::af},       {L"RY", &PE_RECORD::ry},
    {L"AE", &PE_RECORD::ae}, {L"FO", &PE_RECORD::gridFile}, {L"FT", &PE_RECORD::shiftFile},
};
inline constexpr RawField<DT_RECORD> kDtFields[] = {
    {L"DA", &DT_RECORD::type},
    {L"RD", &DT_RECORD::semiMajorAxis},
    {L"IF", &DT_RECORD::inverseFlattening},
    {L"OX", &DT_RECORD::rotationX},
    {L"OY", &DT_RECORD::rotationY},
    {L"OZ", &DT_RECORD::rotationZ},
    {L"LX", &DT_RECORD::shiftX},
    {L"LY", &DT_RECORD::shiftY},
    {L"LZ", &DT_RECORD::shiftZ},
    {L"SP", &DT_RECORD::scale},
};
inline constexpr RawField<FILE_RECORD> kFileFields[] = {{L"FI", &FILE_RECORD::fileName}};
inline constexpr RawField<HA_RECORD> kHaFields[] = {
    {L"N ", &HA_RECORD::north},          {L"E ", &HA_RECORD::east},
    {L"TN", &HA_RECORD::translateNorth}, {L"TH", &HA_RECORD::translateNorthAgain},
    {L"TE", &HA_RECORD::translateEast},  {L"RT", &HA_RECORD::rotation},
    {L"SC", &HA_RECORD::scale},
};
inline constexpr RawField<VA_RECORD> kVaFields[] = {
    {L"PV", &VA_RECORD::method},     {L"N ", &VA_RECORD::north},
    {L"E ", &VA_RECORD::east},       {L"LZ", &VA_RECORD::constantShift},
    {L"SO", &VA_RECORD::slopeNorth}, {L"SA", &VA_RECORD::slopeEast},
    {L"GN", &VA_RECORD::geoidName},
};
inline constexpr RawField<CT_RECORD> kCtFields[] = {
    {L"PN", &CT_RECORD::name, RawUse::Trimmed},
    {L"DM", &CT_RECORD::dimension},
    {L"RH", &CT_RECORD::horizontalPrecision},
    {L"RV", &CT_RECORD::verticalPrecision},
};
inline constexpr RawField<CS_RECORD> kCsFields[] = {
    {L"CO", &CS_RECORD::system},
    {L"ZG", &CS_RECORD::zoneGroupName},
    {L"ZN", &CS_RECORD::zoneName},
    {L"DN", &CS_RECORD::datumName},
};
inline constexpr RawField<CG_RECORD> kCgFields[] = {
    {L"AO", &CG_RECORD::azimuthOrigin},
    {L"GO", &CG_RECORD::groundOrigin},
};
inline constexpr RawField<LM_RECORD> kLmFields[] = {
    {L"ME", &LM_RECORD::mode}, {L"CS", &LM_RECORD::coordinateSystem}, {L"DA", &LM_RECORD::datum},
    {L"ZO", &LM_RECORD::zone}, {L"HE", &LM_RECORD::hemisphere},       {L"FI", &LM_RECORD::fileName},
};

// Written only.
inline constexpr RawField<CONTROL_RECORD> kControlFields[] = {
    {L"PN", &CONTROL_RECORD::name},      {L"LA", &CONTROL_RECORD::latitude},
    {L"LN", &CONTROL_RECORD::longitude}, {L"HT", &CONTROL_RECORD::height},
    {L"--", &CONTROL_RECORD::note},
};

// Scans and pictures.
inline constexpr RawField<SC_RECORD> kScFields[] = {
    {L"FI", &SC_RECORD::fileName},
    {L"NP", &SC_RECORD::points},
    {L"HS", &SC_RECORD::horizontalStep},
    {L"VS", &SC_RECORD::verticalStep},
};
inline constexpr RawField<CR_RECORD> kCrFields[] = {
    {L"X0", &CR_RECORD::x0},      {L"Y0", &CR_RECORD::y0},         {L"CK", &CR_RECORD::focalLength},
    {L"KA", &CR_RECORD::kappa},   {L"PH", &CR_RECORD::phi},        {L"OM", &CR_RECORD::omega},
    {L"S0", &CR_RECORD::s0},      {L"C0", &CR_RECORD::c0},         {L"Z0", &CR_RECORD::z0},
    {L"I ", &CR_RECORD::i},       {L"K1", &CR_RECORD::k1},         {L"P1", &CR_RECORD::p1},
    {L"P2", &CR_RECORD::p2},      {L"SX", &CR_RECORD::pixelSizeX}, {L"SY", &CR_RECORD::pixelSizeY},
    {L"NX", &CR_RECORD::pixelsX}, {L"NY", &CR_RECORD::pixelsY},
};
inline constexpr RawField<IM_RECORD> kImFields[] = {
    {L"FI", &IM_RECORD::fileName},      {L"HA", &IM_RECORD::horizontalAngle},
    {L"VA", &IM_RECORD::verticalAngle}, {L"WI", &IM_RECORD::width},
    {L"HE", &IM_RECORD::height},        {L"SX", &IM_RECORD::startX},
    {L"SY", &IM_RECORD::startY},        {L"SW", &IM_RECORD::sizeX},
    {L"SH", &IM_RECORD::sizeY},
};

}  // namespace zelconvert
