#include "activex/modality.hpp"

#include <algorithm>

#include "activex/activation.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {

std::vector<ComPtr<IOleInPlaceFrame>> Activations::Frames() const {
  std::vector<ComPtr<IOleInPlaceFrame>> frames;
  for (const Activation* const one : all_) {
    const auto& frame = one->Frame();
    const auto is_same = [&](const auto& other) { return other.Get() == frame.Get(); };
    if (frame && std::ranges::none_of(frames, is_same)) frames.push_back(frame);
  }
  return frames;
}

HWND Activations::Top_Window() const {
  HWND top = nullptr;
  for (const Activation* const one : all_) {
    const HWND window = one->Window();
    if (!window || !::IsWindowVisible(window)) continue;
    if (!top || one->Has_Keyboard()) top = ::GetAncestor(window, GA_ROOT);
    if (one->Has_Keyboard()) break;
  }
  return top;
}

ModalTime::ModalTime(const Activations& activations) : frames_(activations.Frames()) {
  Enable_Modeless(false);
}

ModalTime::~ModalTime() { Enable_Modeless(true); }

void ModalTime::Enable_Modeless(bool on) const {
  for (const auto& frame : frames_) frame->EnableModeless(on ? TRUE : FALSE);
}

ContainedBoxes::ContainedBoxes(const Activations& activations, const windows::FormViews& views)
    : activations_(activations), boxes_([&activations, &views] {
        for (const HWND ours : {views.Modal_Window(), views.Active_Window()}) {
          if (ours) return ours;
        }
        return activations.Top_Window();
      }) {}

std::shared_ptr<const void> Begin_Modal_Time(const Activations& activations) {
  struct Used {
    explicit Used(const Activations& all) : time(all) {}
    CountedObject file;
    CountedControl session;
    ModalTime time;
  };
  return std::make_shared<const Used>(activations);
}

BoxAnswer ContainedBoxes::Show(const MessageBox& box) {
  const windows::FrontWindow front;
  const auto time = Begin_Modal_Time(activations_);
  return boxes_.Show(box);
}

}  // namespace quillspeech::activex
