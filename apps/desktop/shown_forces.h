#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/run/input.h"
#include "apps/desktop/background_job.h"
#include "apps/desktop/display.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

/// Diagrams, displaced shapes and buckling modes for the view: computed on another thread when the
/// display asks for them, and again when the model has changed.
class ShownForces : public QObject {
  Q_OBJECT

 public:
  ShownForces(Workspace& workspace, Display& display);

  const std::optional<picture::Diagram>& diagram() const { return diagram_; }
  const std::optional<picture::Deformed>& deformed() const { return deformed_; }
  /// Whether the displaced shape is a buckling mode, of no size.
  bool is_mode() const { return is_mode_; }
  /// What must be said of them: that they are being computed, or what stands in the way.
  QStringList notes() const;

 Q_SIGNALS:
  void changed();

 private:
  struct Computed {
    std::optional<picture::Diagram> diagram;
    std::optional<picture::Deformed> deformed;
    std::vector<std::string> notes;
    bool is_mode = false;
  };
  /// What of the display is computed.
  struct Wanted {
    std::optional<picture::ForceComponent> diagram;
    decltype(DisplayState::diagram_of) diagram_of;
    decltype(DisplayState::deformed) deformed;
    friend bool operator==(const Wanted&, const Wanted&) = default;
  };

  Wanted wanted_now() const;
  void refresh();
  void forget();
  void take(Computed computed);
  static Computed compute(const run::Input& input, const Wanted& wanted);

  Workspace& workspace_;
  Display& display_;
  Wanted wanted_;
  std::optional<picture::Diagram> diagram_;
  std::optional<picture::Deformed> deformed_;
  std::vector<std::string> notes_;
  bool is_mode_ = false;
  BackgroundJob job_;
};

}  // namespace aluframe::desktop
