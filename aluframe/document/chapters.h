#pragma once

#include <functional>
#include <string>
#include <vector>

#include "aluframe/document/html_writer.h"

namespace aluframe::document {

struct Section {
  std::string id;  ///< that links lead to; unlike all others of the document
  std::string title;
  std::function<void()> write;
};

struct Chapter {
  std::string id;
  std::string title;
  std::vector<Section> sections;
};

/// The list of the chapters and their sections, with their numbers and links to them.
void write_contents(HtmlWriter& html, const std::vector<Chapter>& chapters);

/// The chapters themselves, each on a new page of a print.
/// @param before_section called before each section; what it throws ends the document
void write_chapters(HtmlWriter& html, const std::vector<Chapter>& chapters,
                    const std::function<void()>& before_section);

}  // namespace aluframe::document
