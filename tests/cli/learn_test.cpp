#include "cli/learn.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "base/text.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class Learn : public CommandTest {
 protected:
  int Teach(const std::string& word, std::vector<std::string> more) {
    more.insert(more.begin(), {"learn", "--language", Path("w.SAY"), "--word", word});
    return Run(more);
  }
  std::string Low() { return Put_Sound("low.wav", Low_Word()); }
  std::string High() { return Put_Sound("high.wav", High_Word()); }
};

TEST_F(Learn, A_word_of_a_new_file_gets_record_1) {
  EXPECT_EQ(Teach("low", {Low()}), 0);
  EXPECT_EQ(err, "");
  EXPECT_EQ(out, Low() + ": added oadbtrvgpunmle to the new record 1 (low)\n");
  ASSERT_EQ(Content("w.SAY").size(), 8476U);
  const auto record = Language_Record("w.SAY", 1);
  EXPECT_EQ(record.RecordNo(), 1);
  EXPECT_EQ(record.WordCount(), 1);
  EXPECT_EQ(Trim(record.Words(1)), "low");
  EXPECT_EQ(record.WordRatings(1), 100);
  EXPECT_EQ(record.WordFont(), std::string(20, ' '));
  EXPECT_EQ(record.LikeCount(), 1);
  EXPECT_EQ(Trim(record.LikeProtocols(1)), Low_Pattern);
  EXPECT_EQ(record.LikeRatings(1), 100);
}

TEST_F(Learn, The_unused_fields_of_a_new_record_are_erased) {
  Teach("low", {Low()});
  const auto record = Language_Record("w.SAY", 1);
  EXPECT_EQ(record.DivisionCount(), 0);
  EXPECT_EQ(record.DivisionByteLength(), 0);
  EXPECT_EQ(record.DifferentiatorCount(), 0);
  EXPECT_EQ(record.Words(2), std::string(40, '\0'));
  EXPECT_EQ(record.LikeProtocols(2), std::string(100, '\0'));
  EXPECT_EQ(record.EngineCodes(1), std::string(20, '\0'));
}

TEST_F(Learn, A_new_record_takes_the_copyright_and_description_of_the_one_before) {
  Record first = Record().Word("other").Pattern("x");
  first.Fields().FileCopyright("Mara");
  first.Fields().FileDescription("Numbers");
  Put_Language("w.SAY", {first});
  EXPECT_EQ(Teach("low", {Low()}), 0);
  const auto record = Language_Record("w.SAY", 2);
  EXPECT_EQ(record.RecordNo(), 2);
  EXPECT_EQ(Trim(record.FileCopyright()), "Mara");
  EXPECT_EQ(Trim(record.FileDescription()), "Numbers");
}

TEST_F(Learn, What_was_learned_is_recognised) {
  Teach("low", {Low()});
  Teach("high", {High()});
  const auto json = Recognize_As_Json({"--language", Path("w.SAY"), High()});
  EXPECT_EQ(json["Platinum_Best"].dump(), R"(["high","","","","","",""])");
  EXPECT_EQ(json["Platinum_Words"][0]["percentage"], 80);
}

TEST_F(Learn, The_record_that_has_the_word_gets_the_pattern) {
  Put_Language("w.SAY", {Record().Word("other").Pattern("x"),
                         Record().Word("deep").Word("low", 70).Pattern("y", 50)});
  const auto before = Content("w.SAY");
  EXPECT_EQ(Teach("low", {Low()}), 0);
  EXPECT_EQ(out, Low() + ": added oadbtrvgpunmle to record 2 (low)\n");
  const auto record = Language_Record("w.SAY", 2);
  EXPECT_EQ(record.WordCount(), 2);
  EXPECT_EQ(record.WordRatings(2), 70);
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(Trim(record.LikeProtocols(1)), "y");
  EXPECT_EQ(Trim(record.LikeProtocols(2)), Low_Pattern);
  const auto after = Content("w.SAY");
  EXPECT_TRUE(std::equal(before.begin(), before.begin() + 8476, after.begin()));
}

TEST_F(Learn, A_word_is_compared_whole_and_with_its_case) {
  Put_Language("w.SAY", {Record().Word("Low").Pattern("x"), Record().Word("lower").Pattern("x")});
  Teach("low", {Low()});
  EXPECT_EQ(Trim(Language_Record("w.SAY", 3).Words(1)), "low");
}

