#include "tests/gui/desktop_test.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "aluframe/io/model_file.h"

namespace gui_test {

DesktopTest::DesktopTest() : file(folder.filePath("portal.json").toStdString()) {
  std::filesystem::copy_file(EXAMPLE_MODEL, file);
}

std::string DesktopTest::text_of_file() const {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

aluframe::model::Model DesktopTest::model_of_file() const {
  auto read = aluframe::io::read_model(file);
  if (const auto* problem = std::get_if<aluframe::io::Problem>(&read)) {
    throw std::runtime_error(problem->message());
  }
  return std::get<aluframe::model::Model>(std::move(read));
}

int DesktopTest::run(aluframe::services::SettingsDialog dialog) {
  return aluframe::desktop::run_desktop({.model = file, .dialog = dialog});
}

}  // namespace gui_test
