#include "aluframe/area_loads/wind_and_snow.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/elementary/functions.h"
#include "aluframe/texts/text.h"

namespace aluframe::area_loads {

namespace {

constexpr double metre = 1000.0;
constexpr double ten_metres = 10.0 * metre;

/// GB 50009-2012, 8.2.1 and 8.6.1 with 8.4.6, in the order A, B, C, D.
constexpr std::array<Profile, 4> profiles{{
    {1.284, 0.12, 1.09, 300 * metre, 5 * metre, 0.12, 2.5},
    {1.000, 0.15, 1.00, 350 * metre, 10 * metre, 0.14, 2.5},
    {0.544, 0.22, 0.65, 450 * metre, 15 * metre, 0.23, 2.5},
    {0.262, 0.30, 0.51, 550 * metre, 30 * metre, 0.39, 2.5},
}};

constexpr const char* given = texts::translatable("given in the model");

bool has_own_numbers(const model::WindPressure& wind) {
  return wind.profile != model::WindProfile();
}

double mu_z_of(const model::WindPressure& wind) {
  return wind.mu_z ? *wind.mu_z : mu_z(profile_of(wind), wind.height);
}

/// βz of the main structure, βgz of cladding.
double gust_of(const model::WindPressure& wind) {
  if (wind.beta_z) return *wind.beta_z;
  return wind.beta_gz ? *wind.beta_gz : beta_gz(profile_of(wind), wind.height);
}

std::string number(double value) {
  return fmt::format(fmt::runtime(value < 0.0 ? "({:.5g})" : "{:.5g}"), value);
}

std::string source_of(const model::WindPressure& wind, const char* clause) {
  return has_own_numbers(wind)
             ? fmt::format(texts::translatable("{} with numbers of the model"), clause)
             : clause;
}

Step mu_z_step(const model::WindPressure& wind) {
  if (wind.mu_z) return {"μz", "", "", *wind.mu_z, "", given};
  const Profile p = profile_of(wind);
  const double height = std::min(wind.height, p.gradient_height) / metre;
  const std::string factors = fmt::format("max({}, {}·", number(p.mu_min), number(p.mu_10));
  const std::string power = fmt::format("/10)^{})", number(2.0 * p.alpha));
  const std::string least = fmt::format("min(z, {})", number(p.gradient_height / metre));
  return {"μz",
          factors + "(" + least + power,
          factors + "(" + number(height) + power,
          mu_z_of(wind),
          "",
          source_of(wind, "GB 50009-2012, 8.2.1")};
}

Step beta_gz_step(const model::WindPressure& wind) {
  if (wind.beta_gz) return {"βgz", "", "", *wind.beta_gz, "", given};
  const Profile p = profile_of(wind);
  const double low = p.lowest_height / metre;
  const double high = p.gradient_height / metre;
  const double height = std::clamp(wind.height / metre, low, high);
  const std::string power = fmt::format("/10)^-{}", number(p.alpha));
  return {"βgz",
          fmt::format("1 + 2·g·I10·(min(max(z, {}), {}){}", number(low), number(high), power),
          fmt::format("1 + 2·{}·{}·({}{}", number(p.g), number(p.i_10), number(height), power),
          gust_of(wind),
          "",
          source_of(wind, "GB 50009-2012, 8.6.1")};
}

std::vector<Step> wind_steps(const model::WindPressure& wind, const model::Units& units) {
  const double scale = pressure_scale(units);
  std::vector<Step> steps{mu_z_step(wind)};
  const bool is_cladding = !wind.beta_z;
  if (is_cladding) {
    steps.push_back(beta_gz_step(wind));
  } else {
    steps.push_back({"βz", "", "", *wind.beta_z, "", given});
  }
  steps.push_back({"wk", is_cladding ? "βgz·μsl·μz·w0" : "βz·μs·μz·w0",
                   fmt::format("{}·{}·{}·{}", number(gust_of(wind)), number(wind.shape),
                               number(mu_z_of(wind)), number(wind.w0 / scale)),
                   pressure_of(wind) / scale, pressure_unit(units),
                   is_cladding ? "GB 50009-2012, (8.1.1-2)" : "GB 50009-2012, (8.1.1-1)"});
  return steps;
}

std::vector<Step> snow_steps(const model::SnowPressure& snow, const model::Units& units) {
  const double scale = pressure_scale(units);
  return {{"sk", "μr·s0", fmt::format("{}·{}", number(snow.mu_r), number(snow.s0 / scale)),
           snow.mu_r * snow.s0 / scale, pressure_unit(units), "GB 50009-2012, (7.1.1)"}};
}

}  // namespace

Profile profile_of(const model::WindPressure& wind) {
  Profile out = profiles.at(static_cast<std::size_t>(wind.roughness));
  const model::WindProfile& own = wind.profile;
  return {.mu_10 = own.mu_10.value_or(out.mu_10),
          .alpha = own.alpha.value_or(out.alpha),
          .mu_min = own.mu_min.value_or(out.mu_min),
          .gradient_height = own.gradient_height.value_or(out.gradient_height),
          .lowest_height = own.lowest_height.value_or(out.lowest_height),
          .i_10 = own.i_10.value_or(out.i_10),
          .g = own.g.value_or(out.g)};
}

double mu_z(const Profile& profile, double height) {
  const double z = std::min(height, profile.gradient_height);
  return std::max(profile.mu_min,
                  profile.mu_10 * elementary::power(z / ten_metres, 2.0 * profile.alpha));
}

double beta_gz(const Profile& profile, double height) {
  const double z = std::clamp(height, profile.lowest_height, profile.gradient_height);
  return 1.0 + 2.0 * profile.g * profile.i_10 * elementary::power(z / ten_metres, -profile.alpha);
}

double pressure_of(const Pressure& pressure) {
  if (const auto* wind = std::get_if<model::WindPressure>(&pressure)) {
    return gust_of(*wind) * wind->shape * mu_z_of(*wind) * wind->w0;
  }
  if (const auto* snow = std::get_if<model::SnowPressure>(&pressure)) {
    return -snow->mu_r * snow->s0;
  }
  return std::get<double>(pressure);
}

std::vector<Step> steps_of(const Pressure& pressure, const model::Units& units) {
  if (const auto* wind = std::get_if<model::WindPressure>(&pressure)) {
    return wind_steps(*wind, units);
  }
  if (const auto* snow = std::get_if<model::SnowPressure>(&pressure)) {
    return snow_steps(*snow, units);
  }
  return {};
}

std::string pressure_unit(const model::Units& units) {
  return fmt::format("{}/{}²", model::name_of(units.force), model::name_of(units.length));
}

double pressure_scale(const model::Units& units) {
  const double length = model::millimetres_per(units.length);
  return model::newtons_per(units.force) / (length * length);
}

}  // namespace aluframe::area_loads
