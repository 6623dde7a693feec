// The library is found by its name when it is first asked for: loading it takes longer than most
// runs of a program that doesn't need it.
#include "tools/Wgs84.h"

#include <dlfcn.h>
#include <proj.h>

#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "tools/Wgs84System.h"

namespace zelconvert::tools {
namespace {

/// The functions that are called, by their names in the library.
struct Proj {
  decltype(&proj_context_create) contextCreate = nullptr;
  decltype(&proj_context_destroy) contextDestroy = nullptr;
  decltype(&proj_log_level) logLevel = nullptr;
  decltype(&proj_create) create = nullptr;
  decltype(&proj_create_crs_to_crs) createCrsToCrs = nullptr;
  decltype(&proj_normalize_for_visualization) normalize = nullptr;
  decltype(&proj_get_area_of_use) getAreaOfUse = nullptr;
  decltype(&proj_area_create) areaCreate = nullptr;
  decltype(&proj_area_set_bbox) areaSet = nullptr;
  decltype(&proj_area_destroy) areaDestroy = nullptr;
  decltype(&proj_trans) trans = nullptr;
  decltype(&proj_destroy) destroy = nullptr;

  /// Stays loaded as long as the process runs. False if it can't be.
  bool Load() {
    void* library = dlopen(ZELCONVERT_PROJ_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    return library != nullptr && Find(library, "proj_context_create", contextCreate) &&
           Find(library, "proj_context_destroy", contextDestroy) &&
           Find(library, "proj_log_level", logLevel) && Find(library, "proj_create", create) &&
           Find(library, "proj_create_crs_to_crs", createCrsToCrs) &&
           Find(library, "proj_normalize_for_visualization", normalize) &&
           Find(library, "proj_get_area_of_use", getAreaOfUse) &&
           Find(library, "proj_area_create", areaCreate) &&
           Find(library, "proj_area_set_bbox", areaSet) &&
           Find(library, "proj_area_destroy", areaDestroy) && Find(library, "proj_trans", trans) &&
           Find(library, "proj_destroy", destroy);
  }

 private:
  template <class Function>
  static bool Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
  }
};

class ThroughProj : public Wgs84 {
 public:
  explicit ThroughProj(const Proj& proj) : m_proj(proj), m_pContext(proj.contextCreate()) {
    m_proj.logLevel(m_pContext, PJ_LOG_NONE);
  }
  ~ThroughProj() override {
    m_proj.destroy(m_pShift);
    m_proj.destroy(m_pProjection);
    m_proj.contextDestroy(m_pContext);
  }
  ThroughProj(const ThroughProj&) = delete;
  ThroughProj& operator=(const ThroughProj&) = delete;

  /// code: of the grid, or none. Of the ways from a datum to WGS 84 it tells those that are meant
  /// for its zone.
  bool Prepare(const std::string& projection, const std::string& geographic,
               std::optional<int> code) {
    m_pProjection = m_proj.create(m_pContext, projection.c_str());
    if (m_pProjection == nullptr) return false;
    PJ_AREA* area = code ? AreaOf(*code) : nullptr;
    PJ* shift = m_proj.createCrsToCrs(m_pContext, geographic.c_str(), "EPSG:4326", area);
    m_proj.areaDestroy(area);
    if (shift == nullptr) return false;
    m_pShift = m_proj.normalize(m_pContext, shift);
    m_proj.destroy(shift);
    return m_pShift != nullptr;
  }

  bool Transform(const GridPosition& position, LongitudeLatitude& result) override {
    if (!position.HasPlan()) return false;
    PJ_COORD place{};
    place.xy = {position.east, position.north};
    place = m_proj.trans(m_pProjection, PJ_FWD, place);
    place = m_proj.trans(m_pShift, PJ_FWD, place);
    result = {place.xy.x, place.xy.y};
    return std::isfinite(result.longitude) && std::isfinite(result.latitude);
  }

 private:
  /// Null if the library doesn't know it.
  PJ_AREA* AreaOf(int code) {
    PJ* grid = m_proj.create(m_pContext, ("EPSG:" + std::to_string(code)).c_str());
    double west = 0, south = 0, east = 0, north = 0;
    const bool isKnown = grid != nullptr && m_proj.getAreaOfUse(m_pContext, grid, &west, &south,
                                                                &east, &north, nullptr) != 0;
    m_proj.destroy(grid);
    if (!isKnown) return nullptr;
    PJ_AREA* area = m_proj.areaCreate();
    m_proj.areaSet(area, west, south, east, north);
    return area;
  }

  const Proj m_proj;
  PJ_CONTEXT* m_pContext;
  PJ* m_pProjection = nullptr;  // to longitude and latitude on the survey's datum
  PJ* m_pShift = nullptr;       // from there to WGS 84
};

}  // namespace

std::unique_ptr<Wgs84> Wgs84::Make(const Survey& survey, std::string& why) {
  if (!survey.hasSystem) {
    why = "the file has no coordinate system that leads to WGS 84";
    return nullptr;
  }
  const std::string projection = InverseProjection(survey.system, why);
  const std::string geographic = projection.empty() ? "" : GeographicSystem(survey.system, why);
  if (geographic.empty()) return nullptr;
  Proj proj;
  if (!proj.Load()) {
    why = "WGS 84 needs the PROJ library (" ZELCONVERT_PROJ_LIBRARY "), which can't be loaded";
    return nullptr;
  }
  auto transform = std::make_unique<ThroughProj>(proj);
  if (transform->Prepare(projection, geographic, survey.epsg)) return transform;
  why = "the PROJ library can't reckon the coordinate system of the file";
  return nullptr;
}

}  // namespace zelconvert::tools
