#include "apps/cli/settings_fields.h"

#include <cstdint>

#include "aluframe/services/design_codes.h"
#include "aluframe/services/text.h"

namespace aluframe::cli {

namespace {

struct CellOf {
  tables::Cell operator()(bool value) const { return value; }
  tables::Cell operator()(int value) const { return std::int64_t{value}; }
  tables::Cell operator()(double value) const { return value; }
  tables::Cell operator()(const std::string& value) const { return value; }
};

template <class Record>
tables::Cell cell_of(const Record& record, const Field<Record>& field) {
  return std::visit([&](auto member) { return CellOf()(record.*member); }, field.member);
}

struct OptionText {
  std::string operator()(std::monostate) const { return ""; }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const tables::Phrase& phrase) const { return phrase.english; }
  std::string operator()(std::int64_t value) const { return fmt::format("{}", value); }
  std::string operator()(double value) const { return fmt::format("{}", value); }
  std::string operator()(bool value) const { return value ? "on" : "off"; }
};

}  // namespace

tables::Cell value_of(const model::DesignSettings& settings,
                      const Field<model::DesignSettings>& field) {
  if (field.name != code_field) return cell_of(settings, field);
  return services::to_utf8(services::shown_code_name(services::to_wide(settings.code)));
}

tables::Cell value_of(const model::Material& material, const Field<model::Material>& field) {
  return cell_of(material, field);
}

std::string option_text(const tables::Cell& value) {
  return std::visit(OptionText(), value);
}

}  // namespace aluframe::cli
