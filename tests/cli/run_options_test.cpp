#include "cli/run_options.hpp"

#include <map>

#include "base/text.hpp"
#include "cli/session_on_files.hpp"
#include "core/operations.hpp"
#include "core/settings_table.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class RunOptions : public CommandTest {
 protected:
  int Set(const std::string& setting) {
    return Run({"recognize", "--set", setting, Put_Sound("low.wav", Low_Word())});
  }
};

TEST_F(RunOptions, Wrong_usage_ends_with_2_and_no_result) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const std::vector<std::vector<std::string>> Wrong = {
      {},
      {"recognise", file},
      {"recognize"},
      {"recognize", "--no-such-option", file},
      {"recognize", "--path", "sideways", file},
      {"recognize", "--jobs", "-1", file},
      {"recognize", "--jobs", "many", file},
      {"recognize", "--pad", "-1", file},
      {"recognize", "--pad", "3600001", file},
      {"recognize", "--set", file},
      {"recognize", "--set", "=5", file},
      {"recognize", "--set", "Noise_Sensitivity", file},
      {"learn", "--word", "low", file},
      {"learn", "--language", Path("w.SAY"), file},
      {"evaluate", file}};
  for (const auto& arguments : Wrong) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_EQ(out, "");
    EXPECT_TRUE(err.starts_with("quillspeech: ")) << err;
  }
}

TEST_F(RunOptions, A_name_that_nobody_has_is_refused_with_the_nearest_ones) {
  EXPECT_EQ(Set("Noise_Sensitivty=5"), 2);
  EXPECT_EQ(err,
            "quillspeech: --set: no setting is called Noise_Sensitivty; did you mean "
            "Noise_Sensitivity\n");
  EXPECT_EQ(out, "");
}

TEST_F(RunOptions, A_part_of_a_name_finds_the_whole_names) {
  EXPECT_EQ(cli::Nearest_Settings("noise"),
            (std::vector<std::string>{"Noise_Sensitivity", "Noise_Word_No_CutOff"}));
  EXPECT_EQ(cli::Nearest_Settings("memory clean"), std::vector<std::string>{"Memory_Clean"});
  EXPECT_TRUE(cli::Nearest_Settings("xyzzy").empty());
}

TEST_F(RunOptions, At_most_three_names_are_offered) {
  EXPECT_EQ(cli::Nearest_Settings("This_speech_sample_process").size(), 3U);
}

TEST_F(RunOptions, A_result_is_no_setting) {
  EXPECT_EQ(Set("Voice_Word=x"), 2);
  EXPECT_EQ(err, "quillspeech: --set: Voice_Word is a result, not a setting\n");
}

TEST_F(RunOptions, A_refused_value_is_told_in_the_words_of_its_box) {
  EXPECT_EQ(Set("Filter_Pass_Value=many"), 2);
  EXPECT_EQ(err,
            "quillspeech: --set Filter_Pass_Value=many: Incorrect Settings for "
            "Filter_Pass_Value\n");
  EXPECT_EQ(Set("Consider_this_Lang_File_to_Add="), 2);
  EXPECT_NE(err.find("Invalid FileName for Language to add"), std::string::npos);
}

TEST_F(RunOptions, A_value_that_does_not_fit_is_refused) {
  EXPECT_EQ(Set("Noise_Word_No_CutOff=256"), 2);
  EXPECT_NE(err.find("a number is too large for its field"), std::string::npos);
  EXPECT_EQ(Set("Noise_Sensitivity=loud"), 2);
  EXPECT_NE(err.find("the text is no number"), std::string::npos);
}

TEST_F(RunOptions, All_refused_settings_are_named_at_once) {
  EXPECT_EQ(Run({"recognize", "--set", "A=1", "--set", "Noise_Word_No_CutOff=256", "x.wav"}), 2);
  EXPECT_NE(err.find("no setting is called A"), std::string::npos);
  EXPECT_NE(err.find("Noise_Word_No_CutOff=256"), std::string::npos);
}

TEST_F(RunOptions, A_value_that_is_stored_otherwise_is_noted_and_the_run_goes_on) {
  EXPECT_EQ(Set("Set_Recording_Frequency=16000"), 0);
  EXPECT_EQ(err, "quillspeech: note: --set Set_Recording_Frequency=16000 leaves it at \"22050\"\n");
  EXPECT_EQ(Set("This_Audio_Process=no"), 0);
  EXPECT_EQ(err, "quillspeech: note: --set This_Audio_Process=no leaves it at \"YES\"\n");
}

TEST_F(RunOptions, A_clamped_value_is_told_once_and_is_no_box_of_the_run) {
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Run({"recognize", "--json", "--set", "Speech_sampling_time_in_ms=100", file, file}), 0);
  EXPECT_EQ(err,
            "quillspeech: --set Speech_sampling_time_in_ms=100: Invalid sample time. Assigning "
            "default 4000 ms\n");
  EXPECT_EQ(Json_Lines().at(0)["boxes"], Json::array());
}

TEST_F(RunOptions, A_value_that_is_taken_is_not_mentioned) {
  EXPECT_EQ(Set("Noise_Sensitivity=5"), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Set("Keep_Digital_Signal_Processing_level=Top"), 0);
  EXPECT_EQ(err, "");
}

