#include "window_picture.hpp"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

namespace example {
namespace {

BITMAPINFOHEADER Header_For(int width, int height) {
  BITMAPINFOHEADER header = {};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = height;
  header.biPlanes = 1;
  header.biBitCount = 32;
  header.biSizeImage = static_cast<DWORD>(width * height * 4);
  return header;
}

}  // namespace

bool Save_Picture(HWND window, const std::wstring& file) {
  RECT area;
  GetClientRect(window, &area);
  BITMAPINFOHEADER header = Header_For(area.right, area.bottom);
  std::vector<std::uint8_t> points(header.biSizeImage);

  HDC from = GetDC(window);
  HDC memory = CreateCompatibleDC(from);
  HBITMAP picture = CreateCompatibleBitmap(from, area.right, area.bottom);
  HGDIOBJ before = SelectObject(memory, picture);
  BitBlt(memory, 0, 0, area.right, area.bottom, from, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  GetDIBits(memory, picture, 0, static_cast<UINT>(area.bottom), points.data(),
            reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS);
  DeleteObject(picture);
  DeleteDC(memory);
  ReleaseDC(window, from);

  BITMAPFILEHEADER head = {};
  head.bfType = 0x4D42;
  head.bfOffBits = sizeof head + sizeof header;
  head.bfSize = head.bfOffBits + header.biSizeImage;
  std::ofstream out(std::filesystem::path(file), std::ios::binary);
  out.write(reinterpret_cast<const char*>(&head), sizeof head);
  out.write(reinterpret_cast<const char*>(&header), sizeof header);
  out.write(reinterpret_cast<const char*>(points.data()),
            static_cast<std::streamsize>(points.size()));
  return out.good();
}

}  // namespace example
