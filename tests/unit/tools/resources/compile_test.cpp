// Runs of the compiler: files, messages and exit statuses.

#include "tools/resources/compile.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace resources {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;

/// A folder with a good header and script, and one for what is made of them.
class Compile : public testing::Test {
 protected:
  Compile() {
    folder_ = fs::path(testing::TempDir()) /
              ("resource_compiler_" + std::to_string(::getpid()) + "_" +
               testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(output());
    write("resource.h", "#define IDD_A 7\n");
    write("test.rc", "#include \"resource.h\"\nIDD_A DIALOGEX 0,0,1,1 BEGIN END\n");
  }
  ~Compile() override { fs::remove_all(folder_); }

  fs::path output() const { return folder_ / "out"; }

  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  static std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  int run(const std::string& script = "test.rc") {
    return compile({folder_ / "resource.h", folder_ / script, output()}, errors_);
  }

  std::size_t file_count() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(output()), fs::directory_iterator()));
  }

  fs::path folder_;
  std::ostringstream errors_;
};

TEST_F(Compile, WritesTheTwoFilesAndNothingElse) {
  EXPECT_EQ(run(), 0) << errors_.str();
  EXPECT_THAT(read(output() / "module_resources.cpp"), HasSubstr("kDialogs"));
  // "#define IDD_A 7" with carriage return and line feed: 17 characters behind the mark.
  EXPECT_EQ(read(output() / "resource_header.bin").size(), 2U + 2U * 17U);
  EXPECT_EQ(file_count(), 2U);
}

TEST_F(Compile, WritesTheSameAgain) {
  ASSERT_EQ(run(), 0);
  const std::string first = read(output() / "module_resources.cpp");
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(read(output() / "module_resources.cpp"), first);
}

TEST_F(Compile, SaysNothingWhenAllIsRight) {
  run();
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(Compile, ABadScriptWritesOneLineAndNoFile) {
  write("test.rc", "\n7 MENU");
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(errors_.str(),
            (folder_ / "test.rc").string() + ":2: found MENU, allowed DIALOGEX or BINARY\n");
  EXPECT_EQ(file_count(), 0U);
}

TEST_F(Compile, ABadHeaderWritesOneLineAndNoFile) {
  write("resource.h", "#define IDD_A");
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(errors_.str(), HasSubstr("resource.h:1: found the end of the file, allowed "));
  EXPECT_EQ(file_count(), 0U);
}

TEST_F(Compile, ABadScriptLeavesTheFilesOfTheRunBefore) {
  ASSERT_EQ(run(), 0);
  const std::string before = read(output() / "module_resources.cpp");
  write("test.rc", "7 MENU");
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(read(output() / "module_resources.cpp"), before);
}

TEST_F(Compile, AMissingFileIsNamed) {
  EXPECT_EQ(run("none.rc"), 1);
  EXPECT_THAT(errors_.str(), EndsWith("none.rc: cannot be read\n"));
}

TEST_F(Compile, AFolderForAFileIsNamed) {
  EXPECT_EQ(run("out"), 1);
  EXPECT_THAT(errors_.str(), EndsWith("out: cannot be read\n"));
}

TEST_F(Compile, AMissingOutputFolderIsNamed) {
  fs::remove_all(output());
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(errors_.str(), EndsWith("resource_header.bin: cannot be written\n"));
}

// A folder stands where the source is to go, so the last step, renaming, fails.
TEST_F(Compile, AFailedWriteLeavesNothingBeside) {
  fs::create_directories(output() / "module_resources.cpp" / "x");
  EXPECT_EQ(run(), 1);
  EXPECT_THAT(errors_.str(), EndsWith("module_resources.cpp: cannot be written\n"));
  EXPECT_FALSE(fs::exists(output() / "module_resources.cpp.new"));
}

}  // namespace
}  // namespace resources
