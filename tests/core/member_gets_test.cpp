// What each of the 80 gets answers.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/conversions.hpp"
#include "core/member_table.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using Changes = std::vector<std::string>;

MemberValue Text(const char* text) { return std::string(text); }
MemberValue N16(int number) { return static_cast<std::int16_t>(number); }
MemberValue N32(int number) { return std::int32_t{number}; }

class MemberGets : public testing::Test, protected tests::ControlTest {
 protected:
  MemberValue Get(std::string_view name) {
    const Member* member = Find_Member(name, Access::Get);
    if (!member) ADD_FAILURE() << name;
    return member ? Get_Member(*member, *control) : MemberValue();
  }

  // Behind every name a value that no other name has, as far as its kind allows.
  void Fill_Settings();
  void Fill_Results();
  void Fill_Filter();
  void Fill_Words();
};

void MemberGets::Fill_Settings() {
  Settings& s = session.settings;
  s.Stop_everything_now = " stop ";
  s.Send_words_one_by_one = " one by one ";
  s.This_Audio_Process = " process ";
  s.Show_Audio_Graph = " graph ";
  s.Speech_echo_feature = " echo ";
  s.This_speech_sample_process_Start_only = " start only ";
  s.This_speech_sample_process_middle_only = " middle only ";
  s.This_speech_sample_process_end_only = " end only ";
  s.Always_Restart_on_Error = " restart ";
  s.I_want_Status_Animation = " animation ";
  s.Enable_Speech_Engine = " speech engine ";
  s.Explode_out_all_Engine = " explode ";
  s.Notify_if_no_language_match = " notify ";
  s.Enable_Artificial_Intelligence = " intelligence ";
  s.Add_To_Language = " add ";
  s.Keep_Engine_Frequency_Input_Flow = " flow ";
  s.Keep_Digital_Signal_Processing_level = " level ";
  s.Memory_Clean = " clean ";
  s.Words_I_Want[1] = " wanted ";
  s.Consider_this_Engine_for_Recognition = " engine.EGN ";
  s.Consider_this_Lang_File_to_Add = " add.SAY ";
  s.Consider_this_Lang_File_to_match = " match.SAY ";
  s.Open_this_Wave_File = " open.wav ";
  s.Show_this_Image_for_Start = " start.bmp ";
  s.Show_this_Image_for_Stop = " stop.bmp ";
  s.Play_this_file_for_Start = " started.wav ";
  s.Play_this_file_for_Stop = " stopped.wav ";
  s.Play_this_file_on_Initialization = " new.wav ";
  control->instance.Play_File = " played.wav ";
  s.Sample_Overlap_Bytes = 101;
  s.Noise_Sensitivity = 102;
  s.Filter_Pass_Value = 103;
  s.Noise_Word_No_CutOff = 104;
  s.Voice_Capture_Delay = 105;
  s.Engine_Explode_Limit = 106;
  s.Voice_Processing_Delay = 107;
  s.Send_of_no = 3;
  s.Sample_processing_resolution = 109;
  s.Words_to_Scan = 110;
  s.Direct_Add = 111;
  s.Set_Recording_Frequency = 112;
  s.Speech_sampling_time_in_ms = 113;
}

void MemberGets::Fill_Results() {
  Results& results = session.results;
  const char* const places[] = {"first", "second", "third", "fourth", "fifth", "sixth", "seventh"};
  for (int place = 1; place <= 7; ++place) {
    results.Platinum_Best_Table[place] = std::string(" ") + places[place - 1] + " ";
  }
  results.Platinum_Words_Available = 11;
  results.Platinum_Word_Table[3] = "word ";
  results.Platinum_Score_Table[3] = 12;
  results.Platinum_Word_Font = " Arial ";
  session.flags.Operation_Status = " Finish ";
}

