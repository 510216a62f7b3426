#include "tests/support/editor_session.hpp"

#include <optional>
#include <utility>

namespace quillspeech::tests {
namespace {

// The session in its parts, each of which goes on where the one before it ended.
class Script {
 public:
  Script(std::string first, std::string made) : first_(std::move(first)), made_(std::move(made)) {}

  std::vector<EditorStep> Steps() && {
    Open_A_New_File();
    Save_Words();
    Edit_And_Delete_Words();
    Save_Patterns();
    Edit_And_Delete_Patterns();
    Save_Differentiators();
    Edit_And_Delete_Differentiators();
    Copy_Into_A_New_Record();
    Add_Records();
    Cut_And_Paste();
    Leave_The_Copyright_Open();
    Move();
    Delete_A_Record();
    Find();
    Look_At_The_Summary();
    Search_In_Vain();
    Reload_And_Open_Again();
    steps_.Choose("mnuHelp").Close("Help");
    steps_.Choose("Exitmnu");
    return steps_.All();
  }

 private:
  void Open_A_New_File() {
    steps_.Click("Command2", "Splash").Look("TFNam", first_);
    steps_.Click("Command1").Asks_File("Open Quillspeech Language Editor", "*.SAY", made_);
    steps_.Look("TFNam", made_);
    steps_.Click("Command9").Asks(New_Record, "No");
    Prepare_New();
    steps_.Choose("mnuLCrht").Asks_Text("File Copyright:", Copyright_Prompt, "Harbour Voices");
    steps_.Choose("mnuSFD").Asks_Text(
        "File description:", "Enter short file description for identification and your security",
        "Greetings of the day");
  }

  void Prepare_New() {
    steps_.Click("Command9").Asks(New_Record, "Yes");
    steps_.Tells("New record successfully created", "Quillspeech");
  }

  // By the button, and by Enter in both boxes.
  void Save_Words() {
    steps_.Select("Combo1", 2).Look("Combo1", "MS Sans Serif");
    steps_.Type("TextDiv", "3").Type("Text2", "70000");
    steps_.Type("Combo5", "hello").Type("Combo10", "300").Look("Combo10", "100");
    steps_.Click("Command14").Asks(Save_Word(), "Yes").Look("Label11", "1");
    steps_.Type("Combo5", "123").Click("Command14").Asks(Save_Word(), "Yes");
    steps_.Tells("Hey ! Please enter non numericals for storage ", "Quillspeech");
    steps_.Tells("Please enter the word with its rating and then save").Look("Combo5", "");
    steps_.Type("Combo5", "hallo").Type("Combo10", "80");
    steps_.Enter("Combo10").Asks(Save_Word(), "Yes");
    steps_.Type("Combo10", "60").Type("Combo5", "helo");
    steps_.Enter("Combo5").Asks(Save_Word(), "Yes");
    steps_.Type("Combo5", "hola").Type("Combo10", "40");
    steps_.Click("Command14").Asks(Save_Word(), "No").Look("Label11", "3");
    steps_.Click("Command14").Asks(Save_Word(), "Yes").Look("Label11", "4");
  }

  // What is deleted leaves the entry behind it twice, and the last one behind the count.
  void Edit_And_Delete_Words() {
    steps_.Select("Combo5", 1).Look("Combo10", "80");
    steps_.Click("Command13")
        .Asks_Text("Edit Entry Word", "Enter the new word to replace this:  hallo", "hullo")
        .Asks_Text("Edit Entry Rating", "Enter the rating for the current entry 80", "85");
    steps_.Click("Command12").Tells(Nothing_Selected);
    steps_.Select("Combo10", 0).Look("Combo5", "hello");
    steps_.Click("Command12").Look("Label11", "3").Look("Combo5", "hullo");
  }

  void Save_Patterns() {
    steps_.Click("Command16").Asks(Save(), "Yes");  // the window shows an empty pattern
    steps_.Tells("Please enter the LIKE operator string with its rating and then save");
    Enter_Pattern("fth*s", "80");
    steps_.Click("Command16").Asks(Save(), "Yes");
    Enter_Pattern("f?h[a-c]#", "70");
    steps_.Enter("Combo2").Asks(Save(), "Yes");
    Enter_Pattern("old*", "50");
    steps_.Enter("Combo3").Asks(Save(), "Yes").Look("Label7", "3");
  }

