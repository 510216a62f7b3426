#include "platform/windows/text.hpp"

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

namespace {

constexpr UINT Windows_1252 = 1252;

// Nothing when the text has what the code page refuses under these flags.
std::optional<std::wstring> To_Wide(UINT code_page, DWORD flags, std::string_view text) {
  if (text.empty()) return std::wstring();
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // no byte makes more than one unit
  const int units = ::MultiByteToWideChar(code_page, flags, text.data(), length, wide.data(),
                                          static_cast<int>(wide.size()));
  if (units == 0) return std::nullopt;
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string From_Wide(UINT code_page, DWORD flags, const char* stand_in, std::wstring_view wide) {
  if (wide.empty()) return {};
  const int length = static_cast<int>(wide.size());
  std::string text(wide.size() * 3, '\0');  // no unit makes more than three bytes
  const int bytes = ::WideCharToMultiByte(code_page, flags, wide.data(), length, text.data(),
                                          static_cast<int>(text.size()), stand_in, nullptr);
  text.resize(static_cast<std::size_t>(bytes));
  return text;
}

}  // namespace

std::wstring Wide(std::string_view windows_1252) {
  return To_Wide(Windows_1252, 0, windows_1252).value_or(std::wstring());
}

std::string Narrow(std::wstring_view utf16) {
  return From_Wide(Windows_1252, WC_NO_BEST_FIT_CHARS, "?", utf16);
}

std::optional<std::wstring> Wide_From_Utf8(std::string_view utf8) {
  return To_Wide(CP_UTF8, MB_ERR_INVALID_CHARS, utf8);
}

std::string Utf8_From_Wide(std::wstring_view utf16) {
  return From_Wide(CP_UTF8, 0, nullptr, utf16);
}

std::optional<std::wstring> Wide_Name(std::string_view name, NameEncoding encoding) {
  if (name.empty() || name.find('\0') != std::string_view::npos) return std::nullopt;
  return encoding == NameEncoding::Utf8 ? Wide_From_Utf8(name) : Wide(name);
}

}  // namespace quillspeech::windows
