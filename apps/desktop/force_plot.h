#pragma once

#include <QWidget>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/units.h"
#include "aluframe/picture/content.h"
#include "host/tz_db/ralu.h"

namespace aluframe::desktop {

/// What is drawn along an element.
struct PlottedElement {
  double length = 0.0;  ///< mm
  model::Units units;
  picture::ForceComponent component = picture::ForceComponent::my;
  picture::ForceLine force;  ///< without values: no forces are known
  /// Largest ratio at each check position; no number where there is none.
  std::array<double, kCheckPositions> ratios{};

  /// Forces are known at both ends, and nothing between them.
  bool is_known_at_ends_only() const;
  bool has_ratios() const;
};

/// Value at a place by the straight line between its neighbours; two where it jumps, that towards
/// the start first. Nothing where it is not known.
std::vector<double> values_at(const std::vector<picture::Ordinate>& line, double fraction);

/// The diagram of a force along an element, moments on the tension side, and below it the ratios of
/// the check positions against 1. A line follows the mouse and the arrow keys.
class ForcePlot : public QWidget {
  Q_OBJECT

 public:
  ForcePlot();

  void show_element(PlottedElement element);
  void show_nothing();

  double cursor() const { return cursor_; }
  /// @param fraction of the length from the start, brought into 0 to 1
  void set_cursor(double fraction);
  /// "0.9 m from I (1/4): My −3.2 kN·m; ratio at 1/4 0.2410".
  QString cursor_text() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void cursor_moved();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::optional<PlottedElement> element_;
  double cursor_ = 0.0;
};

}  // namespace aluframe::desktop
