// Real devices, of a private sound server: what is played is what is recorded.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/event_loop.hpp"
#include "platform/linux/port_audio.hpp"
#include "platform/linux/wave_input.hpp"
#include "tests/live/input_ear.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

using namespace std::chrono_literals;

class DeviceTest : public testing::Test, protected TemporaryFolder {
 protected:
  static constexpr EventLoop::Time Patience = 10s;

  bool Await(const std::function<bool()>& is_so, EventLoop::Time patience = Patience) {
    return tests::Await(events, is_so, patience);
  }
  static std::string Said_By(const std::string& command) {
    std::string said;
    FILE* const pipe = ::popen(command.c_str(), "r");
    if (!pipe) return said;
    std::array<char, 256> part;
    while (std::fgets(part.data(), part.size(), pipe)) said += part.data();
    ::pclose(pipe);
    return said;
  }

  linux::EventLoop events;
  std::shared_ptr<const linux::PortAudio> audio = std::make_shared<const linux::PortAudio>();
};

// Follows what the default input hears.
struct Ear : InputEar {
  Ear(linux::EventLoop& events, const std::shared_ptr<const linux::PortAudio>& audio)
      : InputEar(std::make_unique<linux::WaveInput>(events, audio, "")) {}
};

}  // namespace quillspeech::tests
