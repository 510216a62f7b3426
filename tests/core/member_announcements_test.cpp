// What a container finds when it asks from inside the announcement of a change.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/conversions.hpp"
#include "core/member_table.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Texts = std::vector<std::string>;

// One let, and what the get of its member answers at each of its announcements.
struct Told {
  std::string_view name;
  std::string_view text;
  Texts answers;
};

const std::vector<Told> Announcing_Lets = {
    {"Enabled", "False", {"False"}},
    {"Stop_everything_now", "YES", {"YES"}},
    {"Send_words_one_by_one", "NO", {"NO"}},
    {"This_Audio_Process", "NO", {"NO"}},
    {"Show_Audio_Graph", "NO", {"NO"}},
    {"Speech_echo_feature", "YES", {"YES"}},
    {"This_speech_sample_process_Start_only", "YES", {"YES"}},
    {"This_speech_sample_process_middle_only", "YES", {"YES"}},
    {"This_speech_sample_process_end_only", "YES", {"YES"}},
    {"Always_Restart_on_Error", "YES", {"YES"}},
    {"I_want_Status_Animation", "YES", {"YES"}},
    {"Enable_Speech_Engine", "NO", {"NO"}},
    {"Explode_out_all_Engine", "NO", {"NO"}},
    {"Notify_if_no_language_match", "YES", {"YES"}},
    {"Enable_Artificial_Intelligence", "YES", {"YES"}},
    {"Add_To_Language", "YES", {"YES"}},
    {"Keep_Engine_Frequency_Input_Flow", "Pass All", {"Pass All"}},
    {"Keep_Digital_Signal_Processing_level", "Top", {"old"}},
    {"Memory_Clean", "NO", {"NO", "NO"}},
    {"On_speech_show_activities", "YES", {"YES"}},
    {"Sample_Overlap_Bytes", "7", {"7"}},
    {"Noise_Sensitivity", "8", {"8"}},
    {"Noise_Word_No_CutOff", "9", {"9"}},
    {"Voice_Capture_Delay", "10", {"10"}},
    {"Voice_Processing_Delay", "11", {"11"}},
    {"Send_of_no", "12", {"12"}},
    {"Sample_processing_resolution", "13", {"13"}},
    {"Words_to_Scan", "14", {"14"}},
    {"Direct_Add", "15", {"15"}},
    {"Set_Recording_Frequency", "8000", {"8000"}},
    {"Speech_sampling_time_in_ms", "5000", {"5000"}},
    {"Words_I_Want", " word ", {"word"}},
    {"Consider_this_Engine_for_Recognition", "e", {"e.EGN"}},
    {"Consider_this_Lang_File_to_Add", "a", {"a.SAY"}},
    {"Consider_this_Lang_File_to_match", "m", {"m.SAY"}},
    {"Open_this_Wave_File", " o.wav ", {"o.wav"}},
    {"Show_this_Image_for_Start", "s.bmp", {"s.bmp"}},
    {"Show_this_Image_for_Stop", "t.bmp", {"t.bmp"}},
    {"Play_this_file_for_Start", "s.wav", {"s.wav"}},
    {"Play_this_file_for_Stop", "t.wav", {"t.wav"}},
    {"Play_this_file_on_Initialization", "i.wav", {"i.wav"}},
    {"Play_File", " p.wav ", {"p.wav"}}};

// Asks at each announcement.
struct Asking : ControlTest {
  Asking() { session.settings.Keep_Digital_Signal_Processing_level = "old"; }

  Texts At_Announcements(const std::function<void()>& action, std::function<std::string()> ask) {
    Texts answers;
    host_program.At_Call = [&](std::string_view call) {
      if (call == "Property_Changed") answers.push_back(ask());
    };
    action();
    host_program.At_Call = nullptr;
    return answers;
  }
  Texts At_Let(std::string_view name, std::string_view text, std::function<std::string()> ask) {
    return At_Announcements([&] { Let_Text(*control, name, text); }, std::move(ask));
  }
};

class MemberAnnouncements : public ::testing::Test, protected Asking {};

