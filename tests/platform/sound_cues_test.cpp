#include "platform/headless/sound_cues.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quillspeech {
namespace {

TEST(SoundCues, Each_call_is_noted_and_told_with_its_flags) {
  headless::SoundCues cues;
  std::vector<std::pair<std::string, int>> told;
  cues.At_Call = [&](const std::string& name, int flags) { told.emplace_back(name, flags); };
  cues.Play("start.wav", CueMode::Once);
  cues.Play("stop.wav", CueMode::Loop);
  cues.Purge();
  EXPECT_EQ(cues.calls, (std::vector<std::string>{"play start.wav", "loop stop.wav", "purge"}));
  EXPECT_EQ(told, (std::vector<std::pair<std::string, int>>{
                      {"start.wav", 1}, {"stop.wav", 9}, {"", 64}}));
  cues.keep_calls = false;
  cues.Purge();
  EXPECT_EQ(cues.calls.size(), 3u);
  EXPECT_EQ(told.size(), 4u);
}

}  // namespace
}  // namespace quillspeech
