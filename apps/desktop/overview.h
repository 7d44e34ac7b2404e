#pragma once

#include <QWidget>

#include "aluframe/model/model.h"

class QFormLayout;
class QLabel;
class QTableWidget;

namespace aluframe::desktop {

/// What a model is designed with, to be read: title, file, design settings, and its materials with
/// E and strengths in N/mm².
class Overview : public QWidget {
 public:
  Overview();

  void show_model(const model::Model& model, const QString& file);

 private:
  void add_row(QFormLayout& form, const QString& name, const QString& value);
  void show_settings(const model::Model& model);
  void show_materials(const model::Model& model);

  QLabel* title_;
  QLabel* file_;
  QFormLayout* settings_;
  QTableWidget* materials_;
};

}  // namespace aluframe::desktop
