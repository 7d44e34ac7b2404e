#pragma once

#include <optional>
#include <string_view>

namespace aluframe::model {

/// Force units, in the order of the host's unit index.
enum class ForceUnit { newton, kilonewton, kilogram_force, tonne_force, pound_force, kip };

/// Length units, in the order of the host's unit index.
enum class LengthUnit { metre, centimetre, millimetre, foot, inch };

/// Units of a file or of an output. The model itself is always in N and mm.
struct Units {
  ForceUnit force = ForceUnit::kilonewton;
  LengthUnit length = LengthUnit::metre;
  /// Section dimensions and properties and heat-affected widths are given in a unit of their own.
  LengthUnit section = LengthUnit::millimetre;

  friend bool operator==(const Units&, const Units&) = default;
};

/// Newtons in one `unit` (standard gravity 9.80665 m/s², 1 lb = 0.45359237 kg).
double newtons_per(ForceUnit unit);
/// Millimetres in one `unit` (1 ft = 304.8 mm, 1 in = 25.4 mm).
double millimetres_per(LengthUnit unit);

/// Name as written in model files: "N", "kN", "kgf", "tonf", "lbf", "kip".
std::string_view name_of(ForceUnit unit);
/// Name as written in model files: "m", "cm", "mm", "ft", "in".
std::string_view name_of(LengthUnit unit);
std::optional<ForceUnit> parse_force_unit(std::string_view name);
std::optional<LengthUnit> parse_length_unit(std::string_view name);

/// All names, joined for messages: "N, kN, kgf, tonf, lbf, kip".
std::string_view force_unit_names();
/// All names, joined for messages: "m, cm, mm, ft, in".
std::string_view length_unit_names();

}  // namespace aluframe::model
