#pragma once

#include <span>
#include <string>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/scales.h"
#include "aluframe/model/model.h"

/// The entities of a model as JSON objects, of one line each unless said otherwise, in the units of
/// the file and without fields that have their default.
namespace aluframe::io {

std::string project_line(const model::Project& project);
std::string units_line(const model::Units& units);
std::string settings_line(const model::DesignSettings& settings);
/// The same with the fields that have their default.
std::string whole_settings_line(const model::DesignSettings& settings);
std::string frame_line(const model::FrameSettings& frame);
std::string analysis_line(const model::AnalysisSettings& analysis, const Scales& scales);
std::string material_line(const model::Material& material);
std::string section_line(const model::Section& section, const Scales& scales);
std::string node_line(const model::Node& node, const Scales& scales);
std::string support_line(const model::Support& support, const Scales& scales);
std::string element_line(const model::Element& element, const Scales& scales);
std::string member_line(const model::Member& member, const Scales& scales);
std::string restraint_line(const model::Restraint& restraint, const Scales& scales);
std::string deflection_limit_line(const model::DeflectionLimit& limit, const Scales& scales);
std::string drift_limit_line(const model::DriftLimit& limit);
std::string displacement_limit_line(const model::DisplacementLimit& limit, const Scales& scales);
/// Of several lines when the case has several loads: then every load has its own.
std::string load_case_line(const model::LoadCase& load_case, const Scales& scales);
std::string action_line(const model::Action& action);
std::string combination_line(const model::Combination& combination);
/// The rule of a model that has one, with the combinations that it does not make.
std::string combination_rule_line(const model::Model& model);
std::string forces_line(model::Number element, model::Number load_case,
                        const model::CaseForces& forces, const Scales& scales);

/// The fields that every entity begins with: its number, and its name when it has one.
JsonLine begin_entity(model::Number number, const std::string& name);
/// "[1, 2]"
std::string numbers_text(std::span<const model::Number> numbers);
/// Appends the loads of a case to the case's line.
void append_case_loads(JsonLine& line, const model::CaseLoads& loads, const Scales& scales);
std::string area_load_line(const model::AreaLoad& load, const Scales& scales);
/// Design attributes of an element as an object; "{}" when it has none.
std::string design_line(const model::ElementDesign& design, const Scales& scales);
std::string axis_pair_line(const model::ElementDesign::AxisPair& pair);

}  // namespace aluframe::io
