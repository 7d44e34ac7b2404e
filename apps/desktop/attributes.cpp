#include "apps/desktop/attributes.h"

#include <algorithm>
#include <limits>

#include "aluframe/texts/text.h"

namespace aluframe::desktop {

namespace {

using model::Element;
using model::ElementDesign;
using texts::translatable;

using Origin = std::function<std::string(const model::Model&, const Element&)>;

Origin always(const char* text) {
  return [text](const model::Model&, const Element&) {
    return std::string(texts::translation_of(text));
  };
}

/// Of the optional part of a design that an attribute is.
template <class Part>
using PartOf = std::optional<Part> ElementDesign::*;

template <class Part>
Attribute attribute(const char* name, PartOf<Part> part, Origin origin,
                    std::vector<AttributeField> fields, Part usual = {}) {
  return {name, [part](const Element& element) { return (element.design.*part).has_value(); },
          [part, usual](Element& element, bool gives) {
            if (!gives) {
              (element.design.*part).reset();
            } else if (!(element.design.*part)) {
              element.design.*part = usual;
            }
          },
          std::move(origin), std::move(fields)};
}

/// A number of such a part.
template <class Part>
AttributeField number(const char* name, PartOf<Part> part, double Part::* member,
                      bool may_be_zero = false) {
  return {name,
          {},
          0.0,
          may_be_zero,
          [part, member](const Element& element) { return (*(element.design.*part)).*member; },
          [part, member](Element& element, double value) {
            (*(element.design.*part)).*member = value;
          }};
}

template <class Part>
AttributeField yes_or_no(const char* name, PartOf<Part> part, bool Part::* member) {
  return {name,
          {translatable("no"), translatable("yes")},
          0.0,
          true,
          [part, member](const Element& element) {
            return (*(element.design.*part)).*member ? 1.0 : 0.0;
          },
          [part, member](Element& element, double value) {
            (*(element.design.*part)).*member = value != 0.0;
          }};
}

AttributeField single(const char* name, PartOf<double> part, bool may_be_zero) {
  return {name,
          {},
          0.0,
          may_be_zero,
          [part](const Element& element) { return *(element.design.*part); },
          [part](Element& element, double value) { element.design.*part = value; }};
}

using MomentFactors = ElementDesign::MomentFactors;

/// How the equivalent moment factor of an axis comes about: by a loading 0 to 3, or given.
AttributeField loading(const char* name, model::MomentFactor MomentFactors::* axis) {
  constexpr int given = 4;
  return {name,
          {translatable("loading 0"), translatable("loading 1"), translatable("loading 2"),
           translatable("loading 3"), translatable("given value")},
          0.0,
          true,
          [axis](const Element& element) {
            const model::MomentFactor& factor = (*element.design.moment_factors).*axis;
            return factor.value ? given : factor.loading;
          },
          [axis](Element& element, double value) {
            model::MomentFactor& factor = (*element.design.moment_factors).*axis;
            const int choice = static_cast<int>(value);
            if (choice == given) {
              factor = {.value = factor.value.value_or(1.0), .loading = 0};
            } else {
              factor = {.value = std::nullopt, .loading = choice};
            }
          }};
}

/// Its value; that of a loading is 1 until it is computed.
AttributeField moment_value(const char* name, model::MomentFactor MomentFactors::* axis) {
  return {name,
          {},
          -std::numeric_limits<double>::max(),
          true,
          [axis](const Element& element) {
            return ((*element.design.moment_factors).*axis).value.value_or(1.0);
          },
          [axis](Element& element, double value) {
            (*element.design.moment_factors).*axis = {.value = value, .loading = 0};
          }};
}

std::string origin_of_factors(const model::Model& model, const Element& element) {
  for (const model::Member& member : model.members) {
    if (!member.length_factors || std::ranges::count(member.elements, element.number) == 0)
      continue;
    return texts::translated("given for member {}: Ky = {}, Kz = {}", member.number,
                             member.length_factors->y, member.length_factors->z);
  }
  return texts::translated("by the program, from the frame");
}

std::string origin_of_rib(const model::Model& model, const Element&) {
  const model::DesignSettings design = model.design.value_or(model::DesignSettings{});
  return design.rib
             ? texts::translated("by the design settings: with ribs, ratio {}", design.rib_ratio)
             : texts::translated("by the design settings: without ribs");
}

Attribute member_type() {
  using model::MemberType;
  return {translatable("Member type"),
          [](const Element& element) { return element.member_type.has_value(); },
          [](Element& element, bool gives) {
            element.member_type =
                gives ? std::optional(element.member_type.value_or(MemberType::beam))
                      : std::nullopt;
          },
          always(translatable("by the direction of the element")),
          {{"",
            {translatable("column"), translatable("beam"), translatable("brace"),
             translatable("truss")},
            0.0,
            true,
            [](const Element& element) {
              return static_cast<double>(static_cast<int>(*element.member_type));
            },
            [](Element& element, double value) {
              element.member_type = static_cast<MemberType>(static_cast<int>(value));
            }}}};
}

std::vector<Attribute> all_attributes() {
  using Design = ElementDesign;
  using Pair = Design::AxisPair;
  return {member_type(),
          attribute<Pair>(translatable("Effective length factors"), &Design::length_factors,
                          origin_of_factors,
                          {number("Ky", &Design::length_factors, &Pair::y),
                           number("Kz", &Design::length_factors, &Pair::z)}),
          attribute<Pair>(translatable("Stability coefficients in bending"),
                          &Design::stability_coefficients,
                          always(translatable("by the code, from the section and the length")),
                          {number("φb", &Design::stability_coefficients, &Pair::y),
                           number("φbz", &Design::stability_coefficients, &Pair::z)}),
          attribute<MomentFactors>(
              translatable("Equivalent moment factors"), &Design::moment_factors,
              always(translatable("by whether the frame sways, from the end moments")),
              {loading("βy", &MomentFactors::y), moment_value("", &MomentFactors::y),
               loading("βz", &MomentFactors::z), moment_value("", &MomentFactors::z)}),
          attribute<Design::Rib>(
              translatable("Rib stiffeners"), &Design::rib, origin_of_rib,
              {yes_or_no(translatable("stiffened"), &Design::rib, &Design::Rib::stiffened),
               number(translatable("ratio"), &Design::rib, &Design::Rib::ratio)}),
          attribute<double>(translatable("Weld coefficient"), &Design::weld_coefficient,
                            always(translatable("0.5; no check reads it")),
                            {single("", &Design::weld_coefficient, false)}, 0.5),
          attribute<double>(translatable("Heat-affected width beside welds"), &Design::haz_width,
                            always(translatable("30 mm")), {single("mm", &Design::haz_width, true)},
                            30.0),
          attribute<Design::Slenderness>(
              translatable("Slenderness limits"), &Design::slenderness_limits,
              always(translatable("by the code, for the member type")),
              {yes_or_no(translatable("checked"), &Design::slenderness_limits,
                         &Design::Slenderness::checked),
               number(translatable("compression"), &Design::slenderness_limits,
                      &Design::Slenderness::compression, true),
               number(translatable("tension"), &Design::slenderness_limits,
                      &Design::Slenderness::tension, true)})};
}

}  // namespace

const std::vector<Attribute>& attributes() {
  static const std::vector<Attribute> all = all_attributes();
  return all;
}

}  // namespace aluframe::desktop
