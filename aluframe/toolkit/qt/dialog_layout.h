#pragma once

#include <QSize>
#include <vector>

#include "aluframe/toolkit/qt/template_control.h"

class QDialog;

namespace aluframe::toolkit {

/// Places the controls of a template in their dialog and fixes the dialog's size. Where a text does
/// not fit its control, the dialog is stretched as a whole, so that nothing is cut and what was
/// aligned stays so. A dialog that has grown does not shrink again.
class DialogLayout {
 public:
  DialogLayout(const DIALOG_TEMPLATE& dialog, QDialog& window,
               const std::vector<TemplateControl>& controls)
      : template_(dialog), window_(window), controls_(controls) {}

  /// To be called again when texts, columns or fonts have changed.
  void place();

 private:
  const DIALOG_TEMPLATE& template_;
  QDialog& window_;
  const std::vector<TemplateControl>& controls_;
  double horizontal_ = 1.0;  ///< stretch
  double vertical_ = 1.0;
};

/// Size that shows the whole of a control: its text, a list's columns. What is entered and chosen
/// may be wider than its control. 0 where any size will do.
QSize needed_size(const TemplateControl& control);

}  // namespace aluframe::toolkit
