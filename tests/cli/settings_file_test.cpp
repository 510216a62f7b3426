#include "cli/settings_file.hpp"

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "cli/files.hpp"
#include "cli/run_options.hpp"
#include "cli/session_on_files.hpp"
#include "tests/cli/command_fixture.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {
namespace {

// The folder that names without a path are in, for as long as this lives.
class InFolder {
 public:
  explicit InFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
  ~InFolder() { std::filesystem::current_path(before_); }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

class SettingsFile : public CommandTest {
 protected:
  std::string Put_Settings(const std::string& json) const {
    return Put("my.json", {json.begin(), json.end()});
  }
  std::string Text_Of(const std::string& name) const {
    const auto bytes = Content(name);
    return {bytes.begin(), bytes.end()};
  }
  int Recognize_With(const std::string& json, std::vector<std::string> more = {}) {
    std::vector<std::string> arguments = {"recognize", "--settings", Put_Settings(json),
                                          Put_Sound("low.wav", Low_Word())};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Run(arguments);
  }
  Session& Applied(const cli::RunOptions& options) {
    trial = std::make_unique<cli::SessionOnFiles>();
    cli::Apply_Options(options, trial->session);
    return trial->session;
  }
  cli::RunOptions Options(const std::string& json) const {
    cli::RunOptions options;
    options.record =
        std::make_shared<const cli::SettingsRecord>(cli::Load_Settings_Record(Put_Settings(json)));
    return options;
  }

