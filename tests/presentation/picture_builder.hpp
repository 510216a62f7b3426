// The beginnings of picture files, as long as such a file is at least.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillspeech::tests {

// The mark, and zeros up to that length.
inline std::string Head_Of(std::string_view mark, std::size_t length) {
  std::string bytes(mark);
  bytes.resize(length);
  return bytes;
}

inline std::string Bitmap_Bytes(char header_length = 40) {
  std::string bytes = Head_Of("BM", 70);
  bytes[14] = header_length;
  return bytes;
}

inline std::string Icon_Bytes(char kind = 1, char images = 1) {
  std::string bytes = Head_Of("", 30);
  bytes[2] = kind;
  bytes[4] = images;
  return bytes;
}

inline std::string Enhanced_Metafile_Bytes() {
  std::string bytes = Head_Of("\x01", 88);
  return bytes.replace(40, 4, " EMF");
}

inline std::string Gif_Bytes() { return Head_Of("GIF89a", 43); }

}  // namespace quillspeech::tests
