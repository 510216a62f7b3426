// The example's window: the control with its buttons and files at the left, the ranked words and
// what was heard of the control at the right, the status below.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "hosted_control.hpp"
#include "results_view.hpp"

namespace example {

class MainWindow {
 public:
  MainWindow(const std::wstring& language, const std::wstring& engine);
  ~MainWindow();
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  HWND Window() const { return window_; }
  std::vector<RankedWord> Recognise(const std::wstring& file);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  LRESULT Handle(UINT message, WPARAM wide, LPARAM longer);
  void Make_Controls(const std::wstring& language, const std::wstring& engine);
  HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, int id = 0);
  void Lay_Out();
  void Place(HWND child, int x, int y, int width, int height) const;
  int Scaled(int points) const { return MulDiv(points, dots_per_inch_, 96); }

  void Do_Command(int id);
  void Start();
  void Choose_Wave();
  void Choose_File(HWND box, const wchar_t* filter);
  void Give_Settings();
  void Heard(const std::wstring& event, const std::wstring& argument);
  void Show_Status();
  void Log(const std::wstring& line);

  int dots_per_inch_ = 96;
  int text_height_ = 13;
  HFONT font_ = nullptr;
  HFONT heading_font_ = nullptr;
  HWND window_ = nullptr;
  HWND heading_control_ = nullptr;
  HWND heading_words_ = nullptr;
  HWND heading_events_ = nullptr;
  HWND buttons_[4] = {};
  HWND labels_[2] = {};
  HWND files_[2] = {};  // the language, the engine
  HWND choose_[2] = {};
  HWND events_ = nullptr;
  HWND status_ = nullptr;
  std::unique_ptr<ResultsView> results_;
  std::unique_ptr<HostedControl> control_;
};

}  // namespace example
