#include "cli/graph_svg.hpp"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "base/text.hpp"

namespace quillspeech::cli {

namespace {

constexpr double Picture_Width = 1200;
constexpr double Plot_Left = 20;
constexpr double Plot_Top = 56;
constexpr double Plot_Width = Picture_Width - 2 * Plot_Left;
constexpr double Plot_Height = 2 * (AudioGraph::Top - AudioGraph::Bottom - 56);
constexpr double Picture_Height = Plot_Top + Plot_Height + 24;

// Characters that XML 1.0 has no place for are left out.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (static_cast<unsigned char>(c) >= 0x20) {
      escaped += c;
    }
  }
  return escaped;
}

std::string Number(double value) {
  char digits[32];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2);
  std::string text(digits, end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

// The plot's scale on the picture, whose y runs down.
struct Scale {
  explicit Scale(const AudioGraph& graph)
      : a_point(Plot_Width / std::max(graph.Graph_Point_Count, 1)) {}
  double X(double point) const { return Plot_Left + point * a_point; }
  double Y(double sample) const {
    return Plot_Top +
           (AudioGraph::Top - sample) * Plot_Height / (AudioGraph::Top - AudioGraph::Bottom);
  }
  double a_point;
};

std::string Boxes(const AudioGraph& graph, const Scale& scale) {
  std::string svg;
  for (const auto& box : graph.boxes) {
    const double left = std::min(box.left, box.right);
    const double right = std::max(box.left, box.right);
    svg += "    <rect x=\"" + Number(scale.X(left)) + "\" y=\"" + Number(Plot_Top) + "\" width=\"" +
           Number((right - left) * scale.a_point) + "\" height=\"" + Number(Plot_Height) +
           "\" fill=\"" + (box.colour == AudioGraph::Colour::Red ? "#ff0000" : "#ffff00") +
           "\"/>\n";
  }
  return svg;
}

std::string Line(const AudioGraph& graph, const Scale& scale) {
  std::string svg =
      "    <polyline fill=\"none\" stroke=\"#000000\" stroke-width=\"1\" "
      "stroke-linejoin=\"round\" points=\"";
  for (std::size_t i = 0; i < graph.line.size(); ++i) {
    if (i > 0) svg += i % 12 == 0 ? '\n' : ' ';
    svg += Number(scale.X(graph.line[i].x)) + "," + Number(scale.Y(graph.line[i].y));
  }
  return svg + "\"/>\n";
}

std::string Text(double x, double y, const std::string& attributes, std::string_view text) {
  return "  <text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" " + attributes + ">" +
         Escaped(text) + "</text>\n";
}

std::string Plot_Frame(const std::string& attributes) {
  return "  <rect x=\"" + Number(Plot_Left) + "\" y=\"" + Number(Plot_Top) + "\" width=\"" +
         Number(Plot_Width) + "\" height=\"" + Number(Plot_Height) + "\" " + attributes + "/>\n";
}

// A name need not be UTF-8, but the document must be.
std::string As_Utf8(const std::string& name) {
  return From_Utf8(name) || std::all_of(name.begin(), name.end(), [](char c) { return c > 0; })
             ? name
             : To_Utf8(name);
}

}  // namespace

std::string Graph_Svg(const AudioGraph& graph, const std::string& file) {
  const Scale scale(graph);
  const std::string caption = To_Utf8(Audio_Graph_Caption());
  const std::string size = Number(Picture_Width) + " " + Number(Picture_Height);
  std::string svg =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " +
      size + "\" font-family=\"sans-serif\">\n  <title>" + Escaped(caption) + "</title>\n";
  svg += "  <rect width=\"100%\" height=\"100%\" fill=\"#f4f4f4\"/>\n";
  svg += Text(Plot_Left, 24, "font-size=\"16\" font-weight=\"bold\"", caption);
  svg += Text(Plot_Left, 44, "font-size=\"13\" fill=\"#555555\"", As_Utf8(file));
  svg += Plot_Frame("fill=\"#ffffff\"");
  svg += "  <g>\n" + Boxes(graph, scale) + Line(graph, scale) + "  </g>\n";
  if (!graph.printed_text.empty()) {
    svg += Text(scale.X(graph.text_left), Plot_Top + 14, "font-size=\"12\"",
                To_Utf8(graph.printed_text));
  }
  svg += Plot_Frame("fill=\"none\" stroke=\"#888888\"");
  return svg + "</svg>\n";
}

}  // namespace quillspeech::cli
