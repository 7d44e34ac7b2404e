#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

#include "aluframe/io/model_reader.h"
#include "aluframe/io/named_values.h"
#include "aluframe/model/members.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr auto restraint_fields = std::to_array<std::string_view>({"holds", "at", "spacing"});

/// A spacing may not be finer than this share of the member: it is a slip of the unit.
constexpr double most_places = 1000.0;

/// An element of the member with where it lies along it, mm.
struct Stretch {
  const model::Element* element = nullptr;
  double start = 0.0, end = 0.0;
};

std::vector<Stretch> stretches_of(const model::Model& model, const model::Member& member) {
  std::vector<Stretch> stretches;
  double start = 0.0;
  for (const model::Number number : member.elements) {
    const model::Element& element = *model.elements.find(number);
    const double end = start + model::element_length(model, element);
    stretches.push_back({&element, start, end});
    start = end;
  }
  return stretches;
}

/// The flanges that a shape has.
unsigned flanges_of(model::Shape shape) {
  switch (shape) {
    case model::Shape::channel:
    case model::Shape::h_section:
    case model::Shape::box:
    case model::Shape::double_channel:
      return model::top_part | model::bottom_part;
    case model::Shape::tee:
      return model::top_part;
    default:
      return 0;
  }
}

/// What holds the member at one place, and where the file says so.
struct HeldPlace {
  double place = 0.0;
  model::Held held;
  JsonValue said;
};

/// Reads the restraints of one member.
class RestraintReader {
 public:
  RestraintReader(const Scales& scales, const model::Model& model, const model::Member& member)
      : scales_(scales),
        model_(model),
        stretches_(stretches_of(model, member)),
        length_(stretches_.back().end) {}

  model::Restraint read(const JsonValue& value) {
    const JsonObject object(value, restraint_fields);
    model::Restraint restraint;
    const JsonValue holds = object.required("holds");
    restraint.held = holds.one_of<model::Held>(held_names);
    const auto at = object.optional("at");
    const auto spacing = object.optional("spacing");
    if (at.has_value() == spacing.has_value()) {
      value.fail(at ? texts::translated("one of \"at\" and \"spacing\" is needed, found both")
                    : texts::translated("one of \"at\" and \"spacing\" is needed, found neither"));
    }
    if (at) {
      read_places(*at, holds, restraint);
    } else {
      read_spacing(*spacing, holds, restraint);
    }
    return restraint;
  }

 private:
  void read_places(const JsonValue& at, const JsonValue& holds, model::Restraint& restraint) {
    if (at.list().empty()) at.fail(texts::translated("found no place, must be one or more"));
    for (const JsonValue value : at.list()) {
      const double place = scales_.length * value.number();
      // Both bounds leave room for the rounding of a length that is written with few digits.
      if (place < -model::same_place || place > length_ + model::same_place) {
        value.fail_with(texts::translated("must be from 0 to {:.6g}, the length of the member",
                                          in_unit(length_)));
      }
      take({place, restraint.held, value}, holds);
      restraint.at.push_back(place);
    }
  }

  void read_spacing(const JsonValue& value, const JsonValue& holds, model::Restraint& restraint) {
    const double spacing = scales_.length * value.positive();
    if (spacing > length_ - model::same_place) {
      value.fail_with(texts::translated("must be less than {:.6g}, the length of the member",
                                        in_unit(length_)));
    }
    if (spacing < length_ / most_places || spacing <= model::same_place) {
      value.fail_with(texts::translated(
          "must be at least {:.6g}, a thousandth of the member's length and no less than 1 mm",
          in_unit(std::max(length_ / most_places, 2.0 * model::same_place))));
    }
    restraint.spacing = spacing;
    for (const double place : model::places_of(restraint, length_)) {
      take({place, restraint.held, value}, holds);
    }
  }

  /// Keeps a place when nothing holds the same there, and the section has what is held.
  void take(const HeldPlace& held, const JsonValue& holds) {
    const auto end = held_.upper_bound(held.place + model::same_place);
    for (auto at = held_.lower_bound(held.place - model::same_place); at != end; ++at) {
      const HeldPlace& other = at->second;
      if ((model::parts_of(other.held) & model::parts_of(held.held)) == 0) continue;
      held.said.fail(
          texts::translated("found \"{}\" at {:.6g}, where {} holds \"{}\" already: at one place "
                            "the same is held once",
                            model::name_of(held.held), in_unit(held.place), other.said.path(),
                            model::name_of(other.held)));
    }
    require_flanges(held, holds);
    held_.emplace(held.place, held);
  }

  void require_flanges(const HeldPlace& held, const JsonValue& holds) const {
    const unsigned flanges = model::parts_of(held.held) & (model::top_part | model::bottom_part);
    if (flanges == 0) return;
    for (const Stretch& stretch : stretches_) {
      if (held.place < stretch.start - model::same_place ||
          held.place > stretch.end + model::same_place) {
        continue;
      }
      const model::Section& section = *model_.sections.find(stretch.element->section);
      const unsigned has = flanges_of(section.shape);
      if ((flanges & ~has) == 0) continue;
      holds.fail(texts::translated(
          "found \"{}\" at {:.6g}, where element {} has a section {} without such a flange, must "
          "be one of {}",
          model::name_of(held.held), in_unit(held.place), stretch.element->number,
          model::name_of(section.shape), has == 0 ? "y, z, twist" : "top, y, z, twist"));
    }
  }

  double in_unit(double length) const { return length / scales_.length; }

  const Scales& scales_;
  const model::Model& model_;
  const std::vector<Stretch> stretches_;
  const double length_;
  std::multimap<double, HeldPlace> held_;
};

}  // namespace

std::vector<model::Restraint> read_restraints(const JsonValue& list, const Scales& scales,
                                              const model::Model& model,
                                              const model::Member& member) {
  RestraintReader reader(scales, model, member);
  std::vector<model::Restraint> restraints;
  read_items(list, [&](const JsonValue& value) { restraints.push_back(reader.read(value)); });
  return restraints;
}

}  // namespace aluframe::io
