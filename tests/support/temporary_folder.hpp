// A folder on the disk for one test, which goes with it.
#pragma once

#ifdef _WIN32
#include <process.h>
#else
#include <stdlib.h>
#endif

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace quillspeech::tests {

// A test fixture takes it as a base: `struct OnDisk : testing::Test, TemporaryFolder {};`. Names
// are those of files in the folder.
class TemporaryFolder {
 public:
  TemporaryFolder() : folder_(Made()) {}
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Folder() const { return folder_; }
  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  bool Exists(const std::string& name) const { return std::filesystem::exists(Path(name)); }

  // Makes a file of these bytes and gives its path.
  std::string Put(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
    std::ofstream(Path(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return Path(name);
  }
  std::string Put_Text(const std::string& name, const std::string& text) const {
    return Put(name, {text.begin(), text.end()});
  }
  std::vector<std::uint8_t> Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
#ifdef _WIN32
  static std::filesystem::path Made() {
    const std::string start = "quillspeech-" + std::to_string(::_getpid()) + "-";
    std::filesystem::path folder;
    int number = 0;
    do {
      folder = std::filesystem::temp_directory_path() / (start + std::to_string(++number));
    } while (!std::filesystem::create_directory(folder));
    return folder;
  }
#else
  static std::filesystem::path Made() {
    std::string name = (std::filesystem::temp_directory_path() / "quillspeech-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::system_error(errno, std::generic_category());
    return name;
  }
#endif

  std::filesystem::path folder_;
};

}  // namespace quillspeech::tests
