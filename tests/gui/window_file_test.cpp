// The window's file: saved under another name, changed by another program, opened again.

#include <QMenu>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThreadPool>
#include <fstream>
#include <sstream>

#include "apps/desktop/history_panel.h"
#include "apps/desktop/picture_file.h"
#include "apps/desktop/text_viewer.h"
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

TEST_F(WindowTest, ANumberThatIsStillBeingTypedIsSaved) {
  start_typing(QStringLiteral("1.5"));
  EXPECT_TRUE(window().isWindowModified());
  ASSERT_TRUE(entry("Save").isEnabled());
  entry("Save").trigger();
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_FALSE(entry("Save").isEnabled());
}

TEST_F(WindowTest, ANumberThatIsStillBeingTypedIsAskedAboutBeforeTheWindowCloses) {
  start_typing(QStringLiteral("1.5"));
  const BoxAnswer answer(QMessageBox::Save);
  EXPECT_TRUE(window().close());
  EXPECT_TRUE(answer.was_asked());
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
}

TEST_F(WindowTest, ACheckGoesByANumberThatIsStillBeingTyped) {
  start_typing(QStringLiteral("1.5"));
  const BoxAnswer answer(QMessageBox::Save);
  check_all();
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_TRUE(workspace().results()->cautions.empty());
}

TEST_F(WindowTest, ATypedNumberThatIsNoneIsNoChange) {
  const std::string before = text_of_file();
  start_typing(QStringLiteral("-"));
  entry("Save").trigger();
  EXPECT_EQ(text_of_file(), before);
  EXPECT_FALSE(window().isWindowModified());
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

// What the window writes beside the model never takes the place of models and results.
TEST_F(WindowTest, NothingIsWrittenOverModelsAndResults) {
  check_all();
  const std::filesystem::path other = folder.filePath("other.txt").toStdString();
  std::filesystem::copy_file(file, other);
  desktop::TextViewer viewer(&window(), QStringLiteral("Report"), QStringLiteral("text"), {});
  desktop::HistoryPanel history(workspace());
  for (const std::filesystem::path& path : {file, other, run::result_path_of(file)}) {
    const std::uintmax_t size = std::filesystem::file_size(path);
    BoxAnswer told(QMessageBox::Ok);
    EXPECT_FALSE(viewer.save_as(path));
    EXPECT_FALSE(history.save_as(path));
    EXPECT_THAT(told.texts(), testing::Each(HasSubstr("would overwrite")));
    EXPECT_EQ(told.texts().size(), 2);
    EXPECT_EQ(std::filesystem::file_size(path), size);
  }
  const std::filesystem::path text = folder.filePath("report.txt").toStdString();
  EXPECT_TRUE(viewer.save_as(text));
  EXPECT_TRUE(viewer.save_as(text)) << "over an earlier one";
  std::ifstream stream(text);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "text");
}

