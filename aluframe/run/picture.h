#pragma once

#include <filesystem>
#include <optional>

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

/// What the user wants to see of a model.
struct PictureOptions {
  std::optional<picture::View> view;  ///< nothing: that of a plane frame's plane, else `iso`
  picture::Numbers node_numbers, element_numbers;
  bool local_axes = false;
  std::optional<model::Number> loads, deformed;  ///< load cases
  std::optional<picture::ForceComponent> diagram;
  std::optional<model::Number> load_case, combination;  ///< of the diagram
  picture::ColourBy colour = picture::ColourBy::nothing;
  /// The result file of the ratios; nothing: the one beside the model.
  std::optional<std::filesystem::path> results;
};

/// A picture, and what the user should know beside it.
struct Picture {
  picture::Scene scene;
  std::vector<std::string> cautions;  ///< they stand in the picture too
};

/// What `draw` draws, before it is drawn; the ratios of elements come with their notes and
/// cautions.
struct PictureContent {
  picture::Content content;
  std::vector<std::string> cautions;
};
Result<PictureContent> picture_content(const Input& input, const InputOptions& options,
                                       const PictureOptions& wanted);

/// Draws the model with what is asked for, computed from its loads or read from its results. What
/// the options name must exist.
Result<Picture> draw(const Input& input, const InputOptions& options, const PictureOptions& wanted);

}  // namespace aluframe::run
