#include "aluframe/run/forces_digest.h"

#include "aluframe/store/digest.h"

namespace aluframe::run {

namespace {

void add(store::Digest& digest, const model::ForceTable& table) {
  digest.add(table.forces().size());
  for (const model::CaseForces& forces : table.forces()) {
    digest.add(forces.at.data(), sizeof forces.at);
    digest.add(forces.inner);
  }
  digest.add(table.given().data(), table.given().size());
}

void add(store::Digest& digest, const members::LengthFactor& factor) {
  digest.add(factor.k);
  digest.add(static_cast<int>(factor.source));
}

}  // namespace

std::string forces_digest(const Input& input) {
  store::Digest digest;
  add(digest, input.model.forces);
  add(digest, input.model.combined_forces);
  for (const members::SegmentFactors& factors : input.length_factors) {
    add(digest, factors.y);
    add(digest, factors.z);
  }
  return digest.text();
}

}  // namespace aluframe::run
