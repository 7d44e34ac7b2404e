#include "aluframe/area_loads/widths.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace aluframe::area_loads {

namespace {

/// Parts of a length that rounding alone tells apart.
constexpr double same_place = 1e-12;
/// Widths that rounding alone tells apart, as a share of the largest.
constexpr double same_width = 1e-13;

double width_at(const WidthPiece& piece, double place) {
  const double part = (place - piece.from) / (piece.to - piece.from);
  return piece.from_width + part * (piece.to_width - piece.from_width);
}

/// Where pieces begin and end, each place once.
std::vector<double> places_of(std::span<const WidthPiece> pieces) {
  std::vector<double> places;
  for (const WidthPiece& piece : pieces) {
    places.push_back(piece.from);
    places.push_back(piece.to);
  }
  std::ranges::sort(places);
  const auto is_same = [](double a, double b) { return b - a <= same_place; };
  const auto rest = std::ranges::unique(places, is_same);
  places.erase(rest.begin(), rest.end());
  return places;
}

double largest_of(std::span<const WidthPiece> pieces) {
  double largest = 0.0;
  for (const WidthPiece& piece : pieces) {
    largest = std::max({largest, std::abs(piece.from_width), std::abs(piece.to_width)});
  }
  return largest;
}

bool continues(const WidthPiece& one, const WidthPiece& next, double largest) {
  if (next.from - one.to > same_place) return false;
  if (std::abs(next.from_width - one.to_width) > same_width * largest) return false;
  const WidthPiece both{one.element, one.from, next.to, one.from_width, next.to_width};
  return std::abs(width_at(both, one.to) - one.to_width) <= same_width * largest;
}

void append(std::vector<WidthPiece>& out, std::size_t first, const WidthPiece& piece,
            double largest) {
  const bool is_empty =
      std::max(std::abs(piece.from_width), std::abs(piece.to_width)) <= same_width * largest;
  if (is_empty) return;
  if (out.size() > first && continues(out.back(), piece, largest)) {
    out.back().to = piece.to;
    out.back().to_width = piece.to_width;
  } else {
    out.push_back(piece);
  }
}

/// Pieces of one element, sorted by where they begin.
void add_up(std::span<const WidthPiece> pieces, std::vector<WidthPiece>& out) {
  const std::vector<double> places = places_of(pieces);
  const double largest = largest_of(pieces);
  const std::size_t first = out.size();
  std::vector<const WidthPiece*> covering;
  std::size_t next = 0;
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {
    const double middle = 0.5 * (places[i] + places[i + 1]);
    while (next < pieces.size() && pieces[next].from < middle) covering.push_back(&pieces[next++]);
    std::erase_if(covering, [middle](const WidthPiece* piece) { return piece->to < middle; });
    WidthPiece sum{pieces.front().element, places[i], places[i + 1], 0.0, 0.0};
    for (const WidthPiece* piece : covering) {
      sum.from_width += width_at(*piece, sum.from);
      sum.to_width += width_at(*piece, sum.to);
    }
    append(out, first, sum, largest);
  }
}

}  // namespace

std::vector<WidthPiece> added_up(std::vector<WidthPiece> pieces) {
  std::erase_if(pieces,
                [](const WidthPiece& piece) { return piece.to - piece.from <= same_place; });
  std::ranges::sort(pieces, {}, [](const WidthPiece& piece) {
    return std::tuple(piece.element, piece.from, piece.to);
  });
  std::vector<WidthPiece> out;
  for (std::size_t begin = 0; begin < pieces.size();) {
    std::size_t end = begin + 1;
    while (end < pieces.size() && pieces[end].element == pieces[begin].element) ++end;
    add_up(std::span(pieces).subspan(begin, end - begin), out);
    begin = end;
  }
  return out;
}

}  // namespace aluframe::area_loads
