// Picture files that a developer names.
#pragma once

#include <optional>
#include <string>

#include "platform/riff_file.hpp"

namespace quillspeech {

inline constexpr std::size_t Longest_Picture_Bytes = std::size_t{16} * 1024 * 1024;

// Whether the bytes begin as a picture does that a window can show: a bitmap, GIF, JPEG, icon,
// cursor, enhanced metafile, or a metafile that tells its size.
bool Is_Picture(const std::string& bytes);

// The whole file. Nothing when it cannot be opened or read, is too long or is no picture.
std::optional<std::string> Read_Picture(RiffFiles& files, const std::string& path);

}  // namespace quillspeech
