// What all layers have in common: rows by number, from which features are made when they are read.
#pragma once

#include <ogrsf_frmts.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "bindings/gdal/Places.h"

namespace zelconvert::gdal {

/// Of a field. An empty text, a null and a whole number of kNoNumber make a null field.
using Value = std::variant<std::wstring_view, double, std::int64_t, bool>;
inline constexpr std::int64_t kNoNumber = -1;

/// What a number is in: lengths and angles in the unit of the file, whatever GPS tells in metres,
/// latitudes and longitudes in degrees.
enum class Quantity : std::uint8_t { Text, Flag, Whole, Plain, Length, Metres, Angle, Degrees };

/// The feature of row 0 has the FID 1. All rows are there for the life of the layer.
class SurveyLayer : public OGRLayer, public OGRGetNextFeatureThroughRaw<SurveyLayer> {
 public:
  SurveyLayer(GDALDataset& dataset, Places& places, const char* name, OGRwkbGeometryType type);
  ~SurveyLayer() override;

  OGRFeatureDefn* GetLayerDefn() override { return m_definition; }
  GDALDataset* GetDataset() override { return &m_dataset; }
  void ResetReading() override { m_next = 0; }
  OGRErr SetNextByIndex(GIntBig index) override;
  OGRFeature* GetFeature(GIntBig fid) override;
  GIntBig GetFeatureCount(int force) override;
  int TestCapability(const char* capability) override;
  DEFINE_GET_NEXT_FEATURE_THROUGH_RAW(SurveyLayer)

 protected:
  virtual GIntBig CountRows() const = 0;
  /// Fields and geometry of a row that is there.
  virtual void Fill(OGRFeature& feature, GIntBig row) = 0;

  void AddField(const char* name, const char* title, Quantity quantity);
  void SetValue(OGRFeature& feature, int field, Quantity quantity, const Value& value) const;
  bool IsGeometryAsked() const;
  Places& GetPlaces() const { return m_places; }

 private:
  OGRFeature* GetNextRawFeature();
  std::unique_ptr<OGRFeature> MakeFeature(GIntBig row);
  const char* UnitOf(Quantity quantity) const;
  void SetNumber(OGRFeature& feature, int field, Quantity quantity, double value) const;
  friend class OGRGetNextFeatureThroughRaw<SurveyLayer>;

  GDALDataset& m_dataset;
  Places& m_places;
  OGRFeatureDefn* m_definition;
  GIntBig m_next = 0;
};

}  // namespace zelconvert::gdal
