#include "cli/graph_svg.hpp"

#include <algorithm>

#include "base/text.hpp"
#include "cli/drawing_svg.hpp"
#include "presentation/audio_graph.hpp"

namespace quillspeech::cli {

namespace {

constexpr double Picture_Width = 1200;
constexpr double Plot_Left = 20;
constexpr double Plot_Top = 56;
constexpr double Plot_Width = Picture_Width - 2 * Plot_Left;
constexpr double Plot_Height = 400;
constexpr double Picture_Height = Plot_Top + Plot_Height + 24;
constexpr SvgPlace Plot{Plot_Left, Plot_Top, Plot_Width, Plot_Height};

std::string Heading(double y, const std::string& attributes, std::string_view text) {
  return "  <text x=\"" + Svg_Number(Plot_Left) + "\" y=\"" + Svg_Number(y) + "\" " + attributes +
         ">" + Svg_Text(text) + "</text>\n";
}

std::string Plot_Frame(const std::string& attributes) {
  return "  <rect x=\"" + Svg_Number(Plot.left) + "\" y=\"" + Svg_Number(Plot.top) + "\" width=\"" +
         Svg_Number(Plot.width) + "\" height=\"" + Svg_Number(Plot.height) + "\" " + attributes +
         "/>\n";
}

// A name need not be UTF-8, but the document must be.
std::string As_Utf8(const std::string& name) {
  return From_Utf8(name) || std::all_of(name.begin(), name.end(), [](char c) { return c > 0; })
             ? name
             : To_Utf8(name);
}

}  // namespace

std::string Graph_Svg(const FormDrawing& graph, const std::string& file) {
  const std::string caption = To_Utf8(Audio_Graph_Caption());
  const std::string size = Svg_Number(Picture_Width) + " " + Svg_Number(Picture_Height);
  std::string svg =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " +
      size + "\" font-family=\"sans-serif\">\n  <title>" + Svg_Text(caption) + "</title>\n";
  svg += "  <rect width=\"100%\" height=\"100%\" fill=\"#f4f4f4\"/>\n";
  svg += Heading(24, "font-size=\"16\" font-weight=\"bold\"", caption);
  svg += Heading(44, "font-size=\"13\" fill=\"#555555\"", As_Utf8(file));
  svg += Plot_Frame("fill=\"#ffffff\"");
  svg += "  <g>\n" + Drawing_Svg(graph, Plot) + "  </g>\n";
  svg += Plot_Frame("fill=\"none\" stroke=\"#888888\"");
  return svg + "</svg>\n";
}

}  // namespace quillspeech::cli
