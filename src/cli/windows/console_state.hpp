// The consoles behind the standard streams.
#pragma once

namespace quillspeech::cli {

// Makes them show UTF-8, and those that know them escape codes.
void Set_Up_Consoles();
// Makes them what they were before; nothing unless they were set up. From any thread.
void Put_Consoles_Back() noexcept;

}  // namespace quillspeech::cli
