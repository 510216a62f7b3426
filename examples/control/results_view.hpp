// The ranked words as bars with percentages.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "late_binding.hpp"

namespace example {

struct RankedWord {
  std::wstring text;
  int percentage = 0;
};

// The control's seven best words, best first, with their percentages.
std::vector<RankedWord> Ranked_Words(const LateBound& control);

class ResultsView {
 public:
  ResultsView(HWND parent, HFONT font);
  ResultsView(const ResultsView&) = delete;
  ResultsView& operator=(const ResultsView&) = delete;

  HWND Window() const { return window_; }
  void Show(std::vector<RankedWord> words);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void Paint() const;
  void Draw(HDC dc, const RECT& area) const;
  void Draw_Row(HDC dc, RECT row, const RankedWord& word, bool is_best) const;

  HWND window_;
  HFONT font_;
  std::vector<RankedWord> words_;
};

}  // namespace example
