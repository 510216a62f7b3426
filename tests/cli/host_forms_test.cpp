// A person's doings with the control's windows, by requests.
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostForms : public HostTest {
 protected:
  HostForms() {
    language = Put_Language("words.SAY", {Record().Number(1).Word("low", 100).Pattern("s*", 90),
                                          Record().Number(2).Word("high", 80).Pattern("f*", 70),
                                          Record().Number(3).Word("mid", 60)});
  }

  // The lines on a control that lets a file be edited, in whose Language Editor they happen.
  Lines In_Editor(const Lines& lines) const {
    Lines all = {R"({"do":"new"})",
                 R"({"do":"let","member":"Consider_this_Lang_File_to_Add","value":)" +
                     Quoted(language) + "}",
                 R"({"do":"press","on":"Command4"})", R"({"do":"click","on":"Splash.Command2"})"};
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
  }
  std::string Error_Text(const Json& id) const {
    const Json reply = Reply(id);
    return reply.contains("error") ? reply["error"]["text"].get<std::string>() : reply.dump();
  }
  Lines Windows_Told() const {
    Lines names;
    for (const Json& line : Told("window")) {
      const Json& window = line["window"];
      names.push_back(window["name"].get<std::string>() +
                      (window["shown"] == true ? " shown" : " gone"));
    }
    return names;
  }

  std::string language;
};

TEST_F(HostForms, What_opens_a_modal_window_is_answered_when_that_is_closed) {
  Host_Input(R"({"id":1,"do":"new"}
{"id":2,"do":"get","member":"Noise_Sensitivity"}
{"id":3,"do":"run","ms":50}
{"id":4,"do":"close","on":"Help"}
{"id":5,"do":"get","member":"Noise_Sensitivity"}
)");
  Lines order;
  for (const Json& line : told) {
    if (line.contains("id")) order.push_back(line["id"].dump());
  }
  EXPECT_EQ(order, Lines({"2", "3", "4", "1", "5"}));
  EXPECT_EQ(Value(2), 3);
}

TEST_F(HostForms, A_window_that_is_opened_from_another_has_its_place_in_the_order_too) {
  Host(In_Editor({R"({"id":1,"do":"menu","on":"Database.mnuHelp"})", R"({"id":2,"do":"windows"})",
                  R"({"id":3,"do":"close","on":"Help"})",
                  R"({"id":4,"do":"close","on":"Database"})"}));
  EXPECT_LT(Place_Of({{"id", 2}}), Place_Of({{"id", 3}}));
  EXPECT_LT(Place_Of({{"id", 3}}), Place_Of({{"id", 1}}));
  EXPECT_LT(Place_Of({{"id", 1}}), Place_Of({{"id", 4}}));
  ASSERT_EQ(Value(2).size(), 2U);
  EXPECT_EQ(Value(2)[0]["name"], "Database");
  EXPECT_EQ(Value(2)[1]["name"], "Help");
}

TEST_F(HostForms, The_windows_on_show_are_listed_the_foremost_last) {
  Host_Input(R"({"id":1,"do":"windows"}
{"do":"new"}
{"id":2,"do":"windows"}
)");
  EXPECT_EQ(Value(1), Json::array());
  ASSERT_EQ(Value(2).size(), 1U);
  EXPECT_EQ(Keys(Value(2)[0]), Lines({"name", "caption", "modal"}));
  EXPECT_EQ(Value(2)[0]["name"], "Help");
  EXPECT_EQ(Value(2)[0]["modal"], true);
}

TEST_F(HostForms, A_window_that_is_not_modal_lets_its_request_go_on) {
  Lines lines = In_Editor({R"({"id":1,"do":"windows"})", R"({"id":2,"do":"press","on":"Frame1"})"});
  lines.insert(lines.begin(), R"({"do":"program","path":"C:\\tools\\vb6.exe"})");
  const auto click = std::ranges::find(lines, R"({"do":"click","on":"Splash.Command2"})");
  *click = R"({"id":0,"do":"click","on":"Splash.Command2"})";
  Host(lines);
  EXPECT_EQ(Value(1)[0]["name"], "Database");
  EXPECT_EQ(Value(1)[0]["modal"], false);
  EXPECT_LT(Place_Of({{"id", 0}}), Place_Of({{"id", 1}}));
  EXPECT_EQ(Reply(2)["ok"], true);
}

