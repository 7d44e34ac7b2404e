#include "apps/desktop/picture_file.h"

#include <QApplication>
#include <QBuffer>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QImageWriter>
#include <QPainter>
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

QImage captioned(const QImage& picture, const QStringList& lines) {
  const QString text = lines.join(u'\n');
  const double ratio = picture.devicePixelRatio();
  const QFontMetricsF metrics(QApplication::font());
  const double margin = metrics.height() / 2;
  const double width = picture.width() / ratio, height = picture.height() / ratio;
  const QRectF room(margin, height + margin, width - 2 * margin, 1e6);
  constexpr int wrapped = Qt::TextWordWrap | Qt::TextWrapAnywhere;
  const double text_height = metrics.boundingRect(room, wrapped, text).height();
  QImage out(picture.width(), static_cast<int>(ratio * (height + text_height + 2 * margin)),
             QImage::Format_RGB32);
  out.setDevicePixelRatio(ratio);
  out.fill(Qt::white);
  QPainter painter(&out);
  painter.drawImage(QPointF(0, 0), picture);
  painter.setFont(QApplication::font());
  painter.setPen(Qt::black);
  painter.drawText(room, wrapped, text);
  return out;
}

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
