#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/members/length_factors.h"
#include "aluframe/model/model.h"
#include "aluframe/second_opinion/run_opinion.h"
#include "aluframe/services/restrained_elements.h"
#include "aluframe/store/result_file.h"

// What holds members beside their frame, as the checks take it: effective length factors and
// lateral-torsional coefficients of their elements, piece by piece.

namespace aluframe::run {

struct Input;

/// What a piece of a member does. `bending` is a whole member whose bending no restraint changes.
enum class PieceKind { top_compressed, bottom_compressed, bending, buckling_y, buckling_z };

/// "bending, top compressed", "buckling about y" and so on.
const char* name_of(PieceKind kind);

/// A piece of a member that buckles by itself.
struct RestrainedPiece {
  model::Number member = 0;
  PieceKind kind = PieceKind::buckling_y;
  double start = 0.0, end = 0.0;  ///< mm from the member's start
  /// Of bending: the first combination that has the piece.
  std::optional<model::Number> combination = std::nullopt;
  std::vector<model::Number> elements;     ///< that have a part of it
  std::optional<double> k = std::nullopt;  ///< of buckling
  /// Of bending, where φb is computed for it.
  std::optional<double> critical_moment = std::nullopt;  ///< N·mm
  std::optional<double> slenderness = std::nullopt;
  std::optional<double> phi_b = std::nullopt;
  std::string remark;  ///< what an engineer should know about it; empty: nothing
};

/// What the restraints of a model come to; all empty without any.
struct Restrained {
  services::RestrainedElements elements;
  std::vector<RestrainedPiece> pieces;
  std::vector<store::RemarkRow> remarks;
  /// Ends of members with φb by restraints whose supports are taken to hold the twist.
  int assumed_twists = 0;
  /// What the checks have no word for. φb of elements whose checks have a larger one, because they
  /// halve the member's length for a support between its ends; where pieces meet that buckle by
  /// themselves, for the moment factors of these.
  second_opinion::RestrainedMembers beyond_checks;
};

/// A setting of a run that tells how many elements have something by restraints; nothing for a
/// model without any.
std::optional<store::SettingRow> restraints_row(const model::Model& model,
                                                const Restrained& restrained);

/// Needs the forces of the model, for a flange braces only combinations that compress it, and the
/// effective length factors that its members have without restraints. Binds a host of its own.
Restrained restrained_elements(const Input& input,
                               const std::vector<members::SegmentFactors>& factors);

}  // namespace aluframe::run
