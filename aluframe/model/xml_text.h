#pragma once

#include <string>
#include <string_view>

namespace aluframe::model {

/// A user's text as content or as an attribute of XML: & < > " ' escaped, a blank for every control
/// character and mark of the direction of writing (plain_text.h), U+FFFD for what is no UTF-8 or no
/// character of XML.
///
///     out += "<text>" + for_xml(section.name) + "</text>";
std::string for_xml(std::string_view text);

}  // namespace aluframe::model
