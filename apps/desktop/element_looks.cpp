#include "apps/desktop/element_looks.h"

#include <stdexcept>

#include "aluframe/run/deflections.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

picture::Ratios worst_ratios(const run::ShownResults& results) {
  picture::Ratios out;
  for (const auto& [number, element] : results.elements) {
    const store::GoverningRow& worst = element.worst();
    if (run::was_judged(worst)) out[number] = worst.governing.Ratio();
  }
  return out;
}

picture::Ratios ratios_of_item(const run::ShownResults& results, int item) {
  picture::Ratios out;
  for (const auto& [number, element] : results.elements) {
    const store::GoverningRow* row = element.find(item);
    if (row != nullptr && run::was_judged(*row)) out[number] = row->governing.Ratio();
  }
  return out;
}

picture::Ratios safe_ratios(const run::ShownResults& results) {
  picture::Ratios out;
  for (const auto& [number, row] : results.safe) out[number] = row.safe;
  return out;
}

QString with_item(int item) {
  const std::string name(texts::translation_of(tables::item_name(item)));
  return QString::fromStdString(texts::translated("Ratio of {}", name));
}

}  // namespace

ElementColours element_colours(const Workspace& workspace, const DisplayState& state,
                               std::string& problem) {
  using picture::ColourBy;
  if (state.colour == Colour::section) {
    return {ui_text(translatable("Sections")), ColourBy::section, {}};
  }
  if (state.colour == Colour::material) {
    return {ui_text(translatable("Materials")), ColourBy::material, {}};
  }
  const run::ShownResults* results = workspace.results();
  if (state.colour == Colour::plain || results == nullptr) return {};
  ElementColours out;
  out.by = ColourBy::ratio;
  try {
    switch (state.colour) {
      case Colour::item:
        out.title = with_item(state.item);
        out.ratios = ratios_of_item(*results, state.item);
        break;
      case Colour::combination:
        out.title =
            QString::fromStdString(texts::translated("Ratio in combination {}", state.combination));
        out.ratios = run::ratios_in_combination(*results, state.combination);
        break;
      case Colour::safe_ratio:
        out.title = ui_text(translatable("Safe ratio (second opinion)"));
        out.ratios = safe_ratios(*results);
        break;
      case Colour::deflection:
        out.title = ui_text(translatable("Deflection over its limit"));
        out.by = ColourBy::deflection;
        out.ratios = run::deflection_ratios(results->told.displacements);
        break;
      default:
        out.title = ui_text(translatable("Governing ratio"));
        out.ratios = worst_ratios(*results);
        break;
    }
  } catch (const std::runtime_error& error) {
    problem = error.what();
  }
  return out;
}

}  // namespace aluframe::desktop
