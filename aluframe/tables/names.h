#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "aluframe/model/loads.h"
#include "aluframe/model/section.h"
#include "aluframe/model/structure.h"
#include "aluframe/services/check_run.h"
#include "aluframe/store/result_file.h"

// How what stands in models and results is called.

namespace aluframe::tables {

/// "strength", "shear y", ... of a RALU_ITEM_TYPE.
std::string_view item_name(int item);
/// "I", "1/4", "1/2", "3/4", "J" of a check position; "-" of no position.
std::string_view position_name(int position);
/// "column", "beam", "brace", "truss"; "-" of no type.
std::string_view member_type_name(int type);
std::string_view member_type_name(model::MemberType type);
std::string_view load_case_kind_name(model::LoadCaseKind kind);
/// "channel", "H section", ...
std::string_view shape_name(model::Shape shape);
std::string_view outcome_name(services::RunOutcome outcome);
/// Four digits after the point, or "inf", "-inf", "nan".
std::string short_number(double value);

/// The combination of the model; of a state its envelope.
std::uint32_t number_of_combination(const store::RunInfo& info, std::uint32_t number);
/// Its name; empty for one that the run does not list.
std::string name_of_combination(const store::RunInfo& info, std::uint32_t number);

}  // namespace aluframe::tables
