// The window as a whole: its panels in step, runs, files that change, and what it remembers.

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSemaphore>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <QTreeView>
#include <fstream>
#include <memory>
#include <sstream>

#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/model_tree.h"
#include "apps/desktop/table_panel.h"
#include "apps/desktop/table_view.h"
#include "apps/desktop/text_viewer.h"
#include "tests/gui/attribute_user.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::MainWindow;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int patience = 60'000;  ///< ms

/// Answers every message box that opens, by a button.
class BoxAnswer {
 public:
  explicit BoxAnswer(QMessageBox::StandardButton button) {
    timer_.callOnTimeout([this, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !box->isVisible()) return;
      texts_.push_back(box->text().toStdString());
      if (box->button(button) == nullptr) {
        ADD_FAILURE() << "no such answer to: " << texts_.back();
        box->reject();
      } else {
        QTest::mouseClick(box->button(button), Qt::LeftButton);
      }
    });
    timer_.start(2);
  }

  bool was_asked() const { return !texts_.empty(); }
  /// What the only box said.
  std::string text() const { return texts_.size() == 1 ? texts_[0] : std::string(); }
  const std::vector<std::string>& texts() const { return texts_; }

 private:
  QTimer timer_;
  std::vector<std::string> texts_;
};

/// Holds the first run at its first progress until it is let go.
class HeldRun {
 public:
  explicit HeldRun(desktop::Runner& runner) {
    connection_ = QObject::connect(
        &runner, &desktop::Runner::progressed, &runner,
        [this] {
          is_held_ = true;
          gate_.acquire();
        },
        Qt::DirectConnection);
  }
  ~HeldRun() { let_go(); }

