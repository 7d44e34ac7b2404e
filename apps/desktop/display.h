#pragma once

#include <QObject>
#include <optional>
#include <variant>

#include "aluframe/picture/content.h"
#include "aluframe/viewport/camera.h"

namespace aluframe::desktop {

/// What elements are coloured by.
enum class Colour {
  plain,
  worst_ratio,
  item,
  combination,
  safe_ratio,
  deflection,
  section,
  material
};

/// Whose forces or displacements are shown.
struct LoadCaseSubject {
  model::Number number = 0;
  friend bool operator==(const LoadCaseSubject&, const LoadCaseSubject&) = default;
};
struct CombinationSubject {
  model::Number number = 0;
  friend bool operator==(const CombinationSubject&, const CombinationSubject&) = default;
};
/// The n-th buckling mode of a combination, from 0.
struct ModeSubject {
  model::Number combination = 0;
  int mode = 0;
  friend bool operator==(const ModeSubject&, const ModeSubject&) = default;
};

/// What the view of the frame shows.
struct DisplayState {
  bool solid = false;  ///< sections in their shape, else lines
  viewport::Projection projection = viewport::Projection::parallel;
  bool supports = true, releases = true, local_axes = false;
  bool node_numbers = false, element_numbers = false;
  bool legend = true;
  Colour colour = Colour::plain;
  int item = 0;                   ///< RALU_ITEM_TYPE, of Colour::item
  model::Number combination = 0;  ///< of Colour::combination
  std::optional<model::Number> loads;
  std::optional<picture::ForceComponent> diagram;
  std::variant<std::monostate, LoadCaseSubject, CombinationSubject> diagram_of;
  std::variant<std::monostate, LoadCaseSubject, ModeSubject> deformed;
  double deformed_factor = 1.0;  ///< times the scale that suits the frame
  bool animated = false;

  friend bool operator==(const DisplayState&, const DisplayState&) = default;
};

/// The display state, which the view, the panel and the menus share.
class Display : public QObject {
  Q_OBJECT

 public:
  const DisplayState& state() const { return state_; }
  /// Changes a part of it, `display.change([](DisplayState& state) { state.solid = true; })`.
  template <class Change>
  void change(const Change& change) {
    const DisplayState before = state_;
    change(state_);
    if (state_ != before) Q_EMIT changed();
  }

 Q_SIGNALS:
  void changed();

 private:
  DisplayState state_;
};

}  // namespace aluframe::desktop
