#include "tools/resources/controls.h"

#include <string>
#include <string_view>

#include "tools/resources/styles.h"

namespace resources {

namespace {

constexpr int largest_id = 65535;
constexpr int largest_length = 32767;

enum class TextOf { Statement, Nothing };

/// A statement for one kind of controls.
struct ControlStatement {
  std::string_view name;
  const ControlClass* control_class;
  Style style;  ///< of a control without a style of its own
  TextOf text;
};

// A label begins a group, so it ends that of radio buttons before it.
constexpr ControlStatement statements[] = {
    {"LTEXT", &static_class, ss_left | ws_group, TextOf::Statement},
    {"RTEXT", &static_class, ss_right | ws_group, TextOf::Statement},
    {"CTEXT", &static_class, ss_center | ws_group, TextOf::Statement},
    {"GROUPBOX", &button_class, bs_groupbox, TextOf::Statement},
    {"PUSHBUTTON", &button_class, bs_pushbutton | ws_tabstop, TextOf::Statement},
    {"DEFPUSHBUTTON", &button_class, bs_defpushbutton | ws_tabstop, TextOf::Statement},
    {"CHECKBOX", &button_class, bs_checkbox | ws_tabstop, TextOf::Statement},
    {"AUTOCHECKBOX", &button_class, bs_autocheckbox | ws_tabstop, TextOf::Statement},
    {"AUTORADIOBUTTON", &button_class, bs_autoradiobutton | ws_tabstop, TextOf::Statement},
    {"EDITTEXT", &edit_class, ws_border | ws_tabstop, TextOf::Nothing},
    {"COMBOBOX", &combo_box_class, cbs_simple | ws_tabstop, TextOf::Nothing},
};

/// Reads one control, part by part.
class ControlReader {
 public:
  ControlReader(TokenStream& stream, const SymbolTable& symbols)
      : stream_(stream), symbols_(symbols), first_(stream.peek()) {}

  Control read() {
    if (first_.is_word("CONTROL")) return read_any();
    std::string allowed = "END, CONTROL";
    for (const ControlStatement& statement : statements) {
      if (first_.is_word(statement.name)) return read_statement(statement);
      allowed += ", " + std::string(statement.name);
    }
    stream_.fail(allowed);
  }

 private:
  Control read_statement(const ControlStatement& statement) {
    stream_.take();
    if (statement.text == TextOf::Statement) read_text();
    read_id();
    stream_.expect_mark(',');
    read_place();
    Style style = statement.style | ws_visible;
    if (stream_.accept_mark(',')) style = style_behind(style, *statement.control_class);
    return finish(*statement.control_class, style);
  }

  Control read_any() {
    stream_.take();
    read_text();
    read_id();
    stream_.expect_mark(',');
    const ControlClass& control_class = take_class();
    stream_.expect_mark(',');
    const Style style = style_behind(ws_visible, control_class);
    stream_.expect_mark(',');
    read_place();
    return finish(control_class, style);
  }

  void read_text() {
    control_.text = stream_.take_text("the control's text in double quotes");
    stream_.expect_mark(',');
  }

  void read_id() {
    control_.id = stream_.take_number_or_symbol(symbols_, kNoControlId, largest_id);
  }

  void read_place() {
    control_.x = stream_.take_number("a coordinate", -largest_length, largest_length);
    stream_.expect_mark(',');
    control_.y = stream_.take_number("a coordinate", -largest_length, largest_length);
    stream_.expect_mark(',');
    control_.width = stream_.take_number("a width", 0, largest_length);
    stream_.expect_mark(',');
    control_.height = stream_.take_number("a height", 0, largest_length);
  }

  const ControlClass& take_class() {
    std::string allowed;
    for (const ControlClass* control_class : control_classes()) {
      const std::string quoted = "\"" + std::string(control_class->name) + "\"";
      if (stream_.peek().spelling == quoted) {
        stream_.take();
        return *control_class;
      }
      allowed += (allowed.empty() ? "" : ", ") + quoted;
    }
    stream_.fail(allowed);
  }

  Style style_behind(Style initial, const ControlClass& control_class) {
    return read_style(stream_, initial, {control_class.styles, common_styles()});
  }

  Control finish(const ControlClass& control_class, Style style) {
    const Appearance appearance = appearance_of(control_class, style, stream_, first_);
    control_.kind = appearance.kind;
    control_.flags = appearance.flags;
    return control_;
  }

  TokenStream& stream_;
  const SymbolTable& symbols_;
  Token first_;
  Control control_;
};

}  // namespace

Control read_control(TokenStream& stream, const SymbolTable& symbols) {
  return ControlReader(stream, symbols).read();
}

}  // namespace resources
