#include <fmt/format.h>

#include <cstdint>
#include <utility>

#include "aluframe/io/format_names.h"
#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

/// The file's text: a field of the top level a line, and of its lists an entity a line, so that a
/// change of one entity is a change of one line.
class ModelText {
 public:
  void field(std::string_view name, std::string_view json) {
    text_ += fmt::format("{}\n  \"{}\": {}", text_.empty() ? "{" : ",", name, json);
  }
  /// A field of the given entities, each written by `line`.
  template <class Entities, class Line>
  void list(std::string_view name, const Entities& entities, Line line) {
    begin_list(name);
    for (const auto& entity : entities) entry(line(entity));
    end_list();
  }
  void begin_list(std::string_view name) {
    field(name, "[");
    is_first_ = true;
  }
  void entry(std::string_view json) {
    text_ += is_first_ ? "\n    " : ",\n    ";
    text_ += json;
    is_first_ = false;
  }
  void end_list() { text_ += is_first_ ? "]" : "\n  ]"; }
  std::string close() && { return std::move(text_) + "\n}\n"; }

 private:
  std::string text_;
  bool is_first_ = true;  ///< in the list that is open
};

void write_head(ModelText& text, const model::Model& model, const Scales& scales) {
  text.field("format", json_string(format_name));
  text.field("version", std::to_string(format_version));
  if (!model.title.empty()) text.field("title", json_string(model.title));
  if (!model.description.empty()) text.field("description", json_string(model.description));
  if (model.project != model::Project()) text.field("project", project_line(model.project));
  text.field("units", units_line(model.units));
  if (model.design) text.field("settings", settings_line(*model.design));
  if (model.frame) text.field("frame", frame_line(*model.frame));
  if (model.analysis.second_order) text.field("analysis", analysis_line(model.analysis, scales));
  if (model.envelopes != model::Envelopes()) {
    text.field("envelopes", json_string(name_in(envelope_checks, model.envelopes)));
  }
  if (model.moving_load_code != 0) {
    text.field("moving_load_code", std::to_string(model.moving_load_code));
  }
}

void write_structure(ModelText& text, const model::Model& model, const Scales& scales) {
  text.list("materials", model.materials, material_line);
  text.list("sections", model.sections,
            [&](const model::Section& section) { return section_line(section, scales); });
  text.list("nodes", model.nodes, [&](const model::Node& node) { return node_line(node, scales); });
  if (!model.supports.empty()) {
    text.list("supports", model.supports,
              [&](const model::Support& support) { return support_line(support, scales); });
  }
  text.list("elements", model.elements,
            [&](const model::Element& element) { return element_line(element, scales); });
  if (!model.finds_members) {
    text.list("members", model.members,
              [&](const model::Member& member) { return member_line(member, scales); });
  }
}

void write_serviceability(ModelText& text, const model::Model& model, const Scales& scales) {
  const model::ServiceabilityLimits& limits = model.serviceability;
  if (limits.deflection) {
    text.field("deflection_limit", deflection_limit_line(*limits.deflection, scales));
  }
  if (!limits.drifts.empty()) text.list("drift_limits", limits.drifts, drift_limit_line);
  if (!limits.displacements.empty()) {
    text.list("displacement_limits", limits.displacements,
              [&](const auto& limit) { return displacement_limit_line(limit, scales); });
  }
}

/// The `forces` list, which is opened by its first entry: a model without forces has none.
void write_forces(ModelText& text, const model::Model& model, const Scales& scales) {
  bool is_open = false;
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
      const model::CaseForces* forces = model.forces.find(element, load_case);
      if (forces == nullptr) continue;
      if (!is_open) text.begin_list("forces");
      is_open = true;
      text.entry(forces_line(model.elements[element].number, model.load_cases[load_case].number,
                             *forces, scales));
    }
  }
  if (is_open) text.end_list();
}

/// Leaves the combinations without where they come from: who makes the same ones otherwise has the
/// same results.
void forget_rule(model::Model& model) {
  model.combination_rule.reset();
  for (std::size_t i = 0; i < model.load_cases.size(); ++i) {
    if (!model.load_cases[i].action) continue;
    model::LoadCase load_case = model.load_cases[i];
    load_case.action.reset();
    model.load_cases.replace(std::move(load_case));
  }
}

}  // namespace

std::string write_model(const model::Model& model) {
  const Scales scales(model.units);
  ModelText text;
  write_head(text, model, scales);
  write_structure(text, model, scales);
  write_serviceability(text, model, scales);
  if (!model.load_cases.empty()) {
    text.list("load_cases", model.load_cases,
              [&](const model::LoadCase& load_case) { return load_case_line(load_case, scales); });
  }
  if (model.combination_rule) {
    text.field("combinations", combination_rule_line(model));
  } else if (!model.combinations.empty()) {
    text.list("combinations", model.combinations, combination_line);
  }
  write_forces(text, model, scales);
  return std::move(text).close();
}

std::string model_digest(model::Model model) {
  forget_rule(model);
  model.title.clear();
  model.description.clear();
  model.project = {};
  model.moving_load_code = 0;
  constexpr std::uint64_t offset = 0xCBF29CE484222325;
  constexpr std::uint64_t prime = 0x100000001B3;
  std::uint64_t hash = offset;
  for (const char byte : write_model(model)) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
  }
  return fmt::format("{:016x}", hash);
}

}  // namespace aluframe::io
