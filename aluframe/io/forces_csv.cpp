#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "aluframe/io/csv_rows.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/force_limits.h"
#include "aluframe/io/force_row.h"
#include "aluframe/io/model_file.h"
#include "aluframe/io/scales.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr std::size_t positions = 5;

/// Forces of one element in one case while the rows come in.
struct Pair {
  model::CaseForces forces;
  std::array<std::uint32_t, positions> line{};  ///< that gave the position; 0: none yet
};

/// Gathers rows for a model and makes its force table of them.
class ForceRows {
 public:
  explicit ForceRows(const model::Model& model)
      : model_(model),
        scales_(model.units),
        pairs_(model.elements.size() * model.load_cases.size()) {}

  void add(const ForceRow& row) {
    const auto element = existing(row, element_column, model_.elements);
    const auto load_case = existing(row, case_column, model_.load_cases);
    const auto position = row.whole(position_column, 0, positions - 1);
    Pair& pair = pairs_[element * model_.load_cases.size() + load_case];
    if (pair.line[position] != 0) {
      row.fail(texts::translated("{}, position {} is given before, in line {}",
                                 name_of(element, load_case), position, pair.line[position]));
    }
    pair.line[position] = static_cast<std::uint32_t>(row.line());
    model::SectionForces& forces = pair.forces.at[position];
    for (std::size_t i = 0; i < forces.size(); ++i) {
      forces[i] =
          static_cast<float>(scales_.of_component(i) * row.number(first_component_column + i));
    }
  }

  model::ForceTable table() {
    const std::size_t cases = model_.load_cases.size();
    model::ForceTable table;
    table.resize(model_.elements.size(), cases);
    for (std::size_t place = 0; place < pairs_.size(); ++place) {
      Pair& pair = pairs_[place];
      const auto first = std::find_if(pair.line.begin(), pair.line.end(), is_given);
      if (first == pair.line.end()) continue;
      pair.forces.inner = std::any_of(pair.line.begin() + 1, pair.line.end() - 1, is_given);
      require_complete(pair, *first, name_of(place / cases, place % cases));
      table.set(place / cases, place % cases, pair.forces);
    }
    return table;
  }

 private:
  static bool is_given(std::uint32_t line) { return line != 0; }

  template <class Entity>
  static std::size_t existing(const ForceRow& row, std::size_t column,
                              const model::Table<Entity>& table) {
    const model::Number number = row.whole(column, 1, model::max_number);
    if (table.find(number) == nullptr) {
      row.fail(texts::translated("{} {} does not exist", force_columns[column], number));
    }
    return table.position(number);
  }

  std::string name_of(std::size_t element, std::size_t load_case) const {
    return texts::translated("element {}, case {}", model_.elements[element].number,
                             model_.load_cases[load_case].number);
  }

  static void require_complete(const Pair& pair, std::uint32_t first_line,
                               const std::string& name) {
    const std::size_t step = pair.forces.inner ? 1 : positions - 1;
    for (std::size_t position = 0; position < positions; position += step) {
      if (is_given(pair.line[position])) continue;
      throw Failure{texts::translated("line {}", first_line),
                    texts::translated("{}: position {} is missing, needed are 0 and 4, or 0 to 4",
                                      name, position)};
    }
  }

  const model::Model& model_;
  Scales scales_;
  std::vector<Pair> pairs_;  ///< by element, then case
};

/// Replaces the model's forces when all rows are good. @return the number of rows
std::size_t read_csv(std::string_view with_mark, model::Model& model) {
  const std::string_view text = without_byte_order_mark(with_mark);
  require_utf8(text);
  CsvRows rows(text);
  if (!rows.next())
    throw Failure{"", texts::translated("is empty, expected a header line and rows of forces")};
  const ColumnOrder order = read_header(rows);
  if (const auto problem = find_force_size_problem(model)) throw Failure{"", *problem};
  ForceRows forces(model);
  std::size_t count = 0;
  for (; rows.next(); ++count) forces.add(ForceRow(rows, order));
  if (count == 0) throw Failure{"", texts::translated("has no rows of forces below the header")};
  model.forces = forces.table();
  return count;
}

}  // namespace

Result<std::size_t> read_forces_csv(const std::filesystem::path& path, model::Model& model) {
  try {
    return read_csv(load_file(path), model);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  }
}

}  // namespace aluframe::io
