#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numeric>

#include "aluframe/elementary/functions.h"
#include "aluframe/picture/letters.h"
#include "aluframe/picture/sheet.h"

namespace aluframe::picture {

namespace {

constexpr double cell = 8.0;  ///< of the grid that neighbours are looked up in, mm

/// A line of the frame on paper.
struct Segment {
  Point2 from, to;
};

/// How much of two boxes is the same area.
double overlap(const Box& a, const Box& b) {
  const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
  const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
  return width > 0.0 && height > 0.0 ? width * height : 0.0;
}

/// How much of the line runs through the box: what is left of it between the four sides.
double length_within(const Segment& segment, const Box& box) {
  const Point2 span = segment.to - segment.from;
  double from = 0.0, to = 1.0;
  const auto cut = [&](double start, double change, double low, double high) {
    if (change == 0.0) {
      if (start < low || start > high) to = -1.0;
      return;
    }
    const auto [first, last] = std::minmax({(low - start) / change, (high - start) / change});
    from = std::max(from, first);
    to = std::min(to, last);
  };
  cut(segment.from.x, span.x, box.left, box.right);
  cut(segment.from.y, span.y, box.top, box.bottom);
  return to > from ? (to - from) * length_of(span) : 0.0;
}

/// What stands on the sheet already, found by the cells of a grid.
class Occupied {
 public:
  void add(const Box& box) {
    for_each_cell(box, [&](Cell& one) { one.boxes.push_back(box); });
  }
  void add(const Segment& segment) {
    // In short pieces, so that a long slanting line does not fill all cells beside it.
    const Point2 span = segment.to - segment.from;
    const int pieces = std::max(1, static_cast<int>(length_of(span) / cell));
    for (int i = 0; i < pieces; ++i) {
      const Segment piece{segment.from + (static_cast<double>(i) / pieces) * span,
                          segment.from + (static_cast<double>(i + 1) / pieces) * span};
      const Box box{std::min(piece.from.x, piece.to.x), std::min(piece.from.y, piece.to.y),
                    std::max(piece.from.x, piece.to.x), std::max(piece.from.y, piece.to.y)};
      for_each_cell(box, [&](Cell& one) { one.segments.push_back(piece); });
    }
  }

  /// Area of other labels under a box, mm².
  double under(const Box& box) {
    double sum = 0.0;
    for_each_cell(box, [&](Cell& one) {
      for (const Box& other : one.boxes) sum += overlap(box, other);
    });
    return sum;
  }
  /// Length of lines under a box, mm.
  double lines_under(const Box& box) {
    double sum = 0.0;
    for_each_cell(box, [&](Cell& one) {
      for (const Segment& segment : one.segments) sum += length_within(segment, box);
    });
    return sum;
  }

 private:
  struct Cell {
    std::vector<Box> boxes;
    std::vector<Segment> segments;
  };

  template <class Use>
  void for_each_cell(const Box& box, const Use& use) {
    const auto index = [](double value) { return static_cast<int>(std::floor(value / cell)); };
    for (int x = index(box.left); x <= index(box.right); ++x) {
      for (int y = index(box.top); y <= index(box.bottom); ++y) use(cells_[{x, y}]);
    }
  }

  std::map<std::pair<int, int>, Cell> cells_;
};

/// The box of a label of some size beside a point, in a direction (y upwards).
Box box_beside(const Point2& at, const Point2& towards, double width, double height, double gap) {
  const Point2 middle{at.x + towards.x * (gap + 0.5 * width),
                      at.y - towards.y * (gap + 0.5 * height)};
  return {middle.x - 0.5 * width, middle.y - 0.5 * height, middle.x + 0.5 * width,
          middle.y + 0.5 * height};
}

/// The wanted direction first, then others all around.
std::array<Point2, 12> directions_from(const Point2& towards) {
  std::array<Point2, 12> out;
  constexpr std::array<double, 12> degrees{0, 180, 35, -35, 70, -70, 145, -145, 110, -110, 90, -90};
  for (std::size_t i = 0; i < degrees.size(); ++i) {
    const double angle = degrees[i] * 3.14159265358979 / 180.0;
    const double c = elementary::cosine(angle), s = elementary::sine(angle);
    out[i] = {towards.x * c - towards.y * s, towards.x * s + towards.y * c};
  }
  return out;
}

class Placement {
 public:
  Placement(const Scene& scene, const Sheet& sheet) : scene_(scene), sheet_(sheet) {
    for (const Shape& shape : scene.shapes) {
      if (shape.layer != Layer::frame && shape.layer != Layer::supports) continue;
      for (const auto& line : shape.lines) {
        for (std::size_t i = 1; i < line.size(); ++i) {
          occupied_.add(Segment{sheet.on_paper(line[i - 1]), sheet.on_paper(line[i])});
        }
      }
    }
  }

  std::vector<PlacedLabel> all() {
    std::vector<const Label*> order(scene_.labels.size());
    std::ranges::transform(scene_.labels, order.begin(), [](const Label& one) { return &one; });
    std::ranges::stable_sort(order, std::greater<>(), &Label::rank);
    for (const Label* label : order) place(*label);
    return std::move(placed_);
  }

 private:
  void place(const Label& label) {
    const Point2 at = sheet_.on_paper(label.at);
    const double width = label_size * width_of(label.text) + 0.8, height = 1.15 * label_size;
    Box best;
    double least = -1.0;
    bool is_clear = false;
    for (const double gap : {0.7, 2.2, 4.6}) {
      double later = gap;  // a direction further down the list costs a little more
      for (const Point2& towards : directions_from(label.towards)) {
        if (least >= 0.0 && later >= least) break;
        const Box box = box_beside(at, towards, width, height, gap);
        const double labels = occupied_.under(box);
        constexpr double of_any_label = 100.0, of_labels = 20.0, of_lines = 1.0, step = 0.25;
        const double of_overlap = labels > 0.0 ? of_any_label + of_labels * labels : 0.0;
        const double cost = of_overlap + of_lines * occupied_.lines_under(box) + later;
        later += step;
        if (least >= 0.0 && cost >= least) continue;
        least = cost;
        best = box;
        is_clear = labels == 0.0;
      }
    }
    if (!label.is_always_shown && (!is_clear || repeats(label, at))) return;
    occupied_.add(best);
    told_.emplace(label.text, at);
    placed_.push_back({&label, best});
  }

  /// Whether the same text stands at the same point, as of a moment that two elements have in
  /// common.
  bool repeats(const Label& label, const Point2& at) const {
    constexpr double same = 0.5;
    const auto [first, last] = told_.equal_range(label.text);
    return std::any_of(first, last,
                       [&](const auto& other) { return length_of(other.second - at) < same; });
  }

  const Scene& scene_;
  const Sheet& sheet_;
  Occupied occupied_;
  std::multimap<std::string_view, Point2> told_;
  std::vector<PlacedLabel> placed_;
};

}  // namespace

std::vector<PlacedLabel> place_labels(const Scene& scene, const Sheet& sheet) {
  return Placement(scene, sheet).all();
}

}  // namespace aluframe::picture