  void Enter_Pattern(const std::string& pattern, const std::string& rating) {
    steps_.Type("Combo2", pattern).Type("Combo3", rating);
  }

  // The last entry takes what lies behind it.
  void Edit_And_Delete_Patterns() {
    steps_.Select("Combo2", 1).Look("Combo3", "70");
    steps_.Click("Command6")
        .Asks_Text("Edit Entry",
                   "Enter the new string compare protocol to replace this:  f?h[a-c]#", "fth#")
        .Asks_Text("Edit Entry", "Enter the new string compare protocol percentage rating:  70",
                   "75");
    steps_.Select("Combo3", 2).Look("Combo2", "old*").Click("Command2").Look("Label7", "2");
  }

  void Save_Differentiators() {
    Enter_Differentiator("2", "th", "300");
    steps_.Click("Command15").Asks(Save(), "Yes");
    Enter_Differentiator("5", "s", "12");
    steps_.Enter("Combo7").Asks(Save(), "Yes");
    Enter_Differentiator("x", "k", "1");
    steps_.Click("Command15").Asks(Save(), "Yes");
    steps_.Tells("Incorrect data format, cannot save.", "Quillspeech Langauge Editor");
    steps_.Type("Combo7", "9").Click("Command15").Asks(Save(), "Yes").Look("Label12", "3");
  }

  void Enter_Differentiator(const std::string& slot, const std::string& code,
                            const std::string& weight) {
    steps_.Type("Combo7", slot).Type("Combo6", code).Type("Combo9", weight);
  }

  void Edit_And_Delete_Differentiators() {
    steps_.Select("Combo7", 1).Look("Combo6", "s").Look("Combo9", "12");
    steps_.Click("Command11")
        .Asks_Text("Edit Entry", "Enter the New Slot No to replace this:  5", "6")
        .Asks_Text("Edit Entry", "Enter the New Engine Code to replace this:  s", "sh")
        .Asks_Text("Edit Entry", "Enter the New Engine Code Weight to replace this:  12", "15");
    steps_.Select("Combo9", 0).Look("Combo7", "2").Click("Command17").Look("Label12", "2");
  }

  // An answer that lacks stands for a rating of 0.
  void Copy_Into_A_New_Record() {
    steps_.Choose("mnuSCopy");
    Prepare_New();
    steps_.Look("Label11", "0").Choose("mnuSpaste").Look("Label11", "3").Look("Combo5", "hullo");
    steps_.Select("Combo5", 0);
    steps_.Click("Command13")
        .Asks_Text("Edit Entry Word", "Enter the new word to replace this:  hullo", "good morning")
        .Asks_Text("Edit Entry Rating", "Enter the rating for the current entry 85", std::nullopt);
    steps_.Look("Combo10", "0");
  }

  // Each is a copy of the one before, and one entry more.
  void Add_Records() {
    Enter_Pattern("gm*", "90");
    steps_.Click("Command5").Asks(Add(), "Yes").Look("Label7", "3");
    Enter_Differentiator("7", "m", "20");
    steps_.Click("Command4").Asks(Add(), "Yes").Look("Label12", "3");
    steps_.Look("", Caption(4, 4, "good morning"));
  }

  void Cut_And_Paste() {
    steps_.Choose("mnuSCut").Look("Label11", "0").Look("Label7", "0").Look("Label12", "0");
    Prepare_New();
    steps_.Choose("mnuSpaste").Look("", Caption(5, 5, "good morning"));
  }

  // The text that stands for it stays in memory until the record is left.
  void Leave_The_Copyright_Open() {
    steps_.Choose("mnuLCrht").Asks_Text("File Copyright:", Copyright_Prompt, std::nullopt);
    steps_.Choose("mnuPrevious").Look("Label11", "0");
  }

