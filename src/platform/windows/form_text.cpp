#include "platform/windows/form_text.hpp"

#include <algorithm>

#include "platform/windows/form_layout.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

TextMeasure::TextMeasure(HFONT font)
    : screen_(GetDC(nullptr)), old_font_(SelectObject(screen_, font)) {
  TEXTMETRICW metric{};
  GetTextMetricsW(screen_, &metric);
  line_height_ = metric.tmHeight;
  ascent_ = metric.tmAscent;
  average_width_ = metric.tmAveCharWidth;
}

TextMeasure::~TextMeasure() {
  SelectObject(screen_, old_font_);
  ReleaseDC(nullptr, screen_);
}

int TextMeasure::Width(std::wstring_view text) const {
  SIZE size{};
  GetTextExtentPoint32W(screen_, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

std::vector<std::wstring> TextMeasure::Lines(std::wstring_view text, int width) const {
  std::vector<std::wstring> lines;
  std::wstring line;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(L' '), text.size());
    const std::wstring word(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    std::wstring longer = line;
    if (!line.empty()) longer += L' ';
    longer += word;
    if (!line.empty() && Width(longer) > width) {
      lines.push_back(line);
      line = word;
    } else {
      line = longer;
    }
  }
  lines.push_back(line);
  return lines;
}

std::wstring TextMeasure::With_Broken_Words(std::wstring_view text, int width) const {
  std::wstring broken;
  std::wstring piece;  // of the word under way
  for (const wchar_t letter : text) {
    const bool is_in_a_word = letter != L' ' && letter != L'\r' && letter != L'\n';
    if (!is_in_a_word) {
      piece.clear();
    } else if (!piece.empty() && Width(piece + letter) > width) {
      broken += L'\n';
      piece = letter;
    } else {
      piece += letter;
    }
    broken += letter;
  }
  return broken;
}

int TextMeasure::Height(const std::wstring& text, int width) const {
  RECT place{0, 0, width, 0};
  DrawTextW(screen_, text.c_str(), static_cast<int>(text.size()), &place,
            DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
  return Height_Of(place);
}

std::wstring TextMeasure::With_Dots(std::wstring_view text, int width) const {
  if (Width(text) <= width) return std::wstring(text);
  std::wstring cut(text);
  while (!cut.empty()) {
    cut.pop_back();
    if (Width(cut + L"...") <= width) break;
  }
  return cut + L"...";
}

std::wstring Without_Mnemonic(std::string_view caption) {
  std::string shown;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == '&' && at + 1 < caption.size()) ++at;
    shown += caption[at];
  }
  return Wide(shown);
}

std::size_t Place_Of_Mnemonic(std::string_view caption) {
  std::size_t place = 0;
  for (std::size_t at = 0; at + 1 < caption.size(); ++at, ++place) {
    if (caption[at] != '&') continue;
    if (caption[++at] != '&') return place;
  }
  return No_Letter;
}

namespace {

void Underline(HDC device, int left, int bottom, std::wstring_view line, std::size_t letter,
               const TextMeasure& measure) {
  const int before = measure.Width(line.substr(0, letter));
  const int behind = measure.Width(line.substr(0, letter + 1));
  const HPEN pen = CreatePen(PS_SOLID, 0, GetTextColor(device));
  const HGDIOBJ old_pen = SelectObject(device, pen);
  MoveToEx(device, left + before, bottom, nullptr);
  LineTo(device, left + behind, bottom);
  SelectObject(device, old_pen);
  DeleteObject(pen);
}

}  // namespace

void Draw_Lines(HDC device, const RECT& rectangle, const std::vector<std::wstring>& lines,
                const TextMeasure& measure, const TextStyle& style) {
  const HGDIOBJ old_font = SelectObject(device, style.font);
  const COLORREF old_colour = SetTextColor(device, style.colour);
  const int old_mode = SetBkMode(device, TRANSPARENT);
  const int height = measure.Line_Height() * static_cast<int>(lines.size());
  int top = rectangle.top;
  if (style.is_in_the_middle) top += (Height_Of(rectangle) - height) / 2;
  std::size_t first = 0;  // the line's place in the text
  for (const std::wstring& line : lines) {
    const int room = Width_Of(rectangle) - measure.Width(line);
    int left = rectangle.left;
    if (style.alignment == FormAlignment::Centre) left += room / 2;
    if (style.alignment == FormAlignment::Right) left += room;
    ExtTextOutW(device, left, top, ETO_CLIPPED, &rectangle, line.c_str(),
                static_cast<UINT>(line.size()), nullptr);
    if (style.underlined >= first && style.underlined - first < line.size()) {
      Underline(device, left, top + measure.Ascent() + 1, line, style.underlined - first, measure);
    }
    first += line.size() + 1;
    top += measure.Line_Height();
  }
  SetBkMode(device, old_mode);
  SetTextColor(device, old_colour);
  SelectObject(device, old_font);
}

}  // namespace quillspeech::windows
