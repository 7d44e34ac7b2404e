#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "host/framework/resources.h"

namespace aluframe::toolkit {

/// The controls of a template whose texts tell a reader of the screen what another control is, by
/// their places in the template. A template itself only says where its texts stand.
///
///     Modulus of Elasticity (Es)   :  [ 70000 ]  N/mm²
///     name                            the field  unit
struct FieldCaptions {
  /// Of an edit, a drop-down list or a list: the text to its left in its row, that of a check box
  /// too, else that of the smallest group box around it.
  std::optional<std::size_t> name = std::nullopt;
  /// Of an edit or a drop-down list: the text behind it in its row, which names no other field.
  std::optional<std::size_t> unit = std::nullopt;
  /// Of a radio button: the smallest group box around it.
  std::optional<std::size_t> group = std::nullopt;
};

/// Of every control, in the order of the template. Texts without a letter or digit, such as the
/// colon before a field, tell nothing.
std::vector<FieldCaptions> captions_of(std::span<const CONTROL_TEMPLATE> controls);

}  // namespace aluframe::toolkit
