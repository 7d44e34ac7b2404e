#include "tests/gui/checked_model.h"

#include <QProcess>
#include <fstream>
#include <stdexcept>
#include <utility>
#include <variant>

namespace gui_test {

using namespace aluframe;

CheckedModelTest::CheckedModelTest() {
  open(file);
}

void CheckedModelTest::open(const std::filesystem::path& path) {
  auto opened = desktop::ModelDocument::open(path);
  if (const auto* problem = std::get_if<std::string>(&opened)) throw std::runtime_error(*problem);
  workspace.show_document(std::get<desktop::ModelDocument>(std::move(opened)));
}

void CheckedModelTest::check() {
  output_of_program({QStringLiteral("check"), QString::fromStdString(file.string())});
  workspace.refresh_results();
}

QString CheckedModelTest::output_of_program(const QStringList& arguments) {
  QProcess program;
  program.start(QStringLiteral(ALUFRAME_PROGRAM), arguments);
  constexpr int at_most = 60'000;  // ms
  if (!program.waitForFinished(at_most) || program.exitCode() != 0) {
    throw std::runtime_error(program.readAllStandardError().toStdString());
  }
  return QString::fromUtf8(program.readAllStandardOutput());
}

std::filesystem::path CheckedModelTest::write_row_of_beams(int elements) const {
  const std::filesystem::path path = folder.filePath("row.json").toStdString();
  std::ofstream out(path);
  out << R"({"format": "aluframe-model", "version": 1, "title": "Row",
"materials": [{"number": 1, "alloy": "6061-T6"}],
"sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}},
{"number": 2, "shape": "P", "dimensions": {"D": 120, "t": 5}}],
"nodes": [{"number": 1, "x": 0, "y": 0, "z": 0})";
  for (int i = 1; i <= elements; ++i) {
    out << ",\n{\"number\": " << i + 1 << ", \"x\": " << i << ", \"y\": 0, \"z\": 0}";
  }
  out << "],\n\"elements\": [";
  for (int i = 1; i <= elements; ++i) {
    out << (i == 1 ? "" : ",") << "\n{\"number\": " << i << ", \"nodes\": [" << i << ", " << i + 1
        << "], \"section\": " << 1 + i % 2 << ", \"material\": 1}";
  }
  out << "]}\n";
  return path;
}

}  // namespace gui_test
