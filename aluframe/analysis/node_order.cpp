#include "aluframe/analysis/node_order.h"

#include <metis.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace aluframe::analysis {

namespace {

/// Neighbours of every node, each once, in the compressed rows that METIS reads.
struct Graph {
  std::vector<idx_t> begin, neighbours;
};

std::vector<idx_t> row_begins(const Frame& frame) {
  std::vector<idx_t> begin(frame.nodes.size() + 1, 0);
  for (const Element& e : frame.elements) {
    ++begin[e.start + 1];
    ++begin[e.end + 1];
  }
  std::partial_sum(begin.begin(), begin.end(), begin.begin());
  return begin;
}

/// Rows with repeated neighbours, where elements lie side by side between two nodes.
Graph repeated_graph(const Frame& frame) {
  Graph graph{row_begins(frame), {}};
  graph.neighbours.resize(static_cast<std::size_t>(graph.begin.back()));
  std::vector<idx_t> next(graph.begin.begin(), graph.begin.end() - 1);
  for (const Element& e : frame.elements) {
    graph.neighbours[static_cast<std::size_t>(next[e.start]++)] = static_cast<idx_t>(e.end);
    graph.neighbours[static_cast<std::size_t>(next[e.end]++)] = static_cast<idx_t>(e.start);
  }
  return graph;
}

Graph node_graph(const Frame& frame) {
  Graph graph = repeated_graph(frame);
  auto write = graph.neighbours.begin();
  idx_t row_begin = 0;
  for (std::size_t i = 0; i < frame.nodes.size(); ++i) {
    const auto first = graph.neighbours.begin() + row_begin;
    const auto last = graph.neighbours.begin() + graph.begin[i + 1];
    row_begin = graph.begin[i + 1];
    std::sort(first, last);
    write = std::copy(first, std::unique(first, last), write);
    graph.begin[i + 1] = static_cast<idx_t>(write - graph.neighbours.begin());
  }
  graph.neighbours.erase(write, graph.neighbours.end());
  return graph;
}

}  // namespace

std::vector<std::size_t> elimination_order(const Frame& frame) {
  std::vector<std::size_t> order(frame.nodes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  Graph graph = node_graph(frame);
  if (graph.neighbours.empty()) return order;
  auto count = static_cast<idx_t>(frame.nodes.size());
  std::vector<idx_t> permutation(order.size()), inverse(order.size());
  idx_t options[METIS_NOPTIONS];
  METIS_SetDefaultOptions(options);
  options[METIS_OPTION_SEED] = 1;  // the same order on every run
  const int status = METIS_NodeND(&count, graph.begin.data(), graph.neighbours.data(), nullptr,
                                  options, permutation.data(), inverse.data());
  if (status != METIS_OK) throw std::runtime_error("the nodes could not be ordered");
  for (std::size_t i = 0; i < order.size(); ++i) {
    order[i] = static_cast<std::size_t>(permutation[i]);
  }
  return order;
}

}  // namespace aluframe::analysis
