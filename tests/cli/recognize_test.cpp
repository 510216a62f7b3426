#include "cli/recognize.hpp"

#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class Recognize : public CommandTest {};

using Names = std::vector<std::string>;

const Names Plain_Keys = {"file",
                          "Operation_Status",
                          "Probable_no_of_words_recognized",
                          "words",
                          "Voice_Magic_Elements",
                          "Voice_Word",
                          "Filter_Filled_Slots",
                          "slots",
                          "Platinum_Words_Available",
                          "Platinum_Words",
                          "Platinum_Best",
                          "Platinum_Word_Font",
                          "No_Language_Match",
                          "boxes",
                          "failures"};

// What JSON holds.

TEST_F(Recognize, Json_has_its_keys_in_this_order) {
  const auto json = Recognize_As_Json({Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(Keys(json), Plain_Keys);
  EXPECT_EQ(Keys(json["words"][0]), (Names{"number", "start", "end", "length"}));
  EXPECT_EQ(Keys(json["slots"][0]), (Names{"text", "weight"}));
}

TEST_F(Recognize, A_trace_puts_the_slices_behind_the_words) {
  const auto json = Recognize_As_Json({"--trace", Put_Sound("low.wav", Low_Word())});
  Names keys = Plain_Keys;
  keys.insert(keys.begin() + 4, "slices");
  EXPECT_EQ(Keys(json), keys);
  ASSERT_EQ(json["slices"].size(), 18U);
  EXPECT_EQ(Keys(json["slices"][0]),
            (Names{"word", "deep", "too_deep", "first", "last", "category"}));
}

TEST_F(Recognize, A_file_gives_its_words_its_slots_and_its_pattern) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto json = Recognize_As_Json({file});
  EXPECT_EQ(json["file"], file);
  EXPECT_EQ(json["Probable_no_of_words_recognized"], 1);
  EXPECT_EQ(json["words"].dump(), R"([{"number":1,"start":3025,"end":11974,"length":8949}])");
  EXPECT_EQ(json["Voice_Magic_Elements"], "_12_4");
  EXPECT_EQ(json["Voice_Word"], Low_Pattern);
  EXPECT_EQ(json["Filter_Filled_Slots"], 2);
  EXPECT_EQ(json["slots"].dump(),
            R"([{"text":"oa","weight":12},{"text":"dbtrvgpunmle","weight":4}])");
  EXPECT_EQ(json["boxes"], Json::array());
  EXPECT_EQ(json["failures"], Json::array());
}

TEST_F(Recognize, Slices_of_a_file_do_not_overlap) {
  const auto json = Recognize_As_Json({"--trace", Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["slices"][0].dump(),
            R"({"word":1,"deep":0,"too_deep":0,"first":3025,"last":3525,"category":6})");
  EXPECT_EQ(json["slices"][1]["first"], 3525);
  EXPECT_EQ(json["slices"][17]["last"], 12025);
}

TEST_F(Recognize, Slices_of_a_capture_reach_back_by_300_bytes) {
  const auto json =
      Recognize_As_Json({"--trace", "--path", "live", Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["slices"][0]["first"], 3025);
  EXPECT_EQ(json["slices"][1]["first"], 3225);
  EXPECT_EQ(json["slices"][1]["last"], 4025);
}

TEST_F(Recognize, A_capture_is_longer_than_its_sound_by_the_level) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto with_128 = Recognize_As_Json({"--path", "live", file});
  const auto with_256 = Recognize_As_Json(
      {"--path", "live", "--set", "Keep_Digital_Signal_Processing_level=Top", file});
  // The end of a word is counted from the last byte of the capture in steps of 25.
  EXPECT_EQ(with_128["words"].dump(), R"([{"number":1,"start":3025,"end":11952,"length":8927}])");
  EXPECT_EQ(with_256["words"][0]["end"], 11955);
  EXPECT_EQ(with_128["Operation_Status"], "Finish");
}

TEST_F(Recognize, A_slice_that_was_noise_has_no_category) {
  const Sound quiet_start =
      Silence(Bytes(3000)) + Tone(500_Hz, Amplitude(8), Bytes(6000)) + Silence(Bytes(9000));
  const auto json = Recognize_As_Json({"--trace", "--set", "Sample_processing_resolution=2000",
                                       Put_Sound("quiet.wav", quiet_start)});
  ASSERT_FALSE(json["slices"].empty());
  EXPECT_TRUE(json["slices"][0]["category"].is_null());
}

TEST_F(Recognize, A_language_file_turns_the_pattern_into_ranked_words) {
  const auto language =
      Put_Language("w.SAY", {Record().Word("low", 60).Word("deep", 100).Pattern("oa*", 100),
                             Record().Word("loud").Pattern("*e", 40).Font("Arial")});
  const auto json = Recognize_As_Json({"--language", language, Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["Platinum_Words_Available"], 3);
  EXPECT_EQ(json["Platinum_Words"].dump(),
            R"([{"word":"low","percentage":70},{"word":"deep","percentage":80},)"
            R"({"word":"loud","percentage":50}])");
  EXPECT_EQ(json["Platinum_Best"].dump(), R"(["deep","low","loud","","","",""])");
  EXPECT_EQ(json["Platinum_Word_Font"], "Arial");
  EXPECT_EQ(json["No_Language_Match"], false);
  EXPECT_EQ(json["Operation_Status"], "IntelligentFinish");
}

TEST_F(Recognize, A_pattern_that_no_record_knows_is_no_match) {
  const auto language = Put_Language("w.SAY", {Record().Word("high").Pattern("s*")});
  const auto json = Recognize_As_Json({"--language", language, Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["No_Language_Match"], true);
  EXPECT_EQ(json["Platinum_Best"][0], "");
}

TEST_F(Recognize, Words_leave_Windows_1252_as_UTF_8) {
  const auto language = Put_Language("w.SAY", {Record().Word("gr\xFC\xDF").Pattern("oa*")});
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto json = Recognize_As_Json({"--language", language, file});
  EXPECT_EQ(json["Platinum_Best"][0], "gr\xC3\xBC\xC3\x9F");
}

TEST_F(Recognize, Without_a_language_no_file_is_matched_or_made) {
  const auto json = Recognize_As_Json({Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["Platinum_Words_Available"], 0);
  EXPECT_EQ(json["No_Language_Match"], false);
  EXPECT_FALSE(std::filesystem::exists("UserTemp.SAY"));
}

TEST_F(Recognize, A_box_with_a_question_is_answered_No) {
  const auto language = Put_Language("w.SAY", {Record().Word("high").Pattern("s*")});
  const auto json =
      Recognize_As_Json({"--language", language, "--set", "Notify_if_no_language_match=YES",
                         Put_Sound("low.wav", Low_Word())});
  ASSERT_EQ(json["boxes"].size(), 1U);
  EXPECT_EQ(Keys(json["boxes"][0]), (Names{"title", "text", "buttons", "icon", "answer"}));
  EXPECT_EQ(json["boxes"][0]["buttons"], "YesNo");
  EXPECT_EQ(json["boxes"][0]["icon"], "none");
  EXPECT_EQ(json["boxes"][0]["answer"], "No");
}

TEST_F(Recognize, A_member_whose_getter_fails_is_null) {
  const auto json =
      Recognize_As_Json({"--set", "Send_of_no=500", Put_Sound("low.wav", Low_Word())});
  EXPECT_TRUE(json["Voice_Word"].is_null());
}

// Padding.

TEST_F(Recognize, A_padded_sound_stands_in_the_middle_of_its_capture) {
  const auto file = Put_Sound("low.wav", Low_Word());
  // 7,000 ms are 154,350 bytes; 133,350 of silence, half of them in front of the 21,000.
  const auto json = Recognize_As_Json({"--pad", "7000", file});
  EXPECT_EQ(json["words"].dump(), R"([{"number":1,"start":69700,"end":78649,"length":8949}])");
}

TEST_F(Recognize, A_sound_that_is_as_long_as_the_padding_stays) {
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Recognize_As_Json({"--pad", "900", file}), Recognize_As_Json({file}));
}

TEST_F(Recognize, A_bare_word_is_found_once_it_is_padded) {
  const auto file = Put_Sound("bare.wav", Tone(500_Hz, Amplitude(90), Bytes(6000)));
  EXPECT_EQ(Recognize_As_Json({file})["Voice_Word"], "");
  EXPECT_EQ(Recognize_As_Json({"--pad", "2000", file})["Voice_Word"], "oa");
  EXPECT_EQ(Recognize_As_Json({"--path", "live", "--pad", "2000", file})["Voice_Word"], "oa");
}

// Settings.

TEST_F(Recognize, Settings_reach_the_run_in_their_order) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto json =
      Recognize_As_Json({"--set", "Filter_Pass_Value=1", "--set", "Filter_Pass_Value=5", file});
  EXPECT_EQ(json["Voice_Word"], "oa");  // the second tone weighs 4
}

TEST_F(Recognize, An_engine_file_spells_the_categories_its_own_way) {
  const auto engine = Put("e.EGN", Engine_File({{4, "x"}, {6, "y"}}));
  const auto json = Recognize_As_Json({"--engine", engine, Put_Sound("low.wav", Low_Word())});
  EXPECT_EQ(json["Voice_Word"], "yx");
}

// Failures.

TEST_F(Recognize, A_file_that_cannot_be_read_fails_and_the_others_still_run) {
  const auto low = Put_Sound("low.wav", Low_Word());
  const auto text = Put_Text("text.wav", "no sound at all");
  EXPECT_EQ(Run({"recognize", "--json", Path("missing.wav"), low, text}), 1);
  const auto lines = Json_Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0]["boxes"][0].dump(),
            R"({"title":"Quillspeech Wave ERROR",)"
            R"("text":"Sorry ! Couldn't open the wav file you specified.",)"
            R"("buttons":"OK","icon":"stop","answer":"OK"})");
  EXPECT_EQ(lines[1]["Voice_Word"], Low_Pattern);
  EXPECT_EQ(lines[2]["boxes"][0]["text"], "Corrupt Wavechunk.");
  EXPECT_EQ(err, "quillspeech: " + Path("missing.wav") +
                     ": Sorry ! Couldn't open the wav file you specified.\n" +
                     "quillspeech: " + text + ": Corrupt Wavechunk.\n");
}

TEST_F(Recognize, A_sound_of_fewer_than_a_thousand_bytes_fails) {
  for (const auto* path : {"file", "live"}) {
    EXPECT_EQ(Run({"recognize", "--path", path, Put_Sound("short.wav", Silence(Bytes(800)))}), 1)
        << path;
    EXPECT_NE(err.find("'CANNOT PROCESS' Code : PA"), std::string::npos);
  }
}

TEST_F(Recognize, Forty_seconds_of_unbroken_sound_fail_with_a_hint) {
  const auto file = Put_Sound("loud.wav", Level(200, Bytes(40 * 22050)));
  EXPECT_EQ(Run({"recognize", "--json", file}), 1);
  EXPECT_EQ(Json_Lines().at(0)["failures"], Json::array({6}));
  EXPECT_NE(err.find("about 37 seconds of unbroken sound; cut the recording or raise "
                     "Noise_Sensitivity"),
            std::string::npos);
}

TEST_F(Recognize, An_overflow_without_such_sound_has_no_such_hint) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto language = Put_Language("w.SAY", {Record().Word("x").Pattern("*", 32000)});
  EXPECT_EQ(Run({"recognize", "--language", language, file}), 1);
  EXPECT_NE(err.find("run-time failure 6: a number is too large for its field"), std::string::npos);
}

