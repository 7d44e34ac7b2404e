#pragma once

#include <QWidget>

#include "apps/desktop/display.h"
#include "apps/desktop/workspace.h"

class QCheckBox;
class QComboBox;

namespace aluframe::desktop {

/// Chooses what the view of the frame shows: colours, loads, diagrams, displaced shapes, symbols.
class DisplayPanel : public QWidget {
 public:
  DisplayPanel(Workspace& workspace, Display& display);

 private:
  /// Offers what the model and its results have.
  void refresh_choices();
  void refresh_colours();
  void refresh_diagrams();
  void refresh_deformed();
  /// Shows the display's state.
  void show_state();
  void choose_colour(int row);
  void choose_diagram();
  void choose_deformed(int row);

  Workspace& workspace_;
  Display& display_;
  QComboBox *colour_, *loads_, *force_, *force_of_, *deformed_;
  QCheckBox *solid_, *perspective_, *supports_, *releases_, *axes_, *nodes_, *elements_, *legend_,
      *animated_;
};

}  // namespace aluframe::desktop
