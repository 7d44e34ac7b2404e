#pragma once

#include <QString>
#include <string>

#include "aluframe/model/model.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/shown_results.h"
#include "aluframe/store/result_file.h"

// How results are put into words in the window, in the user's language.

namespace aluframe::desktop {

inline QString shown(const std::string& text) {
  return QString::fromStdString(text);
}

/// "strength" of a RALU_ITEM_TYPE.
QString item_words(int item);
/// "4", and its name behind it where it has one: "4 Bracket A1".
QString with_name(model::Number number, const std::string& name);
/// The combination of the model, a state by its envelope and its own name: "7 Extremes: 1.2G", with
/// its side where it has two.
QString combination_words(const store::RunInfo& info, std::uint32_t number, int min_side);
/// "I", "1/4", "1/2", "3/4", "J".
QString position_words(int position);
/// Four digits; a dash where there is no limit.
QString ratio_words(const store::GoverningRow& check);
/// Whether it passes, not by a colour alone: "✓ passes", "✗ fails", "no limit".
QString verdict_words(const store::GoverningRow& check);

/// What results come to, in one line: how many elements fail, and all else that speaks against the
/// frame or is not known of it. "0 elements fail; the frame buckles; results of 2 of 31 elements".
QString outcome_words(const run::ShownResults& results);

}  // namespace aluframe::desktop
