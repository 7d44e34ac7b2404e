#include "aluframe/run/explanation.h"

#include <utility>

#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

Result<ExplainedCheck> explain_check(const ExplanationOptions& options) {
  if (auto problem = missing_results(options.results, options.input.model))
    return *std::move(problem);
  const auto reader = store::ResultReader::open(options.results);
  const auto place = find_check(*reader, options.wanted);
  if (const auto* problem = std::get_if<Problem>(&place)) {
    return Problem{options.results.string() + ": " + problem->text, problem->kind};
  }
  auto prepared = prepare_like(options.results, options.input, {});
  if (auto* problem = std::get_if<Problem>(&prepared)) return std::move(*problem);
  const auto& input = std::get<Input>(prepared);
  if (input.digest != reader->info().model_digest) {
    return Problem{other_state_text(options.input.model, options.results)};
  }
  const model::Number element = options.wanted.element;
  if (input.model.elements.find(element) == nullptr) {
    return Problem{texts::translated("--element: there is no element {}", element)};
  }
  const CheckExplainer explainer(input, reader->info(), options.results, {element});
  return explainer.explain(element, std::get<CheckPlace>(place));
}

}  // namespace aluframe::run
