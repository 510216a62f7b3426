// What is typed at a console of this program's own. It is skipped where there can be none.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <string>
#include <vector>

#include "cli/live_input.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {
namespace {

class ConsoleInput : public testing::Test {
 protected:
  ConsoleInput()
      : console_(::CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE,
                               FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                               nullptr)),
        code_page_(::GetConsoleCP()) {}
  ~ConsoleInput() override { ::SetConsoleCP(code_page_); }

  bool Is_There() const { return console_ != INVALID_HANDLE_VALUE; }
  void Type(const std::wstring& text) const {
    std::vector<INPUT_RECORD> keys(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
      keys[i].EventType = KEY_EVENT;
      KEY_EVENT_RECORD& key = keys[i].Event.KeyEvent;
      key.bKeyDown = TRUE;
      key.wRepeatCount = 1;
      key.uChar.UnicodeChar = text[i];
      if (text[i] == L'\r') key.wVirtualKeyCode = VK_RETURN;
    }
    DWORD written = 0;
    EXPECT_TRUE(
        ::WriteConsoleInputW(console_, keys.data(), static_cast<DWORD>(keys.size()), &written));
    EXPECT_EQ(written, keys.size());
  }
  // The next block that is read; "(end)" at the end.
  std::string Heard() {
    std::string heard;
    input_.Watch([&] {
      heard = input_.Read().value_or("(end)");
      input_.Unwatch();
    });
    while (heard.empty()) events_.Wait_For_Events();
    return heard;
  }

 private:
  HANDLE console_;  // left open: the reading thread may still stand in it
  UINT code_page_;
  cli::backend::EventLoop events_;
  cli::LiveInput input_{events_,
                        ::_open_osfhandle(reinterpret_cast<intptr_t>(console_), _O_BINARY)};
};

// One test, since its reading thread stays with the console.
TEST_F(ConsoleInput, Lines_come_as_utf_8_whatever_the_code_page_until_one_begins_with_ctrl_z) {
  if (!Is_There()) GTEST_SKIP() << "there is no console";
  for (const UINT code_page : {UINT{850}, UINT{1252}, UINT{CP_UTF8}}) {
    ::SetConsoleCP(code_page);
    Type(L"p\x0430\x00fc\x20ac\r");
    EXPECT_EQ(Heard(), "p\xd0\xb0\xc3\xbc\xe2\x82\xac\r\n") << code_page;
  }
  // Longer than a read, which ends within a character.
  const std::size_t before = 4'095;
  Type(std::wstring(before, L'x') + L"\xd83d\xde00\r");
  std::string all = Heard();
  all += Heard();
  EXPECT_EQ(all, std::string(before, 'x') + "\xf0\x9f\x98\x80\r\n");
  Type(L"\x001a\r");
  EXPECT_EQ(Heard(), "(end)");
}

}  // namespace
}  // namespace quillspeech::tests