TEST(PictureFile, HasItsCaptionBelow) {
  QImage picture(300, 20, QImage::Format_RGB32);
  picture.fill(QColor(10, 200, 30));
  const auto dark = [](const QImage& image) {
    int count = 0;
    for (int y = 20; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    return count;
  };
  const QImage one = desktop::captioned(picture, {QStringLiteral("1 element fails")});
  EXPECT_EQ(one.copy(0, 0, 300, 20), picture.convertToFormat(one.format()));
  EXPECT_EQ(one.width(), 300);
  EXPECT_GT(dark(one), 20);
  const QImage wrapped = desktop::captioned(
      picture, {QStringLiteral("1 element fails"), QStringLiteral("combination ").repeated(20)});
  EXPECT_GT(wrapped.height(), one.height() + 2 * QFontMetrics(QApplication::font()).height());
  EXPECT_GT(dark(wrapped), 2 * dark(one));
}

TEST(PictureFile, IsWrittenWholeOrNotAtAll) {
  const QTemporaryDir folder;
  const auto path = [&](const char* name) {
    return std::filesystem::path(folder.filePath(QString::fromUtf8(name)).toStdString());
  };
  QImage picture(3, 2, QImage::Format_RGB32);
  picture.fill(QColor(10, 200, 30));
  for (const char* name : {"a.png", "b.jpg", "c.JPEG"}) {
    EXPECT_EQ(desktop::write_picture_file(picture, path(name)), std::nullopt);
    EXPECT_EQ(QImage(folder.filePath(QString::fromUtf8(name))).size(), QSize(3, 2)) << name;
  }
  EXPECT_EQ(QImage(folder.filePath(QStringLiteral("a.png"))).pixelColor(1, 1),
            picture.pixelColor(1, 1));
  for (const char* name : {"notes.doc", "plain", "d.svg"}) {
    std::ofstream(path(name)) << "mine";
    EXPECT_EQ(desktop::write_picture_file(picture, path(name)),
              path(name).string() + ": the extension of a picture must be .png or .jpg");
    EXPECT_EQ(std::filesystem::file_size(path(name)), 4);
  }
  std::ofstream(path("model.png")) << R"({"format": "aluframe-model"})";
  EXPECT_THAT(desktop::write_picture_file(picture, path("model.png")).value_or(""),
              HasSubstr("would overwrite"));
  EXPECT_THAT(desktop::write_picture_file(QImage(), path("e.png")).value_or(""),
              HasSubstr(path("e.png").string()));
  EXPECT_FALSE(std::filesystem::exists(path("e.png")));
  EXPECT_THAT(desktop::write_picture_file(picture, path("no/such.png")).value_or(""),
              HasSubstr(path("no/such.png").string()));
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
  EXPECT_THAT(status(), Contains("1 element fails; results of 1 of 31 elements; buckling unknown"));
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

TEST_F(WindowTest, AFileThatIsGoneIsToldOnceAndReadWhenItIsBack) {
  std::vector<std::string> told;
  QObject::connect(&workspace(), &desktop::Workspace::told, &window(),
                   [&](const QString& line) { told.push_back(line.toStdString()); });
  const std::filesystem::path kept = folder.filePath("kept.json").toStdString();
  std::filesystem::rename(file, kept);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }, patience));
  const int second_look = 1500;
  QTest::qWait(second_look);
  EXPECT_THAT(told, ElementsAre(file.string() +
                                ": is gone; the window keeps what it held, and saving writes it "
                                "again"));
  std::filesystem::rename(kept, file);
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
}

TEST_F(WindowTest, ChangesOfAFileThatIsGoneAreSaved) {
  std::string expected = text_of_file();
  const std::string factors = R"("length_factors": {"y": 2.0, "z": 2.0})";
  expected.replace(expected.find(factors), factors.size(),
                   R"("length_factors": {"y": 1.5, "z": 2})");
  std::filesystem::remove(file);
  edit();
  EXPECT_TRUE(window().save());
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(text_of_file(), expected);
}

TEST_F(WindowTest, AFileThatIsGoneIsSavedUnderAnotherName) {
  const std::string before = text_of_file();
  std::filesystem::remove(file);
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  EXPECT_TRUE(window().save_as(other));
  std::ifstream stream(other);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), before);
  EXPECT_EQ(window().document()->path(), other);
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

TEST_F(WindowTest, ChangesStayWhenAnotherProgramChangesTheFile) {
  std::vector<std::string> told;
  QObject::connect(&workspace(), &desktop::Workspace::told, &window(),
                   [&](const QString& line) { told.push_back(line.toStdString()); });
  edit();
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_THAT(told, ElementsAre(HasSubstr("changed by another program, read again; your changes")));
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  EXPECT_TRUE(window().isWindowModified());
  entry("Undo earlier changes").trigger();
  EXPECT_EQ(element(3).design.length_factors->y, 2.0);
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(workspace().model().title, "New title");
}

