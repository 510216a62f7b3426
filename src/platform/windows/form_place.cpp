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

RECT Desktop() {
  RECT desktop{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &desktop, 0);
  return desktop;
}

bool Lies_Within(const RECT& place, const RECT& desktop) {
  RECT common{};
  return IntersectRect(&common, &place, &desktop) && EqualRect(&common, &place);
}

}  // namespace

std::optional<RECT> Place_Beside(const RECT& place, const std::vector<RECT>& taken) {
  if (Is_Free(place, taken)) return place;
  const RECT desktop = Desktop();
  const LONG width = Width_Of(place);
  const LONG height = Height_Of(place);
  for (const RECT& other : taken) {
    const POINT below{place.left, other.bottom};
    const POINT on_the_right{other.right, place.top};
    const POINT above{place.left, other.top - height};
    const POINT on_the_left{other.left - width, place.top};
    for (const POINT& corner : {below, on_the_right, above, on_the_left}) {
      const RECT there{corner.x, corner.y, corner.x + width, corner.y + height};
      if (Lies_Within(there, desktop) && Is_Free(there, taken)) return there;
    }
  }
  return {};
}

RECT Place_In_Corner(const RECT& place) {
  const RECT desktop = Desktop();
  return {desktop.right - Width_Of(place), desktop.bottom - Height_Of(place), desktop.right,
          desktop.bottom};
}

}  // namespace quillspeech::windows
