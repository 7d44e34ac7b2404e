#include "tools/resources/writer.h"

#include <cstddef>
#include <locale>
#include <sstream>
#include <string_view>

namespace resources {

namespace {

constexpr std::string_view beginning =
    "// Made by resource_compiler. Do not edit.\n"
    "#include \"tz_alu/dialogs/module_resources.h\"\n"
    "\n"
    "namespace {\n";

struct KindName {
  CONTROL_KIND kind;
  std::string_view name;
};

constexpr KindName kind_names[] = {
    {CONTROL_KIND::Label, "Label"},
    {CONTROL_KIND::GroupBox, "GroupBox"},
    {CONTROL_KIND::PushButton, "PushButton"},
    {CONTROL_KIND::CheckBox, "CheckBox"},
    {CONTROL_KIND::RadioButton, "RadioButton"},
    {CONTROL_KIND::Edit, "Edit"},
    {CONTROL_KIND::DropDownList, "DropDownList"},
    {CONTROL_KIND::List, "List"},
};

struct FlagName {
  CONTROL_FLAG flag;
  std::string_view name;
};

constexpr FlagName flag_names[] = {
    {CONTROL_TAB_STOP, "CONTROL_TAB_STOP"},
    {CONTROL_GROUP, "CONTROL_GROUP"},
    {CONTROL_HIDDEN, "CONTROL_HIDDEN"},
    {CONTROL_DISABLED, "CONTROL_DISABLED"},
    {CONTROL_BORDER, "CONTROL_BORDER"},
    {CONTROL_AUTO_SCROLL, "CONTROL_AUTO_SCROLL"},
    {CONTROL_VERTICAL_SCROLL, "CONTROL_VERTICAL_SCROLL"},
    {CONTROL_REPORT_VIEW, "CONTROL_REPORT_VIEW"},
    {CONTROL_SINGLE_SELECTION, "CONTROL_SINGLE_SELECTION"},
    {CONTROL_DEFAULT, "CONTROL_DEFAULT"},
};

/// The lowest `count` digits of `number` in a base of a power of two.
std::string digits(char32_t number, unsigned bits, std::size_t count) {
  std::string text(count, '0');
  for (std::size_t i = count; i > 0; --i, number >>= bits) {
    text[i - 1] = "0123456789ABCDEF"[number & ((1U << bits) - 1U)];
  }
  return text;
}

/// A character inside a literal. Control characters have no escape by code point, and an octal one
/// ends after three digits whatever follows.
std::string character(char32_t code) {
  if (code == U'"' || code == U'\\') return {'\\', static_cast<char>(code)};
  if (code >= 0x20 && code < 0x7F) return {static_cast<char>(code)};
  if (code < 0xA0) return "\\" + digits(code, 3, 3);
  if (code <= 0xFFFF) return "\\u" + digits(code, 4, 4);
  return "\\U" + digits(code, 4, 8);
}

template <class Text>
std::string wide_literal(const Text& text) {
  std::string literal = "L\"";
  for (const auto c : text) literal += character(static_cast<char32_t>(c));
  return literal + "\"";
}

std::string_view name_of(CONTROL_KIND kind) {
  for (const KindName& named : kind_names) {
    if (named.kind == kind) return named.name;
  }
  return {};
}

std::string names_of(UINT flags) {
  std::string names;
  for (const FlagName& named : flag_names) {
    if ((flags & named.flag) == 0) continue;
    if (!names.empty()) names += " | ";
    names += named.name;
  }
  return names.empty() ? "0" : names;
}

std::string id_of(const Control& control) {
  return control.id == kNoControlId ? "kNoControlId" : std::to_string(control.id);
}

void write(std::ostream& out, const Control& control) {
  out << "    {CONTROL_KIND::" << name_of(control.kind) << ", " << id_of(control) << ", "
      << wide_literal(control.text) << ", " << control.x << ", " << control.y << ", "
      << control.width << ", " << control.height << ", " << names_of(control.flags) << "},\n";
}

// There is no array of nothing, so an empty one is not written, and its span is empty.

void write_controls(std::ostream& out, const Dialog& dialog) {
  if (dialog.controls.empty()) return;
  out << "\nconstexpr CONTROL_TEMPLATE kControls" << dialog.id << "[] = {\n";
  for (const Control& control : dialog.controls) write(out, control);
  out << "};\n";
}

std::string span_of(bool empty, const std::string& array) {
  return empty ? "{}" : array;
}

void write(std::ostream& out, const Dialog& dialog) {
  const auto truth = [](bool value) { return value ? "true" : "false"; };
  out << "    {" << dialog.id << ", " << wide_literal(dialog.caption) << ", " << dialog.width
      << ", " << dialog.height << ", " << truth(dialog.modal_frame) << ", "
      << truth(dialog.system_menu) << ", "
      << span_of(dialog.controls.empty(), "kControls" + std::to_string(dialog.id)) << "},\n";
}

void write_dialogs(std::ostream& out, const Script& script) {
  for (const Dialog& dialog : script.dialogs) write_controls(out, dialog);
  if (script.dialogs.empty()) return;
  out << "\nconstexpr DIALOG_TEMPLATE kDialogs[] = {\n";
  for (const Dialog& dialog : script.dialogs) write(out, dialog);
  out << "};\n";
}

void write_bytes(std::ostream& out, const Binary& binary) {
  constexpr std::size_t bytes_a_line = 16;
  if (binary.bytes.empty()) return;
  out << "\nconstexpr unsigned char kBytes" << binary.id << "[] = {";
  for (std::size_t i = 0; i < binary.bytes.size(); ++i) {
    out << (i % bytes_a_line == 0 ? "\n    " : " ") << "0x"
        << digits(static_cast<unsigned char>(binary.bytes[i]), 4, 2) << ",";
  }
  out << "\n};\n";
}

void write(std::ostream& out, const Binary& binary) {
  out << "    {" << binary.id << ", " << wide_literal(binary.type) << ", "
      << span_of(binary.bytes.empty(), "kBytes" + std::to_string(binary.id)) << "},\n";
}

void write_binaries(std::ostream& out, const Script& script) {
  for (const Binary& binary : script.binaries) write_bytes(out, binary);
  if (script.binaries.empty()) return;
  out << "\nconstexpr BINARY_RESOURCE kBinaries[] = {\n";
  for (const Binary& binary : script.binaries) write(out, binary);
  out << "};\n";
}

}  // namespace

std::string cpp_source(const Script& script) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << beginning;
  write_dialogs(out, script);
  write_binaries(out, script);
  out << "\n}  // namespace\n\nconstinit const MODULE_RESOURCES kModuleResources = {"
      << span_of(script.dialogs.empty(), "kDialogs") << ", "
      << span_of(script.binaries.empty(), "kBinaries") << "};\n";
  return out.str();
}

}  // namespace resources
