#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace resources {

/// A name of a dialog or control.
struct Symbol {
  std::string name;
  int number = 0;  ///< 0 to 65535
};

/// The symbols of a header whose lines are "#define NAME number", in its order. Comments and
/// "#pragma once" may stand beside them.
/// @param file names the header in messages
/// @throws SourceError for any other line, and for a name that is defined twice
std::vector<Symbol> read_symbols(const std::string& file, std::string_view source);

/// The symbols as the module carries them: UTF-16, little-endian, behind a byte-order mark; a line
/// "#define NAME number" each, the number decimal, ended by carriage return and line feed.
std::string header_resource(const std::vector<Symbol>& symbols);

}  // namespace resources
