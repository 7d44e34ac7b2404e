#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "aluframe/picture/drawing.h"

#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

std::string case_text(const model::LoadCase& load_case) {
  return load_case.name.empty()
             ? texts::translated("load case {}", load_case.number)
             : texts::translated("load case {} \"{}\"", load_case.number, load_case.name);
}

std::string subtitle_of(const model::Model& model, const Content& content) {
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
  if (content.colour == ColourBy::ratio) add(texts::translated("governing ratios of the checks"));
  if (content.colour == ColourBy::deflection) {
    add(texts::translated("largest deflections over what they are limited to"));
  }
  if (content.colour == ColourBy::section) add(texts::translated("sections"));
  if (content.colour == ColourBy::material) add(texts::translated("materials"));
  if (content.diagram) {
    const Diagram& diagram = *content.diagram;
    const std::string force(model::name_of(model.units.force));
    const std::string length(model::name_of(model.units.length));
    add(texts::translated("{} in {}, {}", heading_of(diagram.component),
                          is_moment(diagram.component) ? force + "·" + length : force, diagram.of));
  }
  if (content.deformed) add(texts::translated("displaced shape, {}", content.deformed->of));
  if (content.loads)
    add(texts::translated("loads, {}", case_text(*model.load_cases.find(*content.loads))));
  if (text.empty()) add(texts::translated("frame"));
  if (const auto heading = heading_of(content.view); !heading.empty()) add(std::string(heading));
  return text;
}

struct NamedLayer {
  Layer layer;
  std::string_view name;
};
constexpr std::array<NamedLayer, 9> layers{{{Layer::diagram, "diagram"},
                                            {Layer::frame, "frame"},
                                            {Layer::deformed, "deformed"},
                                            {Layer::supports, "supports"},
                                            {Layer::releases, "releases"},
                                            {Layer::loads, "loads"},
                                            {Layer::local_axes, "local-axes"},
                                            {Layer::values, "values"},
                                            {Layer::numbers, "numbers"}}};

struct NamedComponent {
  ForceComponent component;
  std::string_view name, heading;
};
constexpr std::array<NamedComponent, 6> components{
    {{ForceComponent::n, "N", texts::translatable("axial force N")},
     {ForceComponent::vy, "Vy", texts::translatable("shear force Vy")},
     {ForceComponent::vz, "Vz", texts::translatable("shear force Vz")},
     {ForceComponent::t, "T", texts::translatable("torsion T")},
     {ForceComponent::my, "My", texts::translatable("bending moment My")},
     {ForceComponent::mz, "Mz", texts::translatable("bending moment Mz")}}};

Scene headed_scene(const model::Model& model, const Content& content) {
  Scene scene;
  scene.view = content.view;
  scene.title = model.title.empty() ? texts::translated("Untitled model") : model.title;
  scene.subtitle = subtitle_of(model, content);
  scene.length_unit = model.units.length;
  return scene;
}

/// All but the elements.
void draw_marks(Drawing& drawing) {
  const Content& content = drawing.content;
  draw_ratios(drawing);
  draw_supports(drawing);
  draw_releases(drawing);
  if (content.diagram) draw_diagram(drawing, *content.diagram);
  if (content.deformed) draw_deformed(drawing, *content.deformed);
  if (content.loads) draw_loads(drawing, *drawing.model.load_cases.find(*content.loads));
  if (content.local_axes) draw_local_axes(drawing);
  draw_numbers(drawing);
  auto& notes = drawing.scene.notes;
  notes.insert(notes.end(), content.notes.begin(), content.notes.end());
}

}  // namespace

std::string_view name_of(Layer layer) {
  return layers[static_cast<std::size_t>(layer)].name;
}

std::optional<ForceComponent> parse_component(std::string_view name) {
  const auto* const found = std::ranges::find(components, name, &NamedComponent::name);
  return found == components.end() ? std::nullopt : std::optional(found->component);
}

std::string_view name_of(ForceComponent component) {
  return components[static_cast<std::size_t>(component)].name;
}

std::string_view heading_of(ForceComponent component) {
  return texts::translation_of(components[static_cast<std::size_t>(component)].heading);
}

std::string_view component_names() {
  return "N, Vy, Vz, T, My, Mz";
}

std::optional<ColourBy> parse_colour(std::string_view name) {
  if (name == "ratio") return ColourBy::ratio;
  if (name == "deflection") return ColourBy::deflection;
  if (name == "section") return ColourBy::section;
  return name == "material" ? std::optional(ColourBy::material) : std::nullopt;
}

std::string_view colour_names() {
  return "ratio, deflection, section, material";
}

void add_note(std::vector<std::string>& notes, std::vector<model::Number> elements,
              const std::string& text) {
  if (elements.empty()) return;
  std::ranges::sort(elements);
  constexpr std::size_t most_ranges = 8;
  const std::string numbers =
      texts::sentence_in_words(model::join_as_ranges(elements, most_ranges));
  notes.push_back(elements.size() == 1 ? texts::translated("element {}: {}", numbers, text)
                                       : texts::translated("elements {}: {}", numbers, text));
}

Scene draw(const model::Model& model, const Content& content) {
  Scene scene = headed_scene(model, content);
  Drawing drawing = drawing_of(model, content, scene);
  draw_elements(drawing);
  draw_marks(drawing);
  return scene;
}

Scene draw_beside(const model::Model& model, const Content& content) {
  Scene scene = headed_scene(model, content);
  Drawing drawing = drawing_of(model, content, scene);
  draw_marks(drawing);
  return scene;
}

}  // namespace aluframe::picture