  bool wait() {
    return QTest::qWaitFor([this] { return is_held_.load(); }, patience);
  }
  void let_go() { gate_.release(10'000); }

 private:
  QMetaObject::Connection connection_;
  QSemaphore gate_;
  std::atomic<bool> is_held_ = false;
};

class WindowTest : public DesktopTest {
 protected:
  WindowTest() {
    QSettings().clear();
    start();
    window().open(file);
  }

  void start() {
    window_ = std::make_unique<MainWindow>();
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  MainWindow& window() { return *window_; }
  desktop::Workspace& workspace() { return window_->workspace(); }
  const model::Element& element(model::Number number) {
    return *workspace().model().elements.find(number);
  }
  /// A menu's entry by its text without accelerator.
  QAction& entry(const QString& text) {
    for (QAction* action : window_->findChildren<QAction*>()) {
      if (action->text().remove(u'&') == text) return *action;
    }
    throw std::logic_error("no entry " + text.toStdString());
  }
  QDockWidget& dock(const char* name) {
    auto& dock = *window_->findChild<QDockWidget*>(QString::fromLatin1(name));
    dock.show();
    dock.raise();
    QCoreApplication::processEvents();
    return dock;
  }
  desktop::ModelTree& tree() { return static_cast<desktop::ModelTree&>(*dock("tree").widget()); }
  desktop::TablePanel& tables() {
    return static_cast<desktop::TablePanel&>(*dock("tables").widget());
  }
  AttributeUser attributes() {
    return AttributeUser(*static_cast<QScrollArea*>(dock("attributes").widget())->widget());
  }
  std::vector<std::string> status() {
    std::vector<std::string> texts;
    for (const QLabel* label : window_->findChildren<QLabel*>()) {
      if (label->isVisible()) texts.push_back(label->text().toStdString());
    }
    return texts;
  }
  void click_in_view(model::Number number, Qt::KeyboardModifiers modifiers = {}) {
    desktop::FrameView& view = window_->view();
    const auto& line = view.content().lines[workspace().model().elements.position(number)];
    const auto pixel =
        view.camera().pixel_of(between(line.start, line.end, 0.35), view.view_size());
    QTest::mouseClick(&view, Qt::LeftButton, modifiers, QPointF(pixel->x, pixel->y).toPoint());
  }
  std::vector<model::Number> selected() {
    return {workspace().selection().begin(), workspace().selection().end()};
  }
  std::vector<model::Number> selected_in_view() {
    std::vector<model::Number> out;
    const auto& content = window_->view().content();
    for (std::size_t i = 0; i < content.lines.size(); ++i) {
      if (content.is_selected[i]) out.push_back(content.lines[i].number);
    }
    return out;
  }
  std::vector<std::string> selected_in_table() {
    std::vector<std::string> out;
    for (const QModelIndex& row : tables().view().selectionModel()->selectedRows()) {
      out.push_back(row.data().toString().toStdString());
    }
    std::ranges::sort(out);
    return out;
  }
  bool wait_for_run() {
    return QTest::qWaitFor([this] { return !workspace().is_busy(); }, patience);
  }
  void check_all() {
    entry("Check all").trigger();
    ASSERT_TRUE(wait_for_run());
  }
  /// Factors of 1.5 in place of 2.
  void edit(model::Number number = 3) {
    workspace().select({number});
    attributes().type(QStringLiteral("Effective length factors"), QStringLiteral("1.5"));
  }
  /// As another program does; every time in file systems differs.
  void change_outside(const std::string& found, const std::string& replacement) {
    std::string text = text_of_file();
    const std::size_t at = text.find(found);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, found.size(), replacement);
    const auto before = std::filesystem::last_write_time(file);
    std::ofstream(file, std::ios::binary) << text;
    std::filesystem::last_write_time(file, before + std::chrono::seconds(2));
  }
  bool title_becomes(const std::string& title) {
    return QTest::qWaitFor([&] { return workspace().model().title == title; }, 10'000);
  }
  /// Longer than the window waits after a change of the file.
  static void let_time_pass() {
    constexpr int moment = 700;
    QTest::qWait(moment);
  }

  std::unique_ptr<MainWindow> window_;
};

constexpr auto old_title = "Workshop portal with crane brackets";

TEST_F(WindowTest, ViewTreeAndTableAreInStepWhenTheViewIsClicked) {
  tables().show_table(desktop::TableKind::elements);
  click_in_view(1);
  click_in_view(14, Qt::ControlModifier);
  EXPECT_THAT(selected(), ElementsAre(1, 14));
  EXPECT_THAT(selected_in_view(), ElementsAre(1, 14));
  EXPECT_THAT(selected_in_table(), ElementsAre("1", "14"));
  EXPECT_THAT(status(), Contains("2 elements selected"));
}

TEST_F(WindowTest, ViewAndTableAreInStepWhenTheTreeIsClicked) {
  tables().show_table(desktop::TableKind::elements);
  QTreeView& view = tree().view();
  QModelIndex sections = view.model()->index(0, 0);
  for (const char* text : {"Sections", "7 Tie rod 22"}) {
    const auto found = view.model()->match(view.model()->index(0, 0, sections), Qt::DisplayRole,
                                           QString::fromLatin1(text), 1, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text;
    sections = found[0];
    view.expand(sections.parent());
  }
  view.scrollTo(sections);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(sections).center());
  EXPECT_THAT(selected_in_view(), ElementsAre(17, 18)) << "both ties";
  EXPECT_THAT(selected_in_table(), ElementsAre("17", "18"));
}

TEST_F(WindowTest, ViewIsInStepWhenTheTableIsClicked) {
  desktop::TableView& view = tables().view();
  tables().show_table(desktop::TableKind::elements);
  for (const int row : {4, 6}) {
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton,
                      row == 4 ? Qt::NoModifier : Qt::ControlModifier,
                      view.visualRect(index).center());
  }
  EXPECT_THAT(selected_in_view(), ElementsAre(5, 7));
}

TEST_F(WindowTest, AnEditOfTwoElementsIsUndoneUntilNothingIsModified) {
  workspace().select({3, 6});
  attributes().type(QStringLiteral("Effective length factors"), QStringLiteral("1.5"));
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_EQ(element(6).design.length_factors->y, 1.5);
  entry("Undo Effective length factors").trigger();
  EXPECT_EQ(element(3).design.length_factors->y, 2.0);
  EXPECT_EQ(element(6).design.length_factors->y, 2.0);
  EXPECT_FALSE(window().isWindowModified());
  entry("Redo Effective length factors").trigger();
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_EQ(element(6).design.length_factors->y, 1.5);
}

TEST_F(WindowTest, UndoLeadsBackToWhatWasSaved) {
  edit();
  ASSERT_TRUE(window().save());
  EXPECT_FALSE(window().isWindowModified());
  entry("Undo Effective length factors").trigger();
  EXPECT_TRUE(window().isWindowModified()) << "the file has 1.5";
  entry("Redo Effective length factors").trigger();
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(WindowTest, TheHotKeyChecksAllElements) {
  EXPECT_THAT(status(), Contains("not checked yet"));
  QTest::keyClick(&window(), Qt::Key_F9);
  EXPECT_TRUE(workspace().is_busy());
  ASSERT_TRUE(wait_for_run());
  ASSERT_NE(workspace().results(), nullptr);
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
  EXPECT_EQ(window().display().state().colour, desktop::Colour::worst_ratio);
  EXPECT_THAT(status(), Contains("1 element fails"));
  const auto& looks = window().view().content().looks;
  const auto place = [&](model::Number number) {
    return workspace().model().elements.position(number);
  };
  EXPECT_NE(looks[place(3)].colour, looks[place(1)].colour) << "bracket 3 fails";
  entry("Select what fails").trigger();
  EXPECT_THAT(selected(), ElementsAre(3));
}

TEST_F(WindowTest, ChecksTheSelectionAfterAskingWhenAllHaveResults) {
  check_all();
  workspace().select({3, 7});
  {
    const BoxAnswer no(QMessageBox::No);
    entry("Check selected").trigger();
    EXPECT_TRUE(no.was_asked());
    EXPECT_FALSE(workspace().is_busy());
  }
  const BoxAnswer yes(QMessageBox::Yes);
  entry("Check selected").trigger();
  ASSERT_TRUE(wait_for_run());
  EXPECT_EQ(workspace().results()->elements.size(), 2U);
}

TEST_F(WindowTest, WhileARunGoesOnNothingElseOfTheDesignStarts) {
  HeldRun held(window().runner());
  entry("Check all").trigger();
  ASSERT_TRUE(held.wait());
  for (const char* text : {"Check all", "Check selected", "Design code...", "Materials...",
                           "Calculation report", "Save as...", "Reload"}) {
    EXPECT_FALSE(entry(QString::fromLatin1(text)).isEnabled()) << text;
  }
  EXPECT_TRUE(entry("Cancel the run").isEnabled());
  window().check(false);
  window().open_settings(services::SettingsDialog::code);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  held.let_go();
  ASSERT_TRUE(wait_for_run());
  EXPECT_FALSE(entry("Cancel the run").isEnabled());
  EXPECT_TRUE(entry("Check all").isEnabled());
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
}

TEST_F(WindowTest, NoRunStartsWhileADialogIsOpen) {
  with_user(
      [this] {
        window().open_settings(services::SettingsDialog::code);
        return 0;
      },
      [this](DialogUser&) {
        EXPECT_FALSE(entry("Check all").isEnabled());
        window().check(false);
        EXPECT_FALSE(window().runner().is_running());
      });
  EXPECT_TRUE(entry("Check all").isEnabled());
}

TEST_F(WindowTest, ARunCanBeCancelledInTheMiddleAndLeavesEarlierResults) {
  check_all();
  const auto results = run::result_path_of(file);
  const auto before = std::filesystem::last_write_time(results);
  HeldRun held(window().runner());
  entry("Check all").trigger();
  ASSERT_TRUE(held.wait());
  QPushButton* cancel = nullptr;
  for (auto* button : window().findChildren<QPushButton*>()) {
    if (button->text() == u"Cancel" && button->isVisible()) cancel = button;
  }
  ASSERT_NE(cancel, nullptr);
  QTest::mouseClick(cancel, Qt::LeftButton);
  held.let_go();
  ASSERT_TRUE(wait_for_run());
  EXPECT_EQ(std::filesystem::last_write_time(results), before);
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
  EXPECT_FALSE(cancel->isVisible());
  // They are of the run before the one that was cancelled.
  EXPECT_THAT(status(), Contains("1 element fails, by earlier results"));
}

TEST_F(WindowTest, ClosingWhileARunGoesOnCancelsItAndLeavesNothingHalf) {
  auto held = std::make_unique<HeldRun>(window().runner());
  entry("Check all").trigger();
  ASSERT_TRUE(held->wait());
  EXPECT_TRUE(window().close());
  // The window waits for the run, which goes on when it is to be cancelled already.
  QMetaObject::invokeMethod(qApp, [&] { held->let_go(); }, Qt::QueuedConnection);
  window_.reset();
  EXPECT_FALSE(std::filesystem::exists(run::result_path_of(file)));
}

TEST_F(WindowTest, CheckingWithChangesAsksToSaveThem) {
  edit();
  {
    const BoxAnswer cancel(QMessageBox::Cancel);
    entry("Check all").trigger();
    EXPECT_TRUE(cancel.was_asked());
    EXPECT_FALSE(workspace().is_busy());
    EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 2.0);
    EXPECT_TRUE(window().isWindowModified());
  }
  const BoxAnswer save(QMessageBox::Save);
  entry("Check all").trigger();
  EXPECT_TRUE(save.was_asked());
  ASSERT_TRUE(wait_for_run());
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  ASSERT_NE(workspace().results(), nullptr);
  EXPECT_TRUE(workspace().results()->cautions.empty()) << "of the model as it is";
}

TEST_F(WindowTest, ResultsOfAnotherStateSaySo) {
  check_all();
  edit();
  EXPECT_THAT(status(), Contains("1 element fails, by earlier results"));
  entry("Undo Effective length factors").trigger();
  EXPECT_THAT(status(), Contains("1 element fails"));
}

TEST_F(WindowTest, TheReportOpensInAWindowWhereTextIsFound) {
  check_all();
  entry("Calculation report").trigger();
  ASSERT_TRUE(wait_for_run());
  QDialog* viewer = nullptr;
  for (auto* dialog : window().findChildren<QDialog*>()) {
    if (dialog->windowTitle() == u"Calculation report") viewer = dialog;
  }
  ASSERT_NE(viewer, nullptr);
  EXPECT_TRUE(viewer->isVisible());
  auto* text = viewer->findChild<QPlainTextEdit*>();
  EXPECT_THAT(text->toPlainText().toStdString(), HasSubstr("Aluminum Alloy Code Checking"));
  auto* find = viewer->findChild<QLineEdit*>();
  QTest::keyClicks(find, QStringLiteral("Code Checking"));
  QTest::keyClick(find, Qt::Key_Return);
  EXPECT_EQ(text->textCursor().selectedText(), u"Code Checking");
  EXPECT_TRUE(viewer->isVisible()) << "Enter looks, and closes nothing";
  find->clear();
  QTest::keyClicks(find, QStringLiteral("no such words"));
  QTest::keyClick(find, Qt::Key_Return);
  EXPECT_EQ(text->textCursor().selectedText(), u"Code Checking") << "stays where it was";
  bool is_told = false;
  for (const QLabel* label : viewer->findChildren<QLabel*>()) {
    is_told = is_told || label->text() == u"not found";
  }
  EXPECT_TRUE(is_told);
}

// The report checks what has no results yet, and keeps them.
TEST_F(WindowTest, AReportBeforeAnyCheckShowsItsResultsToo) {
  entry("Calculation report").trigger();
  ASSERT_TRUE(wait_for_run());
  ASSERT_NE(workspace().results(), nullptr);
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
  EXPECT_THAT(status(), Contains("1 element fails"));
}

TEST_F(WindowTest, SavesUnderAnotherNameAndGoesOnWithThatFile) {
  const std::string before = text_of_file();
  edit();
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  EXPECT_TRUE(window().save_as(other));
  EXPECT_EQ(text_of_file(), before);
  EXPECT_EQ(window().windowTitle(), "other.json[*] - AluFrame");
  EXPECT_FALSE(window().isWindowModified());
  auto read = io::read_model(other);
  EXPECT_EQ(std::get<model::Model>(read).elements.find(3)->design.length_factors->y, 1.5);
}

TEST_F(WindowTest, AFailedSaveUnderAnotherNameIsToldAndChangesNothing) {
  edit();
  const std::filesystem::path other = folder.filePath("no/such/folder.json").toStdString();
  const BoxAnswer told(QMessageBox::Ok);
  EXPECT_FALSE(window().save_as(other));
  EXPECT_THAT(told.text(), HasSubstr(other.string()));
  EXPECT_EQ(window().document()->path(), file);
  EXPECT_TRUE(window().isWindowModified());
}

/// How many files of changes the program keeps.
std::size_t kept_files() {
  const std::filesystem::path kept =
      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString() + "/autosave";
  if (!std::filesystem::exists(kept)) return 0;
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(kept), {}));
}

