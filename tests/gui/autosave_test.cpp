// What a crash leaves of changes that were not saved.

#include "apps/desktop/autosave.h"

#include <QTest>
#include <QThreadPool>
#include <QUndoStack>
#include <memory>

#include "apps/desktop/model_document.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::Autosave;
using desktop::ModelDocument;

constexpr int patience = 20'000;  ///< ms

class AutosaveTest : public DesktopTest {
 protected:
  /// A session in which the model is open.
  struct Session {
    Session(const std::filesystem::path& file, const std::filesystem::path& kept)
        : autosave(workspace, kept) {
      workspace.show_document(std::get<ModelDocument>(ModelDocument::open(file)));
    }
    /// Gives element 1 a type.
    void edit() {
      model::Element element = *workspace.model().elements.find(1);
      element.member_type = model::MemberType::brace;
      workspace.document()->editable().elements.replace(element);
      workspace.tell_edited();
    }
    void keep() {
      autosave.keep();
      ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(patience));
    }

    desktop::Workspace workspace;
    Autosave autosave;
  };

  std::unique_ptr<Session> session() { return std::make_unique<Session>(file, kept()); }
  std::filesystem::path kept() const { return folder.filePath("kept").toStdString(); }
  bool is_anything_kept() const {
    return std::filesystem::exists(kept()) && !std::filesystem::is_empty(kept());
  }
};

TEST_F(AutosaveTest, AnInterruptedSessionLeavesItsChanges) {
  const auto first = session();
  first->edit();
  first->keep();
  const auto next = session();
  const auto left = next->autosave.left_for(*next->workspace.document());
  ASSERT_TRUE(left.has_value());
  ASSERT_EQ(left->after.elements.size(), 1U);
  EXPECT_EQ(left->after.elements[0].member_type, model::MemberType::brace);
  EXPECT_EQ(left->before.elements[0], *next->workspace.model().elements.find(1));
  EXPECT_LT(std::abs(left->time.secsTo(QDateTime::currentDateTime())), 60);
}

TEST_F(AutosaveTest, ItTouchesNeitherTheModelNorItsFolder) {
  const std::string before = text_of_file();
  const auto first = session();
  first->edit();
  first->keep();
  EXPECT_EQ(text_of_file(), before);
}

TEST_F(AutosaveTest, NothingIsLeftOfWhatWasSaved) {
  const auto first = session();
  first->edit();
  first->keep();
  EXPECT_TRUE(is_anything_kept());
  EXPECT_TRUE(first->workspace.document()->save().is_saved());
  first->workspace.tell_edited();
  EXPECT_FALSE(is_anything_kept());
}

TEST_F(AutosaveTest, NothingIsLeftOfWhatWasUndone) {
  const auto first = session();
  const model::Element before = *first->workspace.model().elements.find(1);
  first->edit();
  first->keep();
  first->workspace.document()->editable().elements.replace(before);
  first->workspace.tell_edited();
  EXPECT_FALSE(is_anything_kept());
}

TEST_F(AutosaveTest, WithoutChangesNothingIsKept) {
  const auto first = session();
  first->keep();
  EXPECT_FALSE(is_anything_kept());
  EXPECT_FALSE(first->autosave.left_for(*first->workspace.document()).has_value());
}

TEST_F(AutosaveTest, ModelsOfOneNameDoNotMeet) {
  const auto first = session();
  first->edit();
  first->keep();
  const std::filesystem::path other = folder.filePath("other/portal.json").toStdString();
  std::filesystem::create_directory(other.parent_path());
  std::filesystem::copy_file(file, other);
  const Session second(other, kept());
  EXPECT_FALSE(second.autosave.left_for(*second.workspace.document()).has_value());
}

TEST_F(AutosaveTest, ADamagedFileIsNoChange) {
  const auto first = session();
  first->edit();
  first->keep();
  for (const auto& entry : std::filesystem::directory_iterator(kept())) {
    std::filesystem::resize_file(entry.path(), 100);
  }
  EXPECT_FALSE(first->autosave.left_for(*first->workspace.document()).has_value());
}

TEST_F(AutosaveTest, AFolderThatTakesNothingIsToldInTheHistory) {
  const auto first = session();
  std::filesystem::copy_file(file, kept());
  QString told;
  QObject::connect(&first->workspace, &desktop::Workspace::told, &first->workspace,
                   [&](const QString& line) { told += line; });
  first->edit();
  first->keep();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }, patience));
}

}  // namespace
}  // namespace gui_test
