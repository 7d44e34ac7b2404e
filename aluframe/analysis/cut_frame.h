#pragma once

#include <optional>
#include <span>
#include <vector>

#include "aluframe/analysis/corotated_piece.h"
#include "aluframe/analysis/load_vector.h"

namespace aluframe::analysis {

/// Pieces that a beam is cut into at least. Their cubic shapes make a bar between clamped ends
/// buckle at a load 5e-4 too high, a hinged one 3e-5; the five positions lie between two of them.
inline constexpr std::size_t pieces_of_beam = 8;
/// And at most.
inline constexpr std::size_t most_pieces_of_beam = 1024;

/// Pieces that every element of a frame is cut into, a beam a multiple of four.
using PieceCounts = std::vector<std::size_t>;
PieceCounts usual_pieces(const Frame& frame);

/// A frame whose beams are cut into pieces. Its nodes are those of the frame, in their order, and
/// the cuts behind them; a truss stays whole.
struct CutFrame {
  CutFrame(const Frame& original, const PieceCounts& counts);

  std::size_t count_of(std::size_t element) const {
    return first_piece[element + 1] - first_piece[element];
  }
  /// Pieces with which cubic shapes follow how axial forces bend the elements: a strongly pulled
  /// beam bends within a short way from its ends.
  /// @param axial_forces of the pieces, N
  PieceCounts enough_pieces(std::span<const double> axial_forces) const;

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
