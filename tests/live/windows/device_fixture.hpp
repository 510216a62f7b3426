// Real devices, of a private sound server behind Windows' own calls: what is played is what is
// recorded.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/windows/event_loop.hpp"
#include "platform/windows/wave_input.hpp"
#include "tests/live/input_ear.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

class DeviceTest : public testing::Test, protected TemporaryFolder {
 protected:
  static constexpr EventLoop::Time Patience = 10s;

  bool Await(const std::function<bool()>& is_so, EventLoop::Time patience = Patience) {
    return tests::Await(events, is_so, patience);
  }

  windows::EventLoop events;
};

// Follows what the wave mapper hears.
struct Ear : InputEar {
  explicit Ear(windows::EventLoop& events)
      : InputEar(std::make_unique<windows::WaveInput>(events)) {}
};

}  // namespace quillspeech::tests
