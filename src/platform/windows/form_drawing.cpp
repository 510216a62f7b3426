#include "platform/windows/form_drawing.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/windows/form_colours.hpp"
#include "platform/windows/form_fonts.hpp"
#include "platform/windows/form_text.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

constexpr int Button_Edge = 3;
constexpr int Drawing_Margin = 45;  // around a button's drawing, in twips

bool Is_Visible(const Form& form, const FormControl& control) {
  const FormControl* const parent = form.Find(control.parent);
  return control.visible && (!parent || Is_Visible(form, *parent));
}

// Each line of the text in as many lines as it takes.
std::vector<std::wstring> Wrapped(std::wstring_view text, int width, const TextMeasure& measure) {
  std::vector<std::wstring> lines;
  while (true) {
    const std::size_t end = std::min(text.find(L'\n'), text.size());
    std::wstring_view line = text.substr(0, end);
    if (line.ends_with(L'\r')) line.remove_suffix(1);
    for (std::wstring& part : measure.Lines(line, width)) lines.push_back(std::move(part));
    if (end == text.size()) return lines;
    text.remove_prefix(end + 1);
  }
}

// One drawing of one form.
class Drawing {
 public:
  Drawing(const Form& form, HDC device, const RECT& rectangle)
      : form_(form),
        device_(device),
        rectangle_(rectangle),
        scale_(Scale_Into(rectangle, form.Size())) {}

  void Draw() {
    Draw_Ground(form_, device_, rectangle_, fonts_);
    for (const FormControl& control : form_.Controls()) {
      if (Is_Visible(form_, control)) Draw_Control(control);
    }
  }

 private:
  void Fill(const RECT& place, COLORREF colour) {
    FillRect(device_, &place, brushes_.Brush_For(colour));
  }