TEST_F(Learn, Ratings_are_those_of_the_options) {
  EXPECT_EQ(Teach("low", {"--rating", "80", "--pattern-rating", "60", Low()}), 0);
  const auto record = Language_Record("w.SAY", 1);
  EXPECT_EQ(record.WordRatings(1), 80);
  EXPECT_EQ(record.LikeRatings(1), 60);
}

TEST_F(Learn, Ratings_beyond_the_scale_are_wrong_usage) {
  EXPECT_EQ(Teach("low", {"--rating", "101", Low()}), 2);
  EXPECT_EQ(Teach("low", {"--pattern-rating", "-1", Low()}), 2);
  EXPECT_FALSE(Exists("w.SAY"));
}

TEST_F(Learn, A_pattern_that_is_there_already_is_not_added_again) {
  Teach("low", {Low()});
  const auto before = Content("w.SAY");
  EXPECT_EQ(Teach("low", {Low()}), 0);
  EXPECT_EQ(out, Low() + ": oadbtrvgpunmle is in record 1 already\n");
  EXPECT_EQ(Content("w.SAY"), before);
}

TEST_F(Learn, Several_sounds_give_several_patterns_each_once) {
  EXPECT_EQ(Teach("both", {Low(), High(), Low()}), 0);
  const auto record = Language_Record("w.SAY", 1);
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(Trim(record.LikeProtocols(2)), High_Pattern);
}

TEST_F(Learn, A_record_can_be_named_and_gets_the_word_that_it_lacks) {
  Put_Language("w.SAY", {Record().Word("low").Pattern("x"), Record().Word("deep").Pattern("y")});
  EXPECT_EQ(Teach("low", {"--record", "2", Low()}), 0);
  EXPECT_EQ(Language_Record("w.SAY", 1).LikeCount(), 1);
  const auto record = Language_Record("w.SAY", 2);
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(record.WordCount(), 2);
  EXPECT_EQ(Trim(record.Words(2)), "low");
}

TEST_F(Learn, The_record_behind_the_last_can_be_named_and_none_beyond) {
  Put_Language("w.SAY", {Record().Word("low").Pattern("x")});
  EXPECT_EQ(Teach("low", {"--record", "3", Path("unheard.wav")}), 2);
  EXPECT_EQ(err, "quillspeech: --record 3: the next new record of " + Path("w.SAY") + " is 2\n");
  EXPECT_EQ(Content("w.SAY").size(), 8476U);
  EXPECT_EQ(Teach("low", {"--record", "2", Low()}), 0);
  EXPECT_EQ(Content("w.SAY").size(), 2 * 8476U);
}

TEST_F(Learn, A_file_that_is_not_there_begins_with_record_1) {
  EXPECT_EQ(Teach("low", {"--record", "2", Low()}), 2);
  EXPECT_NE(err.find("the next new record of " + Path("w.SAY") + " is 1"), std::string::npos);
  EXPECT_FALSE(Exists("w.SAY"));
  EXPECT_EQ(Teach("low", {"--record", "1", Low()}), 0);
}

TEST_F(Learn, A_record_number_has_31_bits) {
  for (const std::string number : {"0", "-1", "2147483648", "many"}) {
    EXPECT_EQ(Teach("low", {"--record", number, Low()}), 2);
    EXPECT_TRUE(
        err.starts_with("quillspeech: --record: takes a whole number from 1 to 2147483647, not \"" +
                        number + "\"\n"))
        << err;
  }
  EXPECT_EQ(Teach("low", {"--record", "2147483647", Low()}), 2);
  EXPECT_NE(err.find("the next new record of"), std::string::npos);
}

// Whether a thread sleeps while the process has the file open more than once.
bool Sleeps_Over_File(pid_t thread, const std::string& path) {
  std::ifstream stat("/proc/self/task/" + std::to_string(thread) + "/stat");
  std::string line;
  std::getline(stat, line);
  if (line.find(") S ") == std::string::npos) return false;
  int open = 0;
  for (int number = 0; number < 100; ++number) {
    std::error_code none;
    const auto link = "/proc/self/fd/" + std::to_string(number);
    if (std::filesystem::read_symlink(link, none) == path) ++open;
  }
  return open > 1;
}

