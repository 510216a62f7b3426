// How many drawing objects the process has.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// Objects have a place each in a table. One that has gone leaves a gap, which the next one fills;
// with no gap left they follow one another. So what lies below the end, once it is reached, and is
// not ours was there before.
inline int Drawing_Objects() {
  constexpr int Places_In_A_Row = 300;
  std::vector<HBRUSH> ours;
  int last = 0;
  for (int row = 0; row < Places_In_A_Row;) {
    ours.push_back(CreateSolidBrush(RGB(1, 2, 3)));
    const int place = LOWORD(reinterpret_cast<std::uintptr_t>(ours.back()));
    row = place == last + 1 ? row + 1 : 0;
    last = place;
  }
  for (const HBRUSH brush : ours) DeleteObject(brush);
  return last - static_cast<int>(ours.size());
}

}  // namespace quillspeech::tests
