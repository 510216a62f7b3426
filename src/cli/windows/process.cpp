#include "cli/process.hpp"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <memory>

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

// Escape codes are for consoles that know them.
bool Takes_Escape_Codes(HANDLE console, DWORD mode) {
  return ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

struct Freeing {
  void operator()(LPWSTR* texts) const { ::LocalFree(texts); }
};

}  // namespace

void Prepare_Process() {
  for (const int descriptor : {0, 1, 2}) ::_setmode(descriptor, _O_BINARY);
  if (Is_Terminal(StandardStream::Out) || Is_Terminal(StandardStream::Err)) {
    ::SetConsoleOutputCP(CP_UTF8);
  }
}

// The texts of main are in the system's code page, which lacks most characters.
std::vector<std::string> Program_Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, Freeing> texts(::CommandLineToArgvW(::GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; texts && i < count; ++i)
    arguments.push_back(windows::Utf8_From_Wide(texts.get()[i]));
  return arguments;
}

bool Is_Terminal(StandardStream stream) {
  const HANDLE handle = Handle_Of(stream);
  DWORD mode = 0;
  if (!::GetConsoleMode(handle, &mode)) return false;
  return stream == StandardStream::In || Takes_Escape_Codes(handle, mode);
}

}  // namespace quillspeech::cli
