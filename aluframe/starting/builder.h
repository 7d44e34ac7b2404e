#pragma once

#include <array>
#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/starting/starting.h"

namespace aluframe::starting {

/// Assembles a model in kN, m and mm, with numbers that count up.
class Builder {
 public:
  Builder(std::string title, std::string description, std::string_view rule,
          std::string_view alloy = "6061-T6");

  /// Coordinates in m.
  model::Number node(std::string name, double x, double y, double z);
  void section(model::Number number, std::string name, model::Shape shape,
               std::vector<double> dimensions);
  model::Number element(std::string name, model::Number start, model::Number end,
                        model::Number section);
  /// The element that was added last.
  void make_truss();
  void turn(double beta);
  /// Effective length factors are those of the buckling modes of the frame.
  void use_buckling_modes();
  /// Of "Dx", ...: the directions that are restrained, as six flags.
  void support(model::Number node, std::array<bool, 6> restrained);
  /// A load case of an action; loads are added to what is returned before the next one is begun.
  model::CaseLoads& load_case(std::string name, model::Action action);

  model::Model& model() { return model_; }
  model::Model finish();

 private:
  model::Model model_;
  std::vector<model::Element> elements_;
  std::vector<model::LoadCase> cases_;
};

/// "3.6", for names and descriptions.
std::string size_text(double size);

/// kN/m², kN/m and kN are 1e-3, 1 and 1e3 in N and mm.
inline constexpr double per_area = 1e-3;
inline constexpr double newtons = 1e3;

/// A uniform pressure on elements that stand at a spacing (m), along a global axis.
model::AreaLoad by_spacing(std::vector<model::Number> elements, double spacing,
                           model::LoadDirection direction, double pressure);

model::Model make_mullion(const Sizes& sizes);
model::Model make_hall(const Sizes& sizes);
model::Model make_footbridge(const Sizes& sizes);
model::Model make_dome(const Sizes& sizes);

}  // namespace aluframe::starting
