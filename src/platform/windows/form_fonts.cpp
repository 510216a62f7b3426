#include "platform/windows/form_fonts.hpp"

#include <algorithm>
#include <cmath>

#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

LOGFONTW Description_Of(const FormFont& font, const FormScale& scale) {
  LOGFONTW description{};
  // Negative: the height of the letters without the room above them, which is what points measure.
  description.lfHeight = -scale.Down(static_cast<int>(std::lround(font.points * Twips_Per_Point)));
  description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  description.lfCharSet = DEFAULT_CHARSET;
  const std::wstring name = Wide(font.name);
  const std::size_t length = std::min<std::size_t>(name.size(), LF_FACESIZE - 1);
  std::copy_n(name.begin(), length, description.lfFaceName);
  return description;
}

}  // namespace

FormFonts::~FormFonts() {
  for (const auto& [key, font] : fonts_) DeleteObject(font);
}

HFONT FormFonts::Font_For(const FormFont& font) {
  const bool has_name = font.name.find_first_not_of(' ') != std::string::npos;
  const std::string name = has_name ? font.name : FormFont().name;
  HFONT& made = fonts_[{name, font.points, font.bold}];
  if (!made) {
    const LOGFONTW description = Description_Of({name, font.points, font.bold}, scale_);
    made = CreateFontIndirectW(&description);
  }
  return made;
}

}  // namespace quillspeech::windows
