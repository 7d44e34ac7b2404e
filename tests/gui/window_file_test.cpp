// The window's file: saved under another name, changed by another program, opened again.

#include <QMenu>
#include <QStandardPaths>
#include <QThreadPool>
#include <fstream>
#include <sstream>

#include "tests/gui/window_fixture.h"

namespace gui_test {
namespace {

using namespace aluframe;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

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

// Results are not to be lost to a model, and a model cannot have its results' name.
TEST_F(WindowTest, AModelIsNeverSavedOverResults) {
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  std::filesystem::copy_file(file, other);
  for (const auto& results : {run::result_path_of(other), run::result_path_of(file),
                              std::filesystem::path(folder.filePath("renamed").toStdString())}) {
    check_all();
    if (results != run::result_path_of(file)) {
      std::filesystem::copy_file(run::result_path_of(file), results);
    }
    const auto size = std::filesystem::file_size(results);
    const BoxAnswer told(QMessageBox::Ok);
    EXPECT_FALSE(window().save_as(results));
    EXPECT_THAT(told.text(), HasSubstr(results.string()));
    EXPECT_EQ(std::filesystem::file_size(results), size);
    EXPECT_EQ(window().document()->path(), file);
  }
}

TEST_F(WindowTest, AModelWithoutResultsIsNotSavedUnderTheirName) {
  const BoxAnswer told(QMessageBox::Ok);
  EXPECT_FALSE(window().save_as(run::result_path_of(file)));
  EXPECT_THAT(told.text(), HasSubstr("is the name of a result file"));
  EXPECT_FALSE(std::filesystem::exists(run::result_path_of(file)));
}

run::Selection three() {
  run::Selection selection;
  selection.elements = model::NumberRanges({{3, 3}});
  return selection;
}

TEST_F(WindowTest, ShowsTheResultsThatAnotherProgramStores) {
  check_all();
  const auto shown = [this] { return workspace().results(); };
  const auto prepared = run::prepare({.model = file}, three());
  run::CheckOptions options;
  options.results = run::result_path_of(file);
  run::check(std::get<run::Input>(prepared), options);
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown() != nullptr && shown()->elements.size() == 1; },
                              patience));
  EXPECT_THAT(status(), Contains("1 element fails; results of 1 of 31 elements"));
}

TEST_F(WindowTest, ResultsThatAreGoneAreShownNoMore) {
  check_all();
  std::filesystem::remove(run::result_path_of(file));
  EXPECT_TRUE(QTest::qWaitFor([&] { return workspace().results() == nullptr; }, patience));
  EXPECT_THAT(status(), Contains("not checked yet"));
}

TEST_F(WindowTest, ResultsThatAreBrokenOutsideAreToldAndTheNextOnesShown) {
  check_all();
  const std::filesystem::path kept = folder.filePath("kept").toStdString();
  std::filesystem::copy_file(run::result_path_of(file), kept);
  std::ofstream(run::result_path_of(file)) << "no results";
  EXPECT_TRUE(QTest::qWaitFor([&] { return workspace().results() == nullptr; }, patience));
  EXPECT_THAT(workspace().results_problem(), HasSubstr("is not a result file"));
  std::filesystem::rename(kept, run::result_path_of(file));
  EXPECT_TRUE(QTest::qWaitFor([&] { return workspace().results() != nullptr; }, patience));
  EXPECT_EQ(workspace().results_problem(), "");
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

}  // namespace
}  // namespace gui_test
