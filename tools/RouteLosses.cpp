#include "tools/RouteLosses.h"

#include <algorithm>
#include <iterator>

#include "front/CFileTypeManager.h"

namespace zelconvert::tools {
namespace {

struct Row {
  TypeSet inputs, outputs;
  RouteLosses losses;
};

constexpr TypeSet kLogs = TypeSet::Of(FT_RAW, FT_RW5, FT_PW_RAW);
constexpr TypeSet kLogsWithPoints = TypeSet::Of(FT_JOB_RAW, FT_PW_JOB_RAW, FT_CR5_RW5);

constexpr RouteLosses kLogToDc = {
    .carried = kAllKinds.Without({Kind::Roads}),
    .losesGpsGrid = true,
    .keepsFirstStation = true,
    .remark =
        L"Points by GPS become positions or vectors. Stakes become differences to the design. "
        L"Rounds are dropped, and what was measured without a good signature."};
constexpr RouteLosses kIljToDc = {
    .carried = {Kind::Points, Kind::Geodetic, Kind::Deletions, Kind::Shots, Kind::System,
                Kind::Notes},
    .remark = L"Notes are cut to 60 characters, names of files to 8 and those of a system to 32."};

// The first that fits.
constexpr Row kRows[] = {
    {kLogs, kDcTypes, kLogToDc},
    {kLogsWithPoints, kDcTypes, kLogToDc},
    {kLogs,
     kSdrTypes,
     {.carried = {Kind::Points, Kind::Setups, Kind::Shots, Kind::Notes},
      .measuresOnly = true,
      .losesGpsGrid = true,
      .statesStations = true,
      .codesGrow = true,
      .remark = L"Deleted points and shots arrive as if they weren't. Scales have three decimals. "
                L"Names are cut to 14 characters; those of SDR2 are numbers of four digits. Marks "
                L"of lines are added to the notes of shots."}},
    {kLogs,
     TypeSet::Of(FT_JXL),
     {.carried = {Kind::Points, Kind::Deletions, Kind::Setups, Kind::Shots, Kind::Notes},
      .measuresOnly = true,
      .remark = L"Names of shots are cut to 16 characters."}},
    {kDcTypes,
     TypeSet::Of(FT_ILJ),
     {.carried = {Kind::Points, Kind::Geodetic, Kind::Deletions, Kind::System, Kind::Notes},
      .dropsDeletedLines = true,
      .remark = L"Records with the subtype DL are dropped."}},
    {TypeSet::Of(FT_ILJ), kDcTypes, kIljToDc},
    {kDcTypes,
     TypeSet::Of(FT_OLD_JOB),
     {.carried = {Kind::Points, Kind::Roads},
      .remark = L"Roads become RD5 and TP5 files beside the job, which holds where they start."}},
    {kDcTypes,
     kJobTypes,
     {.carried = {Kind::Points, Kind::Roads, Kind::System},
      .remark = L"Roads become RD5 and TP5 files beside the job, which holds where they start."}},
    {kDcTypes,
     kCr5Types,
     {.carried = {Kind::Points}, .remark = L"Names are numbers of at most seven digits."}},
    {kJobTypes, kDcTypes, {.carried = {Kind::Points, Kind::System}}},
    {kJobTypes,
     kCr5Types,
     {.carried = {Kind::Points}, .remark = L"Names are numbers of at most seven digits."}},
};

}  // namespace

const RouteLosses* LossesOf(FileType from, FileType to) {
  const Row* row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& each) {
    return each.inputs.Contains(from) && each.outputs.Contains(to);
  });
  return row == std::end(kRows) ? nullptr : &row->losses;
}

}  // namespace zelconvert::tools
