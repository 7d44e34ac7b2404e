// Heap allocations of an engine call, counted by replacing the program's operator new, which the
// module's library uses too.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "bench/engine_points.h"
#include "tz_alu/engine/alucode_gb50429_07.h"

namespace {

int allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

TEST(EngineCall, AllocatesTheReportRecordOfItsBufferAlone) {
  CALUCode_GB50429_07 engine;
  T_RALU_SECT result;
  for (const EnginePoint& point : engine_points()) {
    const int before = allocations;
    engine.CheckCode(point.data, point.force, result);
    EXPECT_EQ(allocations - before, 1) << point.shape;
  }
}

TEST(EngineCall, AllocatesNothingWithTheCallersBuffer) {
  CALUCode_GB50429_07 engine;
  T_RALU_SECT result;
  ALU_CAL_BUFF buffer;
  for (const EnginePoint& point : engine_points()) {
    const int before = allocations;
    engine.CheckCode(point.data, point.force, result, buffer);
    EXPECT_EQ(allocations - before, 0) << point.shape;
  }
}

}  // namespace
