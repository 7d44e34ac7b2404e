#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/io/problem.h"
#include "aluframe/model/model.h"

namespace aluframe::io {

/// What a model file says about itself, beside the model.
struct FileNotes {
  std::vector<std::string> given_settings;  ///< fields of "settings" that are not left to defaults
};

/// The folder of a model's file, from where the paths in the model lead.
struct ModelFolder {
  std::filesystem::path path;
  bool allow_outside = false;  ///< whether they may lead to files that lie outside of it
};

/// Reads a model file (format in docs/model-file.md, schema in schema/).
/// The model is complete and consistent, or the first problem is returned with its place.
/// @param notes filled in when there are any
/// @param allow_outside whether its catalogues may lie outside of its folder
Result<model::Model> read_model(const std::filesystem::path& path, FileNotes* notes = nullptr,
                                bool allow_outside = false);

/// The same from text; `name` stands for the file in messages.
/// @param folder where the catalogues lie that the text names; null: it must name none
Result<model::Model> parse_model(std::string_view text, const std::string& name,
                                 const ModelFolder* folder = nullptr);

/// The model as a model file in its own units; sections with their dimensions, not with the profile
/// that gave them, so that the text needs no catalogue. Reading it back gives an equal model
/// (lengths and forces to the last digit but one, where a unit's factor rounds).
std::string write_model(const model::Model& model);

/// 16 characters that tell any two states of a model and its forces apart (64-bit FNV-1a of what
/// `write_model` gives, without what no result depends on: the title, the description, the project,
/// the moving loads' code, and the rule by which combinations were made).
std::string model_digest(model::Model model);

/// Reads element forces from CSV into the model, in place of those it has: a header line with the
/// columns element, case, position (0..4), N, Fy, Fz, Mx, My, Mz in any order and any case, then
/// one row per position, in the model's units. Every pair of element and case needs the rows 0 and
/// 4, or all five.
/// @return the number of rows read
Result<std::size_t> read_forces_csv(const std::filesystem::path& path, model::Model& model);

}  // namespace aluframe::io