void MemberGets::Fill_Filter() {
  Filter& filter = session.filter;
  session.slice.Engine_Category = 15;
  filter.Engine_Table[15] = "group ";
  filter.Voice_Word_Table[1] = "heard ";
  filter.Voice_Word_Matched_Table[3] = "matched ";
  filter.Voice_Words_Explode_Count = 13;
  filter.Voice_Words_Matched_Count = 14;
  filter.Voice_Magic_Elements = " _4 ";
  filter.Engine_Category_Weight = 16;
  filter.Filter_Filled_Slots = 17;
  filter.Filter_Slot_Table[3] = "slot ";
  filter.Filter_Weight_Table[3] = 18;
  filter.Word_Check_Flags[3] = 99;  // not asked for while no word was checked
}

void MemberGets::Fill_Words() {
  WordTables& words = session.words;
  words.Probable_no_of_words_recognized = 19;
  words.Current_Processings_Available = 20;
  words.No_of_Processings = 21;
  words.Current_Vyanjana_no_Processed = 22;
  words.Current_Word_no_Processed = 23;
  words.Current_DeepWord_no_Processed = 24;
  words.Current_TooDeepWord_no_Processed = 25;
  for (auto* lengths : {&words.Word_Length, &words.Deep_Word_Length, &words.Too_Deep_Word_Length}) {
    lengths->Resize(25);
  }
  words.Word_Length.Put(23, 26);
  words.Deep_Word_Length.Put(24, 27);
  words.Too_Deep_Word_Length.Put(25, 28);
}

using Answers = std::vector<std::pair<std::string_view, MemberValue>>;

const Answers Setting_Answers = {{"Stop_everything_now", Text(" stop ")},
                                 {"Send_words_one_by_one", Text("one by one")},
                                 {"This_Audio_Process", Text("process")},
                                 {"Show_Audio_Graph", Text("graph")},
                                 {"Speech_echo_feature", Text("echo")},
                                 {"This_speech_sample_process_Start_only", Text("start only")},
                                 {"This_speech_sample_process_middle_only", Text("middle only")},
                                 {"This_speech_sample_process_end_only", Text("end only")},
                                 {"Always_Restart_on_Error", Text("restart")},
                                 {"I_want_Status_Animation", Text("animation")},
                                 {"Enable_Speech_Engine", Text("speech engine")},
                                 {"Explode_out_all_Engine", Text("explode")},
                                 {"Notify_if_no_language_match", Text("notify")},
                                 {"Enable_Artificial_Intelligence", Text("intelligence")},
                                 {"Add_To_Language", Text("add")},
                                 {"Keep_Engine_Frequency_Input_Flow", Text("flow")},
                                 {"Keep_Digital_Signal_Processing_level", Text("level")},
                                 {"Memory_Clean", Text("clean")},
                                 {"On_speech_show_activities", Text("YES")},
                                 {"Words_I_Want", Text(" wanted ")},
                                 {"Consider_this_Engine_for_Recognition", Text("engine.EGN")},
                                 {"Consider_this_Lang_File_to_Add", Text("add.SAY")},
                                 {"Consider_this_Lang_File_to_match", Text("match.SAY")},
                                 {"Open_this_Wave_File", Text(" open.wav ")},
                                 {"Show_this_Image_for_Start", Text("start.bmp")},
                                 {"Show_this_Image_for_Stop", Text("stop.bmp")},
                                 {"Play_this_file_for_Start", Text("started.wav")},
                                 {"Play_this_file_for_Stop", Text("stopped.wav")},
                                 {"Play_this_file_on_Initialization", Text("new.wav")},
                                 {"Play_File", Text("played.wav")},
                                 {"Sample_Overlap_Bytes", N16(101)},
                                 {"Noise_Sensitivity", N16(102)},
                                 {"Filter_Pass_Value", N16(103)},
                                 {"Noise_Word_No_CutOff", N16(104)},
                                 {"Voice_Capture_Delay", N32(105)},
                                 {"Engine_Explode_Limit", N32(106)},
                                 {"Voice_Processing_Delay", N32(107)},
                                 {"Send_of_no", N32(3)},
                                 {"Sample_processing_resolution", N16(109)},
                                 {"Words_to_Scan", N32(110)},
                                 {"Direct_Add", N16(111)},
                                 {"Set_Recording_Frequency", N32(112)},
                                 {"Speech_sampling_time_in_ms", N32(113)},
                                 {"Enabled", true},
                                 {"hWnd", N32(1234)}};

