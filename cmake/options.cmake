# Compiler settings shared by every target of ours: warnings are errors, and numbers must repeat on
# every machine, so neither fast-math, nor -march=native, nor contraction to fused multiply-add.
add_library(aluframe_options INTERFACE)
target_compile_options(aluframe_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -ffp-contract=off
  # g++ 12 takes the unused alternatives of a std::variant for uninitialised values.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
  # g++ leaves changes of sign out of -Wconversion; clang is to do the same.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
  # The stable_sort of g++ 12's library calls what clang knows as deprecated.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)

if(ALUFRAME_COVERAGE)
  target_compile_options(aluframe_options INTERFACE --coverage -O0)
  target_link_options(aluframe_options INTERFACE --coverage)
endif()
if(ALUFRAME_SANITIZE)
  target_compile_options(aluframe_options INTERFACE
    -fsanitize=${ALUFRAME_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(aluframe_options INTERFACE -fsanitize=${ALUFRAME_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers go with their text, which the cache compares, not with their time.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
  target_compile_options(aluframe_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

# The code under a fuzz target reports its coverage to libFuzzer.
if(ALUFRAME_FUZZ)
  target_compile_options(aluframe_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
