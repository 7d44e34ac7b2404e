#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/model/model.h"
#include "aluframe/services/session.h"
#include "aluframe/store/result_file.h"
#include "apps/cli/common_options.h"
#include "apps/cli/exit_status.h"

// What the commands that run over a model make of their input. A text in a result is a message for
// the user.

namespace aluframe::cli {

/// What a command makes its model from.
struct InputOptions {
  std::filesystem::path model;
  std::optional<std::filesystem::path> forces;  ///< CSV in place of the model's forces
  bool second_order = false;                    ///< whatever the model says
};

/// A model as its file has it, with the members that the file leaves to be found and the states of
/// its envelopes.
struct Input {
  model::Model model;
  std::size_t found_members = 0;  ///< of its members, those that the file leaves to be found
  /// Digest of what is to be checked: the model, its loads and the forces that it is given.
  std::string digest;
};

/// Reads the model, and the forces that take the place of its own, or gives a message.
std::variant<Input, std::string> load_input(const InputOptions& options);

/// Why a command stops, and the status that it ends with.
struct Stop {
  std::string message;
  ExitStatus status = exit_input_error;
};

/// Computes the forces that follow from the model's loads.
std::variant<forces::Summary, Stop> add_forces(const std::filesystem::path& file,
                                               model::Model& model);

/// The problem of an analysis as it is told, with the JSON path of the element or node that it is
/// about, of the first one when there are several.
Stop stop_of(const std::filesystem::path& file, const analysis::Problem& problem);
/// "linear analysis of 4 load cases, residual 2.1e-14", for the user.
std::string forces_text(const forces::Summary& summary);

/// Says which model a run is of, and limits it to the elements and combinations that the user
/// named.
/// @return a message when one of them does not exist
std::optional<std::string> limit(const Input& input, const CommonOptions& common,
                                 services::SessionOptions& out);

using UnitPair = std::pair<model::ForceUnit, model::LengthUnit>;

/// Reads "kN,m".
std::variant<UnitPair, std::string> parse_unit_pair(const std::string& text);

/// Says what the user should know before trusting the results of `input`, which are in `file`.
void warn_about_results(const std::filesystem::path& input, const std::filesystem::path& file,
                        store::RunState state);

}  // namespace aluframe::cli
