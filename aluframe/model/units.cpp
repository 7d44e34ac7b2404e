#include "aluframe/model/units.h"

#include <array>

namespace aluframe::model {

namespace {

struct Entry {
  std::string_view name;
  double factor;
};

constexpr double standard_gravity = 9.80665;
constexpr double kilograms_per_pound = 0.45359237;

constexpr std::array force_units{
    Entry{"N", 1.0},
    Entry{"kN", 1e3},
    Entry{"kgf", standard_gravity},
    Entry{"tonf", 1e3 * standard_gravity},
    Entry{"lbf", kilograms_per_pound* standard_gravity},
    Entry{"kip", 1e3 * kilograms_per_pound* standard_gravity},
};

constexpr std::array length_units{
    Entry{"m", 1e3}, Entry{"cm", 10.0}, Entry{"mm", 1.0}, Entry{"ft", 304.8}, Entry{"in", 25.4},
};

template <class Unit, std::size_t N>
const Entry& entry_of(const std::array<Entry, N>& table, Unit unit) {
  return table[static_cast<std::size_t>(unit)];
}

template <class Unit, std::size_t N>
std::optional<Unit> parse(const std::array<Entry, N>& table, std::string_view name) {
  for (std::size_t i = 0; i < N; ++i) {
    if (table[i].name == name) return static_cast<Unit>(i);
  }
  return std::nullopt;
}

}  // namespace

double newtons_per(ForceUnit unit) {
  return entry_of(force_units, unit).factor;
}

double millimetres_per(LengthUnit unit) {
  return entry_of(length_units, unit).factor;
}

std::string_view name_of(ForceUnit unit) {
  return entry_of(force_units, unit).name;
}

std::string_view name_of(LengthUnit unit) {
  return entry_of(length_units, unit).name;
}

std::optional<ForceUnit> parse_force_unit(std::string_view name) {
  return parse<ForceUnit>(force_units, name);
}

std::optional<LengthUnit> parse_length_unit(std::string_view name) {
  return parse<LengthUnit>(length_units, name);
}

std::string_view force_unit_names() {
  return "N, kN, kgf, tonf, lbf, kip";
}

std::string_view length_unit_names() {
  return "m, cm, mm, ft, in";
}

}  // namespace aluframe::model
