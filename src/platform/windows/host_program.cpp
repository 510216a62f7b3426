#include "platform/windows/host_program.hpp"

#include <array>

#include "platform/windows/text.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

std::optional<std::string> HostProgram::Path() const {
  constexpr std::size_t Room = 262;
  constexpr DWORD Used = 261;
  std::array<wchar_t, Room> path{};  // one character more, so that it always ends in a NUL
  if (::GetModuleFileNameW(::GetModuleHandleW(nullptr), path.data(), Used) == 0) {
    return std::nullopt;
  }
  return Narrow(path.data());
}

}  // namespace quillspeech::windows
