#pragma once

#include <QFileSystemWatcher>
#include <QMainWindow>
#include <QUndoStack>
#include <filesystem>
#include <optional>
#include <vector>

#include "aluframe/services/settings_dialogs.h"
#include "aluframe/toolkit/qt/qt_toolkit.h"
#include "apps/desktop/autosave.h"
#include "apps/desktop/display.h"
#include "apps/desktop/model_document.h"
#include "apps/desktop/result_watch.h"
#include "apps/desktop/runner.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QStackedWidget;

namespace aluframe::desktop {

class FrameView;
class Overview;
class RunProgress;

/// The program's window: the frame in space, panels around it, and the commands. Changes stay in
/// the window until they are saved; closing asks about them.
class MainWindow : public QMainWindow {
 public:
  MainWindow();
  ~MainWindow() override;

  /// Shows a model in the place of the one that is open, whatever becomes of its changes.
  void show_document(ModelDocument document);
  /// Opens a file, after the changes of the open model were seen to. A problem is told in a box.
  void open(const std::filesystem::path& path);
  /// Reads the open file again; changes that are not saved are lost.
  void reload();
  /// Reads the open file again and makes the changes that are not saved in it; asks where another
  /// program has changed the same values. @return false when the user wants neither side's
  bool reload_beneath_changes();
  /// @return true when nothing is left to save
  bool save();
  /// Writes the model with its changes under another name and goes on with that file.
  /// @return whether it was written
  bool save_as(const std::filesystem::path& path);
  void open_settings(services::SettingsDialog dialog);
  /// Checks the selected elements, or all; asks to save changes first.
  void check(bool selection_only);
  /// Null when no model is open.
  const ModelDocument* document() const { return workspace_.document(); }
  Workspace& workspace() { return workspace_; }
  Display& display() { return display_; }
  FrameView& view() { return *view_; }
  Runner& runner() { return runner_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void create_docks();
  void create_menus();
  void create_file_menu();
  void create_edit_menu();
  void create_view_menu();
  void create_design_menu();
  void create_report_menu();
  void create_options_menu();
  void create_status();
  void connect_runner();
  QAction* add_action(QMenu* menu, const char* text, const QKeySequence& keys,
                      const std::function<void()>& action);
  /// The same for what needs an open model.
  QAction* add_model_action(QMenu* menu, const char* text, const QKeySequence& keys,
                            const std::function<void()>& action);

  void choose_model();
  void choose_save_as();
  void show_recent();
  void note_recent(const std::filesystem::path& path);
  /// What a picture on paper says of the model and its results, as the window does.
  QStringList picture_caption() const;
  void save_picture();
  void write_document();
  void edit_file();
  void edit_sections();
  void select_failing();
  /// Saves or drops changes as the user wants. @return false when the user wants neither
  bool settle_changes();
  /// A run goes by the file. @return false when the user does not want to save changes
  bool save_for_run();
  void show_state();
  void show_selection();
  void show_check_end(const RunEnd& end);
  /// Offers what an earlier session has left.
  void offer_left_changes();
  void watch_file();
  /// Takes up a number that is still being typed.
  void take_typed();
  void file_changed();
  io::AskKeep ask_keep();

  Workspace workspace_;
  Display display_;
  Runner runner_;
  QUndoStack undo_;
  Autosave autosave_;
  toolkit::QtToolkit toolkit_;
  QStackedWidget* pages_ = nullptr;
  FrameView* view_ = nullptr;
  Overview* overview_ = nullptr;
  QMenu *recent_ = nullptr, *design_ = nullptr;
  QAction *save_ = nullptr, *cancel_ = nullptr;
  std::vector<QAction*> model_actions_;  ///< that need an open model
  std::vector<QAction*> idle_actions_;   ///< that wait for the end of a run
  QLabel *selection_ = nullptr, *state_ = nullptr;
  RunProgress* progress_ = nullptr;
  QPushButton* stop_ = nullptr;
  QFileSystemWatcher watcher_;
  ResultWatch result_watch_;
  std::filesystem::file_time_type known_time_;  ///< of the file as it was read or saved
  std::filesystem::file_time_type
      refused_time_;  ///< of the file that the user did not want to read
  bool is_asking_ = false;
  bool is_gone_ = false;  ///< the file, which the user was told
  QTimer look_again_;     ///< at a file that is gone, or that waits for a number being typed
};

}  // namespace aluframe::desktop
