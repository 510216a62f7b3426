// Texts as captions, in which an ampersand marks the letter behind it and two of them show one.
#pragma once

#include <string>
#include <string_view>

namespace quillspeech {

// The caption that shows as that text, without a mark.
std::string As_Caption(std::string_view text);
// The text that such a caption shows.
std::string Text_Of_Caption(std::string_view caption);

}  // namespace quillspeech