TEST_F(Learn, Those_who_learn_at_the_same_time_lose_no_word) {
  const auto file = Put_Language("w.SAY", {Record().Word("first").Pattern("x")});
  const auto sound = Low();
  const int other = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(other, LOCK_SH), 0);  // others may read, but not write
  std::atomic<pid_t> thread = 0;
  std::atomic<bool> done = false;
  std::thread learner([&] {
    thread = ::gettid();
    EXPECT_EQ(Teach("low", {sound}), 0) << err;
    done = true;
  });
  while (!done && (thread == 0 || !Sleeps_Over_File(thread, file))) std::this_thread::yield();
  EXPECT_FALSE(done);
  Record record = Record().Word("second").Pattern("y");
  const auto bytes = Language_File({record});
  EXPECT_EQ(::pwrite(other, bytes.data(), bytes.size(), 8476), 8476);
  ::close(other);
  learner.join();
  ASSERT_EQ(Content("w.SAY").size(), 3 * 8476U);
  EXPECT_EQ(Trim(Language_Record("w.SAY", 2).Words(1)), "second");
  EXPECT_EQ(Trim(Language_Record("w.SAY", 3).Words(1)), "low");
}

TEST_F(Learn, A_string_with_wildcards_is_no_pattern) {
  for (const std::string letters : {"a*", "?", "#b", "[c"}) {
    const auto engine = Put("e.EGN", Engine_File({{4, letters}, {6, "y"}}));
    EXPECT_EQ(Teach("low", {"--engine", engine, Low()}), 1);
    EXPECT_EQ(err, "quillspeech: " + Path("low.wav") + ": gave \"y" + letters +
                       "\", which is not added: the engine's letters *, ?, # or [ would be "
                       "wildcards in a pattern\n");
    EXPECT_FALSE(Exists("w.SAY"));
  }
}

TEST_F(Learn, A_pattern_of_exactly_a_hundred_characters_is_added) {
  // Twenty letters a slot fill whole fields of the engine file.
  const std::string twenty(20, 'x');
  const std::string other(20, 'y');
  const auto engine = Put("e.EGN", Engine_File({{4, twenty}, {6, other}}));
  Sound sound = Silence(Bytes(3000));
  for (int i = 0; i < 5; ++i) {
    sound =
        sound + Tone(i % 2 == 0 ? 500_Hz : 300_Hz, Amplitude(i % 2 == 0 ? 90 : 60), Bytes(5000));
  }
  EXPECT_EQ(Teach("low", {"--engine", engine, "--set", "Filter_Pass_Value=1",
                          Put_Sound("hundred.wav", sound + Silence(Bytes(9000)))}),
            0)
      << err;
  EXPECT_EQ(Trim(Language_Record("w.SAY", 1).LikeProtocols(1)),
            other + twenty + other + twenty + other);
}

TEST_F(Learn, A_record_with_a_hundred_words_takes_no_other) {
  Record full;
  for (int i = 0; i < 100; ++i) full.Word("word" + std::to_string(i));
  Put_Language("w.SAY", {full.Pattern("x")});
  const auto before = Content("w.SAY");
  EXPECT_EQ(Teach("low", {"--record", "1", Low()}), 1);
  EXPECT_EQ(err, "quillspeech: " + Path("w.SAY") + ": the record is full with 100 words\n");
  EXPECT_EQ(Content("w.SAY"), before);
  EXPECT_EQ(Teach("word99", {"--record", "1", Low()}), 0);
}

TEST_F(Learn, An_empty_pattern_is_not_added_and_fails) {
  const auto silent = Put_Sound("silent.wav", Silence(Bytes(20000)));
  EXPECT_EQ(Teach("low", {silent}), 1);
  EXPECT_NE(err.find(silent + ": gave an empty pattern"), std::string::npos);
  EXPECT_FALSE(Exists("w.SAY"));
}

TEST_F(Learn, A_pattern_of_more_than_a_hundred_characters_is_not_added_and_fails) {
  Sound sound = Silence(Bytes(3000));
  for (int i = 0; i < 8; ++i) {
    sound =
        sound + Tone(500_Hz, Amplitude(90), Bytes(2000)) + Tone(300_Hz, Amplitude(90), Bytes(2000));
  }
  const auto file = Put_Sound("long.wav", sound + Silence(Bytes(9000)));
  EXPECT_EQ(Teach("low", {file}), 1);
  EXPECT_NE(err.find("characters, which is not added; a record holds 100"), std::string::npos);
  EXPECT_FALSE(Exists("w.SAY"));
}

TEST_F(Learn, A_full_record_is_reported_and_stays) {
  Record full = Record().Word("low");
  for (int i = 0; i < 30; ++i) full.Pattern("p" + std::to_string(i));
  Put_Language("w.SAY", {full});
  const auto before = Content("w.SAY");
  EXPECT_EQ(Teach("low", {Low()}), 1);
  EXPECT_NE(err.find("record 1 is full with 30 patterns"), std::string::npos);
  EXPECT_EQ(Content("w.SAY"), before);
}