const Answers Result_Answers = {{"Platinum_Word_Best", Text("first")},
                                {"Platinum_Word_Second_Best", Text("second")},
                                {"Platinum_Word_Third_Best", Text("third")},
                                {"Platinum_Word_Fourth_Best", Text("fourth")},
                                {"Platinum_Word_Fifth_Best", Text("fifth")},
                                {"Platinum_Word_Sixth_Best", Text("sixth")},
                                {"Platinum_Word_Seventh_Best", Text("seventh")},
                                {"Platinum_Words", Text("word ")},
                                {"Platinum_Word_Percentage", N16(12)},
                                {"Platinum_Words_Available", N32(11)},
                                {"Platinum_Word_Font", Text("Arial")},
                                {"Voice_Word", Text("heard ")},
                                {"Voice_Word_Matched", Text("matched ")},
                                {"Voice_Words_Explode_Count", N32(13)},
                                {"Voice_Words_Matched_Count", N32(14)},
                                {"Voice_Magic_Elements", Text("_4")},
                                {"Operation_Status", Text("Finish")},
                                {"Words_I_Check", N16(2)},
                                {"Engine_Category", N16(15)},
                                {"Engine_Category_Weight", N16(16)},
                                {"Engine_Category_Code", Text("group ")},
                                {"Filter_Filled_Slots", N32(17)},
                                {"Filter_Slot_Data", Text("slot ")},
                                {"Filter_Slot_Data_Weight", N32(18)},
                                {"Probable_no_of_words_recognized", N32(19)},
                                {"Current_Processings_Available", N32(20)},
                                {"No_of_Processings", N32(21)},
                                {"Current_Vyanjana_no_Processed", N32(22)},
                                {"Current_Word_no_Processed", N32(23)},
                                {"Current_DeepWord_no_Processed", N32(24)},
                                {"Current_TooDeepWord_no_Processed", N32(25)},
                                {"Current_Word_no_Timelength", N32(26)},
                                {"Current_DeepWord_no_Timelength", N32(27)},
                                {"Current_TooDeepWord_no_Timelength", N32(28)},
                                {"Audio_Data", N32(0)}};

TEST_F(MemberGets, Each_of_the_80_answers_its_own_variable_with_its_own_type) {
  Fill_Settings();
  Fill_Results();
  Fill_Filter();
  Fill_Words();
  std::set<std::string_view> asked;
  for (const Answers* answers : {&Setting_Answers, &Result_Answers}) {
    for (const auto& [name, answer] : *answers) {
      asked.insert(name);
      EXPECT_EQ(Get(name), answer) << name << " answers " << To_Text(Get(name));
    }
  }
  for (const Member& member : Member_Table()) {
    if (member.access == Access::Get) {
      EXPECT_TRUE(asked.contains(member.name)) << member.name;
    }
  }
  EXPECT_EQ(asked.size(), 80U);
}

TEST_F(MemberGets, Every_answer_has_the_type_that_its_row_promises) {
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Get) continue;
    EXPECT_EQ(Type_Of(Get_Member(member, *control)), member.type) << member.name;
  }
}

TEST_F(MemberGets, Only_two_announce_a_change_each_time) {
  Fill_Results();
  Fill_Filter();
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Get) continue;
    host_program.changed.clear();
    Get_Member(member, *control);
    const Changes expected = member.name == "Platinum_Words" ? Changes{"Platinum_Words"}
                             : member.name == "Voice_Word"   ? Changes{""}
                                                             : Changes{};
    EXPECT_EQ(host_program.changed, expected) << member.name;
  }
}

