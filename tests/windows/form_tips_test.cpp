// How wide the tips of a form may get.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/form_tips.hpp"
#include "tests/windows/form_screen.hpp"
#include "tests/windows/thread_windows.hpp"
//
#include <commctrl.h>

namespace quillspeech::tests {
namespace {

LRESULT Widest_At(int dots_per_inch) {
  const HostWindow form;
  windows::FormTips tips(form.Window(), windows::Scale_At(dots_per_inch));
  tips.Set(form.Window(), "A tip");
  const auto all = Windows_Of(GetCurrentThreadId());
  const auto found = std::ranges::find_if(
      all, [](HWND window) { return Class_Of(window) == L"tooltips_class32"; });
  return found == all.end() ? 0 : SendMessageW(*found, TTM_GETMAXTIPWIDTH, 0, 0);
}

TEST(FormTips, A_tip_is_broken_at_the_same_width_on_a_finer_screen) {
  EXPECT_EQ(Widest_At(96), 400);
  EXPECT_EQ(Widest_At(144), 600);
  EXPECT_EQ(Widest_At(192), 800);
}

}  // namespace
}  // namespace quillspeech::tests
