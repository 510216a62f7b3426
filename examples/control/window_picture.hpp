// A picture of a window, as a BMP file.
#pragma once

#include <windows.h>

#include <string>

namespace example {

// What the window shows inside its frame, now. False when the file cannot be written.
bool Save_Picture(HWND window, const std::wstring& file);

}  // namespace example