TEST_F(Recognize, A_broken_pattern_is_named_as_the_reason) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto language = Put_Language("w.SAY", {Record().Word("x").Pattern("[a")});
  EXPECT_EQ(Run({"recognize", "--json", "--language", language, file}), 1);
  EXPECT_EQ(Json_Lines().at(0)["failures"], Json::array({93}));
  EXPECT_NE(err.find("bad pattern in the language file"), std::string::npos);
}

TEST_F(Recognize, A_file_without_a_match_is_no_failure) {
  const auto language = Put_Language("w.SAY", {Record().Word("high").Pattern("s*")});
  EXPECT_EQ(Run({"recognize", "--language", language, Put_Sound("low.wav", Low_Word())}), 0);
}

TEST_F(Recognize, A_language_file_that_does_not_exist_is_announced) {
  EXPECT_EQ(Run({"recognize", "--language", Path("new.SAY"), Put_Sound("low.wav", Low_Word())}), 0);
  EXPECT_NE(err.find("there is no language file " + Path("new.SAY")), std::string::npos);
  EXPECT_EQ(Content("new.SAY").size(), 8476U);
}

// Text.

TEST_F(Recognize, Text_shows_the_pattern_and_the_ranked_words) {
  const auto language =
      Put_Language("w.SAY", {Record().Word("low", 60).Word("deep", 100).Pattern("oa*", 100)});
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Run({"recognize", "--language", language, file}), 0);
  EXPECT_EQ(out, file +
                     "\n"
                     "  pattern  oadbtrvgpunmle\n"
                     "  words    1  deep  80 %\n"
                     "           2  low   70 %\n");
}

