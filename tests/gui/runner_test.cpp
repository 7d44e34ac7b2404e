// Checks and reports beside a window that stays alive.

#include "apps/desktop/runner.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <fstream>

#include "apps/desktop/model_document.h"
#include "apps/desktop/workspace.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::RunEnd;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int patience = 60'000;  ///< ms

class RunnerTest : public DesktopTest {
 protected:
  RunnerTest() : runner(workspace) {
    auto opened = desktop::ModelDocument::open(file);
    workspace.show_document(std::get<desktop::ModelDocument>(std::move(opened)));
    QObject::connect(&runner, &desktop::Runner::check_ended, &runner,
                     [this](const RunEnd& its) { end = its; });
    QObject::connect(&runner, &desktop::Runner::report_ended, &runner,
                     [this](const RunEnd& its, const QString& text, const QString& model) {
                       end = its;
                       report = text.toStdString();
                       reported = model.toStdString();
                     });
    QObject::connect(&runner, &desktop::Runner::document_ended, &runner,
                     [this](const RunEnd& its, const QString&) { end = its; });
  }

  void wait() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !runner.is_running(); }, patience));
  }
  std::filesystem::path results() const { return run::result_path_of(file); }

  desktop::Workspace workspace;
  desktop::Runner runner;
  RunEnd end;
  std::string report, reported;
};

TEST_F(RunnerTest, ChecksAllElementsAndShowsTheirResults) {
  EXPECT_EQ(workspace.results(), nullptr);
  runner.check({});
  EXPECT_TRUE(workspace.is_busy());
  wait();
  EXPECT_FALSE(workspace.is_busy());
  EXPECT_EQ(end.kind, RunEnd::Kind::over_limit);
  ASSERT_NE(workspace.results(), nullptr);
  EXPECT_TRUE(workspace.results()->coverage.is_whole());
  EXPECT_EQ(workspace.results()->told.over, 1U);
  EXPECT_TRUE(workspace.results()->cautions.empty());
}

// The run goes on only after the window's thread has had its turns.
TEST_F(RunnerTest, TheWindowStaysAliveMeanwhile) {
  std::atomic<int> beats = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++beats; });
  timer.start(1);
  QObject::connect(
      &runner, &desktop::Runner::progressed, &runner,
      [&] {
        const int before = beats;
        for (int i = 0; i < patience && beats < before + 2; ++i) QThread::msleep(1);
        EXPECT_GE(beats, before + 2);
      },
      Qt::DirectConnection);
  runner.check({3});
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::over_limit);
}

TEST_F(RunnerTest, ChecksWhatIsSelectedAlone) {
  runner.check({3, 7});
  wait();
  ASSERT_NE(workspace.results(), nullptr);
  EXPECT_EQ(workspace.results()->elements.size(), 2U);
  EXPECT_FALSE(workspace.results()->coverage.is_whole());
}

TEST_F(RunnerTest, ACancelledCheckLeavesEarlierResults) {
  runner.check({3});
  wait();
  const auto before = std::filesystem::last_write_time(results());
  QObject::connect(
      &runner, &desktop::Runner::progressed, &runner, [this] { runner.cancel(); },
      Qt::DirectConnection);
  runner.check({});
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::cancelled);
  EXPECT_EQ(std::filesystem::last_write_time(results()), before);
  ASSERT_NE(workspace.results(), nullptr);
  EXPECT_EQ(workspace.results()->elements.size(), 1U);
}

TEST_F(RunnerTest, AModelThatCannotBeAnalysedIsTold) {
  std::string text = text_of_file();
  const std::size_t supports = text.find("\"supports\"");
  text.insert(supports, "\"supports_\": 1, ");
  std::ofstream(file, std::ios::binary) << text;
  runner.check({});
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::failed);
  EXPECT_THAT(end.text, HasSubstr("supports_"));
  EXPECT_FALSE(std::filesystem::exists(results()));
}

TEST_F(RunnerTest, AFolderThatTakesNoFileIsTold) {
  // Also for who may write everywhere: a folder stands where the results belong.
  std::filesystem::create_directory(results());
  runner.check({});
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::failed);
  EXPECT_THAT(end.text, HasSubstr(results().string()));
  EXPECT_TRUE(std::filesystem::is_directory(results()));
}

