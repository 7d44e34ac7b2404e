#include "aluframe/members/axes_remarks.h"

#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "aluframe/elementary/functions.h"
#include "aluframe/members/straightness.h"
#include "aluframe/model/members.h"
#include "aluframe/texts/text.h"

namespace aluframe::members {

namespace {

/// A lean of less than this part of the length is rounding of coordinates: 3 nm of 3 m.
constexpr double rounding = 1e-9;

std::optional<std::string> lean_text(const model::Model& model, const model::Element& element) {
  if (element.orientation || element.kind == model::ElementKind::truss) return std::nullopt;
  const Eigen::Vector3d x = geometry_of(model, element).axes.row(0).transpose();
  const double lean = elementary::hypotenuse(x.x(), x.y());
  if (lean >= analysis::parallel_limit || lean < rounding) return std::nullopt;
  const double length = model::element_length(model, element);
  return fmt::format(texts::translatable("its axis leaves the vertical by {:.3g} mm in {:.6g} mm, "
                                         "less than {:g} of its length: it "
                                         "counts as vertical, with y along global Y"),
                     lean * length, length, analysis::parallel_limit);
}

}  // namespace

std::vector<AxesRemark> axes_remarks(const model::Model& model) {
  std::vector<AxesRemark> remarks;
  for (const model::Element& element : model.elements) {
    if (auto text = lean_text(model, element))
      remarks.push_back({element.number, std::move(*text)});
  }
  return remarks;
}

double turned_by(const model::Model& model, const model::Element& element) {
  if (!element.orientation) return element.beta;
  model::Element plain = element;
  plain.orientation.reset();
  plain.beta = 0.0;
  const analysis::Axes from = geometry_of(model, plain).axes;
  const Eigen::RowVector3d y = geometry_of(model, element).axes.row(1);
  return elementary::angle_of(y.dot(from.row(2)), y.dot(from.row(1))) * 180.0 / std::numbers::pi;
}

}  // namespace aluframe::members
