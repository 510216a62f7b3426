// The fonts of forms at one scale.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <tuple>

#include "platform/windows/form_layout.hpp"

namespace quillspeech::windows {

inline constexpr double Twips_Per_Point = 20;

// Each font is made once, and lives as long as this.
class FormFonts {
 public:
  explicit FormFonts(const FormScale& scale) : scale_(scale) {}
  ~FormFonts();
  FormFonts(const FormFonts&) = delete;
  FormFonts& operator=(const FormFonts&) = delete;

  const FormScale& Scale() const { return scale_; }
  // A blank name is that of the default font.
  HFONT Font_For(const FormFont& font);

 private:
  FormScale scale_;
  std::map<std::tuple<std::string, double, bool>, HFONT> fonts_;
};

}  // namespace quillspeech::windows
