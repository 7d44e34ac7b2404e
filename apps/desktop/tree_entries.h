#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::desktop {

class Workspace;

/// A line of the model's tree.
struct TreeEntry {
  QString text;
  std::size_t parent = 0;               ///< place of the line above it; the first one has none
  std::vector<std::size_t> children;    ///< places
  std::size_t row = 0;                  ///< among the children of its parent
  std::optional<std::size_t> count;     ///< what is shown beside it
  bool has_elements = false;            ///< it stands for elements, if only for none
  std::vector<model::Number> elements;  ///< that it stands for, rising
};

/// The open model and its results as a tree, the model's title first: its sections, materials,
/// members and member types, load cases and combinations, and the elements that fail, were not
/// checked or have remarks. Empty without a model.
std::vector<TreeEntry> tree_entries(const Workspace& workspace);

}  // namespace aluframe::desktop