TEST_F(MemberGets, The_word_of_a_large_index_is_answered_where_its_table_reaches) {
  Fill_Results();
  Fill_Filter();
  session.results.Platinum_Word_Table[500] = "far";
  session.results.Platinum_Score_Table[500] = 50;
  session.filter.Filter_Slot_Table[500] = "slot";
  session.settings.Send_of_no = 500;
  EXPECT_EQ(Get("Platinum_Words"), Text("far"));
  EXPECT_EQ(Get("Platinum_Word_Percentage"), N16(50));
  EXPECT_EQ(Get("Filter_Slot_Data"), Text("slot"));
  EXPECT_EQ(Failure_Of([&] { Get("Voice_Word_Matched"); }), 9);
  EXPECT_EQ(Failure_Of([&] { Get("Voice_Word"); }), 9);
}

TEST_F(MemberGets, An_index_of_0_or_1_means_the_first_word_but_element_0_of_the_matched) {
  Fill_Results();
  Fill_Filter();
  session.results.Platinum_Word_Table[1] = "one";
  session.results.Platinum_Score_Table[1] = 7;
  session.filter.Voice_Word_Matched_Table[0] = "zero";
  for (const int send : {0, 1}) {
    session.settings.Send_of_no = send;
    EXPECT_EQ(Get("Platinum_Words"), Text("one"));
    EXPECT_EQ(Get("Platinum_Word_Percentage"), N16(7));
  }
  session.settings.Send_of_no = 0;
  EXPECT_EQ(Get("Voice_Word_Matched"), Text("zero"));
}

TEST_F(MemberGets, Words_I_Check_is_answered_from_its_table_once_a_word_was_checked) {
  session.filter.Words_Checked = 1;
  session.filter.Word_Check_Flags[3] = 1;
  session.settings.Send_of_no = 3;
  EXPECT_EQ(Get("Words_I_Check"), N16(1));
  session.settings.Send_of_no = 500;
  EXPECT_EQ(Failure_Of([&] { Get("Words_I_Check"); }), 9);
}

TEST_F(MemberGets, Two_gets_of_settings_do_not_answer_what_was_set) {
  std::set<std::string_view> others;
  for (const Member& member : Member_Table()) {
    if (!member.answers_what_was_set) others.insert(member.name);
  }
  EXPECT_EQ(others, (std::set<std::string_view>{"Keep_Digital_Signal_Processing_level",
                                                "On_speech_show_activities"}));
}

TEST_F(MemberGets, A_value_wider_than_its_member_is_an_overflow) {
  session.settings.Sample_processing_resolution = 32768;
  EXPECT_EQ(Failure_Of([&] { Get("Sample_processing_resolution"); }), 6);
  session.settings.Sample_processing_resolution = 32767;
  EXPECT_EQ(Get("Sample_processing_resolution"), N16(32767));
}

TEST_F(MemberGets, A_control_that_is_ended_by_the_announcement_of_a_get_still_answers) {
  struct EndingContainer final : Container {
    bool User_Mode() const override { return true; }
    void Raise(const ControlEvent&) override {}
    void Property_Changed(std::string_view) override {
      control->UserControl_Terminate(), control.reset();
    }
    void Face_Changed(const Face&) override {}
    std::shared_ptr<Control> control;
  } container;
  container.control = Control::Make(session, container);
  Fill_Filter();
  EXPECT_EQ(Get_Member(*Find_Member("Voice_Word", Access::Get), *container.control),
            Text("heard "));
  EXPECT_EQ(container.control, nullptr);
}

TEST_F(MemberGets, A_get_of_another_access_or_without_its_control_is_an_invalid_call) {
  ControlInstance nobody;
  const auto failure = [&](std::string_view name, Access access) {
    return Failure_Of([&] { Get_Member(*Find_Member(name, access), session, nobody); });
  };
  EXPECT_EQ(failure("Noise_Sensitivity", Access::Get), 0);
  EXPECT_EQ(failure("Noise_Sensitivity", Access::Let), 5);
  EXPECT_EQ(failure("Restart", Access::Call), 5);
  EXPECT_EQ(failure("Enabled", Access::Get), 5);
  EXPECT_EQ(failure("hWnd", Access::Get), 5);
}

}  // namespace
}  // namespace quillspeech
