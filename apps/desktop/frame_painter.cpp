#include "apps/desktop/frame_painter.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <algorithm>
#include <cmath>

#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using picture::Place;
using picture::Point3;
using texts::translatable;
using viewport::Camera;
using viewport::Size;

QString to_qt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Boxes of labels that stand, by which later ones give way.
class Occupied {
 public:
  bool is_free(const QRectF& box) const {
    return std::ranges::none_of(boxes_, [&](const QRectF& other) { return other.intersects(box); });
  }
  void take(const QRectF& box) { boxes_.push_back(box); }
  bool is_full() const { return boxes_.size() >= most; }

 private:
  /// More numbers than these nobody reads at once.
  static constexpr std::size_t most = 1500;
  std::vector<QRectF> boxes_;
};

/// Paints the items of a scene where the camera sees them.
class ScenePainter {
 public:
  ScenePainter(QPainter& painter, const picture::Scene& scene, const Camera& camera,
               const Size& size, const QPalette& palette)
      : painter_(painter),
        scene_(scene),
        camera_(camera),
        size_(size),
        palette_(palette),
        mm_(pixels_of_paper(*painter.device())) {}

  void paint() {
    for (const picture::Shape& shape : scene_.shapes) paint_shape(shape);
    for (const picture::Marker& marker : scene_.markers) paint_marker(marker);
    paint_labels();
  }

 private:
  std::optional<QPointF> point_of(const Place& place) const {
    const auto pixel = camera_.pixel_of(place.at, size_);
    if (!pixel) return std::nullopt;
    return QPointF(pixel->x + mm_ * place.paper.x, pixel->y - mm_ * place.paper.y);
  }

  void use(const picture::Style& style) {
    QPen pen(Qt::NoPen);
    if (style.stroke != picture::no_colour) {
      pen = QPen(themed(style.stroke, palette_), std::max(1.0, mm_ * style.width));
      if (!style.dash.empty()) pen.setStyle(Qt::DashLine);
    }
    painter_.setPen(pen);
    if (style.fill == picture::no_colour) {
      painter_.setBrush(Qt::NoBrush);
    } else {
      QColor fill = themed(style.fill, palette_);
      fill.setAlphaF(static_cast<float>(style.opacity));
      painter_.setBrush(fill);
    }
  }

  void paint_shape(const picture::Shape& shape) {
    use(shape.style);
    for (const auto& line : shape.lines) {
      QPolygonF points;
      for (const Place& place : line) {
        if (const auto point = point_of(place)) points.push_back(*point);
      }
      if (shape.is_closed) {
        painter_.drawPolygon(points);
      } else {
        painter_.drawPolyline(points);
      }
    }
  }

  void paint_marker(const picture::Marker& marker) {
    const auto centre = point_of(marker.centre);
    if (!centre) return;
    use(marker.style);
    painter_.drawEllipse(*centre, mm_ * marker.radius, mm_ * marker.radius);
  }

  void paint_labels() {
    std::vector<const picture::Label*> order;
    order.reserve(scene_.labels.size());
    for (const picture::Label& label : scene_.labels) order.push_back(&label);
    std::ranges::stable_sort(order, std::greater<>(), &picture::Label::rank);
    Occupied occupied;
    for (const picture::Label* label : order) {
      if (occupied.is_full()) break;
      paint_label(*label, occupied);
    }
  }

  void paint_label(const picture::Label& label, Occupied& occupied) {
    const auto at = point_of(label.at);
    if (!at || !QRectF(0, 0, size_.width, size_.height).contains(*at)) return;
    const QString text = to_qt(label.text);
    const QFontMetricsF metrics(painter_.font());
    const QSizeF extent(metrics.horizontalAdvance(text) + 4.0, metrics.height());
    const picture::Point2 towards = picture::unit_of(label.towards);
    for (const double side : {1.0, -1.0}) {
      const double reach =
          0.5 * (std::abs(towards.x) * extent.width() + std::abs(towards.y) * extent.height()) +
          mm_;
      const QPointF middle = *at + side * reach * QPointF(towards.x, -towards.y);
      const QRectF box(middle - QPointF(0.5 * extent.width(), 0.5 * extent.height()), extent);
      if (!occupied.is_free(box)) continue;
      occupied.take(box);
      QColor ground = palette_.color(QPalette::Base);
      ground.setAlpha(190);
      painter_.setPen(label.is_framed ? QPen(themed(label.colour, palette_)) : QPen(Qt::NoPen));
      painter_.setBrush(ground);
      painter_.drawRect(box.adjusted(0.5, 1.5, -0.5, -1.5));
      painter_.setPen(themed(label.colour, palette_));
      painter_.drawText(box, Qt::AlignCenter, text);
      return;
    }
  }

