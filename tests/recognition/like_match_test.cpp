#include "recognition/like_match.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/plain_language_scan.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::Plain_Like_Match;

struct Case {
  std::string text;
  std::string pattern;
  bool fits;
};

void Expect_All(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(Like_Match(c.text, c.pattern), c.fits)
        << '"' << c.text << "\" \"" << c.pattern << '"';
  }
}

TEST(LikeMatch, A_pattern_without_signs_fits_itself_alone) {
  Expect_All({{"", "", true},
              {"a", "", false},
              {"", "a", false},
              {"abc", "abc", true},
              {"abc", "abd", false},
              {"abc", "ab", false},
              {"ab", "abc", false},
              {" a", "a", false}});
}

TEST(LikeMatch, Upper_and_lower_case_differ) {
  Expect_All({{"aAA", "aAA", true}, {"aaA", "aAA", false}, {"e", "[A-Z]", false}});
}

TEST(LikeMatch, A_star_fits_any_run_also_an_empty_one) {
  Expect_All({{"", "*", true},
              {"abc", "*", true},
              {"abc", "**", true},
              {"fthjjs", "fth*s", true},
              {"fths", "fth*s", true},
              {"fthjj", "fth*s", false},
              {"s", "fth*s", false},
              {"abcabd", "*abd", true},
              {"abab", "ab*ab", true},
              {"aba", "ab*ba", false},  // one b cannot stand for two
              {"xabyabz", "*ab*ab*", true},
              {"xabyaz", "*ab*ab*", false},
              {"aXbXc", "a*b*c", true},
              {"aXcXb", "a*b*c", false}});
}

TEST(LikeMatch, A_question_mark_fits_one_character) {
  Expect_All({{"a", "?", true},
              {"", "?", false},
              {"ab", "?", false},
              {"\xFF", "?", true},
              {"abc", "a?c", true},
              {"ab", "*?", true},
              {"", "*?", false},
              {"ab", "?*?", true},
              {"a", "?*?", false}});
}

TEST(LikeMatch, A_number_sign_fits_one_digit) {
  Expect_All({{"0", "#", true},
              {"9", "#", true},
              {"/", "#", false},
              {":", "#", false},
              {"a", "#", false},
              {"12", "#", false},
              {"a7", "a#", true},
              {"a7b", "*#*", true},
              {"ab", "*#*", false}});
}

TEST(LikeMatch, A_list_fits_one_of_its_characters) {
  Expect_All({{"a", "[abc]", true},
              {"d", "[abc]", false},
              {"", "[abc]", false},
              {"ab", "[abc]", false},
              {"xb", "x[abc]", true},
              {"bx", "*[abc]x", true},
              {"b", "*[abc]", true},
              {"d", "*[abc]", false}});
}

TEST(LikeMatch, A_range_holds_both_of_its_ends) {
  Expect_All({{"a", "[a-c]", true},
              {"c", "[a-c]", true},
              {"`", "[a-c]", false},
              {"d", "[a-c]", false},
              {"b", "[b-b]", true},
              {"x", "[a-cx-z]", true},
              {"m", "[a-cx-z]", false}});
}

TEST(LikeMatch, Ranges_compare_bytes_without_a_sign) {
  Expect_All({{"\xC9", "[\xC0-\xDF]", true},
              {"\xE9", "[\xC0-\xDF]", false},
              {"\x80", "[~-\xFF]", true},
              {"\x7D", "[~-\xFF]", false}});
}

TEST(LikeMatch, A_list_with_an_exclamation_mark_in_front_fits_all_other_characters) {
  Expect_All({{"a", "[!abc]", false},
              {"d", "[!abc]", true},
              {"", "[!abc]", false},
              {"m", "[!a-l]", true},
              {"f", "[!a-l]", false},
              {"!", "[!!]", false},
              {"a", "[!!]", true}});
}

TEST(LikeMatch, An_exclamation_mark_elsewhere_is_itself) {
  Expect_All({{"!", "!", true},
              {"!", "[a!]", true},
              {"a", "[a!]", true},
              {"b", "[a!]", false},
              {"!", "[!]", true},
              {"a", "[!]", false},
              {"", "[!]", false}});
}

TEST(LikeMatch, An_empty_list_is_the_empty_text) {
  Expect_All({{"", "[]", true},
              {"a", "[]", false},
              {"ab", "a[]b", true},
              {"", "*[]*", true},
              {"]", "[]]", true},
              {"abc]", "[]abc]", true}});
}

