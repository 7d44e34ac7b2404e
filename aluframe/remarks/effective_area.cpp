#include "aluframe/remarks/effective_area.h"

#include <algorithm>

#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::remarks {

namespace {

/// Any force will do: what is asked for depends on its sign only. N.
constexpr double some_force = 1e3;
/// N·mm.
constexpr double some_moment = 1e6;

AluDgnSectForce axial(double force) {
  AluDgnSectForce state;
  state.dForce[ALU_FORCE_N] = force;
  return state;
}

AluDgnSectForce bending(double moment) {
  AluDgnSectForce state;
  state.dForce[ALU_FORCE_MY] = moment;
  return state;
}

/// The section parameters that the engine forms for a force state. No check is switched on: ratios
/// are not asked for.
ALU_CAL_SECTPARA parameters(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  CALUCode_GB50429_07 engine;
  T_RALU_SECT result;
  ALU_CAL_BUFF buffer;
  engine.CheckCode(data, force, result, buffer);
  return buffer.sectpara;
}

}  // namespace

double EffectiveAreas::strip_width(const model::Element& element) {
  return element.design.haz_width.value_or(ALU_PARA_DATA().dHazWidth);
}

EffectiveAreas::Rib EffectiveAreas::rib_of(const model::Element& element) const {
  if (element.design.rib) return *element.design.rib;
  const model::DesignSettings design = model_.design.value_or(model::DesignSettings{});
  return {.stiffened = design.rib, .ratio = design.rib_ratio};
}

const EffectiveAreas::Answer& EffectiveAreas::with_ribs(const model::Element& element,
                                                        bool stiffened) {
  return of(element, {.stiffened = stiffened, .ratio = rib_of(element).ratio});
}

const EffectiveAreas::Answer& EffectiveAreas::of(const model::Element& element, const Rib& rib) {
  const Key key{element.section, element.material, strip_width(element), rib.stiffened, rib.ratio};
  const auto known = answers_.find(key);
  if (known != answers_.end()) return known->second;
  return answers_.emplace(key, ask(element, rib)).first->second;
}

EffectiveAreas::Answer EffectiveAreas::ask(const model::Element& element, const Rib& rib) const {
  T_SECT_DESIGN_D section;
  T_MATD_D material;
  attributes_.GetSectDesign(element.section, section);
  attributes_.GetMatlDesign(element.material, material);
  ALU_DGN_DATA data;
  data.SetCheckFlagAll(0);
  const IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  manager.GetSect(section, data.code.sect);
  manager.GetMatd(material, data.code.matl);
  data.code.para.dHazWidth = strip_width(element);
  data.code.para.bRib = rib.stiffened ? 1 : 0;
  data.code.para.dRibRatio = rib.ratio;
  const ALU_CAL_SECTPARA compressed = parameters(data, axial(-some_force));
  return {.gross = data.code.sect.dArea,
          .effective = std::max({compressed.dA, parameters(data, axial(some_force)).dA,
                                 parameters(data, bending(some_moment)).dA,
                                 parameters(data, bending(-some_moment)).dA}),
          .slenderness = std::max({compressed.dR1, compressed.dR2, compressed.dRw})};
}

}  // namespace aluframe::remarks
