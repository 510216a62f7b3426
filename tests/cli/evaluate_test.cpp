#include "cli/evaluate.hpp"

#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class Evaluate : public CommandTest {
 protected:
  // Both words know the low pattern, and the wrong one comes first.
  std::string Confused_Language() {
    return Put_Language("w.SAY", {Record().Word("deep").Pattern("x").Pattern("oa*"),
                                  Record().Word("low", 90).Pattern("oadb*"),
                                  Record().Word("other", 0).Pattern("*", 0),
                                  Record().Word("high").Pattern("fth*", 100)});
  }
};

TEST_F(Evaluate, Right_wrong_missing_and_failed_answers_are_counted) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto right = Put_Sound("low_1.wav", Low_Word());
  const auto wrong = Put_Sound("deep_1.wav", Low_Word());
  const auto none = Put_Sound("high_1.wav", High_Word());
  EXPECT_EQ(Run({"evaluate", "--json", "--language", language, right, wrong, none,
                 Path("missing_1.wav")}),
            1);
  const auto json = Json_Lines().at(0);
  EXPECT_EQ(Keys(json), (std::vector<std::string>{"files", "right", "wrong", "no_answer", "failed",
                                                  "confusions", "shared_patterns", "answers"}));
  EXPECT_EQ(json["files"], 4);
  EXPECT_EQ(json["right"], 1);
  EXPECT_EQ(json["wrong"], 1);
  EXPECT_EQ(json["no_answer"], 1);
  EXPECT_EQ(json["failed"], 1);
  EXPECT_EQ(json["answers"][0]["outcome"], "right");
  EXPECT_EQ(json["answers"][0]["percentage"], 80);
  EXPECT_EQ(json["answers"][1]["answer"], "low");
  EXPECT_EQ(json["answers"][2]["outcome"], "no answer");
  EXPECT_EQ(json["answers"][3]["outcome"], "failed");
}

TEST_F(Evaluate, Wrong_answers_are_no_failure) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  EXPECT_EQ(Run({"evaluate", "--language", language, Put_Sound("deep_1.wav", Low_Word())}), 0);
}

TEST_F(Evaluate, Confusions_count_how_often_which_word_was_taken_for_which) {
  const auto language = Confused_Language();
  Run({"evaluate", "--json", "--language", language, Put_Sound("low_1.wav", Low_Word()),
       Put_Sound("low_2.wav", Low_Word()), Put_Sound("high_1.wav", High_Word())});
  EXPECT_EQ(Json_Lines().at(0)["confusions"].dump(),
            R"([{"expected":"low","answer":"deep","times":2}])");
}

TEST_F(Evaluate, The_patterns_that_let_a_wrong_word_in_are_named) {
  const auto file = Put_Sound("low_1.wav", Low_Word());
  Run({"evaluate", "--json", "--language", Confused_Language(), file});
  const auto shared = Json_Lines().at(0)["shared_patterns"];
  ASSERT_EQ(shared.size(), 2U);  // not those of a third word, nor one that does not fit
  EXPECT_EQ(shared[0]["record"], 1);
  EXPECT_EQ(shared[0]["protocol"], 2);
  EXPECT_EQ(shared[0]["pattern"], "oa*");
  EXPECT_EQ(shared[0]["words"].dump(), R"(["deep"])");
  EXPECT_EQ(shared[1]["record"], 2);
  EXPECT_EQ(shared[1]["words"].dump(), R"(["low"])");
}

TEST_F(Evaluate, Text_lists_the_answers_the_confusions_their_patterns_and_last_the_sum) {
  const auto low = Put_Sound("low_1.wav", Low_Word());
  const auto high = Put_Sound("high_1.wav", High_Word());
  EXPECT_EQ(Run({"evaluate", "--language", Confused_Language(), low, high}), 0);
  EXPECT_EQ(out, "wrong      deep           80 %  " + low + " (low)  oadbtrvgpunmle\n" +
                     "right      high           80 %  " + high + "  fthjjsAkgH\n" +
                     "\nspoken  taken for  times\n"
                     "low     deep       1\n"
                     "\nPatterns that fit the wrong answers:\n" +
                     low + ": oadbtrvgpunmle\n" +
                     "  record 1, pattern 2: oa*  (deep)\n"
                     "  record 2, pattern 1: oadb*  (low)\n"
                     "\n1 wrong, 0 without an answer\n"
                     "1 of 2 right\n");
}

