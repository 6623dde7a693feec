#include "bindings/gdal/SpatialReference.h"

#include <cpl_error.h>
#include <ogr_srs_api.h>

#include <array>
#include <utility>

#include "tools/EpsgCodes.h"
#include "tools/Units.h"
#include "tools/Wgs84System.h"

namespace zelconvert::gdal {
namespace {

constexpr int kGpsCode = 4326;
/// As GDAL counts how far two systems are one: the same but for names.
constexpr int kSameButNames = 90;

Reference Empty() {
  Reference reference(new OGRSpatialReference());
  reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return reference;
}

bool SetCode(OGRSpatialReference& reference, int code) {
  return reference.importFromEPSG(code) == OGRERR_NONE;
}

/// In metres. The datum is still to be set.
bool SetProjection(OGRSpatialReference& reference, const tools::Survey& survey, std::string& why) {
  const std::string projection = tools::Projection(survey.system, why);
  const std::string definition = projection + " +units=m +no_defs +type=crs";
  if (projection.empty() || reference.importFromProj4(definition.c_str()) != OGRERR_NONE) {
    return false;
  }
  const std::string name = tools::Utf8(survey.system.zoneName);
  if (!name.empty()) reference.SetProjCS(name.c_str());
  return true;
}

/// By its code, or by its shifts, which come last: what has them takes no other change.
bool SetDatum(OGRSpatialReference& reference, const tools::Survey& survey, std::string& why) {
  const Reference datum = ReferenceOfDatum(survey, why);
  if (datum == nullptr) return false;
  std::array<double, 7> shifts{};
  if (datum->GetTOWGS84(shifts.data(), static_cast<int>(shifts.size())) != OGRERR_NONE) {
    return reference.CopyGeogCSFrom(datum.get()) == OGRERR_NONE;
  }
  return reference.SetTOWGS84(shifts[0], shifts[1], shifts[2]) == OGRERR_NONE;
}

void SetUnit(OGRSpatialReference& reference, LinearUnit unit) {
  const char* name = unit == LinearUnit::Metre               ? SRS_UL_METER
                     : unit == LinearUnit::InternationalFoot ? SRS_UL_FOOT
                                                             : SRS_UL_US_FOOT;
  const double metres = unit == LinearUnit::UsSurveyFoot ? 1200.0 / 3937 : ToMetres(1, unit);
  reference.SetLinearUnitsAndUpdateParameters(name, metres);
}

/// Where the axes of the code are in another unit than the file, it is the code in that unit, if
/// there is one.
Reference ByCode(const tools::Survey& survey, LinearUnit unit) {
  Reference reference = Empty();
  if (!SetCode(*reference, *survey.epsg)) return nullptr;
  if (unit == tools::UnitOfEpsgCode(survey.system, *survey.epsg)) return reference;
  const std::string name = reference->GetName();
  SetUnit(*reference, unit);
  reference->SetProjCS("unknown");  // names count in a match, and that of the code is another's
  Reference known(reference->FindBestMatch(kSameButNames, "EPSG"));
  if (known == nullptr) {
    reference->SetProjCS((name + " (" + std::string(tools::NameOf(unit)) + ")").c_str());
    return reference;
  }
  known->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return known;
}

Reference ByParameters(const tools::Survey& survey, LinearUnit unit, std::string& why) {
  Reference reference = Empty();
  if (!SetProjection(*reference, survey, why)) return nullptr;
  if (unit != LinearUnit::Metre) SetUnit(*reference, unit);
  return SetDatum(*reference, survey, why) ? std::move(reference) : nullptr;
}

}  // namespace

Reference ReferenceOfGrid(const tools::Survey& survey, std::string& why) {
  if (!survey.hasSystem) {
    why = "the file tells no projection";
    return nullptr;
  }
  const LinearUnit unit = survey.lengthUnit.value_or(LinearUnit::Metre);
  Reference reference = survey.epsg ? ByCode(survey, unit) : ByParameters(survey, unit, why);
  if (reference == nullptr && why.empty()) {
    why = "the PROJ library can't reckon the coordinate system of the file";
  }
  return reference;
}

Reference ReferenceOfGps() {
  Reference reference = Empty();
  return SetCode(*reference, kGpsCode) ? std::move(reference) : nullptr;
}

Reference ReferenceOfDatum(const tools::Survey& survey, std::string& why) {
  const std::string system = tools::GeographicSystem(survey.system, why);
  Reference reference = Empty();
  const bool isSet = !system.empty() && reference->SetFromUserInput(system.c_str()) == OGRERR_NONE;
  return isSet ? std::move(reference) : nullptr;
}

}  // namespace zelconvert::gdal
