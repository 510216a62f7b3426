// The control's face: the controls on it, what they show, and its size.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillspeech {

// The texts that change while the control lives. A view draws them; the values here are those of a
// new control.
struct Face {
  std::string Label1 = "Status Update";
  std::string Text1 = "Spoken Word :";
  std::string Text2 = "Pattern :";
  std::uint32_t Text_Colour = 0;  // of Text1 and Text2, 0x00BBGGRR, set at each paint

  bool operator==(const Face&) const = default;
};

inline constexpr std::uint32_t Pure_Green = 0x0000FF00;  // 0x00BBGGRR
inline constexpr std::uint32_t Light_Grey = 0x00C0C0C0;

enum class ChildKind { Frame, TextBox, Button, Label, Timer };

// One control on the face. Empty texts: it has none.
struct ChildControl {
  std::string_view name;
  ChildKind kind;
  std::string_view text;  // caption or first text
  std::string_view tip;
  std::string_view font;
  std::string_view parent;  // the frame that holds it; empty: the control itself
};

// In the order of creation.
std::span<const ChildControl> Child_Controls();

// In twips.
struct FaceSize {
  int width;
  int height;

  bool operator==(const FaceSize&) const = default;
};

// What the control makes of a size that its container asks for: always its own.
constexpr FaceSize UserControl_Resize(FaceSize) { return {3336, 1884}; }

}  // namespace quillspeech
