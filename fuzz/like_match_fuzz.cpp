// A line of text and behind it a pattern: Like_Match against a matcher that reads like the
// definition.
#include <algorithm>
#include <bitset>
#include <optional>

#include "base/run_time_failure.hpp"
#include "fuzz/fuzz_target.hpp"
#include "recognition/like_match.hpp"

namespace quillspeech::fuzz {
namespace {

constexpr std::size_t Longest = 300;  // of text and pattern, so that the plain matcher keeps up

// One sign of a pattern: a star, or the set of bytes that it takes.
struct Element {
  bool star = false;
  std::bitset<256> takes;
};

std::size_t Index(char character) { return static_cast<unsigned char>(character); }

// The set of a list's content without its brackets; nothing when a range descends.
std::optional<std::bitset<256>> Set_Of(std::string content) {
  const bool negated = content.size() > 1 && content[0] == '!';
  if (negated) content.erase(0, 1);
  std::bitset<256> set;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const std::size_t first = Index(content[i]);
    std::size_t last = first;
    if (i + 2 < content.size() && content[i + 1] == '-') {
      last = Index(content[i + 2]);
      i += 2;
    }
    if (last < first) return std::nullopt;
    for (std::size_t byte = first; byte <= last; ++byte) set.set(byte);
  }
  return negated ? ~set : set;
}

// The pattern's elements; nothing when it is bad.
std::optional<std::vector<Element>> Parse(const std::string& pattern) {
  std::vector<Element> elements;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    Element element;
    if (pattern[i] == '*') {
      element.star = true;
    } else if (pattern[i] == '?') {
      element.takes.set();
    } else if (pattern[i] == '#') {
      for (char digit = '0'; digit <= '9'; ++digit) element.takes.set(Index(digit));
    } else if (pattern[i] == '[') {
      const std::size_t close = pattern.find(']', i);
      if (close == pattern.npos) return std::nullopt;
      const std::string content = pattern.substr(i + 1, close - i - 1);
      i = close;
      if (content.empty()) continue;
      const auto set = Set_Of(content);
      if (!set) return std::nullopt;
      element.takes = *set;
    } else {
      element.takes.set(Index(pattern[i]));
    }
    elements.push_back(element);
  }
  return elements;
}

// fits[t] tells, element by element, whether the first t characters fit the elements so far.
bool Plain_Match(const std::string& text, const std::vector<Element>& elements) {
  std::vector<bool> fits(text.size() + 1, false);
  fits[0] = true;
  for (const Element& element : elements) {
    std::vector<bool> next(text.size() + 1, false);
    for (std::size_t t = 0; t <= text.size(); ++t) {
      if (element.star) {
        next[t] = fits[t] || (t > 0 && next[t - 1]);
      } else {
        next[t] = t > 0 && fits[t - 1] && element.takes[Index(text[t - 1])];
      }
    }
    fits = next;
  }
  return fits[text.size()];
}

void Compare(const std::string& text, const std::string& pattern) {
  const auto elements = Parse(pattern);
  try {
    const bool fits = Like_Match(text, pattern);
    Require(elements.has_value(), "a bad pattern is a failure");
    Require(fits == Plain_Match(text, *elements), "the definition and Like_Match agree");
  } catch (const RunTimeFailure& failure) {
    Require(failure.What() == Failure::Bad_Pattern, "the failure is that of a bad pattern");
    Require(!elements, "a good pattern is no failure");
  }
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  const LineAndFile input(data, std::min<std::size_t>(size, 2 * Longest));
  Compare(input.line.substr(0, Longest),
          std::string(input.file.begin(), input.file.end()).substr(0, Longest));
  return 0;
}
