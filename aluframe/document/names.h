#pragma once

#include <string>

#include "aluframe/model/model.h"
#include "aluframe/run/document.h"

// What things are called in the document, in the language in use, and how its numbers are written.

namespace aluframe::document {

/// "strength", "shear y", ... of a RALU_ITEM_TYPE.
std::string item_label(int item);
/// "column", "beam", "brace", "truss" of a record's type.
std::string member_type_label(int type);
std::string load_case_kind_label(model::LoadCaseKind kind);
/// "channel", "H section", ...
std::string shape_label(model::Shape shape);
/// Of a setting of the run: "safety class" of "safety_class".
std::string setting_label(const std::string& key);
/// Where a setting comes from: the user, the frame, a default.
std::string origin_label(const std::string& origin);
/// "3 "Wind"", or "3" without a name.
std::string with_name(model::Number number, const std::string& name);
/// The combination of the model that a stored one is, a state by its envelope and its own name, and
/// which side of an envelope that is checked by its extremes.
std::string combination_label(const store::RunInfo& info, std::uint32_t number, int min_side);
/// "yes" or "no".
std::string yes_or_no(bool value);

/// So many digits behind the point; a zero without a sign.
std::string fixed(double value, int decimals);
/// With as few digits as tell it apart among those of its kind: 0.405, 70000.
std::string short_value(double value);
/// The ratio of a check with four digits behind the point; empty without a limit.
std::string ratio_text(const store::GoverningRow& row);

/// The user's units.
struct Scale {
  explicit Scale(const model::Units& units);

  double force, length;  ///< N, mm
  std::string force_unit, length_unit;

  double moment() const { return force * length; }
  std::string moment_unit() const { return force_unit + "·" + length_unit; }
  std::string line_load_unit() const { return force_unit + "/" + length_unit; }
};

/// A heading with the unit of what stands under it.
std::string in_unit(const std::string& heading, const std::string& unit);

}  // namespace aluframe::document
