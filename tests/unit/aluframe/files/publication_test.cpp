#include "aluframe/files/publication.h"

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
using testing::UnorderedElementsAre;

/// A folder with the file "frame.json", which holds "old".
class PublishText : public testing::Test {
 protected:
  PublishText() {
    std::string name = (fs::temp_directory_path() / "aluframe-files-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
    file_ = folder_ / "frame.json";
    std::ofstream(file_) << "old";
  }
  ~PublishText() override {
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
      publish_text(path, content);
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

TEST_F(PublishText, OfAStreamIsWholeHoweverLong) {
  const std::string line(1000, 'x');
  publish_stream(file_, [&line](std::ostream& out) {
    for (int i = 0; i < 1000; ++i) out << line;
  });
  EXPECT_EQ(content_of(file_), std::string(1000 * 1000, 'x'));
}

TEST_F(PublishText, OfAStreamThatEndsEarlyKeepsTheFile) {
  const auto fail = [](std::ostream& out) {
    out << "new";
    throw std::runtime_error("no more");
  };
  EXPECT_THROW(publish_stream(file_, fail), std::runtime_error);
  EXPECT_EQ(content_of(file_), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST_F(PublishText, TheFileHasTheNewContentAndNothingElseIsLeft) {
  const std::string content("new\0\r\n\xFF", 7);
  publish_text(file_, content);
  EXPECT_EQ(content_of(file_), content);
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(PublishText, ItsPermissionsStay) {
  for (const auto permissions :
       {fs::perms::owner_read | fs::perms::owner_write,
        fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all}) {
    fs::permissions(file_, permissions);
    publish_text(file_, "new");
    EXPECT_EQ(fs::status(file_).permissions(), permissions);
  }
}

TEST_F(PublishText, ALinkStaysALinkAndItsTargetIsReplaced) {
  fs::create_directory(folder_ / "links");
  const fs::path link = folder_ / "links" / "latest.json";
  fs::create_symlink("../frame.json", link);
  publish_text(link, "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(content_of(file_), "new");
}

TEST_F(PublishText, WhoHasTheFileOpenStillReadsTheOldContent) {
  std::ifstream reader(file_);
  publish_text(file_, "new");
  std::string word;
  reader >> word;
  EXPECT_EQ(word, "old");
}

TEST_F(PublishText, AFileThatDoesNotExistIsMade) {
  publish_text(folder_ / "other.json", "new");
  EXPECT_EQ(content_of(folder_ / "other.json"), "new");
  EXPECT_EQ(error_of(folder_ / "missing" / "other.json"), "No such file or directory");
  EXPECT_THAT(names(), UnorderedElementsAre("frame.json", "other.json"));
}

TEST_F(PublishText, ALinkThatLeadsNowhereGetsItsTarget) {
  fs::create_symlink("target.json", folder_ / "link.json");
  publish_text(folder_ / "link.json", "new");
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.json"));
  EXPECT_EQ(content_of(folder_ / "target.json"), "new");
}

TEST_F(PublishText, AFolderIsLeftAlone) {
  EXPECT_EQ(error_of(folder_), "is a folder");
}

TEST_F(PublishText, ADeviceIsWrittenAsItIs) {
  EXPECT_EQ(error_of("/dev/null"), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(error_of("/dev/full"), "No space left on device");
}

TEST_F(PublishText, AWriteProtectedFileIsNotReplaced) {
  fs::permissions(file_, fs::perms::owner_read);
  EXPECT_EQ(error_of(file_), "is write-protected");
  EXPECT_EQ(content_of(file_), "old");
}

/// From here on this process is nobody's, for whom permissions count.
void become_nobody() {
  constexpr uid_t nobody = 65534;
  if (geteuid() == 0 && setuid(nobody) != 0) _exit(98);
}

TEST_F(PublishText, AFolderThatTakesNoNewFileKeepsTheOldOne) {
  fs::permissions(file_, fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all);
  fs::permissions(folder_, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                               fs::perms::others_exec);
  EXPECT_EQ(error_in_child("new", become_nobody), "Permission denied");
  EXPECT_EQ(content_of(file_), "old");
}

TEST_F(PublishText, AnotherUsersFileIsNotReplacedInAFolderForAll) {
  if (geteuid() != 0) fs::permissions(file_, fs::perms::owner_read | fs::perms::others_write);
  fs::permissions(folder_, fs::perms::all);
  EXPECT_EQ(error_in_child("new", become_nobody), "Permission denied");
  EXPECT_EQ(content_of(file_), "old");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(PublishText, AFullDiskKeepsTheOldFileAndLeavesNoHalfOfTheNewOne) {
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

TEST_F(PublishText, AFileThatIsBeingWrittenIsNotReplaced) {
  Publication first(file_);
  EXPECT_EQ(error_of(file_), "another run is writing this file");
  first.write("first");
  first.publish();
  EXPECT_EQ(content_of(file_), "first");
}

TEST_F(PublishText, AfterItsEndTheNextOneWrites) {
  {
    const Publication abandoned(file_);
  }
  EXPECT_THAT(names(), ElementsAre("frame.json"));
  publish_text(file_, "new");
  EXPECT_EQ(content_of(file_), "new");
}

TEST_F(PublishText, WhatAKilledRunLeftIsNoLockAndIsRemoved) {
  const pid_t child = fork();
  if (child == 0) {
    const Publication killed(file_);
    killed.write("half");
    kill(getpid(), SIGKILL);
  }
  waitpid(child, nullptr, 0);
  EXPECT_EQ(names().size(), 3U);
  publish_text(file_, "new");
  EXPECT_EQ(content_of(file_), "new");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

/// Each process adds a letter to what the file holds, many times over, and waits for its turn.
TEST_F(PublishText, ManyThatWaitComeOneAfterTheOther) {
  constexpr int processes = 6;
  constexpr int times = 50;
  std::vector<pid_t> children;
  for (int i = 0; i < processes; ++i) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    for (int k = 0; k < times; ++k) {
      Publication file(file_, WhenBusy::wait);
      file.write(content_of(file_) + "x");
      file.publish();
    }
    _exit(0);
  }
  for (const pid_t child : children) {
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(content_of(file_), "old" + std::string(processes * times, 'x'));
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

/// Every reader meets one of the contents whole.
TEST_F(PublishText, ReadersNeverMeetAPart) {
  const std::string contents[] = {std::string(200'000, 'a'), std::string(150'000, 'b')};
  publish_text(file_, contents[0]);
  const pid_t child = fork();
  if (child == 0) {
    for (int i = 0; i < 200; ++i) publish_text(file_, contents[i % 2]);
    _exit(0);
  }
  int status = 1;
  while (waitpid(child, &status, WNOHANG) == 0) {
    const std::string met = content_of(file_);
    ASSERT_TRUE(met == contents[0] || met == contents[1]) << met.size();
  }
  EXPECT_EQ(status, 0);
}

TEST_F(PublishText, WhatAKilledRunLeftOfItsLockKeepsNobodyOutAndGoesWithTheNextWriting) {
  std::ofstream(folder_ / ".frame.json.aluframe-lock") << "";
  std::ofstream(folder_ / ".frame.json.aluframe-new") << "begun";
  publish_text(file_, "new");
  EXPECT_EQ(content_of(file_), "new");
  EXPECT_THAT(names(), ElementsAre("frame.json"));
}

TEST_F(PublishText, ALinkPlantedWhereTheNewFileIsToStandIsNotFollowed) {
  std::ofstream(folder_ / "victim") << "precious";
  fs::create_symlink("victim", folder_ / ".frame.json.aluframe-new");
  publish_text(file_, "new");
  EXPECT_EQ(content_of(folder_ / "victim"), "precious");
  EXPECT_EQ(content_of(file_), "new");
  fs::create_symlink("victim", folder_ / ".frame.json.aluframe-lock");
  EXPECT_EQ(error_of(file_), "Too many levels of symbolic links");
  EXPECT_EQ(content_of(file_), "new");
}

}  // namespace
}  // namespace aluframe::files
