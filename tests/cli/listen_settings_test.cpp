// A control's record around a live session.
#include <cstdlib>
#include <filesystem>

#include "tests/cli/listen_fixture.hpp"

namespace quillspeech::tests {
namespace {

class ListenSettings : public ListenTest {
 protected:
  std::string Put_Settings(const Json& record) const { return Put_Text("my.json", record.dump()); }
  Json Saved() const {
    const auto bytes = Content("my.json");
    return Json::parse(bytes.begin(), bytes.end());
  }
  std::string Text() const {
    const auto bytes = Content("my.json");
    return {bytes.begin(), bytes.end()};
  }
  // A short session over the record.
  int Listen_With(const std::string& settings, std::vector<std::string> more = {}) {
    more.insert(more.end(), {"--settings", settings, "--for", "1"});
    return Listen(more);
  }
};

TEST_F(ListenSettings, A_session_goes_by_the_record) {
  const std::string samples = QUILLSPEECH_SAMPLES;
  std::filesystem::copy_file(samples + "/demo.SAY", Path("words.SAY"));
  const auto settings =
      Put_Settings({{"Enable_Artificial_Intelligence", "YES"},
                    {"Consider_this_Lang_File_to_match", Path("words.SAY")},
                    {"Consider_this_Engine_for_Recognition", samples + "/demo.EGN"},
                    {"Sample_processing_resolution", 400}});
  EXPECT_EQ(Listen({"--json", "--settings", settings, "--microphone", Sample_Of("six") + "@1"}), 0);
  EXPECT_EQ(First("SpokenWordConvertedToText")["TheBestPercentageWord"], "six") << err;
}

TEST_F(ListenSettings, What_is_set_comes_after_the_record) {
  const auto settings = Put_Settings({{"Noise_Sensitivity", 9}, {"Voice_Capture_Delay", 77}});
  EXPECT_EQ(Listen_With(settings, {"--save", "--set", "Noise_Sensitivity=7"}), 0) << err;
  EXPECT_EQ(Saved()["Noise_Sensitivity"], 7);
  EXPECT_EQ(Saved()["Voice_Capture_Delay"], 77);
}

TEST_F(ListenSettings, Without_save_the_file_stays_as_it_is) {
  const auto settings = Put_Settings({{"Noise_Sensitivity", 9}});
  EXPECT_EQ(Listen_With(settings, {"--set", "Noise_Sensitivity=7"}), 0);
  EXPECT_EQ(Text(), R"({"Noise_Sensitivity":9})");
}

TEST_F(ListenSettings, A_saved_record_loads_and_saves_as_itself) {
  const auto settings = Put_Settings({{"Noise_Sensitivity", 9}});
  EXPECT_EQ(Listen_With(settings, {"--save"}), 0);
  const std::string first = Text();
  EXPECT_EQ(Listen_With(settings, {"--save"}), 0);
  EXPECT_EQ(Text(), first);
}

TEST_F(ListenSettings, The_results_of_the_session_are_saved_with_it) {
  const auto settings = Put_Settings(Json::object());
  auto options = Bundled_Words();
  options.insert(options.end(),
                 {"--settings", settings, "--save", "--microphone", Sample_Of("six") + "@1"});
  EXPECT_EQ(Listen(options), 0) << err;
  EXPECT_EQ(Saved()["Platinum_Word_Best"], "six");
}

TEST_F(ListenSettings, That_a_run_without_a_language_looks_for_no_words_is_not_saved) {
  const auto settings = Put_Settings({{"Enable_Artificial_Intelligence", "YES"}});
  EXPECT_EQ(Listen_With(settings, {"--save", "--set", "Noise_Sensitivity=7"}), 0);
  EXPECT_EQ(Saved().value("Enable_Artificial_Intelligence", "YES"), "YES");
  EXPECT_EQ(Saved()["Noise_Sensitivity"], 7);
}

TEST_F(ListenSettings, An_interrupted_session_is_saved) {
  const auto settings = Put_Settings(Json::object());
  interrupted = true;
  EXPECT_EQ(Listen({"--settings", settings, "--save", "--set", "Noise_Sensitivity=7"}), 0);
  EXPECT_EQ(Saved()["Noise_Sensitivity"], 7);
}

TEST_F(ListenSettings, Keys_that_no_control_keeps_are_noted_once) {
  const auto settings = Put_Settings({{"Colour", "red"}});
  EXPECT_EQ(Listen_With(settings), 0);
  const std::string note = "quillspeech: note: " + settings + ": no control keeps \"Colour\"\n";
  EXPECT_EQ(err.find(note), 0U) << err;
  EXPECT_EQ(err.rfind(note), 0U) << err;
}

TEST_F(ListenSettings, A_pipe_can_be_the_record) {
  const std::string pipe = Path("pipe");
  ASSERT_EQ(std::system(("mkfifo " + pipe).c_str()), 0);
  ASSERT_EQ(std::system(("echo '{\"Noise_Sensitivity\": 30}' > " + pipe + " &").c_str()), 0);
  EXPECT_EQ(Listen({"--settings", pipe, "--for", "40", "--microphone",
                    Put_Sound("soft.wav", Tone(700_Hz, Amplitude(12), Bytes(20'000))) + "@1"}),
            0);
  EXPECT_NE(err.find("no word by Noise_Sensitivity 30"), std::string::npos) << err;
}

TEST_F(ListenSettings, What_cannot_be_loaded_is_refused_before_anything_is_heard) {
  for (const std::string& options :
       {Path("none.json"), Put_Text("list.json", "[]"), Put_Text("torn.json", "{"),
        Put_Text("loud.json", R"({"Noise_Sensitivity":"loud"})")}) {
    EXPECT_EQ(Listen_With(options), 2);
    EXPECT_NE(err.find(options), std::string::npos);
    EXPECT_EQ(out, "");
  }
}

TEST_F(ListenSettings, To_save_needs_a_file) { EXPECT_EQ(Listen({"--save", "--for", "1"}), 2); }

}  // namespace
}  // namespace quillspeech::tests
