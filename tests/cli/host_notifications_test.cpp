// What a scripted host tells by itself.
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostNotifications : public HostTest {
 protected:
  HostNotifications() {
    language =
        Put_Language("words.SAY", {Record().Number(1).Word("low", 100).Pattern(Low_Pattern, 100)});
  }
  // A control that works on that file at once.
  Lines File_Run(const std::string& wave, const Lines& settings) const {
    Lines lines = {R"({"do":"new"})",
                   R"({"do":"let","member":"Open_this_Wave_File","value":)" + Quoted(wave) + "}",
                   Let("Consider_this_Lang_File_to_match", Quoted(language)),
                   Let("Consider_this_Lang_File_to_Add", Quoted(language))};
    lines.insert(lines.end(), settings.begin(), settings.end());
    lines.emplace_back(R"({"do":"call","member":"Open_Specified_Wave_File_And_Process"})");
    return lines;
  }
  static std::string Let(const std::string& member, const std::string& value) {
    return R"({"do":"let","member":")" + member + R"(","value":)" + value + "}";
  }
  // A control that hears a low word from 500 ms on, with these settings, for 3.5 s of its 4.
  void Hear(const Lines& settings) {
    const std::string wave = Put_Sound("low.wav", Low_Word());
    Lines lines = {R"({"do":"new"})", Let("Consider_this_Lang_File_to_match", Quoted(language)),
                   Let("Speech_sampling_time_in_ms", "4000")};
    lines.insert(lines.end(), settings.begin(), settings.end());
    lines.emplace_back(R"({"do":"call","member":"Start_Real_Action"})");
    lines.emplace_back(R"({"do":"run","ms":3500})");
    Host(lines, {"--microphone", wave + "@0.5"});
  }

  std::string language;
};

TEST_F(HostNotifications, An_event_comes_with_its_argument_and_the_time) {
  Hear({});
  EXPECT_EQ(Told("event")[0].dump(), R"({"event":"StartRecognitionActivity","at_ms":0})");
  const Json detected = told.at(Place_Of({{"event", "SpokenWordDetected"}}));
  EXPECT_EQ(Keys(detected), Lines({"event", "NumberofWords", "at_ms"}));
  EXPECT_EQ(detected["NumberofWords"], 0);
  const Json heard = told.at(Place_Of({{"event", "SpokenWordConvertedToText"}}));
  EXPECT_EQ(Keys(heard), Lines({"event", "TheBestPercentageWord", "at_ms"}));
  EXPECT_EQ(heard["TheBestPercentageWord"], "low");
  EXPECT_GT(heard["at_ms"].get<int>(), detected["at_ms"].get<int>());
}

TEST_F(HostNotifications, A_change_names_the_property) {
  Host({R"({"do":"new"})", Let("Noise_Sensitivity", "4")});
  EXPECT_EQ(told.at(Place_Of({{"changed", "Noise_Sensitivity"}})).dump(),
            R"({"changed":"Noise_Sensitivity"})");
}

TEST_F(HostNotifications, A_box_is_told_with_its_answer) {
  Host({R"({"do":"new"})", Let("Speech_sampling_time_in_ms", "99999")});
  ASSERT_EQ(Told("box").size(), 1U);
  const Json box = Told("box")[0]["box"];
  EXPECT_EQ(Keys(box), Lines({"title", "text", "buttons", "icon", "answer"}));
  EXPECT_EQ(box["title"], "Quillspeech Info.");
  EXPECT_EQ(box["buttons"], "OK");
  EXPECT_EQ(box["answer"], "OK");
}

TEST_F(HostNotifications, A_question_takes_the_next_answer_and_an_OK_box_none) {
  const std::vector<std::pair<std::string, std::string>> answers = {
      {R"(["Yes"])", "Yes"}, {R"(["No"])", "No"}, {R"(["yes"])", "No"},
      {"[null]", "No"},      {"[]", "No"},        {R"(["Yes","No"])", "Yes"}};
  for (const auto& [with, answer] : answers) {
    const std::string wave = Put_Sound("high.wav", High_Word());
    Lines lines = File_Run(
        wave, {R"({"do":"answer","with":)" + with + "}", Let("Speech_sampling_time_in_ms", "99999"),
               Let("Notify_if_no_language_match", R"("YES")")});
    Host(lines);
    const auto boxes = Told("box");
    const auto question = std::ranges::find_if(
        boxes, [](const Json& line) { return line["box"]["buttons"] == "YesNo"; });
    ASSERT_NE(question, boxes.end()) << out;
    EXPECT_EQ((*question)["box"]["answer"], answer) << with;
  }
}

