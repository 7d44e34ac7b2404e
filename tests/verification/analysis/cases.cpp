#include "cases.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace aluframe::analysis::verification {

namespace {

using Json = nlohmann::json;

constexpr std::array force_names{"N", "Fy", "Fz", "Mx", "My", "Mz"};
constexpr std::array reaction_names{"Fx", "Fy", "Fz", "Mx", "My", "Mz"};
constexpr std::array displacement_names{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};

std::size_t place_of(const std::string& name, const std::array<const char*, 6>& names) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) throw std::runtime_error("unknown component " + name);
  return static_cast<std::size_t>(found - names.begin());
}

/// Numbers in the files count from 1.
std::size_t place_at(const Json& json, const char* key) {
  return json.at(key).get<std::size_t>() - 1;
}

template <std::size_t count>
std::array<double, count> numbers(const Json& json, const char* key) {
  std::array<double, count> result{};
  if (!json.contains(key)) return result;
  const auto values = json.at(key).get<std::vector<double>>();
  if (values.size() > count) throw std::runtime_error(std::string("too many numbers in ") + key);
  std::copy(values.begin(), values.end(), result.begin());
  return result;
}

Stiffness read_stiffness(const Json& j) {
  return {.e = j.at("E"),
          .g = j.value("G", 1.0),
          .area = j.at("A"),
          .ay = j.value("Ay", 0.0),
          .az = j.value("Az", 0.0),
          .it = j.value("It", 1.0),
          .iyy = j.value("Iyy", 1.0),
          .izz = j.value("Izz", 1.0)};
}

Element read_element(const Json& j, const Json& sections, Number number) {
  Element element;
  element.number = number;
  element.start = j.at("nodes").at(0).get<std::size_t>() - 1;
  element.end = j.at("nodes").at(1).get<std::size_t>() - 1;
  const Json& section = sections.at(j.at("section").get<std::string>());
  element.stiffness = read_stiffness(section);
  element.expansion = section.value("expansion", 0.0);
  element.beta = j.value("beta", 0.0);
  if (j.value("truss", false)) element.kind = ElementKind::truss;
  for (const auto& [end, first] : {std::pair{"released_start", 0}, {"released_end", 6}}) {
    for (const std::string& name : j.value(end, std::vector<std::string>{})) {
      element.released[static_cast<std::size_t>(first) + place_of(name, force_names)] = true;
    }
  }
  return element;
}

Frame read_frame(const Json& json) {
  Frame frame;
  for (const Json& node : json.at("nodes")) {
    const auto number = static_cast<Number>(frame.nodes.size() + 1);
    frame.nodes.push_back({number, node.at(0), node.at(1), node.at(2)});
  }
  for (const Json& element : json.at("elements")) {
    const auto number = static_cast<Number>(frame.elements.size() + 1);
    frame.elements.push_back(read_element(element, json.at("sections"), number));
  }
  for (const Json& support : json.value("supports", Json::array())) {
    Support s{place_at(support, "node"), {}};
    for (const std::string& name : support.at("fixed").get<std::vector<std::string>>()) {
      s.fixed[place_of(name, displacement_names)] = true;
    }
    frame.supports.push_back(s);
  }
  for (const Json& spring : json.value("springs", Json::array())) {
    frame.springs.push_back({place_at(spring, "node"), numbers<6>(spring, "stiffness")});
  }
  return frame;
}

LoadAxes read_axes(const Json& json) {
  const std::string name = json.value("axes", "local");
  if (name == "global") return LoadAxes::global;
  if (name == "projected") return LoadAxes::projected;
  if (name == "local") return LoadAxes::local;
  throw std::runtime_error("unknown axes " + name);
}

LoadCase read_load_case(const Json& json) {
  LoadCase result;
  for (const Json& j : json.value("nodal", Json::array())) {
    result.nodal.push_back({place_at(j, "node"), numbers<6>(j, "value")});
  }
  for (const Json& j : json.value("distributed", Json::array())) {
    const auto from = numbers<3>(j, "from_value");
    const auto to = j.contains("to_value") ? numbers<3>(j, "to_value") : from;
    result.distributed.push_back(
        {place_at(j, "element"), read_axes(j), from, to, j.value("from", 0.0), j.value("to", 1.0)});
  }
  for (const Json& j : json.value("points", Json::array())) {
    result.points.push_back({place_at(j, "element"), read_axes(j), numbers<3>(j, "force"),
                             numbers<3>(j, "moment"), j.at("at")});
  }
  for (const Json& j : json.value("temperatures", Json::array())) {
    result.temperatures.push_back({place_at(j, "element"), j.value("change", 0.0),
                                   j.value("difference_y", 0.0), j.value("depth_y", 0.0),
                                   j.value("difference_z", 0.0), j.value("depth_z", 0.0)});
  }
  for (const Json& j : json.value("settlements", Json::array())) {
    const auto direction = place_of(j.at("direction"), displacement_names);
    result.settlements.push_back({place_at(j, "node"), direction, j.at("value")});
  }
  return result;
}

/// Elements are members of their own.
Imperfections read_imperfections(const Json& json) {
  return {.sway = numbers<2>(json, "sway"),
          .bow = numbers<2>(json, "bow"),
          .mode = json.value("mode", 0.0)};
}

const std::array<const char*, 6>& names_of(const std::string& what) {
  if (what == "force") return force_names;
  if (what == "reaction") return reaction_names;
  if (what == "displacement") return displacement_names;
  throw std::runtime_error("unknown result " + what);
}

Expected read_expected(const Json& json, double relative) {
  Expected expected;
  expected.load_case = json.value("case", std::size_t{1}) - 1;
  expected.what = json.at("what");
  const bool force = expected.what == "force";
  expected.place = place_at(json, force ? "element" : "node");
  if (force) expected.position = json.at("position");
  expected.component = place_of(json.at("component"), names_of(expected.what));
  expected.value = json.at("value");
  // An absolute tolerance states the digits that were published.
  expected.tolerance = json.value("tolerance", relative * std::abs(expected.value));
  return expected;
}

}  // namespace

std::string Expected::text() const {
  const std::string number = std::to_string(place + 1);
  const std::string of_case = "case " + std::to_string(load_case + 1) + " ";
  const std::string name = names_of(what)[component];
  if (what == "displacement") return of_case + name + " of node " + number;
  if (what == "reaction") return of_case + "reaction " + name + " of node " + number;
  return of_case + name + " of element " + number + " at " + std::to_string(position) + "/4";
}

Case read_case(const std::filesystem::path& file) {
  std::ifstream stream(file);
  const Json json = Json::parse(stream);
  Case result;
  result.name = file.stem().string();
  result.title = json.at("title");
  result.source = json.at("source");
  result.units = json.at("units");
  result.reason = json.at("tolerance").at("reason");
  result.second_order = json.value("second_order", false);
  result.imperfections = read_imperfections(json.value("imperfections", Json::object()));
  result.frame = read_frame(json.at("frame"));
  for (const Json& load_case : json.at("cases")) {
    result.load_cases.push_back(read_load_case(load_case));
  }
  const double relative = json.at("tolerance").value("relative", 0.0);
  for (const Json& expected : json.at("expected")) {
    result.expected.push_back(read_expected(expected, relative));
  }
  return result;
}

std::vector<Case> read_cases(const std::filesystem::path& folder) {
  std::vector<Case> cases;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".json") cases.push_back(read_case(entry.path()));
  }
  std::sort(cases.begin(), cases.end(),
            [](const Case& a, const Case& b) { return a.name < b.name; });
  return cases;
}

}  // namespace aluframe::analysis::verification
