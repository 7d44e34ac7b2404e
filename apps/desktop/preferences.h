#pragma once

#include <optional>
#include <utility>

#include "aluframe/model/units.h"
#include "aluframe/texts/language.h"

// What the program remembers of its user's wishes, from one start to the next.

namespace aluframe::desktop {

enum class Theme { system, light, dark };

/// Nothing: that of the environment.
std::optional<texts::Language> preferred_language();
void prefer_language(texts::Language language);

Theme preferred_theme();
/// Remembers it and shows the program in it at once.
void prefer_theme(Theme theme);
/// Shows the program in the theme that it remembers. There must be a Qt application.
void apply_preferred_theme();

/// Units of the calculation report.
using ReportUnits = std::pair<model::ForceUnit, model::LengthUnit>;
ReportUnits preferred_report_units();
void prefer_report_units(const ReportUnits& units);

}  // namespace aluframe::desktop
