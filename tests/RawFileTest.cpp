#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "TempDir.h"
#include "io/Clock.h"
#include "platform/Platform.h"
#include "raw/Angles.h"
#include "raw/CRawFile.h"

namespace zelconvert {
namespace {

// ---- Classification

TEST(RawRecordTypes, AreTheirNumbers) {
  const std::vector<std::pair<const wchar_t*, int>> tags = {
      {L"AA", 0},  {L"BK", 1},  {L"CF", 2},  {L"JB", 4},  {L"LS", 5},  {L"MD", 6},  {L"MO", 7},
      {L"OC", 9},  {L"OF", 10}, {L"RD", 11}, {L"RS", 12}, {L"SK", 13}, {L"SP", 14}, {L"SS", 15},
      {L"SU", 16}, {L"TR", 17}, {L"--", 18}, {L"RE", 19}, {L"GS", 24}, {L"BP", 25}, {L"LH", 28},
      {L"EP", 30}, {L"CV", 34}, {L"RF", 35}, {L"RB", 36}, {L"SL", 37}, {L"SR", 38}, {L"RX", 39},
      {L"EQ", 40}, {L"AH", 41}, {L"BL", 42}, {L"GP", 43}, {L"GO", 44}, {L"ES", 47}, {L"ST", 48},
      {L"PJ", 49}, {L"PE", 50}, {L"DT", 51}, {L"DG", 52}, {L"HA", 53}, {L"VA", 54}, {L"CS", 55},
      {L"LM", 56}, {L"CT", 57}, {L"AP", 58}, {L"SD", 59}, {L"OE", 60}, {L"DP", 61}, {L"DE", 62},
      {L"GK", 63}, {L"OB", 64}, {L"CG", 65}, {L"EE", 66}, {L"RP", 67}, {L"SC", 68}, {L"CR", 69},
      {L"IM", 70}, {L"GQ", 71}, {L"SG", 72}};
  for (const auto& [tag, number] : tags) {
    EXPECT_EQ(static_cast<int>(CRawFile::GetRecordType(tag)), number) << tag;
    EXPECT_EQ(static_cast<int>(CRawFile::GetRecordType(std::wstring(tag) + L",x")), number) << tag;
  }
  int known = 0;
  for (wchar_t a = L'A'; a <= L'Z'; ++a) {
    for (wchar_t b = L'A'; b <= L'Z'; ++b) {
      known += CRawFile::GetRecordType(std::wstring{a, b}) != RawRecordType::Other ? 1 : 0;
    }
  }
  EXPECT_EQ(known + 1, static_cast<int>(tags.size()));  // and "--"
  for (const wchar_t* other : {L"", L"S", L"ss", L"Ss,", L"-", L"- -", L" SS", L"\u00e9\u00e9",
                               L"[[", L"@@", L"\xFEFFJB", L"HC", L"00NM"}) {
    EXPECT_EQ(CRawFile::GetRecordType(other), RawRecordType::Other) << other;
  }
}

// ---- Fields

TEST(RawFields, AreFoundByPlainSearch) {
  struct Case {
    const wchar_t* record;
    wchar_t tag[3];
    const wchar_t* value;  // null: none
  };
  const std::wstring many = L"XX" + std::wstring(40, L',') + L",SD7,EL8";
  const Case cases[] = {
      {L"SP,PN12,N 100.0,E 200.0,EL10.0,--fence", L"PN", L"12"},
      {L"SP,PN12,N 100.0,E 200.0,EL10.0,--fence", L"N ", L"100.0"},
      {L"SP,PN12,N 100.0,E 200.0,EL10.0,--fence", L"--", L"fence"},
      {L"SP,PN12,N 100.0,E 200.0,EL10.0,--a,b", L"--", L"a"},
      {L"SS,--note,SDof a note,SD5", L"SD", L"of a note"},  // hides the distance
      {L"SS,SD", L"SD", L""},
      {L"SS,SD,ZE", L"SD", L""},
      {L"SS, SD5", L"SD", nullptr},
      {L"SS,sd5", L"SD", nullptr},
      {L"SD,S", L"SD", nullptr},
      {L"SD5", L"SD", nullptr},
      {L",,SD5", L"SD", L"5"},
      {L"", L"SD", nullptr},
      {many.c_str(), L"SD", L"7"},
      {many.c_str(), L"EL", L"8"},
      {many.c_str(), L"ZE", nullptr},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(testing::Message() << each.record << " " << each.tag);
    std::wstring_view value = L"as it was";
    EXPECT_EQ(CRawFile::GetField(each.record, each.tag, value), each.value != nullptr);
    EXPECT_EQ(value, each.value != nullptr ? each.value : L"as it was");
  }
}

TEST(RawFields, AreNumbersWhateverTheyHold) {
  struct Case {
    const wchar_t* value;
    double real;
    std::int32_t integer;
  };
  for (const Case& each : {Case{L"1.5", 1.5, 1}, Case{L"", DC_NULL, 0}, Case{L" ", 0, 0},
                           Case{L"x", 0, 0}, Case{L"-2e3", -2000, -2}, Case{L" 7x", 7, 7},
                           Case{L"9999999999", 9999999999.0, 2147483647}}) {
    SCOPED_TRACE(each.value);
    const std::wstring record = std::wstring(L"XX,SD") + each.value;
    double real = -1;
    std::int32_t integer = -1;
    EXPECT_TRUE(CRawFile::GetDoubleField(record, L"SD", real));
    EXPECT_TRUE(CRawFile::GetIntField(record, L"SD", integer));
    EXPECT_EQ(real, each.real);
    EXPECT_EQ(integer, each.integer);
    EXPECT_FALSE(CRawFile::GetDoubleField(record, L"ZE", real));
    EXPECT_FALSE(CRawFile::GetIntField(record, L"ZE", integer));
    EXPECT_EQ(real, each.real);
    EXPECT_EQ(integer, each.integer);
  }
}

// ---- Parsers

void Append(std::wstring& out, std::wstring_view value) {
  out.append(value).append(L"|");
}
void Append(std::wstring& out, double value) {
  out.append(value == DC_NULL ? L"null" : FormatFixed(value, 1)).append(L"|");
}
template <class Integer>
void Append(std::wstring& out, Integer value) {
  out.append(std::to_wstring(static_cast<int>(value))).append(L"|");
}

/// All members, or "bad".
template <class... Members>
std::wstring Dump(bool parsed, const Members&... members) {
  if (!parsed) return L"bad";
  std::wstring out;
  (Append(out, members), ...);
  return out;
}

struct ParserCase {
  const wchar_t* record;    // with every field, each with its own value
  const wchar_t* required;  // tags, one blank between them
  const wchar_t* expected;  // the members as the structure lists them
  std::function<std::wstring(std::wstring_view)> parse;
};

template <class Record>
using Parser = bool (*)(std::wstring_view, Record&);

template <class Record, class DumpRecord>
auto Parse(Parser<Record> parser, DumpRecord dump) {
  return [=](std::wstring_view text) {
    Record r;
    return dump(parser(text, r), r);
  };
}

const auto kDumpPoint = [](bool ok, const POINT_RECORD& r) {
  return Dump(ok, r.name, r.north, r.east, r.elevation, r.note);
};
const auto kDumpShot = [](bool ok, const SHOT_RECORD& r) {
  return Dump(ok, r.station, r.foresight, r.horizontalKind, r.horizontal, r.verticalKind,
              r.vertical, r.distance, r.note);
};
const auto kDumpRound = [](bool ok, const ROUND_SHOT_RECORD& r) {
  return Dump(ok, r.station, r.target, r.angleRight, r.zenith, r.slopeDistance, r.rodHeight,
              r.note);
};
const auto kDumpDirection = [](bool ok, const DIRECTION_RECORD& r) {
  return Dump(ok, r.kind, r.set, r.angle);
};
const auto kDumpName = [](bool ok, const NAME_RECORD& r) { return Dump(ok, r.name); };
const auto kDumpFile = [](bool ok, const FILE_RECORD& r) { return Dump(ok, r.fileName); };
const auto kDumpMode = [](bool ok, const MO_RECORD& r) {
  return Dump(ok, r.azimuthOrigin, r.distanceUnit, r.scale, r.curvature, r.edmOffset, r.angleUnit,
              r.scaleMode);
};
const auto kDumpStake = [](bool ok, const CF_RECORD& r) {
  return Dump(ok, r.isPoint, r.name, r.station, r.offsetDirection, r.offset, r.elevation, r.grade,
              r.note);
};
const auto kDumpSlope = [](bool ok, const SLOPE_RECORD& r) {
  return Dump(ok, r.station, r.offsetDirection, r.elevation, r.grade, r.stationShift,
              r.hingeHorizontal, r.hingeVertical, r.catchHorizontal, r.catchVertical, r.cutFill,
              r.designSlope, r.offset, r.note, r.offsetLength);
};
const auto kDumpGp = [](bool ok, const GP_RECORD& r) { return Dump(ok, r.name, r.kind); };
std::wstring DumpProjection(bool ok, const PJ_RECORD& r) {
  return Dump(ok, r.type, r.latitude, r.longitude, r.height, r.north, r.east, r.elevation, r.scale,
              r.angle1, r.angle2);
}

const std::vector<ParserCase> kParsers = {
    {L"JB,NMjob,DT1,TM2", L"NM DT TM", L"job|1|2|",
     Parse<JB_RECORD>(
         CRawFile::ParseJB,
         [](bool ok, const JB_RECORD& r) { return Dump(ok, r.name, r.date, r.time); })},
    {L"MO,AD1,UN2,SF3,EC4,EO5,AU6,SK7", L"AD UN SF EC EO", L"1|2|3.0|4|5.0|6|7|",
     Parse<MO_RECORD>(CRawFile::ParseMO, kDumpMode)},
    {L"MO,AD0,UN1,SF1.000000,EC0,EO0.0", L"", L"0|1|1.0|0|0.0|0|0|",
     Parse<MO_RECORD>(CRawFile::ParseMO, kDumpMode)},
    {L"MO,AD0,UN1,SF1.5,EC0,EO0.0", L"", L"0|1|1.5|0|0.0|0|1|",
     Parse<MO_RECORD>(CRawFile::ParseMO, kDumpMode)},
    {L"MO,AD0,UN1,SF0.9999999999995,EC0,EO0.0", L"", L"0|1|1.0|0|0.0|0|0|",
     Parse<MO_RECORD>(CRawFile::ParseMO, kDumpMode)},
    {L"OC,OPa,N 1,E 2,EL3,--n", L"OP N_ E_ EL --", L"a|1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseOC, kDumpPoint)},
    {L"OC,PNa,N 1,E 2,EL3,--n", L"PN", L"a|1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseOC, kDumpPoint)},
    {L"OC,PNb,OPa,N 1,E 2,EL,--", L"", L"a|1.0|2.0|null||",
     Parse<POINT_RECORD>(CRawFile::ParseOC, kDumpPoint)},
    {L"SP,PN a ,N 1,E 2,EL3,--n", L"PN N_ E_ EL --", L" a |1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseSP, kDumpPoint)},
    {L"GS,PNa,N 1,E 2,EL3,--n", L"PN N_ E_ EL --", L"a|1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseGS, kDumpPoint)},
    {L"RP,PNa,N 1,E 2,EL3,--n", L"PN N_ E_ EL --", L"a|1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseRP, kDumpPoint)},
    {L"AP,PN a ,N 1,E 2,EL3,--n", L"PN N_ E_ EL --", L"a|1.0|2.0|3.0|n|",
     Parse<POINT_RECORD>(CRawFile::ParseAP, kDumpPoint)},
    {L"BK,OPa,BPb,BS1,BC2", L"OP BP BS BC", L"a|b|1.0|2.0|",
     Parse<BK_RECORD>(CRawFile::ParseBK,
                      [](bool ok, const BK_RECORD& r) {
                        return Dump(ok, r.station, r.backsight, r.azimuth, r.circle);
                      })},
    {L"LS,HI1,HR2", L"HI HR", L"1.0|2.0|",
     Parse<LS_RECORD>(
         CRawFile::ParseLS,
         [](bool ok, const LS_RECORD& r) { return Dump(ok, r.instrumentHeight, r.rodHeight); })},
    {L"TR,OPa,FPb,AR1,ZE2,SD3,--n", L"OP FP AR ZE SD --", L"a|b|2|1.0|1|2.0|3.0|n|",
     Parse<SHOT_RECORD>(CRawFile::ParseTR, kDumpShot)},
    {L"SS,OCa,FPb,AZ1,VA2,SD3,--n", L"OC FP AZ VA SD --", L"a|b|0|1.0|2|2.0|3.0|n|",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SS,OPa,FPb,BRN1E,CE2,HD3,--", L"BR CE HD --", L"a|b|1|0.0|0|2.0|3.0||",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SS,OPa,FPb,AL1,ZE2,SD3,--", L"AL", L"a|b|3|1.0|1|2.0|3.0||",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SS,OPa,FPb,DR1,ZE2,SD3,--", L"DR", L"a|b|4|1.0|1|2.0|3.0||",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SS,OPa,FPb,DL1,ZE2,SD3,--", L"DL", L"a|b|5|1.0|1|2.0|3.0||",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    // The first of two kinds wins; a pair once begun has to be whole.
    {L"SS,OPa,OCx,FPb,AL9,AR1,VA9,ZE2,SD3,--", L"", L"a|b|2|1.0|1|2.0|3.0||",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SS,OPa,FPb,AR1,ZE2,CE3,HD4,--", L"", L"bad",
     Parse<SHOT_RECORD>(CRawFile::ParseSS, kDumpShot)},
    {L"SK,OPa,FPb,AR1,ZE2,SD3,--n", L"OP FP AR ZE SD --", L"a|b|1.0|2.0|3.0|n|",
     Parse<STAKE_SHOT_RECORD>(CRawFile::ParseSK,
                              [](bool ok, const STAKE_SHOT_RECORD& r) {
                                return Dump(ok, r.station, r.foresight, r.angleRight, r.zenith,
                                            r.slopeDistance, r.note);
                              })},
    {L"RB,OPa,BPb,AR1,ZE2,SD3,HR4,--n", L"OP BP AR ZE SD HR --", L"a|b|1.0|2.0|3.0|4.0|n|",
     Parse<ROUND_SHOT_RECORD>(CRawFile::ParseRB, kDumpRound)},
    {L"RF,OPa,FPb,AR1,ZE2,SD3,HR4,--n", L"OP FP AR ZE SD HR --", L"a|b|1.0|2.0|3.0|4.0|n|",
     Parse<ROUND_SHOT_RECORD>(CRawFile::ParseRF, kDumpRound)},
    {L"RD,BD 2:10.3000", L"BD", L"0|2|10.3|",
     Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,FD1:2:3", L"FD", L"1|1|2.0|", Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,ZD1:2", L"ZD", L"2|1|2.0|", Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,FV1:", L"FV", L"3|1|null|", Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,ZV12", L"ZV", L"4|12|0.0|", Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,BV1:2", L"BV", L"5|1|2.0|", Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"RD,BV1:2,FD3:4", L"", L"1|3|4.0|",
     Parse<DIRECTION_RECORD>(CRawFile::ParseRD, kDumpDirection)},
    {L"MD,SD 1:2.5", L"SD", L"2.5|",
     Parse<SET_DISTANCE_RECORD>(
         CRawFile::ParseMD,
         [](bool ok, const SET_DISTANCE_RECORD& r) { return Dump(ok, r.distance); })},
    {L"DP,PN a", L"PN", L" a|", Parse<NAME_RECORD>(CRawFile::ParseDP, kDumpName)},
    {L"DE,PNa", L"PN", L"a|", Parse<NAME_RECORD>(CRawFile::ParseDE, kDumpName)},
    {L"GK,PNa", L"PN", L"a|", Parse<NAME_RECORD>(CRawFile::ParseGK, kDumpName)},
    {L"CF,PNa,EL1,GD2,--n", L"EL GD", L"1|a|0.0|0|0.0|1.0|2.0|n|",
     Parse<CF_RECORD>(CRawFile::ParseCF, kDumpStake)},
    {L"CF,ST1,OD2,OL3,EL4,GD5,--n", L"OD OL EL GD", L"0||1.0|2|3.0|4.0|5.0|n|",
     Parse<CF_RECORD>(CRawFile::ParseCF, kDumpStake)},
    {L"CF,PNa,ST1,EL4,GD5", L"EL GD", L"1|a|0.0|0|0.0|4.0|5.0||",
     Parse<CF_RECORD>(CRawFile::ParseCF, kDumpStake)},
    {L"CF,EL4,GD5", L"EL GD", L"1||0.0|0|0.0|4.0|5.0||",
     Parse<CF_RECORD>(CRawFile::ParseCF, kDumpStake)},
    {L"SL,ST1,OD2,EL3,GD4,AS5,HH6,VH7,HC8,VC9,CF10,DS11,OB12,--n,OL13",
     L"ST OD EL GD AS HH VH HC VC CF DS OB --",
     L"1.0|2|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10|11.0|12.0|n|13.0|",
     Parse<SLOPE_RECORD>(CRawFile::ParseSL, kDumpSlope)},
    {L"SR,ST1,OD2,EL3,GD4,AS5,HH6,VH7,HC8,VC9,CF10,DS11,OB12,--n", L"ST",
     L"1.0|2|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10|11.0|12.0|n|null|",
     Parse<SLOPE_RECORD>(CRawFile::ParseSR, kDumpSlope)},
    {L"SD,ND1,ED2,LD3", L"ND ED LD", L"1.0|2.0|3.0|",
     Parse<STAKED_DELTA_RECORD>(CRawFile::ParseSD,
                                [](bool ok, const STAKED_DELTA_RECORD& r) {
                                  return Dump(ok, r.north, r.east, r.elevation);
                                })},
    {L"OE,ST1,OE2", L"ST OE", L"1.0|2.0|",
     Parse<STATION_ERROR_RECORD>(CRawFile::ParseOE,
                                 [](bool ok, const STATION_ERROR_RECORD& r) {
                                   return Dump(ok, r.station, r.offsetError);
                                 })},
    {L"RX,DCBASE,RA1", L"DC RA", L"BASE|1.0|",
     Parse<RX_RECORD>(
         CRawFile::ParseRX,
         [](bool ok, const RX_RECORD& r) { return Dump(ok, r.role, r.antennaHeight); })},
    {L"EQ,DCa,RXb,RSc,AN1,AI2,ATd,TSe,TA3,HO4,VO5", L"DC RX RS AN AI AT TS TA HO VO",
     L"a|b|c|1|2|d|e|3.0|4.0|5.0|",
     Parse<EQ_RECORD>(CRawFile::ParseEQ,
                      [](bool ok, const EQ_RECORD& r) {
                        return Dump(ok, r.role, r.receiverType, r.receiverSerial, r.antennaNumber,
                                    r.antennaId, r.antennaType, r.antennaSerial, r.tapeAdjustment,
                                    r.horizontalOffset, r.verticalOffset);
                      })},
    {L"AH,DCa,MA1,ME2,RA3", L"DC MA ME RA", L"a|1.0|2|3.0|",
     Parse<AH_RECORD>(CRawFile::ParseAH,
                      [](bool ok, const AH_RECORD& r) {
                        return Dump(ok, r.role, r.measuredHeight, r.method, r.reducedHeight);
                      })},
    {L"BP,PNa,LA1,LN2,HT3,SG4", L"PN LA LN HT SG", L"a|1.0|2.0|3.0|4|",
     Parse<BP_RECORD>(CRawFile::ParseBP,
                      [](bool ok, const BP_RECORD& r) {
                        return Dump(ok, r.name, r.latitude, r.longitude, r.height, r.geoid);
                      })},
    {L"EP,LA1,LN2,HT3,GM4,CL5,RH6,RV7", L"LA LN HT GM CL RH RV", L"1.0|2.0|3.0|4|5|6.0|7.0|",
     Parse<EP_RECORD>(CRawFile::ParseEP,
                      [](bool ok, const EP_RECORD& r) {
                        return Dump(ok, r.latitude, r.longitude, r.height, r.method,
                                    r.classification, r.horizontalPrecision, r.verticalPrecision);
                      })},
    {L"BL,DCa,PNb,DX1,DY2,DZ3,--n,GM4,CL5,HP6,VP7", L"DC PN DX DY DZ -- GM CL HP VP",
     L"a|b|1.0|2.0|3.0|n|4|5|6.0|7.0|",
     Parse<BL_RECORD>(CRawFile::ParseBL,
                      [](bool ok, const BL_RECORD& r) {
                        return Dump(ok, r.role, r.name, r.deltaX, r.deltaY, r.deltaZ, r.note,
                                    r.method, r.classification, r.horizontalPrecision,
                                    r.verticalPrecision);
                      })},
    {L"CV,DCa,SV1,SC2,XX3,XY4,XZ5,YY6,YZ7,ZZ8", L"DC SV SC XX XY XZ YY YZ ZZ",
     L"a|1|2.0|3.0|4.0|5.0|6.0|7.0|8.0|",
     Parse<CV_RECORD>(CRawFile::ParseCV,
                      [](bool ok, const CV_RECORD& r) {
                        return Dump(ok, r.role, r.satellites, r.scalar, r.xx, r.xy, r.xz, r.yy,
                                    r.yz, r.zz);
                      })},
    {L"GQ,DCa,SV1,DR2,PD3,DH4,DV5,RM6,NE7,RH8,RV9,WS10,FS11,WE12,ES13,IM14",
     L"DC SV DR PD DH DV RM NE RH RV WS FS WE ES IM",
     L"a|1|2|3.0|4.0|5.0|6.0|7|8.0|9.0|10|11.0|12|13.0|14|",
     Parse<GQ_RECORD>(CRawFile::ParseGQ,
                      [](bool ok, const GQ_RECORD& r) {
                        return Dump(ok, r.role, r.satellites, r.relative, r.pdop, r.hdop, r.vdop,
                                    r.rms, r.epochs, r.horizontalPrecision, r.verticalPrecision,
                                    r.startWeek, r.startSeconds, r.endWeek, r.endSeconds,
                                    r.initialization);
                      })},
    {L"GP,PNa,PTUSER_INPUT", L"PN PT", L"a|8|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTCONTROL", L"", L"a|0|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTCHECK", L"", L"a|1|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTDATA", L"", L"a|2|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTOFFSET", L"", L"a|3|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTFEATURE", L"", L"a|4|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTREMOTE_ELEV", L"", L"a|5|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTSTAKE_OUT", L"", L"a|6|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GP,PNa,PTdata", L"", L"a|0|", Parse<GP_RECORD>(CRawFile::ParseGP, kDumpGp)},
    {L"GO,PNa,AZ1,ZE2,SD3,HI4,HR5,--n", L"PN AZ ZE SD HI HR --", L"a|1.0|2.0|3.0|4.0|5.0|n|",
     Parse<GO_RECORD>(CRawFile::ParseGO,
                      [](bool ok, const GO_RECORD& r) {
                        return Dump(ok, r.name, r.azimuth, r.zenith, r.slopeDistance,
                                    r.instrumentHeight, r.rodHeight, r.note);
                      })},
    {L"ES,RD1,IF2", L"RD IF", L"1.0|2.0|",
     Parse<ES_RECORD>(CRawFile::ParseES,
                      [](bool ok, const ES_RECORD& r) {
                        return Dump(ok, r.semiMajorAxis, r.inverseFlattening);
                      })},
    {L"ST,LA1,LN2,HT3,SC4,N 5,E 6", L"LA LN HT SC N_ E_", L"1.0|2.0|3.0|4.0|5.0|6.0|",
     Parse<ST_RECORD>(CRawFile::ParseST,
                      [](bool ok, const ST_RECORD& r) {
                        return Dump(ok, r.latitude, r.longitude, r.height, r.scale, r.north,
                                    r.east);
                      })},
    {L"PJ,TP1,LA2,LN3,HT4,N 5,E 6,EL7,SC8,OO9,OT10", L"TP LA LN HT N_ E_ EL SC OO OT",
     L"1|2.0|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10.0|",
     Parse<PJ_RECORD>(CRawFile::ParsePJ, DumpProjection)},
    {L"PE,TP1,LA2,LN3,HT4,N 5,E 6,EL7,SC8,OO9,OT10,CT11,AF12,RY13,AE14,FOf,FTg",
     L"TP LA LN HT N_ E_ EL SC OO OT CT AF RY AE FO FT",
     L"1|2.0|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10.0|11|12|13|14|f|g|",
     Parse<PE_RECORD>(CRawFile::ParsePE,
                      [](bool ok, const PE_RECORD& r) {
                        return ok ? DumpProjection(ok, r) +
                                        Dump(ok, r.ct, r.af, r.ry, r.ae, r.gridFile, r.shiftFile)
                                  : L"bad";
                      })},
    {L"DT,DA1,RD2,IF3,OX4,OY5,OZ6,LX7,LY8,LZ9,SP10", L"DA RD IF OX OY OZ LX LY LZ SP",
     L"1|2.0|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10.0|",
     Parse<DT_RECORD>(CRawFile::ParseDT,
                      [](bool ok, const DT_RECORD& r) {
                        return Dump(ok, r.type, r.semiMajorAxis, r.inverseFlattening, r.rotationX,
                                    r.rotationY, r.rotationZ, r.shiftX, r.shiftY, r.shiftZ,
                                    r.scale);
                      })},
    {L"DG,FIf", L"FI", L"f|", Parse<FILE_RECORD>(CRawFile::ParseDG, kDumpFile)},
    {L"SG,FIf", L"FI", L"f|", Parse<FILE_RECORD>(CRawFile::ParseSG, kDumpFile)},
    {L"HA,N 1,E 2,TN3,TH4,TE5,RT6,SC7", L"N_ E_ TN TH TE RT SC", L"1.0|2.0|3.0|5.0|6.0|7.0|",
     Parse<HA_RECORD>(CRawFile::ParseHA,
                      [](bool ok, const HA_RECORD& r) {
                        return Dump(ok, r.north, r.east, r.translateNorth, r.translateEast,
                                    r.rotation, r.scale);
                      })},
    {L"VA,PV1,N 2,E 3,LZ4,SO5,SA6,GNg", L"PV N_ E_ LZ SO SA GN", L"1|2.0|3.0|4.0|5.0|6.0|g|",
     Parse<VA_RECORD>(CRawFile::ParseVA,
                      [](bool ok, const VA_RECORD& r) {
                        return Dump(ok, r.method, r.north, r.east, r.constantShift, r.slopeNorth,
                                    r.slopeEast, r.geoidName);
                      })},
    {L"CT,PN\ta ,DM1,RH2,RV3", L"PN DM RH RV", L"a|1|2.0|3.0|",
     Parse<CT_RECORD>(CRawFile::ParseCT,
                      [](bool ok, const CT_RECORD& r) {
                        return Dump(ok, r.name, r.dimension, r.horizontalPrecision,
                                    r.verticalPrecision);
                      })},
    {L"CS,CO1,ZGa,ZNb,DNc", L"CO ZG ZN DN", L"1|a|b|c|",
     Parse<CS_RECORD>(CRawFile::ParseCS,
                      [](bool ok, const CS_RECORD& r) {
                        return Dump(ok, r.system, r.zoneGroupName, r.zoneName, r.datumName);
                      })},
    {L"CG,AO1,GO2", L"AO GO", L"1|2|",
     Parse<CG_RECORD>(
         CRawFile::ParseCG,
         [](bool ok, const CG_RECORD& r) { return Dump(ok, r.azimuthOrigin, r.groundOrigin); })},
    {L"LM,ME1,CS2,DA3,ZO4,HE5,FIf", L"ME CS DA ZO HE FI", L"1|2|3|4|5|f|",
     Parse<LM_RECORD>(CRawFile::ParseLM,
                      [](bool ok, const LM_RECORD& r) {
                        return Dump(ok, r.mode, r.coordinateSystem, r.datum, r.zone, r.hemisphere,
                                    r.fileName);
                      })},
    {L"SC,FIf,NP1,HS2,VS3", L"FI NP HS VS", L"f|1|2.0|3.0|",
     Parse<SC_RECORD>(CRawFile::ParseSC,
                      [](bool ok, const SC_RECORD& r) {
                        return Dump(ok, r.fileName, r.points, r.horizontalStep, r.verticalStep);
                      })},
    {L"CR,X01,Y02,CK3,KA4,PH5,OM6,S07,C08,Z09,I 10,K111,P112,P213,SX14,SY15,NX16,NY17",
     L"X0 Y0 CK KA PH OM S0 C0 Z0 I_ K1 P1 P2 SX SY NX NY",
     L"1.0|2.0|3.0|4.0|5.0|6.0|7.0|8.0|9.0|10.0|11|12|13|14.0|15.0|16|17|",
     Parse<CR_RECORD>(CRawFile::ParseCR,
                      [](bool ok, const CR_RECORD& r) {
                        return Dump(ok, r.x0, r.y0, r.focalLength, r.kappa, r.phi, r.omega, r.s0,
                                    r.c0, r.z0, r.i, r.k1, r.p1, r.p2, r.pixelSizeX, r.pixelSizeY,
                                    r.pixelsX, r.pixelsY);
                      })},
    {L"IM,FIf,HA1,VA2,WI3,HE4,SX5,SY6,SW7,SH8", L"FI HA VA WI HE SX SY SW SH",
     L"f|1.0|2.0|3|4|5|6|7|8|",
     Parse<IM_RECORD>(CRawFile::ParseIM,
                      [](bool ok, const IM_RECORD& r) {
                        return Dump(ok, r.fileName, r.horizontalAngle, r.verticalAngle, r.width,
                                    r.height, r.startX, r.startY, r.sizeX, r.sizeY);
                      })},
};

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
  std::vector<std::wstring> parts(1);
  for (const wchar_t c : text) {
    if (c == separator) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

TEST(RawParsers, ReadEveryField) {
  for (const ParserCase& each : kParsers) {
    EXPECT_EQ(each.parse(each.record), each.expected) << each.record;
  }
}

TEST(RawParsers, TakeFieldsInAnyOrder) {
  for (const ParserCase& each : kParsers) {
    const std::vector<std::wstring> parts = Split(each.record, L',');
    std::wstring turned = parts[0];
    for (std::size_t i = parts.size() - 1; i > 0; --i) turned += L"," + parts[i];
    EXPECT_EQ(each.parse(turned), each.expected) << turned;
  }
}

TEST(RawParsers, RefuseARecordWithoutARequiredField) {
  for (const ParserCase& each : kParsers) {
    for (std::wstring tag : Split(each.required, L' ')) {
      if (tag.empty()) continue;
      if (tag[1] == L'_') tag[1] = L' ';
      std::wstring cut = each.record;
      const std::size_t at = cut.find(L"," + tag);
      ASSERT_NE(at, cut.npos) << each.record << " " << tag;
      cut.erase(at, std::min(cut.find(L',', at + 1), cut.size()) - at);
      EXPECT_EQ(each.parse(cut), L"bad") << cut;
      // A field that is there, but empty, is enough.
      const std::wstring empty = cut + L"," + tag;
      EXPECT_NE(each.parse(empty), L"bad") << empty;
    }
  }
}

TEST(RawParsers, KeepWhatStandsInFrontOfTheMissingField) {
  MO_RECORD mode;
  mode.curvature = 7;
  mode.angleUnit = 8;
  EXPECT_FALSE(CRawFile::ParseMO(L"MO,AU1,EO1,SF2,UN3,AD4", mode));
  EXPECT_EQ(kDumpMode(true, mode), L"4|3|2.0|7|0.0|8|0|");
  SHOT_RECORD shot;
  EXPECT_FALSE(CRawFile::ParseSS(L"SS,OPa,FPb,AL5,VA6,--n", shot));
  EXPECT_EQ(kDumpShot(true, shot), L"a|b|3|5.0|2|6.0|0.0||");
}

// ---- Writers

class RawWriters : public testing::Test {
 protected:
  RawWriters() { EXPECT_TRUE(raw.OpenForWrite(folder.Path(L"out.raw"))); }
  std::string Written() {
    EXPECT_TRUE(raw.Close());
    return folder.Read(L"out.raw");
  }
  TempDir folder;
  CRawFile raw;
};

TEST_F(RawWriters, WriteEveryRecord) {
  const ScopedClock clock({2026, 3, 5, 13, 4, 5, 6, 789}, 1);
  const POINT_RECORD point{L"p", 1.5, -2, DC_NULL, L"n,o"};
  const STAKE_SHOT_RECORD stakeShot{L"a", L"b", 1, 2, 3, L"n"};
  const ROUND_SHOT_RECORD round{L"a", L"b", 1, 2, 3, 4, L"n"};
  const CONTROL_RECORD control{L"p", 1, 2, 3, L"n"};
  const RESECTION_RECORD resection{L"p", 1, 2, 3};
  const double rodHeight = 1.25;
  SHOT_RECORD shot{L"a", L"b", HorizontalKind::AngleRight, 1, VerticalKind::Zenith, 2, 3, L"n"};
  CF_RECORD stake;
  stake.name = L"p";
  stake.station = 1;
  stake.offsetDirection = 2;
  stake.offset = -3;
  stake.elevation = 4;
  stake.grade = 5;
  MO_RECORD mode{1, 2, 0.99987, 3, 9, 1, 9};

  std::string expected;
  const auto expect = [&](bool written, const char* line) {
    EXPECT_TRUE(written) << line;
    expected += std::string(line) + "\r\n";
  };
  expect(raw.WriteJB({L"job", L"01-02-2026", L"03:04:05"}), "JB,NMjob,DT01-02-2026,TM03:04:05");
  expect(raw.WriteMO(mode), "MO,AD1,UN2,SF0.99987,EC3,EO0.0,AU1");
  for (const auto& [scale, text] :
       {std::pair(1.0, "1.0"), {100.0, "100.0"}, {0.5, "0.5"}, {0.1234567, "0.123457"}}) {
    mode.scale = scale;
    expect(raw.WriteMO(mode), ("MO,AD1,UN2,SF" + std::string(text) + ",EC3,EO0.0,AU1").c_str());
  }
  expect(raw.WriteOC(point),
         "OC,OPp,N 1.500000,E -2.000000,EL-9990000000000000993110523904.000000,--n,o");
  expect(raw.WriteSP({L"p", 1, 2, 3, {}}), "SP,PNp,N 1.000000,E 2.000000,EL3.000000,--");
  expect(raw.WriteGS({L"p", 1, 2, 3, {}}), "GS,PNp,N 1.000000,E 2.000000,EL3.000000,--");
  expect(raw.WriteBK({L"a", L"b", 1, 2}), "BK,OPa,BPb,BS1.000000,BC2.000000");
  expect(raw.WriteBK({L"a", L"b", 1, 2}, &rodHeight),
         "BK,OPa,BPb,BS1.000000,BC2.000000\r\n--HR at Backsight: 1.250000");
  expect(raw.WriteLS({1, 2}), "LS,HI1.000000,HR2.000000");
  expect(raw.WriteObservation(true, shot), "TR,OPa,FPb,AR1.000000,ZE2.000000,SD3.000000,--n");
  shot.horizontalKind = HorizontalKind::AngleLeft;
  shot.verticalKind = VerticalKind::ElevationChange;
  expect(raw.WriteObservation(false, shot), "SS,OPa,FPb,AL1.000000,CE2.000000,HD3.000000,--n");
  shot.horizontalKind = HorizontalKind::Azimuth;
  shot.verticalKind = VerticalKind::VerticalAngle;
  expect(raw.WriteObservation(false, shot), "SS,OPa,FPb,AZ1.000000,VA2.000000,SD3.000000,--n");
  shot.horizontalKind = HorizontalKind::Bearing;
  expect(raw.WriteObservation(false, shot), "SS,OPa,FPb,VA2.000000,SD3.000000,--n");
  expect(raw.WriteSK(stakeShot), "SK,OPa,FPb,AR1.000000,ZE2.000000,SD3.000000,--n");
  expect(raw.WriteRE(L"a", 1, 2, 3), "RE,OPa,FE1.000000,ZE2.000000,SD3.000000,--Remote elev");
  expect(raw.WriteRB(round), "RB,OPa,BPb,AR1.000000,ZE2.000000,SD3.000000,HR4.000000,--n");
  expect(raw.WriteRF(round), "RF,OPa,FPb,AR1.000000,ZE2.000000,SD3.000000,HR4.000000,--n");
  expect(raw.WriteRD({DirectionKind::BacksightDirect, 1, 2}), "RD,BD 1:2.000000");
  expect(raw.WriteRD({DirectionKind::ForesightReverse, 1, 2}), "RD,FV 1:2.000000");
  expect(raw.WriteRD({DirectionKind::ZenithDirect, 1, 2}), "RD,ZD 1:2.000000");
  expect(raw.WriteMD(1, 2), "MD,SD 1:2.000000");
  expect(raw.WriteRS(resection, false), "RS,PNp,CR1.000000");
  expect(raw.WriteRS(resection, true), "RS,PNp,CR1.000000,ZE2.000000,SD3.000000");
  expect(raw.WriteOF(1, 2, 3), "OF,AR1.000000,ZE2.000000,SD3.000000");
  expect(raw.WriteOffsetKind(0, 1), "OF,ZE1.000000,--Vert Angle Offset");
  expect(raw.WriteOffsetKind(1, 1), "OF,OL1.000000,--Right Angle Offset");
  expect(raw.WriteOffsetKind(2, 1), "OF,HD1.000000,--Horizontal Distance Offset");
  expect(raw.WriteOffsetKind(3, 1), "OF,LR1.000000,--Left / Right Offset");
  expect(raw.WriteOffsetKind(4, 1), "OF,VD1.000000,--Elevation Offset");
  expect(raw.WriteCFPoint(stake), "CF,PNp,EL4.000000,GD5.000000,--");
  expect(raw.WriteCFStation(stake), "CF,ST1.000000,OD2,OL3.000000,EL4.000000,GD5.000000,--");
  expect(raw.WriteSUGrid(1, 2, 3, 4, 5),
         "SU,GH1.000000,GH2.000000,DE3.000000,DE4.000000,SM5.000000");
  expect(raw.WriteSUPosition(1, 2, 2), "SU,LA1.000000,LO2.000000,EG2");
  expect(raw.WriteSUDate(1, 2, 2026), "SU,DT01022026");
  expect(raw.WriteSUTime(1), "SU,TM02.051.000000");
  expect(raw.WriteSUAngle(true, false, 1), "SU,BD1.000000");
  expect(raw.WriteSUAngle(false, true, 1), "SU,FV1.000000");
  expect(raw.WriteBP({L"p", 1, 2, 3, 4}), "BP,PNp,LA1.000000,LN2.000000,HT3.000000");
  expect(raw.WriteHC(control), "HC,PNp,LA1.000000,LN2.000000,HT3.000000,--n\r\n");
  expect(raw.WriteVC(control), "VC,PNp,LA1.000000,LN2.000000,HT3.000000,--n\r\n");
  expect(raw.WriteComment(L"a, b\n"), "--a, b");
  std::wstring date;
  expect(raw.WriteDateComment(date), "--Date: 03-13-2026  Time: 04:05:06");
  EXPECT_EQ(date, L"Date: 03-13-2026  Time: 04:05:06");
  expect(raw.WriteComment(std::wstring(600, L'x')), ("--" + std::string(511 - 2, 'x')).c_str());
  EXPECT_FALSE(raw.WriteOffsetKind(5, 1));
  EXPECT_FALSE(raw.WriteSUPosition(1, 2, 3));
  EXPECT_EQ(Written(), expected);
}

TEST_F(RawWriters, FormatPlaces) {
  const RawArgument arguments[] = {std::wstring_view(L"text"), 7, 7, 7, L'c', 1.5};
  EXPECT_TRUE(raw.WriteRecord(L"%s|%ld|%02d|%4d|%c|%lf|%s", arguments));
  EXPECT_EQ(Written(), "text|7|07|   7|c|1.500000|\r\n");
}

TEST_F(RawWriters, AppendBehindWhatIsThere) {
  EXPECT_EQ(raw.GetFileType(), L"RAW");
  raw.WriteComment(L"one");
  EXPECT_TRUE(raw.Close());
  EXPECT_TRUE(raw.OpenForAppend(folder.Path(L"out.raw")));
  raw.WriteComment(L"two");
  raw.SeekToBegin();
  std::wstring text;
  EXPECT_TRUE(raw.ReadRecord(text));
  EXPECT_EQ(text, L"--one");
  raw.SeekToBegin();
  raw.WriteComment(L"three");
  EXPECT_EQ(Written(), "--one\r\n--two\r\n--three\r\n");
  CRawFile absent;
  EXPECT_FALSE(absent.OpenForAppend(folder.Path(L"absent.raw")));
}

TEST(RawFile, FindsARecordAhead) {
  const TempDir folder;
  CRawFile raw;
  ASSERT_TRUE(raw.Open(folder.Write(L"in.raw", "JB,NM1\r\nMO\r\n\r\nJB,NM2\r\n"),
                       platform::kOpenReadWrite));
  std::wstring text;
  EXPECT_TRUE(raw.FindRecord(L"MO", text));
  EXPECT_EQ(text, L"MO");
  EXPECT_TRUE(raw.FindRecord(L"JB", text));
  EXPECT_EQ(text, L"JB,NM2");
  EXPECT_FALSE(raw.FindRecord(L"JB", text));
  EXPECT_EQ(text, L"");
}

// ---- Angles

TEST(Angles, AreReadAsDegreesMinutesSeconds) {
  struct Case {
    double dms, degrees, withSign;
  };
  for (const auto& [dms, degrees, withSign] :
       {Case{0, 0, 0}, Case{12.3045, 12.5125, 12.5125}, Case{-5.3, 354.5, -5.5},
        Case{359.59599999, 359.99999997222, 359.99999997222}, Case{360, 0, 360},
        Case{370.3, 10.5, 370.5}, Case{0.0001, 1.0 / 3600, 1.0 / 3600}, Case{90, 90, 90},
        // 100 minutes and more than 60 seconds count on.
        Case{10.9999, 10 + 99 / 60.0 + 99 / 3600.0, 10 + 99 / 60.0 + 99 / 3600.0},
        // A minute that binary fractions would lose.
        Case{23.45, 23.75, 23.75}, Case{1.2, 1 + 20 / 60.0, 1 + 20 / 60.0}}) {
    SCOPED_TRACE(dms);
    EXPECT_NEAR(DmsToDegrees(dms), degrees, 1e-11);
    EXPECT_NEAR(DmsToDegreesSigned(dms), withSign, 1e-11);
  }
  EXPECT_EQ(DmsToDegrees(90), 90 + 1e-11 / 36);  // the nudges stay: 5e-14 * 100 + 5e-12
}

TEST(Angles, AreNormalizedAndConverted) {
  EXPECT_EQ(NormalizeDegrees(-90), 270);
  EXPECT_EQ(NormalizeDegrees(725), 5);
  EXPECT_EQ(NormalizeDegrees(360), 0);
  EXPECT_EQ(NormalizeGons(-90), 310);
  EXPECT_EQ(NormalizeGons(405), 5);
  EXPECT_EQ(ConvertAngleUnit(kRawDegrees, kRawGons, 100), 90);
  EXPECT_EQ(ConvertAngleUnit(kRawGons, kRawDegrees, 90), 100);
  EXPECT_EQ(ConvertAngleUnit(kRawGons, kRawGons, 90), 90);
  EXPECT_EQ(ConvertAngleUnit(5, kRawGons, 90), 90);
  EXPECT_EQ(ConvertAngleUnit(kRawGons, kRawDegrees, DC_NULL), DC_NULL);
  EXPECT_EQ(ConvertAngleUnit(kRawGons, kRawDegrees, -99900000), -99900000);
}

TEST(Angles, AreReadFromBearings) {
  struct Case {
    const wchar_t* text;
    double degrees;
  };
  for (const auto& [text, degrees] :
       {Case{L"N23.4510E", 23 + 45 / 60.0 + 10 / 3600.0}, Case{L"S10.3000E", 169.5},
        Case{L"S10.3000W", 190.5}, Case{L"N10.3000W", 349.5}, Case{L"n10.3000w", 10.5},
        Case{L"X10.3000Y", 10.5}, Case{L"", 0}, Case{L"N", 0}, Case{L"NW", 360}, Case{L"SW", 180},
        Case{L"SxE", 180}}) {
    SCOPED_TRACE(text);
    EXPECT_NEAR(ParseBearing(text, kRawDegrees), degrees, 1e-11);
    EXPECT_NEAR(ParseBearing(text, kRawGons), degrees / 0.9, 1e-11);
    EXPECT_NEAR(ParseBearing(text, 7), degrees, 1e-11);
  }
}

}  // namespace
}  // namespace zelconvert
