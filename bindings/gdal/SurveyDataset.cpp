#include "bindings/gdal/SurveyDataset.h"

#include <utility>

#include "cli/FileTypes.h"
#include "tools/Info.h"
#include "tools/Units.h"

namespace zelconvert::gdal {
namespace {

constexpr const char* kWarningDomain = "WARNINGS";

}  // namespace

SurveyDataset::SurveyDataset(tools::Survey survey, std::vector<std::string> messages)
    : m_survey(std::move(survey)), m_messages(std::move(messages)), m_places(m_survey) {
  for (const LayerKind& kind : LayerKinds()) {
    const bool isFirst = m_layers.empty();
    if (isFirst || kind.count(m_survey) > 0) m_layers.push_back({&kind, nullptr});
  }
  Describe();
}

SurveyDataset::~SurveyDataset() = default;

OGRLayer* SurveyDataset::GetLayer(int number) {
  if (number < 0 || number >= GetLayerCount()) return nullptr;
  Slot& slot = m_layers[static_cast<std::size_t>(number)];
  if (slot.layer == nullptr) slot.layer = slot.kind->make(*this, m_places);
  return slot.layer.get();
}

int SurveyDataset::TestCapability(const char* capability) {
  for (const char* known : {ODsCZGeometries, ODsCMeasuredGeometries}) {
    if (EQUAL(capability, known)) return TRUE;
  }
  return FALSE;
}

void SurveyDataset::SetItem(const char* name, std::string_view value) {
  if (!value.empty()) SetMetadataItem(name, std::string(value).c_str());
}

void SurveyDataset::Describe() {
  SetItem("TYPE", cli::FindType(m_survey.type)->name);
  SetItem("JOB", tools::Utf8(m_survey.job));
  SetItem("FIRST_DATE", tools::Utf8(m_survey.firstDate));
  SetItem("LAST_DATE", tools::Utf8(m_survey.lastDate));
  if (m_survey.lengthUnit) SetItem("LENGTH_UNIT", tools::NameOf(*m_survey.lengthUnit));
  SetItem("ANGLE_UNIT", tools::NameOf(m_survey.angleUnit));
  SetItem("NO_GRID_SYSTEM", m_places.GetWhy());
}

char** SurveyDataset::GetMetadataDomainList() {
  return BuildMetadataDomainList(GDALDataset::GetMetadataDomainList(), TRUE, kWarningDomain,
                                 nullptr);
}

char** SurveyDataset::GetMetadata(const char* domain) {
  if (domain == nullptr || !EQUAL(domain, kWarningDomain)) return GDALDataset::GetMetadata(domain);
  if (!std::exchange(m_hasWarnings, true)) {
    std::vector<std::string> texts = m_messages;
    for (tools::InfoWarning& warning : tools::MakeInfo(m_survey).warnings) {
      texts.push_back(std::move(warning.text));
    }
    for (const std::string& text : texts) {
      m_warnings.AddNameValue(std::to_string(m_warnings.Count() + 1).c_str(), text.c_str());
    }
  }
  return m_warnings.List();
}

}  // namespace zelconvert::gdal
