#include "aluframe/analysis/input_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/element_stiffness.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/analysis/releases.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Nodes closer than this part of their largest coordinate cannot be told apart.
constexpr double least_length = 1e-12;

Problem at_element(const Frame& frame, std::size_t place, const std::string& text) {
  return {Problem::Kind::input, element_name(frame, place) + ": " + text, std::nullopt, place};
}

std::optional<Problem> check_place(const Frame& frame, std::size_t node, const char* what) {
  if (node < frame.nodes.size()) return std::nullopt;
  return Problem{Problem::Kind::input,
                 fmt::format(texts::translatable("{}: there is no node at place {} of {}"), what,
                             node, frame.nodes.size()),
                 std::nullopt, std::nullopt};
}

struct Required {
  const char* name;
  double value;
};

/// The first stiffness that is not a positive finite number.
std::optional<std::string> stiffness_text(const Element& element) {
  const Stiffness& s = element.stiffness;
  const std::array<Required, 6> all{{{texts::translatable("elastic modulus"), s.e},
                                     {texts::translatable("area"), s.area},
                                     {texts::translatable("shear modulus"), s.g},
                                     {texts::translatable("torsion constant"), s.it},
                                     {texts::translatable("inertia about y"), s.iyy},
                                     {texts::translatable("inertia about z"), s.izz}}};
  const std::size_t used = element.kind == ElementKind::truss ? 2 : all.size();
  for (std::size_t i = 0; i < used; ++i) {
    if (all[i].value > 0.0 && std::isfinite(all[i].value)) continue;
    return fmt::format(texts::translatable("its {} is {:g}, must be positive"), all[i].name,
                       all[i].value);
  }
  for (const double shear_area : {s.ay, s.az}) {
    if (shear_area >= 0.0 && std::isfinite(shear_area)) continue;
    return fmt::format(texts::translatable("its shear area is {:g}, must be 0 or more"),
                       shear_area);
  }
  return std::nullopt;
}

/// Names of the released end forces: "Mx at the start and Mx at the end".
std::string release_text(const Element& element) {
  constexpr std::array names{"N", "Fy", "Fz", "Mx", "My", "Mz"};
  std::vector<std::string> parts;
  for (std::size_t i = 0; i < 12; ++i) {
    if (!element.released[i]) continue;
    parts.push_back(i < 6 ? fmt::format(texts::translatable("{} at the start"), names[i % 6])
                          : fmt::format(texts::translatable("{} at the end"), names[i % 6]));
  }
  return listed(parts);
}

std::optional<Problem> check_releases(const Frame& frame, std::size_t place, double length) {
  const Element& element = frame.elements[place];
  if (element.kind == ElementKind::truss && (element.released[0] || element.released[6])) {
    return at_element(frame, place,
                      texts::translatable("a truss whose N is released carries nothing"));
  }
  Matrix12 k = elastic_stiffness(element, length);
  if (!k.allFinite())
    return at_element(frame, place,
                      texts::translatable("its stiffness is too large to compute with"));
  if (Releases::condense(element.released, k)) return std::nullopt;
  Problem problem =
      at_element(frame, place,
                 fmt::format(texts::translatable("nothing holds it any more: {} are released"),
                             release_text(element)));
  problem.kind = Problem::Kind::mechanism;
  return problem;
}

std::optional<Problem> check_element(const Frame& frame, std::size_t place) {
  const Element& element = frame.elements[place];
  for (const std::size_t node : {element.start, element.end}) {
    if (auto problem = check_place(frame, node, element_name(frame, place).c_str())) return problem;
  }
  const Node& a = frame.nodes[element.start];
  const Node& b = frame.nodes[element.end];
  const double size = std::max(
      {std::abs(a.x), std::abs(a.y), std::abs(a.z), std::abs(b.x), std::abs(b.y), std::abs(b.z)});
  const double length = std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
  if (!(length > least_length * size)) {
    return at_element(frame, place, texts::translatable("its nodes lie at the same point"));
  }
  if (const auto text = stiffness_text(element)) return at_element(frame, place, *text);
  for (const double value : {element.beta, element.density, element.expansion}) {
    if (!std::isfinite(value))
      return at_element(frame, place, texts::translatable("a number of it is not finite"));
  }
  if (element.reference && !(reference_sine(a, b, *element.reference) >= parallel_limit)) {
    return at_element(frame, place,
                      texts::translatable("its reference direction lies along its axis"));
  }
  return check_releases(frame, place, length);
}

std::optional<Problem> check_spring(const Frame& frame, const Spring& spring) {
  if (auto problem = check_place(frame, spring.node, "spring")) return problem;
  for (const double stiffness : spring.stiffness) {
    if (stiffness >= 0.0 && std::isfinite(stiffness)) continue;
    return Problem{
        Problem::Kind::input,
        fmt::format(texts::translatable("{}: a spring stiffness is {:g}, must be 0 or more"),
                    node_name(frame, spring.node), stiffness),
        spring.node, std::nullopt};
  }
  return std::nullopt;
}

}  // namespace

std::optional<Problem> find_problem(const Frame& frame) {
  for (std::size_t i = 0; i < frame.nodes.size(); ++i) {
    const Node& node = frame.nodes[i];
    if (std::isfinite(node.x) && std::isfinite(node.y) && std::isfinite(node.z)) continue;
    return Problem{
        Problem::Kind::input,
        fmt::format(texts::translatable("{}: a coordinate is not finite"), node_name(frame, i)), i,
        std::nullopt};
  }
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    if (auto problem = check_element(frame, i)) return problem;
  }
  for (const Support& support : frame.supports) {
    if (auto problem = check_place(frame, support.node, "support")) return problem;
  }
  for (const Spring& spring : frame.springs) {
    if (auto problem = check_spring(frame, spring)) return problem;
  }
  return std::nullopt;
}

}  // namespace aluframe::analysis
