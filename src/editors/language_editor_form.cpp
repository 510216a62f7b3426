#include "editors/language_editor_form.hpp"

#include <array>
#include <string_view>

#include "editors/form_pieces.hpp"

namespace quillspeech {
namespace {

using enum FormControlKind;

constexpr FormSize Database_Size{9900, 6210};

// Some captions and tips carry blanks and spellings of their own.
constexpr std::string_view Rate = "I will rate this entry to  match :";
constexpr std::string_view Out_Of = "out of 100%";

// In tab order: the file, the record, then a frame for each list.
constexpr auto Pieces = std::to_array<ControlPiece>({
    {"Label1", Label, "", "Language File :", "", {120, 165, 1260, 240}},
    {"TFNam", TextBox, "", "", "", {1440, 120, 5220, 315}},
    {"Command1", Button, "", "Find Files", "Open a *.lang file", {6780, 105, 1440, 345}},
    {"Command8",
     Button,
     "",
     "Restart",
     "Press to exit Quillspeech Language Editor  and to restart action",
     {8340, 105, 1440, 345}},

    {"Command7",
     Button,
     "",
     "< Previous",
     "Press  to scan decremental records",
     {120, 585, 1440, 345}},
    {"NextHit", Button, "", "Next >", "Press  to scan incremental records", {1680, 585, 1440, 345}},
    {"Command9",
     Button,
     "",
     " Prepare New",
     "Prepare to input a new record",
     {3240, 585, 1440, 345}},
    {"Label2", Label, "", "Direct Add Record no.", "", {6780, 645, 1860, 240}},
    {"Text1", TextBox, "", "", "", {8700, 600, 1080, 315}},

    {"Frame1", Frame, "", "Word('s) in your Specific Language Font :", "", {120, 1065, 9660, 1320}},
    {"Combo5", ComboBox, "Frame1", "", "", {150, 315, 4320, 315}},
    {"Label3", Label, "Frame1", Rate, "", {4650, 360, 2700, 240}},
    {"Combo10", ComboBox, "Frame1", "", "", {7380, 315, 960, 315}},
    {"Label4", Label, "Frame1", Out_Of, "", {8430, 360, 1080, 240}},
    {"Label6", Label, "Frame1", "Language Fonts", "", {150, 870, 1320, 240}},
    {"Combo1",
     ComboBox,
     "Frame1",
     "",
     "Click to see fonts you have on your machine",
     {1500, 825, 2970, 315}},
    {"Label8", Label, "Frame1", "Entries :", "", {4650, 870, 780, 240}},
    {"Label11", Label, "Frame1", "", "", {5460, 870, 600, 240}},
    {"Command14", Button, "Frame1", "Save", "", {6330, 810, 1020, 345}},
    {"Command13", Button, "Frame1", "Edit", "", {7410, 810, 1020, 345}},
    {"Command12", Button, "Frame1", "Delete", "", {8490, 810, 1020, 345}},

    {"Label9", Label, "", "No.of divisons", "", {120, 2580, 1260, 240}},
    {"TextDiv",
     TextBox,
     "",
     "",
     "No of divisons that Quillspeech splits your current uttered word",
     {1440, 2535, 540, 315}},
    {"Label10", Label, "", "Word Divison Avg. Byteslength", "", {2220, 2580, 2460, 240}},
    {"Text2",
     TextBox,
     "",
     "",
     "Byteslength of the above divison of your uttered word",
     {4770, 2535, 1260, 315}},
    {"Label5", Label, "", " 1", "", {6150, 2580, 720, 240}},
    {"Command3", Button, "", "Memory", "", {8340, 2520, 1440, 345}},

    {"Frame2",
     Frame,
     "",
     "Pattern Matching String with Engine Produced String :",
     "",
     {120, 2970, 9660, 1320}},
    {"Combo2", ComboBox, "Frame2", "", "", {150, 315, 8010, 315}},
    {"Label13", Label, "Frame2", Rate, "", {150, 870, 2700, 240}},
    {"Combo3", ComboBox, "Frame2", "", "", {2880, 825, 960, 315}},
    {"Label14", Label, "Frame2", Out_Of, "", {3930, 870, 1080, 240}},
    {"Label15", Label, "Frame2", "Entries :", "", {8310, 360, 780, 240}},
    {"Label7", Label, "Frame2", "", "", {9120, 360, 390, 240}},
    {"Command16", Button, "Frame2", "Save", "", {5250, 810, 1020, 345}},
    {"Command5", Button, "Frame2", "Add", "", {6330, 810, 1020, 345}},
    {"Command6", Button, "Frame2", "Edit", "", {7410, 810, 1020, 345}},
    {"Command2", Button, "Frame2", "Delete", "", {8490, 810, 1020, 345}},

    {"Frame3",
     Frame,
     "",
     "Special Criterias  / Hookers / Key factors / Differentiators :",
     "",
     {120, 4440, 9660, 1650}},
    {"Label16", Label, "Frame3", "Slot No.", "", {150, 300, 1140, 240}},
    {"Combo7", ComboBox, "Frame3", "", "", {150, 570, 1140, 315}},
    {"Label17", Label, "Frame3", "Engine Code", "", {1410, 300, 1740, 240}},
    {"Combo6", ComboBox, "Frame3", "", "", {1410, 570, 1740, 315}},
    {"Label18", Label, "Frame3", "Filtered Weight", "", {3270, 300, 1380, 240}},
    {"Combo9", ComboBox, "Frame3", "", "", {3270, 570, 1200, 315}},
    {"Combo8",
     ComboBox,
     "Frame3",
     "",
     "Click the entry you feel important",
     {4770, 570, 3660, 315}},
    {"Command10", Button, "Frame3", "Memory", "", {8490, 555, 1020, 345}},
    {"Label19", Label, "Frame3", "Entries :", "", {150, 1170, 780, 240}},
    {"Label12", Label, "Frame3", "", "", {960, 1170, 420, 240}},
    {"Command15", Button, "Frame3", "Save", "", {5250, 1110, 1020, 345}},
    {"Command4", Button, "Frame3", "Add", "", {6330, 1110, 1020, 345}},
    {"Command11", Button, "Frame3", "Edit", "", {7410, 1110, 1020, 345}},
    {"Command17", Button, "Frame3", "Delete", "", {8490, 1110, 1020, 345}},
});

constexpr auto Menus = std::to_array<MenuPiece>({
    {"Enmu", "", "Open"},
    {"Opmu", "Enmu", "&File"},
    {"Enmu_Line1", "Enmu", "-"},
    {"Exitmnu", "Enmu", "&Quit Editor"},
    {"mnuFile", "", "File"},
    {"mnuLCrht", "mnuFile", "Legal Copyright"},
    {"mnuFile_Line1", "mnuFile", "-"},
    {"mnuSFD", "mnuFile", "Short File Description"},
    {"mnuFile_Line2", "mnuFile", "-"},
    {"VC", "mnuFile", "View Current Data Entry in File"},
    {"mnuFile_Line3", "mnuFile", "-"},
    {"mnuView", "mnuFile", "View Title of All  Entries in File"},
    {"mnuFile_Line4", "mnuFile", "-"},
    {"mnuReload", "mnuFile", "Reload this File"},
    {"mnuRecord", "", "Record"},
    {"mnuSCut", "mnuRecord", "Cut"},
    {"mnuSCopy", "mnuRecord", "Copy"},
    {"mnuSpaste", "mnuRecord", "Paste"},
    {"mnuDelete", "mnuRecord", "&Delete Record"},
    {"mnuRecord_Line1", "mnuRecord", "-"},
    {"mnuNext", "mnuRecord", "Next"},
    {"mnuRecord_Line2", "mnuRecord", "-"},
    {"mnuPrevious", "mnuRecord", "Previous"},
    {"mnuQuery", "", "Query"},
    {"mnuFind", "mnuQuery", "Find in this File"},
    {"mnuNumber", "mnuFind", "By &Record Number"},
    {"mnuFindName", "mnuFind", "By &Word Title"},
    {"mnuPatternFind", "mnuFind", "By &Pattern"},
    {"mnuEM", "", "Engine Memory"},
    {"mnuDEM", "mnuEM", "Display &Engine Memory"},
    {"mnuCM", "", "Current Memory"},
    {"mnuDCM", "mnuCM", "Display current &Memory"},
    {"mnuD1M", "mnuCM", "Time length divison no. 1 in &Memory "},
    {"mnuD2M", "mnuCM", "Time length divison no. 2 in &Memory "},
    {"mnuD3M", "mnuCM", "Time length divison no. 3 in &Memory "},
    {"mnuD4M", "mnuCM", "Time length divison no. 4 in &Memory "},
    {"mnuD5M", "mnuCM", "Time length divison no. 5 in &Memory "},
    {"mnuWF", "", "Record Summary"},
    {"mnuTWord", "mnuWF", "This Record"},
    {"mnuHel", "", "Help"},
    {"mnuHelp", "mnuHel", "Help"},
});

}  // namespace

std::unique_ptr<Form> Make_Database_Form() {
  auto form = std::make_unique<Form>("Database", "", Database_Size);
  Add_Controls(*form, Pieces);
  for (const std::string_view shown_only : {"TFNam", "Text1"}) {
    form->Set_Read_Only(shown_only, true);
  }
  Add_Menus(*form, Menus);
  return form;
}

std::unique_ptr<Form> Make_DataDisplay_Form() {
  auto form = std::make_unique<Form>(
      "DataDisplay", "Quillspeech Language  Editor :  Database Display", FormSize{6600, 555});
  form->Add(As_Control({"Combo1", ComboBox, "", "", "", {120, 120, 6360, 315}}));
  return form;
}

std::unique_ptr<Form> Make_FeaturesDisplay_Form() {
  auto form = std::make_unique<Form>("FeaturesDisplay", "Summary of the Current Record",
                                     FormSize{7200, 5400});
  FormControl text = As_Control({"Text1", TextBox, "", "", "", {120, 120, 6960, 5160}});
  text.multi_line = text.scroll = text.read_only = true;
  form->Add(text);
  return form;
}

}  // namespace quillspeech