  std::unique_ptr<cli::SessionOnFiles> trial;
};

// recognize --settings

TEST_F(SettingsFile, The_language_of_a_record_gives_the_words) {
  const auto language = Put_Language("w.SAY", {Record().Word("hello").Pattern("oa*")});
  const nlohmann::json record = {{"Consider_this_Lang_File_to_match", language}};
  EXPECT_EQ(Recognize_With(record.dump(), {"--json"}), 0) << err;
  EXPECT_EQ(err, "");
  EXPECT_EQ(Json_Lines().at(0)["Platinum_Best"][0], "hello");
}

TEST_F(SettingsFile, Without_a_language_in_the_record_the_usual_one_gives_the_words) {
  Put_Language("User.SAY", {Record().Word("hello").Pattern("oa*")});
  const InFolder here(Folder());
  EXPECT_EQ(Recognize_With("{}", {"--json"}), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Json_Lines().at(0)["Platinum_Best"][0], "hello");
}

TEST_F(SettingsFile, A_language_that_does_not_exist_is_noted_and_no_words_are_looked_for) {
  const InFolder here(Folder());
  for (const std::string name : {"User.SAY", "gone.SAY"}) {
    const nlohmann::json record = {{"Consider_this_Lang_File_to_match", name}};
    EXPECT_EQ(Recognize_With(name == "User.SAY" ? "{}" : record.dump(), {"--json"}), 0);
    EXPECT_EQ(err, "quillspeech: note: " + (Folder() / "my.json").string() +
                       ": there is no language file " + name +
                       ", so without --language no words are looked for\n");
    EXPECT_EQ(Json_Lines().at(0)["Voice_Word"], Low_Pattern);
    EXPECT_EQ(Json_Lines().at(0)["Platinum_Words_Available"], 0);
    EXPECT_EQ(Json_Lines().at(0)["boxes"].size(), 0U);
    EXPECT_FALSE(std::filesystem::exists(Folder() / name));
  }
}

TEST_F(SettingsFile, A_record_that_names_no_language_says_so) {
  EXPECT_EQ(Recognize_With(R"({"Consider_this_Lang_File_to_match": ""})"), 0);
  EXPECT_NE(err.find("my.json: no language file is named, so"), std::string::npos) << err;
}

TEST_F(SettingsFile, A_lost_language_is_not_missed_by_who_names_another_or_wants_no_words) {
  const auto language = Put_Language("w.SAY", {Record().Word("hello").Pattern("oa*")});
  const char* lost = R"({"Consider_this_Lang_File_to_match": "gone.SAY"})";
  EXPECT_EQ(Recognize_With(lost, {"--json", "--language", language}), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Json_Lines().at(0)["Platinum_Best"][0], "hello");
  EXPECT_EQ(Recognize_With(lost, {"--set", "Enable_Artificial_Intelligence=NO"}), 0);
  EXPECT_EQ(err, "");
}

TEST_F(SettingsFile, The_record_comes_first_then_the_language_and_then_what_is_set) {
  auto options = Options(
      R"({"Noise_Sensitivity": 9, "Sample_Overlap_Bytes": 8, "Consider_this_Lang_File_to_match": "a.SAY"})");
  EXPECT_EQ(Applied(options).settings.Noise_Sensitivity, 9);
  EXPECT_EQ(Applied(options).settings.Consider_this_Lang_File_to_match, "a.SAY");
  options.language = "b.SAY";
  options.settings = {{"Noise_Sensitivity", "7"}};
  const Settings& settings = Applied(options).settings;
  EXPECT_EQ(settings.Noise_Sensitivity, 7);
  EXPECT_EQ(settings.Sample_Overlap_Bytes, 8);
  EXPECT_EQ(settings.Consider_this_Lang_File_to_match, "b.SAY");
}

TEST_F(SettingsFile, Missing_keys_get_the_defaults_of_a_load) {
  const auto options = Options("{}");
  const Session& session = Applied(options);
  EXPECT_EQ(session.settings.Consider_this_Lang_File_to_Add, "User.SAY");
  EXPECT_EQ(session.settings.Play_this_file_for_Start, "");
  EXPECT_EQ(session.settings.Noise_Sensitivity, 3);
  EXPECT_EQ(session.settings.Keep_Digital_Signal_Processing_level, "Up");
}

TEST_F(SettingsFile, The_capture_of_a_record_is_as_long_as_its_time) {
  const auto options = Options(R"({"Speech_sampling_time_in_ms": 4000})");
  EXPECT_EQ(Applied(options).sample.Samples_Per_Capture, 88200);
}

TEST_F(SettingsFile, The_results_in_a_record_are_not_those_of_a_sound) {
  const auto options = Options(
      R"({"Platinum_Words_Available": 1, "Platinum_Word_Best": "old", "Voice_Words_Explode_Count": 1})");
  const Session& session = Applied(options);
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(session.filter.Voice_Words_Explode_Count, 0);
}

TEST_F(SettingsFile, A_value_that_cannot_be_converted_is_named_with_its_key_and_nothing_is_done) {
  EXPECT_EQ(Recognize_With(R"({"Noise_Sensitivity": "many"})"), 2);
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, "quillspeech: --settings: " + (Folder() / "my.json").string() +
                     ": Noise_Sensitivity \"many\": that is no number\n"
                     "Try quillspeech --help.\n");
}

TEST_F(SettingsFile, Each_way_to_be_no_record_is_told) {
  const std::vector<std::pair<const char*, const char*>> Cases = {
      {R"({"Noise_Word_No_CutOff": 256})",
       "Noise_Word_No_CutOff 256: a number is too large for its field"},
      {R"({"Send_of_no": 4294967296})",
       "Send_of_no 4294967296: a number is too large for its field"},
      {R"({"Send_of_no": 101})", "Voice_Word_Matched: an index lies outside its table"},
      {R"({"Memory_Clean": null})", "Memory_Clean null: that is no text in Windows-1252"},
      {R"({"Memory_Clean": [1]})", "Memory_Clean [1]: that is no text in Windows-1252"},
      {R"({"Memory_Clean": {}})", "Memory_Clean {}: that is no text in Windows-1252"},
      {R"({"Play_File": "\u3042"})", "Play_File \"\u3042\": that is no text in Windows-1252"},
      {R"({"Noise_Sensitivity": null})", "Noise_Sensitivity null: that is no number"},
      {R"({"Noise_Word_No_CutOff": true})", "Noise_Word_No_CutOff true: that is no number"},
      {R"({"Send_of_no": "\u3042"})", "Send_of_no \"\u3042\": that is no number"},
      {R"({"Words_to_Scan": [1]})", "Words_to_Scan [1]: that is no number"},
      {R"({"Speech_sampling_time_in_ms": 60000, "Set_Recording_Frequency": 44100})",
       "the sampling time holds more samples than 32 bits count"},
      {R"({"Words_to_Scan": 7, "Speech_sampling_time_in_ms": 60000, "Set_Recording_Frequency": 44100})",
       "the sampling time holds more samples than 32 bits count"},
      {R"({"Words_to_Scan": "x", "Speech_sampling_time_in_ms": 60000, "Set_Recording_Frequency": 44100})",
       "Words_to_Scan \"x\": that is no number"},
      {R"({"Words_to_Scan": 2147483648, "Speech_sampling_time_in_ms": 60000, "Set_Recording_Frequency": 44100})",
       "Words_to_Scan 2147483648: a number is too large for its field"},
      {"[]", "the record is no object but array"},
      {"{", "the file is no JSON: "},
      {R"({"Noise_Sensitivity": 1, "Noise_Sensitivity": 2})",
       "an object has the key \"Noise_Sensitivity\" twice"}};
  for (const auto& [json, complaint] : Cases) {
    EXPECT_EQ(Recognize_With(json), 2) << json;
    EXPECT_NE(err.find("my.json: " + std::string(complaint)), std::string::npos) << err;
  }
}

TEST_F(SettingsFile, A_file_that_is_not_there_is_named) {
  EXPECT_EQ(Run({"recognize", "--settings", "none.json", Put_Sound("low.wav", Low_Word())}), 2);
  EXPECT_EQ(err,
            "quillspeech: --settings: none.json: No such file or directory\n"
            "Try quillspeech --help.\n");
}

TEST_F(SettingsFile, A_key_that_no_control_keeps_is_noted_and_passed_over) {
  EXPECT_EQ(Recognize_With(R"({"Volume": 7})"), 0);
  EXPECT_TRUE(err.starts_with("quillspeech: note: " + (Folder() / "my.json").string() +
                              ": no control keeps \"Volume\"\n"))
      << err;
}

TEST_F(SettingsFile, A_hundred_thousand_keys_that_no_control_keeps_are_passed_over) {
  std::string json = "{";
  for (int key = 0; key < 100'000; ++key) json += "\"k" + std::to_string(key) + "\":0,";
  const auto options = Options(json + R"("Noise_Sensitivity": 9})");
  EXPECT_EQ(options.record->unknown_keys.size(), 100'000U);
  EXPECT_EQ(Applied(options).settings.Noise_Sensitivity, 9);
}

TEST_F(SettingsFile, A_setting_is_tried_on_top_of_the_record) {
  EXPECT_EQ(Recognize_With(R"({"Set_Recording_Frequency": 44100})",
                           {"--set", "Speech_sampling_time_in_ms=50000"}),
            2);
  EXPECT_NE(err.find("--set Speech_sampling_time_in_ms=50000"), std::string::npos) << err;
}

// A control and its file.

TEST_F(SettingsFile, A_control_comes_back_from_the_file_as_it_was_left) {
  const auto one = std::make_unique<ControlTest>();
  UserControl_InitProperties(*one->control);
  Let_Text(*one->control, "Noise_Sensitivity", "9");
  Let_Text(*one->control, "Open_this_Wave_File", "caf\xE9.wav");
  const auto file = (Folder() / "saved.json").string();
  cli::Save_Settings_File(file, *one->control);

  const auto other = std::make_unique<ControlTest>();
  Forget_Settings(other->session);
  std::ostringstream said;
  cli::Load_Settings_File(file, *other->control, said);
  EXPECT_EQ(said.str(), "");
  EXPECT_EQ(other->session.settings.Noise_Sensitivity, 9);
  EXPECT_EQ(other->session.settings.Open_this_Wave_File, "caf\xE9.wav");
  EXPECT_EQ(other->session.settings.Play_this_file_for_Start, "start.wav");
}

TEST_F(SettingsFile, The_file_of_a_new_control_has_the_keys_in_the_order_of_the_record) {
  const auto one = std::make_unique<ControlTest>();
  UserControl_InitProperties(*one->control);
  Let_Text(*one->control, "Enable_Artificial_Intelligence", "YES");
  cli::Save_Settings_File((Folder() / "saved.json").string(), *one->control);
  EXPECT_EQ(Text_Of("saved.json"), R"({
  "Consider_this_Lang_File_to_Add": "UserTemp.SAY",
  "Consider_this_Lang_File_to_match": "UserTemp.SAY",
  "Direct_Add": "NO",
  "Keep_Digital_Signal_Processing_level": "",
  "Platinum_Word_Font": "MS Sans Serif",
  "Play_this_file_for_Start": "start.wav",
  "Play_this_file_for_Stop": "stop.wav",
  "Play_this_file_on_Initialization": "backon.wav",
  "Words_I_Want": ""
}
)");
}

TEST_F(SettingsFile, A_save_that_fails_leaves_the_file_as_it_was) {
  const auto one = std::make_unique<ControlTest>();
  one->session.settings.Send_of_no = 101;
  const auto file = Put_Settings("{}");
  EXPECT_THROW(cli::Save_Settings_File(file, *one->control), cli::SettingsFileError);
  EXPECT_EQ(Text_Of("my.json"), "{}");
}

TEST_F(SettingsFile, A_load_that_fails_says_where) {
  const auto one = std::make_unique<ControlTest>();
  std::ostringstream said;
  const auto file = Put_Settings(R"({"Volume": 1, "Noise_Sensitivity": 99999})");
  try {
    cli::Load_Settings_File(file, *one->control, said);
    FAIL();
  } catch (const cli::SettingsFileError& error) {
    EXPECT_EQ(error.what(),
              file + ": Noise_Sensitivity 99999: a number is too large for its field");
  }
  EXPECT_EQ(said.str(), "quillspeech: note: " + file + ": no control keeps \"Volume\"\n");
}

}  // namespace
}  // namespace quillspeech::tests
