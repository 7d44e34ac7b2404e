#pragma once

#include <QPainter>
#include <QPalette>
#include <array>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/viewport/camera.h"

// What stands in the view of the frame beside its elements, drawn with a painter: symbols, loads,
// diagrams, numbers, the legend and the cube that tells from where the frame is seen.

namespace aluframe::desktop {

/// A colour of the drawings for the ground that it stands on: on a dark one light and dark change
/// places, so that what is dark on paper stands out.
QColor themed(std::string_view colour, const QPalette& palette);
bool is_dark(const QPalette& palette);

/// Pixels of the screen for a mm of a drawing's symbols and letters.
double pixels_of_paper(const QPaintDevice& device);

void paint_scene(QPainter& painter, const picture::Scene& scene, const viewport::Camera& camera,
                 const viewport::Size& size, const QPalette& palette);

/// Where the legend stands, in the upper left corner; empty without entries.
QRectF legend_box(const QFont& font, const QString& title,
                  const std::vector<picture::LegendEntry>& legend, const viewport::Size& size);
void paint_legend(QPainter& painter, const QString& title,
                  const std::vector<picture::LegendEntry>& legend, const viewport::Size& size,
                  const QPalette& palette);

/// Lines of text in the lower left corner.
void paint_notes(QPainter& painter, const QStringList& notes, const viewport::Size& size,
                 const QPalette& palette);

/// A side of the cube that shows how the frame is turned.
struct CubeSide {
  picture::View view;  ///< from where it is seen straight
  QPolygonF outline;
  QString name;
};
/// The sides that are seen, in the upper right corner.
std::vector<CubeSide> cube_sides(const picture::View& view, const viewport::Size& size,
                                 double letter);
void paint_cube(QPainter& painter, const std::vector<CubeSide>& sides, const QPalette& palette);
/// The directions of the axes, in the lower right corner.
void paint_axes(QPainter& painter, const picture::View& view, const viewport::Size& size,
                const QPalette& palette);

}  // namespace aluframe::desktop
