// A person's session in the Language Editor, which makes a language file from nothing; and the
// bytes that it leaves.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/editor_steps.hpp"

namespace quillspeech::tests {

// The session. It begins where the chooser of the editors shows, with `first` as the file to add
// to, which does not exist, and with the fonts of a screen that is none; makes `made`, which does
// not exist either and ends with ".say"; and ends by the menu.
std::vector<EditorStep> Editor_Session(const std::string& first, const std::string& made);

// What is in `made` then. `first` is empty.
std::vector<std::uint8_t> Bytes_Of_Editor_Session();
// The first place where these bytes are others, and the sizes; nothing when they are the same.
std::string Difference_From_Editor_Session(const std::vector<std::uint8_t>& bytes);

}  // namespace quillspeech::tests