  void Draw_Control(const FormControl& control) {
    RECT place = Pixels_On_Form(form_, control, scale_);
    OffsetRect(&place, rectangle_.left, rectangle_.top);
    switch (control.kind) {
      case FormControlKind::Frame:
        Fill(place, Back_Colour_Of(form_, control));
        return Draw_Frame(form_, control, device_, place, fonts_.Font_For(control.font));
      case FormControlKind::Button:
        return Draw_Button(form_, control, device_, place, fonts_, {});
      case FormControlKind::TextBox:
      case FormControlKind::ComboBox:
      case FormControlKind::ListBox:
        return Draw_Field(control, place);
      case FormControlKind::Picture:
        DrawEdge(device_, &place, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        Fill(place, Back_Colour_Of(form_, control));
        return Draw_Surface(control, PictureFile(control.picture), device_, place, fonts_);
      case FormControlKind::Image:
        if (control.back_colour) Fill(place, *control.back_colour);
        return Draw_Surface(control, PictureFile(control.picture), device_, place, fonts_);
      default:
        return Draw_Label(control, place);
    }
  }

  void Draw_Field(const FormControl& field, RECT place) {
    DrawEdge(device_, &place, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    Fill(place, Back_Colour_Of(form_, field));
    const HFONT font = fonts_.Font_For(field.font);
    const TextMeasure measure(font);
    // As an edit field keeps away from its edge.
    InflateRect(&place, -scale_.Across(Field_Margin) - 1, -1);
    const std::wstring text = Wide(field.text);
    const auto lines = field.multi_line ? Wrapped(text, Width_Of(place), measure)
                                        : std::vector<std::wstring>{text};
    Draw_Lines(device_, place, lines, measure,
               {font, Text_Colour_Of(form_, field), field.alignment,
                field.kind == FormControlKind::ComboBox});
  }

  void Draw_Label(const FormControl& label, const RECT& place) {
    if (label.back_colour) Fill(place, *label.back_colour);
    const HFONT font = fonts_.Font_For(label.font);
    const TextMeasure measure(font);
    const std::wstring text = Without_Mnemonic(label.text);
    const TextStyle style{font, Text_Colour_Of(form_, label), label.alignment, !label.multi_line};
    if (label.multi_line) {
      Draw_Lines(device_, place, Wrapped(text, Width_Of(place), measure), measure, style);
    } else {
      Draw_Lines(device_, place, {measure.With_Dots(text, Width_Of(place))}, measure, style);
    }
  }

  const Form& form_;
  HDC device_;
  RECT rectangle_;
  FormScale scale_;
  FormFonts fonts_{scale_};
  FormBrushes brushes_;
};

// Draws a button's drawing, and leaves of the box what is for its caption.
void Draw_Above(const FormControl& button, std::size_t lines, const TextMeasure& measure,
                HDC device, RECT& box, FormFonts& fonts) {
  const int margin = fonts.Scale().Down(Drawing_Margin);
  RECT room = box;
  if (!button.text.empty()) {
    const int caption = measure.Line_Height() * static_cast<int>(lines) + margin;
    box.top = std::max(box.top, box.bottom - caption);
    box.bottom -= margin;
    room.bottom = box.top;
  }
  InflateRect(&room, -margin, -margin);
  Paint_Drawing(button.drawing, device, Place_In_Shape(button.drawing, room), fonts);
}

}  // namespace

void Draw_Form(const Form& form, HDC device, const RECT& rectangle) {
  if (IsRectEmpty(&rectangle) || form.Size().width <= 0 || form.Size().height <= 0) return;
  const int saved = SaveDC(device);
  SetTextAlign(device, TA_LEFT | TA_TOP | TA_NOUPDATECP);
  Drawing(form, device, rectangle).Draw();
  RestoreDC(device, saved);
}

void Draw_Button(const Form& form, const FormControl& button, HDC device, const RECT& rectangle,
                 FormFonts& fonts, const ButtonState& state) {
  RECT box = rectangle;
  if (state.is_default) {
    FrameRect(device, &box, GetSysColorBrush(COLOR_WINDOWFRAME));
    InflateRect(&box, -1, -1);
  }
  const UINT pushed = state.is_pressed ? DFCS_PUSHED : 0U;
  DrawFrameControl(device, &box, DFC_BUTTON, DFCS_BUTTONPUSH | pushed);
  InflateRect(&box, -Button_Edge, -Button_Edge);
  if (state.has_focus) DrawFocusRect(device, &box);
  if (state.is_pressed) OffsetRect(&box, 1, 1);
  const HFONT font = fonts.Font_For(button.font);
  const TextMeasure measure(font);
  const auto lines = measure.Lines(Without_Mnemonic(button.text), Width_Of(box));
  if (!button.drawing.operations.empty())
    Draw_Above(button, lines.size(), measure, device, box, fonts);
  Draw_Lines(device, box, lines, measure,
             {font, Text_Colour_Of(form, button), FormAlignment::Centre, true,
              state.shows_mnemonic ? Place_Of_Mnemonic(button.text) : No_Letter});
}

// With a caption the box begins at the caption's middle, and the caption stands on a gap in it.
void Draw_Frame(const Form& form, const FormControl& frame, HDC device, const RECT& rectangle,
                HFONT font) {
  RECT box = rectangle;
  if (frame.text.empty()) {
    DrawEdge(device, &box, EDGE_ETCHED, BF_RECT);
    return;
  }
  const TextMeasure measure(font);
  const std::wstring caption = Without_Mnemonic(frame.text);
  const int gap = measure.Average_Width();
  box.top += measure.Line_Height() / 2;
  DrawEdge(device, &box, EDGE_ETCHED, BF_RECT);
  RECT place = rectangle;
  place.left += 2 * gap;
  place.right = std::min<LONG>(place.left + measure.Width(caption), rectangle.right - gap);
  place.bottom = place.top + measure.Line_Height();
  RECT cleared = place;
  InflateRect(&cleared, gap / 2, 0);
  const HBRUSH ground = CreateSolidBrush(Back_Colour_Of(form, frame));
  FillRect(device, &cleared, ground);
  DeleteObject(ground);
  Draw_Lines(device, place, {measure.With_Dots(caption, Width_Of(place))}, measure,
             {font, Text_Colour_Of(form, frame)});
}

void Draw_Ground(const Form& form, HDC device, const RECT& rectangle, FormFonts& fonts) {
  const HBRUSH brush = CreateSolidBrush(Back_Colour_Of(form));
  FillRect(device, &rectangle, brush);
  DeleteObject(brush);
  Paint_Drawing(form.Ground(), device, rectangle, fonts);
}

void Draw_Surface(const FormControl& surface, const PictureFile& picture, HDC device,
                  const RECT& rectangle, FormFonts& fonts) {
  if (picture.Is_There()) return picture.Paint(device, rectangle);
  Paint_Drawing(surface.drawing, device, rectangle, fonts);
}

}  // namespace quillspeech::windows
