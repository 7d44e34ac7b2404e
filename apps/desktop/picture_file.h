#pragma once

#include <QImage>
#include <filesystem>
#include <optional>
#include <string>

class QWidget;

namespace aluframe::desktop {

/// Writes a picture as .png or .jpg, by the extension of the path; an earlier file stays as it was
/// until the picture is whole.
/// @return why it could not be written, with the path
std::optional<std::string> write_picture_file(const QImage& picture,
                                              const std::filesystem::path& path);

/// Asks for the file of a picture. @return nothing when the user cancels
std::optional<std::filesystem::path> choose_picture_file(QWidget* parent, const QString& proposal);

}  // namespace aluframe::desktop
