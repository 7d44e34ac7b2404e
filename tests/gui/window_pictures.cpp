// Makes pictures of the program's window over the examples, as they are on the screen.
//
//     gui_window_pictures EXAMPLES FOLDER NAME LANGUAGE THEME    en or zh, light or dark;
//                                                    writes FOLDER/window-EXAMPLE-NAME.png

#include <QApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>
#include <functional>
#include <iostream>

#include "aluframe/run/check.h"
#include "aluframe/texts/language.h"
#include "apps/desktop/frame_view.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/preferences.h"

namespace {

using namespace aluframe;
using desktop::DisplayState;

/// A picture of an example: what of it is shown.
struct Picture {
  const char* example;
  std::function<void(desktop::MainWindow&)> show;
};

void show(desktop::MainWindow& window, const std::function<void(DisplayState&)>& change) {
  window.display().change(change);
}

const std::vector<Picture>& pictures() {
  static const std::vector<Picture> all{
      {"portal-bracket", [](desktop::MainWindow& window) { window.workspace().select({3}); }},
      {"platform-roof",
       [](desktop::MainWindow& window) {
         show(window, [](DisplayState& state) {
           state.colour = desktop::Colour::plain;
           state.diagram = picture::ForceComponent::my;
           state.diagram_of = desktop::CombinationSubject{1};
         });
         window.workspace().select({1});
       }},
      {"dome",
       [](desktop::MainWindow& window) {
         show(window, [](DisplayState& state) {
           state.supports = false;
           state.deformed = desktop::ModeSubject{1, 0};
         });
       }},
      {"footbridge",
       [](desktop::MainWindow& window) {
         show(window, [](DisplayState& state) {
           state.solid = true;
           state.projection = viewport::Projection::perspective;
         });
         window.view().look(picture::View::iso);
       }},
      {"mullion-transom", [](desktop::MainWindow& window) {
         show(window, [](DisplayState& state) {
           state.colour = desktop::Colour::section;
           state.element_numbers = true;
         });
         window.workspace().select({6, 7});
       }}};
  return all;
}

void check(const std::filesystem::path& model) {
  const auto prepared = run::prepare({.model = model});
  run::CheckOptions options;
  options.results = run::result_path_of(model);
  run::check(std::get<run::Input>(prepared), options);
}

void make_picture(const Picture& picture, const std::filesystem::path& model, const QString& file) {
  desktop::MainWindow window;
  window.open(model);
  window.show();
  constexpr int moment = 400, patience = 30'000;
  QTest::qWait(moment);
  picture.show(window);
  window.view().fit();
  // Forces and modes come from another thread, and what follows from them one after the other.
  for (int i = 0; i < 3; ++i) {
    QThreadPool::globalInstance()->waitForDone(patience);
    QTest::qWait(moment);
  }
  if (!window.screen()->grabWindow(window.winId()).save(file)) {
    throw std::runtime_error("cannot write " + file.toStdString());
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 6) {
    std::cerr << "usage: gui_window_pictures EXAMPLES FOLDER NAME LANGUAGE THEME\n";
    return 1;
  }
  texts::use_language(texts::parse_language(argv[4]).value_or(texts::Language::english));
  QCoreApplication::setOrganizationName(QStringLiteral("AluFrame pictures"));
  if (std::string_view(argv[5]) == "dark") desktop::prefer_theme(desktop::Theme::dark);
  try {
    const QTemporaryDir folder;
    for (const Picture& one : pictures()) {
      const std::string name = std::string(one.example) + ".json";
      const std::filesystem::path model =
          folder.filePath(QString::fromStdString(name)).toStdString();
      std::filesystem::copy_file(std::filesystem::path(argv[1]) / name, model);
      check(model);
      make_picture(one, model,
                   QStringLiteral("%1/window-%2-%3.png").arg(argv[2], one.example, argv[3]));
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  return 0;
}
