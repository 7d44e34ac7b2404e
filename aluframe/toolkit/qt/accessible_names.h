#pragma once

#include <vector>

#include "aluframe/toolkit/qt/template_control.h"
#include "aluframe/toolkit/template/field_captions.h"

namespace aluframe::toolkit {

/// What a reader of the screen says of a dialog's controls: a field's name, and its unit or a radio
/// button's group as description. Push buttons, check boxes and texts speak for themselves.
class AccessibleNames {
 public:
  /// The controls outlive this.
  explicit AccessibleNames(const std::vector<TemplateControl>& controls);

  /// To be called when texts were changed, or controls shown or hidden.
  void update();

 private:
  void tie_labels();
  QString text_of(std::optional<std::size_t> caption) const;

  const std::vector<TemplateControl>& controls_;
  std::vector<FieldCaptions> captions_;
};

}  // namespace aluframe::toolkit
