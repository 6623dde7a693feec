// Where every field of a DC record stands in its line: one table per record, named after its
// structure, or two where reading and writing differ. docs/formats/dc.md shows the same columns and
// is compared with these tables by a test.
#pragma once

#include "dc/DcRecords.h"
#include "dc/RecordColumns.h"

namespace zelconvert {

// Header, job, notes and settings

// A digit that a header can't hold is read as the one that its Choice names.
inline constexpr Column<tDC_HEADERRecord> kHeaderColumns[] = {
    {4, 16, &tDC_HEADERRecord::version, kLeft},
    {20, 4, &tDC_HEADERRecord::reserved, kBlank},
    {24, 16, &tDC_HEADERRecord::dateTime},
    {40, &tDC_HEADERRecord::angleUnit, Choice{3, 4}},
    {41, &tDC_HEADERRecord::distanceUnit, Choice{3, 1}},
    {42, &tDC_HEADERRecord::thirdUnit, Choice{2, 3}},
    {43, &tDC_HEADERRecord::fourthUnit, Choice{1, 2}},
    {44, &tDC_HEADERRecord::coordinateOrder, Choice{2, 1}},
    {45, &tDC_HEADERRecord::sixthUnit, Choice{2, 1}},
};
static_assert(Abut(kHeaderColumns));

inline constexpr Column<tDC_JOBRecord> kJobColumns[] = {
    {4, 16, &tDC_JOBRecord::name, kLeft | kKeepFirst},
    {20, 1, &tDC_JOBRecord::digit1, Always{L"1"}},
    {21, 1, &tDC_JOBRecord::digit2, Always{L"2"}},
    {22, 1, &tDC_JOBRecord::digit3, Always{L"1"}},
    {23, 1, &tDC_JOBRecord::scaleFlag},
    {24, 1, &tDC_JOBRecord::digit5, Always{L"1"}},
    {25, 1, &tDC_JOBRecord::gridFlag},
};
static_assert(Abut(kJobColumns));

inline constexpr Column<tDC_NOTERecord> kNoteColumns[] = {
    {4, 60, &tDC_NOTERecord::text, kLeft | kKeepFirst},
};
static_assert(Abut(kNoteColumns));

inline constexpr Column<tDC_POST_PROCESSRecord> kPostProcessColumns[] = {
    {4, 8, &tDC_POST_PROCESSRecord::text},
};
static_assert(Abut(kPostProcessColumns));

inline constexpr Column<tDC_SCALERecord> kScaleColumns[] = {
    {4, 16, &tDC_SCALERecord::scale, 5},
    {20, 16, &tDC_SCALERecord::value2, kBlank},
    {36, 16, &tDC_SCALERecord::value3, kBlank},
};
static_assert(Abut(kScaleColumns));

inline constexpr Column<tDC_COGORecord> kCogoColumns[] = {
    {4, &tDC_COGORecord::azimuthOrigin, Choice{2, 1}},
    {5, 1, &tDC_COGORecord::gridOrientation},
};
static_assert(Abut(kCogoColumns));

inline constexpr Column<tDC_COGO_OLDRecord> kCogoOldColumns[] = {
    {4, &tDC_COGO_OLDRecord::azimuthOrigin, Choice{2, 1}},
    {5, 1, &tDC_COGO_OLDRecord::gridOrientation},
    {6, 16, &tDC_COGO_OLDRecord::value, kBlank},
};
static_assert(Abut(kCogoOldColumns));

// Stations and positions

inline constexpr Column<tDC_STATIONRecord> kStationColumns[] = {
    {4, 16, &tDC_STATIONRecord::name, kName},
    {20, 16, &tDC_STATIONRecord::north, kBlank},
    {36, 16, &tDC_STATIONRecord::east, kBlank},
    {52, 16, &tDC_STATIONRecord::elevation, kBlank},
    {68, 16, &tDC_STATIONRecord::height, 5, kPlain},
    {84, 16, kBlank},
};
static_assert(Abut(kStationColumns));

inline constexpr Column<tDC_STATION_EXTRecord> kStationExtColumns[] = {
    {4, 16, &tDC_STATION_EXTRecord::name, kName},
    {20, 16, &tDC_STATION_EXTRecord::height, 5, kPlain},
    {36, 16, &tDC_STATION_EXTRecord::scale, Always{L"1.0"}},
    {52, 1, &tDC_STATION_EXTRecord::flag},
};
static_assert(Abut(kStationExtColumns));

inline constexpr Column<tDC_BACKSIGHTRecord> kBacksightColumns[] = {
    {4, 16, &tDC_BACKSIGHTRecord::from, kName},
    {20, 16, &tDC_BACKSIGHTRecord::to, kName},
    {36, 16, &tDC_BACKSIGHTRecord::angle1, 9},
    {52, 16, &tDC_BACKSIGHTRecord::angle2, 9},
};
static_assert(Abut(kBacksightColumns));

inline constexpr Column<tDC_BACKSIGHT_EXTRecord> kBacksightExtColumns[] = {
    {4, 16, &tDC_BACKSIGHT_EXTRecord::from, kName},
    {20, 16, &tDC_BACKSIGHT_EXTRecord::to, kName},
    {36, 16, &tDC_BACKSIGHT_EXTRecord::angle1, 9},
    {52, 16, &tDC_BACKSIGHT_EXTRecord::angle2, 9},
    {68, 16, &tDC_BACKSIGHT_EXTRecord::angle3, kBlank},
};
static_assert(Abut(kBacksightExtColumns));

inline constexpr Column<tDC_GRID_POSITIONRecord> kGridPositionColumns[] = {
    {4, 16, &tDC_GRID_POSITIONRecord::name, kKeepLast},
    {20, 16, &tDC_GRID_POSITIONRecord::north, 5},
    {36, 16, &tDC_GRID_POSITIONRecord::east, 5},
    {52, 16, &tDC_GRID_POSITIONRecord::elevation, 5},
    {68, 16, &tDC_GRID_POSITIONRecord::code, kLeft | kKeepLast | kTrimmed},
    {84, 1, &tDC_GRID_POSITIONRecord::method, IntegerForm::Offset},
    {85, &tDC_GRID_POSITIONRecord::classification},
};
static_assert(Abut(kGridPositionColumns));

inline constexpr Column<tDC_GPS_POSITIONRecord> kGpsPositionColumns[] = {
    {4, 16, &tDC_GPS_POSITIONRecord::name, kName},
    {20, 16, &tDC_GPS_POSITIONRecord::coord1, 9},
    {36, 16, &tDC_GPS_POSITIONRecord::coord2, 9},
    {52, 16, &tDC_GPS_POSITIONRecord::coord3, 9},
    {68, 16, &tDC_GPS_POSITIONRecord::code, kLeft},
    {84, 1, &tDC_GPS_POSITIONRecord::method, IntegerForm::Method},
    {85, &tDC_GPS_POSITIONRecord::classification},
    {86, 16, &tDC_GPS_POSITIONRecord::sigma1, 9},
    {102, 16, &tDC_GPS_POSITIONRecord::sigma2, 9},
};
static_assert(Abut(kGpsPositionColumns));

inline constexpr Column<tDC_GPS_POSITION2Record> kGpsPosition2Columns[] = {
    {4, 16, &tDC_GPS_POSITION2Record::name, kName},
    {20, 16, &tDC_GPS_POSITION2Record::coord1, 9},
    {36, 16, &tDC_GPS_POSITION2Record::coord2, 9},
    {52, 16, &tDC_GPS_POSITION2Record::coord3, 9},
    {68, 16, &tDC_GPS_POSITION2Record::code, kLeft | kKeepLast},
    {84, 1, &tDC_GPS_POSITION2Record::method, IntegerForm::Method},
    {85, &tDC_GPS_POSITION2Record::classification},
    {86, 16, &tDC_GPS_POSITION2Record::sigma1, 9},
    {102, 16, &tDC_GPS_POSITION2Record::sigma2, 9},
};
static_assert(Abut(kGpsPosition2Columns));

inline constexpr Column<tDC_LOCAL_POSITIONRecord> kLocalPositionColumns[] = {
    {4, 16, &tDC_LOCAL_POSITIONRecord::name, kName},
    {20, 16, &tDC_LOCAL_POSITIONRecord::coord1, 9},
    {36, 16, &tDC_LOCAL_POSITIONRecord::coord2, 9},
    {52, 16, &tDC_LOCAL_POSITIONRecord::coord3, 5},
    {68, 16, &tDC_LOCAL_POSITIONRecord::code, kLeft},
    {84, 1, &tDC_LOCAL_POSITIONRecord::method, IntegerForm::Method},
    {85, &tDC_LOCAL_POSITIONRecord::classification},
};
static_assert(Abut(kLocalPositionColumns));

inline constexpr Column<tDC_DELETED_POSITIONRecord> kDeletedPositionColumns[] = {
    {4, 16, &tDC_DELETED_POSITIONRecord::name},
};
static_assert(Abut(kDeletedPositionColumns));

// Observations

inline constexpr Column<tDC_VECTORRecord> kVectorColumns[] = {
    {4, 16, &tDC_VECTORRecord::from, kName},
    {20, 16, &tDC_VECTORRecord::to, kName},
    {36, 16, &tDC_VECTORRecord::azimuth, 9},
    {52, 16, &tDC_VECTORRecord::horizontalDistance, 5},
    {68, 16, &tDC_VECTORRecord::verticalDistance, 5},
    {84, 16, &tDC_VECTORRecord::code, kKeepLast},
    {100, 1, &tDC_VECTORRecord::method, IntegerForm::Method},
    {101, &tDC_VECTORRecord::classification},
};
static_assert(Abut(kVectorColumns));

inline constexpr Column<tDC_OBSERVATIONRecord> kObservationColumns[] = {
    {4, 16, &tDC_OBSERVATIONRecord::from, kName},  {20, 16, &tDC_OBSERVATIONRecord::to, kName},
    {36, 16, &tDC_OBSERVATIONRecord::distance, 5}, {52, 16, &tDC_OBSERVATIONRecord::angle1, 9},
    {68, 16, &tDC_OBSERVATIONRecord::angle2, 9},   {84, 16, &tDC_OBSERVATIONRecord::code, kLeft},
    {100, &tDC_OBSERVATIONRecord::classification},
};
static_assert(Abut(kObservationColumns));

inline constexpr Column<tDC_OBSERVATION_SIGMARecord> kObservationSigmaColumns[] = {
    {4, 16, &tDC_OBSERVATION_SIGMARecord::from, kName},
    {20, 16, &tDC_OBSERVATION_SIGMARecord::to, kName},
    {36, 16, &tDC_OBSERVATION_SIGMARecord::distance, 5},
    {52, 16, &tDC_OBSERVATION_SIGMARecord::angle1, 9},
    {68, 16, &tDC_OBSERVATION_SIGMARecord::angle2, 9},
    {84, 16, &tDC_OBSERVATION_SIGMARecord::code, kLeft},
    {100, &tDC_OBSERVATION_SIGMARecord::classification},
    {101, 16, &tDC_OBSERVATION_SIGMARecord::sigmaDistance, 5},
    {117, 16, &tDC_OBSERVATION_SIGMARecord::sigmaAngle1, 9},
    {133, 16, &tDC_OBSERVATION_SIGMARecord::sigmaAngle2, 9},
};
static_assert(Abut(kObservationSigmaColumns));

inline constexpr Column<tDC_OBSERVATION_TEXTRecord> kObservationTextColumns[] = {
    {4, 16, &tDC_OBSERVATION_TEXTRecord::from, kName},
    {20, 16, &tDC_OBSERVATION_TEXTRecord::to, kName},
    {36, 16, &tDC_OBSERVATION_TEXTRecord::distance},
    {52, 16, &tDC_OBSERVATION_TEXTRecord::angle1},
    {68, 16, &tDC_OBSERVATION_TEXTRecord::angle2},
    {84, 16, &tDC_OBSERVATION_TEXTRecord::code, kLeft},
    {100, &tDC_OBSERVATION_TEXTRecord::classification},
    {101, 16, &tDC_OBSERVATION_TEXTRecord::sigmaDistance, 5},
    {117, 16, &tDC_OBSERVATION_TEXTRecord::sigmaAngle1, 9},
    {133, 16, &tDC_OBSERVATION_TEXTRecord::sigmaAngle2, 9},
};
static_assert(Abut(kObservationTextColumns));

inline constexpr Column<tDC_ANGLE_DISTANCERecord> kAngleDistanceColumns[] = {
    {4, 16, &tDC_ANGLE_DISTANCERecord::from, kName},
    {20, 16, &tDC_ANGLE_DISTANCERecord::to, kName},
    {36, 16, &tDC_ANGLE_DISTANCERecord::distance, 5},
    {52, 16, &tDC_ANGLE_DISTANCERecord::angle1, 9},
    {68, 16, &tDC_ANGLE_DISTANCERecord::angle2, 9},
    {84, 16, &tDC_ANGLE_DISTANCERecord::code, kKeepLast},
    {100, 1, &tDC_ANGLE_DISTANCERecord::method, IntegerForm::Offset},
    {101, &tDC_ANGLE_DISTANCERecord::classification},
};
static_assert(Abut(kAngleDistanceColumns));

inline constexpr Column<tDC_ANGLE_DISTANCE_KEYEDRecord> kAngleDistanceKeyedColumns[] = {
    {4, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::name, kName},
    {20, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::angle1, 9},
    {36, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::angle2, 9},
    {52, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::distance, 5},
    {68, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::height, 5, kPlain},
    {84, 16, &tDC_ANGLE_DISTANCE_KEYEDRecord::code, kKeepLast},
    {100, 1, &tDC_ANGLE_DISTANCE_KEYEDRecord::method, IntegerForm::Offset},
    {101, &tDC_ANGLE_DISTANCE_KEYEDRecord::classification},
};
static_assert(Abut(kAngleDistanceKeyedColumns));

inline constexpr Column<tDC_STATION_HEIGHTRecord> kStationHeightColumns[] = {
    {4, 16, &tDC_STATION_HEIGHTRecord::height, 5},
};
static_assert(Abut(kStationHeightColumns));

inline constexpr Column<tDC_TARGET_HEIGHTRecord> kTargetHeightColumns[] = {
    {4, 16, &tDC_TARGET_HEIGHTRecord::height, 5},
};
static_assert(Abut(kTargetHeightColumns));

inline constexpr Column<tDC_NAMERecord> kNameColumns[] = {
    {4, 16, &tDC_NAMERecord::name, kKeepLast},
};
static_assert(Abut(kNameColumns));

// Coordinate system

inline constexpr Column<tDC_PROJECTIONRecord> kProjectionColumns[] = {
    {4, &tDC_PROJECTIONRecord::projectionCode},
    {5, 16, &tDC_PROJECTIONRecord::originLatitude, 9},
    {21, 16, &tDC_PROJECTIONRecord::originLongitude, 9},
    {37, 16, &tDC_PROJECTIONRecord::originNorthing, 5},
    {53, 16, &tDC_PROJECTIONRecord::falseNorthing, 5},
    {69, 16, &tDC_PROJECTIONRecord::falseEasting, 5},
    {85, 16, &tDC_PROJECTIONRecord::originEasting, 5},
    {101, 16, &tDC_PROJECTIONRecord::scale, 9},
    {117, 16, &tDC_PROJECTIONRecord::parallel1, 9},
    {133, 16, &tDC_PROJECTIONRecord::parallel2, 9},
};
static_assert(Abut(kProjectionColumns));

inline constexpr Column<tDC_PROJECTION_EXTRecord> kProjectionExtColumns[] = {
    {4, &tDC_PROJECTION_EXTRecord::projectionCode},
    {5, 16, &tDC_PROJECTION_EXTRecord::originLatitude, 9},
    {21, 16, &tDC_PROJECTION_EXTRecord::originLongitude, 9},
    {37, 16, &tDC_PROJECTION_EXTRecord::originNorthing, 5},
    {53, 16, &tDC_PROJECTION_EXTRecord::falseNorthing, 5},
    {69, 16, &tDC_PROJECTION_EXTRecord::falseEasting, 5},
    {85, 16, &tDC_PROJECTION_EXTRecord::originEasting, 5},
    {101, 16, &tDC_PROJECTION_EXTRecord::scale, 9},
    {117, 16, &tDC_PROJECTION_EXTRecord::parallel1, 9},
    {133, 16, &tDC_PROJECTION_EXTRecord::parallel2, 9},
    {149, &tDC_PROJECTION_EXTRecord::flagA},
    {150, &tDC_PROJECTION_EXTRecord::flagB},
    {151, 1, &tDC_PROJECTION_EXTRecord::flagC},
    {152, &tDC_PROJECTION_EXTRecord::flagD},
    {153, 32, &tDC_PROJECTION_EXTRecord::gridFileName, kLeft | kTrimmed | kName},
    {185, 32, &tDC_PROJECTION_EXTRecord::shiftFileName, kLeft | kTrimmed},
};
static_assert(Abut(kProjectionExtColumns));

inline constexpr Column<tDC_ELLIPSOIDRecord> kEllipsoidColumns[] = {
    {4, 16, &tDC_ELLIPSOIDRecord::semiMajorAxis, 5},
    {20, 16, &tDC_ELLIPSOIDRecord::inverseFlattening, 10},
};
static_assert(Abut(kEllipsoidColumns));

inline constexpr Column<tDC_LOCAL_SITERecord> kLocalSiteColumns[] = {
    {4, 16, &tDC_LOCAL_SITERecord::latitude, 9}, {20, 16, &tDC_LOCAL_SITERecord::longitude, 9},
    {36, 16, &tDC_LOCAL_SITERecord::height, 5},  {52, 16, &tDC_LOCAL_SITERecord::scale, 9},
    {68, 16, &tDC_LOCAL_SITERecord::east, 5},    {84, 16, &tDC_LOCAL_SITERecord::north, 5},
};
static_assert(Abut(kLocalSiteColumns));

inline constexpr Column<tDC_DATUMRecord> kDatumColumns[] = {
    {4, &tDC_DATUMRecord::datumCode},
    {5, 16, &tDC_DATUMRecord::semiMajorAxis, 5},
    {21, 16, &tDC_DATUMRecord::inverseFlattening, 10},
    {37, 16, &tDC_DATUMRecord::rotationX, 9},
    {53, 16, &tDC_DATUMRecord::rotationY, 9},
    {69, 16, &tDC_DATUMRecord::rotationZ, 9},
    {85, 16, &tDC_DATUMRecord::shiftX, 5},
    {101, 16, &tDC_DATUMRecord::shiftY, 5},
    {117, 16, &tDC_DATUMRecord::shiftZ, 5},
    {133, 16, &tDC_DATUMRecord::scale, 9},
};
static_assert(Abut(kDatumColumns));

inline constexpr Column<tDC_DATUM_GRIDRecord> kDatumGridColumns[] = {
    {4, 32, &tDC_DATUM_GRIDRecord::fileName, kTrimmed | kName},
    {36, 32, &tDC_DATUM_GRIDRecord::description, kTrimmed},
};
static_assert(Abut(kDatumGridColumns));

// Collectors write the description two columns narrower than they read it.
inline constexpr Column<tDC_DATUM_GRIDRecord> kDatumGridColumnsWritten[] = {
    {4, 32, &tDC_DATUM_GRIDRecord::fileName, kName},
    {36, 30, &tDC_DATUM_GRIDRecord::description},
};
static_assert(Abut(kDatumGridColumnsWritten));

inline constexpr Column<tDC_HORIZONTAL_ADJUSTRecord> kHorizontalAdjustColumns[] = {
    {4, 16, &tDC_HORIZONTAL_ADJUSTRecord::originNorth, 5},
    {20, 16, &tDC_HORIZONTAL_ADJUSTRecord::originEast, 5},
    {36, 16, &tDC_HORIZONTAL_ADJUSTRecord::translateNorth, 5},
    {52, 16, &tDC_HORIZONTAL_ADJUSTRecord::translateEast, 5},
    {68, 16, &tDC_HORIZONTAL_ADJUSTRecord::rotation, 10},
    {84, 16, &tDC_HORIZONTAL_ADJUSTRecord::scale, 9},
};
static_assert(Abut(kHorizontalAdjustColumns));

inline constexpr Column<tDC_VERTICAL_ADJUSTRecord> kVerticalAdjustColumns[] = {
    {4, &tDC_VERTICAL_ADJUSTRecord::method},
    {5, 16, &tDC_VERTICAL_ADJUSTRecord::originNorth, 5},
    {21, 16, &tDC_VERTICAL_ADJUSTRecord::originEast, 5},
    {37, 16, &tDC_VERTICAL_ADJUSTRecord::constantShift, 5},
    {53, 16, &tDC_VERTICAL_ADJUSTRecord::slopeNorth, 9},
    {69, 16, &tDC_VERTICAL_ADJUSTRecord::slopeEast, 9},
    {85, 32, &tDC_VERTICAL_ADJUSTRecord::geoidFileName, kTrimmed},
};
static_assert(Abut(kVerticalAdjustColumns));

inline constexpr Column<tDC_COORDINATE_SYSTEMRecord> kCoordinateSystemColumns[] = {
    {4, 1, &tDC_COORDINATE_SYSTEMRecord::systemKind},
    {5, 32, &tDC_COORDINATE_SYSTEMRecord::zoneGroupName, kLeft | kTrimmed | kName},
    {37, 32, &tDC_COORDINATE_SYSTEMRecord::zoneName, kLeft | kTrimmed | kName},
    {69, 32, &tDC_COORDINATE_SYSTEMRecord::datumName, kLeft | kTrimmed},
};
static_assert(Abut(kCoordinateSystemColumns));

inline constexpr Column<tDC_ZONE_LABELRecord> kZoneLabelColumns[] = {
    {4, 32, &tDC_ZONE_LABELRecord::name, kLeft | kTrimmed},
};
static_assert(Abut(kZoneLabelColumns));

// Feature codes

inline constexpr Column<tDC_FEATURE_CODERecord> kFeatureCodeColumns[] = {
    {4, 20, &tDC_FEATURE_CODERecord::code, kLeft | kKeepFirst},
};
static_assert(Abut(kFeatureCodeColumns));

inline constexpr Column<tDC_FEATURE_NUMBERRecord> kFeatureNumberColumns[] = {
    {4, 20, &tDC_FEATURE_NUMBERRecord::name, kLeft | kKeepFirst},
    {24, 16, &tDC_FEATURE_NUMBERRecord::value, 5},
};
static_assert(Abut(kFeatureNumberColumns));

inline constexpr Column<tDC_FEATURE_TEXTRecord> kFeatureTextColumns[] = {
    {4, 20, &tDC_FEATURE_TEXTRecord::name, kLeft | kKeepFirst},
    {24, 100, &tDC_FEATURE_TEXTRecord::value, kLeft | kKeepFirst},
};
static_assert(Abut(kFeatureTextColumns));

inline constexpr Column<tDC_FEATURE_LISTRecord> kFeatureListColumns[] = {
    {4, 20, &tDC_FEATURE_LISTRecord::name, kLeft | kKeepFirst},
    {24, 20, &tDC_FEATURE_LISTRecord::value, kLeft | kKeepFirst},
    {44, 3, &tDC_FEATURE_LISTRecord::index, IntegerForm::Zeros},
};
static_assert(Abut(kFeatureListColumns));

// Of a longer text the first 20 of its last 60 characters stay: see CDcFile::WriteFeatureMap.
inline constexpr Column<tDC_FEATURE_MAPRecord> kFeatureMapColumns[] = {
    {4, 60, &tDC_FEATURE_MAPRecord::text},
    {64, &tDC_FEATURE_MAPRecord::flag},
    {65, 5, &tDC_FEATURE_MAPRecord::number, IntegerForm::First},
    {70, 20, &tDC_FEATURE_MAPRecord::name},
};
static_assert(Abut(kFeatureMapColumns));

inline constexpr Column<tDC_FEATURE_MAPRecord> kFeatureMapColumnsEmpty[] = {
    {4, 86, kBlank},
};
static_assert(Abut(kFeatureMapColumnsEmpty));

// Stake-out

inline constexpr Column<tDC_TARGET_IDRecord> kTargetIdColumns[] = {
    {4, 16, &tDC_TARGET_IDRecord::name, kKeepLast},
    {20, 1, &tDC_TARGET_IDRecord::flag, kKeepFirst},
};
static_assert(Abut(kTargetIdColumns));

inline constexpr Column<tDC_TARGET_HEIGHTS_Record> kTargetHeightsColumns[] = {
    {4, 16, &tDC_TARGET_HEIGHTS_Record::name, kKeepLast},
    {20, 1, &tDC_TARGET_HEIGHTS_Record::flag, kKeepFirst},
    {21, 16, &tDC_TARGET_HEIGHTS_Record::value1, 5},
    {37, 16, &tDC_TARGET_HEIGHTS_Record::value2, 5},
    {53, 16, kBlank},
};
static_assert(Abut(kTargetHeightsColumns));

inline constexpr Column<tDC_TARGET_NUMBERRecord> kTargetNumberColumns[] = {
    {4, 16, &tDC_TARGET_NUMBERRecord::name, kKeepLast},
    {20, 1, &tDC_TARGET_NUMBERRecord::flag, kKeepFirst},
    {21, 16, &tDC_TARGET_NUMBERRecord::value},
    {37, 16, &tDC_TARGET_NUMBERRecord::text},
    {53, 16, kBlank},
};
static_assert(Abut(kTargetNumberColumns));

inline constexpr Column<tDC_TARGET_GRADERecord> kTargetGradeColumns[] = {
    {4, 16, kBlank},
    {20, 16, &tDC_TARGET_GRADERecord::value, 5, kPlain},
};
static_assert(Abut(kTargetGradeColumns));

inline constexpr Column<tDC_ANTENNA_OFFSETRecord> kAntennaOffsetColumns[] = {
    {4, 16, &tDC_ANTENNA_OFFSETRecord::value1, 5},
    {20, 16, &tDC_ANTENNA_OFFSETRecord::value2, 5},
    {36, 16, &tDC_ANTENNA_OFFSETRecord::value3, 5},
};
static_assert(Abut(kAntennaOffsetColumns));

inline constexpr Column<tDC_ANTENNA_MEASUREMENTRecord> kAntennaMeasurementColumns[] = {
    {4, 16, &tDC_ANTENNA_MEASUREMENTRecord::value1, 5},
    {20, 16, &tDC_ANTENNA_MEASUREMENTRecord::value2, 5},
    {36, 16, &tDC_ANTENNA_MEASUREMENTRecord::value3, 5},
    {52, 17, &tDC_ANTENNA_MEASUREMENTRecord::value4, 5, RealForm::Marked},
};
static_assert(Abut(kAntennaMeasurementColumns));

inline constexpr Column<tDC_STAKED_VALUERecord> kStakedValueColumns[] = {
    {4, 16, &tDC_STAKED_VALUERecord::value, 5, kPlain},
};
static_assert(Abut(kStakedValueColumns));

inline constexpr Column<tDC_DESIGN_SLOPERecord> kDesignSlopeColumns[] = {
    {4, 16, &tDC_DESIGN_SLOPERecord::name},
    {20, 1, &tDC_DESIGN_SLOPERecord::side},
    {21, 17, &tDC_DESIGN_SLOPERecord::slope, 5, RealForm::Marked},
    {38, 16, kBlank},
    {54, 16, kBlank},
    {70, 16, &tDC_DESIGN_SLOPERecord::value, 5, kPlain},
    {86, 4, kBlank},
};
static_assert(Abut(kDesignSlopeColumns));

inline constexpr Column<tDC_CATCH_POINTRecord> kCatchPointColumns[] = {
    {4, 16, &tDC_CATCH_POINTRecord::value1, 5, kPlain},
    {20, 16, &tDC_CATCH_POINTRecord::value2, 5, kPlain},
    {36, 16, &tDC_CATCH_POINTRecord::value3, 5, kPlain},
    {52, 16, &tDC_CATCH_POINTRecord::horizontal, 5, kPlain},
    {68, 16, &tDC_CATCH_POINTRecord::vertical, 5, kPlain},
    {84, 16, &tDC_CATCH_POINTRecord::slope, 5, kPlain},
    {100, 16, kBlank},
};
static_assert(Abut(kCatchPointColumns));

inline constexpr Column<tDC_OFFSET_SETTINGRecord> kOffsetSettingColumns[] = {
    {4, 16, kBlank},
    {20, 10, kBlank},
    {30, 16, kBlank},
    {46, 1, kBlank},
    {47, 16, &tDC_OFFSET_SETTINGRecord::value, 5, kPlain},
    {63, 16, kBlank},
    {79, 16, kBlank},
    {95, 16, kBlank},
    {111, 16, kBlank},
};
static_assert(Abut(kOffsetSettingColumns));

// GPS

inline constexpr Column<tDC_ANTENNA_HEIGHTRecord> kAntennaHeightColumns[] = {
    {4, 16, &tDC_ANTENNA_HEIGHTRecord::height, 5},
    {20, 1, &tDC_ANTENNA_HEIGHTRecord::flag},
};
static_assert(Abut(kAntennaHeightColumns));

inline constexpr Column<tDC_VECTOR_SIGMARecord> kVectorSigmaColumns[] = {
    {4, 2, &tDC_VECTOR_SIGMARecord::flag},         {6, 16, &tDC_VECTOR_SIGMARecord::value1, 10},
    {22, 16, &tDC_VECTOR_SIGMARecord::value2, 10}, {38, 16, &tDC_VECTOR_SIGMARecord::value3, 10},
    {54, 16, &tDC_VECTOR_SIGMARecord::value4, 10}, {70, 16, &tDC_VECTOR_SIGMARecord::value5, 10},
    {86, 16, &tDC_VECTOR_SIGMARecord::value6, 10}, {102, 16, &tDC_VECTOR_SIGMARecord::value7, 10},
};
static_assert(Abut(kVectorSigmaColumns));

inline constexpr Column<tDC_RECEIVER_Record> kReceiverColumns[] = {
    {4, 8, &tDC_RECEIVER_Record::text1, kKeepFirst},
    {12, 8, &tDC_RECEIVER_Record::text2, kKeepLast},
    {20, 2, &tDC_RECEIVER_Record::number1},
    {22, 1, &tDC_RECEIVER_Record::number2},
    {23, 30, &tDC_RECEIVER_Record::text3, kLeft | kKeepFirst},
    {53, 8, &tDC_RECEIVER_Record::text4, kKeepLast},
    {61, 16, &tDC_RECEIVER_Record::value1, 5, kPlain},
    {77, 16, &tDC_RECEIVER_Record::value2, 5, kPlain},
    {93, 16, &tDC_RECEIVER_Record::value3, 5, kPlain},
};
static_assert(Abut(kReceiverColumns));

inline constexpr Column<tDC_RECEIVER_EXTRecord> kReceiverExtColumns[] = {
    {4, 8, &tDC_RECEIVER_EXTRecord::text1, kKeepLast},
    {12, 10, &tDC_RECEIVER_EXTRecord::text2, kKeepLast},
    {22, 3, &tDC_RECEIVER_EXTRecord::number1},
    {25, 1, &tDC_RECEIVER_EXTRecord::number2},
    {26, 30, &tDC_RECEIVER_EXTRecord::text3, kLeft | kKeepLast},
    {56, 10, &tDC_RECEIVER_EXTRecord::text4, kKeepLast},
    {66, 16, &tDC_RECEIVER_EXTRecord::value1, 5, kPlain},
    {82, 16, &tDC_RECEIVER_EXTRecord::value2, 5, kPlain},
    {98, 16, &tDC_RECEIVER_EXTRecord::value3, 5, kPlain},
};
static_assert(Abut(kReceiverExtColumns));

inline constexpr Column<tDC_SETUP_Record> kSetupColumns[] = {
    {4, 2, &tDC_SETUP_Record::flag, IntegerForm::Truncated},
    {6, &tDC_SETUP_Record::relative},
    {7, 16, &tDC_SETUP_Record::value1, 5},
    {23, 16, &tDC_SETUP_Record::value2, 5},
    {39, 16, &tDC_SETUP_Record::value3, 5},
    {55, 16, &tDC_SETUP_Record::value4, 5},
    {71, 4, &tDC_SETUP_Record::number1, IntegerForm::Truncated},
    {75, 16, &tDC_SETUP_Record::value5, 5},
    {91, 16, &tDC_SETUP_Record::value6, 5},
    {107, 4, &tDC_SETUP_Record::number2, IntegerForm::Truncated},
    {111, 16, &tDC_SETUP_Record::value7, 5},
    {127, 4, &tDC_SETUP_Record::number3, IntegerForm::Truncated},
    {131, 16, &tDC_SETUP_Record::value8, 5},
    {147, 1, &tDC_SETUP_Record::digit, IntegerForm::Truncated},
};
static_assert(Abut(kSetupColumns));

// Reduced observations

inline constexpr Column<tDC_CB_Record> kCbColumns[] = {
    {4, 16, &tDC_CB_Record::text1, kName}, {20, 16, &tDC_CB_Record::text2, kName},
    {36, 1, &tDC_CB_Record::digit},        {37, 16, &tDC_CB_Record::value1, 5},
    {53, 16, &tDC_CB_Record::value2, 5},   {69, 16, &tDC_CB_Record::value3, 5},
};
static_assert(Abut(kCbColumns));

inline constexpr Column<tDC_MP_Record> kMpColumns[] = {
    {4, 16, &tDC_MP_Record::text1, kName}, {20, 16, &tDC_MP_Record::text2, kName},
    {36, 16, &tDC_MP_Record::value1, 9},   {52, 16, &tDC_MP_Record::value2, 9},
    {68, 16, &tDC_MP_Record::value3, 9},   {84, 16, &tDC_MP_Record::value4, 9},
    {100, 16, &tDC_MP_Record::value5, 5},  {116, 16, &tDC_MP_Record::value6, 5},
    {132, 16, &tDC_MP_Record::code},       {148, &tDC_MP_Record::classification},
};
static_assert(Abut(kMpColumns));

inline constexpr Column<tDC_MA_Record> kMaColumns[] = {
    {4, 16, &tDC_MA_Record::text1, kName},  {20, 16, &tDC_MA_Record::text2, kName},
    {36, 16, &tDC_MA_Record::text3, kName}, {52, 16, &tDC_MA_Record::value1, 9},
    {68, 16, &tDC_MA_Record::value2, 9},    {84, 16, &tDC_MA_Record::value3, 9},
    {100, 16, &tDC_MA_Record::value4, 9},   {116, 16, &tDC_MA_Record::value5, 9},
    {132, 16, &tDC_MA_Record::value6, 9},   {148, 2, &tDC_MA_Record::number1},
    {150, 2, &tDC_MA_Record::number2},
};
static_assert(Abut(kMaColumns));

}  // namespace zelconvert
