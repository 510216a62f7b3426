#include "core/property_page_layout.hpp"

#include <algorithm>
#include <string>

namespace quillspeech {
namespace {

constexpr int Margin = 120;
constexpr int Row_Height = 345;
constexpr int Box_Height = 270;
constexpr int Label_Gap = 90;
constexpr int Column_Gap = 180;
constexpr int Button_Width = 1125;
constexpr int Button_Height = 345;
constexpr std::size_t Rows_Of_One_Column = 10;
constexpr int Smallest_Width = 4200;
constexpr int Smallest_Height = 1500;

// Boxes have room for a path where the page has one column only.
constexpr int Box_Width_Alone = 3000;
constexpr int Box_Width_Beside = 1500;

// The width of a caption in any of the fonts that a page may come out in, with some to spare.
int Caption_Width(std::string_view caption) {
  constexpr int Hundredths_Of_Em = 165;  // an em of 8 points is 165 twips
  int width = 0;
  for (const char letter : caption) {
    if (std::string_view("ijlI:.").find(letter) != std::string_view::npos) {
      width += 32;
    } else if (std::string_view("frt").find(letter) != std::string_view::npos) {
      width += 42;
    } else if (std::string_view("mwMW").find(letter) != std::string_view::npos) {
      width += 90;
    } else {
      width += letter >= 'A' && letter <= 'Z' ? 70 : 60;
    }
  }
  return width * Hundredths_Of_Em / 100;
}

std::string Label_Text(const PageBox& box) { return std::string(box.name) + ":"; }

struct Column {
  std::span<const PageBox> boxes;
  int left = 0;
  int label_width = 0;
  int box_width = 0;

  int Right() const { return left + label_width + Label_Gap + box_width; }
};

std::vector<Column> Columns_Of(const PropertyPage& page) {
  std::vector<Column> columns;
  const std::size_t count = page.boxes.size();
  const bool is_long = count > Rows_Of_One_Column;
  const std::size_t rows = is_long ? (count + 1) / 2 : count;
  int left = Margin;
  for (std::size_t first = 0; first < count; first += rows) {
    Column column{page.boxes.subspan(first, std::min(rows, count - first)), left, 0,
                  is_long ? Box_Width_Beside : Box_Width_Alone};
    for (const PageBox& box : column.boxes) {
      column.label_width = std::max(column.label_width, Caption_Width(Label_Text(box)));
    }
    left = column.Right() + Column_Gap;
    columns.push_back(column);
  }
  return columns;
}

void Add_Row(Form& form, const Column& column, const PageBox& box, int top) {
  FormControl label;
  label.name = "lbl" + std::string(box.name);
  label.kind = FormControlKind::Label;
  label.text = Label_Text(box);
  label.place = {column.left, top, column.label_width, Box_Height};
  form.Add(label);
  FormControl text;
  text.name = "txt" + std::string(box.name);
  text.kind = FormControlKind::TextBox;
  text.place = {column.left + column.label_width + Label_Gap, top, column.box_width, Box_Height};
  form.Add(text);
}

}  // namespace

FormSize Page_Size(const PropertyPage& page) {
  FormSize size{Smallest_Width, Smallest_Height};
  int rows = 0;
  for (const Column& column : Columns_Of(page)) {
    size.width = std::max(size.width, column.Right() + Margin);
    rows = std::max(rows, static_cast<int>(column.boxes.size()));
  }
  const int below = page.has_help ? Margin + Button_Height : 0;
  size.height = std::max(size.height, Margin + rows * Row_Height + below + Margin);
  return size;
}

void Lay_Out_Page(const PropertyPage& page, Form& form) {
  for (const Column& column : Columns_Of(page)) {
    int top = Margin;
    for (const PageBox& box : column.boxes) {
      Add_Row(form, column, box, top);
      top += Row_Height;
    }
  }
  if (!page.has_help) return;
  const FormSize size = form.Size();
  FormControl help;
  help.name = "Command1";
  help.kind = FormControlKind::Button;
  help.text = "&Help";
  help.place = {size.width - Margin - Button_Width, size.height - Margin - Button_Height,
                Button_Width, Button_Height};
  form.Add(help);
}

}  // namespace quillspeech