TEST_F(Recognize, Text_shows_message_boxes) {
  Run({"recognize", Path("missing.wav")});
  EXPECT_EQ(out, Path("missing.wav") +
                     "\n"
                     "  pattern  (none)\n"
                     "  box      Quillspeech Wave ERROR: Sorry ! Couldn't open the wav file you "
                     "specified.\n");
}

TEST_F(Recognize, Only_a_terminal_gets_colour) {
  const auto file = Put_Sound("low.wav", Low_Word());
  Run({"recognize", file});
  EXPECT_EQ(out.find('\x1b'), std::string::npos);
  colour = true;
  Run({"recognize", file});
  EXPECT_NE(out.find('\x1b'), std::string::npos);
  Run({"recognize", "--json", file});
  EXPECT_EQ(out.find('\x1b'), std::string::npos);
}

// Many files.

TEST_F(Recognize, Results_stand_in_the_order_of_the_files_with_any_number_of_jobs) {
  std::vector<std::string> arguments = {"recognize", "--json"};
  for (int i = 0; i < 24; ++i) {
    const Sound sound = i % 5 == 0 ? Low_Word() + Low_Word() + Low_Word() : High_Word();
    arguments.push_back(Put_Sound(std::to_string(i) + ".wav", sound));
  }
  Run(arguments);
  const std::string one_by_one = out;
  ASSERT_EQ(Json_Lines().size(), 24U);
  for (const auto* jobs : {"2", "7", "0"}) {
    auto with_jobs = arguments;
    with_jobs.insert(with_jobs.begin() + 1, {"--jobs", jobs});
    Run(with_jobs);
    EXPECT_EQ(out, one_by_one) << jobs;
  }
}

