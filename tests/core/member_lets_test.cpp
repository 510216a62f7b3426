// What each of the 79 lets does.
#include <gtest/gtest.h>

#include <algorithm>
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

constexpr bool Announced = true;
constexpr bool Silent = false;

// One let, what a get answers afterwards, and whether the change was announced.
struct Stored {
  std::string_view name;
  MemberValue value;
  MemberValue answer;
  bool announced;
};

const std::vector<Stored> Stored_Values = {
    {"Enabled", false, false, Announced},
    {"Enabled", Text("False"), false, Announced},
    {"Enabled", N16(0), false, Announced},
    {"Stop_everything_now", Text("YES"), Text("YES"), Announced},
    {"Stop_everything_now", Text("yes"), Text("NO"), Announced},
    {"Send_words_one_by_one", Text("NO"), Text("NO"), Announced},
    {"Send_words_one_by_one", Text("no"), Text("YES"), Announced},
    {"This_Audio_Process", Text("NO"), Text("NO"), Announced},
    {"This_Audio_Process", Text(" NO"), Text("YES"), Announced},
    {"Show_Audio_Graph", Text("NO"), Text("NO"), Announced},
    {"Speech_echo_feature", Text("YES"), Text("YES"), Announced},
    {"This_speech_sample_process_Start_only", Text("YES"), Text("YES"), Announced},
    {"This_speech_sample_process_middle_only", Text("YES"), Text("YES"), Announced},
    {"This_speech_sample_process_end_only", Text("YES"), Text("YES"), Announced},
    {"This_speech_sample_process_end_only", true, Text("NO"), Announced},
    {"Always_Restart_on_Error", Text("maybe"), Text("YES"), Announced},
    {"Always_Restart_on_Error", Text("NO"), Text("NO"), Announced},
    {"I_want_Status_Animation", Text(""), Text("YES"), Announced},
    {"Enable_Speech_Engine", Text("NO"), Text("NO"), Announced},
    {"Explode_out_all_Engine", Text("maybe"), Text("NO"), Announced},
    {"Notify_if_no_language_match", Text("YES"), Text("YES"), Announced},
    {"Enable_Artificial_Intelligence", Text("YES"), Text("YES"), Announced},
    {"Add_To_Language", Text("YES"), Text("YES"), Announced},
    {"Add_To_Language", Text("Yes"), Text("NO"), Announced},
    {"Keep_Engine_Frequency_Input_Flow", Text("Pass All"), Text("Pass All"), Announced},
    {"Keep_Engine_Frequency_Input_Flow", Text("Filter Same"), Text("Filter Same"), Announced},
    {"Keep_Engine_Frequency_Input_Flow", Text("other"), Text("Filter All"), Announced},
    {"Keep_Digital_Signal_Processing_level", Text("Top"), Text(""), Announced},
    {"Memory_Clean", Text("other"), Text("YES"), Announced},
    {"On_speech_show_activities", Text("YES"), Text("YES"), Announced},
    {"On_speech_show_activities", Text("NO"), Text("YES"), Silent},
    {"Sample_Overlap_Bytes", N16(7), N16(7), Announced},
    {"Sample_Overlap_Bytes", Text("1,234.5"), N16(1234), Announced},
    {"Noise_Sensitivity", N32(-8), N16(-8), Announced},
    {"Noise_Sensitivity", Text("&H1F"), N16(31), Announced},
    {"Filter_Pass_Value", N16(9), N16(9), Silent},
    {"Noise_Word_No_CutOff", Text("255"), N16(255), Announced},
    {"Voice_Capture_Delay", N32(70000), N32(70000), Announced},
    {"Engine_Explode_Limit", N32(70001), N32(70001), Silent},
    {"Voice_Processing_Delay", Text("1d4"), N32(10000), Announced},
    {"Send_of_no", N32(-3), N32(-3), Announced},
    {"Sample_processing_resolution", N16(400), N16(400), Announced},
    {"Sample_processing_resolution", true, N16(-1), Announced},
    {"Words_to_Scan", N32(70002), N32(70002), Announced},
    {"Direct_Add", N16(5), N16(5), Announced},
    {"Set_Recording_Frequency", N32(8000), N32(8000), Announced},
    {"Set_Recording_Frequency", N32(16000), N32(22050), Announced},
    {"Speech_sampling_time_in_ms", N32(5000), N32(5000), Announced},
    {"Words_I_Want", Text(" f* "), Text("f*"), Announced},
    {"Words_I_Want", N16(12), Text("12"), Announced},
    {"Consider_this_Engine_for_Recognition", Text("mine"), Text("mine.EGN"), Announced},
    {"Consider_this_Engine_for_Recognition", Text(" mine.EGN "), Text("mine.EGN"), Silent},
    {"Consider_this_Engine_for_Recognition", Text(".EGN"), Text(".EGN"), Silent},
    {"Consider_this_Engine_for_Recognition", Text(""), Text(""), Silent},
    {"Consider_this_Engine_for_Recognition", Text("  "), Text(".EGN"), Announced},
    {"Consider_this_Lang_File_to_match", Text("  "), Text(".SAY"), Announced},
    {"Consider_this_Lang_File_to_Add", Text(" "), Text(".SAY"), Announced},
    {"Consider_this_Lang_File_to_Add", Text("w.say"), Text("w.say.SAY"), Announced},
    {"Consider_this_Lang_File_to_Add", Text("w.SAY"), Text("w.SAY"), Silent},
    {"Consider_this_Lang_File_to_match", Text("w"), Text("w.SAY"), Announced},
    {"Consider_this_Lang_File_to_match", Text("w.SAY"), Text("w.SAY"), Silent},
    {"Consider_this_Lang_File_to_match", Text(""), Text("UserTemp.SAY"), Silent},
    {"Open_this_Wave_File", Text(" a.wav "), Text("a.wav"), Announced},
    {"Show_this_Image_for_Start", Text(" a.bmp "), Text("a.bmp"), Announced},
    {"Show_this_Image_for_Stop", Text(" b.bmp "), Text("b.bmp"), Announced},
    {"Play_this_file_for_Start", Text(" a.wav "), Text("a.wav"), Announced},
    {"Play_this_file_for_Stop", Text(""), Text(""), Announced},
    {"Play_this_file_on_Initialization", Text(" c.wav "), Text("c.wav"), Announced},
    {"Play_File", Text(" d.wav "), Text("d.wav"), Announced}};

