#include "bindings/gdal/SurveyLayer.h"

#include <optional>

#include "tools/Units.h"

namespace zelconvert::gdal {
namespace {

OGRFieldType TypeOf(Quantity quantity) {
  switch (quantity) {
    case Quantity::Text:
      return OFTString;
    case Quantity::Flag:
      return OFTInteger;
    case Quantity::Whole:
      return OFTInteger64;
    default:
      return OFTReal;
  }
}

}  // namespace

SurveyLayer::SurveyLayer(GDALDataset& dataset, Places& places, const char* name,
                         OGRwkbGeometryType type)
    : m_dataset(dataset), m_places(places), m_definition(new OGRFeatureDefn(name)) {
  SetDescription(name);
  m_definition->Reference();
  m_definition->SetGeomType(type);
  if (type != wkbNone) m_definition->GetGeomFieldDefn(0)->SetSpatialRef(places.GetReference());
}

SurveyLayer::~SurveyLayer() {
  m_definition->Release();
}

const char* SurveyLayer::UnitOf(Quantity quantity) const {
  const tools::Survey& survey = m_places.GetSurvey();
  switch (quantity) {
    case Quantity::Length:
      return survey.lengthUnit ? tools::NameOf(*survey.lengthUnit).data() : nullptr;
    case Quantity::Metres:
      return "m";
    case Quantity::Angle:
      return tools::NameOf(survey.angleUnit).data();
    case Quantity::Degrees:
      return "degrees";
    default:
      return nullptr;
  }
}

void SurveyLayer::AddField(const char* name, const char* title, Quantity quantity) {
  OGRFieldDefn field(name, TypeOf(quantity));
  if (quantity == Quantity::Flag) field.SetSubType(OFSTBoolean);
  const char* unit = UnitOf(quantity);
  const std::string about = unit == nullptr ? title : std::string(title) + " (" + unit + ")";
  if (about != name) field.SetAlternativeName(about.c_str());
  m_definition->AddFieldDefn(&field);
}

void SurveyLayer::SetNumber(OGRFeature& feature, int field, Quantity quantity, double value) const {
  constexpr int kAngleDecimals = 9;
  const tools::Survey& survey = m_places.GetSurvey();
  std::optional<double> number;
  if (quantity == Quantity::Length) {
    number = LengthOf(survey, value);
  } else if (quantity == Quantity::Degrees) {
    number = DegreesOf(value);
  } else if (!IsNull(value)) {
    const bool isGon = survey.angleUnit == AngularUnit::Gon;
    const auto unit = isGon ? AngularUnit::Gon : AngularUnit::DecimalDegrees;
    number = quantity == Quantity::Angle ? tools::Rounded(FromRadians(value, unit), kAngleDecimals)
                                         : value;
  }
  number ? feature.SetField(field, *number) : feature.SetFieldNull(field);
}

void SurveyLayer::SetValue(OGRFeature& feature, int field, Quantity quantity,
                           const Value& value) const {
  if (const auto* text = std::get_if<std::wstring_view>(&value)) {
    text->empty() ? feature.SetFieldNull(field)
                  : feature.SetField(field, tools::Utf8(*text).c_str());
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    *whole == kNoNumber ? feature.SetFieldNull(field)
                        : feature.SetField(field, static_cast<GIntBig>(*whole));
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    feature.SetField(field, *flag ? 1 : 0);
  } else {
    SetNumber(feature, field, quantity, std::get<double>(value));
  }
}

bool SurveyLayer::IsGeometryAsked() const {
  return m_definition->GetGeomFieldCount() > 0 && m_definition->IsGeometryIgnored() == 0;
}

std::unique_ptr<OGRFeature> SurveyLayer::MakeFeature(GIntBig row) {
  auto feature = std::make_unique<OGRFeature>(m_definition);
  feature->SetFID(row + 1);
  Fill(*feature, row);
  return feature;
}

OGRFeature* SurveyLayer::GetNextRawFeature() {
  return m_next < CountRows() ? MakeFeature(m_next++).release() : nullptr;
}

OGRErr SurveyLayer::SetNextByIndex(GIntBig index) {
  if (m_poFilterGeom != nullptr || m_poAttrQuery != nullptr) {
    return OGRLayer::SetNextByIndex(index);
  }
  if (index < 0 || index >= CountRows()) return OGRERR_FAILURE;
  m_next = index;
  return OGRERR_NONE;
}

OGRFeature* SurveyLayer::GetFeature(GIntBig fid) {
  return fid >= 1 && fid <= CountRows() ? MakeFeature(fid - 1).release() : nullptr;
}

GIntBig SurveyLayer::GetFeatureCount(int force) {
  const bool isFiltered = m_poFilterGeom != nullptr || m_poAttrQuery != nullptr;
  return isFiltered ? OGRLayer::GetFeatureCount(force) : CountRows();
}

int SurveyLayer::TestCapability(const char* capability) {
  const bool isFiltered = m_poFilterGeom != nullptr || m_poAttrQuery != nullptr;
  for (const char* always :
       {OLCRandomRead, OLCStringsAsUTF8, OLCIgnoreFields, OLCZGeometries, OLCMeasuredGeometries}) {
    if (EQUAL(capability, always)) return TRUE;
  }
  const bool isCount = EQUAL(capability, OLCFastFeatureCount);
  return !isFiltered && (isCount || EQUAL(capability, OLCFastSetNextByIndex)) ? TRUE : FALSE;
}

}  // namespace zelconvert::gdal
