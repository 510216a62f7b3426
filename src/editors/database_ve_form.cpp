#include "editors/database_ve_form.hpp"

#include <array>
#include <string>
#include <string_view>

#include "editors/engine_groups.hpp"
#include "editors/form_pieces.hpp"

namespace quillspeech {
namespace {

constexpr FormSize DatabaseVE_Size{10500, 5670};
constexpr FormSize DataDisplayVE_Size{6600, 855};

constexpr FormColour Night_Blue = 0x400000;  // until a record is on display

using enum FormControlKind;

constexpr std::string_view Move_Tip = "Displays data for next record";

// In tab order: the half of the vocabulary, then that of the engine.
constexpr auto Pieces = std::to_array<ControlPiece>({
    {"Frame1", Frame, "", "Vocabulary", "", {120, 90, 7200, 5460}},
    {"Command1", Button, "Frame1", "SAY Files", "Hit this to get  *.SAY", {150, 315, 1440, 345}},
    {"Command2", Button, "Frame1", "Clear", "", {1680, 315, 1440, 345}},
    {"PreHit", Button, "Frame1", "< Previous", Move_Tip, {4080, 315, 1440, 345}},
    {"NextHit", Button, "Frame1", "Next >", Move_Tip, {5610, 315, 1440, 345}},
    {"Label4", Label, "Frame1", "Vyanjana :", "", {150, 855, 960, 240}},
    {"Text1", TextBox, "Frame1", "", "Displays the file entry", {1140, 810, 1950, 315}},
    {"Label1", Label, "Frame1", "Engine Category for this record:", "", {3240, 855, 2640, 240}},
    {"Label3", Label, "Frame1", "", "", {5910, 855, 540, 240}},
    {"Picture1", Picture, "Frame1", "", "", {150, 1245, 6900, 3780}},
    {"Label2",
     Label,
     "Frame1",
     "Across : values 0 to 128        Up : their numbers 0 to 50",
     "",
     {150, 5100, 6900, 240}},

    {"Frame2", Frame, "", "Engine", "", {7440, 90, 2940, 5460}},
    {"Command3",
     Button,
     "Frame2",
     "Engine Files",
     "Hit this to get  *.EGN files",
     {150, 315, 2640, 345}},
    {"Command4",
     Button,
     "Frame2",
     "Display Default Engine",
     "If you have made menu changes then...",
     {150, 765, 2640, 345}},
    {"Command5",
     Button,
     "Frame2",
     "Filter's EC pass value",
     "Input the filter pass value",
     {150, 1215, 2640, 345}},
    {"Label5", Label, "Frame2", "Codes and their categories :", "", {150, 1740, 2640, 240}},
    {"Shape1", Image, "Frame2", "", "", {150, 2040, 2640, 3300}},
});

// The engine's own menus stand between these and the help.
constexpr auto Menus_Before_Engine = std::to_array<MenuPiece>({
    {"Enmu", "", "Open"},
    {"Opmu", "Enmu", "&File"},
    {"Enmu_Line1", "Enmu", "-"},
    {"Exitmnu", "Enmu", "&Exit"},
    {"mnuFile", "", "File"},
    {"VC", "mnuFile", "&View Current Data Entry"},
    {"mnuFile_Line1", "mnuFile", "-"},
    {"mnuView", "mnuFile", "&View All Data Entries"},
    {"mnuRecord", "", "Record"},
    {"mnuCut", "mnuRecord", "&Cut"},
    {"mnuRecord_Line1", "mnuRecord", "-"},
    {"mnuCopy", "mnuRecord", "&Copy"},
    {"mnuRecord_Line2", "mnuRecord", "-"},
    {"mnuPaste", "mnuRecord", "&Paste (Add)"},
    {"mnuRename", "mnuRecord", "&Rename"},
    {"mnuDelete", "mnuRecord", "&Delete"},
    {"mnuNext", "mnuRecord", "&Next"},
    {"mnuPrevious", "mnuRecord", "&Previous"},
    {"mnuQuery", "", "Query"},
    {"mnuFind", "mnuQuery", "&Find"},
    {"mnuNumber", "mnuFind", "By &Number"},
    {"mnuFindName", "mnuFind", "By &Name"},
    {"sd", "", "&About"},
    {"Aboutmnu", "sd", "&About"},
    {"mnjj", "", "&Coming up"},
    {"mnuCu", "mnjj", "&Coming up"},
    {"mnuwall", "", "|:::::::::::::::::::::::::::::::::::|"},
    {"mnuEF", "", "Engine Open/Save "},
    {"mnuEFoef", "mnuEF", "Open Engine File"},
    {"mnuEF_Line1", "mnuEF", "-"},
    {"mnuEFsef", "mnuEF", "Save Engine File"},
    {"mnuEF_Line2", "mnuEF", "-"},
    {"mnuEFCT", "mnuEF", "Filter Category Pass Criteria"},
});

constexpr auto Menus_After_Engine = std::to_array<MenuPiece>({{"mnuHelp", "", "&Help"}});

void Add_Group_Menus(Form& form) {
  for (const EngineGroup& group : Engine_Groups) {
    const std::string menu = Menu_Of(group);
    const std::string caption = "Code for " + std::string(group.name);
    form.Add_Menu(As_Menu({menu, "", caption}));
    for (int entry = 1; entry <= group.entries; ++entry) {
      const std::string name = Menu_Of(group, entry);
      form.Add_Menu(As_Menu({name, menu, "Chara" + std::to_string(entry)}));
    }
  }
}

// A line for each group: its name, a bar as long as its menu, and the categories it stands for.
FormDrawing Key_Of_Groups() {
  constexpr FormColour Ink = 0x404040;
  constexpr FormColour Bar_Ink = 0xB07840;
  constexpr double Bars_Left = 22;
  constexpr double Bar_Per_Entry = 3;
  constexpr double Categories_Left = 71;
  FormDrawing key;
  key.scale = {0, 0, 100, static_cast<double>(Engine_Groups.size())};
  double top = 0;
  for (const EngineGroup& group : Engine_Groups) {
    const double bar_right = Bars_Left + Bar_Per_Entry * group.entries;
    key.operations.push_back(Drawn_Text({0, top + 0.15}, std::string(group.name), Ink));
    key.operations.push_back(Drawn_Box({Bars_Left, top + 0.2}, {bar_right, top + 0.8}, Bar_Ink));
    const std::string categories =
        std::to_string(group.first) + " to " + std::to_string(group.Last());
    key.operations.push_back(Drawn_Text({Categories_Left, top + 0.15}, categories, Ink));
    ++top;
  }
  return key;
}

}  // namespace

std::unique_ptr<Form> Make_DatabaseVE_Form() {
  auto form = std::make_unique<Form>("DatabaseVE", "", DatabaseVE_Size);
  Add_Controls(*form, Pieces);
  form->Set_Read_Only("Text1", true);
  for (const auto waits_for_file : {"PreHit", "NextHit"}) form->Set_Enabled(waits_for_file, false);
  form->Set_Back_Colour("Picture1", Night_Blue);
  form->Set_Drawing("Shape1", Key_Of_Groups());
  Add_Menus(*form, Menus_Before_Engine);
  Add_Group_Menus(*form);
  Add_Menus(*form, Menus_After_Engine);
  return form;
}

std::unique_ptr<Form> Make_DataDisplayVE_Form() {
  auto form = std::make_unique<Form>("DataDisplayVE",
                                     "Quillspeech Vocabulary Engine  Editor :  Database Display",
                                     DataDisplayVE_Size);
  form->Add(As_Control({"Combo1", ComboBox, "", "", "", {120, 420, 6360, 315}}));
  return form;
}

}  // namespace quillspeech
