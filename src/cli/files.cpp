#include "cli/files.hpp"

#include <system_error>

namespace quillspeech::cli {

FileError::FileError(const std::string& name, int error_number)
    : FileError(name, std::generic_category().message(error_number)) {}

FileError::FileError(const std::string& name, const std::string& reason)
    : std::runtime_error(name + ": " + reason) {}

}  // namespace quillspeech::cli
