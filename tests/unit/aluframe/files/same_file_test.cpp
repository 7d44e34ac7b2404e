#include "aluframe/files/same_file.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/files/test_folder.h"

namespace aluframe::files {
namespace {

namespace fs = std::filesystem;

class SameFile : public testing::Test {
 protected:
  fs::path in_folder(const char* name) const { return folder_.path() / name; }

  const TestFolder folder_;
  const fs::path path_ = folder_.path() / "frame.alu";
};

TEST_F(SameFile, LinksLeadToTheirFile) {
  folder_.write("frame.alu", "");
  fs::create_symlink(path_, in_folder("soft"));
  fs::create_hard_link(path_, in_folder("hard"));
  EXPECT_TRUE(is_same_file(path_, in_folder("soft")));
  EXPECT_TRUE(is_same_file(path_, in_folder("hard")));
  EXPECT_TRUE(is_same_file(in_folder("soft"), in_folder("hard")));
}

TEST_F(SameFile, APathMayBeWrittenInSeveralWays) {
  folder_.write("frame.alu", "");
  fs::create_directory(in_folder("other"));
  EXPECT_TRUE(is_same_file(path_, folder_.path() / "." / "frame.alu"));
  EXPECT_TRUE(is_same_file(path_, folder_.path() / "other" / ".." / "frame.alu"));
}

TEST_F(SameFile, AFileThatIsNotThereYetIsOneAsWell) {
  EXPECT_TRUE(is_same_file(path_, folder_.path() / "other" / ".." / "frame.alu"));
  EXPECT_TRUE(is_same_file("frame.alu", fs::current_path() / "frame.alu"));
  fs::create_directory_symlink(folder_.path(), in_folder("again"));
  EXPECT_TRUE(is_same_file(path_, folder_.path() / "again" / "frame.alu"));
  fs::create_symlink("frame.alu", in_folder("soft"));
  EXPECT_TRUE(is_same_file(path_, in_folder("soft")));
}

TEST_F(SameFile, DifferentFilesAreNotTheSame) {
  folder_.write("frame.alu", "text");
  folder_.write("other.alu", "text");
  EXPECT_FALSE(is_same_file(path_, in_folder("other.alu")));
  EXPECT_FALSE(is_same_file(path_, in_folder("new.alu")));
  EXPECT_FALSE(is_same_file(path_, ""));
  EXPECT_FALSE(is_same_file("", ""));
}

TEST_F(SameFile, LinksInACircleLeadNowhere) {
  fs::create_symlink("b", in_folder("a"));
  fs::create_symlink("a", in_folder("b"));
  EXPECT_FALSE(is_same_file(path_, in_folder("a")));
}

}  // namespace
}  // namespace aluframe::files
