#include "aluframe/restraints/member_buckling.h"

#include <Eigen/Dense>
#include <Eigen/SparseCholesky>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "tz_alu/engine/constants.h"

namespace aluframe::restraints {

namespace {

/// Unknowns of a node: u, u', φ, φ'.
constexpr int node_unknowns = 4;
constexpr int u = 0, slope = 1, twist = 2, warping = 3;

/// Cubic elements of a member at least, and between two places that hold it.
constexpr double least_elements = 24.0;
constexpr double least_elements_of_piece = 4.0;
/// How much stiffer than the stiffest element a hold is.
constexpr double rigid = 1e4;
/// Of the smallest critical factor.
constexpr double precision = 1e-3;

/// A cubic element with what it is made of.
struct Cell {
  double start = 0.0, end = 0.0;
  std::array<double, 2> moment{};  ///< at its ends
  const LateralSection* section = nullptr;

  double length() const { return end - start; }
};

/// Cubic Hermite functions of the four end values, and their first two derivatives.
struct Shapes {
  Eigen::Vector4d value, first, second;
};

Shapes shapes_at(double x, double l) {
  const double s = x / l;
  Shapes out;
  out.value << 1 - 3 * s * s + 2 * s * s * s, l * (s - 2 * s * s + s * s * s),
      3 * s * s - 2 * s * s * s, l * (s * s * s - s * s);
  out.first << (6 * s * s - 6 * s) / l, 1 - 4 * s + 3 * s * s, (6 * s - 6 * s * s) / l,
      3 * s * s - 2 * s;
  out.second << (12 * s - 6) / (l * l), (6 * s - 4) / l, (6 - 12 * s) / (l * l), (6 * s - 2) / l;
  return out;
}

/// Points and weights of Gauss on 0 to 1, exact to the seventh power.
constexpr std::array<std::array<double, 2>, 4> gauss = {{
    {0.06943184420297371, 0.17392742256872692},
    {0.33000947820757187, 0.32607257743127307},
    {0.6699905217924281, 0.32607257743127307},
    {0.9305681557970263, 0.17392742256872692},
}};

using CellMatrix = Eigen::Matrix<double, 2 * node_unknowns, 2 * node_unknowns>;

/// Where the four functions of u, and of φ, stand among a cell's unknowns.
constexpr std::array<int, 4> of_u = {u, slope, node_unknowns + u, node_unknowns + slope};
constexpr std::array<int, 4> of_twist = {twist, warping, node_unknowns + twist,
                                         node_unknowns + warping};

void add_block(CellMatrix& to, const std::array<int, 4>& rows, const std::array<int, 4>& columns,
               const Eigen::Matrix4d& block) {
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      to(rows[i], columns[j]) += block(static_cast<int>(i), static_cast<int>(j));
    }
  }
}

struct CellMatrices {
  CellMatrix elastic = CellMatrix::Zero(), geometric = CellMatrix::Zero();
};

CellMatrices matrices_of(const Cell& cell) {
  const LateralSection& section = *cell.section;
  const double l = cell.length();
  CellMatrices out;
  for (const auto& [place, weight] : gauss) {
    const Shapes n = shapes_at(place * l, l);
    const double dx = weight * l;
    const double moment = std::lerp(cell.moment[0], cell.moment[1], place);
    const Eigen::Matrix4d bent = dx * n.second * n.second.transpose();
    const Eigen::Matrix4d turned = dx * n.first * n.first.transpose();
    const Eigen::Matrix4d coupled = dx * moment * n.second * n.value.transpose();
    add_block(out.elastic, of_u, of_u, section.e * section.izz * bent);
    add_block(out.elastic, of_twist, of_twist,
              section.e * section.iw * bent + alu_engine::kShearModulus * section.it * turned);
    add_block(out.geometric, of_u, of_twist, coupled);
    add_block(out.geometric, of_twist, of_u, coupled.transpose());
    add_block(out.geometric, of_twist, of_twist, 2.0 * section.beta_y * moment * turned);
  }
  return out;
}

