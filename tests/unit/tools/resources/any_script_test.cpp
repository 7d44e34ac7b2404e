// Any script: well-formed ones come back as they were meant, all others are refused with a place.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <sstream>

#include "tests/unit/tools/resources/read_one.h"
#include "tools/resources/writer.h"

namespace resources {
namespace {

/// A kind of controls in its generic form.
struct Form {
  CONTROL_KIND kind;
  const char* control_class;
  const char* style;
  UINT flags;
};

const std::vector<Form> forms = {
    {CONTROL_KIND::Label, "Static", "SS_LEFT", 0},
    {CONTROL_KIND::GroupBox, "Button", "BS_GROUPBOX", 0},
    {CONTROL_KIND::PushButton, "Button", "BS_DEFPUSHBUTTON", CONTROL_DEFAULT},
    {CONTROL_KIND::CheckBox, "Button", "BS_AUTOCHECKBOX", 0},
    {CONTROL_KIND::RadioButton, "Button", "BS_AUTORADIOBUTTON", 0},
    {CONTROL_KIND::Edit, "Edit", "ES_AUTOHSCROLL", CONTROL_AUTO_SCROLL},
    {CONTROL_KIND::DropDownList, "ComboBox", "CBS_DROPDOWNLIST | WS_VSCROLL",
     CONTROL_VERTICAL_SCROLL},
    {CONTROL_KIND::List, "SysListView32", "LVS_REPORT | LVS_SINGLESEL",
     CONTROL_REPORT_VIEW | CONTROL_SINGLE_SELECTION},
};

/// Styles that any control may have, and what the library carries of them.
const std::vector<std::pair<const char*, UINT>> common = {{"WS_TABSTOP", CONTROL_TAB_STOP},
                                                          {"WS_GROUP", CONTROL_GROUP},
                                                          {"WS_DISABLED", CONTROL_DISABLED},
                                                          {"WS_BORDER", CONTROL_BORDER},
                                                          {"NOT WS_VISIBLE", CONTROL_HIDDEN}};

struct Meaning {
  std::string statement;
  Control control;
};

std::string quoted(const std::string& text) {
  std::string doubled = "\"";
  for (const char c : text) doubled += c == '"' ? "\"\"" : (c == '\\' ? "\\\\" : std::string{c});
  return doubled + "\"";
}

rc::Gen<std::string> any_text() {
  return rc::gen::container<std::string>(rc::gen::inRange(' ', '\x7F'));
}

/// A statement, and the control that it describes.
Meaning any_control(int id) {
  const Form form = *rc::gen::elementOf(forms);
  const auto text = *any_text();
  const auto length = rc::gen::inRange(0, 32768);
  Meaning any;
  any.control = {form.kind, id,        std::u32string(text.begin(), text.end()),
                 *length,   *length,   *length,
                 *length,   form.flags};
  std::string style = form.style;
  for (const auto& [name, flag] : common) {
    if (!*rc::gen::arbitrary<bool>()) continue;
    style += std::string(" | ") + name;
    any.control.flags |= flag;
  }
  std::ostringstream statement;
  statement << "CONTROL " << quoted(text) << "," << id << ",\"" << form.control_class << "\","
            << style << "," << any.control.x << "," << any.control.y << "," << any.control.width
            << "," << any.control.height << "\n";
  any.statement = statement.str();
  return any;
}

void assert_same(const Control& found, const Control& expected) {
  RC_ASSERT(found.kind == expected.kind);
  RC_ASSERT(found.id == expected.id);
  RC_ASSERT(found.text == expected.text);
  RC_ASSERT(found.x == expected.x);
  RC_ASSERT(found.y == expected.y);
  RC_ASSERT(found.width == expected.width);
  RC_ASSERT(found.height == expected.height);
  RC_ASSERT(found.flags == expected.flags);
}

/// Words that scripts are made of, so that random ones get past their first statement.
rc::Gen<std::string> any_word() {
  return rc::gen::element<std::string>(
      "1", "DIALOGEX", "0,0,1,1", ",", "STYLE", "WS_POPUP", "|", "NOT", "CAPTION", "FONT", "\"a\"",
      "\"", "BEGIN", "END", "{", "}", "LTEXT", "LTEXT \"a\",-1,0,0,1,1", "EDITTEXT 5,0,0,1,1",
      "CONTROL", "\"Button\"", "BINARY", "\"resource_header.bin\"", "#",
      "#include \"resource.h\"\n", "#include <", "IDC_NAME", "-", "0x", "99999", "//", "/*", "*/",
      "\n", "\\", "\xE9\x93\x9D");
}

/// Reads a source; what is refused must be refused with file and line.
void read_or_refuse(const std::string& source) {
  try {
    RC_ASSERT(!cpp_source(read(source)).empty());
  } catch (const SourceError& error) {
    RC_ASSERT(testing::Matches(testing::ContainsRegex("^test.rc:[0-9]+: found .*, allowed "))(
        std::string(error.what())));
  }
}

RC_GTEST_PROP(AnyScript, ComesBackAsItWasMeant, ()) {
  std::string statements;
  std::vector<Control> expected;
  const int count = *rc::gen::inRange(0, 8);
  for (int id = 1; id <= count; ++id) {
    const Meaning any = any_control(id);
    statements += any.statement;
    expected.push_back(any.control);
  }
  const Script script = read(dialog_of(statements));
  RC_ASSERT(script.dialogs.at(0).controls.size() == expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    assert_same(script.dialogs[0].controls[i], expected[i]);
  }
}

RC_GTEST_PROP(AnyScript, OfRandomBytesIsReadOrRefused, (const std::string& source)) {
  read_or_refuse(source);
}

RC_GTEST_PROP(AnyScript, OfRandomWordsIsReadOrRefused, ()) {
  std::string source = *rc::gen::element<std::string>("", "1 DIALOGEX 0,0,1,1 BEGIN ", "1 BINARY ");
  for (const std::string& word : *rc::gen::container<std::vector<std::string>>(any_word())) {
    source += word + " ";
  }
  read_or_refuse(source);
}

RC_GTEST_PROP(AnyScript, CutAnywhereIsReadOrRefused, ()) {
  std::string statements;
  for (int id = 1; id <= 3; ++id) statements += any_control(id).statement;
  const std::string whole = dialog_of(statements) + "1 BINARY BEGIN \"a\", \"b\" END\n";
  read_or_refuse(whole.substr(0, *rc::gen::inRange<std::size_t>(0, whole.size() + 1)));
}

RC_GTEST_PROP(AnyHeader, OfRandomBytesIsReadOrRefused, (const std::string& source)) {
  try {
    read_symbols("test.rc", source);
  } catch (const SourceError& error) {
    RC_ASSERT(std::string(error.what()).starts_with("test.rc:"));
  }
}

}  // namespace
}  // namespace resources
