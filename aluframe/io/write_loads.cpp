#include <fmt/format.h>

#include "aluframe/io/json_writer.h"
#include "aluframe/io/model_lines.h"
#include "aluframe/io/named_values.h"

namespace aluframe::io {

namespace {

using model::CombinationTerm;

std::string term_text(const CombinationTerm& term) {
  const bool is_case = term.source == CombinationTerm::Source::load_case;
  return JsonLine()
      .number(is_case ? "case" : "combination", term.number)
      .number_unless("factor", term.factor, 1.0)
      .str();
}

void append_row(std::string& text, const model::SectionForces& forces, const Scales& scales) {
  text += '[';
  for (std::size_t i = 0; i < forces.size(); ++i) {
    if (i > 0) text += ", ";
    append_number(text, forces[i], scales.of_component(i));
  }
  text += ']';
}

}  // namespace

std::string load_case_line(const model::LoadCase& load_case, const Scales& scales) {
  JsonLine line = begin_entity(load_case.number, load_case.name);
  if (load_case.kind != model::LoadCaseKind::static_load) {
    line.text("kind", name_in(load_case_kinds, load_case.kind));
  }
  if (load_case.action) line.json("action", action_line(*load_case.action));
  append_case_loads(line, load_case.loads, scales);
  return line.str();
}

std::string combination_line(const model::Combination& combination) {
  JsonLine line = begin_entity(combination.number, combination.name);
  if (combination.kind != model::CombinationKind::linear) {
    line.text("kind", name_in(combination_kinds, combination.kind));
  }
  std::vector<std::string> terms;
  terms.reserve(combination.terms.size());
  for (const CombinationTerm& term : combination.terms) terms.push_back(term_text(term));
  return line.json("terms", json_list(terms))
      .flag_unless("seismic", combination.seismic, false)
      .flag_unless("design", combination.design, true)
      .flag_unless("serviceability", combination.serviceability, false)
      .str();
}

std::string forces_line(model::Number element, model::Number load_case,
                        const model::CaseForces& forces, const Scales& scales) {
  std::string text =
      fmt::format("{{\"element\": {}, \"case\": {}, \"values\": [", element, load_case);
  const std::size_t step = forces.inner ? 1 : forces.at.size() - 1;
  for (std::size_t position = 0; position < forces.at.size(); position += step) {
    if (position > 0) text += ", ";
    append_row(text, forces.at[position], scales);
  }
  return text + "]}";
}

}  // namespace aluframe::io