const std::vector<std::string_view> Results_Of_Runs = {"Platinum_Word_Best",
                                                       "Platinum_Word_Second_Best",
                                                       "Platinum_Word_Third_Best",
                                                       "Platinum_Word_Fourth_Best",
                                                       "Platinum_Word_Fifth_Best",
                                                       "Platinum_Word_Sixth_Best",
                                                       "Platinum_Word_Seventh_Best",
                                                       "Platinum_Words",
                                                       "Platinum_Word_Percentage",
                                                       "Platinum_Words_Available",
                                                       "Platinum_Word_Font",
                                                       "Voice_Word",
                                                       "Voice_Word_Matched",
                                                       "Voice_Words_Explode_Count",
                                                       "Voice_Words_Matched_Count",
                                                       "Current_Vyanjana_no_Processed",
                                                       "Voice_Magic_Elements",
                                                       "Operation_Status",
                                                       "Words_I_Check",
                                                       "Engine_Category",
                                                       "Engine_Category_Weight",
                                                       "Engine_Category_Code",
                                                       "Filter_Filled_Slots",
                                                       "Filter_Slot_Data",
                                                       "Filter_Slot_Data_Weight",
                                                       "Probable_no_of_words_recognized",
                                                       "Current_Processings_Available",
                                                       "No_of_Processings",
                                                       "Current_Word_no_Processed",
                                                       "Current_DeepWord_no_Processed",
                                                       "Current_TooDeepWord_no_Processed",
                                                       "Current_Word_no_Timelength",
                                                       "Current_DeepWord_no_Timelength",
                                                       "Current_TooDeepWord_no_Timelength",
                                                       "Audio_Data"};

// A control of its own for each let.
struct Fresh : tests::ControlTest {
  Fresh() { session.settings.Enable_Artificial_Intelligence = "YES"; }

  SetResult Let(std::string_view name, const MemberValue& value) {
    return Let_Member(*Find_Member(name, Access::Let), *control, value);
  }
  MemberValue Get(std::string_view name) {
    return Get_Member(*Find_Member(name, Access::Get), *control);
  }
};

class MemberLets : public testing::Test, protected Fresh {};

