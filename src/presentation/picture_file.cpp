#include "presentation/picture_file.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

namespace quillspeech {
namespace {

using namespace std::string_view_literals;

// What stands at a place of the file; a picture has that many bytes at least.
struct Head {
  std::size_t least_bytes;
  std::size_t place;
  std::string_view mark;
};

constexpr std::size_t Bitmap_Least_Bytes = 26;
constexpr std::size_t Icon_Least_Bytes = 22;
constexpr std::size_t Icon_Count_Place = 4;

constexpr Head Heads[] = {
    {13, 0, "GIF87a"sv},
    {13, 0, "GIF89a"sv},
    {4, 0, "\xFF\xD8\xFF"sv},
    {40, 0, "\xD7\xCD\xC6\x9A"sv},  // a metafile behind a head with its size
};
constexpr Head Bitmap{Bitmap_Least_Bytes, 0, "BM"sv};
constexpr Head Icon{Icon_Least_Bytes, 0, "\0\0\x01\0"sv};
constexpr Head Cursor{Icon_Least_Bytes, 0, "\0\0\x02\0"sv};
constexpr Head Enhanced_Record{88, 0, "\x01\0\0\0"sv};
constexpr Head Enhanced_Mark{88, 40, " EMF"sv};

bool Has(std::string_view bytes, const Head& head) {
  return bytes.size() >= head.least_bytes && bytes.substr(head.place).starts_with(head.mark);
}

// BM alone may begin a text as well: behind it stands one of the known headers, by its length.
bool Is_Bitmap(std::string_view bytes) {
  constexpr std::string_view Header_Lengths = "\x0C\x28\x34\x38\x40\x6C\x7C"sv;
  constexpr std::size_t Place = 14;
  return Has(bytes, Bitmap) && Header_Lengths.find(bytes[Place]) != std::string_view::npos &&
         bytes.substr(Place + 1).starts_with("\0\0\0"sv);
}

bool Is_Icon(std::string_view bytes) {
  return (Has(bytes, Icon) || Has(bytes, Cursor)) && bytes.substr(Icon_Count_Place, 2) != "\0\0"sv;
}

}  // namespace

bool Is_Picture(const std::string& bytes) {
  return Is_Bitmap(bytes) || Is_Icon(bytes) ||
         (Has(bytes, Enhanced_Record) && Has(bytes, Enhanced_Mark)) ||
         std::any_of(std::begin(Heads), std::end(Heads),
                     [&](const Head& head) { return Has(bytes, head); });
}

std::optional<std::string> Read_Picture(RiffFiles& files, const std::string& path) {
  const std::unique_ptr<RiffFile> file = files.Open(path);
  if (!file) return std::nullopt;
  std::string bytes;
  std::array<std::uint8_t, 65536> part;
  while (const std::int64_t count = file->Read(part.data(), part.size())) {
    if (count < 0 || bytes.size() + static_cast<std::size_t>(count) > Longest_Picture_Bytes) {
      return std::nullopt;
    }
    bytes.append(part.begin(), part.begin() + count);
  }
  if (!Is_Picture(bytes)) return std::nullopt;
  return bytes;
}

}  // namespace quillspeech
