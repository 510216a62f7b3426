#include "editors/language_memory.hpp"

#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageMemory : LanguageEditorTest {
  // A word of three divisions, and three slots.
  LanguageMemory() {
    session.words.Word_Count_Log[0] = 3;
    for (int i = 0; i < 3; ++i) session.words.Word_Entry_Length[i] = 1000 * (i + 1);
    session.words.Word_Entry_Length[3] = 77;  // of an earlier word
    session.filter.Voice_Word_Table[1] = " fths ";
    session.filter.Voice_Word_Table[2] = "gh";
    session.filter.Voice_Word_Table[3] = "kl ";
    session.filter.Voice_Words_Explode_Count = 2;
    session.filter.Filter_Filled_Slots = 3;
    const char* const groups[] = {"f", "th", "s"};
    for (int slot = 1; slot <= 3; ++slot) {
      session.filter.Filter_Slot_Table[slot] = groups[slot - 1];
      session.filter.Filter_Weight_Table[slot] = 10 * slot;
    }
  }
  void Open() { LanguageEditorTest::Open({Record().Word("one"), Record()}); }
};

TEST_F(LanguageMemory, The_button_shows_the_whole_word) {
  Open();
  Click("Command3");
  EXPECT_EQ(Text("Label5"), "Total");
  EXPECT_EQ(Text("TextDiv"), "3");
  EXPECT_EQ(Text("Text2"), "6000");
  EXPECT_EQ(Text("Combo2"), "fths");
  EXPECT_EQ(Text("Combo3"), "100");
  EXPECT_EQ(data_files.writes, 0);
}

TEST_F(LanguageMemory, The_other_button_lists_the_filled_slots) {
  Open();
  Click("Command10");
  EXPECT_EQ(Lines("Combo8"), (Texts{"1 f 10", "2 th 20", "3 s 30"}));
  Click("Command10");
  EXPECT_EQ(Lines("Combo8").size(), 3U);
}

TEST_F(LanguageMemory, Both_buttons_do_nothing_without_a_file) {
  Open_Nothing();
  Click("Command3");
  Click("Command10");
  EXPECT_EQ(Text("Label5"), " 1");
  EXPECT_EQ(Text("Combo2"), "");
  EXPECT_TRUE(Lines("Combo8").empty());
}

TEST_F(LanguageMemory, Each_division_shows_its_number_its_length_and_its_text) {
  const struct {
    const char* menu;
    const char* number;
    const char* length;
    const char* text;
  } cases[] = {{"mnuD1M", "1", "1000", "fths"},
               {"mnuD2M", "2", "2000", "gh"},
               {"mnuD3M", "3", "3000", "kl"},
               {"mnuD4M", "4", "77", ""},
               {"mnuD5M", "5", "0", ""}};
  Open();
  for (const auto& [menu, number, length, text] : cases) {
    Choose(menu);
    EXPECT_EQ(Text("Label5"), number) << menu;
    EXPECT_EQ(Text("TextDiv"), "3") << menu;
    EXPECT_EQ(Text("Text2"), length) << menu;
    EXPECT_EQ(Text("Combo2"), text) << menu;
  }
}

TEST_F(LanguageMemory, The_current_memory_shows_the_last_division_and_lists_them_all) {
  Open();
  Choose("mnuDCM");
  EXPECT_EQ(Text("Label5"), "Total");
  EXPECT_EQ(Text("Text2"), "6000");
  EXPECT_EQ(Text("Combo2"), "kl");
  EXPECT_EQ(Text("Combo3"), "100");
  EXPECT_EQ(Browser_Lines(),
            (Texts{"fths-   Length :  -1000", "gh-   Length :  -2000", "kl-   Length :  -3000"}));
}

TEST_F(LanguageMemory, The_engine_memory_lists_the_strings_and_the_slots) {
  Open();
  Choose("mnuDEM");
  EXPECT_EQ(Browser_Lines(), (Texts{"fths", "gh"}));
  EXPECT_EQ(Text("Combo2"), "fths");
  EXPECT_EQ(Text("Label5"), "Total");
  EXPECT_EQ(Lines("Combo8").size(), 3U);
}

TEST_F(LanguageMemory, The_list_shows_modally_in_a_design_environment) {
  In_A_Design_Environment();
  Open();
  Choose("mnuDCM");
  Choose("mnuDEM");
  using Shown = headless::FormViews::Shown;
  EXPECT_EQ(views.shown, (std::vector<Shown>{{"DataDisplay", Modality::Modal},
                                             {"DataDisplay", Modality::Modal}}));
}

TEST_F(LanguageMemory, Elsewhere_the_list_is_filled_and_not_shown) {
  Open();
  Choose("mnuDCM");
  Choose("mnuDEM");
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(LanguageMemory, A_slot_that_is_chosen_becomes_a_differentiator_to_be_saved) {
  Open();
  Click("Command10");
  ASSERT_TRUE(Window().Select("Combo8", 1));
  EXPECT_EQ(Lines("Combo7"), Texts{"2"});
  EXPECT_EQ(Text("Combo7"), "2");
  EXPECT_EQ(Text("Combo6"), "th");
  EXPECT_EQ(Text("Combo9"), "20");
  boxes.answers = {BoxAnswer::Yes};
  Click("Command15");
  EXPECT_EQ(On_Disk().DifferentiatorCount(), 1);
  EXPECT_EQ(On_Disk().SlotNumbers(1), 2);
  EXPECT_EQ(Trim(On_Disk().EngineCodes(1)), "th");
  EXPECT_EQ(On_Disk().EngineCodeWeights(1), 20);
}

TEST_F(LanguageMemory, The_pattern_that_is_shown_can_be_saved) {
  Open();
  Click("Command3");
  boxes.answers = {BoxAnswer::Yes};
  Click("Command16");
  EXPECT_EQ(Trim(On_Disk().LikeProtocols(1)), "fths");
  EXPECT_EQ(On_Disk().LikeRatings(1), 100);
}

TEST_F(LanguageMemory, More_divisions_than_the_tables_hold_end_the_command_silently) {
  session.words.Word_Count_Log[0] = 101;  // one more than there are strings
  Open();
  Choose("mnuDCM");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(Browser_Lines().empty());
}

}  // namespace
}  // namespace quillspeech::tests
