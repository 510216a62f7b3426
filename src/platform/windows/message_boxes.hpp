// The system's own message boxes.
#pragma once

#include <functional>

#include "platform/message_boxes.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// While a box is up its own message loop runs, and the ticks of the hidden window with it. No other
// window of the thread takes input meanwhile.
class MessageBoxes final : public quillspeech::MessageBoxes {
 public:
  // `owner` is asked at each box for the window that the box belongs to. A null one is replaced by
  // the active window of the thread, and when there is none every window of the thread waits.
  explicit MessageBoxes(std::function<HWND()> owner = {}) : owner_(std::move(owner)) {}

  // A box that cannot be shown counts as answered OK or No.
  BoxAnswer Show(const MessageBox& box) override;

 private:
  std::function<HWND()> owner_;
};

}  // namespace quillspeech::windows
