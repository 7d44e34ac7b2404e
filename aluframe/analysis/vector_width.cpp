#include <atomic>

#include "aluframe/analysis/dense_tiles.h"

namespace aluframe::analysis {

namespace {

#ifdef __x86_64__

bool has_avx2() {
  return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
}

bool has_avx512() {
  return __builtin_cpu_supports("avx512f") != 0;
}

const DenseTiles& tiles_of(int doubles) {
  return doubles == 8 ? dense_tiles_of_8 : doubles == 4 ? dense_tiles_of_4 : dense_tiles_of_2;
}

#else

bool has_avx2() {
  return false;
}

bool has_avx512() {
  return false;
}

const DenseTiles& tiles_of(int) {
  return dense_tiles_of_2;
}

#endif

int widest() {
  return has_avx512() ? 8 : has_avx2() ? 4 : 2;
}

std::atomic<int>& width() {
  static std::atomic<int> doubles = widest();
  return doubles;
}

}  // namespace

bool has_vectors_of(int doubles) {
  return doubles == 2 || (doubles == 4 && has_avx2()) || (doubles == 8 && has_avx512());
}

const DenseTiles& dense_tiles() {
  return tiles_of(width());
}

int use_vectors_of(int doubles) {
  return width().exchange(doubles);
}

}  // namespace aluframe::analysis
