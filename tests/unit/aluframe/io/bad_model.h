#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {

/// One fault in the small model and the whole message that tells the user of it.
struct BadModel {
  const char* name;  ///< what the model has, as a test's name
  const char* from;
  const char* to;
  const char* message;
};

inline void PrintTo(const BadModel& bad, std::ostream* out) {
  *out << bad.to;
}

inline std::string name_of_bad_model(const testing::TestParamInfo<BadModel>& info) {
  return info.param.name;
}

class RejectedModel : public testing::TestWithParam<BadModel> {
 protected:
  void expect_message() const {
    const BadModel& bad = GetParam();
    EXPECT_EQ(message_about(replaced(small_model, bad.from, bad.to)),
              std::string("post.json: ") + bad.message);
  }
};

}  // namespace aluframe::io
