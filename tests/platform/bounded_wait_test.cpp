#include "platform/bounded_wait.hpp"

#include <gtest/gtest.h>

namespace quillspeech::tests {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

struct BoundedWait : testing::Test {
  // Whether it succeeds, when only attempt `number` would; 0: none.
  bool Succeeds_At(int number, milliseconds limit, milliseconds pause = {}) {
    return Try_For(limit, pause, [&] { return ++attempts == number; });
  }
  int attempts = 0;
};

TEST_F(BoundedWait, No_limit_is_one_attempt) {
  for (const int limit : {0, -1}) {
    attempts = 0;
    EXPECT_FALSE(Succeeds_At(2, milliseconds(limit), hours(1)));
    EXPECT_EQ(attempts, 1) << limit;
  }
}

TEST_F(BoundedWait, No_limit_is_enough_for_a_first_attempt_that_succeeds) {
  EXPECT_TRUE(Succeeds_At(1, milliseconds(0)));
}

TEST_F(BoundedWait, A_success_ends_it_at_once) {
  for (const int number : {1, 2, 5}) {
    attempts = 0;
    EXPECT_TRUE(Succeeds_At(number, hours(1)));
    EXPECT_EQ(attempts, number);
  }
}

TEST_F(BoundedWait, A_first_success_makes_no_pause) {
  EXPECT_TRUE(Succeeds_At(1, hours(1), hours(1)));
}

// A pause is not cut short by the limit.
TEST_F(BoundedWait, A_limit_that_passes_during_a_pause_leaves_one_more_attempt) {
  constexpr milliseconds Limit{50};
  const auto begun = Clock::now();
  EXPECT_TRUE(Try_For(Limit, Limit + milliseconds(5), [&] {
    ++attempts;
    return Clock::now() - begun > Limit;
  }));
  EXPECT_EQ(attempts, 2);
}

TEST_F(BoundedWait, What_never_succeeds_ends_after_the_limit) {
  constexpr milliseconds Limit{5};
  const auto begun = Clock::now();
  EXPECT_FALSE(Succeeds_At(0, Limit));
  EXPECT_GE(Clock::now() - begun, Limit);
}

}  // namespace
}  // namespace quillspeech::tests