TEST_F(HostForms, Nobody_reaches_what_lies_behind_a_modal_window) {
  Host(In_Editor({R"({"do":"menu","on":"Database.mnuHelp"})",
                  R"({"id":1,"do":"click","on":"Database.Command9"})",
                  R"({"id":2,"do":"type","on":"Database.Combo5","text":"x"})",
                  R"({"id":3,"do":"close","on":"Database"})",
                  R"({"id":4,"do":"press","on":"Command1"})",
                  R"({"id":5,"do":"read","on":"Database.Combo5"})"}));
  for (const int id : {1, 2, 3}) {
    EXPECT_EQ(Error_Text(id), "Database waits until Help is closed") << id;
  }
  EXPECT_EQ(Error_Text(4), "the face waits until Help is closed");
  EXPECT_EQ(Value(5)["text"], "low");
}

TEST_F(HostForms, A_click_on_a_window_itself_or_on_an_image_is_one_too) {
  Lines lines =
      In_Editor({R"({"do":"close","on":"Database"})", R"({"do":"call","member":"AboutBox"})",
                 R"({"id":1,"do":"click","on":"Help.Image1"})"});
  std::ranges::replace(lines, R"({"do":"click","on":"Splash.Command2"})",
                       R"({"id":2,"do":"click","on":"Splash"})");
  Host(lines);
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Reply(2)["ok"], true);
  EXPECT_EQ(Windows_Told(), Lines({"Help shown", "Help gone", "Splash shown", "Splash gone",
                                   "Database shown", "Database gone", "Help shown", "Help gone"}));
}

TEST_F(HostForms, A_menu_entry_is_chosen_by_its_name) {
  Host(In_Editor({R"({"id":1,"do":"menu","on":"Database.mnuNext"})",
                  R"({"id":2,"do":"read","on":"Database.Combo5"})",
                  R"({"id":3,"do":"menu","on":"Database.mnuRecord"})",
                  R"({"id":4,"do":"menu","on":"Database.Combo5"})",
                  R"({"id":5,"do":"click","on":"Database.mnuNext"})"}));
  EXPECT_EQ(Value(2)["text"], "high");
  EXPECT_EQ(Error_Text(3), "Database.mnuRecord does not take a choice now");
  EXPECT_EQ(Error_Text(4), "Database.Combo5 is no menu");
  EXPECT_EQ(Error_Text(5), R"(Database.mnuNext is a menu: use "menu")");
}

TEST_F(HostForms, What_is_typed_stands_there_and_is_no_item_that_was_chosen) {
  Host(In_Editor({R"({"do":"select","on":"Database.Combo5","index":0})",
                  R"({"id":1,"do":"read","on":"Database.Combo5"})",
                  R"({"do":"type","on":"Database.Combo5","text":"gr\u00fcn"})",
                  R"({"id":2,"do":"read","on":"Database.Combo5"})"}));
  EXPECT_EQ(Value(1).dump(),
            R"({"text":"low","items":["low"],"index":0,"enabled":true,"visible":true})");
  EXPECT_EQ(Value(2)["text"], "gr\u00fcn");
  EXPECT_EQ(Value(2)["index"], -1);
}

TEST_F(HostForms, Typing_is_checked_as_a_person_types) {
  Host(In_Editor({R"({"do":"type","on":"Database.Combo10","text":"300"})",
                  R"({"id":1,"do":"read","on":"Database.Combo10"})"}));
  EXPECT_EQ(Value(1)["text"], "100");
}

