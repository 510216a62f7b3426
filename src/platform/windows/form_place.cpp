#include "platform/windows/form_place.hpp"

#include <algorithm>

#include "platform/windows/form_layout.hpp"

namespace quillspeech::windows {
namespace {

bool Is_Free(const RECT& place, const std::vector<RECT>& taken) {
  return std::ranges::none_of(taken, [&](const RECT& other) {
    RECT common{};
    return IntersectRect(&common, &place, &other) != FALSE;
  });
}

bool Lies_Within(const RECT& place, const RECT& area) {
  RECT common{};
  return IntersectRect(&common, &place, &area) && EqualRect(&common, &place);
}

}  // namespace

RECT Work_Area_Around(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  const HMONITOR monitor =
      MonitorFromWindow(window, window ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY);
  GetMonitorInfoW(monitor, &screen);
  return screen.rcWork;
}

RECT Centred(SIZE size, HWND owner) {
  const RECT area = Work_Area_Around(owner);
  RECT around = area;
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  const LONG left = (around.left + around.right - size.cx) / 2;
  const LONG top = (around.top + around.bottom - size.cy) / 2;
  const LONG held_left = std::max(area.left, std::min(left, area.right - size.cx));
  const LONG held_top = std::max(area.top, std::min(top, area.bottom - size.cy));
  return {held_left, held_top, held_left + size.cx, held_top + size.cy};
}

std::optional<RECT> Place_Beside(const RECT& place, const std::vector<RECT>& taken,
                                 const RECT& area) {
  if (Is_Free(place, taken)) return place;
  const LONG width = Width_Of(place);
  const LONG height = Height_Of(place);
  for (const RECT& other : taken) {
    const POINT below{place.left, other.bottom};
    const POINT on_the_right{other.right, place.top};
    const POINT above{place.left, other.top - height};
    const POINT on_the_left{other.left - width, place.top};
    for (const POINT& corner : {below, on_the_right, above, on_the_left}) {
      const RECT there{corner.x, corner.y, corner.x + width, corner.y + height};
      if (Lies_Within(there, area) && Is_Free(there, taken)) return there;
    }
  }
  return {};
}

RECT Place_In_Corner(const RECT& place, const RECT& area) {
  return {area.right - Width_Of(place), area.bottom - Height_Of(place), area.right, area.bottom};
}

}  // namespace quillspeech::windows
