#pragma once

#include <QRadioButton>
#include <vector>

namespace aluframe::toolkit {

class RadioGroup;

/// A radio button of a dialog's group. A click checks it and unchecks the others of its group; the
/// arrow keys go to the next one and click it. The program may check any, several or none.
class RadioButton : public QRadioButton {
 public:
  /// @param tab_stop whether the Tab key stops here while no button of the group is checked
  RadioButton(bool tab_stop, QWidget* parent);

  void join(RadioGroup& group);
  bool is_tab_stop() const { return tab_stop_; }

 protected:
  void nextCheckState() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool tab_stop_;
  RadioGroup* group_ = nullptr;
};

/// Radio buttons that exclude each other, in the order of the arrow keys.
class RadioGroup {
 public:
  void add(RadioButton& button) { buttons_.push_back(&button); }
  void check_alone(RadioButton& button);
  /// Goes to the next button that can be used, or to the one before, around the ends, and clicks
  /// it.
  void step(RadioButton& from, bool forward);
  /// Lets the Tab key stop at the checked button, or at the first when none is.
  void update_tab_stop();

 private:
  std::vector<RadioButton*> buttons_;
};

}  // namespace aluframe::toolkit
