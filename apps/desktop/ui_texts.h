#pragma once

#include <QString>
#include <filesystem>
#include <string_view>

namespace aluframe::desktop {

/// A text of the catalogue in the user's language.
QString ui_text(std::string_view english);

/// A path as the user reads it.
QString path_text(const std::filesystem::path& path);

}  // namespace aluframe::desktop
