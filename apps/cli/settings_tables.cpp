#include "apps/cli/settings_tables.h"

#include <fmt/format.h>

#include <cstdint>
#include <nlohmann/json.hpp>

#include "aluframe/texts/text.h"
#include "apps/cli/settings_fields.h"

namespace aluframe::cli {

namespace {

using model::DesignSettings;
using model::Material;

constexpr const char* settings_record = "settings";
constexpr const char* material_record = "material";

DesignSettings settings_of(const model::Model& model) {
  return model.design.value_or(DesignSettings());
}

/// For the user; an option takes the same in English.
std::string text_in_words(const tables::Cell& value) {
  const auto* is_on = std::get_if<bool>(&value);
  if (is_on == nullptr) return option_text(value);
  return *is_on ? texts::translated("on") : texts::translated("off");
}

tables::OutputTable settings_table(const model::Model& model) {
  tables::OutputTable table;
  table.columns = {{"key", texts::translatable("setting")},
                   {"value", texts::translatable("value")}};
  const DesignSettings settings = settings_of(model);
  for (const Field<DesignSettings>& field : settings_fields) {
    table.rows.push_back({std::string(field.name), text_in_words(value_of(settings, field))});
  }
  return table;
}

tables::OutputTable materials_table(const model::Model& model) {
  tables::OutputTable table;
  table.columns = {{"number", texts::translatable("material")}};
  for (const Field<Material>& field : material_fields) {
    table.columns.push_back({std::string(field.name), std::string(field.name)});
  }
  for (const Material& material : model.materials) {
    auto& row = table.rows.emplace_back();
    row.push_back(std::int64_t{material.number});
    for (const Field<Material>& field : material_fields) {
      const std::string text = option_text(value_of(material, field));
      row.push_back(text.empty() ? tables::Cell() : text);
    }
  }
  return table;
}

/// Everything as a list of values.
tables::OutputTable long_table(const model::Model& model) {
  tables::OutputTable table;
  table.columns = {{"record", "record"}, {"number", "number"}, {"key", "key"}, {"value", "value"}};
  const DesignSettings settings = settings_of(model);
  for (const Field<DesignSettings>& field : settings_fields) {
    table.rows.push_back({settings_record, {}, std::string(field.name), value_of(settings, field)});
  }
  for (const Material& material : model.materials) {
    for (const Field<Material>& field : material_fields) {
      table.rows.push_back({material_record, std::int64_t{material.number}, std::string(field.name),
                            value_of(material, field)});
    }
  }
  return table;
}

nlohmann::ordered_json json_of(const tables::Cell& cell) {
  return std::visit(
      [](const auto& value) -> nlohmann::ordered_json {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::monostate>) {
          return nullptr;
        } else if constexpr (std::is_same_v<std::decay_t<decltype(value)>, tables::Phrase>) {
          return value.english;
        } else {
          return value;
        }
      },
      cell);
}

std::string as_json(const model::Model& model) {
  const DesignSettings settings = settings_of(model);
  nlohmann::ordered_json out;
  for (const Field<DesignSettings>& field : settings_fields) {
    out["settings"][std::string(field.name)] = json_of(value_of(settings, field));
  }
  out["settings_given"] = model.design.has_value();
  out["materials"] = nlohmann::ordered_json::array();
  for (const Material& material : model.materials) {
    nlohmann::ordered_json object = {{"number", material.number}};
    for (const Field<Material>& field : material_fields) {
      object[std::string(field.name)] = json_of(value_of(material, field));
    }
    out["materials"].push_back(std::move(object));
  }
  return out.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

/// Texts that may be empty or have blanks stand in quotes.
std::string shown(const tables::Cell& value) {
  const std::string text = text_in_words(value);
  const bool bare = !text.empty() && text.find(' ') == std::string::npos;
  return bare ? text : '"' + text + '"';
}

}  // namespace

std::string settings_text(const model::Model& model, tables::Format format) {
  if (format == tables::Format::json) return as_json(model);
  if (format == tables::Format::csv) return tables::to_csv(long_table(model));
  return tables::to_text(settings_table(model), false) + "\n" +
         tables::to_text(materials_table(model), false);
}

tables::OutputTable settings_difference(const model::Model& before, const model::Model& after) {
  const tables::OutputTable old_values = long_table(before);
  const tables::OutputTable new_values = long_table(after);
  tables::OutputTable table;
  table.columns = {{"record", "record"},
                   {"number", "number"},
                   {"key", "key"},
                   {"before", "before"},
                   {"after", "after"}};
  for (std::size_t i = 0; i < new_values.rows.size(); ++i) {
    const auto& row = new_values.rows[i];
    const tables::Cell& old_value = old_values.rows[i].back();
    if (row.back() != old_value) {
      table.rows.push_back({row[0], row[1], row[2], old_value, row.back()});
    }
  }
  return table;
}

std::string difference_text(const tables::OutputTable& difference) {
  std::string out;
  for (const auto& row : difference.rows) {
    const auto* number = std::get_if<std::int64_t>(&row[1]);
    if (number != nullptr) out += texts::translated("material {}: ", *number);
    out += fmt::format("{} {} -> {}\n", option_text(row[2]), shown(row[3]), shown(row[4]));
  }
  return out;
}

}  // namespace aluframe::cli
