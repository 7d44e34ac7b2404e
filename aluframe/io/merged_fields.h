#pragma once

#include <string_view>

#include "aluframe/io/scales.h"
#include "aluframe/model/material.h"
#include "aluframe/model/section.h"
#include "aluframe/model/settings.h"
#include "aluframe/model/structure.h"

/// The values of what can be changed in a model file, by their names in it.
namespace aluframe::io {

/// A record whose values are told one by one.
template <class Record>
struct FieldsOf {};

template <>
struct FieldsOf<model::DesignSettings> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using Settings = model::DesignSettings;
    take("rib", &Settings::rib);
    take("rib_ratio", &Settings::rib_ratio);
    take("safety_class", &Settings::safety_class);
    take("strength_ratio", &Settings::strength_ratio);
    take("seismic", &Settings::seismic);
    take("gamma_re_strength", &Settings::gamma_re_strength);
    take("gamma_re_stability", &Settings::gamma_re_stability);
  }
};

/// But for the name.
template <>
struct FieldsOf<model::Material> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using model::Material;
    take("grade", &Material::grade);
    take("standard", &Material::standard);
    take("f02_thin", &Material::f02_thin);
    take("f02_thick", &Material::f02_thick);
    take("fu", &Material::fu);
    take("e", &Material::e);
    take("poisson", &Material::poisson);
    take("density", &Material::density);
    take("thermal_expansion", &Material::thermal_expansion);
  }
};

template <>
struct FieldsOf<model::GivenProperties> {
  template <class Take>
  static void each(const Take& take, const Scales& scales) {
    using Given = model::GivenProperties;
    take("area", &Given::area, scales.section_2);
    take("it", &Given::it, scales.section_4);
    take("iyy", &Given::iyy, scales.section_4);
    take("izz", &Given::izz, scales.section_4);
    take("qyb", &Given::qyb, scales.section_2);
    take("qzb", &Given::qzb, scales.section_2);
    take("iw", &Given::iw, scales.section_6);
    take("shear_centre_z", &Given::shear_centre_z, scales.section);
    take("point_y", &Given::point_y, scales.section);
    take("point_z", &Given::point_z, scales.section);
  }
};

template <>
struct FieldsOf<model::ElementDesign::AxisPair> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using Pair = model::ElementDesign::AxisPair;
    take("y", &Pair::y);
    take("z", &Pair::z);
  }
};

template <>
struct FieldsOf<model::ElementDesign::Rib> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using Rib = model::ElementDesign::Rib;
    take("stiffened", &Rib::stiffened);
    take("ratio", &Rib::ratio);
  }
};

template <>
struct FieldsOf<model::ElementDesign::MomentFactors> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using Factors = model::ElementDesign::MomentFactors;
    take("y", &Factors::y);
    take("z", &Factors::z);
  }
};

template <>
struct FieldsOf<model::ElementDesign::Slenderness> {
  template <class Take>
  static void each(const Take& take, const Scales&) {
    using Limits = model::ElementDesign::Slenderness;
    take("checked", &Limits::checked);
    take("compression", &Limits::compression);
    take("tension", &Limits::tension);
  }
};

template <>
struct FieldsOf<model::ElementDesign> {
  template <class Take>
  static void each(const Take& take, const Scales& scales) {
    using Design = model::ElementDesign;
    take("stability_coefficients", &Design::stability_coefficients);
    take("rib", &Design::rib);
    take("weld_coefficient", &Design::weld_coefficient);
    take("haz_width", &Design::haz_width, scales.section);
    take("moment_factors", &Design::moment_factors);
    take("length_factors", &Design::length_factors);
    take("slenderness_limits", &Design::slenderness_limits);
  }
};

}  // namespace aluframe::io
