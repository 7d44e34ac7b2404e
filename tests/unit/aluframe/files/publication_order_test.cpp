// What reaches the disk first when a file takes its place. The calls of the library go through
// those that stand here, which note them and pass them on.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "aluframe/files/publication.h"
#include "tests/unit/aluframe/files/test_folder.h"

namespace {

/// The calls, in their order: "sync file <inode>", "sync folder", "rename".
std::vector<std::string>& calls() {
  static std::vector<std::string> calls;
  return calls;
}

}  // namespace

extern "C" int fsync(int descriptor) {
  struct stat of;
  if (fstat(descriptor, &of) == 0) {
    calls().push_back(S_ISDIR(of.st_mode) ? "sync folder"
                                          : "sync file " + std::to_string(of.st_ino));
  }
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int rename(const char* from, const char* to) noexcept {
  calls().emplace_back("rename");
  return renameat(AT_FDCWD, from, AT_FDCWD, to);
}

namespace aluframe::files {
namespace {

TEST(PublicationOrder, ContentReachesTheDiskBeforeItsNameAndTheNameBeforeTheEnd) {
  // Otherwise a power cut leaves an empty file under the name, or the earlier one after "done".
  const TestFolder folder;
  Publication file(folder.write("frame.json", "old"));
  // Written by another's hands, as by the result store.
  std::FILE* other = std::fopen(file.path().c_str(), "w");
  ASSERT_NE(other, nullptr);
  std::fputs("new", other);
  std::fclose(other);
  struct stat of;
  ASSERT_EQ(stat(file.path().c_str(), &of), 0);
  calls().clear();
  file.publish();
  EXPECT_THAT(calls(), testing::ElementsAre("sync file " + std::to_string(of.st_ino), "rename",
                                            "sync folder"));
}

}  // namespace
}  // namespace aluframe::files
