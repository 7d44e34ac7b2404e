#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "aluframe/explain/term.h"
#include "aluframe/texts/text.h"

namespace aluframe::explain {

// Quantities and reasons are kept in English and put in the words of the language in use where they
// are shown.
using texts::translatable;

/// What is to be said of a quantity.
struct Info {
  std::string symbol;    ///< "φy"; one quantity of an explanation each
  std::string quantity;  ///< "axial stability coefficient about y"
  std::string unit = {};
  /// Of GB 50429-2007, as far as it is certain: "7.2", "appendix B"; empty: none.
  std::string clause = {};
  /// Where it is from or which branch was taken, and why.
  std::string why = {};
};

struct Step;
using StepPointer = std::shared_ptr<const Step>;

/// One quantity and how it comes about. Its value is that of the checks.
struct Step {
  Info info;
  double value = 0.0;
  std::optional<Term> formula;    ///< nothing: it is given, read from a table, or follows by `why`
  std::vector<StepPointer> from;  ///< those that it follows from, of the formula first
};

/// A formula that does not give the value of the checks: never to be shown.
class StepMismatch : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// The numbers that a step is worked out from, and its result; of a step without a formula the
/// result alone.
NumberLine line_of(const Step& step);

/// All steps that a step follows from and itself, each once, before any that follows from it.
std::vector<StepPointer> steps_of(const StepPointer& root);

}  // namespace aluframe::explain
