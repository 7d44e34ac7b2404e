#include "aluframe/tables/names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/store/check_names.h"
#include "aluframe/tables/output_table.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

using texts::translatable;

namespace {

constexpr std::array load_case_kinds{translatable("static"),
                                     translatable("static earthquake"),
                                     translatable("response spectrum"),
                                     translatable("response spectrum with eccentricity"),
                                     translatable("time history"),
                                     translatable("moving load"),
                                     translatable("settlement of supports"),
                                     translatable("crane")};

constexpr std::array shapes{translatable("channel"),
                            translatable("H section"),
                            translatable("tee"),
                            translatable("box"),
                            translatable("pipe"),
                            translatable("double channel"),
                            translatable("solid round bar"),
                            translatable("given by its properties")};

}  // namespace

std::string_view item_name(int item) {
  return store::item_names.at(static_cast<std::size_t>(item));
}

std::string_view position_name(int position) {
  return position < 0 || position >= kCheckPositions
             ? "-"
             : store::position_names[static_cast<std::size_t>(position)];
}

std::string_view member_type_name(int type) {
  switch (type) {
    case 1:
      return translatable("column");
    case 2:
      return translatable("beam");
    case 3:
      return translatable("brace");
    case 5:
      return translatable("truss");
    default:
      return "-";
  }
}

std::string_view member_type_name(model::MemberType type) {
  constexpr std::array stored_types{1, 2, 3, 5};  // of column, beam, brace, truss
  return member_type_name(stored_types.at(static_cast<std::size_t>(type)));
}

std::string_view load_case_kind_name(model::LoadCaseKind kind) {
  return load_case_kinds.at(static_cast<std::size_t>(kind));
}

std::string_view shape_name(model::Shape shape) {
  return shapes.at(static_cast<std::size_t>(shape));
}

std::string_view outcome_name(services::RunOutcome outcome) {
  switch (outcome) {
    case services::RunOutcome::complete:
      return texts::translatable("complete");
    case services::RunOutcome::nothing_to_check:
      return texts::translatable("nothing to check");
    case services::RunOutcome::cancelled:
      return texts::translatable("cancelled");
    case services::RunOutcome::failed:
      break;
  }
  return texts::translatable("failed");
}

std::string short_number(double value) {
  return std::isfinite(value) ? fmt::format("{:.4f}", value) : full_number(value);
}

std::uint32_t number_of_combination(const store::RunInfo& info, std::uint32_t number) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  return found == info.combinations.end() ? number : found->state_of.value_or(number);
}

std::string name_of_combination(const store::RunInfo& info, std::uint32_t number) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  return found == info.combinations.end() ? "" : found->name;
}

}  // namespace aluframe::tables
