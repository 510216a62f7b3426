#include "platform/windows/message_boxes.hpp"

#include <utility>

#include "platform/windows/text.hpp"
#include "platform/windows/waiting_windows.hpp"

namespace quillspeech::windows {

namespace {

UINT Style_Of(const MessageBox& box) {
  UINT style = box.buttons == BoxButtons::YesNo ? MB_YESNO : MB_OK;
  if (box.icon == BoxIcon::Stop) style |= MB_ICONHAND;
  if (box.icon == BoxIcon::Information) style |= MB_ICONINFORMATION;
  return style;
}

}  // namespace

BoxAnswer MessageBoxes::Show(const MessageBox& box) {
  HWND owner = owner_ ? owner_() : nullptr;
  if (owner == nullptr) owner = ::GetActiveWindow();
  const UINT waiting = owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
  const BoxTime time(owner);
  const int pressed = ::MessageBoxW(owner, Wide(box.text).c_str(), Wide(box.title).c_str(),
                                    Style_Of(box) | waiting);
  if (box.buttons == BoxButtons::OK) return BoxAnswer::OK;
  return pressed == IDYES ? BoxAnswer::Yes : BoxAnswer::No;
}

}  // namespace quillspeech::windows
