#include "apps/desktop/table_file.h"

#include <QFileDialog>

#include "aluframe/files/publication.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/spreadsheet.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/written_file.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

constexpr const char* workbook = ".xlsx";
constexpr const char* values = ".csv";

/// In small letters.
std::string extension_of(const std::filesystem::path& path) {
  return QString::fromStdString(path.extension().string()).toLower().toStdString();
}

}  // namespace

std::optional<std::string> write_table_file(const tables::OutputTable& table,
                                            const std::string& name,
                                            const std::filesystem::path& path) {
  const std::string extension = extension_of(path);
  if (extension == workbook) return write_spreadsheet(table, name, path);
  if (extension == values) {
    return write_chosen_file(translatable("the table"), path,
                             [&] { files::publish_text(path, tables::to_csv(table)); });
  }
  return texts::translated("{}: the extension of a table must be .xlsx or .csv", path.string());
}

std::optional<std::filesystem::path> choose_table_file(QWidget* parent, const QString& proposal) {
  const QString of_workbook = ui_text(translatable("Excel workbook (*.xlsx)"));
  const QString of_values = ui_text(translatable("Comma-separated values (*.csv)"));
  QFileDialog dialog(parent, ui_text(translatable("Save the table")));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters({of_workbook, of_values});
  dialog.selectFile(proposal);
  // The dialog adds it, and asks before it takes the place of a file.
  const auto use_suffix_of = [&](const QString& filter) {
    dialog.setDefaultSuffix(QString::fromLatin1(filter == of_values ? values : workbook));
  };
  use_suffix_of(of_workbook);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, use_suffix_of);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

}  // namespace aluframe::desktop
