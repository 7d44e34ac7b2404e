#include "tools/resources/dialogs.h"

#include <set>

#include "tools/resources/controls.h"
#include "tools/resources/styles.h"

namespace resources {

namespace {

constexpr int largest_length = 32767;

void read_place(TokenStream& stream, Dialog& dialog) {
  for (int i = 0; i < 2; ++i) {
    stream.take_number("a coordinate", -largest_length, largest_length);
    stream.expect_mark(',');
  }
  dialog.width = stream.take_number("a width", 0, largest_length);
  stream.expect_mark(',');
  dialog.height = stream.take_number("a height", 0, largest_length);
}

void read_style_statement(TokenStream& stream, Dialog& dialog) {
  const Style style = read_style(stream, 0, {dialog_styles()});
  dialog.modal_frame = (style & ds_modalframe) != 0;
  dialog.system_menu = (style & ws_sysmenu) != 0;
}

void skip_font(TokenStream& stream) {
  stream.take_number("a font size", 1, largest_length);
  stream.expect_mark(',');
  stream.take_text("the name of a font in double quotes");
  while (stream.accept_mark(',')) stream.take_number("a number", 0, largest_length);
}

/// Reads a statement between size and controls. @return false when none stands there
bool accept_statement(TokenStream& stream, Dialog& dialog) {
  const Token& first = stream.peek();
  if (first.is_word("STYLE")) {
    stream.take();
    read_style_statement(stream, dialog);
  } else if (first.is_word("CAPTION")) {
    stream.take();
    dialog.caption = stream.take_text("a caption in double quotes");
  } else if (first.is_word("FONT")) {
    stream.take();
    skip_font(stream);
  } else {
    return false;
  }
  return true;
}

void read_controls(TokenStream& stream, const SymbolTable& symbols, Dialog& dialog) {
  std::set<int> ids;
  while (!stream.accept_end()) {
    const Token first = stream.peek();
    dialog.controls.push_back(read_control(stream, symbols));
    const int id = dialog.controls.back().id;
    if (id != kNoControlId && !ids.insert(id).second) {
      stream.fail_at(first, "a control whose identifier no other of the dialog has");
    }
  }
}

}  // namespace

Dialog read_dialog(TokenStream& stream, const SymbolTable& symbols) {
  Dialog dialog;
  dialog.system_menu = true;  // without a STYLE
  read_place(stream, dialog);
  while (accept_statement(stream, dialog)) {
  }
  stream.expect_begin("STYLE, CAPTION, FONT or BEGIN");
  read_controls(stream, symbols, dialog);
  return dialog;
}

}  // namespace resources
