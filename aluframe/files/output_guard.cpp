#include "aluframe/files/output_guard.h"

#include <span>

#include "aluframe/files/same_file.h"

namespace aluframe::files {

namespace {

std::string text_of(const OutputFile& output, std::string_view is, std::string_view what) {
  return output.path->string() + ": " + std::string(is) + ' ' + std::string(what) + ", which " +
         std::string(output.what) + " would overwrite; choose another file";
}

std::string_view name_of(FileKind kind) {
  switch (kind) {
    case FileKind::model:
      return "a model";
    case FileKind::catalogue:
      return "a catalogue of profiles";
    case FileKind::results:
      return "the results of a check";
    case FileKind::forces:
      return "a table of element forces";
    case FileKind::other:
      break;
  }
  return {};
}

/// The file of a list that the output would overwrite.
template <class File>
std::optional<std::string> find_same(const OutputFile& output, std::span<const File> files) {
  for (const File& file : files) {
    if (file.path && is_same_file(*output.path, *file.path))
      return text_of(output, "is", file.what);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> find_overwriting(const std::vector<OutputFile>& outputs,
                                            const std::vector<InputFile>& inputs) {
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    const OutputFile& output = outputs[i];
    if (!output.path) continue;
    if (auto problem = find_same(output, std::span(inputs))) return problem;
    if (auto problem = find_same(output, std::span(outputs).first(i))) return problem;
    const FileKind kind = kind_of(*output.path);
    if (kind != FileKind::other && kind != output.kind) {
      return text_of(output, "holds", name_of(kind));
    }
  }
  return std::nullopt;
}

}  // namespace aluframe::files
