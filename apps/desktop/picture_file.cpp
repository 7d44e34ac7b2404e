#include "apps/desktop/picture_file.h"

#include <QBuffer>
#include <QFileDialog>
#include <QImageWriter>
#include <stdexcept>
#include <string_view>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/written_file.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// The picture as the bytes of a file. @throws std::runtime_error
QByteArray encoded(const QImage& picture, const QByteArray& format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (!writer.write(picture)) throw std::runtime_error(writer.errorString().toStdString());
  return bytes;
}

}  // namespace

std::optional<std::string> write_picture_file(const QImage& picture,
                                              const std::filesystem::path& path) {
  const QString extension = QString::fromStdString(path.extension().string()).toLower();
  const bool is_jpeg = extension == u".jpg" || extension == u".jpeg";
  if (!is_jpeg && extension != u".png") {
    return texts::translated("{}: the extension of a picture must be .png or .jpg", path.string());
  }
  return write_chosen_file(translatable("the picture"), path, [&] {
    const QByteArray bytes = encoded(picture, is_jpeg ? "jpg" : "png");
    files::publish_text(
        path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  });
}

std::optional<std::filesystem::path> choose_picture_file(QWidget* parent, const QString& proposal) {
  QFileDialog dialog(parent, ui_text(translatable("Picture to file")));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(ui_text(translatable("Pictures (*.png *.jpg)")));
  dialog.setDefaultSuffix(QStringLiteral("png"));
  dialog.selectFile(proposal);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

}  // namespace aluframe::desktop
