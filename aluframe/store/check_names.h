#pragma once

#include <array>

#include "aluframe/texts/text.h"
#include "host/tz_db/ralu.h"

namespace aluframe::store {

/// Checks by RALU_ITEM_TYPE, as result files, tables and messages name them.
inline constexpr std::array<const char*, kResultItems> item_names = {
    texts::translatable("strength"),
    texts::translatable("shear y"),
    texts::translatable("shear z"),
    texts::translatable("stability"),
    texts::translatable("combined stability"),
    "unused",
    texts::translatable("slenderness y"),
    texts::translatable("slenderness z")};

/// Check positions along an element, 0..4.
inline constexpr std::array<const char*, kCheckPositions> position_names = {"I", "1/4", "1/2",
                                                                            "3/4", "J"};

}  // namespace aluframe::store