TEST_F(Evaluate, Labels_name_the_words_by_path_or_by_file_name) {
  const auto language = Put_Language("w.SAY", {Record().Word("low voice").Pattern("oa*")});
  const auto one = Put_Sound("a 1.wav", Low_Word());
  const auto two = Put_Sound("b.wav", Low_Word());
  const auto three = Put_Sound("c.wav", Low_Word());
  const auto labels = Put_Text(
      "labels.txt", "# sounds\n\na 1.wav\tlow voice\n" + two + ",low voice\nc.wav  low voice\r\n");
  EXPECT_EQ(
      Run({"evaluate", "--json", "--language", language, "--labels", labels, one, two, three}), 0)
      << err;
  EXPECT_EQ(Json_Lines().at(0)["right"], 3);
}

TEST_F(Evaluate, A_file_without_a_label_fails) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto labels = Put_Text("labels.txt", "other.wav low\n");
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--language", language, "--labels", labels, file}), 1);
  EXPECT_NE(err.find(file + ": has no word in the list of labels"), std::string::npos);
}

TEST_F(Evaluate, A_list_of_labels_that_cannot_be_read_or_understood_is_a_failure) {
  const auto file = Put_Sound("low_1.wav", Low_Word());
  const auto damaged = Put_Text("labels.txt", "a.wav low\nb.wav\n");
  const std::vector<std::pair<std::string, std::string>> Lists = {
      {Path("none"), Path("none") + ": No such file or directory"},
      {Path(""), "Is a directory"},
      {damaged, damaged + ", line 2: needs a WAV name and a word"}};
  for (const auto& [labels, reason] : Lists) {
    EXPECT_EQ(Run({"evaluate", "--language", Path("w.SAY"), "--labels", labels, file}), 1);
    EXPECT_NE(err.find("quillspeech: --labels: "), std::string::npos) << err;
    EXPECT_NE(err.find(reason), std::string::npos) << err;
    EXPECT_EQ(out, "");
    EXPECT_FALSE(Exists("w.SAY"));
  }
}

TEST_F(Evaluate, Wrong_usage_is_told_before_the_labels_are_read) {
  EXPECT_EQ(Run({"evaluate", "--language", "w", "--labels", Path("none"), "--set", "A=1", "x.wav"}),
            2);
  EXPECT_EQ(err.find("--labels"), std::string::npos) << err;
}

TEST_F(Evaluate, A_trace_lists_the_slices_of_each_answer_as_recognize_does) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto low = Put_Sound("low_1.wav", Low_Word());
  const auto high = Put_Sound("high_1.wav", High_Word());
  std::vector<Json> slices;
  for (const auto& file : {low, high}) {
    slices.push_back(Recognize_As_Json({"--trace", "--language", language, file})["slices"]);
  }
  EXPECT_EQ(Run({"evaluate", "--json", "--trace", "--language", language, low, high}), 0);
  const auto answers = Json_Lines().at(0)["answers"];
  EXPECT_EQ(Keys(answers[0]), (std::vector<std::string>{"file", "expected", "answer", "percentage",
                                                        "pattern", "outcome", "slices"}));
  EXPECT_EQ(answers[0]["slices"].size(), 18U);
  for (std::size_t i = 0; i < slices.size(); ++i) EXPECT_EQ(answers[i]["slices"], slices[i]);
  Run({"evaluate", "--json", "--language", language, low});
  EXPECT_FALSE(Json_Lines().at(0)["answers"][0].contains("slices"));
}

