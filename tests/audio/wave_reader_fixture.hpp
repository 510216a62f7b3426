// A session that takes in WAV files from memory.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "audio/wave_reader.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_session.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

using FileBytes = std::vector<std::uint8_t>;

struct WaveReader : testing::Test, TestSession {
  Sample& sample = session.sample;

  std::int16_t Read(const FileBytes& file) {
    riff_files.files["a.wav"] = file;
    return Open_Wave_File(session, "a.wav");
  }
  FileBytes Store() const {
    const auto& store = session.sample.Speech_Sample_Bytes;
    const std::uint8_t* first = store.Read_Range(0, store.Count() - 1);
    return FileBytes(first, first + store.Count());
  }
  void Expect_One_Box(const std::string& text) {
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].box.text, text);
    EXPECT_EQ(boxes.shown[0].box.title, "Quillspeech Wave ERROR");
    EXPECT_EQ(boxes.shown[0].box.icon, BoxIcon::Stop);
    EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::OK);
    EXPECT_EQ(riff_files.open_files, 0);
  }
};

}  // namespace quillspeech::tests
