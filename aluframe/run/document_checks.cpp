#include "aluframe/run/document_checks.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace aluframe::run {

namespace {

/// Elements with the same derivation.
struct Group {
  CheckPlace place;
  std::vector<model::Number> elements;
};

/// Groups in the order of the first of their elements. Steps are told apart by their signature, so
/// that none has to be kept.
class Groups {
 public:
  std::optional<Problem> add(const CheckExplainer& explainer, model::Number element,
                             const CheckPlace& place) {
    auto signature = explainer.signature(element, place);
    if (auto* problem = std::get_if<Problem>(&signature)) return std::move(*problem);
    const auto [known, is_new] =
        by_signature_.try_emplace(std::get<std::string>(std::move(signature)), groups_.size());
    if (is_new) groups_.push_back({place, {}});
    groups_[known->second].elements.push_back(element);
    return std::nullopt;
  }

  std::vector<Group> take() && { return std::move(groups_); }

 private:
  std::vector<Group> groups_;
  std::unordered_map<std::string, std::size_t> by_signature_;
};

std::vector<CheckPlace> places_of(store::ResultReader& reader, model::Number element,
                                  DerivationDetail detail) {
  if (detail == DerivationDetail::full) return worst_checks(reader, element);
  const auto governing = governing_check(reader, element);
  return governing ? std::vector{*governing} : std::vector<CheckPlace>{};
}

}  // namespace

std::optional<Problem> for_each_derivation(const CheckExplainer& explainer,
                                           store::ResultReader& reader,
                                           const std::vector<model::Number>& elements,
                                           DerivationDetail detail,
                                           const std::function<void(const ExplainedCheck&)>& take) {
  Groups groups;
  for (const model::Number element : elements) {
    for (const CheckPlace& place : places_of(reader, element, detail)) {
      if (auto problem = groups.add(explainer, element, place)) return problem;
    }
  }
  for (Group& group : std::move(groups).take()) {
    std::ranges::sort(group.elements);
    auto explained = explainer.explain(std::move(group.elements), group.place);
    if (auto* problem = std::get_if<Problem>(&explained)) return std::move(*problem);
    take(std::get<ExplainedCheck>(explained));
  }
  return std::nullopt;
}

}  // namespace aluframe::run
