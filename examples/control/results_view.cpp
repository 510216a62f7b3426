#include "results_view.hpp"

#include <algorithm>
#include <utility>

namespace example {
namespace {

constexpr int Places = 7;
constexpr COLORREF Paper = RGB(255, 255, 255);
constexpr COLORREF Ink = RGB(32, 36, 44);
constexpr COLORREF Pale_Ink = RGB(88, 96, 110);
constexpr COLORREF Track = RGB(238, 241, 246);
constexpr COLORREF Bar = RGB(158, 188, 236);
constexpr COLORREF Best_Bar = RGB(43, 108, 214);

void Fill(HDC dc, const RECT& area, COLORREF colour) {
  SetDCBrushColor(dc, colour);
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Write(HDC dc, const std::wstring& text, RECT area, UINT alignment, COLORREF colour) {
  SetTextColor(dc, colour);
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
            alignment | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

std::wstring Trimmed(std::wstring text) {
  text.erase(text.find_last_not_of(L' ') + 1);
  return text;
}

// Every word of every record that matched, with its percentage. Send_of_no is the index.
std::vector<RankedWord> Entered_Words(const LateBound& control) {
  std::vector<RankedWord> words;
  const int count = control.Number(L"Platinum_Words_Available");
  for (int i = 1; i <= count; ++i) {
    control.Set(L"Send_of_no", i);
    words.push_back(
        {Trimmed(control.Text(L"Platinum_Words")), control.Number(L"Platinum_Word_Percentage")});
  }
  control.Set(L"Send_of_no", 1);
  return words;
}

}  // namespace

std::vector<RankedWord> Ranked_Words(const LateBound& control) {
  std::vector<RankedWord> entered = Entered_Words(control);
  std::vector<RankedWord> ranked;
  for (const wchar_t* place :
       {L"Platinum_Word_Best", L"Platinum_Word_Second_Best", L"Platinum_Word_Third_Best",
        L"Platinum_Word_Fourth_Best", L"Platinum_Word_Fifth_Best", L"Platinum_Word_Sixth_Best",
        L"Platinum_Word_Seventh_Best"}) {
    const std::wstring word = control.Text(place);
    if (word.empty()) break;
    // A word that was entered twice takes two places, the higher percentage first.
    auto best = entered.end();
    for (auto i = entered.begin(); i != entered.end(); ++i) {
      if (i->text == word && (best == entered.end() || i->percentage > best->percentage)) best = i;
    }
    if (best == entered.end()) break;
    ranked.push_back(*best);
    entered.erase(best);
  }
  return ranked;
}

ResultsView::ResultsView(HWND parent, HFONT font) : font_(font) {
  WNDCLASSW kind = {};
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursor(nullptr, IDC_ARROW);
  kind.lpszClassName = L"RankedWords";
  kind.style = CS_HREDRAW | CS_VREDRAW;
  RegisterClassW(&kind);
  window_ = CreateWindowExW(0, kind.lpszClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent,
                            nullptr, kind.hInstance, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void ResultsView::Show(std::vector<RankedWord> words) {
  words_ = std::move(words);
  InvalidateRect(window_, nullptr, FALSE);
}

LRESULT CALLBACK ResultsView::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  const auto* view = reinterpret_cast<ResultsView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_ERASEBKGND) return 1;  // the painting covers all
  if (message == WM_PAINT && view) {
    view->Paint();
    return 0;
  }
  return DefWindowProcW(window, message, wide, longer);
}

// Into a picture first, so that nothing flickers.
void ResultsView::Paint() const {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(window_, &paint);
  RECT area;
  GetClientRect(window_, &area);
  HDC memory = CreateCompatibleDC(dc);
  HBITMAP picture = CreateCompatibleBitmap(dc, area.right, area.bottom);
  HGDIOBJ before = SelectObject(memory, picture);
  Draw(memory, area);
  BitBlt(dc, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteObject(picture);
  DeleteDC(memory);
  EndPaint(window_, &paint);
}

void ResultsView::Draw(HDC dc, const RECT& area) const {
  Fill(dc, area, Paper);
  HGDIOBJ before = SelectObject(dc, font_);
  SetBkMode(dc, TRANSPARENT);
  for (int place = 0; place < Places; ++place) {
    const RECT row = {area.left, place * area.bottom / Places, area.right,
                      (place + 1) * area.bottom / Places};
    const auto index = static_cast<std::size_t>(place);
    Draw_Row(dc, row, index < words_.size() ? words_[index] : RankedWord{}, place == 0);
  }
  SelectObject(dc, before);
}

void ResultsView::Draw_Row(HDC dc, RECT row, const RankedWord& word, bool is_best) const {
  TEXTMETRICW metrics;
  GetTextMetricsW(dc, &metrics);
  const int letter = metrics.tmAveCharWidth;
  RECT name = row;
  name.right = std::min(row.right, row.left + 16L * letter);
  RECT percentage = row;
  percentage.left = std::max(row.left, row.right - 7L * letter);
  const COLORREF colour = is_best ? Ink : Pale_Ink;

  RECT track = {name.right, row.top, percentage.left, row.bottom};
  InflateRect(&track, 0, (row.top - row.bottom) / 4);
  if (track.right <= track.left) return;
  Fill(dc, track, Track);
  if (word.text.empty()) return;
  track.right =
      track.left + MulDiv(track.right - track.left, std::clamp(word.percentage, 0, 100), 100);
  Fill(dc, track, is_best ? Best_Bar : Bar);
  Write(dc, word.text, name, DT_LEFT, colour);
  Write(dc, std::to_wstring(word.percentage) + L" %", percentage, DT_RIGHT, colour);
}

}  // namespace example
