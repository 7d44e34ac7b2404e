#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// Distance between the element's nodes, mm. Both nodes must exist.
double element_length(const Model& model, const Element& element);

/// Member type of an element: its own override; truss for an axial-only element; column when its
/// axis is within 10° of the vertical, beam when within 10° of the horizontal, brace otherwise.
/// Exactly 10° is within (tolerance 1e-9°, above the rounding of coordinates). Both nodes must
/// exist and lie apart.
MemberType member_type(const Model& model, const Element& element);

/// Why a member is not a chain: "element 4 does not meet element 3 at a node", "node 7 is passed
/// twice" when it branches or closes, "element 3 is in the member twice".
/// Nothing when consecutive elements share a node, and no node is passed twice; elements may point
/// either way. All element numbers must exist.
std::optional<std::string> find_chain_problem(const Model& model, const Member& member);

/// Connections that the model implies, by number. Built once; the model must outlive it.
class Connectivity {
 public:
  explicit Connectivity(const Model& model);

  /// The member that the element belongs to, or null.
  const Member* member_of(Number element) const;
  /// Elements that have the node as an end, in the order of the file; empty for a node without any.
  const std::vector<Number>& elements_at(Number node) const;
  /// The node's support, or null.
  const Support* support_of(Number node) const;

 private:
  std::unordered_map<Number, const Member*> member_of_;
  std::unordered_map<Number, std::vector<Number>> elements_at_;
  std::unordered_map<Number, const Support*> support_of_;
};

}  // namespace aluframe::model
