#pragma once

/// Products and triangular solutions of dense blocks for the equation solver. The solver's library
/// takes them from whatever BLAS the machine has: the reference one is several times slower, and
/// the fast ones choose their order of sums by the processor, so that the last digits of forces
/// would differ from machine to machine. These have one order of sums on every processor, whatever
/// vectors it has, and with any number of threads.
///
/// They have the names and arguments of the Fortran interface (all by reference, matrices by
/// columns with their leading dimension, flags as letters: N or T, L or U, N or U, L or R) and go
/// before those of the shared library because the program itself defines them. Strides are
/// positive.
#define ALUFRAME_DENSE_KERNEL extern "C" __attribute__((visibility("default"))) void

/// C = alpha op(A) op(B) + beta C, with C of m x n and k products an entry.
ALUFRAME_DENSE_KERNEL dgemm_(const char* transpose_a, const char* transpose_b, const int* m,
                             const int* n, const int* k, const double* alpha, const double* a,
                             const int* lda, const double* b, const int* ldb, const double* beta,
                             double* c, const int* ldc);

/// B = alpha op(A)^-1 B or alpha B op(A)^-1, with A triangular and B of m x n.
ALUFRAME_DENSE_KERNEL dtrsm_(const char* side, const char* triangle, const char* transpose,
                             const char* diagonal, const int* m, const int* n, const double* alpha,
                             const double* a, const int* lda, double* b, const int* ldb);

/// y = alpha op(A) x + beta y, with A of m x n.
ALUFRAME_DENSE_KERNEL dgemv_(const char* transpose, const int* m, const int* n, const double* alpha,
                             const double* a, const int* lda, const double* x, const int* stride_x,
                             const double* beta, double* y, const int* stride_y);

/// y = alpha x + y.
ALUFRAME_DENSE_KERNEL daxpy_(const int* n, const double* alpha, const double* x,
                             const int* stride_x, double* y, const int* stride_y);

namespace aluframe::analysis {

/// Call before the solver starts: keeps the linker from leaving the functions out.
void take_own_dense_kernels();

}  // namespace aluframe::analysis
