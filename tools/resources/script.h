#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/framework/resources.h"
#include "tools/resources/symbols.h"

namespace resources {

/// A control as the script describes it; the fields are those of `CONTROL_TEMPLATE`.
struct Control {
  CONTROL_KIND kind = CONTROL_KIND::Label;
  int id = kNoControlId;
  std::u32string text;
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  UINT flags = 0;
};

/// A dialog as the script describes it; the fields are those of `DIALOG_TEMPLATE`.
struct Dialog {
  UINT id = 0;
  std::u32string caption;
  int width = 0;
  int height = 0;
  bool modal_frame = false;
  bool system_menu = false;
  std::vector<Control> controls;
};

/// Binary data of the script.
struct Binary {
  UINT id = 0;
  std::string type;
  std::string bytes;
};

/// All that a script describes, in its order.
struct Script {
  std::vector<Dialog> dialogs;
  std::vector<Binary> binaries;
};

/// File name under which a script refers to the data made of the symbols.
inline constexpr std::string_view header_resource_file = "resource_header.bin";

/// Reads a resource script. It may hold
///
///     #include <system header>         ignored: the style names are known
///     #include "resource.h"            from here on the symbols can be used
///     ID DIALOGEX x, y, width, height  and its statements, see dialogs.h and controls.h
///     ID BINARY BEGIN "text" END       the bytes of ASCII texts, one behind the other
///     ID BINARY "resource_header.bin"  the symbols themselves
///
/// @param file names the script in messages
/// @param header file name, without folder, by which the script includes the symbols
/// @throws SourceError for anything else
Script read_script(const std::string& file, std::string_view source, const std::string& header,
                   const std::vector<Symbol>& symbols);

}  // namespace resources
