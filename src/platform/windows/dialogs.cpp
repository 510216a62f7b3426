#include "platform/windows/dialogs.hpp"

#include <commdlg.h>
// after it
#include <cderr.h>

#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

constexpr FormSize Box_Size{5400, 1800};

FormControl Prompt_Label(const InputBox& box) {
  FormControl label;
  label.name = "Label1";
  label.place = {150, 135, 3840, 1020};
  label.text = box.prompt;
  label.multi_line = true;
  return label;
}

FormControl Answer_Box(const InputBox& box) {
  FormControl answer;
  answer.name = "Text1";
  answer.kind = FormControlKind::TextBox;
  answer.place = {150, 1320, 5100, 315};
  answer.text = box.text;
  return answer;
}

FormControl Button(const char* name, const char* caption, int top) {
  FormControl button;
  button.name = name;
  button.kind = FormControlKind::Button;
  button.place = {4170, top, 1080, 345};
  button.text = caption;
  return button;
}

// A filter is a text and its pattern, each with a zero behind it, and one more at the end.
std::wstring Filter_Of(const std::string& pattern) {
  const std::wstring wide = Wide(pattern);
  std::wstring filter;
  for (const std::wstring& kind : {wide, std::wstring(L"*.*")}) {
    filter += (kind == L"*.*" ? L"All files (*.*)" : kind) + L'\0' + kind + L'\0';
    if (wide == L"*.*") break;
  }
  return filter + L'\0';
}

// A name that no file can have is not shown.
bool Is_Answered(OPENFILENAMEW& asked) {
  if (GetOpenFileNameW(&asked)) return true;
  if (CommDlgExtendedError() != FNERR_INVALIDFILENAME) return false;
  asked.lpstrFile[0] = L'\0';
  return GetOpenFileNameW(&asked) != FALSE;
}

}  // namespace

// Enter is OK and Escape is Cancel; the text stands selected, so that typing replaces it.
std::string Dialogs::Ask_Text(const InputBox& box) {
  Form form("InputBox", box.title, Box_Size);
  form.Add(Answer_Box(box));
  form.Add(Button("Command1", "OK", 135));
  form.Add(Button("Command2", "Cancel", 570));
  form.Add(Prompt_Label(box));
  form.Set_Default_Button("Command1");
  form.Set_Cancel_Button("Command2");
  std::string answer;
  form.On("Command1", FormEvent::Click, [&] {
    answer = form["Text1"].text;
    form.Unload();
  });
  form.On("Command2", FormEvent::Click, [&] { form.Unload(); });
  views_.Show(form, Modality::Modal);
  return answer;
}

// Relative names keep their meaning: the folder of the process does not change with the dialog's.
std::string Dialogs::Ask_File(const FileDialog& dialog) {
  constexpr std::size_t Longest_Name = 32'767;
  std::wstring name = Wide(dialog.name);
  name.resize(Longest_Name);
  const std::wstring title = Wide(dialog.title);
  const std::wstring filter = Filter_Of(dialog.pattern);
  OPENFILENAMEW asked{};
  asked.lStructSize = sizeof asked;
  asked.hwndOwner = views_.Owner_For_New_Window();
  asked.lpstrFilter = filter.c_str();
  asked.lpstrFile = name.data();
  asked.nMaxFile = static_cast<DWORD>(name.size());
  asked.lpstrTitle = title.c_str();
  asked.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  const auto time = views_.Modal_Time ? views_.Modal_Time() : nullptr;
  if (!Is_Answered(asked)) return {};
  return Narrow(name.c_str());
}

}  // namespace quillspeech::windows
