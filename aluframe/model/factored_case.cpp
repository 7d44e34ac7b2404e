#include "aluframe/model/factored_case.h"

#include "aluframe/texts/text.h"

namespace aluframe::model {

std::string factored_case(std::string_view factor, const LoadCase& load_case) {
  const std::string name =
      load_case.name.empty() ? texts::translated("case {}", load_case.number) : load_case.name;
  if (factor.empty()) return name;
  const bool is_word = (name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= 'a' && name[0] <= 'z');
  const bool apart = load_case.name.empty() || !is_word;
  return std::string(factor) + (apart ? " " : "") + name;
}

}  // namespace aluframe::model
