#include "apps/desktop/ui_texts.h"

#include "aluframe/texts/text.h"

namespace aluframe::desktop {

QString ui_text(std::string_view english) {
  const std::string_view text = texts::translation_of(english);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString path_text(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace aluframe::desktop
