#include "cli/windows/console_state.hpp"

#include <array>
#include <mutex>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::cli {

namespace {

class Consoles {
 public:
  void Set_Up() {
    const std::lock_guard lock(mutex_);
    for (Output& output : outputs_) Set_Up(output);
  }
  void Put_Back() noexcept {
    const std::lock_guard lock(mutex_);
    for (Output& output : outputs_) {
      if (output.console) ::SetConsoleMode(output.console, output.mode);
      output.console = nullptr;
    }
    if (code_page_ != 0) ::SetConsoleOutputCP(code_page_);
    code_page_ = 0;
  }

 private:
  struct Output {
    DWORD stream;
    HANDLE console = nullptr;  // null: it is none, or as it was
    DWORD mode = 0;
  };

  // Older ones refuse the escape codes.
  void Set_Up(Output& output) {
    const HANDLE console = ::GetStdHandle(output.stream);
    if (output.console || !::GetConsoleMode(console, &output.mode)) return;
    output.console = console;
    ::SetConsoleMode(console, output.mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    if (code_page_ != 0) return;
    code_page_ = ::GetConsoleOutputCP();
    ::SetConsoleOutputCP(CP_UTF8);
  }

  std::mutex mutex_;
  std::array<Output, 2> outputs_{{{STD_OUTPUT_HANDLE}, {STD_ERROR_HANDLE}}};
  UINT code_page_ = 0;  // 0: as it was
};

// An interrupt that ends the program comes on another thread, with nothing in hand.
Consoles& Consoles_Of_The_Process() {
  static Consoles consoles;
  return consoles;
}

}  // namespace

void Set_Up_Consoles() { Consoles_Of_The_Process().Set_Up(); }

void Put_Consoles_Back() noexcept { Consoles_Of_The_Process().Put_Back(); }

}  // namespace quillspeech::cli
