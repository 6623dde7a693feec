#include "front/Routes.h"

#include <algorithm>
#include <iterator>

#include "front/DriverRun.h"
#include "front/Drivers.h"

namespace zelconvert {
namespace {

constexpr bool kCarries = true;
constexpr bool kCarriesNothing = false;

// The first that fits decides. This isn't the table of CFileTypeManager: a pair that a host's
// dialog is offered may be refused here, and one that it isn't offered is tried.
constexpr Route kRoutes[] = {
    {kRawTypes, kDcTypes, RawToDc, kCarries},
    {kRawTypes, kSdrTypes, RawToSdr, kCarries},
    {kRawTypes, TypeSet::Of(FT_JXL), RawToJxl, kCarries},
    {kRawTypes, TypeSet::Any(), RefuseRaw, kCarriesNothing},
    {kCr5Types, kDcTypes, Cr5ToDc, kCarriesNothing},
    {kDcTypes, kCr5Types, DcToCr5, kCarries},
    {kJobTypes, kDcTypes, JobToDc, kCarries},
    {kJobTypes, kCr5Types, JobToCr5, kCarries},
    {kJobTypes, TypeSet::Any(), RefuseJob, kCarriesNothing},
    {TypeSet::Of(FT_ILJ), kDcTypes, IljToDc, kCarries},
    {kDcTypes, TypeSet::Of(FT_ILJ), DcToIlj, kCarries},
    {kDcTypes, kJobTypes, DcToJob, kCarries},
    {kCr5Types, kJobTypes, Cr5ToJob, kCarriesNothing},
    {TypeSet::Any(), kJobTypes, MakeEmptyJob, kCarriesNothing},
    {kJobRawTypes, kDcTypes, JobRawToDc, kCarries},
    {TypeSet::Of(FT_CR5_RW5), kDcTypes, Cr5Rw5ToDc, kCarries},
};

}  // namespace

const Route* FindRoute(int inputType, int outputType) {
  const Route* route = std::find_if(std::begin(kRoutes), std::end(kRoutes), [&](const Route& each) {
    return each.inputs.Contains(inputType) && each.outputs.Contains(outputType);
  });
  return route == std::end(kRoutes) ? nullptr : route;
}

bool RunConversion(const ConvertRequest& request, Report& report) {
  const Route* route = FindRoute(request.inputType, request.outputType);
  if (route == nullptr) return report.Refuse(FormatDriverText(DriverText::NotSupported));
  try {
    return route->run(request, report);
  } catch (...) {  // memory is short before there is a file
    return report.Refuse(FormatDriverText(DriverText::CannotConvert, request.input));
  }
}

}  // namespace zelconvert