// A text that the setting does not hold at first, and stores as it stands.
std::string Other_Value(const std::string& name, const std::string& folder) {
  const std::map<std::string, std::string> Special = {
      {"Keep_Engine_Frequency_Input_Flow", "Filter Same"},
      {"Keep_Digital_Signal_Processing_level", "Top"},
      {"Set_Recording_Frequency", "8000"},
      {"Speech_sampling_time_in_ms", "5000"},
      {"Consider_this_Engine_for_Recognition", folder + "/e.EGN"},
      {"Consider_this_Lang_File_to_Add", folder + "/add.SAY"},
      {"Consider_this_Lang_File_to_match", folder + "/w.SAY"}};
  if (const auto special = Special.find(name); special != Special.end()) return special->second;
  const auto fresh = std::make_unique<cli::SessionOnFiles>();
  Prepare_Session(fresh->session);
  const std::string value = Get_Setting(fresh->session, name).value_or("");
  if (value == "YES") return "NO";
  if (value == "NO") return "YES";
  return Text_To_Number(value) ? "7" : "some text.wav";
}

TEST_F(RunOptions, No_setting_has_a_note_for_a_value_that_it_stores_and_that_counts) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  Put("e.EGN", Engine_File({{4, "x"}, {6, "y"}}));
  for (const Member& member : Setting_Members()) {
    if (member.name == "Open_this_Wave_File") continue;  // counts for nothing here
    const std::string name(member.name);
    cli::RunOptions options;
    options.language = language;
    options.settings = {{name, Other_Value(name, Folder().string())}};
    std::ostringstream said;
    EXPECT_TRUE(cli::Check_Options(options, said)) << name;
    EXPECT_EQ(said.str(), "") << name;
  }
}

TEST_F(RunOptions, The_name_of_another_sound_is_noted_to_have_no_effect) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto plain = Recognize_As_Json({file});
  EXPECT_EQ(Recognize_As_Json({"--set", "Open_this_Wave_File=zz.wav", file}), plain);
  EXPECT_EQ(err,
            "quillspeech: note: --set Open_this_Wave_File=zz.wav has no effect; the sounds are the "
            "WAV files that the command names\n");
}

TEST_F(RunOptions, A_value_may_hold_equals_signs_and_blanks) {
  EXPECT_EQ(Set("Keep_Engine_Frequency_Input_Flow=Filter Same"), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Set("Play_this_file_for_Start=a=b.wav"), 0);
  EXPECT_EQ(err, "");
}

TEST_F(RunOptions, The_language_option_appends_no_extension_and_the_setting_does) {
  const auto language = Put_Language("words", {Record().Word("low").Pattern("oa*")});
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Recognize_As_Json({"--language", language, file})["Platinum_Best"][0], "low");
  EXPECT_FALSE(Exists("words.SAY"));
  Run({"recognize", "--language", language, "--set",
       "Consider_this_Lang_File_to_match=" + Path("other"), file});
  EXPECT_TRUE(Exists("other.SAY"));
}

TEST_F(RunOptions, Without_a_language_no_setting_switches_the_matching_on) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto json = Recognize_As_Json({"--set", "Enable_Artificial_Intelligence=YES", "--set",
                                       "Consider_this_Lang_File_to_match=" + language,
                                       Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["Platinum_Best"][0], "");
  EXPECT_EQ(json["Voice_Word"], Low_Pattern);
  EXPECT_EQ(err,
            "quillspeech: note: without --language no words are looked for, so "
            "Enable_Artificial_Intelligence stays NO\n");
}

TEST_F(RunOptions, With_a_language_a_setting_switches_the_matching_off) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto json =
      Recognize_As_Json({"--language", language, "--set", "Enable_Artificial_Intelligence=NO",
                         Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["Platinum_Best"][0], "");
  EXPECT_EQ(err, "");
}

TEST_F(RunOptions, A_path_is_file_or_live_and_nothing_else) {
  const auto file = Put_Sound("low.wav", Low_Word());
  for (const std::string path : {"0", "1", "File", "sideways"}) {
    EXPECT_EQ(Run({"recognize", "--path", path, file}), 2);
    EXPECT_TRUE(err.starts_with("quillspeech: --path: takes file or live, not \"" + path + "\"\n"))
        << err;
  }
}

TEST_F(RunOptions, A_number_beyond_its_range_is_refused_with_the_range) {
  EXPECT_EQ(Run({"recognize", "--jobs", "257", "x.wav"}), 2);
  EXPECT_TRUE(
      err.starts_with("quillspeech: --jobs: takes a whole number from 0 to 256, not \"257\"\n"))
      << err;
}

TEST_F(RunOptions, An_engine_name_without_its_extension_fails_every_file) {
  EXPECT_EQ(Run({"recognize", "--engine", Path("engine"), Put_Sound("low.wav", Low_Word())}), 1);
  EXPECT_NE(err.find("location of the engine file"), std::string::npos);
}

TEST_F(RunOptions, Only_a_missing_engine_file_that_can_be_loaded_is_said_to_be_created) {
  const auto file = Put_Sound("low.wav", Low_Word());
  for (const std::string name : {"voice.EGN", "voice.egn"}) {
    Run({"recognize", "--engine", Path(name), file});
    EXPECT_NE(err.find("there is no engine file " + Path(name)), std::string::npos) << err;
    EXPECT_TRUE(Exists(name));
  }
  for (const std::string name : {"voice.Egn", "voice.txt"}) {
    Run({"recognize", "--engine", Path(name), file});
    EXPECT_EQ(err.find("there is no engine file"), std::string::npos) << err;
    EXPECT_FALSE(Exists(name));
  }
}

}  // namespace
}  // namespace quillspeech::tests
