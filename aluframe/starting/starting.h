#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "aluframe/model/model.h"

/// Models to start from: common structures by a few sizes, whole and sound as they stand, with
/// names and a description that say what is what.
///
///     auto made = starting::make("hall", {{"span", 15.0}});
///     if (const auto* text = std::get_if<std::string>(&made)) ...   // why there is none
///     io::write_model(std::get<model::Model>(made));
namespace aluframe::starting {

/// What can be chosen of a kind.
struct Size {
  std::string_view name;  ///< "span"
  std::string_view unit;  ///< "m", "kN/m²"; empty: a whole number
  double standard, least, most;

  bool is_count() const { return unit.empty(); }
};

struct Kind {
  std::string_view name;  ///< "hall"
  std::span<const Size> sizes;
};

/// Of all kinds, in the order in which they are listed.
std::span<const Kind> kinds();
/// "mullion, hall, footbridge, dome"
std::string kind_names();

/// In the units of their table.
using Sizes = std::map<std::string, double, std::less<>>;

/// The model of a kind; sizes that are not given are those of the table. The message says what is
/// wrong: an unknown kind, a size that it does not have, or one out of its range.
std::variant<model::Model, std::string> make(std::string_view kind, const Sizes& sizes);

}  // namespace aluframe::starting