TEST_F(HostForms, A_key_reaches_the_handlers_and_then_the_text) {
  Host(In_Editor({R"({"do":"key","on":"Database.Combo5","key":"s"})",
                  R"({"do":"key","on":"Database.Combo5","key":"Space"})",
                  R"({"do":"key","on":"Database","key":"!"})",
                  R"({"id":1,"do":"read","on":"Database.Combo5"})",
                  R"({"do":"key","on":"Database","key":"Backspace"})",
                  R"({"id":2,"do":"read","on":"Database.Combo5"})",
                  R"({"do":"answer","with":["No"]})",
                  R"({"id":3,"do":"key","on":"Database.Combo5","key":"Enter"})"}));
  EXPECT_EQ(Value(1)["text"], "lows !");
  EXPECT_EQ(Value(2)["text"], "lows ");
  ASSERT_EQ(Told("box").size(), 1U);
  EXPECT_EQ(Told("box")[0]["box"]["answer"], "No");
  EXPECT_LT(Place_Of(Told("box")[0]), Place_Of({{"id", 3}}));
}

TEST_F(HostForms, Space_presses_a_button) {
  Host(In_Editor({R"({"do":"key","on":"Database.NextHit","key":"Space"})",
                  R"({"id":1,"do":"read","on":"Database.Combo5"})"}));
  EXPECT_EQ(Value(1)["text"], "high");
}

TEST_F(HostForms, A_key_may_close_the_window) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"AboutBox"})",
        R"({"id":1,"do":"key","on":"Help","key":"x"})", R"({"id":2,"do":"windows"})"});
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Value(2), Json::array());
}

TEST_F(HostForms, Each_kind_of_part_tells_what_it_shows) {
  Host(In_Editor({R"({"id":1,"do":"read","on":"Database"})",
                  R"({"id":2,"do":"read","on":"Database.Command9"})",
                  R"({"id":3,"do":"read","on":"Database.TFNam"})",
                  R"({"id":4,"do":"read","on":"Database.mnuRecord"})",
                  R"({"id":5,"do":"read","on":"Database.Label11"})"}));
  EXPECT_EQ(Keys(Value(1))[0], "caption");
  EXPECT_EQ(Value(2).dump(), R"({"caption":" Prepare New","enabled":true,"visible":true})");
  EXPECT_EQ(Value(3)["text"], language);
  EXPECT_EQ(Value(4).dump(), R"({"caption":"Record","enabled":true,"visible":true})");
  EXPECT_EQ(Value(5)["caption"], "1");
}

TEST_F(HostForms, A_drawing_tells_its_scale_and_its_operations) {
  Host_Input(R"({"do":"new"}
{"id":1,"do":"read","on":"Help.Image1"}
)");
  const Json drawing = Value(1)["drawing"];
  EXPECT_EQ(Keys(drawing), Lines({"scale", "operations"}));
  EXPECT_EQ(drawing["scale"].size(), 4U);
  ASSERT_FALSE(drawing["operations"].empty());
  const Json first = drawing["operations"][0];
  EXPECT_TRUE(first.contains("draw")) << first;
  EXPECT_EQ(first["colour"].get<std::string>().size(), 7U);
}

