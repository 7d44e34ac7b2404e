#include "aluframe/document/explained_place.h"

#include <fmt/format.h>

#include "aluframe/model/number_ranges.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// "3 "wind" (max)", the combination by its number and what else tells it from others.
std::string combination_of(const run::ExplainedCheck& check) {
  std::string text = fmt::format("{}", check.combination);
  const std::string name = model::without_control_characters(check.combination_name);
  if (!name.empty()) text += fmt::format(" \"{}\"", name);
  if (check.has_sides) text += check.place.min_side == 0 ? " (max)" : " (min)";
  return text;
}

}  // namespace

std::string place_of(const run::ExplainedCheck& check) {
  const std::string elements = model::join_as_ranges(check.elements);
  const std::string_view type = texts::translation_of(tables::member_type_name(check.member_type));
  const std::string_view item = texts::translation_of(tables::item_name(check.place.item));
  const std::string_view position = tables::position_name(check.place.position);
  return check.elements.size() == 1
             ? texts::translated("Element {} ({}), {}, combination {}, at {}", elements, type, item,
                                 combination_of(check), position)
             : texts::translated("Elements {} ({}), {}, combination {}, at {}", elements, type,
                                 item, combination_of(check), position);
}

}  // namespace aluframe::document
