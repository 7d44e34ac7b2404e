#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "io_texts.h"

namespace aluframe::io {

/// The text of a model with changes; a failure of the test when there was a problem.
inline std::string edited(std::string_view text, const ModelChanges& changes) {
  const Result<std::string> result = edit_model_text(text, "post.json", changes);
  if (const auto* problem = std::get_if<Problem>(&result)) {
    ADD_FAILURE() << problem->message();
    return {};
  }
  return std::get<std::string>(result);
}

inline std::string problem_of(std::string_view text, const ModelChanges& changes) {
  const Result<std::string> result = edit_model_text(text, "post.json", changes);
  const auto* problem = std::get_if<Problem>(&result);
  return problem != nullptr ? message_by_paths(*problem) : "no problem";
}

}  // namespace aluframe::io
