#include "cli/windows/input_reader.hpp"

#include <io.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/windows/text.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::cli {

struct InputReader::Shared {
  std::mutex mutex;
  std::condition_variable changed;
  HANDLE input = nullptr;
  std::function<void()> arrived;
  std::string block;  // empty: none waits to be taken
  bool has_ended = false;
  bool is_left = false;  // the reader is gone
};

namespace {

// As UTF-8, whatever the console's code page is: some consoles end a read of bytes at the first
// character beyond ASCII when that page is UTF-8. Nothing at a line that begins with Ctrl-Z.
std::optional<std::string> Read_Console(HANDLE console, Utf16Pieces& pieces) {
  constexpr wchar_t Console_End = L'\x1a';
  std::wstring text(4'096, L'\0');
  std::string block;
  while (block.empty()) {
    DWORD count = 0;
    if (!::ReadConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &count, nullptr)) {
      return std::nullopt;
    }
    if (count == 0 || text.front() == Console_End) return std::nullopt;
    block = pieces.Take({text.data(), count});
  }
  return block;
}

// Nothing at the end. A pipe ends when nobody can write to it any more, and not by a write of
// nothing.
std::optional<std::string> Read_Block(HANDLE input, Utf16Pieces& pieces) {
  DWORD mode = 0;
  if (::GetConsoleMode(input, &mode)) return Read_Console(input, pieces);
  std::string bytes(65'536, '\0');
  DWORD count = 0;
  do {
    if (!::ReadFile(input, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) {
      return std::nullopt;
    }
  } while (count == 0 && ::GetFileType(input) == FILE_TYPE_PIPE);
  bytes.resize(count);
  if (bytes.empty()) return std::nullopt;
  return bytes;
}

}  // namespace

std::string Utf16Pieces::Take(std::wstring_view piece) {
  std::wstring text = std::exchange(half_, {});
  text += piece;
  if (!text.empty() && IS_HIGH_SURROGATE(text.back())) {
    half_ = text.back();
    text.pop_back();
  }
  return windows::Utf8_From_Wide(text);
}

InputReader::InputReader(int descriptor) : shared_(std::make_shared<Shared>()) {
  shared_->input = reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
  std::thread([shared = shared_] { Run(shared); }).detach();
}

InputReader::~InputReader() {
  const std::lock_guard lock(shared_->mutex);
  shared_->is_left = true;
  shared_->arrived = nullptr;
  shared_->changed.notify_all();
}

void InputReader::Run(const std::shared_ptr<Shared>& shared) {
  Utf16Pieces pieces;
  for (;;) {
    auto block = Read_Block(shared->input, pieces);
    std::unique_lock lock(shared->mutex);
    if (shared->is_left) return;
    shared->has_ended = !block;
    if (block) shared->block = std::move(*block);
    if (shared->arrived) shared->arrived();
    if (!block) return;
    shared->changed.wait(lock, [&] { return shared->block.empty() || shared->is_left; });
  }
}

void InputReader::At_Arrival(std::function<void()> arrived) {
  const std::lock_guard lock(shared_->mutex);
  shared_->arrived = std::move(arrived);
}

bool InputReader::Is_Ready() const {
  const std::lock_guard lock(shared_->mutex);
  return !shared_->block.empty() || shared_->has_ended;
}

std::optional<std::string> InputReader::Take() {
  const std::lock_guard lock(shared_->mutex);
  if (shared_->block.empty() && shared_->has_ended) return std::nullopt;
  shared_->changed.notify_all();
  return std::exchange(shared_->block, {});
}

}  // namespace quillspeech::cli
