#include "aluframe/document/html_writer.h"

#include <algorithm>
#include <array>

#include "aluframe/model/xml_text.h"

namespace aluframe::document {

namespace {

/// What stands within a line of text; all else begins a line of its own, so that the file can be
/// read and compared.
bool is_inline(std::string_view name) {
  constexpr std::array<std::string_view, 13> names = {
      "a", "abbr", "b", "bdi", "br", "em", "code", "span", "sub", "sup", "td", "th", "strong"};
  return std::ranges::find(names, name) != names.end() ||
         (name.starts_with('m') && name != "main" && name != "meta");
}

}  // namespace

void HtmlWriter::element(std::string_view name, const Attributes& attributes,
                         const std::function<void()>& content) {
  begin(name, attributes);
  content();
  end(name);
}

void HtmlWriter::leaf(std::string_view name, const Attributes& attributes, std::string_view text) {
  begin(name, attributes);
  this->text(text);
  end(name);
}

void HtmlWriter::empty(std::string_view name, const Attributes& attributes) {
  begin(name, attributes);
  if (!is_inline(name)) out_ << '\n';
}

void HtmlWriter::text(std::string_view text) {
  out_ << model::for_xml(text);
}

void HtmlWriter::markup(std::string_view markup) {
  out_ << markup;
}

void HtmlWriter::begin(std::string_view name, const Attributes& attributes) {
  out_ << '<' << name;
  for (const auto& [key, value] : attributes) {
    out_ << ' ' << key << "=\"" << model::for_xml(value) << '"';
  }
  out_ << '>';
}

void HtmlWriter::end(std::string_view name) {
  out_ << "</" << name << '>';
  if (!is_inline(name)) out_ << '\n';
}

}  // namespace aluframe::document
