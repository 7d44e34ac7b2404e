#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

namespace fs = std::filesystem;
using store_test::bytes_of;
using store_test::error_of;
using store_test::Folder;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

class CreateResultFile : public testing::Test {
 protected:
  std::string create_error(const fs::path& path) {
    return error_of([&] { ResultWriter::create(path, store_test::sample_info("new")); });
  }

  Folder folder;
  fs::path file = folder.file();
};

TEST_F(CreateResultFile, AMissingFolderIsNamed) {
  EXPECT_THAT(create_error(folder.path() / "missing" / "a.aluresult"),
              AllOf(HasSubstr("missing/a.aluresult"), HasSubstr("No such file or directory")));
}

TEST_F(CreateResultFile, AFolderOfThatNameIsLeftAlone) {
  fs::create_directory(file);
  EXPECT_THAT(create_error(file), HasSubstr("frame.aluresult"));
  EXPECT_TRUE(fs::is_directory(file));
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
}

TEST_F(CreateResultFile, AFolderThatCannotBeWrittenKeepsItsOldResults) {
  store_test::write_run(file, 2, "old");
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec |
                                     fs::perms::others_read | fs::perms::others_exec);
  const std::string before = bytes_of(file);
  const int status = store_test::in_child([&] {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0) return 98;
    return create_error(file).empty() ? 1 : 0;
  });
  fs::permissions(folder.path(), fs::perms::owner_all);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(bytes_of(file) == before);
}

TEST_F(CreateResultFile, AWriteProtectedFileIsNotReplaced) {
  store_test::write_run(file, 2, "old");
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_THAT(create_error(file), HasSubstr("write-protected"));
  EXPECT_EQ(ResultReader::open(file)->info().model_title, "old");
}

TEST_F(CreateResultFile, AFileOfAnotherKindInPlaceOfThePartialOneIsKept) {
  std::ofstream(partial_path_of(file)) << "my notes";
  EXPECT_THAT(create_error(file), HasSubstr("stands in the way: it is no result file"));
  EXPECT_EQ(bytes_of(partial_path_of(file)), "my notes");
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult.partial"));
}

TEST_F(CreateResultFile, WhatAnotherRunIsLayingOutIsNotJudged) {
  std::ofstream(partial_path_of(file)) << "half a page";
  const files::FileLock other_run(file, files::WhenBusy::refuse);
  EXPECT_THAT(create_error(file), HasSubstr("another run is writing this file"));
}

TEST_F(CreateResultFile, AFileOfAnotherKindIsNotReplaced) {
  const std::string model(500, 'm');
  std::ofstream(file) << model;
  EXPECT_THAT(create_error(file), HasSubstr("not a result file"));
  EXPECT_EQ(bytes_of(file), model);
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
}

TEST_F(CreateResultFile, AnEmptyFileIsReplaced) {
  std::ofstream(file).close();
  store_test::write_run(file, 1, "new");
  EXPECT_EQ(ResultReader::open(file)->info().model_title, "new");
}

TEST_F(CreateResultFile, AFailureWhileTheTablesAreMadeLeavesTheOldResultsAndNoTrace) {
  store_test::write_run(file, 2, "old");
  const std::string before = bytes_of(file);
  RunInfo info = store_test::sample_info("new");
  info.combinations.push_back(info.combinations.front());
  EXPECT_NE(error_of([&] { ResultWriter::create(file, info); }), "");
  EXPECT_TRUE(bytes_of(file) == before);
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
}

TEST_F(CreateResultFile, ARunThatIsBeingWrittenIsNotReplaced) {
  const auto writer = ResultWriter::create(file, store_test::sample_info("first"));
  store_test::write_element(*writer, 1);
  EXPECT_THAT(create_error(file), HasSubstr("another run is writing"));
  store_test::write_element(*writer, 2);
  writer->finish(RunState::complete);
  EXPECT_EQ(ResultReader::open(file)->info().model_title, "first");
  EXPECT_THAT(ResultReader::open(file)->elements(), ElementsAre(1, 2));
}

TEST_F(CreateResultFile, AnAbandonedJournalDoesNotHarmTheNewResults) {
  std::ofstream(file.string() + "-journal") << "left by a run whose file was deleted";
  store_test::write_run(file, 3, "new");
  EXPECT_THAT(ResultReader::open(file)->elements(), ElementsAre(1, 2, 3));
  EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
}

TEST_F(CreateResultFile, ALinkStaysALinkAndItsTargetIsReplaced) {
  store_test::write_run(file, 2, "old");
  const fs::path link = folder.path() / "latest.aluresult";
  fs::create_symlink(file.filename(), link);
  store_test::write_run(link, 1, "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(ResultReader::open(file)->info().model_title, "new");
}

TEST_F(CreateResultFile, EverybodyWhomTheUserAllowsMayReadTheFile) {
  const mode_t before = umask(022);
  store_test::write_run(file, 1);
  umask(before);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write |
                                                fs::perms::group_read | fs::perms::others_read);
}

TEST_F(CreateResultFile, TheFileIsMarkedForProgramsThatLookAtItsHead) {
  store_test::write_run(file, 1);
  // The SQLite file format has the application id at byte 68, high byte first.
  EXPECT_EQ(bytes_of(file).substr(68, 4), "AluR");
}

}  // namespace
}  // namespace aluframe::store
