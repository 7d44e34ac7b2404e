// rand() as the C library of Linux defines it: an additive feedback generator of 31 numbers
// (r[i] = r[i-3] + r[i-31]), filled by a linear congruential one, the first 310 left out.
// The C library of Windows has 15 bits and other numbers.
#include <stdint.h>

enum { length = 31, distance = 3, left_out = 310 };

static uint32_t state[length];
static int at;

int same_rand(void) {
  state[at] += state[(at + length - distance) % length];
  const uint32_t sum = state[at];
  at = (at + 1) % length;
  return (int)(sum >> 1);
}

void same_srand(unsigned seed) {
  int64_t number = seed == 0 ? 1 : (int32_t)seed;
  for (int i = 0; i < length; ++i) {
    state[i] = (uint32_t)number;
    number = 16807 * number % 2147483647;
    if (number < 0) number += 2147483647;
  }
  at = distance;
  for (int i = 0; i < left_out; ++i) same_rand();
}
