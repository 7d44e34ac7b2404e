#pragma once

#include <cstdint>

/// Unsigned 32-bit word on every platform: the keys of elements, nodes, sections and combinations.
using UINT = std::uint32_t;