  QPainter& painter_;
  const picture::Scene& scene_;
  const Camera& camera_;
  Size size_;
  const QPalette& palette_;
  double mm_;
};

/// A directed side of the cube, named as users call it.
struct NamedSide {
  Point3 outwards;
  picture::View view;
  const char* name;
};

const std::array<NamedSide, 6>& named_sides() {
  static const std::array<NamedSide, 6> sides{
      {{{0, 0, 1}, {{1, 0, 0}, {0, 1, 0}}, translatable("Top")},
       {{0, 0, -1}, {{1, 0, 0}, {0, -1, 0}}, translatable("Bottom")},
       {{0, -1, 0}, {{1, 0, 0}, {0, 0, 1}}, translatable("Front")},
       {{0, 1, 0}, {{-1, 0, 0}, {0, 0, 1}}, translatable("Back")},
       {{1, 0, 0}, {{0, 1, 0}, {0, 0, 1}}, translatable("Right")},
       {{-1, 0, 0}, {{0, -1, 0}, {0, 0, 1}}, translatable("Left")}}};
  return sides;
}

struct LegendSpaces {
  double line, sample, gap;
};

LegendSpaces legend_spaces(const QFontMetricsF& metrics) {
  const double letter = metrics.height();
  return {1.15 * letter, 2.2 * letter, 0.5 * letter};
}

QFont bold(QFont font) {
  font.setBold(true);
  return font;
}

constexpr double sign_of_mirrored = -1.0;

QPointF on_screen(const picture::View& view, const Point3& point) {
  const picture::Point2 at = picture::project(view, point);
  return {at.x, sign_of_mirrored * at.y};
}

}  // namespace

bool is_dark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < 128;
}

QColor themed(std::string_view colour, const QPalette& palette) {
  const QColor given(to_qt(colour));
  if (!is_dark(palette)) return given;
  float hue = 0.0F, saturation = 0.0F, lightness = 0.0F;
  given.getHslF(&hue, &saturation, &lightness);
  return QColor::fromHslF(hue, saturation, 1.0F - 0.85F * lightness);
}

double pixels_of_paper(const QPaintDevice& device) {
  constexpr double mm_per_inch = 25.4;
  return device.logicalDpiX() / mm_per_inch;
}

void paint_scene(QPainter& painter, const picture::Scene& scene, const Camera& camera,
                 const Size& size, const QPalette& palette) {
  painter.setRenderHint(QPainter::Antialiasing);
  ScenePainter(painter, scene, camera, size, palette).paint();
}

QRectF legend_box(const QFont& font, const QString& title,
                  const std::vector<picture::LegendEntry>& legend, const Size& size) {
  if (legend.empty() && title.isEmpty()) return {};
  const QFontMetricsF metrics(font);
  const auto [line, sample, gap] = legend_spaces(metrics);
  double width = QFontMetricsF(bold(font)).horizontalAdvance(title);
  for (const picture::LegendEntry& entry : legend) {
    width = std::max(width, sample + gap + metrics.horizontalAdvance(to_qt(entry.text)));
  }
  const auto rows = static_cast<double>(legend.size()) + (title.isEmpty() ? 0.0 : 1.0);
  return {gap, gap, std::min(width + 2.0 * gap, size.width - 2.0 * gap), rows * line + gap};
}

void paint_legend(QPainter& painter, const QString& title,
                  const std::vector<picture::LegendEntry>& legend, const Size& size,
                  const QPalette& palette) {
  const QRectF box = legend_box(painter.font(), title, legend, size);
  if (box.isEmpty()) return;
  const auto [line, sample, gap] = legend_spaces(QFontMetricsF(painter.font()));
  QColor ground = palette.color(QPalette::Base);
  ground.setAlpha(225);
  painter.setPen(palette.color(QPalette::Mid));
  painter.setBrush(ground);
  painter.drawRoundedRect(box, 4, 4);
  double y = box.top() + 0.5 * gap;
  painter.setPen(palette.color(QPalette::Text));
  if (!title.isEmpty()) {
    painter.save();
    painter.setFont(bold(painter.font()));
    painter.drawText(QRectF(box.left() + gap, y, box.width(), line), Qt::AlignVCenter, title);
    painter.restore();
    y += line;
  }
  for (const picture::LegendEntry& entry : legend) {
    QPen pen(themed(entry.style.stroke, palette), std::max(3.0, 3.5 * entry.style.width));
    pen.setCapStyle(Qt::FlatCap);
    if (!entry.style.dash.empty()) pen.setDashPattern({2.0, 1.2});
    painter.setPen(pen);
    const double middle = y + 0.5 * line;
    painter.drawLine(QPointF(box.left() + gap, middle), QPointF(box.left() + gap + sample, middle));
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(QRectF(box.left() + 2.0 * gap + sample, y, box.width(), line),
                     Qt::AlignVCenter, to_qt(entry.text));
    y += line;
  }
}

