// Scripts work the dialogs that are run, one each.

#include "aluframe/toolkit/headless/headless_toolkit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/sample_module.h"

namespace aluframe::toolkit {
namespace {

using namespace test_support;
using testing::ElementsAre;

/// Ends its dialog with 2 on Escape.
class EndingEvents : public EventNotes {
 public:
  host::DialogWindow* window = nullptr;
  void EscapePressed() override {
    EventNotes::EscapePressed();
    window->End(2);
  }
};

class HeadlessToolkitTest : public testing::Test {
 protected:
  std::unique_ptr<host::DialogWindow> open() {
    auto window = toolkit.Open(sample_dialog(), events);
    events.window = window.get();
    return window;
  }

  HeadlessToolkit toolkit;
  EndingEvents events;
};

TEST_F(HeadlessToolkitTest, AnOpenedDialogWaitsForItsScriptUntilItIsRun) {
  bool has_run = false;
  toolkit.script([&](HeadlessDialog&) { has_run = true; });
  const auto window = open();
  EXPECT_TRUE(window->HasControl(name_edit));
  EXPECT_FALSE(has_run);
  window->Run();
  EXPECT_TRUE(has_run);
}

TEST_F(HeadlessToolkitTest, ADialogGivesWhatItEndedWith) {
  toolkit.script([](HeadlessDialog& dialog) { dialog.End(9); });
  EXPECT_EQ(open()->Run(), 9);
  EXPECT_TRUE(events.lines.empty());
}

TEST_F(HeadlessToolkitTest, ADialogThatAScriptLeavesOpenIsEscaped) {
  toolkit.script([](HeadlessDialog&) {});
  EXPECT_EQ(open()->Run(), 2);
  EXPECT_THAT(events.lines, ElementsAre("escape"));
}

TEST_F(HeadlessToolkitTest, ADialogThatNothingClosesEndsAsCancelled) {
  EventNotes deaf;
  toolkit.script([](HeadlessDialog&) {});
  EXPECT_EQ(toolkit.Open(sample_dialog(), deaf)->Run(), 2);
}

TEST_F(HeadlessToolkitTest, ADialogThatHasEndedAlreadyTakesNoScript) {
  toolkit.script([](HeadlessDialog&) { FAIL() << "the script was run"; });
  const auto window = open();
  window->End(5);
  EXPECT_EQ(window->Run(), 5);
  EXPECT_EQ(toolkit.pending(), 1U);
}

TEST_F(HeadlessToolkitTest, ScriptsAreTakenInTheirOrder) {
  std::vector<int> order;
  for (const int number : {1, 2}) {
    toolkit.script([&order, number](HeadlessDialog&) { order.push_back(number); });
  }
  EXPECT_EQ(toolkit.pending(), 2U);
  open()->Run();
  EXPECT_EQ(toolkit.pending(), 1U);
  open()->Run();
  EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(HeadlessToolkitTest, ADialogThatNoScriptWorksIsAnError) {
  const auto window = open();
  EXPECT_THROW(window->Run(), std::logic_error);
}

TEST_F(HeadlessToolkitTest, AScriptsOwnErrorReachesWhoRanTheDialog) {
  toolkit.script([](HeadlessDialog& dialog) { dialog.click(disabled_button); });
  const auto window = open();
  EXPECT_THROW(window->Run(), std::logic_error);
}

TEST_F(HeadlessToolkitTest, AScriptCanRunAFurtherDialog) {
  toolkit.script([this](HeadlessDialog& outer) {
    toolkit.script([](HeadlessDialog& inner) { inner.End(3); });
    EXPECT_EQ(open()->Run(), 3);
    EXPECT_TRUE(outer.is_open());
    outer.End(4);
  });
  EXPECT_EQ(open()->Run(), 4);
}

}  // namespace
}  // namespace aluframe::toolkit