TEST(MemberAnnouncementsTable, Each_let_has_stored_its_value_when_it_announces_it) {
  for (const Told& one : Announcing_Lets) {
    Asking test;
    const auto ask = [&] { return Get_Text(*test.control, one.name); };
    if (one.answers.front() != "old" && one.name != "On_speech_show_activities") {
      EXPECT_NE(ask(), one.answers.front()) << one.name;
    }
    EXPECT_EQ(test.At_Let(one.name, one.text, ask), one.answers) << one.name;
  }
}

TEST(MemberAnnouncementsTable, It_holds_every_let_but_those_of_results_and_two_silent_ones) {
  std::set<std::string_view> told = {"Filter_Pass_Value", "Engine_Explode_Limit"};
  for (const Told& one : Announcing_Lets) told.insert(one.name);
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Let || !member.let) continue;
    EXPECT_TRUE(told.contains(member.name)) << member.name;
  }
  EXPECT_EQ(told.size(), 44U);
}

TEST_F(MemberAnnouncements, Memory_Clean_forgets_the_words_between_its_two_announcements) {
  session.results.Platinum_Words_Available = 3;
  const auto ask = [&] { return Get_Text(*control, "Platinum_Words_Available"); };
  EXPECT_EQ(At_Let("Memory_Clean", "YES", ask), (Texts{"3", "0"}));
}

TEST_F(MemberAnnouncements, What_a_let_does_besides_storing_is_done_by_then) {
  EXPECT_EQ(At_Let("Play_File", " d.wav ", [&] { return cues.calls.at(0); }),
            Texts{"play  d.wav "});
  const auto count = [&] { return std::to_string(session.flags.Settings_Ready_Count); };
  EXPECT_EQ(At_Let("Words_I_Want", "", count), Texts{"3"});
  EXPECT_EQ(At_Let("Speech_sampling_time_in_ms", "5000", count), Texts{"4"});
  EXPECT_EQ(At_Let("Speech_sampling_time_in_ms", "4000",
                   [&] { return std::to_string(session.sample.Samples_Per_Capture); }),
            Texts{"88200"});
  EXPECT_EQ(At_Let("Words_to_Scan", "5",
                   [&] { return std::to_string(session.settings.Words_to_Scan_Start); }),
            Texts{"1"});
  EXPECT_EQ(At_Let("Direct_Add", "5", [&] { return session.settings.Direct_Add_Enabled; }),
            Texts{"YES"});
  EXPECT_EQ(
      At_Let("Keep_Digital_Signal_Processing_level", "Top",
             [&] { return std::to_string(session.settings.Digital_Signal_Processing_Level); }),
      Texts{"256"});
  EXPECT_EQ(At_Let("On_speech_show_activities", "YES",
                   [&] { return std::to_string(session.flags.Show_Activities); }),
            Texts{"1"});
  EXPECT_EQ(
      At_Let("Enabled", "False", [&] { return std::string(host_program.enabled ? "on" : "off"); }),
      Texts{"off"});
}

// The two gets.

TEST_F(MemberAnnouncements, A_word_is_read_before_it_is_announced) {
  session.results.Platinum_Words_Available = 1;
  session.results.Platinum_Word_Table[1] = "before";
  session.filter.Voice_Words_Explode_Count = 1;
  session.filter.Voice_Word_Table[1] = "before";
  for (const std::string_view name : {"Platinum_Words", "Voice_Word"}) {
    std::string answer;
    At_Announcements([&] { answer = Get_Text(*control, name); },
                     [&] {
                       session.results.Platinum_Word_Table[1] = "after";
                       session.filter.Voice_Word_Table[1] = "after";
                       return std::string();
                     });
    EXPECT_EQ(answer, "before") << name;
    session.filter.Voice_Word_Table[1] = "before";
  }
  EXPECT_EQ(host_program.changed, (Texts{"Platinum_Words", ""}));
}

TEST_F(MemberAnnouncements, A_word_whose_index_is_out_of_bounds_announces_nothing) {
  session.results.Platinum_Words_Available = 1;
  session.filter.Voice_Words_Explode_Count = 1;
  session.settings.Send_of_no = 1001;
  EXPECT_EQ(Failure_Of([&] { Get_Text(*control, "Platinum_Words"); }), 9);
  EXPECT_EQ(Failure_Of([&] { Get_Text(*control, "Voice_Word"); }), 9);
  EXPECT_EQ(host_program.changed, Texts());
}

}  // namespace
}  // namespace quillspeech
