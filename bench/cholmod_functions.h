#pragma once

/// What the library around CHOLMOD exports, under the name `cholmod_functions`.
struct CholmodFunctions {
  /// @param rows, columns of the entries of the lower half, from 1
  void* (*open)(int size, long entries, const int* rows, const int* columns, const double* values);
  void (*analyse)(void* steps);
  void (*factorise)(void* steps);
  void (*solve)(void* steps, double* column);
  void (*close)(void* steps);
  void (*use_threads)(int threads);
};
