#include "cli/live_options.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace quillspeech::cli {
namespace {

using namespace std::chrono_literals;

TEST(LiveOptions, Seconds_stand_behind_the_last_at_sign_of_a_clip) {
  struct Row {
    const char* typed;
    const char* file;
    std::optional<std::chrono::milliseconds> at;
  };
  const Row rows[] = {
      {"a.wav", "a.wav", std::nullopt},    {"a.wav@2", "a.wav", 2000ms},
      {"a@b.wav@1.25", "a@b.wav", 1250ms}, {"a@b.wav", "a@b.wav", std::nullopt},
      {"a.wav@", "a.wav@", std::nullopt},  {"a.wav@-1", "a.wav@-1", std::nullopt},
      {"@3", "@3", std::nullopt},
  };
  for (const Row& row : rows) {
    const MicrophoneClip clip = Clip_From(row.typed);
    EXPECT_EQ(clip.file, row.file) << row.typed;
    EXPECT_EQ(clip.at, row.at) << row.typed;
  }
}

}  // namespace
}  // namespace quillspeech::cli
