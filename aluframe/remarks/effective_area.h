#pragma once

#include <map>
#include <tuple>

#include "aluframe/model/model.h"
#include "aluframe/services/attributes.h"

namespace aluframe::remarks {

/// What the checks make of an element's section, asked of the check engine itself. It is asked once
/// for every section, material, zone width and rib setting of a model.
class EffectiveAreas {
 public:
  struct Answer {
    double gross = 0.0;  ///< area, mm²
    double effective =
        0.0;  ///< the largest that the checks take in tension, compression or bending
    double slenderness = 0.0;  ///< largest plate slenderness over its limit, in compression
  };

  /// The model must outlive the object.
  explicit EffectiveAreas(const model::Model& model) : model_(model), attributes_(model, scale_) {}
  EffectiveAreas(const EffectiveAreas&) = delete;
  EffectiveAreas& operator=(const EffectiveAreas&) = delete;

  /// Of the element as it stands. Its section is of a shape that the checks cover.
  const Answer& of(const model::Element& element) { return of(element, rib_of(element)); }
  /// Of the element with its plates taken as stiffened by ribs or not.
  const Answer& with_ribs(const model::Element& element, bool stiffened);

  /// Width of its heat-affected strips, mm.
  static double strip_width(const model::Element& element);

 private:
  using Rib = model::ElementDesign::Rib;
  using Key = std::tuple<model::Number, model::Number, double, bool, double>;

  Rib rib_of(const model::Element& element) const;
  const Answer& of(const model::Element& element, const Rib& rib);
  Answer ask(const model::Element& element, const Rib& rib) const;

  const model::Model& model_;
  services::UnitScale scale_;
  services::Attributes attributes_;
  std::map<Key, Answer> answers_;
};

}  // namespace aluframe::remarks
