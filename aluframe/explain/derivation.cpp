#include "aluframe/explain/derivation.h"

#include <utility>

#include "tz_alu/engine/design_strength.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/engine/section_parameters.h"

namespace aluframe::explain {

Derivation::Derivation(const ALU_DGN_DATA& data, const AluDgnSectForce& force, Origins from)
    : material(alu_engine::ClassifyMaterial(data.code.matl)),
      in{data, force, material},
      section(alu_engine::SectionParameters(in)),
      lambda(alu_engine::MemberSlenderness(data)),
      is_unsymmetric(alu_engine::IsUnsymmetric(data.code.sect)),
      origins(std::move(from)) {}

std::string Derivation::hardening() const {
  return is_weak() ? translatable("weakly hardening alloy")
                   : translatable("strongly hardening alloy");
}

Term Derivation::given(const Info& info, double value, const std::vector<std::string>& because) {
  return trace.once(info.symbol, [&] { return trace.given(info, value, because); });
}

}  // namespace aluframe::explain
