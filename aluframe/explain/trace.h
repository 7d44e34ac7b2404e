#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/explain/step.h"

namespace aluframe::explain {

/// The steps of one explanation while they are put together, by their symbols. A step that there is
/// already stays as it is; one of another value is an error.
///
///     Trace trace;
///     const Term N = trace.given({"N", "axial force", "N"}, -50000.0);
///     const Term A = trace.given({"A", "area", "mm²"}, 2500.0);
///     trace.define({"σ", "stress", "N/mm²"}, AxialStress(...), magnitude(N) / A);
///     trace.step("σ")->from;  // N, A
class Trace {
 public:
  /// A quantity without a formula: given, or by `info.why`.
  /// @param because symbols of steps that it follows from
  Term given(const Info& info, double value, const std::vector<std::string>& because = {});

  /// A quantity with a formula. What the formula's symbols are steps of leads to it.
  /// @param value of the checks
  /// @param because symbols of further steps that lead to it
  /// @throws StepMismatch when the formula gives another value, by more than 1e-12 of it
  Term define(const Info& info, double value, const Term& formula,
              const std::vector<std::string>& because = {});

  /// A part of a formula that goes by a name of its own. Its value is the formula's: what stands
  /// above it is compared with the checks.
  Term part(const Info& info, const Term& formula, const std::vector<std::string>& because = {});

  /// The symbol's step, or null.
  StepPointer step(const std::string& symbol) const;

  /// The symbol as a term when there is a step of it, else what `make` makes, which is its step.
  template <class Make>
  Term once(const std::string& symbol, const Make& make) {
    const StepPointer known = step(symbol);
    return known == nullptr ? make() : Term::symbol(symbol, known->value);
  }

 private:
  Term add(Step step, const std::vector<std::string>& because);

  std::map<std::string, StepPointer> steps_;
};

/// Whether two values are the same to 1e-12 of them; what is not finite must be the same.
bool agree(double a, double b);

}  // namespace aluframe::explain
