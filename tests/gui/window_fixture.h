#pragma once

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSemaphore>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/model_tree.h"
#include "apps/desktop/table_panel.h"
#include "apps/desktop/table_view.h"
#include "tests/gui/attribute_user.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {

inline constexpr int patience = 60'000;  ///< ms

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
  explicit HeldRun(aluframe::desktop::Runner& runner) {
    connection_ = QObject::connect(
        &runner, &aluframe::desktop::Runner::progressed, &runner,
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

/// The window over a model of its own.
class WindowTest : public DesktopTest {
 protected:
  WindowTest() {
    QSettings().clear();
    start();
    window().open(file);
  }

  void start() {
    window_ = std::make_unique<aluframe::desktop::MainWindow>();
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  }
  aluframe::desktop::MainWindow& window() { return *window_; }
  aluframe::desktop::Workspace& workspace() { return window_->workspace(); }
  const aluframe::model::Element& element(aluframe::model::Number number) {
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
  aluframe::desktop::ModelTree& tree() {
    return static_cast<aluframe::desktop::ModelTree&>(*dock("tree").widget());
  }
  aluframe::desktop::TablePanel& tables() {
    return static_cast<aluframe::desktop::TablePanel&>(*dock("tables").widget());
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
  void click_in_view(aluframe::model::Number number, Qt::KeyboardModifiers modifiers = {}) {
    aluframe::desktop::FrameView& view = window_->view();
    const auto& line = view.content().lines[workspace().model().elements.position(number)];
    const auto pixel =
        view.camera().pixel_of(between(line.start, line.end, 0.35), view.view_size());
    QTest::mouseClick(&view, Qt::LeftButton, modifiers, QPointF(pixel->x, pixel->y).toPoint());
  }
  std::vector<aluframe::model::Number> selected() {
    return {workspace().selection().begin(), workspace().selection().end()};
  }
  std::vector<aluframe::model::Number> selected_in_view() {
    std::vector<aluframe::model::Number> out;
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
  void edit(aluframe::model::Number number = 3) {
    workspace().select({number});
    attributes().type(QStringLiteral("Effective length factors"), QStringLiteral("1.5"));
  }
  /// Into the factor Ky of element 3, without leaving the field.
  void start_typing(const QString& text) {
    workspace().select({3});
    window().activateWindow();
    attributes().start_typing(QStringLiteral("Effective length factors"), text);
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

  std::unique_ptr<aluframe::desktop::MainWindow> window_;
};

/// Of the model.
inline constexpr auto old_title = "Workshop portal with crane brackets";

}  // namespace gui_test
