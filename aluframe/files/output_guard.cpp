#include "aluframe/files/output_guard.h"

#include <algorithm>
#include <span>
#include <system_error>

#include "aluframe/files/same_file.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

/// One line, whatever paths hold: that of a model may come from a file that others have changed.
std::string one_line(const std::string& text) {
  return model::without_control_characters(text);
}

std::string holding_text(const fs::path& path, const OutputFile& output, std::string_view what) {
  return one_line(texts::translated("{}: holds {}, which {} would overwrite; choose another file",
                                    path.string(), what, texts::translation_of(output.what)));
}

std::string name_of(FileKind kind) {
  switch (kind) {
    case FileKind::model:
      return texts::translated("a model");
    case FileKind::catalogue:
      return texts::translated("a catalogue of profiles");
    case FileKind::results:
      return texts::translated("the results of a check");
    case FileKind::forces:
      return texts::translated("a table of element forces");
    case FileKind::other:
      break;
  }
  return {};
}

/// The file of a list that the output would overwrite.
template <class File>
std::optional<std::string> find_same(const fs::path& path, std::string_view output,
                                     std::span<const File> files) {
  for (const File& file : files) {
    if (file.path && is_same_file(path, *file.path)) {
      return one_line(texts::translated("{}: is {}, which {} would overwrite; choose another file",
                                        path.string(), texts::translation_of(file.what),
                                        texts::translation_of(output)));
    }
  }
  return std::nullopt;
}

/// Another input than those of the run that an older output was made from.
std::optional<fs::path> find_other_source(const OutputFile& output,
                                          const std::vector<InputFile>& inputs) {
  if (!output.made_from) return std::nullopt;
  const fs::path& source = *output.made_from;
  const bool is_input = std::ranges::any_of(inputs, [&source](const InputFile& input) {
    return input.path && is_same_file(*input.path, source);
  });
  return is_input ? std::nullopt : std::optional(source);
}

/// Of a file that exists: what speaks against writing the output there.
std::optional<std::string> problem_at(const fs::path& path, const OutputFile& output,
                                      const std::vector<InputFile>& inputs) {
  const FileKind kind = kind_of(path);
  if (kind == FileKind::other) return std::nullopt;
  if (kind != output.kind) return holding_text(path, output, name_of(kind));
  const auto source = find_other_source(output, inputs);
  if (!source) return std::nullopt;
  std::error_code error;
  const fs::path near = fs::proximate(*source, error);
  return one_line(texts::translated(
      "{}: holds {} of {}, which {} would overwrite; choose another file, or delete this one",
      path.string(), name_of(kind), (error ? *source : near).string(),
      texts::translation_of(output.what)));
}

}  // namespace

std::optional<std::string> find_overwriting(const std::vector<OutputFile>& outputs,
                                            const std::vector<InputFile>& inputs) {
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    const OutputFile& output = outputs[i];
    if (!output.path) continue;
    const fs::path& path = *output.path;
    if (auto problem = find_same(path, output.what, std::span(inputs))) return problem;
    if (auto problem = find_same(path, output.what, std::span(outputs).first(i))) return problem;
    if (auto problem = problem_at(path, output, inputs)) return problem;
  }
  return std::nullopt;
}

}  // namespace aluframe::files
