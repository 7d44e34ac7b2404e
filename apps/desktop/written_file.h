#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace aluframe::desktop {

/// Writes a file that the user chose, but never in the place of a model, a catalogue, a table of
/// forces or results.
/// @param what it is, "the table"; translatable
/// @param write throws when it cannot, and leaves an earlier file as it was
/// @return why it could not be written, with the path
std::optional<std::string> write_chosen_file(std::string_view what,
                                             const std::filesystem::path& path,
                                             const std::function<void()>& write);

}  // namespace aluframe::desktop
