#include "aluframe/explain/slenderness_steps.h"

#include "aluframe/explain/inputs.h"

namespace aluframe::explain {

namespace engine = alu_engine;

namespace {

Term radius_y(Derivation& d) {
  const ALU_SECT_DATA& sect = d.in.Section();
  return d.trace.define({"iy", translatable("radius of gyration about y, gross section"), "mm"},
                        engine::RadiusOfGyration(sect.dIyy, sect.dArea),
                        root(inertia_y(d) / gross_area(d)));
}

Term radius_z(Derivation& d) {
  const ALU_SECT_DATA& sect = d.in.Section();
  return d.trace.define({"iz", translatable("radius of gyration about z, gross section"), "mm"},
                        engine::RadiusOfGyration(sect.dIzz, sect.dArea),
                        root(inertia_z(d) / gross_area(d)));
}

/// λz of bending alone.
Term bending_slenderness_z(Derivation& d) {
  const Info info{"λz", translatable("slenderness about z"), "", "4.5"};
  const Term formula = length_factor_z(d) * member_length(d) / radius_z(d);
  // Of an unsymmetric section the checks have it as a part of λyz.
  return d.is_unsymmetric ? d.trace.part(info, formula)
                          : d.trace.define(info, d.lambda.dLambdaZ, formula);
}

Term polar_radius(Derivation& d) {
  const Term iy = radius_y(d), iz = radius_z(d), e0 = shear_centre(d);
  return d.trace.define(
      {"i0", translatable("polar radius of gyration about the shear centre"), "mm", "7.2"},
      engine::PolarRadius(iy.own_value(), iz.own_value(), e0.own_value()),
      root(squared(iy) + squared(iz) + squared(e0)));
}

Term torsional_slenderness(Derivation& d) {
  const Term i0 = polar_radius(d);
  return d.trace.define(
      {"λω", translatable("slenderness of buckling by twist"), "", "7.2"},
      engine::TorsionalSlenderness(d.in.data, i0.own_value()),
      root(squared(i0) * gross_area(d) /
           (torsion_constant(d) / 25.7 + warping_constant(d) / squared(torsional_length(d)))));
}

Term torsional_flexural(Derivation& d) {
  const Term z = squared(bending_slenderness_z(d)), w = squared(torsional_slenderness(d));
  const Term coupling = 4.0 * (1.0 - squared(shear_centre(d)) / squared(polar_radius(d))) * z * w;
  return root((z + w + root(squared(z + w) - coupling)) / 2.0);
}

}  // namespace

Term torsional_length(Derivation& d) {
  const Term L = member_length(d);
  const double value = engine::TorsionalBucklingLength(d.in.data);
  const bool is_doubled = value != L.own_value();
  return d.trace.define(
      {"lω", translatable("length of twist and warping"), "mm", "7.2",
       is_doubled ? translatable("an end node is supported in none of the directions Dx, Dy, Dz")
                  : translatable("both ends are held")},
      value, is_doubled ? 2.0 * L : L);
}

Term slenderness_y(Derivation& d) {
  return d.trace.define({"λy", translatable("slenderness about y"), "", "4.5"}, d.lambda.dLambdaY,
                        length_factor_y(d) * member_length(d) / radius_y(d));
}

Term slenderness_z(Derivation& d) {
  if (!d.is_unsymmetric) return bending_slenderness_z(d);
  return d.trace.define({"λyz", translatable("flexural-torsional slenderness, in place of λz"), "",
                         "7.2", translatable("unsymmetric section")},
                        d.lambda.dLambdaZ, torsional_flexural(d));
}

}  // namespace aluframe::explain
