#include "aluframe/picture/svg.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "aluframe/elementary/functions.h"
#include "aluframe/model/xml_text.h"
#include "aluframe/picture/colours.h"
#include "aluframe/picture/letters.h"
#include "aluframe/picture/sheet.h"

namespace aluframe::picture {

namespace {

constexpr double margin = 6.0;
constexpr double title_size = 5.0, subtitle_size = 3.6, note_size = 3.0;
constexpr double line_height = 1.35;  ///< of the letters' size
constexpr double tripod_width = 40.0;

/// A length on paper to a hundredth of a mm, without zeros at the end.
std::string mm(double value) {
  std::string text = fmt::format("{:.2f}", value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string attributes_of(const Style& style, bool is_fillable) {
  std::string out;
  const bool is_filled = is_fillable && style.fill != no_colour;
  out += fmt::format(" fill=\"{}\"", is_filled ? style.fill : no_colour);
  if (is_filled && style.opacity < 1.0)
    out += fmt::format(" fill-opacity=\"{:.2g}\"", style.opacity);
  if (style.stroke == no_colour) return out;
  out += fmt::format(" stroke=\"{}\" stroke-width=\"{}\"", style.stroke, mm(style.width));
  if (!style.dash.empty()) out += fmt::format(" stroke-dasharray=\"{}\"", style.dash);
  return out;
}

std::string attributes_of(const Subject& subject) {
  switch (subject.kind) {
    case Subject::Kind::node:
      return fmt::format(" data-node=\"{}\"", subject.number);
    case Subject::Kind::element:
      return fmt::format(" data-element=\"{}\"", subject.number);
    case Subject::Kind::none:
      break;
  }
  return {};
}

/// The end of an element of the file, with a title for who points at it.
std::string end_of(std::string_view name, const std::string& told) {
  if (told.empty()) return "/>\n";
  return fmt::format("><title>{}</title></{}>\n", model::for_xml(told), name);
}

class Writer {
 public:
  Writer(const Scene& scene, const SvgOptions& options)
      : scene_(scene),
        options_(options),
        prefix_(model::for_xml(options.prefix)),
        sheet_(scene, head_height()),
        labels_(place_labels(scene, sheet_)) {}

  std::string text() {
    if (options_.is_file) add_head();
    for (int i = 0; i <= static_cast<int>(Layer::numbers); ++i) add_layer(static_cast<Layer>(i));
    double bottom = add_legend(sheet_.bottom());
    const double tripod_bottom = add_tripod(bottom);
    bottom = std::max(add_notes(bottom), tripod_bottom) + margin;
    return opening(bottom) + body_ + "</svg>\n";
  }

 private:
  static double line_of(double size) { return line_height * size; }

  static std::vector<std::string> lines_of(const std::string& text, double size, double width) {
    return wrapped(text, width / size);
  }

  static constexpr double text_width() { return sheet_width - 2.0 * margin; }

  double head_height() const {
    if (!options_.is_file) return margin;
    const auto count = [](const std::string& text, double size) {
      return static_cast<double>(lines_of(text, size, text_width()).size());
    };
    return margin + count(scene_.title, title_size) * line_of(title_size) +
           count(scene_.subtitle, subtitle_size) * line_of(subtitle_size);
  }

  std::string opening(double height) const {
    const std::string size = options_.is_file ? fmt::format(" width=\"{}mm\" height=\"{}mm\"",
                                                            mm(sheet_width), mm(height))
                                              : " width=\"100%\"";
    return fmt::format(
        "{0}<svg xmlns=\"http://www.w3.org/2000/svg\"{1} viewBox=\"0 0 {2} {3}\" role=\"img\" "
        "aria-labelledby=\"{4}-title {4}-shown\">\n"
        "<title id=\"{4}-title\">{5}</title>\n<desc id=\"{4}-shown\">{6}</desc>\n"
        "<rect width=\"{2}\" height=\"{3}\" fill=\"{7}\"/>\n",
        options_.is_file ? "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" : "", size,
        mm(sheet_width), mm(height), prefix_, model::for_xml(scene_.title),
        model::for_xml(scene_.subtitle), white);
  }

  void add_text(const Point2& at, double size, const std::string& text,
                std::string_view more = "") {
    body_ += fmt::format(
        "<text x=\"{}\" y=\"{}\" font-family=\"sans-serif\" font-size=\"{}\"{}>{}</text>\n",
        mm(at.x), mm(at.y), mm(size), more, model::for_xml(text));
  }

  void add_head() {
    double y = margin;
    const auto add = [&](const std::string& text, double size, std::string_view more) {
      for (const std::string& line : lines_of(text, size, text_width())) {
        y += line_of(size);
        add_text({margin, y - 0.35 * size}, size, line, more);
      }
    };
    add(scene_.title, title_size, " font-weight=\"bold\"");
    add(scene_.subtitle, subtitle_size, " fill=\"#404040\"");
  }

  void add_layer(Layer layer) {
    std::string before = std::move(body_);
    body_.clear();
    // Rings first: the crosses in them are lines.
    for (const Marker& marker : scene_.markers) {
      if (marker.layer == layer) add(marker);
    }
    for (const Shape& shape : scene_.shapes) {
      if (shape.layer == layer) add(shape);
    }
    for (const PlacedLabel& label : labels_) {
      if (label.label->layer == layer) add(label);
    }
    if (!body_.empty()) {
      body_ = fmt::format("<g id=\"{}-{}\" stroke-linejoin=\"round\">\n", prefix_, name_of(layer)) +
              body_ + "</g>\n";
    }
    body_ = std::move(before) + body_;
  }

  std::string points_text(const std::vector<Place>& line) const {
    std::string out;
    for (const Place& place : line) {
      const Point2 at = sheet_.on_paper(place);
      out += fmt::format("{}{},{}", out.empty() ? "" : " ", mm(at.x), mm(at.y));
    }
    return out;
  }

  void add(const Shape& shape) {
    const std::string rest =
        attributes_of(shape.style, shape.is_closed) + attributes_of(shape.subject);
    if (shape.lines.size() == 1) return add_single(shape, rest);
    std::string path;
    for (const auto& line : shape.lines) {
      path += fmt::format("{}M{}{}", path.empty() ? "" : " ", points_text(line),
                          shape.is_closed ? "Z" : "");
    }
    if (path.empty()) return;
    body_ += fmt::format("<path d=\"{}\"{}", path, rest) + end_of("path", shape.told);
  }

  void add_single(const Shape& shape, const std::string& rest) {
    const std::vector<Place>& line = shape.lines.front();
    if (line.size() == 2) {
      const Point2 from = sheet_.on_paper(line[0]), to = sheet_.on_paper(line[1]);
      body_ += fmt::format("<line x1=\"{}\" y1=\"{}\" x2=\"{}\" y2=\"{}\"{}", mm(from.x),
                           mm(from.y), mm(to.x), mm(to.y), rest) +
               end_of("line", shape.told);
      return;
    }
    const std::string_view name = shape.is_closed ? "polygon" : "polyline";
    body_ += fmt::format("<{} points=\"{}\"{}", name, points_text(line), rest) +
             end_of(name, shape.told);
  }

  void add(const Marker& marker) {
    const Point2 at = sheet_.on_paper(marker.centre);
    body_ += fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\"{}{}", mm(at.x), mm(at.y),
                         mm(marker.radius), attributes_of(marker.style, true),
                         attributes_of(marker.subject)) +
             end_of("circle", marker.told);
  }

  /// A label on a ground of its own, which what it covers shines through a little.
  void add(const PlacedLabel& placed) {
    const Label& label = *placed.label;
    const Box& box = placed.box;
    body_ += fmt::format(
        "<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" rx=\"0.5\" fill=\"{}\" "
        "fill-opacity=\"0.8\"{}/>\n",
        mm(box.left), mm(box.top), mm(box.right - box.left), mm(box.bottom - box.top), white,
        label.is_framed ? fmt::format(" stroke=\"{}\" stroke-width=\"0.15\"", label.colour) : "");
    constexpr double letters_above_line = 0.36;
    add_text({0.5 * (box.left + box.right),
              0.5 * (box.top + box.bottom) + letters_above_line * label_size},
             label_size, label.text,
             fmt::format(" text-anchor=\"middle\" fill=\"{}\"{}", label.colour,
                         attributes_of(label.subject)));
  }

  /// Entries side by side, in as many lines as they need. @return where they end
  double add_legend(double top) {
    if (scene_.legend.empty()) return top;
    constexpr double sample = 9.0, gap = 2.0, apart = 7.0;
    body_ += fmt::format("<g id=\"{}-legend\">\n", prefix_);
    Point2 at{margin, top + line_of(note_size)};
    for (const LegendEntry& entry : scene_.legend) {
      const std::string text = lines_of(entry.text, note_size, text_width() - sample).front();
      const double width = sample + gap + note_size * width_of(text);
      if (at.x > margin && at.x + width > sheet_width - margin) {
        at = {margin, at.y + line_of(note_size) + 0.5};
      }
      body_ += fmt::format("<line x1=\"{}\" y1=\"{}\" x2=\"{}\" y2=\"{}\"{}/>\n", mm(at.x),
                           mm(at.y - 0.35 * note_size), mm(at.x + sample),
                           mm(at.y - 0.35 * note_size), attributes_of(entry.style, false));
      add_text({at.x + sample + gap, at.y}, note_size, text);
      at.x += width + apart;
    }
    body_ += "</g>\n";
    return at.y + 2.0;
  }

  /// @return where they end
  double add_notes(double top) {
    double y = top;
    for (const std::string& note : scene_.notes) {
      const double width = text_width() - tripod_width;
      for (const std::string& line : lines_of(note, note_size, width)) {
        y += line_of(note_size);
        add_text({margin + tripod_width, y}, note_size, line);
      }
    }
    return y;
  }

  /// The axes, each arm as long as a round length of the model is along it. @return where it ends
  double add_tripod(double top) {
    constexpr double longest = 17.0;
    const double unit = model::millimetres_per(scene_.length_unit);
    const double most = longest / sheet_.scale() / unit;
    const double power = elementary::power_of_ten(elementary::exponent_of_ten(most));
    const double round = (most >= 5 * power ? 5 : most >= 2 * power ? 2 : 1) * power;
    std::array<Point2, 3> arms;
    constexpr std::array<Point3, 3> axes{Point3{1, 0, 0}, Point3{0, 1, 0}, Point3{0, 0, 1}};
    Box box;
    for (std::size_t i = 0; i < 3; ++i) {
      arms[i] = round * unit * sheet_.scale() * project(scene_.view, axes[i]);
      box = {std::min(box.left, arms[i].x), std::max(box.top, arms[i].y),
             std::max(box.right, arms[i].x), std::min(box.bottom, arms[i].y)};
    }
    const Point2 origin{margin + 4.0 - box.left, top + 5.0 + box.top};
    body_ += fmt::format("<g id=\"{}-axes\">\n", prefix_);
    for (std::size_t i = 0; i < 3; ++i) add_arm(origin, arms[i], i);
    const double bottom = origin.y - box.bottom + 6.5;
    add_text({margin, bottom}, note_size,
             fmt::format("axes: {:g} {} long", round, model::name_of(scene_.length_unit)));
    body_ += "</g>\n";
    return bottom;
  }

  void add_arm(const Point2& origin, const Point2& arm, std::size_t axis) {
    constexpr std::array<std::string_view, 3> names{"X", "Y", "Z"};
    const Style style{.stroke = ink, .width = 0.3};
    const bool is_seen = length_of(arm) > 1.0;
    const Point2 towards = is_seen ? unit_of(arm) : Point2{-1.2, -0.9};
    const Point2 tip{origin.x + arm.x, origin.y - arm.y};
    if (is_seen) {
      body_ += fmt::format("<line x1=\"{}\" y1=\"{}\" x2=\"{}\" y2=\"{}\"{}/>\n", mm(origin.x),
                           mm(origin.y), mm(tip.x), mm(tip.y), attributes_of(style, false));
    } else {
      body_ += fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"0.8\"{}/>\n", mm(tip.x), mm(tip.y),
                           attributes_of(style, true));
    }
    add_text({tip.x + 2.2 * towards.x, tip.y - 2.2 * towards.y + 0.36 * note_size}, note_size,
             std::string(names[axis]), " text-anchor=\"middle\"");
  }

  const Scene& scene_;
  const SvgOptions& options_;
  std::string prefix_;
  Sheet sheet_;
  std::vector<PlacedLabel> labels_;
  std::string body_;
};

}  // namespace

std::string svg_of(const Scene& scene, const SvgOptions& options) {
  return Writer(scene, options).text();
}

}  // namespace aluframe::picture