TEST_F(Recognize, Jobs_may_share_a_language_file) {
  const auto language = Put_Language(
      "w.SAY", {Record().Word("low").Pattern("oa*"), Record().Word("high").Pattern("fth*")});
  std::vector<std::string> arguments = {"recognize", "--json",     "--jobs",
                                        "4",         "--language", language};
  for (int i = 0; i < 40; ++i) {
    arguments.push_back(
        Put_Sound(std::to_string(i) + ".wav", i % 2 == 0 ? Low_Word() : High_Word()));
  }
  EXPECT_EQ(Run(arguments), 0) << err;
  const auto lines = Json_Lines();
  ASSERT_EQ(lines.size(), 40U);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i]["Platinum_Best"][0], i % 2 == 0 ? "low" : "high");
  }
}

TEST_F(Recognize, Files_do_not_see_each_other) {
  const auto low = Put_Sound("low.wav", Low_Word());
  const auto high = Put_Sound("high.wav", High_Word());
  Run({"recognize", "--json", "--trace", low, high, low});
  const auto lines = Json_Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], lines[2]);
}

TEST_F(Recognize, A_dash_reads_names_from_standard_input) {
  const auto low = Put_Sound("low.wav", Low_Word());
  const auto high = Put_Sound("high.wav", High_Word());
  EXPECT_EQ(Run({"recognize", "--json", "-", low}, high + "\n\n" + low + "\r\n" + high), 0);
  std::vector<std::string> patterns;
  for (const auto& line : Json_Lines()) patterns.push_back(line["Voice_Word"]);
  EXPECT_EQ(patterns, (Names{High_Pattern, Low_Pattern, High_Pattern, Low_Pattern}));
}