TEST(MemberLetsTable, Each_let_stores_what_its_rule_says_and_announces_it_or_not) {
  for (const Stored& one : Stored_Values) {
    Fresh fresh;
    EXPECT_EQ(fresh.Let(one.name, one.value), SetResult::Done) << one.name;
    const auto answer = fresh.Get(one.name);
    EXPECT_EQ(answer, one.answer) << one.name << " answers " << To_Text(answer);
    EXPECT_EQ(fresh.host_program.changed,
              one.announced ? Changes{std::string(one.name)} : Changes())
        << one.name << " := " << To_Text(one.value);
    EXPECT_TRUE(fresh.boxes.shown.empty()) << one.name;
  }
}

TEST_F(MemberLets, A_let_of_a_result_drops_any_value_and_the_caller_sees_success) {
  for (const std::string_view name : Results_Of_Runs) {
    const auto before = Get(name);
    host_program.changed.clear();
    for (const MemberValue& value :
         {Text("many"), N16(7), N32(70000), MemberValue(true), MemberValue()}) {
      EXPECT_EQ(Let(name, value), SetResult::Is_Result) << name;
    }
    EXPECT_EQ(host_program.changed, Changes()) << name;
    EXPECT_EQ(Get(name), before) << name;
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(MemberLets, The_tables_here_cover_all_79) {
  std::set<std::string_view> covered(Results_Of_Runs.begin(), Results_Of_Runs.end());
  EXPECT_EQ(covered.size(), 35U);
  for (const Stored& one : Stored_Values) covered.insert(one.name);
  EXPECT_EQ(covered.size(), 79U);
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Let) continue;
    EXPECT_TRUE(covered.contains(member.name)) << member.name;
  }
}

TEST_F(MemberLets, A_text_that_is_no_number_gets_a_box_where_the_member_tests_for_it) {
  const std::vector<std::pair<std::string_view, std::string_view>> Boxes = {
      {"Filter_Pass_Value", "Filter_Pass_Value"},
      {"Noise_Word_No_CutOff", "Noise_Word_No_CutOff"},
      {"Voice_Capture_Delay", "Voice_Capture_Delay"},
      {"Engine_Explode_Limit", "Engine_Explode_Limit"},
      {"Voice_Processing_Delay", "Voice_processing_Delay"},
      {"Send_of_no", "Send_of_no"},
      {"Sample_processing_resolution", "Sample_processing_resolution"}};
  for (const auto& [name, spelled] : Boxes) {
    for (const char* text : {"many", "", "1e400", "True"}) {
      boxes.shown.clear();
      const auto before = Get(name);
      EXPECT_EQ(Let(name, Text(text)), SetResult::Refused);
      EXPECT_EQ(Get(name), before);
      EXPECT_EQ(Box().title, "Quillspeech Settings");
      EXPECT_EQ(Box().text, "Incorrect Settings for " + std::string(spelled) + " ");
      EXPECT_EQ(Box().buttons, BoxButtons::OK);
      EXPECT_EQ(Box().icon, BoxIcon::None);
    }
  }
  EXPECT_EQ(host_program.changed, Changes());
  EXPECT_EQ(std::ranges::count_if(Member_Table(),
                                  [](const Member& m) { return !m.name_in_refusal.empty(); }),
            7);
}

TEST_F(MemberLets, A_value_that_cannot_be_converted_fails_and_stores_nothing) {
  struct Case {
    std::string_view name;
    MemberValue value;
    int failure;
  };
  const std::vector<Case> Cases = {{"Enabled", Text("maybe"), 13},
                                   {"Sample_Overlap_Bytes", Text("many"), 13},
                                   {"Sample_Overlap_Bytes", N32(32768), 6},
                                   {"Noise_Sensitivity", Text(""), 13},
                                   {"Noise_Sensitivity", Text("1e400"), 6},
                                   {"Filter_Pass_Value", N32(-32769), 6},
                                   {"Noise_Word_No_CutOff", N16(256), 6},
                                   {"Noise_Word_No_CutOff", N16(-1), 6},
                                   {"Noise_Word_No_CutOff", Text("&H100"), 6},
                                   {"Voice_Capture_Delay", Text("2147483648"), 6},
                                   {"Sample_processing_resolution", N32(40000), 6},
                                   {"Words_to_Scan", Text("all"), 13},
                                   {"Direct_Add", N32(70000), 6},
                                   {"Set_Recording_Frequency", Text("CD"), 13},
                                   {"Speech_sampling_time_in_ms", Text("long"), 13}};
  for (const Case& one : Cases) {
    const auto before = Get(one.name);
    EXPECT_EQ(Failure_Of([&] { Let(one.name, one.value); }), one.failure) << one.name;
    EXPECT_EQ(Get(one.name), before) << one.name;
  }
  EXPECT_EQ(host_program.changed, Changes());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(MemberLets, The_level_moves_and_its_text_stays) {
  session.settings.Keep_Digital_Signal_Processing_level = "Middle";
  for (const auto& [text, level] : std::vector<std::pair<const char*, int>>{
           {"Top", 256}, {"Up", 128}, {"Middle", 100}, {"Down", 80}, {"", 80}}) {
    Let("Keep_Digital_Signal_Processing_level", Text(text));
    EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, level) << text;
    EXPECT_EQ(Get("Keep_Digital_Signal_Processing_level"), Text("Middle"));
  }
}