  void Move() {
    steps_.Click("Command7").Look("", Caption(3, 5, "good morning")).Click("NextHit");
    steps_.Choose("mnuNext").Look("", Caption(5, 5, "good morning"));
    steps_.Choose("mnuNext").Tells("No More Records");
    steps_.Click("NextHit").Tells("No more Records in " + made_);
    Ask_Number("1").Look("", Caption(1, 5, "hullo"));
    steps_.Choose("mnuPrevious").Tells(" Start of File");
    steps_.Click("Command7").Tells(made_ + " Start of File  ");
    steps_.Choose("VC").Look("", Caption(5, 5, "good morning"));
    steps_.Choose("mnuView").Look("", Caption(5, 5, "good morning"));
  }

  EditorSteps& Ask_Number(const std::string& number) {
    return steps_.Choose("mnuNumber").Asks_Text("Find:", "Enter Reference Number", number);
  }

  void Delete_A_Record() {
    const std::string question =
        "Are you sure you want to delete all and every data under this name and record?";
    Ask_Number("9").Tells("Record 9 not present");
    Ask_Number("2").Look("Combo5", "good morning");
    steps_.Choose("mnuDelete").Asks(question, "No").Look("Label11", "3");
    steps_.Choose("mnuDelete").Asks(question, "Yes").Look("Label11", "0");
  }

  void Find() {
    steps_.Choose("mnuFindName").Asks_Text("Find :", Find_Prompt, "hullo");
    steps_.Look("", Caption(1, 5, "hullo"));
    steps_.Choose("mnuPatternFind").Asks_Text("Find :", Find_Prompt, "gm*");
    steps_.Look("", Caption(3, 5, "good morning"));
  }

  void Look_At_The_Summary() {
    const std::string differentiator =
        "Special Criteria's,Slot No. 6Engine Code sh Engine Code Weight 15\r\n";
    steps_.Choose("mnuTWord").Look("", "Summary of the Current Record", "FeaturesDisplay");
    steps_.Look("Text1",
                "Word no: 1 good morning\r\n"
                "Word no: 2 hullo\r\n"
                "Word no: 3 helo\r\n"
                "No of divisons :  3\r\n"
                "Total Timelength :  70000\r\n"
                "No. of entries for protocols :  3\r\n"
                "No. of Criterias :  2\r\n" +
                    differentiator + differentiator +
                    "Entry no 1 : fth*s 80\r\n"
                    "Entry no 2 : fth# 75\r\n"
                    "Entry no 3 : gm* 90",
                "FeaturesDisplay");
    steps_.Close("FeaturesDisplay");
  }

  // The window keeps the record that it shows; in the buffer is the last one of the file.
  void Search_In_Vain() {
    steps_.Choose("mnuPatternFind")
        .Asks_Text("Find :", Find_Prompt, "g*")
        .Tells("Record g* not present", "Quillspeech Language Editor ");
    steps_.Look("", Caption(3, 5, "good morning"));
    steps_.Click("NextHit").Tells("No more Records in " + made_);
    steps_.Look("", Caption(5, 5, "good morning"));
  }

  void Reload_And_Open_Again() {
    steps_.Choose("mnuReload").Look("TFNam", first_);
    steps_.Choose("Opmu").Asks_Text("Open:", "Open this old or new *.say File :", made_, first_);
    steps_.Look("TFNam", made_).Look("", Caption(1, 5, "hullo"));
  }

  std::string Save_Word() const { return "Are you ready to save  data to file " + made_ + " ?"; }
  std::string Save() const { return "Are you ready to save data to file " + made_ + " ?"; }
  std::string Add() const { return "Are you ready to add data to file " + made_ + " ?"; }
  static std::string Caption(int number, int count, const std::string& word) {
    return "Quillspeech\xAE  Record No." + std::to_string(number) + " out of " +
           std::to_string(count) + "  for Words Like..." + word + " \xA9" + "Corvane Studio Works";
  }

  static constexpr auto New_Record =
      "You are about to create a new record.  Do you wish to continue ?";
  static constexpr auto Nothing_Selected =
      "Please select a entry from the dropdown list for editing.";
  static constexpr auto Find_Prompt = "Enter the Word (or Words) or the pattern to find";
  static constexpr auto Copyright_Prompt =
      "Enter Company or individual author name for your identification and file copyright "
      "security";

  std::string first_;
  std::string made_;
  EditorSteps steps_;
};

}  // namespace

std::vector<EditorStep> Editor_Session(const std::string& first, const std::string& made) {
  return Script(first, made).Steps();
}

}  // namespace quillspeech::tests
