#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "aluframe/model/model.h"

/// How far a frame is displaced under its serviceability combinations: members between their ends,
/// nodes, and nodes against others.
namespace aluframe::deflections {

/// How the deflection of a span is counted.
enum class SpanKind {
  between,    ///< from the straight line between its displaced ends, with which it turns
  cantilever  ///< from its held end, without turning
};

/// What is limited by its length: a member, a part of it between two supports, or an element that
/// is in no member.
struct Span {
  struct Element {
    std::size_t place = 0;  ///< in the model's table
    bool reversed = false;  ///< it runs against the span
  };

  model::Number member = 0;  ///< 0: elements without one
  std::vector<Element> elements;
  std::size_t start = 0, end = 0;  ///< places of its end nodes; of a cantilever the held one first
  double length = 0.0;             ///< straight from end to end, mm
  SpanKind kind = SpanKind::between;
  bool is_part = false;                  ///< of a member that runs over supports
  std::array<bool, 2> axes{true, true};  ///< along local y and z: what it is a span for

  /// The length that a limit goes by: a cantilever bends like half of a span.
  double counted_length() const { return kind == SpanKind::cantilever ? 2.0 * length : length; }
};

/// Spans of the members, in their order, then of elements without a member: where some of them go
/// on as members do (members::find_members), they bend as one. What runs over supports has the
/// parts between them, and counts as a whole besides unless an end hangs over, since a support may
/// be soft. What ends where it starts has none. A span of which one end hangs on it alone
/// (members::cantilever_ends) is a cantilever. What does not bend, axial-only elements by
/// themselves, has none.
///
/// All of this goes axis by axis: a support counts only along the local axes in which it holds, so
/// that what holds a beam sideways neither parts its span downwards nor holds the tip of a
/// cantilever. Elements that come across along an axis, such as columns under a beam, part it like
/// supports, unless they hang on it. Where both axes have the same span it is one.
std::vector<Span> spans_of(const model::Model& model);

/// The limit that holds for a span: of its member, or of all.
model::DeflectionLimit limit_of(const model::Model& model, const Span& span);

/// How far a span may bend, mm; infinite without a limit.
double allowed(const model::DeflectionLimit& limit, const Span& span);

}  // namespace aluframe::deflections
