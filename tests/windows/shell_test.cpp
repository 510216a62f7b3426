#include "platform/windows/shell.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/windows/windows_api.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {
namespace {

struct DesktopShell : testing::Test, TemporaryFolder {
  windows::Shell shell;
};

TEST_F(DesktopShell, The_windows_directory_is_a_folder_without_a_separator_at_its_end) {
  const std::string directory = shell.Windows_Directory();
  ASSERT_FALSE(directory.empty());
  EXPECT_TRUE(std::filesystem::is_directory(directory));
  EXPECT_NE(directory.back(), '\\');
}

TEST_F(DesktopShell, A_document_that_is_not_there_does_not_open) {
  EXPECT_FALSE(shell.Open(Path("none.htm"), 0));
}

TEST_F(DesktopShell, A_document_without_a_program_does_not_open) {
  EXPECT_FALSE(shell.Open(Put_Text("a.no-program-has-this", "text"), 0));
}

TEST_F(DesktopShell, What_can_be_opened_is) {
  EXPECT_TRUE(shell.Open(shell.Windows_Directory() + "\\system32\\hostname.exe", 0));
}

TEST_F(DesktopShell, The_mouse_pointer_is_afterwards_as_it_was) {
  const HCURSOR arrow = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  ::SetCursor(arrow);
  shell.Open(Path("none.htm"), 0);
  EXPECT_EQ(::GetCursor(), arrow);
}

}  // namespace
}  // namespace quillspeech::tests
