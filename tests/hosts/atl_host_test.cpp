// A container that nobody here wrote: AtlAxWin of atl.dll, atl80.dll, atl100.dll and atl110.dll.
#include "tests/hosts/atl_host.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "examples/control/event_sink.hpp"
#include "examples/control/late_binding.hpp"

namespace quillspeech::tests {
namespace {

using example::EventConnection;
using example::LateBound;

constexpr std::uint32_t Green = 0x00FF00;

int Dots_Per_Inch() {
  HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dots;
}

// Of one window inside another.
RECT Place_In(HWND outer, HWND inner) {
  RECT place = {};
  GetWindowRect(inner, &place);
  MapWindowPoints(nullptr, outer, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

// What the window shows, as 0x00RRGGBB.
std::vector<std::uint32_t> Points_Of(HWND window) {
  RECT area = {};
  GetClientRect(window, &area);
  BITMAPINFO format = {};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = area.right;
  format.bmiHeader.biHeight = area.bottom;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  void* points = nullptr;
  HDC from = GetDC(window);
  HDC memory = CreateCompatibleDC(from);
  HBITMAP picture = CreateDIBSection(memory, &format, DIB_RGB_COLORS, &points, nullptr, 0);
  HGDIOBJ before = SelectObject(memory, picture);
  BitBlt(memory, 0, 0, area.right, area.bottom, from, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* const first = static_cast<const std::uint32_t*>(points);
  std::vector<std::uint32_t> copy(first, first + area.right * area.bottom);
  SelectObject(memory, before);
  DeleteObject(picture);
  DeleteDC(memory);
  ReleaseDC(window, from);
  return copy;
}

struct Search {
  const std::wstring& caption;
  HWND found = nullptr;
};

BOOL CALLBACK Look_At(HWND child, LPARAM longer) {
  auto& search = *reinterpret_cast<Search*>(longer);
  std::array<wchar_t, 200> text = {};
  GetWindowTextW(child, text.data(), static_cast<int>(text.size()));
  if (search.caption == text.data()) search.found = child;
  return search.found == nullptr;
}

// The control's child window with that caption; null when there is none.
HWND Child_With(HWND window, const std::wstring& caption) {
  Search search{caption};
  EnumChildWindows(window, Look_At, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// S_OK when nothing of the control is left.
HRESULT Can_Unload() {
  HMODULE module = GetModuleHandleW(L"Quillspeech.ocx");
  auto* const ask = reinterpret_cast<HRESULT(WINAPI*)()>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
  return ask ? ask() : E_FAIL;
}

class AtlAxWin : public testing::TestWithParam<std::string> {
 protected:
  // From the first event on.
  void Listen() {
    events_ = std::make_unique<EventConnection>(
        *host.Control(), [this](const std::wstring& event, const std::wstring&) {
          if (event == L"PropertyStatusBetweenDetectionToCoversion") {
            ++ticks;
          } else {
            heard.push_back(event);
          }
        });
    ASSERT_TRUE(events_->Is_Connected());
  }
  // Nothing is recorded, and no box tells that there is no microphone.
  void Keep_Still() { LateBound(host.Control().Get()).Set(L"Stop_everything_now", L"YES"); }
  void Stop_Listening() { events_.reset(); }

  AtlHost host{GetParam()};
  std::vector<std::wstring> heard;
  int ticks = 0;

 private:
  std::unique_ptr<EventConnection> events_;
};

INSTANTIATE_TEST_SUITE_P(, AtlAxWin, testing::Values("", "80", "100", "110"),
                         [](const auto& given) { return "of_atl" + given.param; });

TEST_P(AtlAxWin, The_control_is_active_in_place_in_its_own_size) {
  HWND window = host.Control_Window();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(GetParent(window), host.Site());
  EXPECT_TRUE(IsWindowVisible(window));
  const RECT place = Place_In(host.Site(), window);
  EXPECT_EQ(place.left, 0);
  EXPECT_EQ(place.top, 0);
  EXPECT_NEAR(place.right, MulDiv(3336, Dots_Per_Inch(), 1440), 1);
  EXPECT_NEAR(place.bottom, MulDiv(1884, Dots_Per_Inch(), 1440), 1);
}

TEST_P(AtlAxWin, The_face_is_drawn_with_green_texts_and_four_buttons) {
  HWND window = host.Control_Window();
  Run_Messages(200);
  int green = 0;
  for (const std::uint32_t point : Points_Of(window)) green += (point & 0xFFFFFF) == Green;
  EXPECT_GT(green, 20);
  for (const wchar_t* caption : {L"Start Recognition Activity", L"Stop Recognition Activity",
                                 L"Restart Recogniton Activity", L"Quillspeech Editor"}) {
    HWND button = Child_With(window, caption);
    EXPECT_TRUE(button && IsWindowVisible(button)) << std::string(caption, caption + 12);
  }
  EXPECT_TRUE(Child_With(window, L"Sleeping"));  // which tells that it knows itself at run time
}

TEST_P(AtlAxWin, The_members_speak_of_the_window) {
  const LateBound members(host.Control().Get());
  EXPECT_EQ(reinterpret_cast<HWND>(static_cast<INT_PTR>(members.Number(L"hWnd"))),
            host.Control_Window());
  members.Set(L"Enabled", 0);
  EXPECT_FALSE(IsWindowEnabled(host.Control_Window()));
  members.Set(L"Enabled", -1);
  EXPECT_TRUE(IsWindowEnabled(host.Control_Window()));
}

TEST_P(AtlAxWin, Events_arrive_at_a_sink_at_once_and_from_the_timer) {
  Listen();
  const LateBound members(host.Control().Get());
  members.Call(L"Start_Real_Action");
  Keep_Still();
  EXPECT_TRUE(Run_Until(3000, [this] { return ticks >= 3; }));
  members.Call(L"Stop_Real_Action");
  EXPECT_EQ(heard,
            (std::vector<std::wstring>{L"StartRecognitionActivity", L"StopRecognitionActivity"}));
  ticks = 0;
  Run_Messages(200);
  EXPECT_EQ(ticks, 0);
}

TEST_P(AtlAxWin, A_click_on_a_button_of_the_face_starts_and_stops) {
  Listen();
  HWND window = host.Control_Window();
  SendMessageW(Child_With(window, L"Start Recognition Activity"), BM_CLICK, 0, 0);
  Keep_Still();
  SendMessageW(Child_With(window, L"Stop Recognition Activity"), BM_CLICK, 0, 0);
  EXPECT_EQ(heard,
            (std::vector<std::wstring>{L"StartRecognitionActivity", L"StopRecognitionActivity"}));
}

TEST_P(AtlAxWin, It_keeps_its_size_when_the_container_gives_another) {
  const RECT before = Place_In(host.Site(), host.Control_Window());
  MoveWindow(host.Site(), 5, 7, 90, 60, TRUE);
  Run_Messages(50);
  const RECT after = Place_In(host.Site(), host.Control_Window());
  EXPECT_EQ(after.right - after.left, before.right - before.left);
  EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

TEST_P(AtlAxWin, It_moves_and_hides_with_the_container) {
  MoveWindow(host.Site(), 60, 50, 300, 200, TRUE);
  const RECT place = Place_In(host.Frame(), host.Control_Window());
  EXPECT_EQ(place.left, 60);
  EXPECT_EQ(place.top, 50);
  ShowWindow(host.Site(), SW_HIDE);
  EXPECT_FALSE(IsWindowVisible(host.Control_Window()));
  ShowWindow(host.Site(), SW_SHOW);
  EXPECT_TRUE(IsWindowVisible(host.Control_Window()));
}

TEST_P(AtlAxWin, Two_controls_share_the_session) {
  const AtlHost other(GetParam());
  const LateBound first(host.Control().Get());
  const LateBound second(other.Control().Get());
  first.Set(L"Noise_Sensitivity", 9);
  EXPECT_EQ(second.Number(L"Noise_Sensitivity"), 9);
}

TEST_P(AtlAxWin, Closed_it_leaves_no_window_and_no_object) {
  Listen();
  LateBound(host.Control().Get()).Call(L"Start_Real_Action");
  Keep_Still();
  HWND window = host.Control_Window();
  EXPECT_EQ(Can_Unload(), S_FALSE);
  Stop_Listening();
  host.Close();
  EXPECT_FALSE(IsWindow(window));
  Run_Messages(100);
  EXPECT_EQ(Can_Unload(), S_OK);
}

}  // namespace
}  // namespace quillspeech::tests

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
