#include "platform/windows/dialogs.hpp"

#include <commdlg.h>
// after it
#include <cderr.h>

#include <algorithm>
#include <cwchar>

#include "platform/form_caption.hpp"
#include "platform/windows/form_text.hpp"
#include "platform/windows/text.hpp"
#include "platform/windows/waiting_windows.hpp"

namespace quillspeech::windows {
namespace {

constexpr FormPlace Prompt_Place{150, 135, 3840, 1020};
constexpr int Most_Lines = 12;  // of a prompt

// It is shown character for character, and the whole of it where twelve lines hold it.
FormControl Prompt_Label(const InputBox& box, int dots_per_inch) {
  const FormScale scale = Scale_At(dots_per_inch);
  FormControl label;
  label.name = "Label1";
  label.place = Prompt_Place;
  label.multi_line = true;
  FormFonts fonts(scale);
  const TextMeasure measure(fonts.Font_For(label.font));
  const int width = scale.Across(Prompt_Place.width);
  const std::wstring prompt = measure.With_Broken_Words(Wide(box.prompt), width);
  const int height =
      std::min(measure.Height(prompt, width), Most_Lines * measure.Line_Height()) + 1;
  label.place.height = std::max(label.place.height, MulDiv(height, Twips_Per_Inch, dots_per_inch));
  label.text = As_Caption(Narrow(prompt));
  return label;
}

FormControl Answer_Box(const InputBox& box, int top) {
  FormControl answer;
  answer.name = "Text1";
  answer.kind = FormControlKind::TextBox;
  answer.place = {150, top, 5100, 315};
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

// What a name without one gets; empty: the pattern has no single one.
std::wstring Extension_Of(const std::string& pattern) {
  const std::size_t dot = pattern.rfind('.');
  if (dot == std::string::npos || pattern.find_first_of("*?;", dot) != std::string::npos) return {};
  return Wide(pattern.substr(dot + 1));
}

// A name that has one, or that a file bears, stays as it is.
std::wstring With_Extension(const std::wstring& name, const std::wstring& extension) {
  const std::size_t last = name.find_last_of(L".\\/:");
  const bool has_one = last != std::wstring::npos && name[last] == L'.';
  const bool is_there = GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
  return extension.empty() || has_one || is_there ? name : name + L'.' + extension;
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
  const FormControl prompt = Prompt_Label(box, views_.Dots_Per_Inch());
  const int answer_top = prompt.place.top + prompt.place.height + 165;
  Form form("InputBox", box.title, FormSize{5400, answer_top + 480});
  form.Add(Answer_Box(box, answer_top));
  form.Add(Button("Command1", "OK", 135));
  form.Add(Button("Command2", "Cancel", 570));
  form.Add(prompt);
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
  const FrontWindow front;
  const auto time = views_.Modal_Time ? views_.Modal_Time() : nullptr;
  const BoxTime others(asked.hwndOwner);
  if (!Is_Answered(asked)) return {};
  name.resize(std::wcslen(name.c_str()));
  return Narrow(With_Extension(name, Extension_Of(dialog.pattern)));
}

}  // namespace quillspeech::windows