/// The moment at a place of an element, straight between the places where it is known.
double moment_at(const ElementMoments& of, double place) {
  if (of.at.empty()) return 0.0;
  const auto after =
      std::ranges::find_if(of.at, [&](const auto& point) { return point[0] >= place; });
  if (after == of.at.begin()) return of.at.front()[1];
  if (after == of.at.end()) return of.at.back()[1];
  const auto before = after - 1;
  return std::lerp((*before)[1], (*after)[1],
                   (place - (*before)[0]) / ((*after)[0] - (*before)[0]));
}

/// The longest cell of a member.
double longest_cell(double length, const std::vector<LateralHold>& holds) {
  std::vector<double> places{0.0, length};
  for (const LateralHold& hold : holds) places.push_back(hold.at);
  std::ranges::sort(places);
  double least_piece = length;
  for (std::size_t i = 0; i + 1 < places.size(); ++i) {
    const double piece = places[i + 1] - places[i];
    if (piece > model::same_place) least_piece = std::min(least_piece, piece);
  }
  return std::min(length / least_elements, least_piece / least_elements_of_piece);
}

/// Where an element is cut: wherever its moments are known or something holds the member.
std::vector<double> cuts_of(const ElementMoments& part, const std::vector<LateralHold>& holds) {
  std::vector<double> all;
  for (const auto& point : part.at) all.push_back(point[0]);
  for (const LateralHold& hold : holds) all.push_back(hold.at);
  std::ranges::sort(all);
  std::vector<double> cuts{part.stretch.start};
  for (const double cut : all) {
    const bool is_inside = cut < part.stretch.end - model::same_place;
    if (is_inside && cut > cuts.back() + model::same_place) cuts.push_back(cut);
  }
  cuts.push_back(part.stretch.end);
  return cuts;
}

std::vector<Cell> cells_of(const std::vector<BucklingPart>& parts,
                           const std::vector<LateralHold>& holds) {
  const double longest = longest_cell(parts.back().moments.stretch.end, holds);
  std::vector<Cell> cells;
  for (const BucklingPart& part : parts) {
    const std::vector<double> cuts = cuts_of(part.moments, holds);
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
      const int count = std::max(1, static_cast<int>(std::ceil((cuts[i + 1] - cuts[i]) / longest)));
      for (int n = 0; n < count; ++n) {
        Cell cell;
        cell.start = std::lerp(cuts[i], cuts[i + 1], static_cast<double>(n) / count);
        cell.end = std::lerp(cuts[i], cuts[i + 1], static_cast<double>(n + 1) / count);
        cell.moment = {moment_at(part.moments, cell.start), moment_at(part.moments, cell.end)};
        cell.section = &part.section;
        cells.push_back(cell);
      }
    }
  }
  return cells;
}

/// Height of a load over the shear centre as seen in its direction, where it acts at the flange
/// that it points to the shear centre from.
double destabilising(double load, const LateralSection& section) {
  return load > 0.0 ? -load * section.load_height[0] : load * section.load_height[1];
}

std::size_t nearest_node(const std::vector<Cell>& cells, double place) {
  std::size_t best = 0;
  double least = std::fabs(cells.front().start - place);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const double distance = std::fabs(cells[i].end - place);
    if (distance < least) {
      least = distance;
      best = i + 1;
    }
  }
  return best;
}

using Entries = std::vector<Eigen::Triplet<double>>;

int unknown(std::size_t node, int which) {
  return static_cast<int>(node) * node_unknowns + which;
}

void add_cells(const std::vector<Cell>& cells, Entries& elastic, Entries& geometric) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const CellMatrices of = matrices_of(cells[i]);
    for (int row = 0; row < 2 * node_unknowns; ++row) {
      for (int column = 0; column < 2 * node_unknowns; ++column) {
        elastic.emplace_back(unknown(i, row), unknown(i, column), of.elastic(row, column));
        geometric.emplace_back(unknown(i, row), unknown(i, column), of.geometric(row, column));
      }
    }
  }
}

void add_loads(const std::vector<Cell>& cells, Entries& geometric) {
  for (std::size_t i = 0; i + 1 < cells.size(); ++i) {
    const Cell &before = cells[i], &after = cells[i + 1];
    const double load = (before.moment[1] - before.moment[0]) / before.length() -
                        (after.moment[1] - after.moment[0]) / after.length();
    const int at = unknown(i + 1, twist);
    geometric.emplace_back(at, at, -destabilising(load, *before.section));
  }
}

