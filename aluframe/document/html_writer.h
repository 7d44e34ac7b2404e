#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace aluframe::document {

using Attributes = std::vector<std::pair<std::string_view, std::string>>;

/// Writes HTML as it comes, so that a long document takes no memory. Elements are well-formed as in
/// XML; texts and attributes are shown as they are, whatever stands in them (`model::for_xml`).
///
///     html.element("tr", {}, [&] {
///       html.leaf("th", {{"scope", "row"}}, section.name);
///       html.leaf("td", {{"class", "number"}}, "0.853");
///     });
class HtmlWriter {
 public:
  /// @param out outlives the writer; whether all arrived it tells
  explicit HtmlWriter(std::ostream& out) : out_(out) {}

  void element(std::string_view name, const Attributes& attributes,
               const std::function<void()>& content);
  void element(std::string_view name, const std::function<void()>& content) {
    element(name, {}, content);
  }
  /// An element of text alone.
  void leaf(std::string_view name, const Attributes& attributes, std::string_view text);
  void leaf(std::string_view name, std::string_view text) { leaf(name, {}, text); }
  /// An element that has no end: "meta", "br".
  void empty(std::string_view name, const Attributes& attributes);
  void text(std::string_view text);
  /// Markup that is whole in itself, such as an SVG.
  void markup(std::string_view markup);

 private:
  void begin(std::string_view name, const Attributes& attributes);
  void end(std::string_view name);

  std::ostream& out_;
};

}  // namespace aluframe::document
