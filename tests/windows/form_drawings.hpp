// A surface in memory that is drawn on, and what is found there dot by dot.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/form_drawing.hpp"
#include "tests/windows/form_pictures.hpp"

namespace quillspeech::tests {

inline constexpr FormColour Red = 0x0000FF;
inline constexpr FormColour Green = 0x00FF00;
inline constexpr FormColour Blue = 0xFF0000;
inline constexpr FormColour White = 0xFFFFFF;
inline constexpr FormColour Grey = 0xA0A0A0;

// A surface of 80 by 40 dots in memory, on a scale of 0 to 8 and of 0 to 4: ten dots to the unit.
struct Drawings : testing::Test {
  Drawings() { picture.Clear(White); }

  void Paint(std::vector<DrawingOperation> operations, DrawingScale scale = {0, 0, 8, 4},
             int dots_per_inch = 96) {
    windows::FormFonts fonts(windows::Scale_At(dots_per_inch));
    windows::Paint_Drawing({scale, std::move(operations)}, picture.Device(), {10, 10, 90, 50},
                           fonts);
  }
  // What a dot of the surface is.
  COLORREF At(int x, int y) const { return picture.At(10 + x, 10 + y); }
  // The smallest rectangle of the surface around all dots of that colour.
  RECT Extent(COLORREF colour) const {
    RECT extent{1000, 1000, -1000, -1000};
    for (int y = -10; y < 50; ++y) {
      for (int x = -10; x < 90; ++x) {
        if (At(x, y) != colour) continue;
        extent = {std::min<LONG>(extent.left, x), std::min<LONG>(extent.top, y),
                  std::max<LONG>(extent.right, x + 1), std::max<LONG>(extent.bottom, y + 1)};
      }
    }
    return extent;
  }
  Picture picture{100, 60};
};

inline void Expect_Rectangle(const RECT& found, const RECT& wanted) {
  EXPECT_EQ(found.left, wanted.left);
  EXPECT_EQ(found.top, wanted.top);
  EXPECT_EQ(found.right, wanted.right);
  EXPECT_EQ(found.bottom, wanted.bottom);
}

// A picture file of two dots, red and blue.
inline std::string Two_Dots() {
  const std::uint8_t dots[] = {0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00};
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof(BITMAPINFOHEADER);
  file.bfSize = file.bfOffBits + sizeof dots;
  BITMAPINFOHEADER format{};
  format.biSize = sizeof format;
  format.biWidth = 2;
  format.biHeight = 1;
  format.biPlanes = 1;
  format.biBitCount = 24;
  std::string bytes(file.bfSize, '\0');
  std::memcpy(bytes.data(), &file, sizeof file);
  std::memcpy(bytes.data() + sizeof file, &format, sizeof format);
  std::memcpy(bytes.data() + file.bfOffBits, dots, sizeof dots);
  return bytes;
}

}  // namespace quillspeech::tests
