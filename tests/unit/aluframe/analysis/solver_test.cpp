#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

#include "aluframe/analysis/linear_solver.h"
#include "aluframe/analysis/node_order.h"
#include "frames.h"

namespace aluframe::analysis {
namespace {

using Status = Factorisation::Status;

/// A chain of equations: 2 on the diagonal less `less`, -1 beside it.
SymmetricMatrix chain(int size, double less = 0.0) {
  SymmetricMatrix m;
  m.size = size;
  const auto add = [&](int row, int column, double value) {
    m.rows.push_back(row);
    m.columns.push_back(column);
    m.values.push_back(value);
  };
  for (int i = 1; i <= size; ++i) {
    add(i, i, 2.0 - less);
    if (i > 1) add(i, i - 1, -1.0);
  }
  return m;
}

TEST(Solver, SolvesSeveralLoadVectors) {
  // A chain held at both ends under a unit everywhere: x_i = i·(n + 1 − i)/2.
  constexpr int size = 100;
  const auto solver = make_solver();
  ASSERT_EQ(solver->factorise(chain(size)).status, Status::done);
  std::vector<double> columns(3 * size);
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i] = static_cast<double>(i / size);
  solver->solve(columns);
  for (int i = 1; i <= size; ++i) {
    const double one = i * (size + 1 - i) / 2.0;
    for (int c = 0; c < 3; ++c) {
      EXPECT_NEAR(columns[static_cast<std::size_t>(c * size + i - 1)], c * one, 1e-9 * one);
    }
  }
}

/// Whether a chain under a unit everywhere has its closed form, x_i = i·(n + 1 − i)/2.
bool is_chain_solved(int size) {
  const auto solver = make_solver();
  if (solver->factorise(chain(size)).status != Status::done) return false;
  std::vector<double> x(static_cast<std::size_t>(size), 1.0);
  solver->solve(x);
  for (int i = 1; i <= size; ++i) {
    const double expected = i * (size + 1 - i) / 2.0;
    if (std::abs(x[static_cast<std::size_t>(i - 1)] - expected) > 1e-9 * expected) return false;
  }
  return true;
}

// As a window does, which draws diagrams while a check goes on.
TEST(Solver, SolversOnSeveralThreadsDoNotDisturbEachOther) {
  constexpr int rounds = 400;
  std::atomic<int> solved = 0;
  const auto work = [&solved](int size) {
    for (int i = 0; i < rounds; ++i) solved += is_chain_solved(size + i) ? 1 : 0;
  };
  std::vector<std::jthread> threads;
  for (const int size : {50, 400, 1000}) threads.emplace_back(work, size);
  threads.clear();
  EXPECT_EQ(solved, 3 * rounds);
}

TEST(Solver, EntriesOfOnePlaceAddUp) {
  SymmetricMatrix m;
  m.size = 1;
  m.rows = m.columns = {1, 1};
  m.values = {3.0, 5.0};
  const auto solver = make_solver();
  ASSERT_EQ(solver->factorise(m).status, Status::done);
  std::vector<double> x{16.0};
  solver->solve(x);
  EXPECT_DOUBLE_EQ(x[0], 2.0);
}

TEST(Solver, NewNumbersInTheSamePlacesAreFactorisedAnew) {
  const auto solver = make_solver();
  ASSERT_EQ(solver->factorise(chain(2)).status, Status::done);
  ASSERT_EQ(solver->factorise(chain(2, -2.0)).status, Status::done);
  std::vector<double> x{3.0, 3.0};
  solver->solve(x);
  EXPECT_DOUBLE_EQ(x[0], 1.0);
}

TEST(Solver, OtherPlacesAreAnalysedAnew) {
  const auto solver = make_solver();
  ASSERT_EQ(solver->factorise(chain(3)).status, Status::done);
  ASSERT_EQ(solver->factorise(chain(5)).status, Status::done);
  std::vector<double> x{1, 1, 1, 1, 1};
  solver->solve(x);
  EXPECT_NEAR(x[2], 4.5, 1e-12);
}

TEST(Solver, NegativePivotsAreTheNegativeEigenvalues) {
  // Eigenvalues 2 − less − 2cos(iπ/(n + 1)); with n = 9 and less = 0.5 those of i = 1 and 2.
  const auto solver = make_solver();
  EXPECT_EQ(solver->factorise(chain(9, 0.5)).negative_pivots, 2);
  EXPECT_EQ(solver->factorise(chain(9)).negative_pivots, 0);
}

TEST(Solver, ZeroPivotIsToldApart) {
  SymmetricMatrix m = chain(3);
  m.values = {1.0, 2.0, -1.0, 1.0, -1.0};  // a chain that nothing holds
  EXPECT_EQ(make_solver()->factorise(m).status, Status::zero_pivot);
}

TEST(Solver, TellsTheSizeOfItsFactor) {
  // Ten pivots and at least the nine entries beside them.
  EXPECT_GE(make_solver()->factorise(chain(10)).factor_entries, 19);
}

TEST(NodeOrder, HasEveryNodeOnce) {
  Frame frame;
  for (int i = 0; i < 30; ++i) add_node(frame, 1000.0 * i, 0, 0);
  for (std::size_t i = 0; i + 1 < 29; ++i) add_element(frame, i, i + 1);
  add_element(frame, 3, 4);  // a second one between two nodes
  auto order = elimination_order(frame);
  std::sort(order.begin(), order.end());
  for (std::size_t i = 0; i < 30; ++i) EXPECT_EQ(order[i], i);
}

TEST(NodeOrder, OfNodesWithoutElementsIsTheirOwn) {
  Frame frame;
  for (int i = 0; i < 3; ++i) add_node(frame, 1000.0 * i, 0, 0);
  EXPECT_THAT(elimination_order(frame), testing::ElementsAre(0, 1, 2));
}

}  // namespace
}  // namespace aluframe::analysis
