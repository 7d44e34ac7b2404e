#pragma once

#include <string>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/scales.h"
#include "aluframe/model/model.h"

/// The entities of a model as JSON objects of one line each, in the units of the file and without
/// fields that have their default.
namespace aluframe::io {

std::string units_line(const model::Units& units);
std::string settings_line(const model::DesignSettings& settings);
std::string frame_line(const model::FrameSettings& frame);
std::string material_line(const model::Material& material);
std::string section_line(const model::Section& section, const Scales& scales);
std::string node_line(const model::Node& node, const Scales& scales);
std::string support_line(const model::Support& support);
std::string element_line(const model::Element& element, const Scales& scales);
std::string member_line(const model::Member& member);
std::string load_case_line(const model::LoadCase& load_case);
std::string combination_line(const model::Combination& combination);
std::string forces_line(model::Number element, model::Number load_case,
                        const model::CaseForces& forces, const Scales& scales);

/// The fields that every entity begins with: its number, and its name when it has one.
JsonLine begin_entity(model::Number number, const std::string& name);
/// Design attributes of an element as an object; "{}" when it has none.
std::string design_line(const model::ElementDesign& design, const Scales& scales);
std::string axis_pair_line(const model::ElementDesign::AxisPair& pair);

}  // namespace aluframe::io