// The viewer offers to save it beside the model that it is of.
TEST_F(RunnerTest, AReportNamesItsModelWhenAnotherIsOpenedMeanwhile) {
  runner.make_report({model::ForceUnit::newton, model::LengthUnit::millimetre});
  auto other = desktop::ModelDocument::open(EXAMPLE_MODEL);
  workspace.show_document(std::get<desktop::ModelDocument>(std::move(other)));
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::done) << end.text;
  EXPECT_EQ(reported, file.string());
}

TEST_F(RunnerTest, AReportCannotBeCancelledAndDoesNotOfferIt) {
  runner.make_report({model::ForceUnit::newton, model::LengthUnit::millimetre});
  EXPECT_TRUE(runner.is_running());
  EXPECT_FALSE(runner.can_be_cancelled());
  wait();
  runner.check({});
  EXPECT_TRUE(runner.can_be_cancelled());
  wait();
  EXPECT_FALSE(runner.can_be_cancelled());
}

TEST_F(RunnerTest, MakesTheReportInMemory) {
  runner.check({});
  wait();
  runner.make_report({model::ForceUnit::newton, model::LengthUnit::millimetre});
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::done) << end.text;
  EXPECT_NE(report.find("Aluminum Alloy Code Checking"), std::string::npos);
  EXPECT_GT(report.size(), 10'000U);
  // What the report leaves out stands behind it, as in the copy of the command line.
  EXPECT_NE(report.find("Second opinion"), std::string::npos);
  EXPECT_NE(report.find("not checked"), std::string::npos);
  EXPECT_TRUE(report.ends_with("\nComplete: report of 31 elements\n"));
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
    files.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(files, testing::UnorderedElementsAre("portal.json", "portal.aluresult"));
}

TEST_F(RunnerTest, WritesTheDocument) {
  runner.check({});
  wait();
  const std::filesystem::path html = file.parent_path() / "portal.html";
  runner.write_document(html, document::DocumentDetail::governing);
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::done) << end.text;
  EXPECT_GT(std::filesystem::file_size(html), 100'000U);
}

TEST_F(RunnerTest, ACancelledDocumentLeavesNothing) {
  runner.check({});
  wait();
  const std::filesystem::path html = file.parent_path() / "portal.html";
  runner.write_document(html, document::DocumentDetail::full);
  runner.cancel();
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::cancelled);
  for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
    EXPECT_THAT(entry.path().filename().string(),
                testing::AnyOf("portal.json", "portal.aluresult"));
  }
}

TEST_F(RunnerTest, NeverWritesTheDocumentOverAForeignFile) {
  runner.check({});
  wait();
  const std::filesystem::path page = file.parent_path() / "letter.html";
  std::ofstream(page) << "<!DOCTYPE html><title>A letter</title>";
  runner.write_document(page, document::DocumentDetail::summary);
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::failed);
  EXPECT_THAT(end.text, HasSubstr("is no calculation document"));
  EXPECT_EQ(std::filesystem::file_size(page), 38U);
}

TEST_F(RunnerTest, NeverWritesTheDocumentOverTheModel) {
  runner.check({});
  wait();
  const std::string before = text_of_file();
  runner.write_document(file, document::DocumentDetail::summary);
  wait();
  EXPECT_EQ(end.kind, RunEnd::Kind::failed);
  EXPECT_EQ(text_of_file(), before);
}

TEST_F(RunnerTest, OneRunAtATime) {
  const QSignalSpy started(&runner, &desktop::Runner::started);
  runner.check({3});
  runner.check({7});
  wait();
  EXPECT_TRUE(workspace.results()->elements.contains(3));
  EXPECT_FALSE(workspace.results()->elements.contains(7));
}

TEST_F(RunnerTest, WaitsForARunThatItIsDestroyedIn) {
  auto other = std::make_unique<desktop::Runner>(workspace);
  other->check({});
  other.reset();
  EXPECT_FALSE(std::filesystem::exists(results()));
}

// The end of the run is heard of while something else, as a box of a message, handles events.
TEST_F(RunnerTest, MayBeDestroyedWhileItsRunEnds) {
  constexpr unsigned long longer_than_the_run = 500;  // ms
  QMetaObject::invokeMethod(
      &workspace,
      [] {
        QThread::msleep(longer_than_the_run);
        QCoreApplication::processEvents();
      },
      Qt::QueuedConnection);
  bool was_told = false;
  auto other = std::make_unique<desktop::Runner>(workspace);
  QObject::connect(other.get(), &desktop::Runner::check_ended, &workspace,
                   [&] { was_told = true; });
  other->check({3});
  other.reset();
  EXPECT_FALSE(was_told);
}

}  // namespace
}  // namespace gui_test
