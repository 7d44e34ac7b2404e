#pragma once

#include <gmock/gmock.h>
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/fake_host.h"
#include "tz_alu/report/aluprint.h"

namespace report_test {

using test_support::FakeHost;
using test_support::RaisedAssertion;

/// Gives a variable of the environment another value as long as it lives.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    setenv(name_.c_str(), value.c_str(), 1);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() {
    if (before_) {
      setenv(name_.c_str(), before_->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

/// A folder that goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "report-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// The bytes of a file; empty when there is none.
inline std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Lines as they stand in a file.
inline std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

inline std::string Rule() {
  return std::string(100, '=');
}

/// A writer over a host in memory, with a report file that does not exist yet. The user's locale is
/// UTF-8. A mm counts 2 length units and a N 10 force units, so that every kind of value has a
/// factor of its own: length 2, area 4, modulus 8, inertia 16, force 10, moment 20, stress 2.5.
class ReportTest : public testing::Test {
 protected:
  ReportTest() {
    host::Bind(host_);
    SetUnits(2.0, 10.0);
    print_.SetReportPath(path_.wstring());
  }
  ~ReportTest() override { host::Unbind(); }

  void SetUnits(double length, double force) {
    host_.model.length_factor = length;
    host_.model.force_factor = force;
    print_.SetUnit();
  }
  std::string Text() const { return BytesOf(path_); }
  bool FileExists() const { return std::filesystem::exists(path_); }
  void Fill(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }

  const EnvironmentVariable locale_{"LC_ALL", "C.UTF-8"};
  const TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "frame.alu";
  FakeHost host_;
  CALU_GB50429_07Print print_;
};

}  // namespace report_test
