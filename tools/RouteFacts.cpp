#include "tools/RouteFacts.h"

#include <algorithm>
#include <iterator>

#include "front/CFileTypeManager.h"

namespace zelconvert::tools {
namespace {

struct Row {
  TypeSet inputs, outputs;
  RouteFacts facts;
};

constexpr TypeSet kLogs = TypeSet::Of(FT_RAW, FT_RW5, FT_PW_RAW);
constexpr TypeSet kLogsWithPoints = TypeSet::Of(FT_JOB_RAW, FT_PW_JOB_RAW, FT_CR5_RW5);

constexpr RouteFacts kLogToDc = {
    .carried = kAllKinds.Without({Kind::Roads}), .losesGpsGrid = true, .keepsFirstStation = true};
constexpr RouteFacts kIljToDc = {.carried = {Kind::Points, Kind::Geodetic, Kind::Deletions,
                                             Kind::Shots, Kind::System, Kind::Notes}};

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
      .codesGrow = true}},
    {kLogs,
     TypeSet::Of(FT_JXL),
     {.carried = {Kind::Points, Kind::Deletions, Kind::Setups, Kind::Shots, Kind::Notes},
      .measuresOnly = true}},
    {kDcTypes,
     TypeSet::Of(FT_ILJ),
     {.carried = {Kind::Points, Kind::Geodetic, Kind::Deletions, Kind::System, Kind::Notes},
      .dropsDeletedLines = true}},
    {TypeSet::Of(FT_ILJ), kDcTypes, kIljToDc},
    {kDcTypes, TypeSet::Of(FT_OLD_JOB), {.carried = {Kind::Points, Kind::Roads}}},
    {kDcTypes, kJobTypes, {.carried = {Kind::Points, Kind::Roads, Kind::System}}},
    {kDcTypes, kCr5Types, {.carried = {Kind::Points}}},
    {kJobTypes, kDcTypes, {.carried = {Kind::Points, Kind::System}}},
    {kJobTypes, kCr5Types, {.carried = {Kind::Points}}},
};

}  // namespace

const RouteFacts* FactsOf(FileType from, FileType to) {
  const Row* row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& each) {
    return each.inputs.Contains(from) && each.outputs.Contains(to);
  });
  return row == std::end(kRows) ? nullptr : &row->facts;
}

}  // namespace zelconvert::tools