TEST_F(WindowTest, ASaveUnderAnotherNameLeavesNoEarlierChangesOfTheFirst) {
  const std::size_t before = kept_files();
  edit();
  ASSERT_TRUE(QTest::qWaitFor([&] { return kept_files() == before + 1; }, patience));
  EXPECT_TRUE(window().save_as(folder.filePath("other.json").toStdString()));
  EXPECT_EQ(kept_files(), before);
}

TEST_F(WindowTest, ResultsThatCannotBeWrittenAreTold) {
  std::filesystem::create_directory(run::result_path_of(file));
  BoxAnswer told(QMessageBox::Ok);
  entry("Check all").trigger();
  ASSERT_TRUE(wait_for_run());
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.was_asked(); }, patience));
  EXPECT_THAT(told.text(), HasSubstr(run::result_path_of(file).string()));
  EXPECT_TRUE(entry("Check all").isEnabled());
}

TEST_F(WindowTest, ReadsTheFileAgainWhenAnotherProgramChangesIt) {
  workspace().select({3});
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_THAT(selected(), ElementsAre(3));
  change_outside("New title", "Newer title");
  EXPECT_TRUE(title_becomes("Newer title")) << "more than once";
}

TEST_F(WindowTest, ReadsTheFileAgainWhenItIsReplaced) {
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  std::filesystem::rename(other, file);
  EXPECT_TRUE(title_becomes(old_title));
}

