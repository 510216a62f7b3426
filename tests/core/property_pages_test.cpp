#include "core/property_pages.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tests/support/failures.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/table_members.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {
namespace {

const PropertyPage& Page_Named(std::string_view name) {
  for (const PropertyPage& page : Property_Pages()) {
    if (page.name == name) return page;
  }
  throw std::out_of_range("no such page");
}

using Names = std::vector<std::string_view>;

TEST(PropertyPages, Are_eight_in_the_order_of_the_container) {
  std::vector<std::pair<std::string_view, std::string_view>> captions;
  for (const PropertyPage& page : Property_Pages()) captions.emplace_back(page.name, page.caption);
  EXPECT_EQ(captions, (std::vector<std::pair<std::string_view, std::string_view>>{
                          {"StartingKeys", "Starting Keys"},
                          {"InterestingSettings", "Interesting  Settings"},
                          {"WindowsTechnicalSettings", "Windows Technical  Settings"},
                          {"EngineDepartment", "Engine Department"},
                          {"LanguageDepartment", "Language Department "},
                          {"WaveAudioDepartment", "MS Wave Audio "},
                          {"ErrorDepartment", "Error Department"},
                          {"SoundCardSettings", "Sound Card Settings"}}));
}

TEST(PropertyPages, Bind_their_members_in_order) {
  EXPECT_EQ(Bound_Members(Page_Named("StartingKeys")),
            (Names{"Memory_Clean", "Stop_everything_now", "Send_words_one_by_one",
                   "On_speech_show_activities"}));
  EXPECT_EQ(Bound_Members(Page_Named("InterestingSettings")),
            (Names{"Speech_echo_feature", "Show_Audio_Graph", "Show_this_Image_for_Start",
                   "Show_this_Image_for_Stop", "Operation_Status", "Play_File",
                   "Play_this_file_for_Start", "Play_this_file_for_Stop",
                   "Play_this_file_on_Initialization", "I_want_Status_Animation"}));
  EXPECT_EQ(Bound_Members(Page_Named("WindowsTechnicalSettings")),
            (Names{"Audio_Data",
                   "Sample_Overlap_Bytes",
                   "Speech_sampling_time_in_ms",
                   "This_Audio_Process",
                   "Probable_no_of_words_recognized",
                   "Current_Word_no_Processed",
                   "Current_Word_no_Timelength",
                   "Sample_processing_resolution",
                   "Current_Vyanjana_no_Processed",
                   "No_of_Processings",
                   "This_speech_sample_process_Start_only",
                   "This_speech_sample_process_middle_only",
                   "This_speech_sample_process_end_only",
                   "Current_Processings_Available",
                   "Keep_Digital_Signal_Processing_level",
                   "Set_Recording_Frequency",
                   "Voice_Processing_Delay",
                   "Voice_Capture_Delay",
                   "Noise_Sensitivity",
                   "Noise_Word_No_CutOff"}));
  EXPECT_EQ(
      Bound_Members(Page_Named("EngineDepartment")),
      (Names{"Voice_Magic_Elements", "Voice_Words_Explode_Count", "Enable_Speech_Engine",
             "Explode_out_all_Engine", "Words_I_Want", "Words_to_Scan",
             "Consider_this_Engine_for_Recognition", "Engine_Explode_Limit",
             "Voice_Words_Matched_Count", "Voice_Word_Matched", "Keep_Engine_Frequency_Input_Flow",
             "Words_I_Check", "Engine_Category_Weight", "Engine_Category_Code",
             "Filter_Filled_Slots", "Filter_Slot_Data_Weight", "Filter_Pass_Value"}));
  EXPECT_EQ(
      Bound_Members(Page_Named("LanguageDepartment")),
      (Names{"Send_of_no", "Platinum_Words_Available", "Platinum_Word_Percentage",
             "Consider_this_Lang_File_to_match", "Consider_this_Lang_File_to_Add",
             "Add_To_Language", "Enable_Artificial_Intelligence", "Notify_if_no_language_match",
             "Platinum_Word_Font", "Platinum_Word_Best", "Direct_Add", "Platinum_Word_Second_Best",
             "Platinum_Word_Third_Best", "Platinum_Word_Fourth_Best", "Platinum_Word_Fifth_Best",
             "Platinum_Word_Sixth_Best", "Platinum_Word_Seventh_Best"}));
  EXPECT_EQ(Bound_Members(Page_Named("WaveAudioDepartment")),
            (Names{"Current_DeepWord_no_Processed", "Current_DeepWord_no_Timelength",
                   "Current_TooDeepWord_no_Processed", "Current_TooDeepWord_no_Timelength",
                   "Open_this_Wave_File"}));
  EXPECT_EQ(Bound_Members(Page_Named("ErrorDepartment")), Names{"Always_Restart_on_Error"});
  EXPECT_EQ(Bound_Members(Page_Named("SoundCardSettings")), Names{});
}

TEST(PropertyPages, Four_boxes_have_no_member) {
  std::vector<std::pair<std::string_view, std::string_view>> unbound;
  for (const PropertyPage& page : Property_Pages()) {
    for (const PageBox& box : page.boxes) {
      if (!box.is_bound) unbound.emplace_back(page.name, box.name);
    }
  }
  EXPECT_EQ(unbound, (std::vector<std::pair<std::string_view, std::string_view>>{
                         {"EngineDepartment", "Voice_Word"},
                         {"EngineDepartment", "Engine_Category"},
                         {"EngineDepartment", "Filter_Slot_Data"},
                         {"LanguageDepartment", "Platinum_Word"}}));
}

TEST(PropertyPages, Every_bound_member_can_be_got_and_let) {
  for (const PropertyPage& page : Property_Pages()) {
    for (const std::string_view member : Bound_Members(page)) {
      EXPECT_NE(Find_Member(member, Access::Get), nullptr) << member;
      EXPECT_NE(Find_Member(member, Access::Let), nullptr) << member;
    }
  }
}

// Keeps what it is asked, and answers each member with "<name>".
struct NotingMembers final : MemberSource {
  std::string Get(std::string_view member) override {
    asked.push_back("get " + std::string(member));
    if (member == failing) Fail(Failure::Subscript_Out_Of_Range);
    return "<" + std::string(member) + ">";
  }
  void Let(std::string_view member, std::string_view text) override {
    asked.push_back("let " + std::string(member) + " " + std::string(text));
    if (member == failing) Fail(Failure::Type_Mismatch);
  }
  std::vector<std::string> asked;
  std::string failing;
};

struct OpenPage : testing::Test, ControlTest {
  PageForm& Open(std::string_view name) {
    page =
        std::make_unique<PageForm>(Page_Named(name), session, [] { return std::intptr_t{4711}; });
    return *page;
  }
  std::unique_ptr<PageForm> page;
  NotingMembers members;
};

TEST_F(OpenPage, Has_a_label_with_a_colon_before_each_box_and_the_help_button_last) {
  for (const PropertyPage& each : Property_Pages()) {
    const auto controls = Open(each.name).View().Controls();
    ASSERT_EQ(controls.size(), each.boxes.size() * 2 + (each.has_help ? 1 : 0)) << each.name;
    for (std::size_t i = 0; i < each.boxes.size(); ++i) {
      const std::string name(each.boxes[i].name);
      EXPECT_EQ(controls[2 * i].name, "lbl" + name);
      EXPECT_EQ(controls[2 * i].text, name + ":");
      EXPECT_EQ(controls[2 * i + 1].name, "txt" + name);
      EXPECT_EQ(controls[2 * i + 1].text, "");
    }
    if (each.has_help) {
      EXPECT_EQ(controls.back().name, "Command1");
      EXPECT_EQ(controls.back().text, "&Help");
    }
  }
}

TEST_F(OpenPage, Fits_a_frame_and_holds_its_controls_apart) {
  for (const PropertyPage& each : Property_Pages()) {
    const Form& form = Open(each.name).View();
    EXPECT_LE(Twips_To_Pixels(form.Size().width, 96), 700) << each.name;
    EXPECT_LE(Twips_To_Pixels(form.Size().height, 96), 420) << each.name;
    for (const FormControl& one : form.Controls()) {
      EXPECT_LE(one.place.left + one.place.width, form.Size().width) << one.name;
      EXPECT_LE(one.place.top + one.place.height, form.Size().height) << one.name;
      for (const FormControl& other : form.Controls()) {
        if (&one == &other) continue;
        const bool is_apart = one.place.left + one.place.width <= other.place.left ||
                              other.place.left + other.place.width <= one.place.left ||
                              one.place.top + one.place.height <= other.place.top ||
                              other.place.top + other.place.height <= one.place.top;
        EXPECT_TRUE(is_apart) << one.name << " and " << other.name;
      }
    }
  }
}

TEST_F(OpenPage, Boxes_of_one_column_stand_below_each_other) {
  std::set<int> lefts;
  for (const FormControl& control_on_page : Open("WindowsTechnicalSettings").View().Controls()) {
    if (control_on_page.kind == FormControlKind::TextBox) lefts.insert(control_on_page.place.left);
  }
  EXPECT_EQ(lefts.size(), 2U);
}

TEST_F(OpenPage, Reads_the_members_in_order) {
  Open("StartingKeys").PropertyPage_SelectionChanged(members);
  EXPECT_EQ(members.asked, (std::vector<std::string>{"get Memory_Clean", "get Stop_everything_now",
                                                     "get Send_words_one_by_one",
                                                     "get On_speech_show_activities"}));
  EXPECT_EQ(page->View()["txtMemory_Clean"].text, "<Memory_Clean>");
  EXPECT_FALSE(page->Is_Changed());
}

TEST_F(OpenPage, Applies_every_member_in_order_changed_or_not) {
  Open("StartingKeys").PropertyPage_SelectionChanged(members);
  page->View().Type("txtSend_words_one_by_one", "NO");
  members.asked.clear();
  page->PropertyPage_ApplyChanges(members);
  EXPECT_EQ(members.asked,
            (std::vector<std::string>{
                "let Memory_Clean <Memory_Clean>", "let Stop_everything_now <Stop_everything_now>",
                "let Send_words_one_by_one NO",
                "let On_speech_show_activities <On_speech_show_activities>"}));
}

TEST_F(OpenPage, Typing_marks_it_as_changed_until_it_is_applied) {
  int changes = 0;
  Open("StartingKeys").PropertyPage_SelectionChanged(members);
  page->At_Change = [&] { ++changes; };
  EXPECT_FALSE(page->Is_Changed());
  page->View().Type("txtMemory_Clean", "NO");
  EXPECT_TRUE(page->Is_Changed());
  EXPECT_EQ(changes, 1);
  page->PropertyPage_ApplyChanges(members);
  EXPECT_FALSE(page->Is_Changed());
}

TEST_F(OpenPage, Boxes_without_a_member_are_neither_filled_nor_applied_but_mark_the_change) {
  Open("LanguageDepartment").PropertyPage_SelectionChanged(members);
  EXPECT_EQ(page->View()["txtPlatinum_Word"].text, "");
  page->View().Type("txtPlatinum_Word", "hello");
  EXPECT_TRUE(page->Is_Changed());
  page->PropertyPage_ApplyChanges(members);
  for (const std::string& call : members.asked) {
    EXPECT_NE(call.substr(0, 18), "let Platinum_Word ") << call;
    EXPECT_NE(call, "get Platinum_Word");
  }
}

TEST_F(OpenPage, A_member_that_fails_ends_the_reading_and_goes_out) {
  members.failing = "Stop_everything_now";
  Open("StartingKeys");
  EXPECT_EQ(Failure_Of([this] { page->PropertyPage_SelectionChanged(members); }), 9);
  EXPECT_EQ(members.asked.size(), 2U);
}

TEST_F(OpenPage, A_member_that_fails_ends_the_apply_and_the_page_stays_changed) {
  Open("StartingKeys").PropertyPage_SelectionChanged(members);
  page->View().Type("txtMemory_Clean", "NO");
  members.asked.clear();
  members.failing = "Stop_everything_now";
  EXPECT_EQ(Failure_Of([this] { page->PropertyPage_ApplyChanges(members); }), 13);
  EXPECT_EQ(members.asked.size(), 2U);
  EXPECT_TRUE(page->Is_Changed());
}

TEST_F(OpenPage, The_empty_page_shows_nothing_and_changes_nothing) {
  Open("SoundCardSettings").PropertyPage_SelectionChanged(members);
  page->PropertyPage_ApplyChanges(members);
  EXPECT_TRUE(page->View().Controls().empty());
  EXPECT_TRUE(members.asked.empty());
}

TEST_F(OpenPage, Its_button_opens_the_help_page_in_the_name_of_its_window) {
  Open("ErrorDepartment").View().Click("Command1");
  EXPECT_EQ(shell.opened,
            (std::vector<headless::Shell::Opened>{{"C:\\WINDOWS\\Quillspeech\\help.htm", 4711}}));
}

struct AppliedPage : OpenPage {
  void Apply_Without_Edits(std::string_view name) {
    TableMembers own(*control);
    Open(name).PropertyPage_SelectionChanged(own);
    page->PropertyPage_ApplyChanges(own);
  }
};

TEST_F(AppliedPage, An_apply_without_edits_plays_the_file_of_Play_File) {
  control->instance.Play_File = "hello.wav";
  cues.calls.clear();
  Apply_Without_Edits("InterestingSettings");
  EXPECT_EQ(cues.calls, std::vector<std::string>{"play hello.wav"});
}

TEST_F(AppliedPage, An_apply_without_edits_counts_as_a_setting_of_the_sampling_time) {
  session.flags.Settings_Ready_Count = 0;
  session.settings.Speech_sampling_time_in_ms = 7000;
  Apply_Without_Edits("WindowsTechnicalSettings");
  EXPECT_GE(session.flags.Settings_Ready_Count, 1);
}

TEST_F(AppliedPage, An_apply_without_edits_counts_as_a_setting_of_the_words_wanted) {
  session.flags.Settings_Ready_Count = 0;
  Apply_Without_Edits("EngineDepartment");
  EXPECT_GE(session.flags.Settings_Ready_Count, 1);
}

TEST_F(AppliedPage, An_apply_without_edits_leaves_the_settings_as_they_were) {
  const std::string before = Get_Text(*control, "Voice_Processing_Delay");
  Apply_Without_Edits("WindowsTechnicalSettings");
  EXPECT_EQ(Get_Text(*control, "Voice_Processing_Delay"), before);
}

TEST_F(AppliedPage, A_text_that_is_no_number_fails_the_apply) {
  TableMembers own(*control);
  Open("WindowsTechnicalSettings").PropertyPage_SelectionChanged(own);
  page->View().Type("txtSample_Overlap_Bytes", "many");
  EXPECT_EQ(Failure_Of([&] { page->PropertyPage_ApplyChanges(own); }), 13);
  EXPECT_TRUE(page->Is_Changed());
}

}  // namespace
}  // namespace quillspeech::tests
