#include "aluframe/catalogue/profiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "aluframe/catalogue/profile_tables.h"
#include "aluframe/texts/text.h"

namespace aluframe::catalogue {

namespace {

using model::Shape;

constexpr double millimetres_per_inch = 25.4;

/// What the profiles of a series have in common.
struct ProfileSource {
  const char* series;
  const char* source;
};
constexpr ProfileSource i_beam_source{
    "AA I", texts::translatable(
                "Aluminum Association standard I-beams (Aluminum Design Manual), depth x lb/ft")};
constexpr ProfileSource channel_source{
    "AA CS", texts::translatable(
                 "Aluminum Association standard channels (Aluminum Design Manual), depth x lb/ft")};
constexpr ProfileSource tee_source{
    "AA T",
    texts::translatable(
        "rule: the standard I-beams cut at mid-depth, fillets left out; depth x web x width in")};
constexpr ProfileSource pipe_source{
    "NPS", texts::translatable(
               "pipe sizes of ANSI/ASME B36.10, in which ANSI H35.2 lists aluminium pipe")};
constexpr ProfileSource box_source{
    "B", texts::translatable("rule: hollow sections with equal walls, depth x width x wall in mm, "
                             "wall from 1/25 to 1/12 "
                             "of the smaller side")};
constexpr ProfileSource tube_source{
    "P", texts::translatable(
             "rule: round tubes, diameter x wall in mm, wall from 1/33 to 1/12 of the diameter")};
constexpr ProfileSource round_source{
    "SR", texts::translatable("rule: solid rounds of preferred diameters in mm")};

/// Outer sizes of a rule's hollow sections, mm, each with two walls.
struct HollowSize {
  double depth, width, thin, thick;
};
constexpr HollowSize box_sizes[] = {
    {40, 40, 2, 3},    {50, 50, 2, 4},    {60, 60, 3, 5},    {80, 80, 4, 6},   {100, 100, 4, 8},
    {120, 120, 5, 10}, {150, 150, 6, 10}, {200, 200, 8, 12}, {60, 40, 2, 3},   {80, 40, 2, 3},
    {100, 50, 3, 4},   {120, 60, 3, 5},   {150, 100, 4, 8},  {200, 100, 5, 8}, {250, 150, 6, 10},
};
constexpr HollowSize tube_sizes[] = {
    {30, 30, 2, 2.5}, {40, 40, 2, 3},   {50, 50, 2, 4},    {60, 60, 3, 5},
    {80, 80, 3, 6},   {100, 100, 4, 8}, {120, 120, 5, 10}, {150, 150, 5, 10},
};
constexpr double round_sizes[] = {10, 12, 16, 20, 25, 30, 40, 50, 60, 80, 100};

Profile make_profile(std::string name, Shape shape, const std::array<double, 8>& dimensions,
                     const ProfileSource& source) {
  return {std::move(name), shape, dimensions, source.series, source.source};
}

Profile in_inches(std::string name, Shape shape, std::array<double, 8> inches,
                  const ProfileSource& source) {
  for (double& length : inches) length *= millimetres_per_inch;
  return make_profile(std::move(name), shape, inches, source);
}

void add_flanged(std::vector<Profile>& out) {
  for (const FlangedRow& r : standard_i_beams()) {
    out.push_back(in_inches(fmt::format("AA I {:.0f}x{:.2f}", r.depth, r.weight), Shape::h_section,
                            {r.depth, r.width, r.web, r.flange, r.width, r.flange, r.fillet},
                            i_beam_source));
  }
  for (const FlangedRow& r : standard_channels()) {
    out.push_back(in_inches(fmt::format("AA CS {:.0f}x{:.2f}", r.depth, r.weight), Shape::channel,
                            {r.depth, r.width, r.web, r.flange, r.width, r.flange, r.fillet},
                            channel_source));
  }
  for (const FlangedRow& r : standard_i_beams()) {
    out.push_back(in_inches(fmt::format("AA T {:g}x{:g}x{:g}", r.depth / 2.0, r.web, r.width),
                            Shape::tee, {r.depth / 2.0, r.width, r.web, r.flange}, tee_source));
  }
}

void add_hollow(std::vector<Profile>& out) {
  for (const PipeRow& r : pipe_sizes()) {
    out.push_back(in_inches(fmt::format("NPS {} SCH 40", r.size), Shape::pipe,
                            {r.diameter, r.wall_40}, pipe_source));
    out.push_back(in_inches(fmt::format("NPS {} SCH 80", r.size), Shape::pipe,
                            {r.diameter, r.wall_80}, pipe_source));
  }
  for (const auto& [depth, width, thin, thick] : box_sizes) {
    for (const double t : {thin, thick}) {
      out.push_back(make_profile(fmt::format("B {:g}x{:g}x{:g}", depth, width, t), Shape::box,
                                 {depth, width, t, t, width - t, t}, box_source));
    }
  }
  for (const auto& [diameter, same, thin, thick] : tube_sizes) {
    for (const double t : {thin, thick}) {
      out.push_back(make_profile(fmt::format("P {:g}x{:g}", diameter, t), Shape::pipe, {same, t},
                                 tube_source));
    }
  }
}

std::vector<Profile> make_profiles() {
  std::vector<Profile> out;
  add_flanged(out);
  add_hollow(out);
  for (const double diameter : round_sizes) {
    out.push_back(make_profile(fmt::format("SR {:g}", diameter), Shape::solid_round, {diameter},
                               round_source));
  }
  return out;
}

}  // namespace

std::span<const Profile> profiles() {
  static const std::vector<Profile> all = make_profiles();
  return all;
}

const Profile* find_profile(std::string_view name) {
  const auto all = profiles();
  const auto found = std::ranges::find(all, name, &Profile::name);
  return found != all.end() ? &*found : nullptr;
}

model::Section section_of(const Profile& profile) {
  model::Section section;
  section.name = profile.name;
  section.shape = profile.shape;
  section.dimensions = profile.dimensions;
  return section;
}

}  // namespace aluframe::catalogue
