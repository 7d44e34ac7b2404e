#include "aluframe/services/model_editor.h"

#include <utility>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/services/design_codes.h"
#include "aluframe/services/settings_rules.h"
#include "aluframe/services/text.h"

namespace aluframe::services {

namespace {

constexpr int last_safety_class = 2;

model::DesignSettings settings_of(const T_DALU_D& record) {
  return {.code = to_utf8(record.strCode),
          .rib = record.bRib != 0,
          .rib_ratio = record.dRibRatio,
          .safety_class = record.nSafetyClass + 1,
          .strength_ratio = record.dStrengthRatio,
          .seismic = record.bSeismic != 0,
          .gamma_re_strength = record.dGammaREStrength,
          .gamma_re_stability = record.dGammaREStability};
}

/// The material with what the record says of it.
model::Material changed(model::Material material, const T_MATD_D& record, const UnitScale& scale) {
  const bool keeps_no_name = material.name.empty() && record.strName == record.strGrade;
  if (!keeps_no_name) material.name = to_utf8(record.strName);
  material.standard = record.strStandard.IsEmpty() ? std::string(model::user_standard)
                                                   : to_utf8(record.strStandard);
  material.grade = to_utf8(record.strGrade);
  material.e = scale.stress_in_newtons(record.dElast);
  material.poisson = record.dPoisson;
  material.fu = scale.stress_in_newtons(record.dFu);
  material.f02_thin = scale.stress_in_newtons(record.dF02Thin);
  material.f02_thick = scale.stress_in_newtons(record.dF02Thick);
  return material;
}

}  // namespace

ModelEditor::ModelEditor(model::Model* model, const UnitScale& scale)
    : model_(model), scale_(scale) {
  if (model == nullptr) return;
  first_settings_ = model->design;
  first_materials_ = model->materials;
}

int ModelEditor::AddDalu(const T_DALU_D& settings) {
  if (model_ == nullptr || settings.strCode != design_code) return 0;
  if (settings.nSafetyClass < 0 || settings.nSafetyClass > last_safety_class) return 0;
  const model::DesignSettings edited = settings_of(settings);
  if (!broken_rules(edited).empty()) return 0;
  model_->design = edited;
  return 1;
}

int ModelEditor::AddMatd(UINT matl, const T_MATD_D& material) {
  const model::Material* found = model_ == nullptr ? nullptr : model_->materials.find(matl);
  if (found == nullptr) return 0;
  model::Material edited = changed(*found, material, scale_);
  const bool in_table = catalogue::find_alloy(edited.grade) != nullptr;
  if (edited.standard == catalogue::alloy_standard && !in_table) return 0;
  if (!broken_rules(edited).empty()) return 0;
  model_->materials.replace(std::move(edited));
  return 1;
}

bool ModelEditor::settings_changed() const {
  return model_ != nullptr && model_->design != first_settings_;
}

std::vector<model::Number> ModelEditor::changed_materials() const {
  std::vector<model::Number> numbers;
  if (model_ == nullptr) return numbers;
  for (const model::Material& material : model_->materials) {
    const model::Material* first = first_materials_.find(material.number);
    if (first == nullptr || *first != material) numbers.push_back(material.number);
  }
  return numbers;
}

}  // namespace aluframe::services
