// The words that hosts of controls have for the numbers of run-time failures.
#pragma once

namespace quillspeech {

// Numbers that only the border between a host and a control knows.
inline constexpr int Host_Type_Mismatch = 13;
inline constexpr int Invalid_Use_Of_Null = 94;
inline constexpr int No_Such_Member = 438;

// "Subscript out of range" for 9; a general sentence for a number that has no words.
const char* Host_Text(int number) noexcept;

}  // namespace quillspeech
