#pragma once

#include <optional>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/services/unit_scale.h"
#include "host/tz_db/settings_services.h"

namespace aluframe::services {

/// Puts the records that the settings dialogs store into the model, and knows what differs from the
/// model as it was first.
///
/// Stresses come in the current units and are kept in N/mm². The reserved fields of the settings,
/// which nothing uses, are not kept.
class ModelEditor : public CDataCtrl {
 public:
  /// @param model null: nothing can be changed. It must outlive the object, as must `scale`, which
  ///        is read at every call.
  ModelEditor(model::Model* model, const UnitScale& scale);

  /// @return 0 also for a code that models are not designed by, a safety class other than 0..2, and
  ///   what no model file can hold (`broken_rules`)
  int AddDalu(const T_DALU_D& settings) override;
  /// Density and thermal expansion stay. An empty standard is that of values of the user. A
  /// material without a name stays so when it is stored under its grade.
  /// @return 0 also for an unknown material, a grade that the alloys' standard does not have, and
  ///   what no model file can hold (`broken_rules`)
  int AddMatd(UINT matl, const T_MATD_D& material) override;

  bool settings_changed() const;
  /// In the order of the model.
  std::vector<model::Number> changed_materials() const;

 private:
  model::Model* model_;
  const UnitScale& scale_;
  std::optional<model::DesignSettings> first_settings_;
  model::Table<model::Material> first_materials_;
};

}  // namespace aluframe::services
