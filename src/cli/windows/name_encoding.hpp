// How a file's name on the command line is written.
#pragma once

#include <string>
#include <string_view>

#include "platform/windows/text.hpp"

namespace quillspeech::cli {

// UTF-8 where it was typed, Windows-1252 where it comes out of a record: what is no UTF-8 is taken
// as the latter.
inline windows::NameEncoding Encoding_Of(std::string_view name) {
  return windows::Wide_From_Utf8(name) ? windows::NameEncoding::Utf8
                                       : windows::NameEncoding::Windows1252;
}

// The name as the system takes it; empty when there can be no such file.
inline std::wstring System_Name(std::string_view name) {
  return windows::Wide_Name(name, Encoding_Of(name)).value_or(std::wstring());
}

}  // namespace quillspeech::cli
