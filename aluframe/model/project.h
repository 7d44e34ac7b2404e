#pragma once

#include <array>
#include <string>
#include <string_view>

namespace aluframe::model {

/// What the cover of a calculation says of the work that it belongs to, in the engineer's words. No
/// result depends on it; a text that is empty is not shown.
struct Project {
  std::string name;      ///< of the works
  std::string number;    ///< under which the office files it
  std::string client;    ///< who has ordered the works
  std::string location;  ///< where they stand
  std::string engineer;  ///< who has calculated
  std::string checker;   ///< who has checked the calculation
  std::string approver;  ///< who answers for both
  std::string revision;  ///< of the calculation
  std::string date;      ///< as it is to be shown

  friend bool operator==(const Project&, const Project&) = default;
};

/// A text of the project and its field in model files.
struct ProjectField {
  std::string_view name;
  std::string Project::* text;
};

inline constexpr std::array<ProjectField, 9> project_fields{{{"name", &Project::name},
                                                             {"number", &Project::number},
                                                             {"client", &Project::client},
                                                             {"location", &Project::location},
                                                             {"engineer", &Project::engineer},
                                                             {"checker", &Project::checker},
                                                             {"approver", &Project::approver},
                                                             {"revision", &Project::revision},
                                                             {"date", &Project::date}}};

}  // namespace aluframe::model
