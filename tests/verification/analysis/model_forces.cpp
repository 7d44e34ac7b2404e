// Prints the element forces that follow from the loads of a model file, as CSV in N and N·mm.

#include <cstdio>
#include <cstdlib>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/io/model_file.h"

namespace aluframe {
namespace {

int fail(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  return EXIT_FAILURE;
}

void print(const model::Model& model, std::size_t element, std::size_t load_case) {
  const model::CaseForces* forces = model.forces.find(element, load_case);
  if (forces == nullptr) return;
  for (const model::SectionForces& at : forces->at) {
    std::printf("%u,%u", model.elements[element].number, model.load_cases[load_case].number);
    for (const float force : at) std::printf(",%.9g", static_cast<double>(force));
    std::printf("\n");
  }
}

int run(const char* path) {
  auto read = io::read_model(path);
  if (const auto* problem = std::get_if<io::Problem>(&read)) return fail(problem->message());
  auto& model = std::get<model::Model>(read);
  const auto computed = forces::compute_forces(model);
  if (const auto* problem = std::get_if<analysis::Problem>(&computed)) return fail(problem->text);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
      print(model, element, load_case);
    }
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace aluframe

int main(int argc, char** argv) {
  return argc == 2 ? aluframe::run(argv[1]) : aluframe::fail("model_forces MODEL");
}
