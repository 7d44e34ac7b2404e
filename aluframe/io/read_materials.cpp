#include <array>
#include <string>
#include <utility>

#include "aluframe/catalogue/alloys.h"
#include "aluframe/io/format_names.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto material_fields = std::to_array<std::string_view>(
    {"number", "name", "alloy", "grade", "standard", "f02_thin", "f02_thick", "fu", "e", "poisson",
     "density", "thermal_expansion"});
/// Fields that an alloy of the table determines.
constexpr auto own_value_fields =
    std::to_array<std::string_view>({"grade", "standard", "f02_thin", "f02_thick", "fu", "e",
                                     "poisson", "density", "thermal_expansion"});

model::Material read_alloy(const JsonObject& object, const JsonValue& alloy) {
  for (const std::string_view field : own_value_fields) {
    if (const std::optional<JsonValue> value = object.optional(field)) {
      value->fail(texts::translated("not allowed beside \"alloy\", which determines it"));
    }
  }
  const catalogue::Alloy* row = catalogue::find_alloy(alloy.string());
  if (row == nullptr)
    alloy.fail_with(texts::translated("must be one of {}", catalogue::alloy_names()));
  return catalogue::material_of(*row);
}

model::Material read_own_values(const JsonObject& object) {
  const std::optional<JsonValue> grade = object.optional("grade");
  if (!grade) {
    object.value().fail(texts::translated(
        "missing field \"alloy\", or \"grade\", \"f02_thin\" and \"fu\" for values of your own"));
  }
  model::Material material;
  material.grade = grade->plain_text();
  material.standard = object.plain_text_or("standard", user_standard);
  if (material.standard == catalogue::alloy_standard &&
      catalogue::find_alloy(material.grade) == nullptr) {
    grade->fail_with(texts::translated("must be one of {} under the standard \"{}\"",
                                       catalogue::alloy_names(), material.standard));
  }
  object.part([&] { material.f02_thin = object.required("f02_thin").positive(); });
  object.part([&] { material.f02_thick = object.positive_or("f02_thick", material.f02_thin); });
  object.part([&] { material.fu = object.required("fu").positive(); });
  object.part([&] { material.e = object.positive_or("e", material.e); });
  object.part([&] { material.poisson = object.positive_or("poisson", material.poisson); });
  object.part([&] { material.density = object.not_negative_or("density", material.density); });
  object.part([&] {
    material.thermal_expansion = object.number_or("thermal_expansion", material.thermal_expansion);
  });
  return material;
}

}  // namespace

void read_materials(const JsonObject& root, model::Model& model) {
  read_entities(root.required("materials"), &model.materials, [&](const JsonValue& value) {
    const JsonObject object(value, material_fields);
    const std::optional<JsonValue> alloy = object.optional("alloy");
    model::Material material;
    object.part([&] { material = alloy ? read_alloy(object, *alloy) : read_own_values(object); });
    object.part([&] { material.number = object.required("number").entity_number(); });
    object.part([&] { material.name = object.plain_text_or("name", ""); });
    add_entity(object, model.materials, std::move(material), "materials");
  });
}

}  // namespace aluframe::io
