#include <gmock/gmock.h>

#include "aluframe/run/results.h"

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
