#include "aluframe/io/catalogue_csv.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "aluframe/catalogue/designation.h"
#include "aluframe/io/csv_number.h"
#include "aluframe/io/csv_rows.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/suggestion.h"
#include "aluframe/io/text_file.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/model/units.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto columns =
    std::to_array<std::string_view>({"name", "shape", "unit", "source", "H", "B", "B1", "tw", "tf",
                                     "tf1", "B2", "tf2", "C", "r1", "r2", "D", "t"});
constexpr std::size_t first_dimension = 4;
constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
constexpr std::string_view shapes = texts::translatable("must be one of C, H, T, B, P, 2C, SR");

std::size_t column_named(std::string_view name) {
  const auto found = std::ranges::find_if(
      columns, [&](std::string_view column) { return equal_but_for_case(column, name); });
  return static_cast<std::size_t>(found - columns.begin());
}

/// Rows of a catalogue file, one profile each.
class ProfileRows {
 public:
  ProfileRows(const CsvRows& rows, std::string file) : rows_(rows), file_(std::move(file)) {
    place_.fill(nowhere);
    for (std::size_t i = 0; i < rows.cells().size(); ++i) add_column(i);
    for (const char* name : {"name", "shape"}) {
      if (place_[column_named(name)] == nowhere)
        fail(texts::translated("missing column \"{}\"", name));
    }
  }

  /// The profile of the row that the file is at.
  catalogue::Profile profile() const {
    if (rows_.cells().size() != count_) {
      fail(texts::translated("found {} cells, the header has {}", rows_.cells().size(), count_));
    }
    catalogue::Profile profile;
    profile.name = plain_cell("name");
    if (profile.name.empty()) fail(texts::translated("name: must not be empty"));
    if (shown(profile.name) != profile.name) {
      fail(
          texts::translated("name: found {}, must be at most 60 letters", in_quotes(profile.name)));
    }
    profile.shape = shape();
    profile.series = file_;
    profile.source = plain_cell("source");
    if (profile.source.empty())
      profile.source = texts::translated("{}, line {}", file_, rows_.line());
    read_dimensions(profile);
    return profile;
  }

  [[noreturn]] void fail(std::string text) const {
    throw Failure{texts::translated("line {}", rows_.line()), std::move(text)};
  }

 private:
  void add_column(std::size_t place) {
    const std::string& name = rows_.cells()[place];
    const std::size_t column = column_named(name);
    if (column == columns.size()) {
      fail(unknown_name_text(texts::translated("column {}", in_quotes(name)), name, columns));
    }
    if (place_[column] != nowhere) {
      fail(texts::translated("column \"{}\" is given twice", columns[column]));
    }
    place_[column] = place;
    ++count_;
  }

  std::string_view cell_at(std::size_t column) const {
    if (place_[column] == nowhere) return {};
    return rows_.cells()[place_[column]];
  }
  std::string_view cell(std::string_view name) const { return cell_at(column_named(name)); }

  /// A cell that stands in lines of tables and reports.
  std::string_view plain_cell(std::string_view column) const {
    const std::string_view text = cell(column);
    if (const auto found = model::find_control_character(text)) {
      fail(texts::translated("{}: found {}, {}", column, *found,
                             texts::translation_of(model::plain_text_rule)));
    }
    return text;
  }

  [[noreturn]] void fail_at(std::string_view column, std::string_view allowed) const {
    fail(texts::translated("{}: found {}, {}", column, in_quotes(cell(column)), allowed));
  }

  model::Shape shape() const {
    const auto shape = model::parse_shape(cell("shape"));
    if (!shape || *shape == model::Shape::other) fail_at("shape", texts::translation_of(shapes));
    return *shape;
  }

  double millimetres() const {
    const std::string_view name = cell("unit");
    if (name.empty()) return 1.0;
    const auto unit = model::parse_length_unit(name);
    if (!unit) fail_at("unit", texts::translated("must be one of m, cm, mm, ft, in"));
    return model::millimetres_per(*unit);
  }

  void read_dimensions(catalogue::Profile& profile) const {
    const auto names = model::dimension_names(profile.shape);
    const std::string_view shape = model::name_of(profile.shape);
    for (std::size_t column = first_dimension; column < columns.size(); ++column) {
      if (!cell_at(column).empty() && std::ranges::find(names, columns[column]) == names.end()) {
        fail_at(columns[column], texts::translated("shape {} has no such dimension", shape));
      }
    }
    const double scale = millimetres();
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (!cell(names[i]).empty()) {
        profile.dimensions[i] = scale * number(names[i]);
      } else if (i < model::required_dimensions(profile.shape)) {
        fail(texts::translated("{}: is empty, shape {} needs it", names[i], shape));
      } else {
        profile.dimensions[i] = model::default_dimension(profile.shape, i, profile.dimensions);
      }
    }
  }

  double number(std::string_view column) const {
    const auto [value, fault] = parse_number(cell(column));
    if (!fault.empty()) fail_at(column, texts::translation_of(fault));
    return value;
  }

  const CsvRows& rows_;
  std::string file_;
  std::array<std::size_t, columns.size()> place_{};
  std::size_t count_ = 0;
};

/// A name must not mean two things, and a profile must be a section.
void require_usable(const catalogue::Profile& profile, const ProfileRows& reader,
                    const std::vector<catalogue::Profile>& own) {
  const std::string name = in_quotes(profile.name);
  const auto other = std::ranges::find(own, profile.name, &catalogue::Profile::name);
  if (other != own.end()) reader.fail(texts::translated("{} is given in {}", name, other->series));
  if (std::holds_alternative<model::Section>(catalogue::section_named(profile.name))) {
    reader.fail(texts::translated("{} names a section without a catalogue, choose another", name));
  }
  if (const auto problem = section::find_dimension_problem(section_of(profile))) {
    reader.fail(texts::translated("{} cannot be built: {}", name, problem->text));
  }
}

std::vector<catalogue::Profile> read_profiles(std::string_view text, const std::string& file,
                                              const std::vector<catalogue::Profile>& own) {
  require_utf8(text);
  CsvRows rows(text);
  if (!rows.next())
    throw Failure{"", texts::translated("is empty, expected a header line and rows of profiles")};
  const ProfileRows reader(rows, file);
  std::vector<catalogue::Profile> out;
  std::map<std::string, std::size_t, std::less<>> lines;
  while (rows.next()) {
    catalogue::Profile profile = reader.profile();
    const auto [before, is_new] = lines.emplace(profile.name, rows.line());
    if (!is_new) {
      reader.fail(texts::translated("{} is given before, in line {}", in_quotes(profile.name),
                                    before->second));
    }
    require_usable(profile, reader, own);
    out.push_back(std::move(profile));
  }
  if (out.empty()) throw Failure{"", texts::translated("has no rows of profiles below the header")};
  return out;
}

}  // namespace

Result<std::size_t> read_catalogue_csv(const std::filesystem::path& path,
                                       std::vector<catalogue::Profile>& own) {
  try {
    const std::string text = load_file(path);
    auto profiles = read_profiles(without_byte_order_mark(text), path.filename().string(), own);
    own.insert(own.end(), profiles.begin(), profiles.end());
    return profiles.size();
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  }
}

}  // namespace aluframe::io