TEST_F(WindowTest, ChangesThatStayAreSavedWithThoseOfTheOtherProgram) {
  edit();
  change_outside(old_title, "New title");
  change_outside("\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_TRUE(window().save());
  EXPECT_EQ(model_of_file().title, "New title");
  EXPECT_EQ(model_of_file().design->strength_ratio, 0.8);
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(WindowTest, ChangesThatStayAreKeptForASessionAfterACrash) {
  const std::size_t before = kept_files();
  edit();
  change_outside(old_title, "New title");
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return kept_files() == before + 1; }, patience));
}

// The window may not have seen yet what is in the file.
TEST_F(WindowTest, SavingKeepsWhatAnotherProgramHasJustChanged) {
  edit();
  change_outside("\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
  EXPECT_TRUE(window().save());
  EXPECT_EQ(model_of_file().design->strength_ratio, 0.8);
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_EQ(workspace().model().design->strength_ratio, 0.8);
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(WindowTest, SavingUnderAnotherNameKeepsWhatAnotherProgramHasJustChanged) {
  edit();
  change_outside("\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
  const std::filesystem::path other = folder.filePath("other.json").toStdString();
  EXPECT_TRUE(window().save_as(other));
  auto read = io::read_model(other);
  EXPECT_EQ(std::get<model::Model>(read).design->strength_ratio, 0.8);
  EXPECT_EQ(std::get<model::Model>(read).elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_EQ(workspace().model().design->strength_ratio, 0.8);
}

constexpr auto their_factors = R"("length_factors": {"y": 1.8, "z": 2.0})";
constexpr auto first_factors = R"("length_factors": {"y": 2.0, "z": 2.0})";

class WindowConflictTest : public WindowTest,
                           public testing::WithParamInterface<QMessageBox::StandardButton> {};

INSTANTIATE_TEST_SUITE_P(MineAndTheirs, WindowConflictTest,
                         testing::Values(QMessageBox::Yes, QMessageBox::No));

TEST_P(WindowConflictTest, AsksWhoseValueStaysWhereBothHaveChangedIt) {
  edit();
  const BoxAnswer answer(GetParam());
  change_outside(old_title, "New title");
  change_outside(first_factors, their_factors);
  EXPECT_TRUE(title_becomes("New title"));
  EXPECT_THAT(answer.text(), HasSubstr("/elements/2/design/length_factors/y: 2 when it was "
                                       "opened, 1.5 here, 1.8 in the file"));
  const bool is_mine = GetParam() == QMessageBox::Yes;
  EXPECT_EQ(element(3).design.length_factors->y, is_mine ? 1.5 : 1.8);
  EXPECT_EQ(window().isWindowModified(), is_mine);
}

TEST_F(WindowTest, AUserWhoWantsNeitherKeepsTheWindowAndIsAskedWhenSaving) {
  edit();
  {
    const BoxAnswer cancel(QMessageBox::Cancel);
    change_outside(first_factors, their_factors);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cancel.was_asked(); }, 10'000));
    let_time_pass();
    EXPECT_EQ(cancel.texts().size(), 1) << "asked once";
    EXPECT_FALSE(window().save());
    EXPECT_EQ(cancel.texts().size(), 2);
  }
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.8);
  EXPECT_TRUE(window().isWindowModified());
  const BoxAnswer mine(QMessageBox::Yes);
  EXPECT_TRUE(window().save());
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
}

TEST_F(WindowTest, ANumberThatIsBeingTypedIsNotLostToAnotherProgram) {
  start_typing(QStringLiteral("1.5"));
  change_outside(old_title, "New title");
  let_time_pass();
  EXPECT_EQ(workspace().model().title, old_title);
  EXPECT_TRUE(window().save());
  EXPECT_EQ(model_of_file().elements.find(3)->design.length_factors->y, 1.5);
  EXPECT_EQ(workspace().model().title, "New title");
}

TEST_F(WindowTest, ChangesStayWhenTheFileBecomesNoModel) {
  edit();
  BoxAnswer told(QMessageBox::Ok);
  change_outside("{", "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.was_asked(); }, 10'000));
  EXPECT_THAT(told.text(), HasSubstr("portal.json"));
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  EXPECT_TRUE(window().isWindowModified());
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
