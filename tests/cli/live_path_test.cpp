// A file as one finished capture: what the session looks like to the analysis.
#include <memory>
#include <utility>

#include "base/angle_table.hpp"
#include "cli/recognition_run.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class LivePath : public CommandTest {
 protected:
  LivePath() {
    options.path = cli::SoundPath::Live;
    options.patterns_only = true;
  }

  // The session after the run over that sound.
  Session& Run_Over(const std::vector<std::uint8_t>& wave) {
    run = std::make_unique<cli::RecognitionRun>(options, std::make_shared<AngleTables>());
    run->Recognize(Put("sound.wav", wave));
    return run->Asked_Session();
  }
  static std::vector<std::uint8_t> Store(const Sample& sample) {
    const std::int64_t count = sample.Speech_Sample_Bytes.Count();
    const std::uint8_t* bytes = sample.Speech_Sample_Bytes.Read_Range(0, count - 1);
    return {bytes, bytes + count};
  }

  cli::RunOptions options;
  std::unique_ptr<cli::RecognitionRun> run;
};

// The word scan writes silence into cells of 0 and refuses a capture below 1,000 bytes, so such a
// one shows the store as the analysis got it.
Sound Short_Sound() { return Tone(500_Hz, Amplitude(90), Bytes(500)); }

TEST_F(LivePath, Behind_the_data_stand_as_many_bytes_of_0_as_the_level_says) {
  const std::vector<std::pair<const char*, int>> levels = {
      {"Top", 256}, {"Up", 128}, {"Middle", 100}, {"Down", 80}};
  for (const auto& [text, level] : levels) {
    options.settings = {{"Keep_Digital_Signal_Processing_level", text}};
    const Session& session = Run_Over(Wave().Data(Short_Sound()));
    EXPECT_EQ(Store(session.sample), Short_Sound() + Level(0, Bytes(level))) << text;
  }
}

TEST_F(LivePath, The_capture_is_as_long_as_the_data_and_its_buffer_longer_by_the_level) {
  const Session& session = Run_Over(Wave().Data(Low_Word()));
  EXPECT_EQ(session.sample.Samples_Per_Capture, 21'000);
  EXPECT_EQ(session.sample.Wave_Header_Buffer_Length, 21'128);
  EXPECT_EQ(session.sample.Wave_Header.data, session.sample.Speech_Sample_Bytes.Read_Range(0, 0));
}

TEST_F(LivePath, The_session_is_started_and_alive) {
  const Session& session = Run_Over(Wave().Data(Low_Word()));
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(session.flags.Session_Alive, -1);
  EXPECT_EQ(session.flags.File_Run_Active, 0);
  EXPECT_EQ(session.filter.Voice_Word_Table[1], Low_Pattern);
}

TEST_F(LivePath, A_setting_that_says_stop_is_lifted) {
  options.settings = {{"Stop_everything_now", "YES"}};
  const Session& session = Run_Over(Wave().Data(Low_Word()));
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(session.filter.Voice_Word_Table[1], Low_Pattern);
  EXPECT_TRUE(run->Complaints().empty());
}

TEST_F(LivePath, Of_a_torn_data_chunk_only_the_bytes_that_are_there_count) {
  const Session& torn = Run_Over(Wave().Data(Low_Word()).Claiming(50'000));
  EXPECT_EQ(torn.sample.Samples_Per_Capture, 21'000);
  EXPECT_EQ(torn.sample.Wave_Header_Buffer_Length, 21'128);
  EXPECT_EQ(torn.filter.Voice_Word_Table[1], Low_Pattern);
  const Session& torn_short = Run_Over(Wave().Data(Short_Sound()).Claiming(50'000));
  EXPECT_EQ(Store(torn_short.sample), Short_Sound() + Level(0, Bytes(128)));
}

TEST_F(LivePath, A_file_that_cannot_be_read_leaves_the_session_as_it_began) {
  const Session& session = Run_Over({});
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.sample.Speech_Sample_Bytes.Count(), 0);
  EXPECT_EQ(run->Complaints().size(), 1U);
}

}  // namespace
}  // namespace quillspeech::tests
