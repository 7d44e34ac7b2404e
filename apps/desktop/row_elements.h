#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/tables/output_table.h"

namespace aluframe::desktop {

/// The elements of the model that each row of a table is about.
class RowElements {
 public:
  /// Of the next row.
  void add(std::span<const model::Number> elements);
  /// Those of a row; empty: it stands for none.
  std::span<const model::Number> of(std::size_t row) const;
  std::size_t rows() const { return starts_.size() - 1; }
  /// Whether no row stands for an element.
  bool empty() const { return elements_.empty(); }

 private:
  std::vector<model::Number> elements_;
  std::vector<std::size_t> starts_{0};
};

/// By a column with the number of one element.
RowElements elements_by_number(const tables::OutputTable& table);
/// By a column of lists, "1-3, 7". Numbers that the model lacks are left out.
RowElements elements_by_list(const tables::OutputTable& table, const model::Model& model);
/// Of each node of the model, those that meet there.
RowElements elements_at_nodes(const model::Model& model);
/// Of each section or material, those that have it.
/// @param numbers of the rows
RowElements elements_with(const model::Model& model, model::Number model::Element::* what,
                          const std::vector<model::Number>& numbers);

}  // namespace aluframe::desktop
