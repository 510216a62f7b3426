// A message loop, and waits that must be ended by something.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "platform/windows/event_loop.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::tests {

inline constexpr UINT Some_Message = WM_APP + 1;
inline constexpr UINT Other_Message = WM_APP + 2;

struct MessageLoop : testing::Test {
  ~MessageLoop() override { Forget_Messages(); }

  void Post(UINT message, WPARAM wide = 0) {
    ASSERT_TRUE(::PostMessageW(events.Window(), message, wide, 0));
  }

  windows::EventLoop events;
};

// Switches a timer on that would end a wait which nothing else ends.
inline std::unique_ptr<Timer> Never(windows::EventLoop& events) {
  auto timer = events.Make_Timer(std::chrono::seconds(60),
                                 [] { ADD_FAILURE() << "nothing ended the wait"; });
  timer->Enable(true);
  return timer;
}

}  // namespace quillspeech::tests
