#include "cli/box_json.hpp"

#include "base/text.hpp"

namespace quillspeech::cli {
namespace {

const char* Icon_Name(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None:
      return "none";
    case BoxIcon::Stop:
      return "stop";
    case BoxIcon::Information:
      return "information";
  }
  return "none";
}

const char* Answer_Name(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::OK:
      return "OK";
    case BoxAnswer::Yes:
      return "Yes";
    case BoxAnswer::No:
      return "No";
  }
  return "OK";
}

}  // namespace

nlohmann::ordered_json Box_Json(const MessageBox& box, BoxAnswer answer) {
  return {{"title", To_Utf8(box.title)},
          {"text", To_Utf8(box.text)},
          {"buttons", box.buttons == BoxButtons::OK ? "OK" : "YesNo"},
          {"icon", Icon_Name(box.icon)},
          {"answer", Answer_Name(answer)}};
}

}  // namespace quillspeech::cli
