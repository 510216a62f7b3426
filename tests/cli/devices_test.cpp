#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/word_scan.hpp"
#include "cli/device_list.hpp"
#include "cli/level_meter.hpp"
#include "cli/session_on_files.hpp"
#include "tests/cli/listen_fixture.hpp"
#include "tests/support/driver_memory.hpp"

namespace quillspeech::tests {
namespace {

using Lines = std::vector<std::string>;

class Devices : public ListenTest {
 protected:
  // A line a second of the level of that sound.
  std::vector<Json> Levels(const Sound& sound, const std::string& seconds) {
    EXPECT_EQ(Run({"devices", "--level", "--json", "--clock", "virtual", "--for", seconds,
                   "--microphone", Put_Sound("sound.wav", sound) + "@0"}),
              0)
        << err;
    return Json_Lines();
  }
};

TEST_F(Devices, Inputs_and_outputs_are_listed_with_their_defaults) {
  const std::vector<linux::SoundDevice> devices = {
      {0, "pulse", "ALSA", 32, 0, 44'100, false, false},
      {1, "default", "ALSA", 2, 2, 48'000, true, true},
  };
  EXPECT_EQ(cli::Device_Lines(devices, false),
            "Inputs\n"
            "  0   pulse    ALSA  44100 Hz\n"
            "* 1   default  ALSA  48000 Hz\n"
            "Outputs\n"
            "* 1   default  ALSA  48000 Hz\n");
  const auto json = Json::parse(cli::Devices_Json(devices));
  EXPECT_EQ(json["inputs"].size(), 2U);
  EXPECT_EQ(json["outputs"].size(), 1U);
  EXPECT_EQ(json["inputs"][0], Json({{"number", 0},
                                     {"name", "pulse"},
                                     {"system", "ALSA"},
                                     {"channels", 32},
                                     {"rate", 44'100},
                                     {"default", false}}));
  EXPECT_EQ(cli::Device_Lines({}, false), "Inputs\n  (none)\nOutputs\n  (none)\n");
}

TEST_F(Devices, The_list_of_this_machine_is_JSON_when_asked) {
  const DriverMemory drivers;
  EXPECT_EQ(Run({"devices", "--json"}), 0);
  EXPECT_EQ(Keys(Json::parse(out)), (Lines{"inputs", "outputs"}));
}

TEST_F(Devices, The_level_is_the_peak_and_the_mean_distance_from_silence_of_each_second) {
  const auto lines = Levels(Level(128 + 20, Bytes(22'050)) + Level(128 - 4, Bytes(11'025)), "3");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0]["peak"], 20);
  EXPECT_EQ(lines[0]["mean"], 20);
  EXPECT_EQ(lines[1]["peak"], 4);
  EXPECT_EQ(lines[1]["mean"], 2);
  EXPECT_EQ(lines[2]["peak"], 0);
  EXPECT_EQ(lines[2]["at_ms"], 3'000);
}

TEST_F(Devices, A_steady_level_hits_once_for_each_point_of_the_grid_and_at_its_edges) {
  // 22,050 bytes have 882 points of the grid, each a forward hit; a backward hit is a change, of
  // which a level has two.
  const auto lines = Levels(Level(128 + 6, Bytes(22'050)), "3");
  EXPECT_EQ(lines[2]["pump"]["limit"], 5);
  EXPECT_EQ(lines[2]["pump"]["hits"], 882 + 2);
  EXPECT_EQ(lines[2]["is_speech"], true);
  for (const Json& scan : lines[2]["sensitivities"]) {
    EXPECT_EQ(scan["hits"], scan["limit"] < 6 ? 882 + 2 : 0) << scan;
  }
}

TEST_F(Devices, Hits_go_with_the_sound_that_is_seven_seconds_old) {
  const auto lines = Levels(Level(128 + 6, Bytes(22'050)), "9");
  EXPECT_GT(lines[6]["pump"]["hits"], 0);
  EXPECT_EQ(lines[8]["pump"]["hits"], 0);
  EXPECT_EQ(lines[8]["is_speech"], false);
}

TEST_F(Devices, A_spoken_word_is_one_word_to_the_sensitivities) {
  EXPECT_EQ(Run({"devices", "--level", "--json", "--clock", "virtual", "--for", "4", "--microphone",
                 Sample_Of("six") + "@1"}),
            0);
  EXPECT_EQ(Json_Lines().front()["sensitivities"][1]["words"], 0);
  EXPECT_EQ(Json_Lines().back()["sensitivities"][1],
            Json({{"limit", 3}, {"hits", 435}, {"words", 1}}));
}

TEST_F(Devices, As_text_a_line_comes_every_second_and_at_a_terminal_a_bar_every_tenth) {
  const std::vector<std::string> watch = {"devices", "--level", "--clock", "virtual", "--for", "2"};
  EXPECT_EQ(Run(watch), 0);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 2);
  EXPECT_EQ(out.find('\r'), std::string::npos);
  out_is_terminal = true;
  EXPECT_EQ(Run(watch), 0);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\r'), 20);
}

TEST_F(Devices, What_was_heard_since_the_last_line_gets_a_line_of_its_own_at_the_end) {
  EXPECT_EQ(Run({"devices", "--level", "--clock", "virtual", "--for", "2.5"}), 0);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3);
}

TEST_F(Devices, The_list_takes_no_option_of_the_meter) {
  const std::vector<std::vector<std::string>> options = {
      {"--device", "mic"}, {"--for", "1"}, {"--clock", "virtual"}, {"--microphone", "a.wav"}};
  for (const auto& option : options) {
    EXPECT_EQ(Run({"devices", option[0], option[1]}), 2) << option[0];
    EXPECT_NE(err.find("need --level"), std::string::npos) << err;
  }
}

TEST_F(Devices, An_interrupt_ends_the_meter_and_a_missing_input_fails) {
  interrupted = true;
  EXPECT_EQ(Run({"devices", "--level", "--clock", "virtual", "--for", "1000"}), 0);
  interrupted = false;
  const DriverMemory drivers;
  EXPECT_EQ(Run({"devices", "--level", "--device", "no such device"}), 1);
  EXPECT_EQ(
      err,
      "quillspeech: no such device: there is no such input, or no sound can be recorded from it\n");
}

}  // namespace
}  // namespace quillspeech::tests
