// Makes pictures of the documentation: the design module's dialogs over a model, as they are on the
// screen.
//
//     gui_pictures MODEL FOLDER NAME    writes FOLDER/{code-dialog,material-dialog}-NAME.png

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <iostream>

#include "apps/desktop/main_window.h"
#include "tests/gui/dialog_user.h"
#include "tz_alu/dialogs/resource.h"

namespace {

using aluframe::services::SettingsDialog;

struct Destination {
  QString folder;
  QString name;
};

void save_picture(QWidget& window, const Destination& to, const QString& what) {
  // A moment for the screen to show what was drawn.
  constexpr int moment = 300;
  QTest::qWait(moment);
  const QString file = to.folder + u'/' + what + u'-' + to.name + QStringLiteral(".png");
  const QPixmap picture = window.screen()->grabWindow(window.winId());
  if (!picture.save(file)) throw std::runtime_error("cannot write " + file.toStdString());
}

void picture_of_dialog(aluframe::desktop::MainWindow& window, SettingsDialog dialog,
                       const std::function<void(gui_test::DialogUser&)>& script) {
  gui_test::with_user(
      [&] {
        window.open_settings(dialog);
        return 0;
      },
      script);
}

void make_pictures(const std::filesystem::path& model, const Destination& to) {
  aluframe::desktop::MainWindow window;
  window.open(model);
  window.show();
  picture_of_dialog(window, SettingsDialog::code, [&](gui_test::DialogUser& user) {
    save_picture(user.window(), to, QStringLiteral("code-dialog"));
  });
  picture_of_dialog(window, SettingsDialog::materials, [&](gui_test::DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    save_picture(user.window(), to, QStringLiteral("material-dialog"));
  });
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 4) {
    std::cerr << "usage: gui_pictures MODEL FOLDER NAME\n";
    return 1;
  }
  try {
    make_pictures(argv[1], {argv[2], argv[3]});
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  return 0;
}
