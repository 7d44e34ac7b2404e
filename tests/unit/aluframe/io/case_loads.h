#pragma once

#include <string>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {

/// The small model with loads in its second case.
inline std::string with_loads(const std::string& loads) {
  return replaced(small_model, R"({"number": 2, "name": "WIND"})",
                  R"({"number": 2, "name": "WIND", )" + loads + "}");
}

/// The same in kN and m.
inline std::string with_loads_in_kilonewtons(const std::string& loads) {
  return replaced(with_loads(loads), R"("force": "N", "length": "mm")",
                  R"("force": "kN", "length": "m")");
}

/// The loads of the second case of a model.
inline model::CaseLoads loads_of(const std::string& text) {
  const model::Model model = model_of(text);
  if (model.load_cases.size() == 2) return model.load_cases[1].loads;
  ADD_FAILURE() << "the model has " << model.load_cases.size() << " load cases";
  return {};
}

}  // namespace aluframe::io