TEST(LikeMatch, A_hyphen_at_either_end_or_behind_a_range_is_itself) {
  Expect_All({{"-", "[-]", true},
              {"-", "[-a]", true},
              {"a", "[-a]", true},
              {"-", "[a-]", true},
              {"a", "[a-]", true},
              {"b", "[a-]", false},
              {"-", "[!-]", false},
              {"a", "[!-]", true},
              {"-", "[!-a]", false},
              {"b", "[!-a]", true},
              {"-", "[!a-]", false},
              {"-", "[a-c-e]", true},
              {"e", "[a-c-e]", true},
              {"d", "[a-c-e]", false},
              {"-", "a-c", false},
              {"a-c", "a-c", true}});
}

TEST(LikeMatch, A_hyphen_that_is_itself_begins_no_range) {
  struct ListCase {
    std::string pattern;
    std::string listed;
    std::string others;
  };
  for (const ListCase& c : std::vector<ListCase>{{"[--a]", "-a", ".0AZ`b"},
                                                 {"[a-c--z]", "abc-z", ".dy`{"},
                                                 {"[!--9]", "./08:a,", "-9"},
                                                 {"[---a]", "-a", ".0AZ`b"},
                                                 {"[+--]", "+,-", "*."}}) {
    for (const char character : c.listed) {
      EXPECT_TRUE(Like_Match({&character, 1}, c.pattern)) << c.pattern << ' ' << character;
    }
    for (const char character : c.others) {
      EXPECT_FALSE(Like_Match({&character, 1}, c.pattern)) << c.pattern << ' ' << character;
    }
  }
}

TEST(LikeMatch, The_signs_are_themselves_in_a_list) {
  Expect_All({{"*", "[*]", true},
              {"a", "[*]", false},
              {"?", "[?]", true},
              {"a", "[?]", false},
              {"#", "[#]", true},
              {"1", "[#]", false},
              {"[", "[[]", true},
              {"a*b", "a[*]b", true},
              {"axb", "a[*]b", false},
              {"x*y", "*[*]*", true},
              {"xy", "*[*]*", false}});
}

TEST(LikeMatch, A_closing_bracket_outside_a_list_is_itself) {
  Expect_All({{"]", "]", true},
              {"a]", "*]", true},
              {"a", "*]", false},
              {"b]", "[ab]]", true},
              {"b", "[ab]]", false}});
}

TEST(LikeMatch, A_zero_character_is_a_character_like_others) {
  const std::string zeros(100, '\0');
  Expect_All({{zeros, zeros, true},
              {"", zeros, false},
              {"a", zeros, false},
              {std::string(1, '\0'), "?", true}});
}

TEST(LikeMatch, A_bad_pattern_is_failure_93_whatever_the_text_is) {
  for (const std::string pattern : {"[", "a[", "[a", "[a-", "[!", "*[ab", "x[z-a]", "[a-bz-y]",
                                    "[!9-0]", "[\xFF-a]", "[ab]["}) {
    for (const std::string text : {"", "a", "zzzz", "x", "*"}) {
      EXPECT_EQ(Failure_Of([&] { Like_Match(text, pattern); }), 93) << pattern << " on " << text;
    }
  }
}

TEST(LikeMatch, A_text_that_spans_many_words_of_places_is_matched_to_its_end) {
  for (const std::size_t length : {62U, 63U, 64U, 65U, 127U, 128U, 129U, 1000U}) {
    const std::string text = std::string(length, 'a') + "b";
    EXPECT_TRUE(Like_Match(text, text)) << length;
    EXPECT_TRUE(Like_Match(text, "*b")) << length;
    EXPECT_TRUE(Like_Match(text, "*a?")) << length;
    EXPECT_TRUE(Like_Match(text, std::string(length, '?') + "[b]")) << length;
    EXPECT_FALSE(Like_Match(text, std::string(length, '?'))) << length;
    EXPECT_FALSE(Like_Match(text, std::string(length + 2, '?'))) << length;
    EXPECT_FALSE(Like_Match(text, "*b?*")) << length;
    EXPECT_FALSE(Like_Match(text, "*[!ab]*")) << length;
    EXPECT_FALSE(Like_Match(text, std::string(length + 1, '?') + "[!z]*")) << length;
  }
}