TEST_F(WindowTest, AFileThatBecameNoModelIsToldAndTheModelStays) {
  BoxAnswer told(QMessageBox::Ok);
  change_outside("{", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.was_asked(); }, 10'000));
  EXPECT_THAT(told.text(), HasSubstr("portal.json"));
  EXPECT_EQ(workspace().model().title, old_title);
}

TEST_F(WindowTest, AsksBeforeItLosesChangesToAnotherProgram) {
  edit();
  BoxAnswer yes(QMessageBox::Yes);
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_TRUE(yes.was_asked());
  EXPECT_EQ(element(3).design.length_factors->y, 2.0);
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_FALSE(entry("Undo").isEnabled());
}

TEST_F(WindowTest, ChangesThatAreLostToAnotherProgramAreNotOfferedAgain) {
  const std::size_t before = kept_files();
  edit();
  ASSERT_TRUE(QTest::qWaitFor([&] { return kept_files() == before + 1; }, patience));
  BoxAnswer yes(QMessageBox::Yes);
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_THAT(yes.texts(), ElementsAre(HasSubstr("lose your changes")));
  EXPECT_EQ(kept_files(), before);
}

TEST_F(WindowTest, ChangesMayBeKeptWhenAnotherProgramChangedTheFile) {
  edit();
  {
    BoxAnswer no(QMessageBox::No);
    change_outside(old_title, "New title");
    EXPECT_TRUE(QTest::qWaitFor([&] { return no.was_asked(); }, 10'000));
  }
  let_time_pass();
  EXPECT_EQ(workspace().model().title, old_title);
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  // Both changes get into the file, and the window shows what the file has.
  EXPECT_TRUE(window().save());
  EXPECT_EQ(model_of_file().title, "New title");
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_EQ(workspace().model().title, "New title");
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(WindowTest, AFileThatChangesDuringARunIsReadAfterIt) {
  HeldRun held(window().runner());
  entry("Check all").trigger();
  ASSERT_TRUE(held.wait());
  change_outside(old_title, "New title");
  let_time_pass();
  EXPECT_EQ(workspace().model().title, old_title);
  held.let_go();
  ASSERT_TRUE(wait_for_run());
  EXPECT_TRUE(title_becomes("New title"));
}

TEST_F(WindowTest, ItsOwnSavesAreNoChangesOfAnotherProgram) {
  std::vector<std::string> told;
  QObject::connect(&workspace(), &desktop::Workspace::told, &window(),
                   [&](const QString& line) { told.push_back(line.toStdString()); });
  edit();
  EXPECT_TRUE(window().save());
  let_time_pass();
  edit(6);
  EXPECT_TRUE(window().save());
  let_time_pass();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_TRUE(entry("Undo Effective length factors").isEnabled()) << "nothing was read again";
}

TEST_F(WindowTest, RemembersRecentFiles) {
  const std::filesystem::path other = folder.filePath("R&D frame.json").toStdString();
  std::filesystem::copy_file(file, other);
  window().open(other);
  auto* recent = entry("Open recent").menu();
  Q_EMIT recent->aboutToShow();
  ASSERT_EQ(recent->actions().size(), 2);
  EXPECT_EQ(recent->actions()[0]->text().replace(QStringLiteral("&&"), QStringLiteral("&")),
            QString::fromStdString(other.string()));
  EXPECT_TRUE(recent->actions()[0]->text().contains(u"R&&D")) << "an & that is shown";
  recent->actions()[1]->trigger();
  EXPECT_EQ(window().document()->path(), file);
  Q_EMIT recent->aboutToShow();
  EXPECT_EQ(recent->actions()[0]->text(), QString::fromStdString(file.string()));
  EXPECT_EQ(recent->actions().size(), 2) << "each once";
}

TEST_F(WindowTest, ARecentFileThatIsGoneIsTold) {
  auto* recent = entry("Open recent").menu();
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  window().open(other);
  std::filesystem::remove(other);
  window().open(file);
  Q_EMIT recent->aboutToShow();
  const BoxAnswer told(QMessageBox::Ok);
  recent->actions()[1]->trigger();
  EXPECT_THAT(told.text(), HasSubstr(other.string()));
  EXPECT_EQ(window().document()->path(), file);
}

TEST_F(WindowTest, HidesIsolatesAndShowsFromTheMenu) {
  workspace().select({1, 2});
  entry("Hide selected").trigger();
  EXPECT_EQ(workspace().hidden_count(), 2U);
  EXPECT_THAT(selected(), IsEmpty());
  entry("Select all").trigger();
  EXPECT_EQ(selected().size(), 29U) << "what is shown";
  workspace().select({3});
  entry("Isolate selected").trigger();
  EXPECT_EQ(workspace().hidden_count(), 30U);
  entry("Show all").trigger();
  EXPECT_EQ(workspace().hidden_count(), 0U);
  entry("Select nothing").trigger();
  EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(WindowTest, TheLanguageIsRememberedForTheNextStart) {
  const BoxAnswer told(QMessageBox::Ok);
  entry(QString::fromUtf8("中文")).trigger();
  EXPECT_THAT(told.text(), HasSubstr("started again"));
  EXPECT_EQ(QSettings().value(QStringLiteral("language")).toString(), u"zh");
}

TEST_F(WindowTest, TheLayoutIsRemembered) {
  window().resize(1180, 790);
  dock("display").hide();
  window().addDockWidget(Qt::LeftDockWidgetArea, &dock("history"));
  EXPECT_TRUE(window().close());
  start();
  EXPECT_EQ(window().size(), QSize(1180, 790));
  auto* display = window().findChild<QDockWidget*>(QStringLiteral("display"));
  EXPECT_TRUE(display->isHidden());
  auto* history = window().findChild<QDockWidget*>(QStringLiteral("history"));
  EXPECT_EQ(window().dockWidgetArea(history), Qt::LeftDockWidgetArea);
}

TEST_F(WindowTest, AModelWithoutACheckIsShownAfterOneWithResults) {
  check_all();
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  window().open(other);
  EXPECT_THAT(status(), Contains("not checked yet"));
  EXPECT_THAT(status(), Not(Contains(HasSubstr("element fails"))));
}

}  // namespace
}  // namespace gui_test
