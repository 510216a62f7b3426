// A simulated sound card on a virtual clock, with calls in one line.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/headless/event_loop.hpp"
#include "platform/headless/sound_card.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

inline constexpr std::uint8_t Untouched = 77;  // in cells that no device has reached

inline bool Is_Done(const WaveHeader& header) { return (header.flags & Header_Done) != 0; }

inline std::vector<std::uint8_t> Ramp(std::size_t length) {
  std::vector<std::uint8_t> bytes(length);
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i % 251);
  return bytes;
}

// The bytes of a buffer from one place on.
inline std::vector<std::uint8_t> Part(const std::vector<std::uint8_t>& bytes, std::size_t first,
                                      std::size_t count) {
  const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(first);
  return std::vector<std::uint8_t>(begin, begin + static_cast<std::ptrdiff_t>(count));
}

struct Card {
  headless::EventLoop events;
  headless::SoundCard card{events};
  WaveInput& input = card.Input();
  WaveOutput& output = card.Output();
  std::vector<std::uint8_t> buffer;
  WaveHeader header;
  WaveHandle handle = 0;

  void Point_At_Buffer(std::uint32_t length) {
    buffer.assign(length, Untouched);
    header.data = buffer.data();
    header.buffer_length = length;
  }
  // Opens, prepares, adds and starts, with a buffer of that length.
  void Record(std::uint32_t length, std::uint32_t rate = 20'000) {
    Point_At_Buffer(length);
    EXPECT_EQ(input.Open(handle, Pcm(1, 8, rate)), Wave_Ok);
    EXPECT_EQ(input.Prepare_Header(handle, header), Wave_Ok);
    EXPECT_EQ(input.Add_Buffer(handle, header), Wave_Ok);
    EXPECT_EQ(input.Start(handle), Wave_Ok);
  }
  void Wait_Until_Done() {
    while (!Is_Done(header)) events.Wait_For_Events();
  }
};

}  // namespace quillspeech::tests
