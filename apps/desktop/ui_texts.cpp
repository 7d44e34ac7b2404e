#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

struct Entry {
  Text text;
  const char16_t* english;
  const char16_t* chinese;
};

constexpr Entry entries[] = {
    {Text::file_menu, u"&File", u"\u6587\u4EF6(&F)"},
    {Text::open, u"&Open...", u"\u6253\u5F00(&O)..."},
    {Text::save, u"&Save", u"\u4FDD\u5B58(&S)"},
    {Text::quit, u"&Quit", u"\u9000\u51FA(&Q)"},
    {Text::design_menu, u"&Design", u"\u8BBE\u8BA1(&D)"},
    {Text::design_code, u"Design &code...", u"\u8BBE\u8BA1\u89C4\u8303(&C)..."},
    {Text::materials, u"&Materials...", u"\u6750\u6599(&M)..."},
    {Text::no_model, u"Open a model to see its settings and materials.",
     u"\u8BF7\u6253\u5F00\u6A21\u578B\u4EE5\u67E5\u770B\u5176\u8BBE\u7F6E\u548C\u6750\u6599\u3002"},
    {Text::choose_model, u"Open a model", u"\u6253\u5F00\u6A21\u578B"},
    {Text::model_files, u"Model files (*.json);;All files (*)",
     u"\u6A21\u578B\u6587\u4EF6 (*.json);;\u6240\u6709\u6587\u4EF6 (*)"},
    {Text::file, u"File", u"\u6587\u4EF6"},
    {Text::settings, u"Design settings", u"\u8BBE\u8BA1\u8BBE\u7F6E"},
    {Text::no_settings, u"The model has no design settings.",
     u"\u6A21\u578B\u6CA1\u6709\u8BBE\u8BA1\u8BBE\u7F6E\u3002"},
    {Text::code, u"Design code", u"\u8BBE\u8BA1\u89C4\u8303"},
    {Text::safety_class, u"Safety class", u"\u5B89\u5168\u7B49\u7EA7"},
    {Text::strength_ratio, u"Strength adjustment ratio", u"\u5F3A\u5EA6\u8C03\u6574\u7CFB\u6570"},
    {Text::ribs, u"Rib stiffeners", u"\u52A0\u52B2\u808B"},
    {Text::rib_ratio, u"Rib stiffener ratio", u"\u52A0\u52B2\u808B\u7CFB\u6570"},
    {Text::seismic, u"Seismic design", u"\u8003\u8651\u5730\u9707"},
    {Text::gamma_re_strength, u"\u03B3RE, strength", u"\u03B3RE\uFF08\u5F3A\u5EA6\uFF09"},
    {Text::gamma_re_stability, u"\u03B3RE, stability", u"\u03B3RE\uFF08\u7A33\u5B9A\uFF09"},
    {Text::yes, u"yes", u"\u662F"},
    {Text::no, u"no", u"\u5426"},
    {Text::number, u"No.", u"\u7F16\u53F7"},
    {Text::name, u"Name", u"\u540D\u79F0"},
    {Text::standard, u"Standard", u"\u6807\u51C6"},
    {Text::grade, u"Grade", u"\u724C\u53F7"},
    {Text::poisson, u"Poisson's ratio", u"\u6CCA\u677E\u6BD4"},
    {Text::save_changes, u"Save the changes?", u"\u662F\u5426\u4FDD\u5B58\u66F4\u6539\uFF1F"},
    {Text::dialog_failed, u"The dialog did not open.",
     u"\u5BF9\u8BDD\u6846\u672A\u80FD\u6253\u5F00\u3002"},
};

}  // namespace

QString ui_text(Text text, services::Language language) {
  for (const Entry& entry : entries) {
    if (entry.text != text) continue;
    const bool english = language == services::Language::english;
    return QString::fromUtf16(english ? entry.english : entry.chinese);
  }
  return {};
}

}  // namespace aluframe::desktop
