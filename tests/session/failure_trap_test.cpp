#include "session/failure_trap.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/failures.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::TestSession;

struct Trap : TestSession {
  Trap() {
    session.operations.Stop_And_Recover = [this](Session&) { ++recoveries; };
  }
  int recoveries = 0;
};

TEST(FailureTrap, A_procedure_that_ends_well_recovers_nothing) {
  Trap test;
  bool ran = false;
  Run_Trapped(test.session, [&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_EQ(test.recoveries, 0);
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(FailureTrap, A_failure_ends_the_procedure_recovers_once_and_the_caller_goes_on) {
  Trap test;
  bool went_on = false;
  Run_Trapped(test.session, [&] {
    Fail(Failure::Overflow);
    went_on = true;
  });
  EXPECT_FALSE(went_on);
  EXPECT_EQ(test.recoveries, 1);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
}

TEST(FailureTrap, The_failure_is_noted_before_the_recovery_runs) {
  Trap test;
  std::size_t noted = 0;
  test.session.operations.Stop_And_Recover = [&](Session& session) {
    noted = session.trace.failures.size();
  };
  Run_Trapped(test.session, [] { Fail(Failure::Disk_Full); });
  EXPECT_EQ(noted, 1U);
}

TEST(FailureTrap, The_first_1000_failures_are_noted_and_no_more) {
  Trap test;
  for (int i = 0; i < 999; ++i) {
    Run_Silently_Trapped(test.session, [] { Fail(Failure::Overflow); });
  }
  for (const Failure failure : {Failure::Disk_Full, Failure::Invalid_Call, Failure::Overflow}) {
    Run_Trapped(test.session, [&] { Fail(failure); });
  }
  ASSERT_EQ(test.session.trace.failures.size(), 1000U);
  EXPECT_EQ(test.session.trace.failures.back(), 61);
  EXPECT_EQ(test.recoveries, 3);  // also of those that are not noted
}

TEST(FailureTrap, A_trap_inside_a_trap_keeps_its_failure_to_itself) {
  Trap test;
  bool went_on = false;
  Run_Trapped(test.session, [&] {
    Run_Trapped(test.session, [] { Fail(Failure::Subscript_Out_Of_Range); });
    went_on = true;
    Fail(Failure::Overflow);
  });
  EXPECT_TRUE(went_on);
  EXPECT_EQ(test.recoveries, 2);
  EXPECT_EQ(test.session.trace.failures, (std::vector<int>{9, 6}));
}

TEST(FailureTrap, A_failure_of_the_recovery_is_not_caught_again) {
  Trap test;
  test.session.operations.Stop_And_Recover = [](Session&) { Fail(Failure::Device_Failure); };
  const auto fail = [&] { Run_Trapped(test.session, [] { Fail(Failure::Overflow); }); };
  EXPECT_EQ(Failure_Of(fail), 57);
}

TEST(FailureTrap, A_trap_with_a_message_shows_it_before_the_recovery) {
  Trap test;
  std::size_t shown = 0;
  test.session.operations.Stop_And_Recover = [&](Session&) { shown = test.boxes.shown.size(); };
  const FailureMessage message{"Title", "Text"};
  Run_Trapped(test.session, message, [] {});
  EXPECT_TRUE(test.boxes.shown.empty());
  Run_Trapped(test.session, message, [] { Fail(Failure::Overflow); });
  ASSERT_EQ(shown, 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.title, "Title");
  EXPECT_EQ(box.text, "Text");
  EXPECT_EQ(box.icon, BoxIcon::Stop);
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
}

TEST(FailureTrap, The_silent_trap_recovers_nothing_and_shows_nothing) {
  Trap test;
  Run_Silently_Trapped(test.session, [] { Fail(Failure::Bad_File_Name); });
  EXPECT_EQ(test.recoveries, 0);
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{52});
}

TEST(FailureTrap, Any_other_exception_counts_as_an_invalid_call) {
  Trap test;
  Run_Trapped(test.session, [] { throw std::runtime_error("surprise"); });
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{5});
  EXPECT_EQ(test.recoveries, 1);
}

}  // namespace
}  // namespace quillspeech
