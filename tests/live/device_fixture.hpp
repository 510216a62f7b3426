// Real devices, of a private sound server: what is played is what is recorded.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "tests/live/backend.hpp"
#include "tests/live/input_ear.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

class DeviceTest : public testing::Test, protected Devices, protected TemporaryFolder {
 protected:
  static constexpr EventLoop::Time Patience = 10s;

  bool Await(const std::function<bool()>& is_so, EventLoop::Time patience = Patience) {
    return tests::Await(events, is_so, patience);
  }
};

}  // namespace quillspeech::tests