void paint_notes(QPainter& painter, const QStringList& notes, const Size& size,
                 const QPalette& palette) {
  if (notes.isEmpty()) return;
  const QFontMetricsF metrics(painter.font());
  const double gap = 0.5 * metrics.height();
  const QString text = notes.join(u'\n');
  const double width = std::max(0.62 * size.width, 10.0);
  QRectF box = metrics.boundingRect(QRectF(0, 0, width, size.height), Qt::TextWordWrap, text);
  box.moveBottomLeft({gap, size.height - gap});
  QColor ground = palette.color(QPalette::Base);
  ground.setAlpha(205);
  painter.fillRect(box.adjusted(-4, -2, 4, 2), ground);
  painter.setPen(palette.color(QPalette::Text));
  painter.drawText(box, Qt::TextWordWrap, text);
}

std::vector<CubeSide> cube_sides(const picture::View& view, const Size& size, double letter) {
  const double half = 2.1 * letter;
  const QPointF middle(size.width - 2.2 * half, 2.2 * half);
  const Point3 eye = picture::towards_eye(view);
  std::vector<CubeSide> out;
  for (const NamedSide& side : named_sides()) {
    constexpr double seen = 0.05;
    if (dot(side.outwards, eye) < seen) continue;
    CubeSide its{side.view, {}, ui_text(side.name)};
    for (const auto& [x, y] :
         {std::pair(-1.0, -1.0), std::pair(1.0, -1.0), std::pair(1.0, 1.0), std::pair(-1.0, 1.0)}) {
      const Point3 corner = side.outwards + x * side.view.right + y * side.view.up;
      its.outline.push_back(middle + half * on_screen(view, corner));
    }
    out.push_back(std::move(its));
  }
  return out;
}

void paint_cube(QPainter& painter, const std::vector<CubeSide>& sides, const QPalette& palette) {
  for (const CubeSide& side : sides) {
    QColor ground = palette.color(QPalette::Button);
    ground.setAlpha(235);
    painter.setPen(QPen(palette.color(QPalette::Mid), 1.2));
    painter.setBrush(ground);
    painter.drawPolygon(side.outline);
    // The name lies on its side: it is turned and tilted with it.
    const QPointF along = side.outline[1] - side.outline[0];
    const QPointF down = side.outline[0] - side.outline[3];
    const double unit = 3.0 * QFontMetricsF(painter.font()).height();
    painter.save();
    painter.setTransform(QTransform(along.x() / unit, along.y() / unit, down.x() / unit,
                                    down.y() / unit, side.outline[3].x(), side.outline[3].y()),
                         true);
    painter.setPen(palette.color(QPalette::ButtonText));
    painter.drawText(QRectF(0, 0, unit, unit), Qt::AlignCenter, side.name);
    painter.restore();
  }
}

void paint_axes(QPainter& painter, const picture::View& view, const Size& size,
                const QPalette& palette) {
  constexpr std::array<std::string_view, 3> colours{"#c24a00", "#00704f", "#0060a8"};
  constexpr std::array<Point3, 3> axes{Point3{1, 0, 0}, Point3{0, 1, 0}, Point3{0, 0, 1}};
  const double letter = QFontMetricsF(painter.font()).height();
  const QPointF origin(size.width - 4.0 * letter, size.height - 3.0 * letter);
  for (std::size_t i = 0; i < axes.size(); ++i) {
    const QPointF tip = origin + 2.2 * letter * on_screen(view, axes[i]);
    painter.setPen(QPen(themed(colours[i], palette), 2.0));
    painter.drawLine(origin, tip);
    const QPointF middle = origin + 2.9 * letter * on_screen(view, axes[i]);
    painter.drawText(QRectF(middle.x() - letter, middle.y() - letter, 2 * letter, 2 * letter),
                     Qt::AlignCenter, QString(QChar(u'X' + static_cast<int>(i))));
  }
}

}  // namespace aluframe::desktop
