// Texts at the border: inside they are Windows-1252 bytes, outside they are UTF-16 or UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillspeech::windows {

// How the names of files are written: a host's are texts as any other, a command line's are UTF-8.
enum class NameEncoding { Windows1252, Utf8 };

// Between Windows-1252 and UTF-16, a NUL as any other character. The five bytes that Windows-1252
// leaves open stand for U+0081, U+008D, U+008F, U+0090 and U+009D.
std::wstring Wide(std::string_view windows_1252);
// A character that Windows-1252 lacks becomes a question mark, and never one that looks alike.
std::string Narrow(std::wstring_view utf16);

// Nothing when the text is no UTF-8.
std::optional<std::wstring> Wide_From_Utf8(std::string_view utf8);
// Half a surrogate pair becomes U+FFFD.
std::string Utf8_From_Wide(std::wstring_view utf16);

// The name of a file as the system takes it; nothing when it is empty, holds a NUL, or is not
// written as it should be.
std::optional<std::wstring> Wide_Name(std::string_view name, NameEncoding encoding);

}  // namespace quillspeech::windows
