// A message loop beside a window of the host's, and waits that must be ended by something.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

#include "platform/windows/event_loop.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::tests {

inline constexpr UINT Some_Message = WM_APP + 1;
inline constexpr UINT Other_Message = WM_APP + 2;

struct MessageLoop : testing::Test {
  ~MessageLoop() override { Forget_Messages(); }

  void Post(UINT message) { ASSERT_TRUE(::PostMessageW(window.Handle(), message, 0, 0)); }
  // What the host's window does at that message.
  void At(UINT message, std::function<void()> action) {
    window.at_message = [message, action = std::move(action)](UINT came) {
      if (came == message) action();
    };
  }
  // The tick of the hidden window, as if its time had come.
  void Post_Tick() { ASSERT_TRUE(::PostMessageW(events.Window(), WM_TIMER, 1, 0)); }

  windows::EventLoop events;
  TestWindow window;  // of the host's
};

// Switches a timer on that would end a wait which nothing else ends.
inline std::unique_ptr<Timer> Never(windows::EventLoop& events) {
  auto timer = events.Make_Timer(std::chrono::seconds(60),
                                 [] { ADD_FAILURE() << "nothing ended the wait"; });
  timer->Enable(true);
  return timer;
}

}  // namespace quillspeech::tests
