#pragma once

#include <cstddef>

/// The innermost loops of dense products and triangular solutions, for each width of vectors that
/// processors of the x86-64 family have; the widest that the processor at hand has is chosen when
/// the program runs. Vectors run over rows of a result, never along a sum, and every product is
/// added to its sum with one rounding (fused multiply-add), so that every entry is the same sequence
/// of rounded operations under each width. A processor without such an operation gets its digits by
/// many others: the same, but about twenty times slower.
///
/// `dense_tiles.cpp` is compiled once for each width. It includes nothing but this file and what
/// stands for single instructions, and uses no function from elsewhere: a copy of one, compiled for
/// a wide processor, could become the whole program's.
namespace aluframe::analysis {

/// Entries of a result that are formed in one go.
inline constexpr int tile_rows = 16;
inline constexpr int tile_columns = 4;

struct DenseTiles {
  /// C += factor · (A·B), every entry of A·B being one sum in the order of the depth, each step
  /// rounded once; the last two operations are rounded each. `left` holds A column after column, `right` B row after row; `result` is a full tile, by columns.
  void (*multiply)(int depth, const double* left, const double* right, double factor,
                   double* result, std::ptrdiff_t leading);
  /// Replaces X by L⁻¹·X, with L lower triangular, by rows of `size`, and X of `tile_rows` numbers
  /// a row. A `diagonal` of nothing is all ones.
  void (*solve)(int size, const double* triangle, const double* diagonal, double* x);
};

extern const DenseTiles dense_tiles_of_2;  ///< doubles a vector: any processor
#ifdef __x86_64__
extern const DenseTiles dense_tiles_of_4;  ///< AVX2 and FMA
extern const DenseTiles dense_tiles_of_8;  ///< AVX-512
#endif

/// Whether the processor has vectors of 2, 4 or 8 doubles.
bool has_vectors_of(int doubles);

/// Those of the widest vectors, unless told otherwise.
const DenseTiles& dense_tiles();

/// Takes vectors of this width from now on, in every thread: for comparisons. The processor must
/// have them. @return the width until now
int use_vectors_of(int doubles);

}  // namespace aluframe::analysis
