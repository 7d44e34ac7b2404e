#include "apps/desktop/result_words.h"

#include <QStringList>
#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/run/buckling.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/not_checked.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

bool has_sides(const store::RunInfo& info, std::uint32_t number) {
  const auto found = std::ranges::find(info.combinations, number, &store::CombinationRow::number);
  return found != info.combinations.end() && found->two_sides;
}

/// The components of forces that no check looks at, and no second opinion finds safe.
std::size_t unchecked_forces(const run::Told& told) {
  std::set<std::string> components;
  for (const run::NotCheckedGroup& group : run::group_not_checked(told.not_checked)) {
    const store::RemarkRow* opinion = run::second_opinion_on(group, told.remarks);
    if (opinion != nullptr && *opinion->ratio <= 1.0) continue;
    for (const run::UncheckedForce& unchecked : group.largest) {
      components.insert(unchecked.force.component);
    }
  }
  return components.size();
}

}  // namespace

QString item_words(int item) {
  return ui_text(tables::item_name(item));
}

QString with_name(model::Number number, const std::string& name) {
  if (name.empty()) return QString::number(number);
  return QString::number(number) + u' ' + shown(name);
}

QString combination_words(const store::RunInfo& info, std::uint32_t number, int min_side) {
  QString text = with_name(tables::number_of_combination(info, number),
                           tables::name_of_combination(info, number));
  if (!has_sides(info, number)) return text;
  return shown(min_side != 0 ? texts::translated("{} (minimum side)", text.toStdString())
                             : texts::translated("{} (maximum side)", text.toStdString()));
}

QString position_words(int position) {
  const std::string_view name = tables::position_name(position);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString ratio_words(const store::GoverningRow& check) {
  return run::was_judged(check) ? shown(tables::short_number(check.governing.Ratio()))
                                : QStringLiteral("–");
}

QString verdict_words(const store::GoverningRow& check) {
  if (!run::was_judged(check)) return ui_text(translatable("no limit"));
  return run::fails(check) ? QStringLiteral("✗ ") + ui_text(translatable("fails"))
                           : QStringLiteral("✓ ") + ui_text(translatable("passes"));
}

QString outcome_words(const run::ShownResults& results) {
  const run::Told& told = results.told;
  const run::Coverage& coverage = results.coverage;
  QStringList parts{shown(texts::counted(told.over, translatable("{} element fails"),
                                         translatable("{} elements fail")))};
  if (std::ranges::any_of(told.buckling_factors, run::buckles)) {
    parts.push_back(ui_text(translatable("the frame buckles")));
  } else if (std::ranges::any_of(told.remarks, run::is_about_buckling)) {
    parts.push_back(ui_text(translatable("buckling below its limit")));
  }
  if (std::ranges::any_of(told.displacements, run::exceeds_limit)) {
    parts.push_back(ui_text(translatable("displacements over their limits")));
  }
  if (told.safe && told.safe->unsaid > 0) {
    parts.push_back(
        shown(texts::counted(told.safe->unsaid, translatable("{} more by its safe ratio"),
                             translatable("{} more by their safe ratios"))));
  }
  if (told.second_opinion == run::SecondOpinion::off) {
    parts.push_back(ui_text(translatable("no second opinion")));
  }
  if (const auto count = unchecked_forces(told); count > 0) {
    parts.push_back(shown(texts::counted(count, translatable("{} kind of force without a check"),
                                         translatable("{} kinds of force without a check"))));
  }
  if (coverage.elements > results.elements.size()) {
    parts.push_back(shown(texts::counted(coverage.elements - results.elements.size(),
                                         translatable("{} element without a check"),
                                         translatable("{} elements without a check"))));
  }
  if (coverage.elements < coverage.of_elements) {
    parts.push_back(shown(texts::translated("results of {} of {} elements", coverage.elements,
                                            coverage.of_elements)));
  }
  if (coverage.states.size() < coverage.of_states) {
    parts.push_back(shown(texts::translated("combinations {}", run::combinations_text(coverage))));
  }
  const auto is_unknown = [](const store::BucklingRow& row) { return !row.unknown.empty(); };
  if (told.buckling == run::FrameBuckling::off ||
      std::ranges::any_of(told.buckling_factors, is_unknown)) {
    parts.push_back(ui_text(translatable("buckling unknown")));
  }
  if (std::ranges::any_of(told.remarks, [](const store::RemarkRow& remark) {
        return remark.kind == run::unknown_displacements;
      })) {
    parts.push_back(ui_text(translatable("displacements unknown")));
  }
  return parts.join(QStringLiteral("; "));
}

}  // namespace aluframe::desktop
