#include "platform/windows/form_tips.hpp"

#include <commctrl.h>

#include <string>

#include "platform/windows/form_classes.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

constexpr int Widest_Tip = 6000;  // twips

TOOLINFOW Tool_Of(HWND form, HWND control) {
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // that of every version of the common controls
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  return tool;
}

}  // namespace

// Its owner is the window on the desktop that the form lies in, which may live on.
FormTips::~FormTips() {
  if (tips_ && IsWindow(tips_)) DestroyWindow(tips_);
}

bool FormTips::Make() {
  if (tips_) return true;
  const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_BAR_CLASSES};
  InitCommonControlsEx(&wanted);
  tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                          WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, form_, nullptr, This_Module(), nullptr);
  if (!tips_) return false;
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, scale_.Across(Widest_Tip));
  SendMessageW(tips_, TTM_ACTIVATE, is_active_, 0);
  return true;
}

void FormTips::Set(HWND control, std::string_view tip) {
  if (tip.empty() && !tips_) return;
  if (!Make()) return;
  TOOLINFOW tool = Tool_Of(form_, control);
  SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (tip.empty()) return;
  std::wstring text = Wide(tip);
  tool.lpszText = text.data();
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormTips::Activate(bool on) {
  is_active_ = on;
  if (tips_) SendMessageW(tips_, TTM_ACTIVATE, on, 0);
}

}  // namespace quillspeech::windows
