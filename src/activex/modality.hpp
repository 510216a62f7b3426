// The containers of the session's controls while a message box of it is up.
#pragma once

#include <vector>

#include "activex/com.hpp"
#include "platform/windows/message_boxes.hpp"

namespace quillspeech::activex {

class Activation;

// The controls that there are, each as active as it is.
class Activations {
 public:
  void Add(const Activation& one) { all_.push_back(&one); }
  void Remove(const Activation& one) { std::erase(all_, &one); }

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

// Message boxes that lie before the container's window. The session stays on its thread meanwhile,
// and the file in memory: the box has a loop of its own, and no control need be left behind it.
class ContainedBoxes final : public MessageBoxes {
 public:
  explicit ContainedBoxes(const Activations& activations)
      : activations_(activations), boxes_([&activations] { return activations.Top_Window(); }) {}

  BoxAnswer Show(const MessageBox& box) override;

 private:
  const Activations& activations_;
  windows::MessageBoxes boxes_;
};

}  // namespace quillspeech::activex
