// The layers of a survey, each a table of fields over one kind of its things.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <span>

#include "bindings/gdal/Places.h"
#include "tools/Survey.h"

namespace zelconvert::gdal {

/// A kind of layer.
struct LayerKind {
  const char* name;
  std::size_t (*count)(const tools::Survey& survey);
  std::unique_ptr<OGRLayer> (*make)(GDALDataset& dataset, Places& places);
};

/// In the order in which a dataset has them. docs/gdal.md tells their fields.
std::span<const LayerKind> LayerKinds();

}  // namespace zelconvert::gdal
