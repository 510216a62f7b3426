#include "platform/form_caption.hpp"

namespace quillspeech {

std::string As_Caption(std::string_view text) {
  std::string caption;
  for (const char letter : text) caption.append(letter == '&' ? 2 : 1, letter);
  return caption;
}

std::string Text_Of_Caption(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption.substr(i, 2) == "&&") ++i;
    text += caption[i];
  }
  return text;
}

}  // namespace quillspeech
