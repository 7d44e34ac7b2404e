// Runs of the window: checks and reports, what they refuse and what they leave.

#include <QPlainTextEdit>

#include "apps/desktop/text_viewer.h"
#include "tests/gui/window_fixture.h"

namespace gui_test {
namespace {

using namespace aluframe;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(WindowTest, TheHotKeyChecksAllElements) {
  EXPECT_THAT(status(), Contains("not checked yet"));
  QTest::keyClick(&window(), Qt::Key_F9);
  EXPECT_TRUE(workspace().is_busy());
  ASSERT_TRUE(wait_for_run());
  ASSERT_NE(workspace().results(), nullptr);
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
  EXPECT_EQ(window().display().state().colour, desktop::Colour::worst_ratio);
  EXPECT_THAT(status(), Contains("1 element fails; 8 more by their safe ratios; buckling unknown"));
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
  EXPECT_THAT(status(),
              Contains("1 element fails; 8 more by their safe ratios; buckling unknown, by earlier results"));
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
  EXPECT_THAT(status(),
              Contains("1 element fails; 8 more by their safe ratios; buckling unknown, by earlier results"));
  entry("Undo Effective length factors").trigger();
  EXPECT_THAT(status(), Contains("1 element fails; 8 more by their safe ratios; buckling unknown"));
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
  EXPECT_FALSE(entry("Cancel the run").isEnabled()) << "a report goes on to its end";
  ASSERT_TRUE(wait_for_run());
  ASSERT_NE(workspace().results(), nullptr);
  EXPECT_EQ(workspace().results()->elements.size(), 31U);
  EXPECT_THAT(status(), Contains("1 element fails; 8 more by their safe ratios; buckling unknown"));
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

}  // namespace
}  // namespace gui_test
