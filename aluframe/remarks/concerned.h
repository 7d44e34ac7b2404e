#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "aluframe/remarks/remarks.h"

namespace aluframe::remarks {

/// Of ranges of numbers that a line names; more are hard to read.
inline constexpr std::size_t most_ranges = 6;

/// "section 3", with its name when it has one.
std::string named(const model::Section& section);

/// Collects the elements that a remark concerns, and which is the worst.
class Concerned {
 public:
  /// `value`: how bad it is; the larger, the worse. Elements come in any order, each once.
  void add(const model::Element& element, double value = 0.0);

  bool empty() const { return worst_ == nullptr; }
  /// "element 4" or "elements 1-3, 7"; beyond six such ranges "and 20 more".
  std::string named() const;
  const model::Element& worst() const { return *worst_; }
  double worst_value() const { return worst_value_; }

  /// The remark of them all; its value is left open.
  Remark remark(std::string_view rule, std::string text) const;

 private:
  std::vector<model::Number> elements_;
  const model::Element* worst_ = nullptr;
  double worst_value_ = 0.0;
};

/// A remark whose section is that of the worst element.
Remark about_section(const Concerned& concerned, std::string_view rule, std::string text);

}  // namespace aluframe::remarks
