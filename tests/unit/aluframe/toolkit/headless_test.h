#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "aluframe/toolkit/headless/headless_dialog.h"
#include "tests/support/sample_module.h"

namespace aluframe::toolkit {

/// The sample dialog in memory, and what it told.
class HeadlessTest : public testing::Test {
 protected:
  test_support::EventNotes events;
  HeadlessDialog dialog{test_support::sample_dialog(), events};
};

}  // namespace aluframe::toolkit
