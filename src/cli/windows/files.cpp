#include "cli/files.hpp"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "cli/windows/name_encoding.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::cli {
namespace {

// An open file that closes itself.
class Descriptor {
 public:
  Descriptor(const std::wstring& name, int flags)
      : number_(::_wopen(name.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE)) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool Is_Open() const { return number_ >= 0; }
  int Number() const { return number_; }
  DWORD Type() const { return ::GetFileType(reinterpret_cast<HANDLE>(::_get_osfhandle(number_))); }
  void Close() {
    if (number_ >= 0) ::_close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

// The runtime's number for what the system has just refused.
int Last_Error() {
  switch (::GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return EACCES;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    default:
      return EIO;
  }
}

bool Is_Directory(const std::wstring& name) {
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Why the file did not open: the runtime calls a directory one that may not be read.
int Why_Not_Open(const std::wstring& name) {
  const int error = errno;
  return error == EACCES && Is_Directory(name) ? EISDIR : error;
}

// The error number, or 0.
int Write_All(int descriptor, std::span<const std::uint8_t> bytes) {
  constexpr std::size_t Most_At_Once = 1 << 20;  // a pipe takes no more than it has room for
  while (!bytes.empty()) {
    const auto part = static_cast<unsigned>(std::min(bytes.size(), Most_At_Once));
    const int written = ::_write(descriptor, bytes.data(), part);
    if (written < 0) return errno;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return 0;
}

// Ctrl-C and Ctrl-Break are passed over meanwhile, so that none leaves a temporary file behind.
class InterruptsHeld {
 public:
  InterruptsHeld() { ::SetConsoleCtrlHandler(Pass_Over, TRUE); }
  ~InterruptsHeld() { ::SetConsoleCtrlHandler(Pass_Over, FALSE); }
  InterruptsHeld(const InterruptsHeld&) = delete;
  InterruptsHeld& operator=(const InterruptsHeld&) = delete;

 private:
  static BOOL WINAPI Pass_Over(DWORD kind) {
    return kind == CTRL_C_EVENT || kind == CTRL_BREAK_EVENT;
  }
};

// The file that is to be replaced, links followed.
std::filesystem::path Target(const std::wstring& name) {
  std::error_code none;
  const auto target = std::filesystem::canonical(name, none);
  return none ? std::filesystem::path(name) : target;
}

std::wstring Temporary_Name(const std::filesystem::path& target, int number) {
  const std::wstring name =
      L".quillspeech-" + std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(number);
  return (target.parent_path() / name).wstring();
}

// The error number, or 0. What is there keeps its permissions.
int Put_In_Place(const std::wstring& temporary, const std::wstring& target) {
  const bool is_there = ::GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES;
  const bool done =
      is_there ? ::ReplaceFileW(target.c_str(), temporary.c_str(), nullptr,
                                REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0
               : ::MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
  return done ? 0 : Last_Error();
}

// Fills a file that was just made and gives it the target's place. The error number, or 0.
int Fill_And_Rename(Descriptor& file, const std::wstring& temporary, const std::wstring& target,
                    std::span<const std::uint8_t> bytes) {
  if (const int error = Write_All(file.Number(), bytes)) return error;
  if (::_commit(file.Number()) != 0) return errno;
  file.Close();
  return Put_In_Place(temporary, target);
}

void Replace_File(const std::string& name, std::span<const std::uint8_t> bytes) {
  const InterruptsHeld held;
  const std::filesystem::path target = Target(System_Name(name));
  for (int number = 0;; ++number) {
    const std::wstring temporary = Temporary_Name(target, number);
    Descriptor file(temporary, _O_WRONLY | _O_CREAT | _O_EXCL);
    if (!file.Is_Open() && errno == EEXIST) continue;
    if (!file.Is_Open()) throw FileError(name, errno);
    const int error = Fill_And_Rename(file, temporary, target.wstring(), bytes);
    if (error == 0) return;
    file.Close();
    ::DeleteFileW(temporary.c_str());
    throw FileError(name, error);
  }
}

}  // namespace

std::vector<std::uint8_t> Read_Whole_File(const std::string& name) {
  const std::wstring wide = System_Name(name);
  const Descriptor file(wide, _O_RDONLY);
  if (!file.Is_Open()) throw FileError(name, Why_Not_Open(wide));
  if (file.Type() == FILE_TYPE_CHAR) {
    throw FileError(name, "is a device, not a file");  // it may never end
  }
  constexpr std::size_t Block_Bytes = 1 << 16;
  const std::int64_t length = file.Type() == FILE_TYPE_DISK ? ::_filelengthi64(file.Number()) : 0;
  std::vector<std::uint8_t> bytes(
      std::max(static_cast<std::size_t>(std::max<std::int64_t>(length, 0)) + 1, Block_Bytes));
  for (std::size_t filled = 0;;) {
    if (filled == bytes.size()) bytes.resize(2 * filled);
    const std::size_t room = std::min<std::size_t>(bytes.size() - filled, 1 << 30);
    const int got = ::_read(file.Number(), bytes.data() + filled, static_cast<unsigned>(room));
    if (got < 0) throw FileError(name, errno);
    filled += static_cast<std::size_t>(got);
    if (got > 0) continue;
    bytes.resize(filled);
    return bytes;
  }
}

void Write_Whole_File(const std::string& name, std::span<const std::uint8_t> bytes) {
  const std::wstring wide = System_Name(name);
  if (Is_Directory(wide)) throw FileError(name, EISDIR);
  std::error_code none;
  const auto about = std::filesystem::status(wide, none);
  if (!std::filesystem::exists(about) || std::filesystem::is_regular_file(about)) {
    return Replace_File(name, bytes);
  }
  const Descriptor file(wide, _O_WRONLY);
  if (!file.Is_Open()) throw FileError(name, errno);
  if (const int error = Write_All(file.Number(), bytes)) throw FileError(name, error);
}

bool File_Exists(const std::string& name) {
  return ::GetFileAttributesW(System_Name(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool Is_Pipe(const std::string& name) {
  return System_Name(name).starts_with(L"\\\\.\\pipe\\");  // pipes have a place of their own
}

bool Is_Same_File(const std::string& one, const std::string& other) {
  std::error_code none;
  return std::filesystem::equivalent(System_Name(one), System_Name(other), none);
}

}  // namespace quillspeech::cli
