// What a user sees of a live session.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/cli/listen_fixture.hpp"
#include "tests/support/driver_memory.hpp"

namespace quillspeech::tests {
namespace {

using Lines = std::vector<std::string>;

const Lines Two_Words_Heard = {"StartRecognitionActivity",        "SpokenWordDetected",
                               "SpokenWordConvertedToText six",   "SpokenWordDetected",
                               "SpokenWordConvertedToText house", "StopRecognitionActivity"};

TEST_F(ListenTest, Two_words_with_a_pause_are_each_detected_and_then_converted) {
  EXPECT_EQ(Listen_To_Words({Sample_Of("six") + "@1", Sample_Of("house") + "@5"}, {"--json"}), 0);
  EXPECT_EQ(Events(), Two_Words_Heard);
  EXPECT_EQ(err, "");
}

TEST_F(ListenTest, The_same_sound_always_gives_the_same_output) {
  const Lines words = {Sample_Of("six") + "@1", Sample_Of("house") + "@5"};
  Listen_To_Words(words, {});
  const std::string first = out;
  Listen_To_Words(words, {});
  EXPECT_EQ(out, first);
  EXPECT_NE(out.find("SpokenWordConvertedToText  six"), std::string::npos);
}

TEST_F(ListenTest, A_result_comes_with_its_ranked_words_and_its_pattern) {
  Listen_To_Words({Sample_Of("six") + "@1"}, {"--json"});
  const Json result = First("SpokenWordConvertedToText");
  EXPECT_EQ(Keys(result), (Lines{"event", "at_ms", "TheBestPercentageWord", "words", "pattern"}));
  EXPECT_EQ(result["words"][0], Json({{"word", "six"}, {"percentage", 80}}));
  EXPECT_FALSE(result["pattern"].get<std::string>().empty());
  EXPECT_EQ(First("SpokenWordDetected")["NumberofWords"], 0);
}

TEST_F(ListenTest, As_JSON_the_status_event_comes_20_times_a_second) {
  EXPECT_EQ(Listen({"--json", "--for", "10"}), 0);
  int count = 0;
  for (const Json& line : Json_Lines()) {
    if (line["event"] != "PropertyStatusBetweenDetectionToCoversion") continue;
    EXPECT_EQ(line["at_ms"], 50 * ++count);
  }
  EXPECT_GE(count, 199);
  EXPECT_LE(count, 200);
}

TEST_F(ListenTest, As_text_each_status_is_told_once_with_the_time) {
  EXPECT_EQ(Listen({"--for", "10"}), 0);
  EXPECT_EQ(out,
            "     0.000  StartRecognitionActivity\n"
            "     0.050  PropertyStatusBetweenDetectionToCoversion  Sleeping\n"
            "     0.150  PropertyStatusBetweenDetectionToCoversion  Alert\n"
            "    10.000  StopRecognitionActivity\n");
}

TEST_F(ListenTest, As_text_the_ranked_words_stand_below_a_result) {
  Listen_To_Words({Sample_Of("six") + "@1"}, {});
  EXPECT_NE(out.find("SpokenWordConvertedToText  six\n              1  six  80 %\n"),
            std::string::npos)
      << out;
}

TEST_F(ListenTest, Without_a_language_file_a_word_gives_its_pattern_only) {
  EXPECT_EQ(Listen({"--json", "--microphone", Sample_Of("six") + "@1"}), 0);
  EXPECT_TRUE(First("SpokenWordConvertedToText").is_null());
  const Json result = First("SpokenWordConvertedToPatternOnly");
  EXPECT_EQ(result["TheBasicPattern"], result["pattern"]);
  EXPECT_EQ(result["words"], Json::array());
}

TEST_F(ListenTest, Without_an_end_it_listens_two_captures_beyond_the_last_clip) {
  const std::string second = Put_Sound("second.wav", Silence(Bytes(22'050)));
  EXPECT_EQ(Listen({"--json", "--microphone", second + "@2"}), 0);
  EXPECT_EQ(Json_Lines().back()["at_ms"], 17'000);  // 2 s, the clip's 1 s, and twice 7 s
}

TEST_F(ListenTest, Clips_without_a_time_come_three_seconds_after_the_end_of_the_one_before) {
  const std::string second = Put_Sound("second.wav", Silence(Bytes(22'050)));
  EXPECT_EQ(Listen({"--json", "--microphone", second, "--microphone", second}), 0);
  // Half a second, 1 s each, three seconds between them, and twice 7 s.
  EXPECT_EQ(Json_Lines().back()["at_ms"], 19'500);
}

TEST_F(ListenTest, An_interrupt_stops_the_session_and_is_no_failure) {
  interrupted = true;
  EXPECT_EQ(Listen({"--json", "--for", "100"}), 0);
  EXPECT_EQ(Events(), (Lines{"StartRecognitionActivity", "StopRecognitionActivity"}));
  EXPECT_LE(Json_Lines().back()["at_ms"], 100);
}

TEST_F(ListenTest, A_sample_without_a_word_by_the_sensitivity_leaves_it_waiting_and_is_told_once) {
  const std::string soft = Put_Sound("soft.wav", Tone(700_Hz, Amplitude(12), Bytes(20'000)));
  EXPECT_EQ(Listen({"--json", "--for", "40", "--set", "Noise_Sensitivity=30", "--microphone",
                    soft + "@1"}),
            0);
  EXPECT_EQ(err,
            "quillspeech: listening has come to a stand: the last sample held no word by "
            "Noise_Sensitivity 30, and then no other begins\n");
}

TEST_F(ListenTest, A_box_is_told_as_recognize_tells_it_and_a_question_gets_a_no_or_a_yes) {
  const std::string language = Path("words.SAY");
  const auto Ask = [&](std::vector<std::string> more) {
    std::vector<std::string> options = {"--json",
                                        "--language",
                                        language,
                                        "--set",
                                        "Direct_Add=1",
                                        "--set",
                                        "Consider_this_Lang_File_to_Add=" + language,
                                        "--for",
                                        "8",
                                        "--microphone",
                                        Sample_Of("six") + "@1"};
    options.insert(options.end(), more.begin(), more.end());
    Put_Language("words.SAY", {Record().Word("hello").Pattern("never")});
    EXPECT_EQ(Listen(options), 0) << err;
    for (const Json& line : Json_Lines()) {
      if (!line.contains("box")) continue;
      EXPECT_EQ(Keys(line["box"]), (Lines{"title", "text", "buttons", "icon", "answer"}));
      if (line["box"]["buttons"] == "YesNo") return line["box"]["answer"].get<std::string>();
    }
    return std::string("no question");
  };
  EXPECT_EQ(Ask({}), "No");
  EXPECT_EQ(Ask({"--yes"}), "Yes");
}

TEST_F(ListenTest, Wrong_options_are_refused_before_anything_is_heard) {
  const std::vector<Lines> wrong = {
      {"--for", "0"},
      {"--for", "soon"},
      {"--clock", "sun"},
      {"--set", "No_Such_Setting=1"},
      {"--device", "pulse"},  // on the virtual clock
      {"--device", "pulse", "--microphone", Sample_Of("six")},
  };
  for (const Lines& options : wrong) {
    EXPECT_EQ(Listen(options), 2) << options[1];
    EXPECT_EQ(out, "");
    EXPECT_NE(err, "");
  }
}

TEST_F(ListenTest, A_clip_that_cannot_be_read_fails) {
  EXPECT_EQ(Listen({"--microphone", Path("none.wav")}), 1);
  EXPECT_EQ(err, "quillspeech: " + Path("none.wav") + ": No such file or directory\n");
  EXPECT_EQ(Listen({"--microphone", Put("text.wav", {'t', 'e', 'x', 't'})}), 1);
  EXPECT_EQ(err, "quillspeech: " + Path("text.wav") + ": no WAV file of PCM sound\n");
}

TEST_F(ListenTest, A_device_that_is_not_there_gives_the_box_and_fails) {
  const DriverMemory drivers;
  EXPECT_EQ(Run({"listen", "--device", "no such device", "--json", "--for", "5"}), 1);
  bool told = false;
  for (const Json& line : Json_Lines()) {
    if (!line.contains("box")) continue;
    told = true;
    EXPECT_EQ(line["box"]["text"], "ACCESS DENIED.Please install your Sound Card properly");
  }
  EXPECT_TRUE(told);
}

}  // namespace
}  // namespace quillspeech::tests
