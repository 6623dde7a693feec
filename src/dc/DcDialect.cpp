#include "dc/DcDialect.h"

#include <iterator>

#include "dc/SystemFields.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kVersions[] = {L"FX V07-50", L"FX V07-70", L"FX V10-70", L"FX V10-70"};
constexpr int kFirstV10 = 2;

}  // namespace

std::wstring_view DcVersionText(int version) {
  if (version < 0 || version >= static_cast<int>(std::size(kVersions))) return {};
  return kVersions[version];
}

void WriteCogoSettings(CDcFile& file, int version, const tDC_COGORecord& settings) {
  if (version >= kFirstV10) return file.Write(settings);
  tDC_COGO_OLDRecord old;
  old.azimuthOrigin = settings.azimuthOrigin;
  old.gridOrientation = settings.gridOrientation;
  file.Write(old);
}

void WriteNoCoordinateSystem(CDcFile& file, double scale) {
  tDC_ELLIPSOIDRecord ellipsoid;
  ellipsoid.semiMajorAxis = DC_NULL;
  ellipsoid.inverseFlattening = DC_NULL;

  tDC_PROJECTIONRecord projection;
  ToRecord(system_fields::kProjection, {}, CGlkProjectionRecord(), projection);  // all null
  projection.scale = scale;

  tDC_COORDINATE_SYSTEMRecord names;
  names.systemKind = 2;
  names.zoneGroupName = names.zoneName = names.datumName = L" ";

  file.Write(ellipsoid);
  file.Write(projection);
  file.Write(names);
}

}  // namespace zelconvert
