#pragma once

#include <string>
#include <vector>

class QDialog;

namespace gui_test {

/// Texts of labels, group boxes and buttons that their widget is too small to show, and lists that
/// do not show all their columns; what is not shown at the moment included.
std::vector<std::string> cut_texts(const QDialog& dialog);

/// Pairs of controls that cover each other, "1001/6654", but for group boxes and what they frame.
std::vector<std::string> overlaps(const QDialog& dialog);

}  // namespace gui_test
