// A survey file as a data set of layers.
#pragma once

#include <gdal_priv.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bindings/gdal/Layers.h"
#include "bindings/gdal/Places.h"
#include "tools/Survey.h"

namespace zelconvert::gdal {

/// The layers are `points` and those of which the file has anything; each is made when it is asked
/// for. Read only.
class SurveyDataset : public GDALDataset {
 public:
  /// messages: of the reading.
  SurveyDataset(tools::Survey survey, std::vector<std::string> messages);
  ~SurveyDataset() override;

  int GetLayerCount() override { return static_cast<int>(m_layers.size()); }
  OGRLayer* GetLayer(int number) override;
  int TestCapability(const char* capability) override;
  char** GetMetadataDomainList() override;
  /// Of the domain "WARNINGS" the texts of the reading, then what "zelconvert info" warns of.
  char** GetMetadata(const char* domain) override;

 private:
  struct Slot {
    const LayerKind* kind;
    std::unique_ptr<OGRLayer> layer;
  };
  void SetItem(const char* name, std::string_view value);
  void Describe();

  const tools::Survey m_survey;
  const std::vector<std::string> m_messages;
  Places m_places;
  std::vector<Slot> m_layers;
  CPLStringList m_warnings;
  bool m_hasWarnings = false;
};

}  // namespace zelconvert::gdal
