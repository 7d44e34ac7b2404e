#include "aluframe/toolkit/qt/accessible_names.h"

#include "aluframe/toolkit/qt/captions.h"

namespace aluframe::toolkit {

namespace {

std::vector<FieldCaptions> captions_of_controls(const std::vector<TemplateControl>& controls) {
  std::vector<CONTROL_TEMPLATE> origins;
  for (const TemplateControl& control : controls) origins.push_back(*control.origin);
  return captions_of(origins);
}

/// A caption as it is said: without the mark of its accelerator and its colon.
QString spoken(QString caption) {
  caption.remove(u'&');
  caption = caption.trimmed();
  while (caption.endsWith(u':') || caption.endsWith(u'\uFF1A')) caption.chop(1);
  return caption.trimmed();
}

}  // namespace

AccessibleNames::AccessibleNames(const std::vector<TemplateControl>& controls)
    : controls_(controls), captions_(captions_of_controls(controls)) {
  update();
}

QString AccessibleNames::text_of(std::optional<std::size_t> caption) const {
  return caption ? spoken(shown_text(controls_[*caption])) : QString();
}

void AccessibleNames::update() {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const FieldCaptions& captions = captions_[i];
    if (captions.name) controls_[i].widget->setAccessibleName(text_of(captions.name));
    const auto described_by = captions.unit ? captions.unit : captions.group;
    if (described_by) controls_[i].widget->setAccessibleDescription(text_of(described_by));
  }
  tie_labels();
}

/// A label is tied to the field that it names and to no other: a reader of the screen follows the
/// tie before it asks for the name. Of two fields in one place it is the one that is shown.
void AccessibleNames::tie_labels() {
  for (std::size_t label = 0; label < controls_.size(); ++label) {
    if (controls_[label].kind() != CONTROL_KIND::Label) continue;
    QWidget* named = nullptr;
    for (std::size_t i = 0; i < controls_.size(); ++i) {
      if (captions_[i].name != label) continue;
      if (named == nullptr || controls_[i].is_shown()) named = controls_[i].widget;
    }
    static_cast<CaptionLabel*>(controls_[label].widget)->set_named(named);
  }
}

}  // namespace aluframe::toolkit
