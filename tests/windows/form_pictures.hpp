// Pictures of windows and of drawings, to look at or to count colours in.
#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// A picture of 32 bits a dot in memory.
class Picture {
 public:
  Picture(int width, int height)
      : width_(width), height_(height), device_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;  // from the top
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(device_, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    dots_ = static_cast<const std::uint32_t*>(bits);
    old_ = SelectObject(device_, bitmap_);
  }
  ~Picture() {
    SelectObject(device_, old_);
    DeleteObject(bitmap_);
    DeleteDC(device_);
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  HDC Device() const { return device_; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  // 0x00BBGGRR.
  COLORREF At(int x, int y) const {
    GdiFlush();
    const std::uint32_t dot = dots_[y * width_ + x];
    return RGB(dot >> 16 & 0xFF, dot >> 8 & 0xFF, dot & 0xFF);
  }
  int Count(COLORREF colour) const {
    int count = 0;
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) count += At(x, y) == colour ? 1 : 0;
    }
    return count;
  }
  void Clear(COLORREF colour) {
    const RECT whole{0, 0, width_, height_};
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(device_, &whole, brush);
    DeleteObject(brush);
  }

  // As a BMP file.
  void Save(const std::string& path) const {
    GdiFlush();
    const auto bytes = static_cast<std::uint32_t>(width_ * height_) * 4U;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof(BITMAPINFOHEADER);
    file.bfSize = file.bfOffBits + bytes;
    BITMAPINFOHEADER format{};
    format.biSize = sizeof format;
    format.biWidth = width_;
    format.biHeight = -height_;
    format.biPlanes = 1;
    format.biBitCount = 32;
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&format), sizeof format);
    out.write(reinterpret_cast<const char*>(dots_), static_cast<std::streamsize>(bytes));
  }

 private:
  int width_;
  int height_;
  HDC device_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_ = nullptr;
  const std::uint32_t* dots_ = nullptr;
};

// What a window shows on the screen, its children with it.
inline void Take_Picture(HWND window, Picture& picture) {
  const HDC from = GetDC(window);
  BitBlt(picture.Device(), 0, 0, picture.Width(), picture.Height(), from, 0, 0, SRCCOPY);
  ReleaseDC(window, from);
}

}  // namespace quillspeech::tests
