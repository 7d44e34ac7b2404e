#pragma once

#include <string>

#include "aluframe/picture/scene.h"

namespace aluframe::picture {

struct SvgOptions {
  /// A file of its own, with its size in mm; else a part of an HTML page, as wide as its place
  /// there, where a caption shows the title.
  bool is_file = true;
  /// What all ids begin with; unlike in each picture of a page.
  std::string prefix = "picture";
};

/// The scene as SVG, with its title and scale on a white ground. Looks the same in every viewer: no
/// style sheets, no scripts, nothing to be loaded. What stands for a node or an element says so in
/// `data-node` or `data-element`. The same scene gives the same text.
std::string svg_of(const Scene& scene, const SvgOptions& options = {});

}  // namespace aluframe::picture
