#pragma once

#include <QImage>
#include <QStringList>
#include <filesystem>
#include <optional>
#include <string>

class QWidget;

namespace aluframe::desktop {

/// A picture with lines of text below it, wrapped to its width.
QImage captioned(const QImage& picture, const QStringList& lines);

/// Writes a picture as .png or .jpg, by the extension of the path; an earlier file stays as it was
/// until the picture is whole.
/// @return why it could not be written, with the path
std::optional<std::string> write_picture_file(const QImage& picture,
                                              const std::filesystem::path& path);

/// Asks for the file of a picture. @return nothing when the user cancels
std::optional<std::filesystem::path> choose_picture_file(QWidget* parent, const QString& proposal);

}  // namespace aluframe::desktop
