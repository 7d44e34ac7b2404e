#include "aluframe/second_opinion/engine.h"

namespace aluframe::second_opinion {

bool Engine::ask(const ALU_DGN_DATA& data, const Forces& forces) {
  AluDgnSectForce force;
  const double values[] = {forces.n, forces.fy, forces.fz, forces.mx, forces.my, forces.mz};
  for (std::size_t i = 0; i < std::size(values); ++i) force.dForce[i] = values[i];
  return ask(data, force);
}

}  // namespace aluframe::second_opinion
