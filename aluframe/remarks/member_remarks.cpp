#include <algorithm>
#include <array>

#include "aluframe/members/chart_equations.h"

#include <fmt/format.h>
#include "aluframe/members/length_factors.h"
#include "aluframe/model/meeting.h"
#include "aluframe/remarks/concerned.h"
#include "aluframe/remarks/kinds.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

namespace {

using members::FactorSource;
using members::SegmentFactors;

void add_all(Concerned& concerned, const model::Model& model, const SegmentFactors& segment,
             double value) {
  for (const model::Number number : segment.elements) {
    concerned.add(*model.elements.find(number), value);
  }
}

Remark about_member(const Subject& subject, const Concerned& concerned, std::string_view rule,
                    std::string text) {
  Remark remark = concerned.remark(rule, std::move(text));
  const model::Member* member = subject.connectivity.member_of(concerned.worst().number);
  if (member != nullptr) remark.member = member->number;
  return remark;
}

/// The two nodes at which a chain of elements ends: those that it passes once.
std::vector<model::Number> end_nodes(const model::Model& model,
                                     const std::vector<model::Number>& elements) {
  std::vector<model::Number> nodes;
  for (const model::Number number : elements) {
    const model::Element& element = *model.elements.find(number);
    nodes.insert(nodes.end(), element.nodes.begin(), element.nodes.end());
  }
  std::vector<model::Number> ends;
  std::ranges::copy_if(nodes, std::back_inserter(ends), [&nodes](model::Number node) {
    return std::ranges::count(nodes, node) == 1;
  });
  return ends;
}

/// Whether the checks take an end there as free: no support holds the node against moving.
bool counts_as_free(const model::Connectivity& connectivity, model::Number node) {
  const model::Support* support = connectivity.support_of(node);
  if (support == nullptr) return true;
  const auto& held = support->restrained;
  return !held[0] && !held[1] && !held[2];
}

/// Whether the element's critical moment is formed with its member's twisting length.
bool may_buckle_sideways(const model::Model& model, const model::Element& element) {
  return element.kind == model::ElementKind::beam && !element.design.stability_coefficients &&
         is_open(model.sections.find(element.section)->shape);
}

}  // namespace

std::optional<Remark> factor_at_bound(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const SegmentFactors& segment : subject.factors) {
    if (!members::is_at_bound(segment.y) && !members::is_at_bound(segment.z)) continue;
    add_all(concerned, model, segment, std::max(segment.y.k, segment.z.k));
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = about_member(
      subject, concerned, "S15",
      fmt::format(
          texts::translatable(
              "nothing keeps them from swaying: the effective length factor is at its bound of "
              "{:g}, which stands for no stability at all; say what holds the frame by "
              "`braced_a` and `braced_b`, by supports, or give `length_factors`"),
          members::largest_factor));
  remark.value = concerned.worst_value();
  return remark;
}

std::optional<Remark> factor_without_supports(Subject& subject) {
  const model::Model& model = subject.model;
  Concerned concerned;
  for (const SegmentFactors& segment : subject.factors) {
    if (segment.y.source != FactorSource::no_supports &&
        segment.z.source != FactorSource::no_supports) {
      continue;
    }
    for (const model::Number number : segment.elements) {
      const model::Element& element = *model.elements.find(number);
      const model::MemberType type = model::member_type(model, element);
      if (element.design.length_factors) continue;
      if (type == model::MemberType::column || type == model::MemberType::brace) {
        concerned.add(element);
      }
    }
  }
  if (concerned.empty()) return std::nullopt;
  Remark remark = about_member(subject, concerned, "S15",
                               texts::translatable("the model has no supports, so columns and "
                                                   "braces take K = 1: cantilevers need 2, columns "
                                                   "that sway more than 1; give `length_factors`, "
                                                   "or the supports that the frame stands on"));
  remark.value = 1.0;
  return remark;
}

std::optional<Remark> free_ends(Subject& subject) {
  const model::Model& model = subject.model;
  const model::Connectivity& connectivity = subject.connectivity;
  Concerned concerned;
  for (const SegmentFactors& segment : subject.factors) {
    const std::vector<model::Number> ends = end_nodes(model, segment.elements);
    const bool free = std::ranges::any_of(ends, [&](model::Number node) {
      return counts_as_free(connectivity, node) &&
             model::meets_others(model, connectivity, node, segment.elements, model::Meeting::any);
    });
    if (!free) continue;
    for (const model::Number number : segment.elements) {
      const model::Element& element = *model.elements.find(number);
      if (may_buckle_sideways(model, element)) concerned.add(element);
    }
  }
  if (concerned.empty()) return std::nullopt;
  return about_member(
      subject, concerned, "S6",
      texts::translatable(
          "ends within the frame count as free, as no support is there: twice the length against "
          "twisting nearly doubles the critical moment; the safe ratio takes the length itself"));
}

}  // namespace aluframe::remarks
