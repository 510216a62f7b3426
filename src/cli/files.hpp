// Whole files in and out.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillspeech::cli {

// The name and the system's own words: "words.SAY: No such file or directory".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& name, int error_number);
  FileError(const std::string& name, const std::string& reason);
};

// All bytes of a file or pipe. Throws FileError; a directory or a device is refused.
std::vector<std::uint8_t> Read_Whole_File(const std::string& name);

// Writes a temporary file beside the name and renames it, so that the name holds the old bytes or
// the new ones and never a part of them. A link is followed, and a file that is there keeps its
// permissions. A pipe or a device is written as it stands. Throws FileError.
void Write_Whole_File(const std::string& name, std::span<const std::uint8_t> bytes);

// Whether the name leads to anything.
bool File_Exists(const std::string& name);
// Whether it leads to a pipe.
bool Is_Pipe(const std::string& name);
// Whether both names lead to one file that is there.
bool Is_Same_File(const std::string& one, const std::string& other);

}  // namespace quillspeech::cli
