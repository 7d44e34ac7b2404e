#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/files/file_kind.h"

namespace aluframe::files {

/// A file that a run reads. `what` names it for the user: "the model".
struct InputFile {
  std::string_view what;
  std::optional<std::filesystem::path> path;  ///< nothing: the run reads none
};

/// A file that a run writes: "the report". It may take the place of an older one of its kind,
/// unless that was made from another input.
struct OutputFile {
  std::string_view what;
  std::optional<std::filesystem::path> path;  ///< nothing: the run writes none
  FileKind kind = FileKind::other;
  /// The input that an older one was made from; nothing: unknown, or none of the run's business.
  std::optional<std::filesystem::path> made_from = std::nullopt;
};

/// What a run would overwrite that the user cannot mean: an input, another output of the same run,
/// an existing model, catalogue or result file that is not of the output's own kind, or one of its
/// kind that was made from another input. Whatever links and folders a path leads through.
///
/// @return "frame.json: is the model, which the report would overwrite", or nothing
///
///     if (const auto problem = find_overwriting({{"the table", output}}, {{"the model", model}}))
///       return *problem;
std::optional<std::string> find_overwriting(const std::vector<OutputFile>& outputs,
                                            const std::vector<InputFile>& inputs);

}  // namespace aluframe::files