TEST_F(MemberLets, Memory_Clean_announces_a_second_change) {
  session.results.Platinum_Words_Available = 3;
  Let("Memory_Clean", Text("NO"));
  EXPECT_EQ(session.results.Platinum_Words_Available, 3);
  Let("Memory_Clean", Text("YES"));
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(host_program.changed, Changes(4, "Memory_Clean"));
}

TEST_F(MemberLets, A_time_of_3000_ms_becomes_4000_at_run_time_and_a_start_is_refused) {
  session.flags.Settings_Ready_Count = 0;
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", N32(3000)), SetResult::Replaced);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), N32(4000));
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(Box().text, "Invalid sample time. Assigning default 4000 ms");
  EXPECT_EQ(Let("Words_I_Want", Text("")), SetResult::Done);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 1);
  boxes.shown.clear();
  Call_Member(*Find_Member("Start_Real_Action", Access::Call), *control);
  EXPECT_EQ(Box().title, "Quillspeech Start");
  EXPECT_EQ(Box().text,
            "Incomplete Settings. ACCESS DENIED  ( Please check Speech Sampling time and Words I "
            "Want )");
  EXPECT_EQ(session.flags.Session_Started, 0);
}

TEST_F(MemberLets, The_container_tells_whether_it_is_run_time) {
  host_program.user_mode = false;
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", N32(3000)), SetResult::Done);
  EXPECT_EQ(Let("Consider_this_Lang_File_to_match", Text("")), SetResult::Done);
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), Text(".SAY"));
  host_program.user_mode = true;
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), N32(3000));
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", N32(3000)), SetResult::Replaced);
}

TEST_F(MemberLets, An_empty_language_file_to_add_is_refused_with_a_box_at_run_time) {
  EXPECT_EQ(Let("Consider_this_Lang_File_to_Add", Text("")), SetResult::Refused);
  EXPECT_EQ(Box().title, "Quillspeech User Error");
  EXPECT_EQ(Box().text, "Invalid FileName for Language to add");
  EXPECT_EQ(Box().icon, BoxIcon::Stop);
  EXPECT_EQ(Box().buttons, BoxButtons::OK);
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), Text("UserTemp.SAY"));
}

TEST_F(MemberLets, Play_File_plays_the_text_as_it_came_even_an_empty_one) {
  Let("Play_File", Text(" d.wav "));
  Let("Play_File", Text(""));
  EXPECT_EQ(cues.calls, (std::vector<std::string>{"play  d.wav ", "play "}));
}

TEST_F(MemberLets, Enabled_reaches_the_container) {
  Let("Enabled", false);
  EXPECT_FALSE(host_program.enabled);
  EXPECT_EQ(host_program.changed, Changes{"Enabled"});
}

TEST_F(MemberLets, A_let_of_another_access_or_without_its_control_is_an_invalid_call) {
  ControlInstance nobody;
  const auto failure = [&](std::string_view name, Access access) {
    return Failure_Of([&] { Let_Member(*Find_Member(name, access), session, nobody, true); });
  };
  EXPECT_EQ(failure("Noise_Sensitivity", Access::Let), 0);
  EXPECT_EQ(failure("Noise_Sensitivity", Access::Get), 5);
  EXPECT_EQ(failure("Enabled", Access::Let), 5);
}

}  // namespace
}  // namespace quillspeech
