#include "main_window.hpp"

#include <commdlg.h>

#include <algorithm>

#include "padded_wave.hpp"

namespace example {
namespace {

enum Command { Start_Listening = 100, Stop_Listening, Restart_Listening, Open_Wave, Choose_First };

constexpr const wchar_t* Tick = L"PropertyStatusBetweenDetectionToCoversion";

std::wstring Text_Of(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

// Asks for a file; empty when the person chose none.
std::wstring Ask_For_File(HWND owner, const wchar_t* filter) {
  wchar_t name[MAX_PATH] = L"";
  OPENFILENAMEW question = {};
  question.lStructSize = sizeof question;
  question.hwndOwner = owner;
  question.lpstrFilter = filter;
  question.lpstrFile = name;
  question.nMaxFile = MAX_PATH;
  question.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return GetOpenFileNameW(&question) ? name : L"";
}

}  // namespace

MainWindow::MainWindow(const std::wstring& language, const std::wstring& engine) {
  HDC screen = GetDC(nullptr);
  dots_per_inch_ = GetDeviceCaps(screen, LOGPIXELSX);
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  font_ = CreateFontIndirectW(&metrics.lfMessageFont);
  HGDIOBJ before = SelectObject(screen, font_);
  TEXTMETRICW text;
  GetTextMetricsW(screen, &text);
  text_height_ = text.tmHeight;
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  metrics.lfMessageFont.lfWeight = FW_SEMIBOLD;
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, 5, 4);
  heading_font_ = CreateFontIndirectW(&metrics.lfMessageFont);

  WNDCLASSW kind = {};
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursor(nullptr, IDC_ARROW);
  kind.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
  kind.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  kind.lpszClassName = L"QuillspeechExample";
  RegisterClassW(&kind);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kind.lpszClassName, L"Quillspeech example",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                            Scaled(800), Scaled(560), nullptr, nullptr, kind.hInstance, nullptr);
  Make_Controls(language, engine);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Lay_Out();
  Show_Status();
}

MainWindow::~MainWindow() {
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  control_.reset();
  if (IsWindow(window_)) DestroyWindow(window_);
  DeleteObject(font_);
  DeleteObject(heading_font_);
}

HWND MainWindow::Add(const wchar_t* kind, const wchar_t* text, DWORD style, int id) {
  const bool sunken = lstrcmpW(kind, L"EDIT") == 0 || lstrcmpW(kind, L"LISTBOX") == 0;
  HWND child = CreateWindowExW(
      sunken ? WS_EX_CLIENTEDGE : 0, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  return child;
}

void MainWindow::Make_Controls(const std::wstring& language, const std::wstring& engine) {
  heading_control_ = Add(L"STATIC", L"The control", SS_NOPREFIX);
  control_ = std::make_unique<HostedControl>(
      window_,
      [this](const std::wstring& event, const std::wstring& argument) { Heard(event, argument); });
  constexpr const wchar_t* Captions[] = {L"&Start", L"S&top", L"&Restart", L"&Open WAV\x2026"};
  for (int i = 0; i < 4; ++i) {
    buttons_[i] = Add(L"BUTTON", Captions[i], WS_TABSTOP, Start_Listening + i);
  }
  constexpr const wchar_t* Names[] = {L"Language file", L"Engine file"};
  const std::wstring* values[] = {&language, &engine};
  for (int i = 0; i < 2; ++i) {
    labels_[i] = Add(L"STATIC", Names[i], SS_NOPREFIX);
    files_[i] = Add(L"EDIT", values[i]->c_str(), WS_TABSTOP | ES_AUTOHSCROLL);
    choose_[i] = Add(L"BUTTON", L"\x2026", WS_TABSTOP, Choose_First + i);
  }
  heading_words_ = Add(L"STATIC", L"Words", SS_NOPREFIX);
  results_ = std::make_unique<ResultsView>(window_, font_);
  heading_events_ = Add(L"STATIC", L"Events", SS_NOPREFIX);
  events_ = Add(L"LISTBOX", L"", WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL);
  status_ = Add(L"STATIC", L"", SS_NOPREFIX | SS_ENDELLIPSIS);
  for (HWND heading : {heading_control_, heading_words_, heading_events_}) {
    SendMessageW(heading, WM_SETFONT, reinterpret_cast<WPARAM>(heading_font_), TRUE);
  }
}

void MainWindow::Place(HWND child, int x, int y, int width, int height) const {
  MoveWindow(child, x, y, std::max(width, 0), std::max(height, 0), TRUE);
}

// Two columns: the left one is as wide as the control, the right one has the rest.
void MainWindow::Lay_Out() {
  RECT area;
  GetClientRect(window_, &area);
  const int edge = Scaled(16), gap = Scaled(8), line = Scaled(20), button = Scaled(28);
  const int file = text_height_ + Scaled(8);
  const SIZE face = HostedControl::Size(dots_per_inch_);
  const int left_width = face.cx;

  int y = edge;
  Place(heading_control_, edge, y, left_width, line);
  y += line + gap;
  Place(control_->Window(), edge, y, face.cx, face.cy);
  y += face.cy + gap + gap;
  const int half = (left_width - gap) / 2;
  for (int i = 0; i < 4; ++i) {
    Place(buttons_[i], edge + (i % 2) * (half + gap), y + (i / 2) * (button + gap), half, button);
  }
  y += 2 * (button + gap) + gap;
  for (int i = 0; i < 2; ++i) {
    Place(labels_[i], edge, y, left_width, line);
    y += line;
    Place(files_[i], edge, y, left_width - button - gap / 2, file);
    Place(choose_[i], edge + left_width - button, y, button, file);
    y += file + gap + gap / 2;
  }

  const int x = edge + left_width + Scaled(28);
  const int right_width = area.right - x - edge;
  const int bottom = area.bottom - edge - line - gap;
  const int words_height = Scaled(7 * 26);
  Place(heading_words_, x, edge, right_width, line);
  Place(results_->Window(), x, edge + line + gap, right_width, words_height);
  y = edge + line + gap + words_height + gap + gap;
  Place(heading_events_, x, y, right_width, line);
  Place(events_, x, y + line + gap, right_width, bottom - y - line - gap);
  Place(status_, edge, area.bottom - edge - line + gap / 2, area.right - 2 * edge, line);
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  auto* main = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!main) return DefWindowProcW(window, message, wide, longer);
  try {
    return main->Handle(message, wide, longer);
  } catch (const CallFailed& failure) {
    MessageBoxW(window, failure.description.c_str(), L"Quillspeech example", MB_ICONWARNING);
    return 0;
  }
}

