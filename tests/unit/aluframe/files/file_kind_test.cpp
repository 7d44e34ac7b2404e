#include "aluframe/files/file_kind.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/unit/aluframe/files/test_folder.h"

namespace aluframe::files {
namespace {

class FileKinds : public testing::Test {
 protected:
  FileKind kind(const std::string& content) const { return kind_of(folder_.write("f", content)); }

  const TestFolder folder_;
};

TEST_F(FileKinds, AModelNamesItsFormat) {
  EXPECT_EQ(kind(R"({"format": "aluframe-model", "version": 1})"), FileKind::model);
  EXPECT_EQ(kind("\xEF\xBB\xBF\r\n { \"format\"\n:\n\"aluframe-model\"}"), FileKind::model);
}

TEST_F(FileKinds, AModelMayNameItsFormatAfterALongTitle) {
  for (const std::size_t length : {1U << 20U, (1U << 20U) - 20U, 5U << 20U}) {
    const std::string title(length, 'x');
    EXPECT_EQ(kind(R"({"title": ")" + title + R"(", "format": "aluframe-model"})"),
              FileKind::model);
  }
}

TEST_F(FileKinds, OtherJsonIsNoModel) {
  EXPECT_EQ(kind(R"({"title": "aluframe-model", "rows": []})"), FileKind::other);
  EXPECT_EQ(kind(R"({"format": "other"})"), FileKind::other);
  EXPECT_EQ(kind(R"(["format": "aluframe-model"])"), FileKind::other);
  EXPECT_EQ(kind("{" + std::string(3U << 20U, ' ') + "}"), FileKind::other);
}

TEST_F(FileKinds, ACatalogueHasANameAndAShapeInItsHeader) {
  EXPECT_EQ(kind("name,shape,D\nA,SR,10\n"), FileKind::catalogue);
  EXPECT_EQ(kind("\xEF\xBB\xBF\n,,,\r\n\"\",\r\nD, \"Shape\" ,NAME\r\n"), FileKind::catalogue);
}

TEST_F(FileKinds, ForcesAreATableOfElementsCasesAndPositions) {
  EXPECT_EQ(kind("element,case,position,N,Fy,Fz,Mx,My,Mz\n"), FileKind::forces);
  EXPECT_EQ(kind("element,combination,position,ratio\n"), FileKind::other);
}

TEST_F(FileKinds, OtherTablesAreNoCatalogues) {
  EXPECT_EQ(kind("name,reshape\n"), FileKind::other);
  EXPECT_EQ(kind("element,item\nname,shape\n"), FileKind::other);
}

// The header of an SQLite file: the name of the format, and from byte 68 the application id.
TEST_F(FileKinds, ResultsAreAMarkedDatabase) {
  std::string header("SQLite format 3\0", 16);
  header += std::string(52, '\1') + "AluR" + std::string(28, '\1');
  EXPECT_EQ(kind(header), FileKind::results);
  header[68] = 'B';
  EXPECT_EQ(kind(header), FileKind::other);
  EXPECT_EQ(kind(header.substr(0, 70)), FileKind::other);
}

TEST_F(FileKinds, EverythingElseIsOfNoKind) {
  EXPECT_EQ(kind(""), FileKind::other);
  EXPECT_EQ(kind("<svg/>"), FileKind::other);
  EXPECT_EQ(kind_of(folder_.path()), FileKind::other);
  EXPECT_EQ(kind_of(folder_.path() / "missing"), FileKind::other);
}

TEST_F(FileKinds, APipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(kind_of(folder_.path() / "pipe"), FileKind::other);
}

}  // namespace
}  // namespace aluframe::files
