// An open handle of the system's, which is closed with its owner.
#pragma once

#include <utility>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (Is_Open()) ::CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool Is_Open() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  HANDLE Get() const { return handle_; }
  // From here on another closes it.
  HANDLE Release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

 private:
  HANDLE handle_;
};

}  // namespace quillspeech::windows
