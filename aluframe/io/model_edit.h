#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "aluframe/io/model_changes.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/problem.h"

/// Changes of a model in its file. The rest of the file keeps every byte: layout, line ends, a byte
/// order mark, the order of the fields.
///
///     const io::ModelChanges changes = io::changes_since(saved, model);
///     if (const auto problem = io::save_changes("frame.json", changes)) ...
namespace aluframe::io {

/// The text of a model file with the changes in it. Written anew are, each on one line, the changed
/// materials and sections (by their dimensions, whatever profile they named), of the "settings" the
/// fields that differ, and of the elements and members that are changed the fields "member_type",
/// "design" and "length_factors" that differ. Such a field comes behind the last of its object when
/// that lacks it, and of an element or member leaves the file when there is nothing to say;
/// settings that the file lacks come behind its "units", or behind the last field of its head.
/// "combinations" are written one a line, and come behind the "load_cases" of a file that lacks
/// them. The new text was read back and holds the changed values.
/// @param name stands for the file in messages
/// @param folder where the catalogues lie that the text names; null: it must name none
/// @return a problem when the text is no model, lacks one of the changed entities, or a model file
///         cannot hold one of the values
Result<std::string> edit_model_text(std::string_view text, const std::string& name,
                                    const ModelChanges& changes,
                                    const ModelFolder* folder = nullptr);

/// Decides on changes by the model as its file has it now. Asked again when the file is locked.
using ChooseChanges = std::function<Result<ModelChanges>(const model::Model&)>;

/// Changes a model file in one step. Two programs that do so at once wait for each other, and each
/// decides by what the other has left; without changes the file is not touched.
/// @return a problem when that failed or a program that knows of no lock, an editor say, saved the
///         file meanwhile; the file is then as it was or as that program has saved it
/// @param allow_outside whether its catalogues may lie outside of its folder
std::optional<Problem> change_model_file(const std::filesystem::path& path,
                                         const ChooseChanges& choose, bool allow_outside = false);

/// Makes changes in a model file, whatever it holds now.
std::optional<Problem> save_changes(const std::filesystem::path& path, const ModelChanges& changes);

/// Writes what a model file holds now, with changes, to another file in one step; the first file
/// stays as it is. Catalogues keep the paths that the text names: when these lead from the folder
/// of the copy to no file, or to other profiles, nothing is written.
/// @return a problem when that failed; what was in the place of the copy is then as it was
std::optional<Problem> save_changed_copy(const std::filesystem::path& from,
                                         const std::filesystem::path& to,
                                         const ModelChanges& changes, bool allow_outside = false);

/// The text of a file, for the time when the file is no more.
Result<std::string> text_of_file(const std::filesystem::path& path);

/// The same as `save_changed_copy` of a model file that is no more, by the text that it held; `to`
/// may be the same file.
std::optional<Problem> save_changed_text(std::string_view text, const std::filesystem::path& from,
                                         const std::filesystem::path& to,
                                         const ModelChanges& changes, bool allow_outside = false);

}  // namespace aluframe::io
