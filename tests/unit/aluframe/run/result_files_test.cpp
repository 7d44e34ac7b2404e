#include <gmock/gmock.h>

#include <fstream>

#include "aluframe/run/results.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using store::RunState;
using testing::HasSubstr;
using testing::Optional;

TEST(ResultFileOf, IsTheFileItselfOrThatOfAModel) {
  EXPECT_EQ(result_file_of("job/frame.json"), "job/frame.aluresult");
  EXPECT_EQ(result_file_of("job/frame.aluresult"), "job/frame.aluresult");
  EXPECT_EQ(result_file_of("job/frame.aluresult.partial"), "job/frame.aluresult.partial");
  EXPECT_EQ(result_file_of("job/frame.partial"), "job/frame.aluresult");
}

TEST(LaterRunText, NamesTheFileThatALaterRunLeft) {
  const services::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "frame.aluresult";
  EXPECT_EQ(later_run_text(file), std::nullopt);
  std::ofstream(file.string() + ".partial") << "begun";
  EXPECT_THAT(later_run_text(file), Optional(HasSubstr("frame.aluresult.partial: a later run ")));
}

TEST(UnfinishedText, SaysHowARunEnded) {
  const std::filesystem::path partial = "frame.aluresult.partial";
  EXPECT_THAT(unfinished_text(partial, RunState::running), Optional(HasSubstr("did not finish")));
  for (const RunState state : {RunState::cancelled, RunState::failed}) {
    EXPECT_THAT(unfinished_text(partial, state), Optional(HasSubstr("stopped before its end")));
  }
  EXPECT_THAT(unfinished_text(partial, RunState::complete),
              Optional(HasSubstr("could not be put in their place")));
  EXPECT_EQ(unfinished_text("frame.aluresult", RunState::complete), std::nullopt);
}

}  // namespace
}  // namespace aluframe::run