TEST_F(HostForms, What_a_person_could_not_do_is_refused) {
  struct Case {
    const char* request;
    const char* text;
  };
  const std::vector<Case> cases = {
      {R"("do":"click","on":"Nowhere.Command1")", R"(no window "Nowhere" is on show)"},
      {R"("do":"close","on":"Help")", R"(no window "Help" is on show)"},
      {R"("do":"read","on":"DataDisplay")", R"(no window "DataDisplay" is on show)"},
      {R"("do":"read","on":"Database.Command99")", R"(Database has no part "Command99")"},
      {R"("do":"click","on":"Database.Combo5")", R"(Database.Combo5 is a list: use "select")"},
      {R"("do":"type","on":"Database.Label11","text":"x")",
       "Database.Label11 does not take a text now"},
      {R"("do":"type","on":"Database.mnuNext","text":"x")",
       "Database.mnuNext is no control of a window"},
      {R"("do":"type","on":"Database","text":"x")", "Database is no control of a window"},
      {R"("do":"type","on":"Database.Combo5")", R"(the request needs "text")"},
      {R"("do":"select","on":"Database.Command9","index":0)", "Database.Command9 is no list"},
      {R"("do":"select","on":"Database.Combo5","index":7)",
       "Database.Combo5 does not take item 7 now"},
      {R"("do":"close","on":"Database.Combo5")", "Database.Combo5 is no window"},
      {R"("do":"key","on":"Database.mnuNext","key":"x")",
       R"(Database.mnuNext is a menu: use "menu")"},
      {R"("do":"key","on":"Database.Combo5","key":"Return")",
       R"("key" must be one character or Enter, Escape, Backspace or Space)"},
      {R"("do":"click","on":"Database.Command3")",
       "Database.Command3 does not take a click now"},  // hidden: no live session stands behind
      {R"("do":"menu","on":"Database.mnuDCM")", "Database.mnuDCM does not take a choice now"},
  };
  Lines lines;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    lines.push_back(R"({"id":)" + std::to_string(i) + "," + cases[i].request + "}");
  }
  Host(In_Editor(lines));
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(Error_Text(i), cases[i].text) << cases[i].request;
    EXPECT_EQ(Error_Number(i), 0) << cases[i].request;
  }
}

TEST_F(HostForms, An_input_box_takes_the_next_answer_and_is_told) {
  Host(In_Editor({R"({"do":"answer","with":["2"]})", R"({"do":"menu","on":"Database.mnuNumber"})",
                  R"({"id":1,"do":"read","on":"Database.Combo5"})"}));
  ASSERT_EQ(Told("input").size(), 1U);
  EXPECT_EQ(
      Told("input")[0].dump(),
      R"({"input":{"title":"Find:","prompt":"Enter Reference Number","text":"","answer":"2"}})");
  EXPECT_EQ(Value(1)["text"], "high");
}

TEST_F(HostForms, A_file_dialog_takes_the_next_answer_and_is_told) {
  const std::string other = Put_Language("other.SAY", {Record().Number(1).Word("else", 100)});
  Host(In_Editor({R"({"do":"answer","with":[)" + Quoted(other) + "]}",
                  R"({"do":"click","on":"Database.Command1"})",
                  R"({"id":1,"do":"read","on":"Database.Combo5"})"}));
  ASSERT_EQ(Told("file_dialog").size(), 1U);
  const Json dialog = Told("file_dialog")[0]["file_dialog"];
  EXPECT_EQ(Keys(dialog), Lines({"title", "pattern", "name", "answer"}));
  EXPECT_EQ(dialog["pattern"], "*.SAY");
  EXPECT_EQ(dialog["answer"], other);
  EXPECT_EQ(Value(1)["text"], "else");
}

TEST_F(HostForms, Null_and_no_answer_cancel_an_input_box) {
  for (const char* const with : {"[null]", "[]"}) {
    Host(In_Editor({R"({"do":"answer","with":)" + std::string(with) + "}",
                    R"({"do":"menu","on":"Database.mnuNumber"})"}));
    ASSERT_EQ(Told("input").size(), 1U);
    EXPECT_EQ(Told("input")[0]["input"]["answer"], nullptr);
    EXPECT_TRUE(Told("box").empty());
  }
}

TEST_F(HostForms, An_answer_is_of_characters_that_the_control_has) {
  Host({R"({"id":1,"do":"answer","with":["\u4e00"]})"});
  EXPECT_EQ(Error_Number(1), 0);
  EXPECT_NE(Error_Text(1).find("Windows-1252"), std::string::npos);
}

