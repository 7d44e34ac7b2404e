// Models of every content survive writing and reading; texts of any content are judged, never
// crash the reader.
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <algorithm>

#include <string>

#include "aluframe/io/model_file.h"
#include "tests/property/io_any_model.h"
#include "tests/property/io_any_values.h"
#include "tests/property/io_same_loads.h"

namespace aluframe::io {
namespace {

using namespace aluframe::model;
// Beside the overloads of this file, which would hide it.
using aluframe::io::require_equal;

/// Compares entities that hold lengths: those are close, and with them made the same, all is equal.
void require_equal(Node expected, const Node& actual) {
  require_close(expected.x, actual.x);
  require_close(expected.y, actual.y);
  require_close(expected.z, actual.z);
  expected.x = actual.x;
  expected.y = actual.y;
  expected.z = actual.z;
  RC_ASSERT(expected == actual);
}

void take_if_close(std::optional<double>& expected, const std::optional<double>& actual) {
  RC_ASSERT(expected.has_value() == actual.has_value());
  if (!expected) return;
  require_close(*expected, *actual);
  expected = actual;
}

template <std::size_t Size>
void take_if_close(std::array<double, Size>& expected, const std::array<double, Size>& actual) {
  for (std::size_t i = 0; i < Size; ++i) require_close(expected[i], actual[i]);
  expected = actual;
}

void take_if_close(std::optional<std::array<double, 4>>& expected,
                   const std::optional<std::array<double, 4>>& actual) {
  RC_ASSERT(expected.has_value() == actual.has_value());
  if (expected) take_if_close(*expected, *actual);
}

void require_equal(Section expected, const Section& actual) {
  take_if_close(expected.dimensions, actual.dimensions);
  take_if_close(expected.given.area, actual.given.area);
  take_if_close(expected.given.it, actual.given.it);
  take_if_close(expected.given.iyy, actual.given.iyy);
  take_if_close(expected.given.izz, actual.given.izz);
  take_if_close(expected.given.qyb, actual.given.qyb);
  take_if_close(expected.given.qzb, actual.given.qzb);
  take_if_close(expected.given.iw, actual.given.iw);
  take_if_close(expected.given.shear_centre_z, actual.given.shear_centre_z);
  take_if_close(expected.given.point_y, actual.given.point_y);
  take_if_close(expected.given.point_z, actual.given.point_z);
  RC_ASSERT(expected == actual);
}

void require_equal(Element expected, const Element& actual) {
  take_if_close(expected.design.haz_width, actual.design.haz_width);
  RC_ASSERT(expected == actual);
}

void require_equal(Member expected, const Member& actual) {
  RC_ASSERT(expected.restraints.size() == actual.restraints.size());
  for (std::size_t i = 0; i < expected.restraints.size(); ++i) {
    Restraint& restraint = expected.restraints[i];
    const Restraint& read = actual.restraints[i];
    RC_ASSERT(restraint.at.size() == read.at.size());
    for (std::size_t j = 0; j < read.at.size(); ++j) require_close(restraint.at[j], read.at[j]);
    restraint.at = read.at;
    take_if_close(restraint.spacing, read.spacing);
  }
  if (expected.deflection_limit && actual.deflection_limit) {
    take_if_close(expected.deflection_limit->absolute, actual.deflection_limit->absolute);
  }
  RC_ASSERT(expected == actual);
}

void require_equal(AnalysisSettings expected, const AnalysisSettings& actual) {
  require_close(expected.imperfections.mode, actual.imperfections.mode);
  expected.imperfections.mode = actual.imperfections.mode;
  RC_ASSERT(expected == actual);
}

void require_equal(ServiceabilityLimits expected, const ServiceabilityLimits& actual) {
  if (expected.deflection && actual.deflection) {
    take_if_close(expected.deflection->absolute, actual.deflection->absolute);
  }
  RC_ASSERT(expected.displacements.size() == actual.displacements.size());
  for (std::size_t i = 0; i < expected.displacements.size(); ++i) {
    require_close(expected.displacements[i].absolute, actual.displacements[i].absolute);
    expected.displacements[i].absolute = actual.displacements[i].absolute;
  }
  RC_ASSERT(expected == actual);
}

template <class Entity>
void require_equal(const Entity& expected, const Entity& actual) {
  RC_ASSERT(expected == actual);
}

template <class Entity>
void require_equal_tables(const Table<Entity>& expected, const Table<Entity>& actual) {
  RC_ASSERT(expected.size() == actual.size());
  for (std::size_t i = 0; i < expected.size(); ++i) require_equal(expected[i], actual[i]);
}

void require_equal(const Model& expected, const Model& actual) {
  RC_ASSERT(expected.title == actual.title);
  RC_ASSERT(expected.description == actual.description);
  RC_ASSERT(expected.project == actual.project);
  RC_ASSERT(expected.units == actual.units);
  RC_ASSERT(expected.design == actual.design);
  RC_ASSERT(expected.frame == actual.frame);
  require_equal(expected.analysis, actual.analysis);
  RC_ASSERT(expected.supports.size() == actual.supports.size());
  for (std::size_t i = 0; i < expected.supports.size(); ++i) {
    require_equal(expected.supports[i], actual.supports[i]);
  }
  require_equal_tables(expected.materials, actual.materials);
  require_equal_tables(expected.sections, actual.sections);
  require_equal_tables(expected.nodes, actual.nodes);
  require_equal_tables(expected.elements, actual.elements);
  require_equal_tables(expected.members, actual.members);
  require_equal(expected.serviceability, actual.serviceability);
  RC_ASSERT(expected.finds_members == actual.finds_members);
  require_equal_tables(expected.load_cases, actual.load_cases);
  require_equal_tables(expected.combinations, actual.combinations);
  RC_ASSERT(expected.forces == actual.forces);
}

RC_GTEST_PROP(WrittenModel, ReadsBackAsTheSameModel, ()) {
  const Model model = any_model();
  const std::string text = write_model(model);
  const Result<Model> result = parse_model(text, "model.json");
  if (const Problem* problem = std::get_if<Problem>(&result)) {
    RC_FAIL(problem->message() + '\n' + text);
  }
  require_equal(model, std::get<Model>(result));
}

RC_GTEST_PROP(WrittenModel, IsWrittenTheSameAfterReading, ()) {
  const std::string text = write_model(any_model());
  const Result<Model> result = parse_model(text, "model.json");
  RC_ASSERT(std::holds_alternative<Model>(result));
  RC_ASSERT(write_model(std::get<Model>(result)) == text);
}

RC_GTEST_PROP(DamagedModel, IsReadOrRefusedWithOneLineAFault, ()) {
  std::string text = write_model(any_model());
  const int damages = *rc::gen::inRange(1, 5);
  for (int i = 0; i < damages; ++i) {
    const auto place = *rc::gen::inRange<std::size_t>(0, text.size());
    const auto length = *rc::gen::inRange<std::size_t>(0, 12);
    text.replace(
        place, length,
        any_of<std::string>({"", "{", "]", ",", "\"", "-", "0", "1e400", "null", "\xC3", "7"}));
    if (text.empty()) text = " ";
  }
  const Result<Model> result = parse_model(text, "model.json");
  if (const Problem* problem = std::get_if<Problem>(&result)) {
    RC_ASSERT(!problem->text.empty());
    const std::string message = problem->message();
    RC_ASSERT(static_cast<std::size_t>(std::ranges::count(message, '\n')) ==
              problem->others.size() + (problem->has_more ? 1 : 0));
  } else {
    RC_ASSERT(!std::get<Model>(result).elements.empty());
  }
}

}  // namespace
}  // namespace aluframe::io