LRESULT MainWindow::Handle(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_SIZE:
      Lay_Out();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(longer)->ptMinTrackSize = {Scaled(640), Scaled(480)};
      return 0;
    case WM_COMMAND:
      if (HIWORD(wide) == BN_CLICKED) Do_Command(LOWORD(wide));
      return 0;
    case WM_CTLCOLORSTATIC:
      return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    case WM_CLOSE:
      PostQuitMessage(0);  // the window goes when the loop has ended
      return 0;
    default:
      return DefWindowProcW(window_, message, wide, longer);
  }
}

void MainWindow::Do_Command(int id) {
  const LateBound& members = control_->Members();
  if (id == Start_Listening) Start();
  if (id == Stop_Listening) members.Call(L"Stop_Real_Action");
  if (id == Restart_Listening) members.Call(L"Restart");
  if (id == Open_Wave) Choose_Wave();
  if (id == Choose_First) Choose_File(files_[0], L"Language files\0*.SAY\0");
  if (id == Choose_First + 1) Choose_File(files_[1], L"Engine files\0*.EGN\0");
  Show_Status();
}

// The bundled language file was written for slices of 400 bytes; yours may want others.
void MainWindow::Give_Settings() {
  const LateBound& members = control_->Members();
  members.Set(L"Sample_processing_resolution", 400);
  members.Set(L"Consider_this_Lang_File_to_match", Text_Of(files_[0]));
  members.Set(L"Consider_this_Engine_for_Recognition", Text_Of(files_[1]));
}

void MainWindow::Start() {
  Give_Settings();
  control_->Members().Call(L"Start_Real_Action");  // returns at once; events tell the rest
}

std::vector<RankedWord> MainWindow::Recognise(const std::wstring& file) {
  const LateBound& members = control_->Members();
  Give_Settings();
  const PaddedWave wave(file, 7000);
  members.Set(L"Open_this_Wave_File", wave.File());
  members.Call(L"Open_Specified_Wave_File_And_Process");  // returns when the file is done
  std::vector<RankedWord> words = Ranked_Words(members);
  results_->Show(words);
  const std::wstring name = file.substr(file.find_last_of(L"\\/") + 1);
  Log(name + L": " + (words.empty() ? L"no word" : words.front().text));
  Show_Status();
  return words;
}

void MainWindow::Choose_Wave() {
  const std::wstring file = Ask_For_File(window_, L"Sounds\0*.wav\0");
  if (!file.empty()) Recognise(file);
}

void MainWindow::Choose_File(HWND box, const wchar_t* filter) {
  const std::wstring file = Ask_For_File(window_, filter);
  if (!file.empty()) SetWindowTextW(box, file.c_str());
}

// Called by the control, on this thread. Any member may be called from here.
void MainWindow::Heard(const std::wstring& event, const std::wstring& argument) {
  if (!control_) return;
  if (event != Tick) Log(argument.empty() ? event : event + L"  " + argument);
  if (event == L"SpokenWordConvertedToText") results_->Show(Ranked_Words(control_->Members()));
  if (event == L"SpokenWordConvertedToPatternOnly") results_->Show({});
  Show_Status();
}

void MainWindow::Show_Status() {
  const LateBound& members = control_->Members();
  const std::wstring status = members.Text(L"Operation_Status");
  const std::wstring pattern = members.Text(L"Voice_Word");
  std::wstring line = L"Status: " + (status.empty() ? L"at rest" : status);
  if (!pattern.empty()) line += L"      Pattern: " + pattern;
  if (line != Text_Of(status_)) SetWindowTextW(status_, line.c_str());
}

void MainWindow::Log(const std::wstring& line) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  wchar_t time[16];
  wsprintfW(time, L"%02u:%02u:%02u  ", now.wHour, now.wMinute, now.wSecond);
  const auto at =
      SendMessageW(events_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>((time + line).c_str()));
  SendMessageW(events_, LB_SETTOPINDEX, static_cast<WPARAM>(at), 0);
}

}  // namespace example
