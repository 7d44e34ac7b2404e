#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "apps/desktop/background_job.h"
#include "apps/desktop/detail_part.h"
#include "apps/desktop/prepared_input.h"
#include "apps/desktop/workspace.h"

class QComboBox;
class QLabel;

namespace aluframe::desktop {

class ForcePlot;

/// Forces along the element that details are shown of, of a component and a combination that the
/// user chooses, and its ratios. Forces are computed beside the window's thread.
class ForceChart : public DetailPart {
 public:
  ForceChart(Workspace& workspace, PreparedInput& prepared);

 protected:
  void refresh() override;

 private:
  /// What the lines at hand are of.
  struct Wanted {
    std::shared_ptr<const run::Input> input;
    model::Number element = 0;
    model::Number combination = 0;

    friend bool operator==(const Wanted&, const Wanted&) = default;
  };
  using Lines = std::array<std::vector<picture::ForceLine>, 6>;

  void forget_results();
  void fill_combinations();
  /// That of the worst check, or the first for design; nothing in a model without any.
  std::optional<model::Number> governing_combination(model::Number element) const;
  std::optional<model::Number> chosen_combination(model::Number element) const;
  void name_governing(model::Number element);
  void compute(const Wanted& wanted);
  void show_lines(model::Number element);
  void say(const QString& text);
  std::array<double, kCheckPositions> ratios_of(model::Number element);

  Workspace& workspace_;
  PreparedInput& prepared_;
  QComboBox* component_;
  QComboBox* combination_;
  QLabel* said_;
  ForcePlot* plot_;
  QLabel* cursor_;
  QLabel* convention_;
  std::unique_ptr<store::ResultReader> reader_;  ///< open while its results are shown
  bool are_combinations_behind_ = true;
  std::optional<Wanted> computed_;
  std::optional<Wanted> computing_;
  Lines lines_;
  BackgroundJob job_;
};

}  // namespace aluframe::desktop
