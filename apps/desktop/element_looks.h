#pragma once

#include <QString>
#include <vector>

#include "aluframe/picture/content.h"
#include "apps/desktop/display.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// What elements are coloured by, as a picture of them takes it.
struct ElementColours {
  QString title;  ///< of the legend
  picture::ColourBy by = picture::ColourBy::nothing;
  picture::Ratios ratios;
};

/// By the results of the workspace; without results everything is plain.
/// @param problem receives what stood in the way, or stays empty
ElementColours element_colours(const Workspace& workspace, const DisplayState& state,
                               std::string& problem);

}  // namespace aluframe::desktop
