// A console of this program's own, which no window shows. It is skipped where there can be none.
#include "cli/windows/console_state.hpp"

#include <gtest/gtest.h>

#include "cli/files.hpp"
#include "cli/interrupt_watch.hpp"
#include "cli/process.hpp"
#include "platform/windows/windows_api.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {
namespace {

class Console : public testing::Test {
 protected:
  Console() : output_before_(::GetStdHandle(STD_OUTPUT_HANDLE)) {
    console_ =
        ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                      nullptr, OPEN_EXISTING, 0, nullptr);
    ::SetStdHandle(STD_OUTPUT_HANDLE, console_);
  }
  ~Console() override {
    ::SetStdHandle(STD_OUTPUT_HANDLE, output_before_);
    if (console_ != INVALID_HANDLE_VALUE) ::CloseHandle(console_);
  }

  bool Is_There() const { return console_ != INVALID_HANDLE_VALUE; }
  DWORD Mode() const {
    DWORD mode = 0;
    EXPECT_TRUE(::GetConsoleMode(console_, &mode));
    return mode;
  }

  HANDLE output_before_;
  HANDLE console_;
};

TEST_F(Console, Is_afterwards_as_it_was) {
  if (!Is_There()) GTEST_SKIP() << "there is no console";
  constexpr UINT Latin = 850;
  ASSERT_TRUE(::SetConsoleOutputCP(Latin));
  const DWORD mode = Mode() & ~DWORD{ENABLE_VIRTUAL_TERMINAL_PROCESSING};
  ASSERT_TRUE(::SetConsoleMode(console_, mode));
  EXPECT_FALSE(cli::Is_Terminal(cli::StandardStream::Out));
  EXPECT_EQ(Mode(), mode) << "a question changes nothing";
  cli::Set_Up_Consoles();
  EXPECT_EQ(::GetConsoleOutputCP(), UINT{CP_UTF8});
  EXPECT_EQ(cli::Is_Terminal(cli::StandardStream::Out),
            (Mode() & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0);
  cli::Put_Consoles_Back();
  EXPECT_EQ(::GetConsoleOutputCP(), Latin);
  EXPECT_EQ(Mode(), mode);
}

TEST_F(Console, That_was_not_set_up_is_left_alone) {
  if (!Is_There()) GTEST_SKIP() << "there is no console";
  const UINT code_page = ::GetConsoleOutputCP();
  cli::Put_Consoles_Back();
  EXPECT_EQ(::GetConsoleOutputCP(), code_page);
}

}  // namespace
}  // namespace quillspeech::tests
