#pragma once

#include <QImage>
#include <QRubberBand>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "aluframe/viewport/picking.h"
#include "apps/desktop/display.h"
#include "apps/desktop/frame_content.h"
#include "apps/desktop/frame_painter.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

class FrameCanvas;
class ShownForces;

/// The frame in space, to be looked at and picked from: left click selects (Ctrl adds and takes
/// away), a left drag to the right selects what lies in the band whole, to the left what it
/// touches; middle drag moves, right drag turns, the wheel zooms. By keyboard: arrows turn, Shift
/// and arrows move, + and - zoom, F fits, Esc selects nothing.
///
/// Without OpenGL it is drawn with a painter, as lines, and says so.
class FrameView : public QWidget {
  Q_OBJECT

 public:
  /// Whether a graphics card, or software in its place, can be used on this screen.
  static bool has_opengl();
  /// Whether it is software.
  static bool draws_in_software();

  FrameView(Workspace& workspace, Display& display);
  ~FrameView() override;

  const viewport::Camera& camera() const { return camera_; }
  const FrameContent& content() const { return content_; }
  /// What the colours mean, and how many elements have each; empty: they mean nothing.
  const std::vector<picture::LegendEntry>& legend() const { return legend_; }
  bool draws_with_opengl() const;
  viewport::Size view_size() const;

  void look(const picture::View& view);
  /// Makes what is shown fill the view; with a selection that.
  void fit(bool selection_only = false);
  /// The view as a picture.
  QImage picture();
  QSize sizeHint() const override { return {900, 640}; }

  /// Draws what stands over the elements; and, without OpenGL, these too.
  void paint_over(QPainter& painter);
  void paint_lines(QPainter& painter);
  /// That displacements are multiplied by at this moment.
  double deformation() const;
  QColor halo() const;
  /// Whether a frame that the processor draws too slowly is turning: plain lines then.
  bool is_drawn_quickly() const;

 Q_SIGNALS:
  /// What the pointer is over, for the status line; empty: nothing.
  void pointed_at(const QString& text);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Drag { none, band, turn, move };

  void take_model();
  void take_looks();
  void take_shown();
  void keep_fitted();
  void take_display();
  void take_forces();
  void camera_moved();
  void fit_in(const QRectF& area, const std::vector<picture::Point3>& points);
  void fit_beside_legend(const std::vector<picture::Point3>& points);
  viewport::Sight sight() const;
  std::optional<model::Number> element_at(const QPointF& at) const;
  void pick_at(const QPointF& at, Picking picking);
  void pick_band(const QPointF& to, Picking picking);
  bool look_by_cube(const QPointF& at);
  QString text_of(model::Number element) const;
  picture::Content scene_content() const;
  const picture::Scene& scene();
  QStringList notes() const;

  Workspace& workspace_;
  Display& display_;
  DisplayState shown_state_;
  viewport::Camera camera_;
  FrameContent content_;
  std::vector<picture::LegendEntry> legend_;
  QString legend_title_;
  picture::Ratios ratios_;  ///< that elements are coloured by
  FrameCanvas* canvas_ = nullptr;
  ShownForces* forces_ = nullptr;
  bool is_fitted_ = false;  ///< nobody has turned, moved or zoomed since the frame was fitted

  std::optional<picture::Scene> scene_;  ///< until the frame is turned or changed
  QTimer settle_;                        ///< until symbols are drawn again after a turn
  bool is_turning_ = false;
  QTimer beat_;  ///< of the animation
  double phase_ = 0.0;

  Drag drag_ = Drag::none;
  QPointF pressed_, last_;
  QRubberBand band_;
};

}  // namespace aluframe::desktop
