#include "aluframe/combinations/made_names.h"

#include <fmt/format.h>

#include "aluframe/model/factored_case.h"

namespace aluframe::combinations {

std::string factor_text(const Factor& factor) {
  if (factor.psi == 1.0) return factor.gamma == 1.0 ? "" : fmt::format("{:.6g}", factor.gamma);
  if (factor.gamma == 1.0) return fmt::format("{:.6g}", factor.psi);
  return fmt::format("{:.6g}·{:.6g}", factor.psi, factor.gamma);
}

std::string sum_text(const model::Model& model, const std::vector<MadeTerm>& terms) {
  std::string text;
  for (const MadeTerm& term : terms) {
    if (term.sign < 0.0) {
      text += '-';
    } else if (!text.empty()) {
      text += '+';
    }
    text += model::factored_case(factor_text(term.factor), *model.load_cases.find(term.load_case));
  }
  return text;
}

}  // namespace aluframe::combinations