TEST_F(Recognize, An_interrupted_run_ends_before_the_next_file) {
  interrupted = true;
  EXPECT_EQ(Run({"recognize", Put_Sound("low.wav", Low_Word())}), 130);
  EXPECT_EQ(out, "");
}

// The graph.

TEST_F(Recognize, A_graph_is_drawn_of_one_file) {
  const auto file = Put_Sound("two.wav", Low_Word() + High_Word());
  EXPECT_EQ(Run({"recognize", "--graph", Path("g.svg"), file}), 0) << err;
  const auto bytes = Content("g.svg");
  const std::string svg(bytes.begin(), bytes.end());
  EXPECT_NE(svg.find("#ff0000"), std::string::npos);
  EXPECT_NE(svg.find("#ffff00"), std::string::npos);
  EXPECT_NE(svg.find("<polyline"), std::string::npos);
}

TEST_F(Recognize, The_graph_changes_no_result) {
  const auto file = Put_Sound("two.wav", Low_Word() + High_Word());
  const auto plain = Recognize_As_Json({"--trace", file});
  EXPECT_EQ(Recognize_As_Json({"--trace", "--graph", Path("g.svg"), file}), plain);
}

TEST_F(Recognize, A_graph_of_several_files_is_wrong_usage) {
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Run({"recognize", "--graph", Path("g.svg"), file, file}), 2);
  EXPECT_EQ(Run({"recognize", "--graph", Path("g.svg"), "-"}, file), 2);
  EXPECT_EQ(out, "");
  EXPECT_FALSE(Exists("g.svg"));
}

TEST_F(Recognize, A_graph_in_the_place_of_a_file_that_the_run_reads_is_wrong_usage) {
  const auto file = Put_Sound("low.wav", Low_Word());
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto engine = Put("e.EGN", Engine_File({{4, "x"}, {6, "y"}}));
  std::filesystem::create_symlink(language, Path("link.svg"));
  const auto before = Content("w.SAY");
  for (const auto& graph : {file, language, engine, Path("link.svg"), Path("./e.EGN")}) {
    EXPECT_EQ(
        Run({"recognize", "--language", language, "--engine", engine, "--graph", graph, file}), 2)
        << graph;
    EXPECT_EQ(err, "quillspeech: --graph: " + graph + " is a file that the run reads\n");
    EXPECT_EQ(out, "");
  }
  EXPECT_EQ(Content("w.SAY"), before);
  EXPECT_EQ(Run({"recognize", "--language", Path("new.SAY"), "--graph", Path("new.SAY"), file}), 2);
}

TEST_F(Recognize, A_trace_without_JSON_is_told_to_be_useless) {
  EXPECT_EQ(Run({"recognize", "--trace", Put_Sound("low.wav", Low_Word())}), 0);
  EXPECT_EQ(err, "quillspeech: note: --trace tells nothing without --json\n");
}

TEST_F(Recognize, A_graph_that_cannot_be_drawn_or_written_is_a_failure) {
  const auto file = Put_Sound("low.wav", Low_Word());
  EXPECT_EQ(Run({"recognize", "--graph", Path("no/g.svg"), file}), 1);
  EXPECT_NE(err.find("no/g.svg"), std::string::npos);
  EXPECT_EQ(Run({"recognize", "--graph", Path("g.svg"), "--set", "Show_Audio_Graph=NO", file}), 1);
  EXPECT_NE(err.find("no graph was drawn"), std::string::npos);
  EXPECT_FALSE(Exists("g.svg"));
}

}  // namespace
}  // namespace quillspeech::tests