TEST_F(Evaluate, A_trace_without_JSON_is_told_to_be_useless) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  EXPECT_EQ(Run({"evaluate", "--trace", "--language", language, "-"}), 0);
  EXPECT_EQ(err, "quillspeech: note: --trace tells nothing without --json\n");
}

TEST_F(Evaluate, A_graph_is_the_one_that_recognize_draws_and_changes_no_answer) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--language", language, file}), 0);
  const auto without_graph = out;
  EXPECT_EQ(Run({"evaluate", "--graph", Path("e.svg"), "--language", language, file}), 0) << err;
  EXPECT_EQ(out, without_graph);
  Run({"recognize", "--graph", Path("r.svg"), "--language", language, file});
  EXPECT_FALSE(Content("e.svg").empty());
  EXPECT_EQ(Content("e.svg"), Content("r.svg"));
}

TEST_F(Evaluate, A_graph_takes_one_sound_and_no_place_of_a_file_that_the_run_reads) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto before = Content("w.SAY");
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--graph", Path("g.svg"), "--language", language, file, file}), 2);
  EXPECT_EQ(err, "quillspeech: --graph takes one WAV only\n");
  EXPECT_EQ(Run({"evaluate", "--graph", language, "--language", language, file}), 2);
  EXPECT_EQ(err, "quillspeech: --graph: " + language + " is a file that the run reads\n");
  EXPECT_EQ(out, "");
  EXPECT_EQ(Content("w.SAY"), before);
}

TEST_F(Evaluate, A_graph_that_cannot_be_written_fails_and_the_answer_counts) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--json", "--graph", Path("no/g.svg"), "--language", language, file}),
            1);
  EXPECT_NE(err.find("no/g.svg"), std::string::npos);
  EXPECT_EQ(Json_Lines().at(0)["right"], 1);
}

TEST_F(Evaluate, The_last_line_is_plain_in_colour_too) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  colour = true;
  EXPECT_EQ(Run({"evaluate", "--language", language, Put_Sound("low_1.wav", Low_Word())}), 0);
  EXPECT_NE(out.find('\x1b'), std::string::npos);
  EXPECT_TRUE(out.ends_with("\n1 of 1 right\n")) << out;
}

TEST_F(Evaluate, Shared_patterns_are_those_of_the_file_that_the_settings_end_with) {
  Put_Language("other.SAY", {Record().Word("deep").Pattern("oadb*")});
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--json", "--language", Path("w.SAY"), "--set",
                 "Consider_this_Lang_File_to_match=" + Path("other"), file}),
            0)
      << err;
  const auto shared = Json_Lines().at(0)["shared_patterns"];
  ASSERT_EQ(shared.size(), 1U);
  EXPECT_EQ(shared[0]["pattern"], "oadb*");
  EXPECT_FALSE(Exists("w.SAY"));
}

TEST_F(Evaluate, No_sounds_are_none_of_none_right) {
  EXPECT_EQ(Run({"evaluate", "--language", Confused_Language(), "-"}), 0);
  EXPECT_EQ(out, "\n0 wrong, 0 without an answer\n0 of 0 right\n");
}

TEST_F(Evaluate, Words_are_compared_as_UTF_8) {
  const auto language = Put_Language("w.SAY", {Record().Word("gr\xFC\xDF").Pattern("oa*")});
  const auto file = Put_Sound("gr\xC3\xBC\xC3\x9F_1.wav", Low_Word());
  Run({"evaluate", "--json", "--language", language, file});
  EXPECT_EQ(Json_Lines().at(0)["right"], 1);
}

TEST_F(Evaluate, Names_may_come_from_standard_input) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const auto file = Put_Sound("low_1.wav", Low_Word());
  EXPECT_EQ(Run({"evaluate", "--json", "--language", language, "--jobs", "2", "-"},
                file + "\n" + file + "\n"),
            0);
  EXPECT_EQ(Json_Lines().at(0)["right"], 2);
}

}  // namespace
}  // namespace quillspeech::tests
