#pragma once

#include <QMainWindow>
#include <filesystem>
#include <optional>

#include "aluframe/services/settings_dialogs.h"
#include "aluframe/toolkit/qt/qt_toolkit.h"
#include "apps/desktop/model_document.h"
#include "apps/desktop/ui_texts.h"

class QAction;
class QMenu;

namespace aluframe::desktop {

class Overview;

/// The program's window: an overview of the open model, and the design module's dialogs over it.
/// Changes stay in the window until they are saved; closing asks about them.
class MainWindow : public QMainWindow {
 public:
  MainWindow();

  /// Shows a model in the place of the one that is open, whatever becomes of its changes.
  void show_document(ModelDocument document);
  /// Opens a file, after the changes of the open model were seen to. A problem is told in a box.
  void open(const std::filesystem::path& path);
  /// @return true when nothing is left to save
  bool save();
  void open_settings(services::SettingsDialog dialog);
  /// Null when no model is open.
  const ModelDocument* document() const { return document_ ? &*document_ : nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void create_menus();
  void choose_model();
  /// Saves or drops changes as the user wants. @return false when the user wants neither
  bool settle_changes();
  void show_state_of(const ModelDocument& document);

  toolkit::QtToolkit toolkit_;
  std::optional<ModelDocument> document_;
  Overview* overview_ = nullptr;  ///< null until a model is open
  QAction* save_ = nullptr;
  QMenu* design_ = nullptr;
};

}  // namespace aluframe::desktop
