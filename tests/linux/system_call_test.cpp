#include "platform/linux/system_call.hpp"

#include <gtest/gtest.h>

#include <cerrno>

namespace quillspeech {
namespace {

using linux::Uninterrupted;

// A system call that signals interrupt so many times before it comes to its end.
struct Call {
  int interruptions;
  int result;
  int error;
  int* times;

  int operator()() const {
    const bool is_interrupted = ++*times <= interruptions;
    errno = is_interrupted ? EINTR : error;
    return is_interrupted ? -1 : result;
  }
};

TEST(SystemCall, A_call_that_signals_interrupt_is_made_again) {
  int times = 0;
  EXPECT_EQ(Uninterrupted(Call{2, 7, 0, &times}), 7);
  EXPECT_EQ(times, 3);
}

TEST(SystemCall, A_call_that_goes_through_is_made_once) {
  int times = 0;
  EXPECT_EQ(Uninterrupted(Call{0, 0, EINTR, &times}), 0);
  EXPECT_EQ(times, 1);
}

TEST(SystemCall, A_call_that_fails_is_made_once_and_leaves_its_error) {
  int times = 0;
  EXPECT_EQ(Uninterrupted(Call{0, -1, ENOSPC, &times}), -1);
  EXPECT_EQ(errno, ENOSPC);
  EXPECT_EQ(times, 1);
}

}  // namespace
}  // namespace quillspeech
