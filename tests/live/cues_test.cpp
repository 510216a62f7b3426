// Cues on a real device, as a microphone beside it hears them.
#include "tests/live/device_fixture.hpp"

namespace quillspeech::tests {
namespace {

class Cues : public DeviceTest {
 protected:
  // A device that was just opened hears nothing at first.
  void SetUp() override {
    ASSERT_TRUE(Hears([&] { return ear.Blocks() > 0; }));
  }
  // A tone of that many blocks of 50 ms.
  std::string Tone_File(const std::string& name, Sound tone) const {
    return Put(name, Wave().Data(tone));
  }
  std::string Low_Cue(int blocks) const {
    return Tone_File("low.wav", Tone(400_Hz, Amplitude(90), Bytes(blocks * 1'102)));
  }
  std::string High_Cue(int blocks) const {
    return Tone_File("high.wav", Tone(3000_Hz, Amplitude(90), Bytes(blocks * 1'102)));
  }
  bool Hears(const std::function<bool()>& is_so, EventLoop::Time patience = Patience) {
    return Await(
        [&] {
          ear.Listen();
          return is_so();
        },
        patience);
  }
  bool Hears_Low() { return ear.Crossings() > 30 && ear.Crossings() < 60; }     // 40
  bool Hears_High() { return ear.Crossings() > 250 && ear.Crossings() < 350; }  // 300

  InputEar ear{Default_Input()};
  SoundCues cues = Default_Cues();
};

TEST_F(Cues, A_cue_is_heard_for_its_length_and_then_no_more) {
  cues.Play(Low_Cue(20), CueMode::Once);
  EXPECT_TRUE(cues.Is_Sounding());
  EXPECT_TRUE(Hears([&] { return ear.Loud() > 0; }));
  EXPECT_TRUE(Hears([&] { return ear.Silent_Since() >= 20; }));
  EXPECT_TRUE(Hears_Low());
  EXPECT_NEAR(ear.Loud(), 20, 2);
  EXPECT_TRUE(Hears([&] { return !cues.Is_Sounding(); }));
}

TEST_F(Cues, A_loop_goes_on_until_it_is_purged) {
  cues.Play(Low_Cue(4), CueMode::Loop);
  EXPECT_TRUE(Hears([&] { return ear.Loud() >= 30; }));
  EXPECT_TRUE(cues.Is_Sounding());
  cues.Purge();
  EXPECT_FALSE(cues.Is_Sounding());
  EXPECT_TRUE(Hears([&] { return ear.Silent_Since() >= 20; }));
}

TEST_F(Cues, A_new_cue_cuts_the_old_which_does_not_come_back) {
  cues.Play(Low_Cue(4), CueMode::Loop);
  EXPECT_TRUE(Hears([&] { return ear.Loud() >= 5 && Hears_Low(); }));
  cues.Play(High_Cue(20), CueMode::Once);
  EXPECT_TRUE(Hears([&] { return Hears_High(); }));
  EXPECT_TRUE(Hears([&] { return ear.Silent_Since() >= 20; }));
  EXPECT_TRUE(Hears_High());
}

TEST_F(Cues, A_file_that_cannot_be_played_is_silence) {
  cues.Play(Path("none.wav"), CueMode::Once);
  cues.Play(Put_Text("text.wav", "no sound"), CueMode::Loop);
  EXPECT_FALSE(cues.Is_Sounding());
  EXPECT_TRUE(Hears([&] { return ear.Blocks() >= 30; }));
  EXPECT_EQ(ear.Loud(), 0);
}

TEST_F(Cues, A_purge_where_nothing_sounds_does_nothing) {
  cues.Purge();
  EXPECT_FALSE(cues.Is_Sounding());
}

}  // namespace
}  // namespace quillspeech::tests
