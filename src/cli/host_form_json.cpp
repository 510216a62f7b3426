#include "cli/host_form_json.hpp"

#include <array>

#include "base/text.hpp"
#include "cli/drawing_svg.hpp"

namespace quillspeech::cli {
namespace {

using Json = nlohmann::ordered_json;

const char* Kind_Name(DrawingKind kind) {
  switch (kind) {
    case DrawingKind::Lines:
      return "lines";
    case DrawingKind::Polygon:
      return "polygon";
    case DrawingKind::Box:
      return "box";
    case DrawingKind::Circle:
      return "circle";
    case DrawingKind::Text:
      return "text";
  }
  return "";
}

Json Font_Json(const FormFont& font) {
  return {{"name", To_Utf8(font.name)}, {"points", font.points}, {"bold", font.bold}};
}

Json Operation_Json(const DrawingOperation& operation) {
  Json points = Json::array();
  for (const DrawingPoint& point : operation.points) points.push_back({point.x, point.y});
  Json json = {{"draw", Kind_Name(operation.kind)},
               {"points", std::move(points)},
               {"colour", Svg_Colour(operation.colour)}};
  if (operation.kind == DrawingKind::Circle) json["radius"] = operation.radius;
  if (operation.kind == DrawingKind::Text) {
    json["text"] = To_Utf8(operation.text);
    json["font"] = Font_Json(operation.font);
    return json;
  }
  const bool is_line = operation.kind == DrawingKind::Lines;
  if (!is_line) json["filled"] = operation.is_filled;
  if (is_line || !operation.is_filled) json["line_points"] = operation.line_points;
  return json;
}

Json Drawing_Json(const FormDrawing& drawing) {
  const DrawingScale& scale = drawing.scale;
  Json operations = Json::array();
  for (const DrawingOperation& one : drawing.operations) operations.push_back(Operation_Json(one));
  return {{"scale", {scale.left, scale.top, scale.right, scale.bottom}},
          {"operations", std::move(operations)}};
}

void Add_Content(Json& json, const FormControl& control) {
  const std::string text = To_Utf8(control.text);
  switch (control.kind) {
    case FormControlKind::Frame:
    case FormControlKind::Label:
    case FormControlKind::Button:
      json["caption"] = text;
      return;
    case FormControlKind::TextBox:
      json["text"] = text;
      return;
    case FormControlKind::ComboBox:
    case FormControlKind::ListBox:
      json["text"] = text;
      json["items"] = Json::array();
      for (const std::string& item : control.items) json["items"].push_back(To_Utf8(item));
      json["index"] = control.index;
      return;
    case FormControlKind::Picture:
    case FormControlKind::Image:
      json["drawing"] = Drawing_Json(control.drawing);
      if (!control.picture.empty()) json["picture_bytes"] = control.picture.size();
      return;
  }
}

}  // namespace

Json Form_Json(const Form& form) {
  Json json = {{"caption", To_Utf8(form.Caption())}};
  if (form.Ground() != FormDrawing{}) json["drawing"] = Drawing_Json(form.Ground());
  return json;
}

Json Control_Json(const FormControl& control) {
  Json json = Json::object();
  Add_Content(json, control);
  json["enabled"] = control.enabled;
  json["visible"] = control.visible;
  return json;
}

Json Menu_Json(const FormMenu& menu) {
  return {{"caption", To_Utf8(menu.caption)}, {"enabled", menu.enabled}, {"visible", menu.visible}};
}

}  // namespace quillspeech::cli
