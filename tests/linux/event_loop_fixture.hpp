// Waits that must be ended by something.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "platform/linux/event_loop.hpp"

namespace quillspeech::tests {

// Switches a timer on that would end a wait which nothing else ends.
inline std::unique_ptr<Timer> Never(linux::EventLoop& events) {
  auto timer = events.Make_Timer(std::chrono::seconds(60),
                                 [] { ADD_FAILURE() << "nothing ended the wait"; });
  timer->Enable(true);
  return timer;
}

}  // namespace quillspeech::tests
