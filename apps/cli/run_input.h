#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "aluframe/model/model.h"
#include "aluframe/services/session.h"
#include "aluframe/store/result_file.h"
#include "apps/cli/common_options.h"

// What the commands that run over a model make of their input. A text in a result is a message for
// the user.

namespace aluframe::cli {

/// The model with the forces that are to be checked, or a message.
std::variant<model::Model, std::string> load_model(
    const std::filesystem::path& file, const std::optional<std::filesystem::path>& forces);

/// Says which model a run is of, and limits it to the elements and combinations that the user
/// named.
/// @return a message when one of them does not exist
std::optional<std::string> limit(const model::Model& model, const CommonOptions& common,
                                 services::SessionOptions& out);

using UnitPair = std::pair<model::ForceUnit, model::LengthUnit>;

/// Reads "kN,m".
std::variant<UnitPair, std::string> parse_unit_pair(const std::string& text);

/// Says what the user should know before trusting the results of `input`, which are in `file`.
void warn_about_results(const std::filesystem::path& input, const std::filesystem::path& file,
                        store::RunState state);

}  // namespace aluframe::cli