TEST_F(HostNotifications, Cues_are_told_by_name_and_flags) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"InitializeSound"})",
        R"({"do":"call","member":"Start_Real_Action"})", R"({"do":"run","ms":100})",
        R"({"do":"call","member":"Stop_Real_Action"})"});
  Lines sounds;
  for (const Json& line : Told("sound")) sounds.push_back(line["sound"].dump());
  EXPECT_EQ(sounds, Lines({R"({"name":"backon.wav","flags":9})", R"({"name":"","flags":64})",
                           R"({"name":"start.wav","flags":1})", R"({"name":"","flags":64})",
                           R"({"name":"stop.wav","flags":1})", R"({"name":"","flags":64})"}));
}

TEST_F(HostNotifications, An_echo_is_told_when_it_begins_to_sound) {
  Hear({Let("Speech_echo_feature", R"("YES")")});
  ASSERT_EQ(Told("echo").size(), 1U);
  const Json echo = Told("echo")[0]["echo"];
  EXPECT_EQ(Keys(echo), Lines({"first", "last", "bytes"}));
  EXPECT_GT(echo["last"].get<int>(), echo["first"].get<int>());
  EXPECT_EQ(echo["bytes"], echo["last"]);
  EXPECT_LT(Place_Of({{"echo", echo}}), Place_Of({{"event", "SpokenWordConvertedToText"}}));
}

TEST_F(HostNotifications, An_echo_that_no_device_takes_has_no_bytes) {
  Hear({Let("Speech_echo_feature", R"("YES")"), R"({"do":"faults","wave_out_open":4})"});
  ASSERT_EQ(Told("echo").size(), 1U);
  EXPECT_EQ(Told("echo")[0]["echo"]["bytes"], 0);
}

TEST_F(HostNotifications, Modal_windows_come_and_go) {
  Host({R"({"do":"new"})", R"({"do":"press","on":"Command4"})"});
  Lines windows;
  for (const Json& line : Told("window")) windows.push_back(line["window"].dump());
  EXPECT_EQ(windows, Lines({R"({"name":"Help","shown":true,"modal":true})",
                            R"({"name":"Help","shown":false,"modal":true})",
                            R"({"name":"Splash","shown":true,"modal":true})",
                            R"({"name":"Splash","shown":false,"modal":true})"}));
}

TEST_F(HostNotifications, A_window_that_stays_is_told_once_and_again_when_it_goes) {
  Host({R"({"do":"program","path":"C:\\tools\\vb6.exe"})",
        R"({"do":"load","bag":{"I_want_Status_Animation":"YES"}})",
        R"({"do":"call","member":"Start_Real_Action"})", R"({"do":"run","ms":20000})",
        R"({"id":1,"do":"end"})"});
  Lines windows;
  for (const Json& line : Told("window")) {
    if (line["window"]["name"] == "StatusBar") windows.push_back(line["window"].dump());
  }
  EXPECT_EQ(windows, Lines({R"({"name":"StatusBar","shown":true,"modal":false})",
                            R"({"name":"StatusBar","shown":false,"modal":false})"}));
}

TEST_F(HostNotifications, The_face_is_told_when_it_changes_and_only_then) {
  Hear({});
  const auto faces = Told("face");
  ASSERT_FALSE(faces.empty());
  EXPECT_EQ(faces.front().dump(),
            R"({"face":{"Label1":"Sleeping","Text1":"Spoken Word :","Text2":"Pattern :"}})");
  EXPECT_EQ(faces.back()["face"]["Text1"], "low");
  EXPECT_EQ(std::ranges::adjacent_find(faces), faces.end());
}

TEST_F(HostNotifications, In_design_mode_the_face_stays_as_it_is) {
  Host({R"({"do":"mode","user":false})", R"({"do":"new"})"});
  EXPECT_TRUE(Told("face").empty());
}

TEST_F(HostNotifications, Nothing_is_told_of_a_control_that_has_ended) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"do":"run","ms":500})", R"({"id":1,"do":"end"})", R"({"id":2,"do":"run","ms":5000})"});
  for (std::size_t at = Place_Of({{"id", 1}}); at < told.size(); ++at) {
    EXPECT_FALSE(told[at].contains("event")) << told[at];
  }
  EXPECT_EQ(Reply(2)["ok"], true);
}

}  // namespace
}  // namespace quillspeech::tests
