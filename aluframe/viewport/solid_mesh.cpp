#include "aluframe/viewport/solid_mesh.h"

#include <map>

namespace aluframe::viewport {

namespace {

using Corner = SectionMesh::Corner;

/// Round corners are drawn as such in frames of at most so many elements.
constexpr std::size_t most_smooth = 4000;

std::array<float, 3> single(const Point3& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y), static_cast<float>(point.z)};
}

/// One element's triangles.
class Extrusion {
 public:
  Extrusion(const ElementLine& line, const Point3& centre, std::vector<SolidVertex>& out)
      : line_(line), start_(line.start - centre), end_(line.end - centre), out_(out) {}

  void add_sides(const std::vector<Corner>& edge) {
    for (std::size_t i = 0; i < edge.size(); ++i) {
      const Corner &a = edge[i], &b = edge[(i + 1) % edge.size()];
      const Corner outwards = -1.0 * picture::left_of(picture::unit_of(b - a));
      const auto normal = single(across(outwards));
      const Point3 near_a = start_ + across(a), near_b = start_ + across(b);
      const Point3 far_a = end_ + across(a), far_b = end_ + across(b);
      add({near_a, near_b, far_b}, normal);
      add({near_a, far_b, far_a}, normal);
    }
  }
  void add_ends(const std::array<Corner, 3>& triangle) {
    const auto& [a, b, c] = triangle;
    add({start_ + across(a), start_ + across(b), start_ + across(c)}, single(-1.0 * line_.axes[0]));
    add({end_ + across(a), end_ + across(b), end_ + across(c)}, single(line_.axes[0]));
  }

 private:
  Point3 across(const Corner& corner) const {
    return corner.x * line_.axes[1] + corner.y * line_.axes[2];
  }
  void add(const std::array<Point3, 3>& corners, const std::array<float, 3>& normal) {
    for (const Point3& corner : corners) out_.push_back({single(corner), normal});
  }

  const ElementLine& line_;
  Point3 start_, end_;
  std::vector<SolidVertex>& out_;
};

}  // namespace

SolidMesh solid_mesh(const model::Model& model, const std::vector<ElementLine>& lines,
                     const Point3& centre) {
  const Rounding rounding = lines.size() <= most_smooth ? Rounding::smooth : Rounding::sharp;
  std::map<model::Number, SectionMesh> sections;
  for (const model::Section& section : model.sections) {
    sections.emplace(section.number, section_mesh(section, rounding));
  }
  SolidMesh out;
  out.first.push_back(0);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const SectionMesh& section = sections.at(model.elements[i].section);
    Extrusion element(lines[i], centre, out.vertices);
    for (const auto& edge : section.edges) element.add_sides(edge);
    for (const auto& triangle : section.triangles) element.add_ends(triangle);
    out.first.push_back(out.vertices.size());
  }
  return out;
}

}  // namespace aluframe::viewport
