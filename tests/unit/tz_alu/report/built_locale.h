#pragma once

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "tests/unit/tz_alu/report/report_fixture.h"

namespace report_test {

/// A locale of the C library that is built for the test and found as long as the object lives.
/// Needs `localedef` and the locale sources (Debian package "locales").
///
///     const BuiltLocale german("de_DE", "UTF-8");
///     const EnvironmentVariable user("LC_ALL", german.name());
class BuiltLocale {
 public:
  BuiltLocale(const std::string& definition, const std::string& charset)
      : name_(definition + "." + charset) {
    const std::string command = "localedef -i " + definition + " -f " + charset + " '" +
                                (folder_.path() / name_).string() + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
  }

  const std::string& name() const { return name_; }

 private:
  std::string name_;
  const TemporaryFolder folder_;
  const EnvironmentVariable search_path_{"LOCPATH", folder_.path().string()};
};

}  // namespace report_test