TEST(LikeMatch, A_hundred_stars_against_a_long_text_come_to_an_end) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(Like_Match(std::string(20'000, 'a'), pattern + "*b"));
  EXPECT_FALSE(Like_Match(std::string(20'000, 'a'), pattern + "*b*"));
  EXPECT_TRUE(Like_Match(std::string(20'000, 'a') + "b", pattern + "*b"));
}

TEST(LikeMatch, A_prepared_text_keeps_nothing_of_the_pattern_before) {
  LikeText text(std::string(130, 'a'));
  for (const std::string misfit : {"", "?", "a", "[a]", "a?", "b*", "[!a]*", "#"}) {
    EXPECT_TRUE(text.Fits("*"));  // it reaches every place
    EXPECT_FALSE(text.Fits(misfit)) << misfit;
  }
}

TEST(LikeMatch, A_list_that_excludes_takes_nothing_behind_the_end_of_the_text) {
  for (const std::size_t length : {62U, 63U, 64U, 127U}) {
    LikeText text("b" + std::string(length - 1, 'a'));
    EXPECT_FALSE(text.Fits(std::string(length, '?') + "[!c]*")) << length;
    EXPECT_FALSE(text.Fits("bb*")) << length;  // and spoils nothing for the next pattern
    EXPECT_TRUE(text.Fits("ba*")) << length;
  }
}

TEST(LikeMatch, One_prepared_text_serves_many_patterns) {
  LikeText text("fthjjs");
  EXPECT_TRUE(text.Fits("fth*s"));
  EXPECT_FALSE(text.Fits("fth*j"));
  EXPECT_TRUE(text.Fits("[f]*[a-s]"));
  EXPECT_FALSE(text.Fits(""));
  EXPECT_TRUE(text.Fits("*"));
  EXPECT_EQ(Failure_Of([&] { text.Fits("["); }), 93);
  EXPECT_TRUE(text.Fits("??????"));
}

std::string Random_Text(std::mt19937& random, std::string_view alphabet, std::size_t longest) {
  std::string text(random() % (longest + 1), ' ');
  for (char& character : text) character = alphabet[random() % alphabet.size()];
  return text;
}

TEST(LikeMatch, It_agrees_with_the_plain_definition_on_generated_patterns) {
  std::mt19937 random(1);
  int fitting = 0;
  int bad = 0;
  for (int i = 0; i < 200'000; ++i) {
    const std::string text = Random_Text(random, "aab-!]1", 8);
    const std::string pattern = Random_Text(random, "aab*?#[]!-1", 10);
    bool plain = false;
    const int failure = Failure_Of([&] { plain = Plain_Like_Match(text, pattern); });
    bool fast = false;
    ASSERT_EQ(Failure_Of([&] { fast = Like_Match(text, pattern); }), failure) << pattern;
    ASSERT_EQ(fast, plain) << '"' << text << "\" \"" << pattern << '"';
    fitting += plain ? 1 : 0;
    bad += failure != 0 ? 1 : 0;
  }
  EXPECT_GT(fitting, 2'000);  // the cases speak for both answers and for failures
  EXPECT_GT(bad, 10'000);
}

// The text with some of its characters changed for signs.
std::string Changed(std::mt19937& random, std::string pattern) {
  for (auto change = random() % 5; change > 0 && !pattern.empty(); --change) {
    const std::string_view signs = "*?[-s";
    const std::size_t at = random() % pattern.size();
    const char sign = signs[random() % signs.size()];
    if (sign == '*') {
      pattern.replace(at, random() % 40, "*");
    } else if (sign == '[') {
      pattern.replace(at, 1, "[!s]");
    } else if (sign == '-') {
      pattern.replace(at, 1, "[--a-b]");
    } else {
      pattern[at] = sign;
    }
  }
  return pattern;
}

TEST(LikeMatch, It_agrees_with_the_plain_definition_on_long_prepared_texts) {
  std::mt19937 random(2);
  int fitting = 0;
  for (int i = 0; i < 600; ++i) {
    const std::string text = std::string(64, 'b') + Random_Text(random, "abs-", 130);
    LikeText prepared(text);
    for (int test = 0; test < 10; ++test) {
      const std::string pattern = Changed(random, text);
      bool plain = false;
      bool fast = false;
      const int failure = Failure_Of([&] { plain = Plain_Like_Match(text, pattern); });
      ASSERT_EQ(Failure_Of([&] { fast = prepared.Fits(pattern); }), failure) << pattern;
      ASSERT_EQ(fast, plain) << '"' << text << "\" \"" << pattern << '"';
      fitting += plain ? 1 : 0;
    }
  }
  EXPECT_GT(fitting, 1'000);
  EXPECT_LT(fitting, 5'000);
}

}  // namespace
}  // namespace quillspeech
