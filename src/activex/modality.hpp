// The containers of the session's controls while a message box of it is up.
#pragma once

#include <memory>
#include <vector>

#include "activex/com.hpp"
#include "platform/windows/form_view.hpp"
#include "platform/windows/message_boxes.hpp"

namespace quillspeech::activex {

class Activation;

// The controls that there are, each as active as it is.
class Activations {
 public:
  void Add(const Activation& one) { all_.push_back(&one); }
  void Remove(const Activation& one) { std::erase(all_, &one); }
  void Forget_All() { all_.clear(); }

  // The frames of those that are active in place, each once.
  std::vector<ComPtr<IOleInPlaceFrame>> Frames() const;
  // The top-level window around the one that has the keyboard, or else around one that is active in
  // place; null when none shows.
  HWND Top_Window() const;

 private:
  std::vector<const Activation*> all_;
};

// As long as it lives, the frames keep their modeless windows disabled. They are told of its end
// also when their controls have gone meanwhile.
class ModalTime {
 public:
  explicit ModalTime(const Activations& activations);
  ~ModalTime();
  ModalTime(const ModalTime&) = delete;
  ModalTime& operator=(const ModalTime&) = delete;

 private:
  void Enable_Modeless(bool on) const;

  const std::vector<ComPtr<IOleInPlaceFrame>> frames_;
};

// The same for whoever waits in a window of ours, until what this gives is let go. The session
// stays on its thread meanwhile, and the file in memory: no control need be left behind the window.
std::shared_ptr<const void> Begin_Modal_Time(const Activations& activations);

// Message boxes that lie before the window that a person works in: a modal one of ours, or else the
// one of ours that is active, or else the container's.
class ContainedBoxes final : public MessageBoxes {
 public:
  ContainedBoxes(const Activations& activations, const windows::FormViews& views);

  BoxAnswer Show(const MessageBox& box) override;

 private:
  const Activations& activations_;
  windows::MessageBoxes boxes_;
};

}  // namespace quillspeech::activex
