#include "cli/host_form_json.hpp"

#include <gtest/gtest.h>

namespace quillspeech::cli {
namespace {

using Json = nlohmann::ordered_json;

FormControl Picture_With(const DrawingOperation& operation) {
  FormControl picture;
  picture.kind = FormControlKind::Picture;
  picture.drawing.operations = {operation};
  return picture;
}
Json Read_Back(const DrawingOperation& operation) {
  return Control_Json(Picture_With(operation))["drawing"]["operations"][0];
}

TEST(HostFormJson, A_text_tells_its_font) {
  const FormFont font{.name = "Small Fonts", .points = 7, .bold = true};
  EXPECT_EQ(Read_Back(Drawn_Text({1, 2}, "one", 0x0000FF, font)).dump(),
            R"({"draw":"text","points":[[1.0,2.0]],"colour":"#ff0000","text":"one",)"
            R"("font":{"name":"Small Fonts","points":7.0,"bold":true}})");
}

TEST(HostFormJson, A_line_tells_how_thick_it_is) {
  DrawingOperation line = Drawn_Line({0, 0}, {1, 1}, 0);
  line.line_points = 1.5;
  EXPECT_EQ(Read_Back(line)["line_points"], 1.5);
  EXPECT_FALSE(Read_Back(line).contains("filled"));
}

TEST(HostFormJson, What_has_a_face_tells_whether_it_is_filled_and_an_outline_how_thick_it_is) {
  DrawingOperation circle = Drawn_Circle({0, 0}, 3, 0);
  EXPECT_EQ(Read_Back(circle)["radius"], 3.0);
  EXPECT_EQ(Read_Back(circle)["filled"], true);
  EXPECT_FALSE(Read_Back(circle).contains("line_points"));
  circle.is_filled = false;
  EXPECT_EQ(Read_Back(circle)["filled"], false);
  EXPECT_EQ(Read_Back(circle)["line_points"], 0.0);
}

TEST(HostFormJson, A_window_tells_its_ground_when_it_has_one_also_with_nothing_on_it) {
  Form form("Graph", "Graph", {100, 100});
  EXPECT_FALSE(Form_Json(form).contains("drawing"));
  form.Set_Ground({{0, 128, 40, -128}, {}});
  EXPECT_EQ(Form_Json(form)["drawing"].dump(),
            R"({"scale":[0.0,128.0,40.0,-128.0],"operations":[]})");
}

}  // namespace
}  // namespace quillspeech::cli
