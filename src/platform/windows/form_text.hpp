// Texts of drawn forms, in lines that fit. Widths are measured on the screen, since a metafile can
// measure nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/form.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

class TextMeasure {
 public:
  explicit TextMeasure(HFONT font);
  ~TextMeasure();
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  int Width(std::wstring_view text) const;
  int Line_Height() const { return line_height_; }
  int Ascent() const { return ascent_; }
  int Average_Width() const { return average_width_; }

  // Broken at blanks; a single word that is too long stays whole.
  std::vector<std::wstring> Lines(std::wstring_view text, int width) const;
  // With a line end wherever a word that is longer than a line is full.
  std::wstring With_Broken_Words(std::wstring_view text, int width) const;
  // How high a label that is so wide and wraps at blanks and line ends is with it.
  int Height(const std::wstring& text, int width) const;
  // Cut, with dots behind it, when it is too long.
  std::wstring With_Dots(std::wstring_view text, int width) const;

 private:
  HDC screen_;
  HGDIOBJ old_font_;
  int line_height_ = 0;
  int ascent_ = 0;
  int average_width_ = 0;
};

// A caption as it shows: one & is a mark, two are one.
std::wstring Without_Mnemonic(std::string_view caption);
constexpr std::size_t No_Letter = static_cast<std::size_t>(-1);
// Where in that the marked letter stands.
std::size_t Place_Of_Mnemonic(std::string_view caption);

struct TextStyle {
  HFONT font;
  COLORREF colour;
  FormAlignment alignment = FormAlignment::Left;
  bool is_in_the_middle = true;        // of the height; else at the top
  std::size_t underlined = No_Letter;  // of the text that was broken into the lines
};

// Draws lines into the rectangle and nothing outside of it.
void Draw_Lines(HDC device, const RECT& rectangle, const std::vector<std::wstring>& lines,
                const TextMeasure& measure, const TextStyle& style);

}  // namespace quillspeech::windows
