#include "aluframe/files/replace_file.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace aluframe::files {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

/// A folder with the file "frame.json", which holds "old".
class ReplaceFile : public testing::Test {
 protected:
  ReplaceFile() {
    std::string name = (fs::temp_directory_path() / "aluframe-files-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
    file_ = folder_ / "frame.json";
    std::ofstream(file_) << "old";
  }
  ~ReplaceFile() override {
    fs::permissions(folder_, fs::perms::owner_all);
    fs::remove_all(folder_);
  }

  static std::string content_of(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  /// The reason of a failure; empty when there was none.
  static std::string error_of(const fs::path& path, std::string_view content = "new") {
    try {
      replace_file(path, content);
      return {};
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
  /// The reason as a process learns it that `prepare` has limited.
  template <class Prepare>
  std::string error_in_child(std::string_view content, Prepare prepare) const {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      prepare();
      const std::string error = error_of(file_, content);
      const bool told = write(ends[1], error.data(), error.size()) >= 0;
      _exit(told ? 0 : 1);
    }
    close(ends[1]);
    char text[500];
    const ssize_t length = read(ends[0], text, sizeof text);
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return {text, length > 0 ? static_cast<std::size_t>(length) : 0};
  }

  fs::path folder_;
  fs::path file_;
};

TEST_F(ReplaceFile, TheFileHasTheNewContentAndNothingElseIsLeft) {
  const std::string content("new\0\r\n\xFF", 7);
  replace_file(file_, content);
  EXPECT_EQ(content_of(file_), content);
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(ReplaceFile, ItsPermissionsStay) {
  for (const auto permissions :
       {fs::perms::owner_read | fs::perms::owner_write,
        fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all}) {
    fs::permissions(file_, permissions);
    replace_file(file_, "new");
    EXPECT_EQ(fs::status(file_).permissions(), permissions);
  }
}

TEST_F(ReplaceFile, ALinkStaysALinkAndItsTargetIsReplaced) {
  fs::create_directory(folder_ / "links");
  const fs::path link = folder_ / "links" / "latest.json";
  fs::create_symlink("../frame.json", link);
  replace_file(link, "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(content_of(file_), "new");
}

TEST_F(ReplaceFile, WhoHasTheFileOpenStillReadsTheOldContent) {
  std::ifstream reader(file_);
  replace_file(file_, "new");
  std::string word;
  reader >> word;
  EXPECT_EQ(word, "old");
}

TEST_F(ReplaceFile, AFileThatDoesNotExistIsNotMade) {
  EXPECT_EQ(error_of(folder_ / "other.json"), "No such file or directory");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(ReplaceFile, WhatIsNoOrdinaryFileIsLeftAlone) {
  EXPECT_EQ(error_of(folder_), "is no ordinary file");
  EXPECT_EQ(error_of("/dev/null"), "is no ordinary file");
}

TEST_F(ReplaceFile, AWriteProtectedFileIsNotReplaced) {
  fs::permissions(file_, fs::perms::owner_read);
  EXPECT_EQ(error_of(file_), "is write-protected");
  EXPECT_EQ(content_of(file_), "old");
}

/// From here on this process is nobody's, for whom permissions count.
void become_nobody() {
  constexpr uid_t nobody = 65534;
  if (geteuid() == 0 && setuid(nobody) != 0) _exit(98);
}

TEST_F(ReplaceFile, AFolderThatTakesNoNewFileKeepsTheOldOne) {
  fs::permissions(file_, fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all);
  fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                               fs::perms::others_exec);
  EXPECT_EQ(error_in_child("new", become_nobody), "Permission denied");
  EXPECT_EQ(content_of(file_), "old");
}

TEST_F(ReplaceFile, AnotherUsersFileIsNotReplacedInAFolderForAll) {
  if (geteuid() != 0) fs::permissions(file_, fs::perms::owner_read | fs::perms::others_write);
  fs::permissions(folder_, fs::perms::all);
  EXPECT_EQ(error_in_child("new", become_nobody), "Permission denied");
  EXPECT_EQ(content_of(file_), "old");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(ReplaceFile, AFullDiskKeepsTheOldFileAndLeavesNoHalfOfTheNewOne) {
  const std::string content(100'000, 'n');
  const std::string error = error_in_child(content, [] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{50'000, 50'000};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(error, "File too large");
  EXPECT_EQ(content_of(file_), "old");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

}  // namespace
}  // namespace aluframe::files