TEST_F(Learn, Patterns_that_still_fit_are_added_and_the_rest_reported) {
  Record nearly_full = Record().Word("low");
  for (int i = 0; i < 29; ++i) nearly_full.Pattern("p" + std::to_string(i));
  Put_Language("w.SAY", {nearly_full});
  EXPECT_EQ(Teach("low", {Low(), High()}), 1);
  EXPECT_EQ(Trim(Language_Record("w.SAY", 1).LikeProtocols(30)), Low_Pattern);
  EXPECT_NE(err.find(High() + ": record 1 is full"), std::string::npos);
}

TEST_F(Learn, A_file_that_cannot_be_read_fails_and_the_others_are_learned) {
  EXPECT_EQ(Teach("low", {Path("missing.wav"), Low()}), 1);
  EXPECT_NE(err.find("Couldn't open the wav file"), std::string::npos);
  EXPECT_EQ(Language_Record("w.SAY", 1).LikeCount(), 1);
}

TEST_F(Learn, Words_are_stored_in_Windows_1252) {
  EXPECT_EQ(Teach("gr\xC3\xBC\xC3\x9F", {Low()}), 0);
  EXPECT_EQ(Trim(Language_Record("w.SAY", 1).Words(1)), "gr\xFC\xDF");
}

TEST_F(Learn, A_word_that_no_record_can_hold_is_wrong_usage) {
  EXPECT_EQ(Teach("\xE6\x97\xA5", {Low()}), 2);
  EXPECT_EQ(Teach("  ", {Low()}), 2);
  EXPECT_EQ(Teach(std::string(41, 'x'), {Low()}), 2);
  EXPECT_FALSE(Exists("w.SAY"));
  EXPECT_EQ(Teach(std::string(40, 'x'), {Low()}), 0);
}

TEST_F(Learn, A_sound_with_a_pause_inside_is_noted) {
  EXPECT_EQ(Teach("two", {Put_Sound("two.wav", Low_Word() + High_Word())}), 0);
  EXPECT_NE(err.find("has 2 words by its pauses"), std::string::npos);
}

TEST_F(Learn, The_options_of_recognize_count) {
  EXPECT_EQ(Teach("low", {"--set", "Filter_Pass_Value=5", "--pad", "2000", Low()}), 0);
  EXPECT_EQ(Trim(Language_Record("w.SAY", 1).LikeProtocols(1)), "oa");
}

TEST_F(Learn, No_language_is_matched_while_learning) {
  Put_Language("w.SAY", {Record().Word("other").Pattern("   x  ")});
  const auto before = Content("w.SAY");
  Teach("low", {"--set", "Enable_Artificial_Intelligence=YES", Low()});
  const auto after = Content("w.SAY");
  EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
}

// Lines of text, and an interrupt where they end.
class InterruptedText final : public std::streambuf {
 public:
  InterruptedText(std::string text, std::atomic<bool>& flag) : text_(std::move(text)), flag_(flag) {
    setg(text_.data(), text_.data(), text_.data() + text_.size());
  }

 protected:
  int_type underflow() override {
    flag_ = true;
    return traits_type::eof();
  }

 private:
  std::string text_;
  std::atomic<bool>& flag_;
};

TEST_F(Learn, An_interrupted_lesson_writes_nothing_and_ends_with_130) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("x")});
  const auto before = Content("w.SAY");
  for (const std::string& file : {language, Path("new.SAY")}) {
    interrupted = false;
    InterruptedText names(Low() + "\n", interrupted);  // one sound is heard before
    std::istream in(&names);
    std::ostringstream told;
    cli::Console console{in, told, told};
    console.interrupted = &interrupted;
    EXPECT_EQ(cli::Run_Command_Line({"learn", "--language", file, "--word", "low", "-"}, console),
              130);
    EXPECT_EQ(told.str(), "");
  }
  EXPECT_EQ(Content("w.SAY"), before);
  EXPECT_FALSE(Exists("new.SAY"));
}

TEST_F(Learn, A_language_file_that_cannot_be_opened_fails) {
  EXPECT_EQ(Run({"learn", "--language", Path("no/w.SAY"), "--word", "low", Low()}), 1);
  EXPECT_NE(err.find(Path("no/w.SAY")), std::string::npos);
  EXPECT_EQ(out, "");
}

}  // namespace
}  // namespace quillspeech::tests
