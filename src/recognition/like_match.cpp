#include "recognition/like_match.hpp"

#include "base/run_time_failure.hpp"

namespace quillspeech {
namespace {

unsigned char Byte(char character) { return static_cast<unsigned char>(character); }

// Takes the first entry off a list's content: a character, or a range of them.
struct Span {
  unsigned char first;
  unsigned char last;
};
Span Take_Span(std::string_view& content) {
  const unsigned char first = Byte(content[0]);
  const bool is_range = content.size() > 2 && content[1] == '-';
  const unsigned char last = is_range ? Byte(content[2]) : first;
  content.remove_prefix(is_range ? 3 : 1);
  return {first, last};
}

// What stands between the bracket that begins the text and the one that closes it.
std::string_view List_Content(std::string_view pattern) {
  return pattern.substr(1, pattern.find(']') - 1);
}

// Fails unless every list is closed and every range rises.
void Check_Lists(std::string_view pattern) {
  for (auto open = pattern.find('['); open != pattern.npos; open = pattern.find('[')) {
    pattern.remove_prefix(open);
    const auto close = pattern.find(']');
    if (close == pattern.npos) Fail(Failure::Bad_Pattern);
    auto content = pattern.substr(1, close - 1);
    if (content.size() > 1 && content[0] == '!') content.remove_prefix(1);
    while (!content.empty()) {
      const Span span = Take_Span(content);
      if (span.first > span.last) Fail(Failure::Bad_Pattern);
    }
    pattern.remove_prefix(close + 1);
  }
}

bool List_Has(std::string_view content, char character) {
  const bool among = !(content.size() > 1 && content[0] == '!');  // a lone "!" is itself
  if (!among) content.remove_prefix(1);
  while (!content.empty()) {
    const Span span = Take_Span(content);
    if (Byte(character) >= span.first && Byte(character) <= span.last) return among;
  }
  return !among;
}

bool Sign_Fits(char sign, char character) {
  return sign == '?' || sign == character;
}

}  // namespace
}
