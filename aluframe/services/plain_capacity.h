#pragma once

#include "aluframe/model/model.h"

namespace aluframe::services {

/// What an element's gross section carries of shear or torsion alone, in N and N·mm: the scale on
/// which a force that no check is made for is large or negligible, not a check. 0 where the section
/// does not say (properties alone), so that no force counts as negligible.
struct PlainCapacity {
  double shear_y = 0.0;  ///< fv·Izz/(Q/b)
  double shear_z = 0.0;  ///< fv·Iyy/(Q/b)
  /// Elastic St-Venant torsion: fv·It over the thickest plate; a round section over its radius; a
  /// box by Bredt, 2·A·t·fv, with the area within the middle of its walls and its thinnest wall.
  double torsion = 0.0;
};

/// With fv = f/√3 and f = f0.2/1.2 of thin plates (GB 50429-2007, 4.3.4), welds left aside.
/// Everything is 0 for an element that the model does not have.
PlainCapacity plain_capacity(const model::Model& model, model::Number element);

}  // namespace aluframe::services
