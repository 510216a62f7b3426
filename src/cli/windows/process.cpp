#include "cli/process.hpp"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <memory>

#include "cli/windows/console_state.hpp"
#include "platform/windows/text.hpp"
#include "platform/windows/windows_api.hpp"
//
#include <shellapi.h>

namespace quillspeech::cli {

namespace {

HANDLE Handle_Of(StandardStream stream) {
  constexpr std::array<DWORD, 3> Numbers = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
  return ::GetStdHandle(Numbers[static_cast<std::size_t>(stream)]);
}

struct Freeing {
  void operator()(LPWSTR* texts) const { ::LocalFree(texts); }
};

}  // namespace

PreparedProcess::PreparedProcess() {
  for (const int descriptor : {0, 1, 2}) ::_setmode(descriptor, _O_BINARY);
  Set_Up_Consoles();
}

PreparedProcess::~PreparedProcess() { Put_Consoles_Back(); }

// The texts of main are in the system's code page, which lacks most characters.
std::vector<std::string> Program_Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, Freeing> texts(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; texts && i < count; ++i)
    arguments.push_back(windows::Utf8_From_Wide(texts.get()[i]));
  return arguments;
}

// A console that took the escape codes when it was set up.
bool Is_Terminal(StandardStream stream) {
  DWORD mode = 0;
  if (!::GetConsoleMode(Handle_Of(stream), &mode)) return false;
  return stream == StandardStream::In || (mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace quillspeech::cli