TEST_F(HostForms, Requests_that_wait_inside_each_other_come_to_an_end) {
  Lines lines = In_Editor({});
  const auto call = [&](const char* member) {
    lines.push_back(R"({"do":"call","member":")" + std::string(member) + R"("})");
  };
  for (int round = 0; round < 200; ++round) {
    call("AboutBox");
    call("SHOW_LANGUAGE_EDITOR");
    lines.emplace_back(R"({"do":"click","on":"Splash.Command2"})");
    lines.emplace_back(R"({"do":"close","on":"Database"})");
    call("SHOW_LANGUAGE_EDITOR");
    lines.emplace_back(R"({"do":"click","on":"Splash.Command2"})");
    call("AboutBox");
    lines.emplace_back(R"({"do":"close","on":"Help"})");
  }
  lines.emplace_back(R"({"id":1,"do":"call","member":"AboutBox"})");
  lines.emplace_back(R"({"id":2,"do":"get","member":"Noise_Sensitivity"})");
  Host(lines);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Error_Text(1), "too many requests wait inside each other");
  EXPECT_EQ(Value(2), 3);
}

TEST_F(HostForms, An_unknown_word_that_is_entered_in_the_editor_is_recognised_the_next_time) {
  const std::string wave = Put_Sound("low.wav", Low_Word());
  const std::string own = Put_Language("own.SAY", {Record().Number(1)});
  const auto let = [](const std::string& member, const std::string& value) {
    return R"({"do":"let","member":")" + member + R"(","value":)" + Quoted(value) + "}";
  };
  Host({R"({"do":"new"})",
        let("Consider_this_Lang_File_to_match", own),
        let("Consider_this_Lang_File_to_Add", own),
        let("Notify_if_no_language_match", "YES"),
        R"({"do":"answer","with":["Yes","Yes","Yes"]})",
        R"({"do":"call","member":"Start_Real_Action"})",
        R"({"id":1,"do":"run","ms":5000})",
        R"({"id":2,"do":"windows"})",
        R"({"do":"type","on":"Database.Combo5","text":"low"})",
        R"({"do":"type","on":"Database.Combo10","text":"100"})",
        R"({"do":"click","on":"Database.Command14"})",
        R"({"do":"click","on":"Database.Command3"})",
        R"({"id":3,"do":"read","on":"Database.Combo2"})",
        R"({"do":"click","on":"Database.Command16"})",
        R"({"do":"click","on":"Database.Command8"})",
        R"({"id":4,"do":"windows"})",
        R"({"do":"run","ms":500})",
        R"({"do":"play","file":)" + Quoted(wave) + "}",
        R"({"do":"run","ms":12000})",
        R"({"id":5,"do":"get","member":"Platinum_Word_Best"})"},
       {"--microphone", wave + "@0.5"});
  ASSERT_EQ(Value(2).size(), 1U) << out;
  EXPECT_EQ(Value(2)[0]["name"], "Database");
  EXPECT_EQ(Value(2)[0]["modal"], true);
  EXPECT_EQ(Value(3)["text"], Low_Pattern);
  EXPECT_EQ(Value(4), Json::array());
  EXPECT_EQ(Value(5), "low") << out;
  EXPECT_TRUE(std::ranges::any_of(Told("event"), [](const Json& line) {
    return line["event"] == "SpokenWordConvertedToText" && line["TheBestPercentageWord"] == "low";
  }));
}

TEST_F(HostForms, The_end_of_the_input_closes_all_windows_and_answers_what_opened_them) {
  Host(In_Editor({R"({"id":1,"do":"menu","on":"Database.mnuHelp"})"}));
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Windows_Told(), Lines({"Help shown", "Help gone", "Splash shown", "Splash gone",
                                   "Database shown", "Help shown", "Database gone", "Help gone"}));
}

TEST_F(HostForms, A_control_can_end_while_a_window_is_open) {
  Host(In_Editor({R"({"id":1,"do":"end"})", R"({"id":2,"do":"windows"})",
                  R"({"id":3,"do":"run","ms":1000})"}));
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Value(2), Json::array());
  EXPECT_EQ(Reply(3)["ok"], true);
}

}  // namespace
}  // namespace quillspeech::tests
