#include "core/control_face.hpp"

#include <array>

namespace quillspeech {
namespace {

// One caption has a spelling of its own.
constexpr auto Children = std::to_array<ChildControl>({
    {"Frame1", ChildKind::Frame, "", "", "", ""},
    {"Text2", ChildKind::TextBox, "Pattern :", "Displays the pattern produced", "Arial", "Frame1"},
    {"Command4", ChildKind::Button, "Quillspeech Editor", "", "", ""},
    {"Text1", ChildKind::TextBox,
     "Spoken Word :", "Final Word as matched from your prepared SAY file", "Arial", ""},
    {"Command3", ChildKind::Button, "Restart Recogniton Activity", "", "", ""},
    {"Command2", ChildKind::Button, "Stop Recognition Activity", "", "", ""},
    {"Command1", ChildKind::Button, "Start Recognition Activity", "", "", ""},
    {"Frame2", ChildKind::Frame, "", "", "", ""},
    {"Label1", ChildKind::Label, "Status Update", "", "Small Fonts", "Frame2"},
    {"Timer1", ChildKind::Timer, "", "", "", ""},
});

}  // namespace

std::span<const ChildControl> Child_Controls() { return Children; }

}  // namespace quillspeech
