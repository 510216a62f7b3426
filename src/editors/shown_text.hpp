// Texts of records as a screen shows them.
#pragma once

#include <string_view>

namespace quillspeech {

// The text up to its first character 0: what a screen shows of an erased field is nothing.
constexpr std::string_view Shown(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace quillspeech
