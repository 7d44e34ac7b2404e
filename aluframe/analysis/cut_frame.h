#pragma once

#include <optional>
#include <vector>

#include "aluframe/analysis/corotated_piece.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Pieces that a beam is cut into. Their cubic shapes make a bar between clamped ends buckle at a
/// load 5e-4 too high, a hinged one 3e-5; the five positions lie between two of them.
inline constexpr std::size_t pieces_of_beam = 8;

/// A frame whose beams are cut into pieces. Its nodes are those of the frame, in their order, and
/// the cuts behind them; a truss stays whole.
struct CutFrame {
  explicit CutFrame(const Frame& original);

  /// The loads of the original frame, on the pieces.
  LoadCase cut(const LoadCase& loads) const;

  Frame frame;
  std::vector<Geometry> geometry;        ///< of the pieces: axes are those of their elements
  std::vector<std::size_t> first_piece;  ///< of each element, and the end
  std::vector<std::size_t> element_of;   ///< of each piece
};

/// What the loads do to one piece: forces, N, and moments, N·mm, on its two nodes, global axes,
/// that keep their directions, and what they do within it.
struct LoadedPiece {
  Vector12 on_nodes = Vector12::Zero();
  PieceLoads within;
};

LoadedPiece loaded_piece(const Element& piece, const Geometry& geometry, const ElementLoads& loads);

}  // namespace aluframe::analysis
