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

TEST(LikeMatch, It_agrees_with_the_plain_definition_on_long_texts) {
  std::mt19937 random(2);
  for (int i = 0; i < 5'000; ++i) {
    const std::string text = Random_Text(random, "abs", 150);
    std::string pattern = text;
    for (int change = 0; change < 4 && !pattern.empty(); ++change) {
      const std::string_view signs = "*?[as";
      const std::size_t at = random() % pattern.size();
      const char sign = signs[random() % signs.size()];
      if (sign == '*') {
        pattern.replace(at, random() % 40, "*");
      } else if (sign == '[') {
        pattern.replace(at, 1, "[!s]");
      } else {
        pattern[at] = sign;
      }
    }
    bool plain = false;
    bool fast = false;
    const int failure = Failure_Of([&] { plain = Plain_Like_Match(text, pattern); });
    ASSERT_EQ(Failure_Of([&] { fast = Like_Match(text, pattern); }), failure) << pattern;
    ASSERT_EQ(fast, plain) << '"' << text << "\" \"" << pattern << '"';
  }
}

}  // namespace
}  // namespace quillspeech
