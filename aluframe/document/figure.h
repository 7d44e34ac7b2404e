#pragma once

#include <string>
#include <string_view>

#include "aluframe/document/html_writer.h"
#include "aluframe/model/model.h"
#include "aluframe/picture/content.h"

namespace aluframe::document {

/// A drawing with its caption.
/// @param kind class of the style sheet: how large it is
void write_figure(HtmlWriter& html, std::string_view kind, std::string_view svg,
                  std::string_view caption);

/// A picture of the frame.
/// @param id prefix of the ids in it, unlike that of any other picture
void write_picture(HtmlWriter& html, const model::Model& model, const picture::Content& content,
                   const std::string& id);

}  // namespace aluframe::document