void add_holds(const std::vector<Cell>& cells, const std::vector<LateralHold>& holds,
               Entries& elastic) {
  double sideways = 0.0, turning = 0.0, rotation = 0.0;
  for (const Cell& cell : cells) {
    const LateralSection& of = *cell.section;
    const double l = cell.length();
    sideways = std::max(sideways, rigid * 12.0 * of.e * of.izz / (l * l * l));
    turning = std::max(turning, rigid * (12.0 * of.e * of.iw / (l * l * l) +
                                         alu_engine::kShearModulus * of.it / l));
    rotation = std::max(rotation, rigid * 4.0 * of.e * of.izz / l);
  }
  for (const LateralHold& hold : holds) {
    const std::size_t node = nearest_node(cells, hold.at);
    const LateralSection& section = *cells[std::min(node, cells.size() - 1)].section;
    const int at_u = unknown(node, u), at_twist = unknown(node, twist);
    const auto hold_height = [&](double height) {
      elastic.emplace_back(at_u, at_u, sideways);
      elastic.emplace_back(at_u, at_twist, sideways * height);
      elastic.emplace_back(at_twist, at_u, sideways * height);
      elastic.emplace_back(at_twist, at_twist, sideways * height * height);
    };
    if (hold.sideways) hold_height(0.0);
    if (hold.top) hold_height(-section.load_height[0]);
    if (hold.bottom) hold_height(section.load_height[1]);
    if (hold.twist) elastic.emplace_back(at_twist, at_twist, turning);
    if (hold.rotation) {
      elastic.emplace_back(unknown(node, slope), unknown(node, slope), rotation);
    }
  }
}

/// Whether holds keep a member from shifting, turning sideways and turning about its axis as a
/// rigid body.
bool keep_in_place(const std::vector<LateralHold>& holds, double length) {
  Eigen::Matrix3d kept = Eigen::Matrix3d::Zero();
  const auto keep = [&](double shift, double turn, double roll) {
    const Eigen::Vector3d of(shift, turn, roll);
    kept += of * of.transpose();
  };
  for (const LateralHold& hold : holds) {
    const double x = hold.at / length;
    if (hold.sideways) keep(1.0, x, 0.0);
    if (hold.top) keep(1.0, x, 1.0);
    if (hold.bottom) keep(1.0, x, -1.0);
    if (hold.twist) keep(0.0, 0.0, 1.0);
    if (hold.rotation) keep(0.0, 1.0, 0.0);
  }
  constexpr double least = 1e-9;
  return Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(kept).eigenvalues()[0] > least;
}

}  // namespace

MemberBuckling::MemberBuckling(const std::vector<BucklingPart>& parts,
                               const std::vector<LateralHold>& holds)
    : is_held_(keep_in_place(holds, parts.back().moments.stretch.end)) {
  const std::vector<Cell> cells = cells_of(parts, holds);
  Entries elastic, geometric;
  add_cells(cells, elastic, geometric);
  add_loads(cells, geometric);
  add_holds(cells, holds, elastic);
  const int size = unknown(cells.size() + 1, 0);
  elastic_.resize(size, size);
  geometric_.resize(size, size);
  elastic_.setFromTriplets(elastic.begin(), elastic.end());
  geometric_.setFromTriplets(geometric.begin(), geometric.end());
}

bool MemberBuckling::is_stable(double factor) const {
  if (!is_held_) return false;
  const Eigen::SimplicialLDLT<Matrix> factors(elastic_ + factor * geometric_);
  return factors.info() == Eigen::Success && factors.vectorD().minCoeff() > 0.0;
}

double MemberBuckling::factor_below(double bound) const {
  if (is_stable(bound)) return bound;
  // What is not stable under so little is taken for a mechanism.
  constexpr double least = 1e-6;
  double low = bound, high = bound;
  while (!is_stable(low)) {
    high = low;
    low /= 2.0;
    if (low < least * bound) return 0.0;
  }
  while (high - low > precision * low) {
    const double middle = 0.5 * (low + high);
    (is_stable(middle) ? low : high) = middle;
  }
  return low;
}

}  // namespace aluframe::restraints
