// The Language Editor: what the last analysis left in mind, shown in the window. It reaches the
// file by saving.
#pragma once

#include "editors/language_editor.hpp"

namespace quillspeech {

EditorCommands Memory_Commands();

}  // namespace quillspeech
